#include "maintenance/jet_takeover.h"

#include "core/error_report.h"
#include "core/mdlAllgemein.h"
#include "core/progress.h"
#include "core/store/connection.h"
#include "maintenance/jet_header.h"
#include "maintenance/jet_process.h"
#include "maintenance/mdlVers111.h"
#include "maintenance/tool_process.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr qint64 kWhole = 100;

QString shown(const QString& path) {
    return QDir::toNativeSeparators(path);
}

/// A file that is removed again unless the work gets through to its end.
class NewFile {
public:
    explicit NewFile(const QString& path) : m_path(path) {}
    ~NewFile() {
        if (!m_kept)
            QFile::remove(m_path);
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    const QString& path() const { return m_path; }
    void keep() { m_kept = true; }

private:
    QString m_path;
    bool m_kept = false;
};

/// Tells whether a file has changed since.
struct FileState {
    explicit FileState(const QString& file)
        : size(QFileInfo(file).size()), changed(QFileInfo(file).lastModified()) {}
    bool operator==(const FileState&) const = default;

    qint64 size;
    QDateTime changed;
};

bool isSameFile(const QString& one, const QString& other) {
    const QString place = QFileInfo(one).canonicalFilePath();
    return !place.isEmpty() && place == QFileInfo(other).canonicalFilePath();
}

void checkPlace(const QString& jetFile, const QString& folder) {
    if (!QDir(folder).exists())
        throw StoreError(StoreError::Kind::Missing, u"Den Ordner %1 gibt es nicht."_s.arg(shown(folder)));
    const QString target = DatenbankDatei(folder);
    if (QFileInfo::exists(target) && !isSameFile(jetFile, target))
        throw StoreError(StoreError::Kind::KeyTaken, u"Die Datei %1 gibt es bereits."_s.arg(shown(target)));
}

QString nameOfOldFile(const QString& folder) {
    const QString stem = folder + u"/KOLIBRI_Daten-alt"_s;
    QString name = stem + u".mdb"_s;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = stem + u'-' + QString::number(number) + u".mdb"_s;
    return name;
}

/// What the program expects of every file when it starts on it.
void finish(const QString& file, const QString& protocolFolder) {
    Connection conn;
    conn.SetPurpose(u"Datenbank übernehmen"_s);
    conn.OpenFile(file);
    // A name with an apostrophe must not keep a school from its data.
    conn.AllowApostrophes(true);
    if (!conn.HasColumn(u"SCH_Notiz"_s, u"Zeit_K_Name"_s)) {
        Transaction transaction(conn);
        repairLinks(conn, protocolFolder);
        transaction.Commit();
    }
    const QStringList problems = conn.IntegrityProblems();
    if (!problems.isEmpty())
        throw StoreError(StoreError::Kind::Damaged, u"Die neue Datenbank ist nicht in Ordnung."_s, {},
                         problems.join(u'\n'));
}

/// Puts the new file into its place, the old one beside it. Replacing is one step of the file system, so
/// there is a database under the name at any moment.
void putInPlace(const QString& jetFile, NewFile& made, const QString& folder) {
    NewFile old(nameOfOldFile(folder));
    if (!QFile::copy(jetFile, old.path()))
        throw StoreError(StoreError::Kind::ReadOnly,
                         u"Die alte Datei kann nicht als %1 aufgehoben werden."_s.arg(shown(old.path())));
    std::error_code error;
    std::filesystem::rename(QFileInfo(made.path()).filesystemFilePath(),
                            QFileInfo(DatenbankDatei(folder)).filesystemFilePath(), error);
    if (error)
        throw StoreError(StoreError::Kind::ReadOnly,
                         u"Die Datei %1 kann nicht geschrieben werden."_s.arg(shown(DatenbankDatei(folder))),
                         {}, QString::fromLocal8Bit(error.message().c_str()));
    old.keep();
    made.keep();
}

} // namespace

QString takeOver(const QString& jetFile, const QString& folder, const TakeoverOptions& options) {
    checkJetFile(jetFile);
    checkPlace(jetFile, folder);
    Progress progress(u"Die Datenbank wird übernommen..."_s, kWhole);
    const FileState before(jetFile);
    NewFile made(folder + u"/KOLIBRI_Daten-neu-%1.mdb"_s.arg(QCoreApplication::applicationPid()));
    readJetInOwnProcess(options.tool.isEmpty() ? toolPath() : options.tool, jetFile, made.path(),
                        options.patience, progress);
    finish(made.path(), options.protocolFolder);
    if (FileState(jetFile) != before)
        throw StoreError(
            StoreError::Kind::Busy,
            u"Die Datei %1 wurde während der Übernahme geändert. Bitte beenden Sie das bisherige "
            "Programm auf allen Arbeitsplätzen und versuchen Sie es noch einmal."_s.arg(shown(jetFile)));
    putInPlace(jetFile, made, folder);
    return DatenbankDatei(folder);
}

bool offerTakeover(const QString& file, const TakeoverOptions& options) {
    constexpr int kQuestion = 36;
    if (!JetHeader::ofFile(file).isJet())
        return true;
    if (MsgBox(
            u"Die Datenbank stammt aus einer älteren Programmversion. Soll sie übernommen werden? Die alte "
            "Datei bleibt unverändert erhalten."_s,
            kQuestion)
        != kAnswerYes)
        return false;
    try {
        takeOver(file, QFileInfo(file).absolutePath(), options);
    } catch (...) {
        reportError(std::current_exception());
        return false;
    }
    return true;
}

} // namespace kolibri
