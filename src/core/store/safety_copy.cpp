#include "core/store/safety_copy.h"

#include "core/store/connection.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr auto kMark = "-Sicherheitskopie-"_L1;

QString freeName(const QDir& folder, const QString& stem, const QString& suffix) {
    QString name = stem + suffix;
    for (int number = 2; folder.exists(name); ++number)
        name = stem + u'-' + QString::number(number) + suffix;
    return name;
}

void removeOldCopies(QDir folder, const QString& pattern) {
    const QStringList copies = folder.entryList({pattern}, QDir::Files, QDir::Name);
    for (qsizetype i = 0; i + kSafetyCopiesKept < copies.size(); ++i)
        folder.remove(copies.at(i));
}

} // namespace

QString makeSafetyCopy(Connection& connection, const QDateTime& now) {
    const QStringList problems = connection.IntegrityProblems();
    if (!problems.isEmpty())
        throw StoreError(
            StoreError::Kind::Damaged,
            u"Die Datenbank ist beschädigt. Bitte arbeiten Sie nicht weiter und holen Sie die letzte "
            "Sicherung zurück."_s,
            {}, problems.join(u'\n'));
    const QFileInfo database(connection.FileName());
    const QDir folder = database.dir();
    const QString stem = database.completeBaseName() + kMark;
    const QString suffix = u'.' + database.suffix();
    const QString name = freeName(folder, stem + now.toString(u"yyyyMMdd-HHmmss"_s), suffix);
    const QString path = folder.filePath(name);
    connection.CopyTo(path);
    removeOldCopies(folder, stem + u'*' + suffix);
    return path;
}

} // namespace kolibri
