#include "core/widgets/application.h"

#include "core/error_report.h"
#include "core/mdlAllgemein.h"
#include "core/widgets/theme.h"

#include <QEvent>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QScopedValueRollback>

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
    // Qt's own words, such as the context menu of a text field; without its translation they stay English.
    if (m_german.load(u"qtbase_de"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(&m_german);
    applyTheme();
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        caughtError(std::current_exception());
        return true;
    }
}

bool Application::event(QEvent* event) {
    const bool result = QApplication::event(event);
    if (event->type() == QEvent::ApplicationPaletteChange)
        applyTheme();
    return result;
}

void Application::caughtError(std::exception_ptr error) {
    while (overrideCursor())
        restoreOverrideCursor();
    // A timer that fails goes on failing while its box is being read; one box is enough.
    if (m_showingError)
        return;
    const QScopedValueRollback<bool> showing(m_showingError, true);
    reportError(error);
}

} // namespace kolibri
