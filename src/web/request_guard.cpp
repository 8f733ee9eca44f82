#include "web/request_guard.h"

#include <QCoreApplication>
#include <QDir>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Path of a file of this machine; empty for any other address, such as a file on another machine.
QString localPath(const QUrl& url) {
    return url.isLocalFile() && url.host().isEmpty() ? QDir::cleanPath(url.toLocalFile()) : QString();
}

} // namespace

void RequestGuard::allow(const QString& file, const QString& pictureFolder) {
    const QString program = QCoreApplication::applicationDirPath();
    m_file = QDir::cleanPath(file);
    m_pictureFolders = {QDir::cleanPath(pictureFolder), program,
                        QDir::cleanPath(program + u"/../share/kolibri"_s)};
}

bool RequestGuard::isAllowedPage(const QUrl& url) const {
    const QString path = localPath(url);
    return !path.isEmpty() && path == m_file;
}

bool RequestGuard::isAllowedPicture(const QUrl& url) const {
    const QString path = localPath(url);
    return !path.isEmpty() && m_pictureFolders.contains(path.section(u'/', 0, -2));
}

void RequestGuard::interceptRequest(QWebEngineUrlRequestInfo& info) {
    const QUrl url = info.requestUrl();
    switch (info.resourceType()) {
    case QWebEngineUrlRequestInfo::ResourceTypeMainFrame:
        return info.block(!isAllowedPage(url));
    case QWebEngineUrlRequestInfo::ResourceTypeImage:
        return info.block(!isAllowedPicture(url));
    default:
        return info.block(true);
    }
}

} // namespace kolibri
