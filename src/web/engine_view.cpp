#include "web/engine_view.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QTemporaryFile>
#include <QWebEngineFindTextResult>

using namespace Qt::StringLiterals;

namespace kolibri {

EngineView::EngineView(QWidget* parent)
    : m_page(&m_profile, m_guard), m_view(std::make_unique<QWebEngineView>(parent)) {
    closeOff(m_profile, m_guard);
    closeOff(m_paperProfile, m_paperGuard);
    m_view->setPage(&m_page);
    // The engine's own menu offers steps back and forth that lead nowhere here.
    m_view->setContextMenuPolicy(Qt::NoContextMenu);
    m_view->setAcceptDrops(false);
}

bool EngineView::load(const QString& file) {
    m_folder = QFileInfo(file).path();
    return m_page.loadFile(file, m_folder);
}

void EngineView::find(const QString& text, bool backward, const std::function<void(int)>& found) {
    const auto direction = backward ? QWebEnginePage::FindBackward : QWebEnginePage::FindFlags();
    m_page.findText(text, direction,
                    [found](const QWebEngineFindTextResult& result) { found(result.numberOfMatches()); });
}

QByteArray EngineView::toPdf(const QByteArray& page, const QPageLayout& sheet) {
    // The copy for the paper is the user's alone and gone afterwards; the page that is shown stays.
    QTemporaryFile copy(QDir::temp().filePath(u"kolibri-druck-XXXXXX.html"_s));
    if (!copy.open() || copy.write(page) != page.size() || !copy.flush())
        return {};
    EnginePage paper(&m_paperProfile, m_paperGuard);
    if (!paper.loadFile(copy.fileName(), m_folder))
        return {};
    QByteArray pdf;
    QEventLoop loop;
    QObject::connect(&paper, &QWebEnginePage::renderProcessTerminated, &loop, [&] { loop.quit(); });
    paper.printToPdf(
        [&](const QByteArray& bytes) {
            pdf = bytes;
            loop.quit();
        },
        sheet);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    return pdf;
}

} // namespace kolibri
