// A second workstation for the tests of the store: works on a database file as it is told, says what it does
// on its standard output, one line each, and goes on when it is sent a line.

#include "core/store/connection.h"
#include "core/store/safety_copy.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>

#include <iostream>
#include <map>
#include <string>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

void say(const QString& line) {
    std::cout << line.toStdString() << std::endl;
}

void waitForLine() {
    std::string line;
    std::getline(std::cin, line);
}

/// What the probe was told: the file, how long to wait for others, and what else the verb needs.
struct Order {
    QString file;
    int busyWait = 0;
    QString argument;
};

void open(Connection& conn, const Order& order) {
    conn.SetBusyWait(order.busyWait);
    conn.OpenFile(order.file);
}

/// Adds a numbered row and counts it in the shared counter.
void addRow(Connection& conn, const QString& writer, qint64 number) {
    Transaction transaction(conn);
    conn.AddNew(u"Zeilen"_s).Set(u"Schreiber"_s, writer).Set(u"Nummer"_s, number).Update();
    Recordset rs = conn.Open(u"SELECT Wert FROM Zähler"_s);
    conn.Change(u"Zähler"_s, {{u"Wert"_s, rs.Number(u"Wert") + 1}});
    transaction.Commit();
}

/// Writes for so many milliseconds, one opened and closed connection for each row, as fast as it can. Every
/// other row is a statement on its own.
void write(const Order& order) {
    const int milliseconds = order.argument.section(u' ', 0, 0).toInt();
    const QString writer = order.argument.section(u' ', 1);
    Connection conn;
    say(u"ready"_s);
    waitForLine();
    QElapsedTimer total;
    total.start();
    qint64 longest = 0;
    qint64 rows = 0;
    while (total.elapsed() < milliseconds) {
        QElapsedTimer timer;
        timer.start();
        open(conn, order);
        ++rows;
        if (rows % 2 == 0)
            conn.AddNew(u"Zeilen"_s).Set(u"Schreiber"_s, writer).Set(u"Nummer"_s, rows).Update();
        else
            addRow(conn, writer, rows);
        conn.Close();
        longest = std::max(longest, timer.elapsed());
    }
    say(u"%1 %2"_s.arg(rows).arg(longest));
}

/// Holds the whole file until it is sent a line.
void lock(const Order& order) {
    Connection conn;
    open(conn, order);
    conn.Execute(u"BEGIN EXCLUSIVE"_s);
    say(u"locked"_s);
    waitForLine();
    conn.Execute(u"COMMIT"_s);
    conn.Close();
    say(u"released"_s);
}

/// Renames an offering everywhere in one transaction, and stops at the named place until it is sent a line.
void cascade(const Order& order) {
    Connection conn;
    open(conn, order);
    // With hardly any memory for pages the engine must write into the file long before the end.
    conn.Execute(u"PRAGMA cache_size = 3"_s);
    const auto reached = [&](const QString& place) {
        if (place != order.argument)
            return;
        say(place);
        waitForLine();
    };
    const QString key = u"13:15 - 14:00 ME1 "_s + QString(150, u'n');
    Transaction transaction(conn);
    reached(u"begun"_s);
    conn.Change(u"GR1"_s, {{u"Zeit_K_Name"_s, key}});
    reached(u"offering"_s);
    Recordset rs = conn.Open(u"SELECT ID FROM Stammdaten"_s);
    for (int row = 0; !rs.Eof(); rs.MoveNext()) {
        conn.Change(u"Stammdaten"_s, {{u"GR1_MO"_s, key}}, u"ID = ?"_s, {rs.Value(0)});
        if (++row == rs.RecordCount() / 2)
            reached(u"half"_s);
    }
    reached(u"pupils"_s);
    conn.Delete(u"SCH_Notiz"_s);
    reached(u"notes"_s);
    transaction.Commit();
    reached(u"committed"_s);
}

/// Numbers all offerings anew, again and again, each time in one transaction, until it is killed.
void renumber(const Order& order) {
    Connection conn;
    open(conn, order);
    conn.Execute(u"PRAGMA cache_size = 3"_s);
    for (qint64 number = order.argument.toLongLong();; ++number) {
        Transaction transaction(conn);
        Recordset rs = conn.Open(u"SELECT ID FROM Stammdaten"_s);
        for (; !rs.Eof(); rs.MoveNext())
            conn.Change(u"Stammdaten"_s, {{u"Schulstufe"_s, number}}, u"ID = ?"_s, {rs.Value(0)});
        transaction.Commit();
        say(QString::number(number));
    }
}

void read(const Order& order) {
    Connection conn;
    open(conn, order);
    say(u"%1 rows"_s.arg(conn.Open(u"SELECT * FROM Bausteine"_s).RecordCount()));
}

void change(const Order& order) {
    Connection conn;
    open(conn, order);
    say(u"%1 rows"_s.arg(conn.Change(u"Bausteine"_s, {{u"Bausteine"_s, order.argument}})));
}

void copy(const Order& order) {
    Connection conn;
    open(conn, order);
    say(makeSafetyCopy(conn, QDateTime::currentDateTime()));
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const std::map<QString, void (*)(const Order&)> verbs{
        {u"write"_s, write}, {u"lock"_s, lock},     {u"cascade"_s, cascade}, {u"renumber"_s, renumber},
        {u"read"_s, read},   {u"change"_s, change}, {u"copy"_s, copy}};
    const auto verb = verbs.find(arguments.value(1));
    if (verb == verbs.end()) {
        say(u"verbs: write lock cascade renumber read change copy; then FILE WAIT ARGUMENT"_s);
        return 2;
    }
    try {
        verb->second({arguments.value(2), arguments.value(3).toInt(), arguments.value(4)});
    } catch (const StoreError& error) {
        say(u"error %1 %2"_s.arg(static_cast<int>(error.kind())).arg(error.message()));
        return 1;
    }
    return 0;
}
