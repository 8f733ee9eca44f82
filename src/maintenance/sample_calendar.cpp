#include "maintenance/sample_calendar.h"

#include <QJsonArray>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kGrades = 4;
constexpr std::array<int, kGrades> kUsualLetters{4, 4, 3, 3};
constexpr int kMostPupilsInUsualClasses = 420;
constexpr int kPupilsInClass = 28;
constexpr int kMostLetters = 26;

QString clock(int minutes) {
    return u"%1:%2"_s.arg(minutes / 60, 2, 10, QChar(u'0')).arg(minutes % 60, 2, 10, QChar(u'0'));
}

int minutes(const QJsonValue& value) {
    return ZeitVonMinuten(value.toString());
}

SampleTime timeOf(const QJsonObject& entry) {
    return {minutes(entry["von"_L1]), minutes(entry["bis"_L1])};
}

int lettersOfGrade(int grade, int pupils) {
    if (pupils <= kMostPupilsInUsualClasses)
        return kUsualLetters[static_cast<std::size_t>(grade - 1)];
    const int perGrade = kPupilsInClass * kGrades;
    return std::min((pupils + perGrade - 1) / perGrade, kMostLetters);
}

/// The mornings of a grade are the same for all its classes, but fall on other days from one to the next, so
/// that the Mensa is not needed by all at once. Friday is short for all.
SampleTime morningOf(const QJsonObject& teaching, int grade, int letter, int day) {
    const int friday = kSchoolDays - 1;
    const int turned = day == friday ? day : (day + letter) % friday;
    return {minutes(teaching["beginn"_L1]), minutes(teaching["ende"_L1][grade - 1][turned])};
}

SampleClass makeClass(const QJsonObject& teaching, int grade, int letter) {
    SampleClass result;
    result.grade = grade;
    result.letter = QChar(u'a' + letter);
    result.name = QString::number(grade) + result.letter;
    for (int day = 0; day < kSchoolDays; ++day) {
        SampleTime& morning = result.week[static_cast<std::size_t>(day)].morning;
        morning = morningOf(teaching, grade, letter, day);
        if (result.name == teaching["ohneBeginn"_L1].toString())
            morning.from = 0;
    }
    const QJsonArray afternoons = teaching["nachmittag"_L1].toArray();
    for (const auto& entry : afternoons) {
        const QJsonObject afternoon = entry.toObject();
        if (afternoon["stufe"_L1].toInt() != grade
            || result.letter == teaching["ohneNachmittag"_L1].toString())
            continue;
        const int day = TagZahl(afternoon["tag"_L1].toString());
        result.week[static_cast<std::size_t>(day)].afternoon = timeOf(afternoon);
    }
    return result;
}

void addOffering(std::vector<SampleOffering>& offerings, const QJsonObject& entry) {
    SampleOffering offering;
    offering.shortName = entry["kurz"_L1].toString();
    offering.longName = entry["lang"_L1].toString();
    offering.supervisor = entry["betreuer"_L1].toString();
    offering.place = entry["ort"_L1].toString();
    offering.remark = entry["anmerkung"_L1].toString();
    const QJsonArray dates = entry["termine"_L1].toArray();
    for (const auto& value : dates) {
        const QJsonObject date = value.toObject();
        offering.time = timeOf(date);
        offering.unit = date["einheit"_L1].toString();
        offering.key = offering.time.text() + u' ' + offering.shortName;
        const QStringList days = date["tage"_L1].toString().split(u' ');
        for (const auto& day : days) {
            offering.day = TagZahl(day);
            offerings.push_back(offering);
        }
    }
}

void writeClasses(Connection& conn, const SampleCalendar& calendar) {
    for (const auto& klasse : calendar.classes)
        for (int day = 0; day < kSchoolDays; ++day) {
            const SampleTeaching& teaching = klasse.week[static_cast<std::size_t>(day)];
            conn.AddNew(u"Klassen"_s)
                .Set(u"Klasse"_s, klasse.name)
                .Set(u"Tag"_s, TagCode(day))
                .Set(u"Tag_Zahl"_s, day)
                .Set(u"Unterrichtsbeginn"_s, clock(teaching.morning.from))
                .Set(u"Unterrichtsende"_s, clock(teaching.morning.to))
                .Set(u"UnterrichtsbeginnNM"_s, clock(teaching.afternoon.from))
                .Set(u"UnterrichtsendeNM"_s, clock(teaching.afternoon.to))
                .Set(u"Schulstufe"_s, QString::number(klasse.grade))
                .Set(u"KlassenNR"_s, QString(klasse.letter))
                .Update();
        }
}

void writeUnits(Connection& conn, const QStringList& units) {
    QStringList sorted = units;
    sorted.sort();
    for (int id = 0; id < units.size(); ++id)
        conn.AddNew(u"Unterrichtseinheiten"_s)
            .Set(u"ID"_s, id)
            .Set(u"Zeit"_s, units.at(id))
            .Set(u"Sort_NR"_s, sorted.indexOf(units.at(id)) + 1)
            .Update();
}

void writeOffering(Connection& conn, int slot, int id, const SampleOffering& offering) {
    NewRow row = conn.AddNew(u"GR%1"_s.arg(slot + 1));
    row.Set(u"ID"_s, id)
        .Set(u"NR"_s, id)
        .Set(u"K_Name"_s, offering.shortName)
        .Set(u"L_Name"_s, offering.longName)
        .Set(u"Tag"_s, TagCode(offering.day))
        .Set(u"Zeit_von"_s, clock(offering.time.from))
        .Set(u"Zeit_bis"_s, clock(offering.time.to))
        .Set(u"Zeit"_s, offering.time.text())
        .Set(u"Zeit_K_Name"_s, offering.key)
        .Set(u"UE_Zeit"_s, offering.unit);
    if (sampleKindOfSlot(slot) == kSampleArbeitsgruppe)
        row.Set(u"Betreuer"_s, offering.supervisor).Set(u"Ort"_s, offering.place);
    // Only the first of the five copies has the column of the remark.
    if (slot == kSampleArbeitsgruppe)
        row.Set(u"Anmerkung"_s, offering.remark);
    row.Update();
}

} // namespace

QString SampleTime::text() const {
    return clock(from) + u" - "_s + clock(to);
}

SampleCalendar makeSampleCalendar(const SampleMaterial& material, int pupilsInClasses) {
    SampleCalendar calendar;
    const QJsonObject teaching = material.plan["unterricht"_L1].toObject();
    for (int grade = 1; grade <= kGrades; ++grade)
        for (int letter = 0; letter < lettersOfGrade(grade, pupilsInClasses); ++letter)
            calendar.classes.push_back(makeClass(teaching, grade, letter));
    const QJsonArray units = material.plan["einheiten"_L1].toArray();
    for (const auto& unit : units)
        calendar.units << unit.toString();
    const std::array<QLatin1StringView, kSampleKinds> keys{"mensa"_L1, "lernzeit"_L1, "arbeitsgruppen"_L1};
    for (std::size_t kind = 0; kind < keys.size(); ++kind) {
        const QJsonArray entries = material.plan[keys[kind]].toArray();
        for (const auto& entry : entries)
            addOffering(calendar.offerings[kind], entry.toObject());
    }
    return calendar;
}

void writeSampleCalendar(Connection& conn, const SampleCalendar& calendar) {
    writeClasses(conn, calendar);
    writeUnits(conn, calendar.units);
    for (int slot = 0; slot < kSampleSlots; ++slot) {
        int id = 0;
        for (const auto& offering : calendar.offerings[sampleKindOfSlot(slot)])
            writeOffering(conn, slot, ++id, offering);
    }
}

} // namespace kolibri
