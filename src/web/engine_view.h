#pragma once

#include "core/page_module.h"
#include "web/engine_page.h"

#include <QWebEngineProfile>
#include <QWebEngineView>

namespace kolibri {

/// The engine's view of a page.
class EngineView final : public PageView {
public:
    explicit EngineView(QWidget* parent);

    QWidget* widget() override { return m_view.get(); }
    bool load(const QString& file) override;
    void find(const QString& text, bool backward, const std::function<void(int places)>& found) override;
    double zoom() const override { return m_page.zoomFactor(); }
    void setZoom(double factor) override { m_page.setZoomFactor(factor); }
    QByteArray toPdf(const QByteArray& page, const QPageLayout& sheet) override;

private:
    // Profiles go after the pages that use them.
    RequestGuard m_guard;
    RequestGuard m_paperGuard;
    QWebEngineProfile m_profile;
    QWebEngineProfile m_paperProfile;
    EnginePage m_page;
    std::unique_ptr<QWebEngineView> m_view;
    QString m_folder;
};

} // namespace kolibri
