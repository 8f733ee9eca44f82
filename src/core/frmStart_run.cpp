#include "core/frmStart_run.h"

#include "core/error_report.h"
#include "core/frmEinstellungen.h"
#include "core/frmStart.h"
#include "core/frmStart_targets.h"
#include "core/widgets/forms.h"

#include <QCoreApplication>

namespace kolibri {

int runProgram(const QString& programFolder) {
    int result = EXIT_FAILURE;
    try {
        qCDebug(startLog, "Start");
        const StartState state = startUp(programFolder, startSteps());
        qCDebug(startLog, "Datenbank gelesen");
        // Loaded now and kept: what its controls hold is what the other forms and the lists go by.
        Form<frmEinstellungen>();
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
