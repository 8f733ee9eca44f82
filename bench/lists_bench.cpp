// Time of each pupil list from the menu entry to the written page, beside the time in which the sqlite3 shell
// writes the same rows as an HTML table.

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "maintenance/sample_school.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextStream>

#include <limits>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

constexpr int kRepeats = 5;

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

/// The shortest of some runs, in milliseconds.
template <typename Action> double shortest(Action action) {
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < kRepeats; ++i) {
        QElapsedTimer timer;
        timer.start();
        action();
        best = std::min(best, static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    return best;
}

double produceTime(const BenchList& list) {
    return shortest([&] {
        Liste().Dialog = {};
        if (list.allOptions)
            chooseEverything(Liste().Dialog);
        prepareList(list.listenArt);
        producePage();
    });
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
    return shortest([&] {
        QProcess process;
        process.setStandardOutputFile(folder + u"/rows.html"_s);
        process.start(shell, {u"-html"_s, u"-header"_s, file, u"SELECT * FROM Liste"_s});
        process.waitForFinished();
    });
}

void measure(QTextStream& out, const BenchList& list, const QString& shell, const QString& folder,
             int pupils) {
    const qint64 before = Global().Conn.StatementCount();
    const double page = produceTime(list);
    const qint64 statements = (Global().Conn.StatementCount() - before) / kRepeats;
    const int rows = Liste().ZeilenAnzahl;
    out << qSetFieldWidth(8) << pupils << qSetFieldWidth(30) << list.name << qSetFieldWidth(9) << rows
        << statements << QString::number(page, 'f', 1)
        << (page > 0 ? QString::number(rows / page * 1000, 'f', 0) : QString());
    if (!shell.isEmpty() && rows > 0) {
        const double dump = shellTime(shell, folder);
        out << QString::number(dump, 'f', 1) << QString::number(page / dump, 'f', 2);
    }
    out << qSetFieldWidth(0) << "\n";
    out.flush();
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QList<BenchList> lists{{u"Unterrichtszeiten"_s, kUnterrichtszeiten},
                                 {u"Stammdatenblatt"_s, kStammdatenBlatt},
                                 {u"Bausteine"_s, kBausteine},
                                 {u"Schulanfänger"_s, kSchulanfaenger, true},
                                 {u"Namensliste"_s, kNamensliste},
                                 {u"Neue Schüler"_s, kNeueSchueler},
                                 {u"Nicht OG Schüler"_s, kNichtOgSchueler},
                                 {u"Erweiterte Liste"_s, kErweiterteListe},
                                 {u"Erweiterte Liste, alles"_s, kErweiterteListe, true}};
    doors().clock = std::make_unique<SystemClock>();
    const QString shell = QStandardPaths::findExecutable(u"sqlite3"_s);
    QTextStream out(stdout);
    out << "  pupils                          list     rows    stmts       ms   rows/s   sqlite    ratio\n";
    for (const int pupils : {300, 1000, 3000, 10'000}) {
        const QTemporaryDir folder;
        qputenv("KOLIBRI_HOME", folder.path().toLocal8Bit());
        QDir(folder.path()).mkdir(u"ProgramData"_s);
        createSampleSchool(folder.path(), {.pupils = pupils});
        Global().DB_Pfad = folder.path();
        Liste().BlattSchuelerID = 1;
        for (const auto& list : lists)
            measure(out, list, shell, folder.path(), pupils);
    }
    return 0;
}
