#include "calendar/teaching_times.h"

#include "core/mdlGlobal.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kNotSet = u"00:00"_s;

ClassDay classDay(const Recordset& rs) {
    ClassDay day{rs.Number(u"ID"), rs.Text(u"Klasse"), rs.Text(u"Tag"), {}};
    for (std::size_t i = 0; i < kTeachingTimes.size(); ++i)
        if (const QString time = rs.Text(kTeachingTimes[i]); time != kNotSet)
            day.Zeiten[i] = time;
    return day;
}

} // namespace

const std::array<QString, kTeachingTimesOfDay> kTeachingTimes{
    u"Unterrichtsbeginn"_s, u"Unterrichtsende"_s, u"UnterrichtsbeginnNM"_s, u"UnterrichtsendeNM"_s};

std::vector<ClassDay> Unterrichtsende_DatenEinlesen() {
    std::vector<ClassDay> days;
    for (Recordset rs = Global().Conn.Open(u"SELECT * FROM Klassen ORDER BY Klasse, Tag_Zahl"_s); !rs.Eof();
         rs.MoveNext())
        days.push_back(classDay(rs));
    return days;
}

ClassDay Unterrichtsende_DatensatzLesen(int id) {
    const Recordset rs = Global().Conn.Open(u"SELECT * FROM Klassen WHERE ID = ?"_s, {id});
    return rs.Eof() ? ClassDay() : classDay(rs);
}

void UnterrichtsBeginnEnde_Daten_Übergeben(const QString& klasse, const QString& tag,
                                           const TeachingTimes& zeiten) {
    auto& conn = Global().Conn;
    Transaction transaction(conn);
    for (std::size_t i = 0; i < kTeachingTimes.size(); ++i)
        conn.Change(u"Klassen"_s, {{kTeachingTimes[i], zeiten[i].isEmpty() ? kNotSet : zeiten[i]}},
                    u"Klasse = ? AND Tag = ?"_s, {klasse, tag});
    transaction.Commit();
}

QString Unterrichtszeiten_Erläuterung() {
    static const QStringList paragraphs{
        u"Tragen Sie hier BEGINN und ENDE des Unterrichts je Klasse ein."_s,
        u"Diese Daten werden für die Überprüfung von Zeitüberschneidungen der Unterrichtszeiten zu "
        "Betreuungszeiten verwendet. "_s,
        u"Folgende Varianten sind möglich:"_s,
        u"1. Unterricht nur Vormittag: Betreuung (Mensa, Lernzeit oder Arbeitsgruppe) nur im Anschluss an "
        u"den "
        "Unterricht:\r\nEs wird nur das Unterrichtsende für den Vormittag benötigt!"_s,
        u"2. Unterricht nur Vormittag: Betreuung vor und nach dem Unterricht:\r\nEs wird der "
        u"Unterrichtsbeginn "
        "und das Unterrichtsende für den Vormittag benötigt!"_s,
        u"3. Unterricht am Vormittag und Nachmittag\r\nEs werden Unterrichtsbeginn und Unterrichtsende für "
        u"den "
        "Vormittag und den Nachmittag benötigt!"_s};
    return paragraphs.join(u"\r\n\r\n"_s);
}

} // namespace kolibri
