#include "core/frmStart_run.h"

#include "core/error_report.h"
#include "core/frmStart.h"
#include "core/widgets/forms.h"

#include <QCoreApplication>

namespace kolibri {

int runProgram(const QString& programFolder) {
    int result = EXIT_FAILURE;
    try {
        qCDebug(startLog, "Start");
        const StartState state = startUp(programFolder);
        qCDebug(startLog, "Datenbank gelesen");
        auto& window = Form<frmStart>();
        window.setState(state);
        window.show();
        result = QCoreApplication::exec();
    } catch (...) {
        reportError(std::current_exception());
    }
    unloadForms();
    return result;
}

} // namespace kolibri
