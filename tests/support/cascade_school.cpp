#include "support/cascade_school.h"

#include "support/driving.h"

using namespace Qt::StringLiterals;

namespace kolibri::test {

const QString kOldTime = u"13:00 - 13:45"_s;
const QString kMe1 = u"13:00 - 13:45 ME1"_s;
const QString kMe2 = u"13:00 - 13:45 ME2"_s;
const QString kLzMe1 = u"14:00 - 15:00 ME1"_s;
const QString kChor = u"15:00 - 16:00 CHOR"_s;
const QString kTanz = u"15:00 - 16:00 TANZ"_s;
const QString kUnit = u"13:00 - 14:00"_s;

namespace {

FieldValues offeringRow(const QString& zeit, const QString& kName, const QString& lName, const QString& tag) {
    return {{u"K_Name"_s, kName},
            {u"L_Name"_s, lName},
            {u"Tag"_s, tag},
            {u"Zeit_von"_s, zeit.first(5)},
            {u"Zeit_bis"_s, zeit.last(5)},
            {u"Zeit"_s, zeit},
            {u"Zeit_K_Name"_s, zeit + u' ' + kName},
            {u"UE_Zeit"_s, kUnit}};
}

FieldValues withId(qint64 id, FieldValues values) {
    values.push_back({u"ID"_s, id});
    return values;
}

void addPupilWith(const QString& name, const FieldValues& cells) {
    FieldValues values{{u"SCH_Name"_s, name}, {u"Klasse"_s, u"3a"_s}, {u"aktiv"_s, true}};
    values.insert(values.end(), cells.begin(), cells.end());
    addRow(u"Stammdaten"_s, values);
}

void addNote(int pupil, const QString& gr, const QString& lName, const QString& tag, const QString& key) {
    addRow(u"SCH_Notiz"_s, {{u"SCH_ID"_s, pupil},
                            {u"GR"_s, gr},
                            {u"L_Name"_s, lName},
                            {u"Tag"_s, tag},
                            {u"Tag_Zahl"_s, TagZahl(tag)},
                            {u"Zeit"_s, key.first(kOldTime.size())},
                            {u"Zeit_K_Name"_s, key},
                            {u"Notiz"_s, u"Notiz"_s}});
}

void addListText(const QString& typ, const QString& klasse, const QString& lName, const QString& tag,
                 const QString& key) {
    addRow(u"ME_LZ_AG_Notizen"_s, {{u"Typ"_s, typ},
                                   {u"Klasse"_s, klasse},
                                   {u"L_Name"_s, lName},
                                   {u"Tag"_s, tag},
                                   {u"Zeit"_s, key.first(kOldTime.size())},
                                   {u"Zeit_K_Name"_s, key},
                                   {u"K_Name"_s, key.section(u' ', -1)},
                                   {u"Anmerkung_V"_s, u"vorher"_s}});
}

void addCapacity(const QString& kind, const QString& key) {
    addRow(u"Parameter"_s, {{u"Bezeichnung"_s, key.section(u' ', -1)},
                            {u"Feld1"_s, kind},
                            {u"Feld2"_s, key.first(kOldTime.size())},
                            {u"Feld3"_s, key},
                            {u"Feld4"_s, u"5"_s}});
}

} // namespace

void makeCareSchool() {
    const QString mensa = u"Mensa 1"_s;
    addRow(u"GR1"_s, offeringRow(kOldTime, u"ME1"_s, mensa, u"MO"_s));
    addRow(u"GR1"_s, offeringRow(kOldTime, u"ME1"_s, mensa, u"DI"_s));
    addRow(u"GR1"_s, offeringRow(kOldTime, u"ME2"_s, u"Mensa 2"_s, u"MO"_s));
    addRow(u"GR2"_s, offeringRow(u"14:00 - 15:00"_s, u"ME1"_s, u"Lernzeit 1"_s, u"MO"_s));
    addPupilWith(u"Arnold"_s, {{u"GR1_MO"_s, kMe1}, {u"GR1_DI"_s, kMe1}, {u"GR2_MO"_s, kLzMe1}});
    addPupilWith(u"Berger"_s, {{u"GR1_MO"_s, kMe1}});
    addPupilWith(u"Conrad"_s, {{u"GR1_DI"_s, kMe1}});
    addPupilWith(u"Dreher"_s, {{u"GR1_MO"_s, kMe2}});
    addNote(1, u"GR1"_s, mensa, u"MO"_s, kMe1);
    addNote(1, u"GR3"_s, u"Chor"_s, u"FR"_s, kChor);
    addNote(2, u"GR2"_s, u"Lernzeit 1"_s, u"MI"_s, kLzMe1);
    addNote(3, u"GR1"_s, mensa, u"DI"_s, kMe1);
    addNote(4, u"GR1"_s, u"Mensa 2"_s, u"MO"_s, kMe2);
    addListText(u"Mensa"_s, u"A"_s, mensa, {}, kMe1);
    addListText(u"Mensa"_s, u"B"_s, mensa, {}, kMe1);
    addListText(u"Lernzeit"_s, u"A"_s, u"Lernzeit 1"_s, {}, kLzMe1);
    addListText(u"Mensa"_s, u"A"_s, u"Mensa 2"_s, {}, kMe2);
    addCapacity(u"ME"_s, kMe1);
    addCapacity(u"LZ"_s, kLzMe1);
    addCapacity(u"ME"_s, kMe2);
}

void makeGroupSchool() {
    const QString time = u"15:00 - 16:00"_s;
    const QString chor = u"Schulchor"_s;
    for (const auto& table : {u"GR3"_s, u"GR4"_s, u"GR5"_s, u"GR6"_s, u"GR7"_s}) {
        addRow(table, withId(1, offeringRow(time, u"CHOR"_s, chor, u"MO"_s)));
        addRow(table, withId(2, offeringRow(time, u"CHOR"_s, chor, u"DI"_s)));
        addRow(table, withId(3, offeringRow(time, u"TANZ"_s, u"Tanz"_s, u"MO"_s)));
    }
    addRow(u"GR1"_s, offeringRow(kOldTime, u"ME1"_s, chor, u"MO"_s));
    addPupilWith(u"Arnold"_s, {{u"GR3_MO"_s, kChor}, {u"GR7_MO"_s, kChor}, {u"GR3_DI"_s, kTanz}});
    addPupilWith(u"Berger"_s, {{u"GR4_MO"_s, kChor}});
    addPupilWith(u"Conrad"_s, {{u"GR3_DI"_s, kChor}});
    addPupilWith(u"Dreher"_s, {{u"GR3_MO"_s, kTanz}});
    addNote(1, u"GR3"_s, chor, u"MO"_s, kChor);
    addNote(1, u"GR7"_s, chor, u"MO"_s, kChor);
    addNote(2, u"GR4"_s, chor, u"MO"_s, kChor);
    addNote(3, u"GR3"_s, chor, u"DI"_s, kChor);
    addNote(4, u"GR3"_s, u"Tanz"_s, u"MO"_s, kTanz);
    addNote(4, u"GR1"_s, chor, u"MO"_s, kMe1);
    addListText(u"Arbeitsgruppe"_s, {}, chor, u"MO"_s, kChor);
    addListText(u"Arbeitsgruppe"_s, {}, chor, u"DI"_s, kChor);
    addListText(u"Mensa"_s, u"A"_s, chor, {}, kMe1);
    addListText(u"Arbeitsgruppe"_s, {}, u"Tanz"_s, u"MO"_s, kTanz);
    addCapacity(u"ME"_s, kMe1);
    addCapacity(u"ME"_s, kChor);
}

} // namespace kolibri::test
