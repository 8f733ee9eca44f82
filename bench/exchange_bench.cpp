// How quick the data leave and come back: backup, restore, change of the school year, and the takeover of an
// older version's database. The last needs such a file: give its path, or the one of the tests is used.

#include "core/doors.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/progress.h"
#include "core/windows1252.h"
#include "maintenance/backup.h"
#include "maintenance/jet_takeover.h"
#include "maintenance/restore.h"
#include "maintenance/safety_net.h"
#include "maintenance/sample_school.h"
#include "maintenance/school_year.h"
#include "support/measure.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <array>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::bench;

namespace {

constexpr std::array kSchools{300, 1000, 3000, 10000};
constexpr int kRounds = 3;

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

struct Figures {
    double rows = 0;
    double backup = 0;
    double restore = 0;
    double year = 0;
    qint64 statements = 0;
    qsizetype size = 0;
};

qint64 rowsOfSchool() {
    const DbSession session(u"Messung"_s);
    qint64 rows = 0;
    for (const auto& table : Global().Conn.Tables())
        rows += Global().Conn.Open(u"SELECT COUNT(*) AS n FROM \"%1\""_s.arg(table)).Number(u"n");
    return rows;
}

/// Backup and restore as the menu entries do them, safety copy and all, without their boxes.
Figures measureSchool(const QString& folder) {
    auto& global = Global();
    global.DB_Pfad = folder;
    const QString file = folder + u"/Sicherung.txt"_s;
    Figures figures;
    figures.rows = static_cast<double>(rowsOfSchool());
    figures.backup = timed(kRounds, [&] {
                         const DbSession session(u"Datensicherung"_s);
                         writeBackup(global.Conn, file);
                     }).median;
    figures.size = contentOf(file).size();
    const qint64 before = global.Conn.StatementCount();
    figures.restore = timed(kRounds, [&] {
                          const QString text = fromTextFile(contentOf(file));
                          const DbSession session(u"Daten wiederherstellen"_s);
                          Progress progress({}, text.size());
                          withSafetyCopy(global.Conn, [&] { restoreText(global.Conn, text, progress); });
                      }).median;
    figures.statements = (global.Conn.StatementCount() - before) / kRounds;
    figures.year = timed(1, [&] {
                       constexpr int kHighest = 4;
                       const DbSession session(u"Wechsel Schuljahr"_s);
                       withSafetyCopy(global.Conn, [&] { changeSchoolYear(global.Conn, kHighest); });
                   }).median;
    return figures;
}

void measureSchools(const QTemporaryDir& scratch) {
    Table table(u"Data exchange (median of 3, ms; 10,000 pupils restored: target below 3,000)"_s,
                {u"pupils"_s, u"rows"_s, u"backup"_s, u"MB"_s, u"restore"_s, u"statements"_s,
                 u"school year"_s, u"restore grows"_s});
    Figures smaller;
    for (const int pupils : kSchools) {
        const QString folder = scratch.filePath(QString::number(pupils));
        QDir().mkpath(folder);
        createSampleSchool(folder, {.pupils = pupils});
        const Figures now = measureSchool(folder);
        constexpr double kMega = 1e6;
        table.add(
            {QString::number(pupils), figure(now.rows, 0), figure(now.backup, 0),
             figure(static_cast<double>(now.size) / kMega), figure(now.restore, 0),
             QString::number(now.statements), figure(now.year, 0),
             smaller.rows == 0 ? QString() : growth(smaller.restore, now.restore, smaller.rows, now.rows)});
        smaller = now;
    }
    table.print();
}

/// The largest of the tests' files, as qUncompress reads it.
QByteArray fileOfTheTests() {
    return qUncompress(contentOf(QStringLiteral(KOLIBRI_SOURCE_DIR)
                                 + u"/tests/maintenance/fixtures/jet_neu_KOLIBRI_Daten.mdb.z"_s));
}

void measureTakeover(const QTemporaryDir& scratch, const QStringList& arguments) {
    const QByteArray content = arguments.size() > 1 ? contentOf(arguments.at(1)) : fileOfTheTests();
    Table table(u"Takeover (320 pupils: target below 1,500 ms)"_s, {u"file"_s, u"ms"_s});
    double total = 0;
    for (int round = 0; round < kRounds; ++round) {
        const QString folder = scratch.filePath(u"Alt-%1"_s.arg(round));
        QDir().mkpath(folder);
        QFile file(DatenbankDatei(folder));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            return;
        file.close();
        total += timed(1, [&] {
                     takeOver(DatenbankDatei(folder), folder,
                              {.tool = QStringLiteral(KOLIBRI_BIN_DIR) + u"/kolibri-db"_s,
                               .protocolFolder = folder});
                 }).median;
    }
    table.add(
        {u"%1 MB"_s.arg(static_cast<double>(content.size()) / 1e6, 0, 'f', 1), figure(total / kRounds, 0)});
    table.print();
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    doors().clock = std::make_unique<SystemClock>();
    const QTemporaryDir scratch;
    measureSchools(scratch);
    measureTakeover(scratch, QCoreApplication::arguments());
    return 0;
}
