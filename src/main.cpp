#include "core/frmStart.h"
#include "core/widgets/application.h"
#include "core/widgets/qt_doors.h"

int main(int argc, char** argv) {
    kolibri::Application application(argc, argv);
    kolibri::openQtDoors();
    return kolibri::runProgram(QCoreApplication::applicationDirPath());
}
