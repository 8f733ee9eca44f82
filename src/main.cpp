#include "core/error_report.h"
#include "core/frmStart.h"
#include "core/mdlAllgemein.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "core/widgets/qt_doors.h"

using namespace kolibri;

int main(int argc, char** argv) {
    Application application(argc, argv);
    openQtDoors();
    int result = EXIT_FAILURE;
    try {
        const StartState state = startUp(QCoreApplication::applicationDirPath());
        Form<frmStart>().setState(state);
        Form<frmStart>().show();
        result = QCoreApplication::exec();
    } catch (...) {
        reportError(std::current_exception());
    }
    unloadForms();
    return result;
}
