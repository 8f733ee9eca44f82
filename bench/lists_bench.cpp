// Time of the lists from the menu entry to the written page, beside the time in which the sqlite3 shell
// writes the same rows as an HTML table.

#include "core/doors.h"
#include "core/mdlGlobal.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "maintenance/sample_school.h"
#include "support/measure.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <map>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::bench;

namespace {

constexpr int kRounds = 7;

struct BenchList {
    QString name;
    quint8 listenArt;
    bool allOptions = false;
};

void chooseEverything(DialogOptions& options) {
    options.chkKontakteNeu = options.chkBaustein = options.chkSchwimmer = options.chkKennung = true;
    options.chkKlasse = options.chkGebDatum = options.chkBeiträge = true;
    options.cmbKontakte = {u"Name"_s, u"Adresse"_s, u"Telefon"_s};
}

double produceTime(const BenchList& list) {
    return timed(kRounds,
                 [&] {
                     Liste().Dialog = {};
                     if (list.allOptions)
                         chooseEverything(Liste().Dialog);
                     prepareList(list.listenArt);
                     producePage();
                 })
        .median;
}

/// The rows of the list as a table of a file of their own.
QString tableOfRows(const QString& folder) {
    const auto& liste = Liste();
    const QString file = folder + u"/rows.db"_s;
    QFile::remove(file);
    QStringList columns;
    QStringList marks;
    for (int column = 1; column <= liste.SpaltenAnzahl; ++column) {
        columns << u"c%1 TEXT"_s.arg(column);
        marks << u"?"_s;
    }
    Connection conn;
    conn.CreateFile(file);
    conn.AllowApostrophes(true);
    Transaction transaction(conn);
    conn.Execute(u"CREATE TABLE Liste (%1)"_s.arg(columns.join(u", "_s)));
    const QString insert = u"INSERT INTO Liste VALUES (%1)"_s.arg(marks.join(u", "_s));
    for (int row = 1; row <= liste.ZeilenAnzahl; ++row) {
        QVariantList cells;
        for (int column = 1; column <= liste.SpaltenAnzahl; ++column)
            cells << liste.Daten(column, row);
        conn.Execute(insert, cells);
    }
    transaction.Commit();
    return file;
}

double shellTime(const QString& shell, const QString& folder) {
    const QString file = tableOfRows(folder);
    return timed(kRounds,
                 [&] {
                     QProcess process;
                     process.setStandardOutputFile(folder + u"/rows.html"_s);
                     process.start(shell, {u"-html"_s, u"-header"_s, file, u"SELECT * FROM Liste"_s});
                     process.waitForFinished();
                 })
        .median;
}

/// Time and rows of a list in the school before, for the growth.
struct Figures {
    double milliseconds = 0;
    double rows = 0;
};

void measure(Table& table, const BenchList& list, const QString& shell, const QString& folder, int pupils) {
    static std::map<QString, Figures> smaller;
    const qint64 before = Global().Conn.StatementCount();
    const double page = produceTime(list);
    const qint64 statements = (Global().Conn.StatementCount() - before) / kRounds;
    const double rows = Liste().ZeilenAnzahl;
    QStringList row{list.name,
                    QString::number(pupils),
                    QString::number(Liste().ZeilenAnzahl),
                    QString::number(statements),
                    figure(page, 1),
                    figure(rows / page * 1000, 0)};
    if (shell.isEmpty() || rows == 0) {
        row << QString() << QString();
    } else {
        const double dump = shellTime(shell, folder);
        row << figure(dump, 1) << figure(page / dump);
    }
    const Figures last = smaller[list.name];
    row << (last.rows > 0 ? growth(last.milliseconds, page, last.rows, rows) : QString());
    smaller[list.name] = {page, rows};
    table.add(row);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    doors().clock = std::make_unique<SystemClock>();
    const QList<BenchList> lists{{u"Unterrichtszeiten"_s, kUnterrichtszeiten},
                                 {u"Stammdatenblatt"_s, kStammdatenBlatt},
                                 {u"Bausteine"_s, kBausteine},
                                 {u"Schulanfänger, alles"_s, kSchulanfaenger, true},
                                 {u"Namensliste"_s, kNamensliste},
                                 {u"Neue Schüler"_s, kNeueSchueler},
                                 {u"Nicht OG Schüler"_s, kNichtOgSchueler},
                                 {u"Erweiterte Liste"_s, kErweiterteListe},
                                 {u"Erweiterte Liste, alles"_s, kErweiterteListe, true},
                                 {u"Bericht Mensa gesamt"_s, kMensaGesamt},
                                 {u"Belegung Mensa"_s, kMensaBelegung},
                                 {u"Bericht Arbeitsgruppen"_s, kArbeitsgruppenGesamt},
                                 {u"Notizen ME LZ AG"_s, kNotizenZuweisungen},
                                 {u"Notizen Tagesplan"_s, kNotizenTagesplan}};
    const QString shell = QStandardPaths::findExecutable(u"sqlite3"_s);
    Table table(u"A list, from the menu entry to the written page (median of 7; target for the Erweiterte "
                u"Liste of 1,000 pupils with everything: 3 times the shell)"_s,
                {u"list"_s, u"pupils"_s, u"rows"_s, u"statements"_s, u"ms"_s, u"rows/s"_s, u"sqlite3 ms"_s,
                 u"ratio"_s, u"growth"_s});
    for (const int pupils : {300, 1000, 3000, 10'000}) {
        const QTemporaryDir folder;
        qputenv("KOLIBRI_HOME", folder.path().toLocal8Bit());
        QDir(folder.path()).mkdir(u"ProgramData"_s);
        createSampleSchool(folder.path(), {.pupils = pupils});
        Global().DB_Pfad = folder.path();
        Liste().BlattSchuelerID = 1;
        for (const auto& list : lists)
            measure(table, list, shell, folder.path(), pupils);
    }
    table.print();
    return 0;
}
