// How quick the store is: the open-work-close of every operation, reading the widest table, writing rows.

#include "core/store/connection.h"
#include "maintenance/sample_school.h"
#include "support/measure.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <array>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::bench;

namespace {

constexpr std::array kSchools{300, 1000, 3000, 10000};
constexpr int kRounds = 7;

QString schoolOf(const QTemporaryDir& folder, int pupils) {
    const QString place = folder.filePath(QString::number(pupils));
    QDir().mkpath(place);
    return createSampleSchool(place, {.pupils = pupils});
}

/// Adds a pupil with everything that the current row of all pupils holds, except its key.
void addLike(Connection& conn, const Recordset& pupils) {
    NewRow row = conn.AddNew(u"Stammdaten"_s);
    for (int field = 0; field < pupils.FieldCount(); ++field)
        if (pupils.FieldName(field) != u"ID")
            row.Set(pupils.FieldName(field), pupils.Value(field));
    row.Update();
}

void measureOperations(const QString& file) {
    constexpr int kOperations = 1000;
    Connection conn;
    Table table(u"One operation: open, work, close (1,000 times; target below 0.300 ms)"_s,
                {u"work"_s, u"median ms"_s, u"quickest"_s});
    const auto measure = [&](const QString& name, const std::function<void()>& work) {
        const Timing time = timed(kOperations, [&] {
            conn.OpenFile(file);
            work();
            conn.Close();
        });
        table.add({name, figure(time.median, 3), figure(time.quickest, 3)});
    };
    measure(u"nothing"_s, [] {});
    measure(u"one settings row"_s, [&] {
        conn.Open(u"SELECT Feld, Grösse FROM Einstellungen WHERE Feld = ?"_s, {u"Ü-Zeitüberschneidung"_s});
    });
    measure(u"contact labels"_s, [&] {
        conn.Open(u"SELECT Nummer, Bezeichnung FROM Einstellungen WHERE Feld = ?"_s, {u"Kontakt"_s});
    });
    measure(u"one pupil, all columns"_s,
            [&] { conn.Open(u"SELECT * FROM Stammdaten WHERE ID = ?"_s, {17}); });
    measure(u"columns of Stammdaten"_s, [&] { conn.Columns(u"Stammdaten"_s); });
    table.print();
}

struct Reading {
    QString name;
    std::function<qint64(Connection&)> work;
};

qint64 rowsOf(Connection& conn, const QString& select, const QVariantList& values = {}) {
    return conn.Open(select, values).RecordCount();
}

const std::vector<Reading>& readings() {
    static const std::vector<Reading> list{
        {u"all of Stammdaten"_s,
         [](Connection& conn) { return rowsOf(conn, u"SELECT * FROM Stammdaten"_s); }},
        {u"all, by name"_s,
         [](Connection& conn) {
             return rowsOf(conn, u"SELECT * FROM Stammdaten WHERE aktiv = true ORDER BY SCH_Name"_s);
         }},
        {u"one lunch on Mondays"_s,
         [](Connection& conn) {
             const QString key = conn.Open(u"SELECT MAX(GR1_MO) FROM Stammdaten"_s).Text(0);
             return rowsOf(conn, u"SELECT ID FROM Stammdaten WHERE GR1_MO = ?"_s, {key.toUpper()});
         }},
        {u"twelve fields of each by name"_s,
         [](Connection& conn) {
             qsizetype length = 0;
             Recordset rs = conn.Open(u"SELECT * FROM Stammdaten"_s);
             for (; !rs.Eof(); rs.MoveNext())
                 for (const auto field :
                      {u"SCH_Name", u"SCH_Vorname", u"SCH_Geb", u"Klasse", u"GR1_MO", u"GR1_DI", u"GR1_MI",
                       u"GR1_DO", u"GR1_FR", u"Beitrag_0", u"Beitrag_7", u"Ort1"})
                     length += rs.Text(QStringView(field)).size();
             return length > 0 ? rs.RecordCount() : 0;
         }},
        {u"each pupil alone by key"_s,
         [](Connection& conn) {
             Recordset keys = conn.Open(u"SELECT ID FROM Stammdaten"_s);
             qint64 rows = 0;
             for (; !keys.Eof(); keys.MoveNext())
                 rows += rowsOf(conn, u"SELECT * FROM Stammdaten WHERE ID = ?"_s, {keys.Value(0)});
             return rows;
         }},
    };
    return list;
}

void measureReading(const std::vector<QString>& files) {
    Table table(u"Reading (7 times)"_s, {u"work"_s, u"pupils"_s, u"rows"_s, u"statements"_s, u"median ms"_s,
                                         u"quickest"_s, u"us/pupil"_s, u"growth"_s});
    for (const auto& reading : readings()) {
        double smallest = 0;
        for (std::size_t i = 0; i < files.size(); ++i) {
            Connection conn;
            conn.OpenFile(files.at(i));
            qint64 rows = 0;
            const Timing time = timed(kRounds, [&] { rows = reading.work(conn); });
            const int pupils = kSchools.at(i);
            if (i == 0)
                smallest = time.quickest;
            table.add({i == 0 ? reading.name : QString(), QString::number(pupils), QString::number(rows),
                       QString::number(conn.StatementCount() / kRounds), figure(time.median),
                       figure(time.quickest), figure(time.quickest * 1000 / pupils, 1),
                       i == 0 ? QString() : growth(smallest, time.quickest, kSchools.front(), pupils)});
        }
    }
    table.print();
}

void measureWriting(const QTemporaryDir& folder) {
    constexpr int kRows = 1000;
    constexpr int kSingleWrites = 50;
    const QString file = schoolOf(folder, kRows);
    Connection conn;
    conn.OpenFile(file);
    Recordset pupils = conn.Open(u"SELECT * FROM Stammdaten"_s);
    Table table(u"Writing into Stammdaten (7 times)"_s,
                {u"work"_s, u"rows"_s, u"median ms"_s, u"quickest"_s, u"us/row"_s});
    const auto measure = [&](const QString& name, int rows, const std::function<void()>& work) {
        const Timing time = timed(kRounds, work);
        table.add({name, QString::number(rows), figure(time.median), figure(time.quickest),
                   figure(time.quickest * 1000 / rows, 1)});
    };
    // The engine does not write a value that stands there already.
    int number = 0;
    const auto newKey = [&number] { return u"13:15 - 14:00 ME%1"_s.arg(++number); };
    const auto change = [&](int key) {
        conn.Change(u"Stammdaten"_s, {{u"GR1_MO"_s, newKey()}, {u"Neu"_s, u"0"_s}}, u"ID = ?"_s, {key});
    };
    measure(u"new pupils, one transaction"_s, kRows, [&] {
        Transaction transaction(conn);
        for (pupils.MoveFirst(); !pupils.Eof(); pupils.MoveNext())
            addLike(conn, pupils);
        transaction.Commit();
    });
    measure(u"changes by key, one transaction"_s, kRows, [&] {
        Transaction transaction(conn);
        for (int key = 1; key <= kRows; ++key)
            change(key);
        transaction.Commit();
    });
    measure(u"changes, each on its own"_s, kSingleWrites, [&] {
        for (int key = 1; key <= kSingleWrites; ++key)
            change(key);
    });
    measure(u"one change of all"_s, kRows, [&] {
        conn.Change(u"Stammdaten"_s, {{u"GR1_MO"_s, newKey()}}, u"ID <= ?"_s, {kRows});
    });
    table.print();
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    std::vector<QString> files;
    for (const int pupils : kSchools)
        files.push_back(schoolOf(folder, pupils));
    measureOperations(files.front());
    measureReading(files);
    const QTemporaryDir writing;
    measureWriting(writing);
    return 0;
}
