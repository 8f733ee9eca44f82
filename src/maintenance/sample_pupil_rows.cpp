#include "maintenance/sample_pupils.h"

#include <numeric>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kContacts = 3;
constexpr int kFirstGradeWithOldData = 3;

/// An amount as Currency keeps it.
QVariant money(int cents) {
    return cents / 100.0;
}

/// Names of the 35 cells, made once: a school of ten thousand pupils writes 350,000 of them.
const std::vector<QString>& cellColumns() {
    static const std::vector<QString> columns = [] {
        std::vector<QString> names;
        for (int slot = 1; slot <= kSampleSlots; ++slot)
            for (int day = 0; day < kSchoolDays; ++day)
                names.push_back(u"GR%1_%2"_s.arg(slot).arg(TagCode(day)));
        return names;
    }();
    return columns;
}

void setMasterData(NewRow& row, const SamplePupil& pupil, const SampleMaterial& material) {
    row.Set(u"aktiv"_s, pupil.active)
        .Set(u"SCH_Name"_s, pupil.surname)
        .Set(u"SCH_Vorname"_s, pupil.firstName)
        .Set(u"SCH_Geb"_s, pupil.birth.toString(u"dd.MM.yyyy"_s))
        .Set(u"Klasse"_s, pupil.klasse)
        .Set(u"Schulstufe"_s, pupil.grade)
        .Set(u"Kl_Nr"_s, pupil.klasse.right(1))
        .Set(u"Neu"_s, pupil.isNew)
        .Set(u"NichtOG"_s, pupil.outside)
        .Set(u"Schwimmer"_s, pupil.swims ? u"JA"_s : u"NEIN"_s)
        .Set(u"Kennung"_s, pupil.mark)
        .Set(u"Baustein"_s,
             pupil.module < 0 ? u""_s : material.modules[static_cast<std::size_t>(pupil.module)].name)
        .Set(u"Anmerkung"_s, pupil.remark);
}

/// A new pupil's fees that the school does not raise were never written; correcting a record writes 0.
void setFees(NewRow& row, const SamplePupil& pupil) {
    for (int fee = 0; fee < kSampleFees; ++fee) {
        const int cents = pupil.cents[static_cast<std::size_t>(fee)];
        row.Set(u"Beitrag_%1"_s.arg(fee), cents == 0 && pupil.isNew ? QVariant() : money(cents));
    }
    row.Set(u"Beitrag_7"_s, money(std::accumulate(pupil.cents.begin(), pupil.cents.end(), 0)));
}

void setCells(NewRow& row, const SamplePupil& pupil, const SampleCalendar& calendar) {
    std::size_t column = 0;
    for (int slot = 0; slot < kSampleSlots; ++slot)
        for (const int offering : pupil.cells[static_cast<std::size_t>(slot)])
            row.Set(cellColumns()[column++], offering < 0 ? u""_s : calendar.offering(slot, offering).key);
}

void setContacts(NewRow& row, const SampleFamily& family) {
    static const std::vector<std::pair<QString, QString SampleContact::*>> fields{
        {u"GV_Name"_s, &SampleContact::surname}, {u"GV_Vorname"_s, &SampleContact::firstName},
        {u"Strasse"_s, &SampleContact::street},  {u"PLZ"_s, &SampleContact::plz},
        {u"Ort"_s, &SampleContact::town},        {u"Tel_privat"_s, &SampleContact::phone},
        {u"Mobil"_s, &SampleContact::mobile},    {u"Tel_Dienst"_s, &SampleContact::work},
        {u"E_Mail"_s, &SampleContact::mail},     {u"Verwandt"_s, &SampleContact::relation}};
    for (int number = 1; number <= kContacts; ++number) {
        const auto index = static_cast<std::size_t>(number - 1);
        const SampleContact contact =
            index < family.contacts.size() ? family.contacts[index] : SampleContact();
        for (const auto& [field, member] : fields)
            row.Set(field + QString::number(number), contact.*member);
    }
    // Whoever can be reached on the move is called first.
    const SampleContact& first = family.contacts.front();
    row.Set(u"NotfallRN"_s, first.mobile.isEmpty() ? first.phone : first.mobile);
}

/// Pupils of the upper grades came when a record had one contact and two fees; those columns have stayed.
void setOldData(NewRow& row, const SamplePupil& pupil, const SampleFamily& family) {
    const bool old = pupil.grade >= kFirstGradeWithOldData && !pupil.isNew;
    const auto text = [&](const QString& value) { return old ? QVariant(value) : QVariant(); };
    const SampleContact& contact = family.contacts.front();
    const bool father = contact.relation == u"Vater"_s;
    row.Set(u"GV_Name"_s, text(contact.surname))
        .Set(u"GV_Vorname"_s, text(contact.firstName))
        .Set(u"Strasse"_s, text(contact.street))
        .Set(u"PLZ"_s, text(contact.plz))
        .Set(u"Ort"_s, text(contact.town))
        .Set(u"Tel_privat"_s, text(contact.phone))
        .Set(u"Tel_dienst_Mutter"_s, text(father ? u""_s : contact.work))
        .Set(u"Tel_dienst_Vater"_s, text(father ? contact.work : u""_s))
        .Set(u"Handy_Mutter"_s, text(father ? u""_s : contact.mobile))
        .Set(u"Handy_Vater"_s, text(father ? contact.mobile : u""_s))
        .Set(u"MI_Beitrag"_s, old ? money(pupil.cents[0]) : QVariant())
        .Set(u"BT_Beitrag"_s, old ? money(pupil.cents[1]) : QVariant());
}

} // namespace

void writeSamplePupils(Connection& conn, SampleSchool& school, const SampleMaterial& material) {
    for (auto& pupil : school.pupils) {
        const SampleFamily& family = school.families[pupil.family];
        NewRow row = conn.AddNew(u"Stammdaten"_s);
        setMasterData(row, pupil, material);
        setFees(row, pupil);
        setCells(row, pupil, school.calendar);
        setContacts(row, family);
        setOldData(row, pupil, family);
        pupil.id = row.Update();
    }
}

} // namespace kolibri
