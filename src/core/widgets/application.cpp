#include "core/widgets/application.h"

#include "core/error_report.h"
#include "core/mdlAllgemein.h"

#include <QIcon>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace kolibri {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    setApplicationName(kProgramTitle);
    setApplicationDisplayName(kProgramTitle);
    setApplicationVersion(QStringLiteral(KOLIBRI_VERSION));
    setOrganizationName(u"Nordlicht"_s);
    setDesktopFileName(u"kolibri"_s);
    setWindowIcon(QIcon(u":/kolibri/kolibri.svg"_s));
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        const auto error = std::current_exception();
        while (overrideCursor())
            restoreOverrideCursor();
        reportError(error);
        return true;
    }
}

} // namespace kolibri
