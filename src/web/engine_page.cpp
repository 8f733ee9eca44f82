#include "web/engine_page.h"

#include <QEventLoop>
#include <QTimer>
#include <QWebEngineProfile>
#include <QWebEngineSettings>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace kolibri {
namespace {

void closeOff(QWebEngineSettings& settings) {
    using enum QWebEngineSettings::WebAttribute;
    for (const auto attribute :
         {JavascriptEnabled, JavascriptCanOpenWindows, JavascriptCanAccessClipboard, JavascriptCanPaste,
          LocalStorageEnabled, LocalContentCanAccessRemoteUrls, HyperlinkAuditingEnabled, PluginsEnabled,
          FullScreenSupportEnabled, ScreenCaptureEnabled, WebGLEnabled, Accelerated2dCanvasEnabled,
          AutoLoadIconsForPage, AllowRunningInsecureContent, DnsPrefetchEnabled, PdfViewerEnabled,
          NavigateOnDropEnabled, ErrorPageEnabled})
        settings.setAttribute(attribute, false);
    settings.setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
    // Paper has the font only from here: a slip in the page's style sheet cuts its own rule off for print.
    settings.setFontFamily(QWebEngineSettings::StandardFont, u"Arial"_s);
    // Shading of rows belongs to the lists, on paper as well.
    settings.setAttribute(PrintElementBackgrounds, true);
}

} // namespace

void closeOff(QWebEngineProfile& profile, RequestGuard& guard) {
    profile.setHttpCacheType(QWebEngineProfile::NoCache);
    profile.setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    profile.setUrlRequestInterceptor(&guard);
}

EnginePage::EnginePage(QWebEngineProfile* profile, RequestGuard& guard)
    : QWebEnginePage(profile), m_guard(guard) {
    closeOff(*settings());
}

bool EnginePage::loadFile(const QString& file, const QString& pictureFolder) {
    constexpr auto kLongest = 60s;
    m_guard.allow(file, pictureFolder);
    bool shown = false;
    QEventLoop loop;
    connect(this, &QWebEnginePage::loadFinished, &loop, [&](bool ok) {
        shown = ok;
        loop.quit();
    });
    connect(this, &QWebEnginePage::renderProcessTerminated, &loop, [&] { loop.quit(); });
    QTimer::singleShot(kLongest, &loop, &QEventLoop::quit);
    load(QUrl::fromLocalFile(file));
    // A click that comes meanwhile must not open or close anything in the middle of this.
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    return shown;
}

bool EnginePage::acceptNavigationRequest(const QUrl& url, NavigationType, bool isMainFrame) {
    return isMainFrame && m_guard.isAllowedPage(url);
}

} // namespace kolibri
