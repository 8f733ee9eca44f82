// How quick the store is: the open-work-close of every operation, reading the widest table, writing rows.

#include "core/store/connection.h"
#include "maintenance/new_database.h"
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

/// A pupil as full as an office keeps one: two contacts, lunch and study time on most days, one working
/// group.
void addPupil(Connection& conn, int number) {
    const std::array names{u"Ärger"_s, u"Becker"_s, u"Müller"_s, u"Öztürk"_s, u"Schmidt"_s, u"Weiß"_s};
    const std::array firstNames{u"Anna"_s, u"Björn"_s, u"Jürgen"_s, u"Paul"_s, u"Zoë"_s};
    const std::array days{u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s};
    const auto text = [number](const QString& stem) { return stem + u' ' + QString::number(number); };
    NewRow row = conn.AddNew(u"Stammdaten"_s);
    const int grade = 1 + number % 4;
    row.Set(u"aktiv"_s, true)
        .Set(u"SCH_Name"_s, text(names.at(static_cast<std::size_t>(number) % names.size())))
        .Set(u"SCH_Vorname"_s, firstNames.at(static_cast<std::size_t>(number) % firstNames.size()))
        .Set(u"SCH_Geb"_s, u"12.03.2018"_s)
        .Set(u"Klasse"_s, QString::number(grade) + u'a')
        .Set(u"Schulstufe"_s, grade)
        .Set(u"Kl_Nr"_s, u"a"_s)
        .Set(u"Neu"_s, number % 5 == 0)
        .Set(u"NichtOG"_s, false)
        .Set(u"Schwimmer"_s, u"JA"_s)
        .Set(u"Beitrag_0"_s, u"12,50"_s)
        .Set(u"Beitrag_1"_s, 45)
        .Set(u"Beitrag_7"_s, u"57,50"_s);
    for (const auto& day : days) {
        row.Set(u"GR1_"_s + day, u"13:00 - 13:45 ME1"_s).Set(u"GR2_"_s + day, u"14:00 - 15:00 LZ2"_s);
        row.Set(u"GR3_"_s + day, day == u"DI" ? u"15:00 - 16:00 Töpfern"_s : QString());
    }
    for (const auto& contact : {u"1"_s, u"2"_s})
        row.Set(u"GV_Name"_s + contact, text(u"Müller"_s))
            .Set(u"GV_Vorname"_s + contact, u"Sabine"_s)
            .Set(u"Strasse"_s + contact, u"Bahnhofstraße 17"_s)
            .Set(u"PLZ"_s + contact, u"01067"_s)
            .Set(u"Ort"_s + contact, u"Musterstadt"_s)
            .Set(u"Tel_privat"_s + contact, u"0351 1234567"_s)
            .Set(u"Verwandt"_s + contact, u"Mutter"_s);
    row.Update();
}

QString schoolOf(const QTemporaryDir& folder, int pupils) {
    const QString place = folder.filePath(QString::number(pupils));
    QDir().mkpath(place);
    return createDatabase(place, [pupils](Connection& conn) {
        for (int number = 1; number <= pupils; ++number)
            addPupil(conn, number);
    });
}

void measureOperations(const QString& file) {
    constexpr int kOperations = 1000;
    Connection conn;
    const auto opened = [&](const std::function<void()>& work) {
        return medianMilliseconds(kOperations, [&] {
            conn.OpenFile(file);
            work();
            conn.Close();
        });
    };
    const auto query = [&](const QString& select, const QVariantList& values) {
        return figure(opened([&] { conn.Open(select, values); }), 3);
    };
    Table table(u"One operation: open, work, close (median of 1,000; target below 0.300 ms)"_s,
                {u"work"_s, u"ms"_s});
    table.add({u"nothing"_s, figure(opened([] {}), 3)});
    table.add({u"one settings row"_s, query(u"SELECT Feld, Grösse FROM Einstellungen WHERE Feld = ?"_s,
                                            {u"Ü-Zeitüberschneidung"_s})});
    table.add({u"contact labels"_s,
               query(u"SELECT Nummer, Bezeichnung FROM Einstellungen WHERE Feld = ?"_s, {u"Kontakt"_s})});
    table.add({u"one pupil, all columns"_s, query(u"SELECT * FROM Stammdaten WHERE ID = ?"_s, {17})});
    table.add({u"columns of Stammdaten"_s, figure(opened([&] { conn.Columns(u"Stammdaten"_s); }), 3)});
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
        {u"one cell's text"_s,
         [](Connection& conn) {
             return rowsOf(conn, u"SELECT ID FROM Stammdaten WHERE GR3_DI = ?"_s,
                           {u"15:00 - 16:00 töpfern"_s});
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
    Table table(u"Reading (median of 7)"_s,
                {u"work"_s, u"pupils"_s, u"rows"_s, u"statements"_s, u"ms"_s, u"us/row"_s, u"growth"_s});
    for (const auto& reading : readings()) {
        double smallestTime = 0;
        double smallestRows = 0;
        for (std::size_t i = 0; i < files.size(); ++i) {
            Connection conn;
            conn.OpenFile(files.at(i));
            qint64 rows = 0;
            const qint64 before = conn.StatementCount();
            const double time = medianMilliseconds(kRounds, [&] { rows = reading.work(conn); });
            const qint64 statements = (conn.StatementCount() - before) / kRounds;
            const double count = static_cast<double>(rows);
            if (i == 0) {
                smallestTime = time;
                smallestRows = count;
            }
            table.add({i == 0 ? reading.name : QString(), QString::number(kSchools.at(i)),
                       QString::number(rows), QString::number(statements), figure(time),
                       figure(time * 1000 / count, 1),
                       i == 0 ? QString() : growth(smallestTime, time, smallestRows, count)});
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
    Table table(u"Writing into Stammdaten (median of 7)"_s, {u"work"_s, u"rows"_s, u"ms"_s, u"us/row"_s});
    const auto measure = [&](const QString& name, int rows, const std::function<void()>& work) {
        const double time = medianMilliseconds(kRounds, work);
        table.add({name, QString::number(rows), figure(time), figure(time * 1000 / rows, 1)});
    };
    // The engine does not write a value that stands there already.
    int number = 0;
    const auto newKey = [&number] { return u"13:15 - 14:00 ME%1"_s.arg(++number); };
    const auto change = [&](int key) {
        conn.Change(u"Stammdaten"_s, {{u"GR1_MO"_s, newKey()}, {u"Neu"_s, u"0"_s}}, u"ID = ?"_s, {key});
    };
    measure(u"new pupils, one transaction"_s, kRows, [&] {
        Transaction transaction(conn);
        for (int pupil = 1; pupil <= kRows; ++pupil)
            addPupil(conn, pupil);
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
