#include "core/store/safety_copy.h"

#include "core/store/connection.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr auto kMark = "-Sicherheitskopie-"_L1;

/// The place and the names of a database's copies. Sorted by name they are sorted by age, since those of one
/// second are numbered from 02 on.
struct Copies {
    QDir folder;
    QString stem;
    QString suffix;

    explicit Copies(const QFileInfo& database)
        : folder(database.dir()),
          stem(database.completeBaseName() + kMark),
          suffix(u'.' + database.suffix()) {}

    /// Names without suffix, oldest first. A file that the office named itself is none of them.
    QStringList names() const {
        const QRegularExpression form(QRegularExpression::anchoredPattern(QRegularExpression::escape(stem)
                                                                          + u"\\d{8}-\\d{6}(-\\d{2,})?"_s));
        QStringList result;
        for (const QString& file : folder.entryList({u'*' + suffix}, QDir::Files))
            if (const QString name = file.chopped(suffix.size()); form.match(name).hasMatch())
                result << name;
        result.sort();
        return result;
    }

    /// Behind every copy of the same second, so that a name that has become free is not used again.
    QString nextName(const QDateTime& now) const {
        const QString time = stem + now.toString(u"yyyyMMdd-HHmmss"_s);
        int number = 1;
        for (const QString& name : names())
            if (name.startsWith(time))
                number = std::max(1, name.sliced(time.size()).remove(u'-').toInt()) + 1;
        return number == 1 ? time : u"%1-%2"_s.arg(time).arg(number, 2, 10, QChar(u'0'));
    }

    /// The new copy is never among the old ones: the clock may have been put back.
    void removeOldOnes(const QString& newName) {
        QStringList old = names();
        old.removeOne(newName);
        for (qsizetype i = 0; i + kSafetyCopiesKept - 1 < old.size(); ++i)
            folder.remove(old.at(i) + suffix);
    }
};

} // namespace

QString makeSafetyCopy(Connection& connection, const QDateTime& now) {
    const QStringList problems = connection.IntegrityProblems();
    if (!problems.isEmpty()) {
        StoreError error(
            StoreError::Kind::Damaged,
            u"Die Datenbank ist beschädigt. Bitte arbeiten Sie nicht weiter und holen Sie die letzte "
            "Sicherung zurück."_s,
            {}, problems.join(u'\n'));
        error.setPurpose(connection.Purpose());
        throw error;
    }
    Copies copies{QFileInfo(connection.FileName())};
    const QString name = copies.nextName(now);
    const QString path = copies.folder.filePath(name + copies.suffix);
    connection.CopyTo(path);
    copies.removeOldOnes(name);
    return path;
}

} // namespace kolibri
