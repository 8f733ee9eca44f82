#include "core/frmStart_run.h"
#include "core/widgets/application.h"
#include "core/widgets/qt_doors.h"
#include "lists/frmAnzeige_WEB_Browser.h"

int main(int argc, char** argv) {
    kolibri::Application application(argc, argv);
    kolibri::openQtDoors();
    kolibri::openPageDoors();
    return kolibri::runProgram(QCoreApplication::applicationDirPath());
}
