#include "core/page_module.h"

#include "core/platform/engine_sandbox.h"

#include <QCoreApplication>
#include <QOpenGLContext>
#include <QPluginLoader>

using namespace Qt::StringLiterals;

// Exported by Qt Gui, though no public header declares it.
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);

namespace kolibri {
namespace {

const QString kModuleFile = QStringLiteral("kolibri_web");

/// The engine, when loaded after the start, asks for a graphics context that Qt makes only at the start, for
/// about 60 MB and as long again as the whole start takes. Pages are drawn without graphics hardware, so an
/// empty context answers the question as well.
void placeEmptyGraphicsContext() {
    if (!QOpenGLContext::globalShareContext())
        qt_gl_set_global_share_context(new QOpenGLContext(QCoreApplication::instance()));
}

void addEngineOption(const QByteArray& option) {
    constexpr auto kOptions = "QTWEBENGINE_CHROMIUM_FLAGS";
    const QByteArray set = qgetenv(kOptions);
    qputenv(kOptions, set.isEmpty() ? option : set + ' ' + option);
}

PageModule* loadModule(QString& problem) {
    placeEmptyGraphicsContext();
    addEngineOption("--disable-gpu");
    // A second bolt behind the guard of the requests: no name and no address leads anywhere.
    addEngineOption(R"(--host-resolver-rules="MAP * ~NOTFOUND")");
    if (!engineSandboxWorks())
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    QPluginLoader loader(kModuleFile);
    auto* module = qobject_cast<PageModule*>(loader.instance());
    if (!module)
        problem = loader.isLoaded() ? u"%1 passt nicht zu dieser Version."_s.arg(loader.fileName())
                                    : loader.errorString();
    return module;
}

} // namespace

PageError::PageError(const QString& message, const QString& details)
    : OfficeError(message.toStdString()), m_message(message), m_details(details) {}

PageModule& pageModule() {
    static PageModule* module = nullptr;
    QString problem;
    if (!module)
        module = loadModule(problem);
    if (!module)
        throw PageError(u"Der Programmteil, der Listen anzeigt und druckt (%1), kann nicht geladen werden. "
                        "Bitte installieren Sie das Programm neu."_s.arg(kModuleFile),
                        problem);
    return *module;
}

PaperMeasures DefaultPrinter::measures() const {
    try {
        return pageModule().measures(orientation()).value_or(A4Paper::measures());
    } catch (const PageError&) {
        // The window says so; the page itself can be written all the same.
        return A4Paper::measures();
    }
}

} // namespace kolibri
