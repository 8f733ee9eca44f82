#pragma once

#include <QString>
#include <QStringList>
#include <QWebEngineUrlRequestInterceptor>

namespace kolibri {

/// Lets through what a page needs to be seen: the one file that is to be shown, and pictures from the folder
/// of that file and from the program's folders. A page may hold any markup from the data, so whatever else it
/// asks for is refused, on this machine as much as on any other.
class RequestGuard : public QWebEngineUrlRequestInterceptor {
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    /// The file to be shown; its pictures lie in `pictureFolder`.
    void allow(const QString& file, const QString& pictureFolder);
    bool isAllowedPage(const QUrl& url) const;
    bool isAllowedPicture(const QUrl& url) const;

    void interceptRequest(QWebEngineUrlRequestInfo& info) override;

private:
    QString m_file;
    QStringList m_pictureFolders;
};

} // namespace kolibri
