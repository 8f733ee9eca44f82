#include "maintenance/sample_lists.h"

#include <QDate>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// The occupancy plan knows the class letters A to D.
constexpr int kPlanLetters = 4;
/// Monday of the first week of the sample school's year.
const QDate kFirstMonday(2026, 9, 14);

void writeModules(Connection& conn, const SampleMaterial& material) {
    int id = 0;
    for (const auto& module : material.modules)
        conn.AddNew(u"Bausteine"_s).Set(u"ID"_s, id++).Set(u"Bausteine"_s, module.name).Update();
}

/// The first row of each offering, which stands for all of its days.
std::vector<SampleOffering> mainRows(const std::vector<SampleOffering>& offerings) {
    std::vector<SampleOffering> result;
    for (const auto& offering : offerings)
        if (std::none_of(result.begin(), result.end(),
                         [&](const auto& other) { return other.longName == offering.longName; }))
            result.push_back(offering);
    return result;
}

/// Most pupils of a class letter who hold the key of an offering on one day.
int mostOnOneDay(const SampleSchool& school, SampleKind kind, const QString& key, QChar letter) {
    std::array<int, kSchoolDays> counts{};
    for (const auto& pupil : school.pupils) {
        if (!pupil.active || pupil.isStarter() || pupil.klasse.back() != letter)
            continue;
        for (std::size_t day = 0; day < counts.size(); ++day) {
            const int cell = pupil.cells[kind][day];
            if (cell >= 0 && school.calendar.offering(kind, cell).key == key)
                ++counts[day];
        }
    }
    return *std::max_element(counts.begin(), counts.end());
}

/// Places for so many pupils, rounded up to fives as a kitchen plans them; too few when they shall be short.
int placesFor(int pupils, bool tooFew) {
    if (tooFew && pupils > 0)
        return pupils * 3 / 4;
    return std::max(5, (pupils + 4) / 5 * 5);
}

void writeCapacities(Connection& conn, const SampleSchool& school) {
    constexpr std::size_t kOverfullMensa = 1;
    int id = 0;
    for (const SampleKind kind : {kSampleMensa, kSampleLernzeit}) {
        const auto rows = mainRows(school.calendar.offerings[kind]);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            NewRow row = conn.AddNew(u"Parameter"_s);
            row.Set(u"ID"_s, ++id)
                .Set(u"Bezeichnung"_s, rows[i].shortName)
                .Set(u"Feld1"_s, kind == kSampleMensa ? u"ME"_s : u"LZ"_s)
                .Set(u"Feld2"_s, rows[i].time.text())
                .Set(u"Feld3"_s, rows[i].key);
            int total = 0;
            for (int letter = 0; letter < kPlanLetters; ++letter) {
                const bool tooFew = kind == kSampleMensa && i == kOverfullMensa && letter == 0;
                const int pupils = mostOnOneDay(school, kind, rows[i].key, QChar(u'a' + letter));
                const int places = placesFor(pupils, tooFew);
                row.Set(u"Feld%1"_s.arg(4 + letter), QString::number(places));
                total += places;
            }
            row.Set(u"Feld8"_s, QString::number(total)).Update();
        }
    }
}

/// Every second text as a rich-text box leaves it, the others as plain text: older texts are plain.
void setListText(NewRow& row, const SampleListText& text, bool rich) {
    const auto stored = [&](const QString& content) {
        return rich && !content.isEmpty() ? sampleRichText(content) : content;
    };
    row.Set(u"Anmerkung_V"_s, stored(text.before)).Set(u"Anmerkung_N"_s, stored(text.after));
}

void setOffering(NewRow& row, const SampleOffering& offering) {
    row.Set(u"Zeit"_s, offering.time.text())
        .Set(u"Zeit_K_Name"_s, offering.key)
        .Set(u"K_Name"_s, offering.shortName)
        .Set(u"L_Name"_s, offering.longName);
}

void writeListTexts(Connection& conn, const SampleSchool& school, const SampleMaterial& material) {
    constexpr std::size_t kGroupsWithText = 5;
    std::size_t number = 0;
    const auto setText = [&](NewRow& row) {
        setListText(row, material.listTexts[number % material.listTexts.size()], number % 2 == 0);
        ++number;
    };
    for (const SampleKind kind : {kSampleMensa, kSampleLernzeit}) {
        // Fewer letters from one offering to the next, so that the lists meet both with and without a text.
        int letters = kPlanLetters;
        for (const auto& offering : mainRows(school.calendar.offerings[kind])) {
            for (int letter = 0; letter < letters; ++letter) {
                NewRow row = conn.AddNew(u"ME_LZ_AG_Notizen"_s);
                row.Set(u"Typ"_s, kind == kSampleMensa ? u"Mensa"_s : u"Lernzeit"_s)
                    .Set(u"Klasse"_s, QString(QChar(u'A' + letter)));
                setOffering(row, offering);
                setText(row);
                row.Update();
            }
            --letters;
        }
    }
    auto groups = mainRows(school.calendar.offerings[kSampleArbeitsgruppe]);
    groups.resize(std::min(groups.size(), kGroupsWithText));
    for (const auto& offering : groups) {
        NewRow row = conn.AddNew(u"ME_LZ_AG_Notizen"_s);
        row.Set(u"Typ"_s, u"Arbeitsgruppe"_s)
            .Set(u"Tag"_s, TagCode(offering.day))
            .Set(u"Betreuer"_s, offering.supervisor)
            .Set(u"Ort"_s, offering.place);
        setOffering(row, offering);
        setText(row);
        row.Update();
    }
}

void writeDates(Connection& conn, int id, const QString& group, int dates, int day) {
    constexpr int kDaysInWeek = 7;
    NewRow row = conn.AddNew(u"Liste_AG"_s);
    row.Set(u"ID"_s, id);
    for (int number = 0; number < dates; ++number)
        row.Set(u"Datum%1"_s.arg(number + 1),
                kFirstMonday.addDays(day + number * kDaysInWeek).toString(u"dd.MM.yyyy"_s));
    if (!group.isEmpty())
        row.Set(u"AG"_s, group);
    row.Update();
}

/// The dates used last for any group, the Monday of the first week, and the dates of single groups. One of
/// them meets four times only.
void writeGroupDates(Connection& conn, const SampleCalendar& calendar) {
    enum Row { kLastUsed = 1, kFirstWeek = 2, kOneGroup = 3 };
    constexpr int kDates = 6;
    constexpr int kFewDates = 4;
    const auto groups = mainRows(calendar.offerings[kSampleArbeitsgruppe]);
    writeDates(conn, kLastUsed, {}, kDates, groups.front().day);
    writeDates(conn, kFirstWeek, {}, 1, 0);
    for (std::size_t i = 0; i < 3; ++i)
        writeDates(conn, kOneGroup, groups[i].longName, i == 2 ? kFewDates : kDates, groups[i].day);
}

/// A text for the first classes of the school; the Tagesplan expects the markup in front of each.
void writeClassTexts(Connection& conn, const SampleSchool& school, const SampleMaterial& material) {
    for (int i = 0; i < material.classTexts.size(); ++i)
        conn.AddNew(u"WochenplanTexte"_s)
            .Set(u"ID"_s, i + 1)
            .Set(u"Klasse"_s, school.calendar.classes[static_cast<std::size_t>(i)].name)
            .Set(u"TextVorher"_s, sampleRichText(material.classTexts.at(i)))
            .Update();
}

/// The timetable of the classes a. A class has its ten lines as soon as the office saves it once.
void writeTimetable(Connection& conn, const SampleCalendar& calendar, const SampleMaterial& material,
                    SampleRandom& random) {
    int id = 0;
    for (const auto& klasse : calendar.classes) {
        if (klasse.letter != u'a')
            continue;
        for (const auto& unit : calendar.units) {
            const SampleTime time{ZeitVonMinuten(unit), ZeitBisMinuten(unit)};
            NewRow row = conn.AddNew(u"Stundenplan"_s);
            row.Set(u"ID"_s, id++).Set(u"Klasse"_s, klasse.name).Set(u"UE"_s, unit);
            for (int day = 0; day < kSchoolDays; ++day) {
                const SampleTeaching& teaching = klasse.week[static_cast<std::size_t>(day)];
                const bool taught = time.liesWithin(teaching.morning) || time.liesWithin(teaching.afternoon);
                row.Set(TagCode(day), taught ? random.pick(material.subjects) : u""_s);
            }
            row.Update();
        }
    }
}

} // namespace

void writeSampleSettings(Connection& conn) {
    const QString table = u"Einstellungen"_s;
    const QString condition = u"Feld = ?"_s;
    conn.Change(table, {{u"BeitragAktiv"_s, 1}, {u"BeitragBezeichnung"_s, u"Essensgeld"_s}}, condition,
                {u"Beitrag_2"_s});
    for (const auto& field : {u"Schwimmer"_s, u"Baustein"_s, u"Kennung"_s})
        conn.Change(table, {{u"SchülerZusatz"_s, 1}}, condition, {field});
}

void writeSampleLists(Connection& conn, const SampleSchool& school, const SampleMaterial& material,
                      SampleRandom& random) {
    writeModules(conn, material);
    writeCapacities(conn, school);
    writeListTexts(conn, school, material);
    writeGroupDates(conn, school.calendar);
    writeClassTexts(conn, school, material);
    writeTimetable(conn, school.calendar, material, random);
}

} // namespace kolibri
