#include "lists/program_picture.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace kolibri {

QString programPicture(const QString& file) {
    QString folder = QCoreApplication::applicationDirPath();
    const QString installed = QDir::cleanPath(folder + u"/../share/kolibri"_s);
    if (!QFileInfo::exists(folder + u'/' + file) && QFileInfo::exists(installed + u'/' + file))
        folder = installed;
    return QDir::toNativeSeparators(folder) + u'\\' + file;
}

} // namespace kolibri
