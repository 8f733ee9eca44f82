#pragma once

#include "web/request_guard.h"

#include <QWebEnginePage>

namespace kolibri {

/// A page in the engine, closed off. Leads nowhere: links, new windows and forwarding are refused.
class EnginePage : public QWebEnginePage {
public:
    EnginePage(QWebEngineProfile* profile, RequestGuard& guard);

    /// Loads a file; returns when it is there. False when it cannot be shown.
    [[nodiscard]] bool loadFile(const QString& file, const QString& pictureFolder);

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int,
                                  const QString&) override {}

private:
    RequestGuard& m_guard;
};

/// A profile that keeps nothing, in memory or on disk.
void closeOff(QWebEngineProfile& profile, RequestGuard& guard);

} // namespace kolibri
