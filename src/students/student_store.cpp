#include "students/student_store.h"

#include "core/klasse_neu.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kTable = u"Stammdaten"_s;
const QString kOfTheCurrentPupil = u"ID = ?"_s;

QVariantList currentPupil() {
    return {Global().AktuelleSchuelerID};
}

void append(FieldValues& values, const FieldValues& more) {
    values.insert(values.end(), more.begin(), more.end());
}

/// The master data; the grade is the first character of the class alone, also for 12b.
FieldValues masterFields(const SchuelerDatensatz& datensatz, const QVariant& schulstufe) {
    const QString& klasse = datensatz.SCH[kFeldKlasse];
    return {{u"SCH_Name"_s, datensatz.SCH[kFeldName]},
            {u"SCH_Vorname"_s, datensatz.SCH[kFeldVorname]},
            {u"SCH_Geb"_s, datensatz.SCH[kFeldGeburtsdatum]},
            {u"Klasse"_s, klasse},
            {u"Schulstufe"_s, schulstufe},
            {u"Kl_Nr"_s, klasse.right(1)}};
}

FieldValue swimmer(const SchuelerDatensatz& datensatz) {
    return {u"Schwimmer"_s, datensatz.Schwimmer ? u"JA"_s : u"NEIN"_s};
}

FieldValues additionalFields(const SchuelerDatensatz& datensatz) {
    return {{u"Baustein"_s, datensatz.Baustein}, {u"Kennung"_s, datensatz.Kennung}};
}

FieldValues feeFields(const SchuelerDatensatz& datensatz) {
    FieldValues values;
    for (std::size_t i = 0; i < datensatz.Beitrag.size(); ++i)
        values.push_back({u"Beitrag_%1"_s.arg(i), datensatz.Beitrag[i]});
    return values;
}

/// Assignments, contacts, emergency number and remark.
FieldValues remainingFields(const SchuelerDatensatz& datensatz) {
    FieldValues values;
    for (int gruppe = 0; gruppe < kGruppen; ++gruppe)
        for (int tag = 0; tag < kSchoolDays; ++tag)
            values.push_back({ZellenSpalte(gruppe, tag),
                              datensatz.GR[static_cast<std::size_t>(gruppe)][static_cast<std::size_t>(tag)]});
    for (int kontakt = 0; kontakt < kKontakte; ++kontakt)
        for (int feld = 0; feld < kContactFields; ++feld)
            values.push_back(
                {KontaktSpalte(kontakt, feld),
                 datensatz.GV[static_cast<std::size_t>(kontakt)][static_cast<std::size_t>(feld)]});
    append(values, {{u"NotfallRN"_s, datensatz.NotfallRN}, {u"Anmerkung"_s, datensatz.Anmerkung}});
    return values;
}

/// Adds the row. A column that an old file lacks and a number that was left empty are passed over; anything
/// else that does not fit is refused, so that nothing typed is lost unseen.
void addRow(const SchuelerDatensatz& datensatz, const QVariant& schulstufe) {
    auto& conn = Global().Conn;
    FieldValues values{{u"aktiv"_s, true}};
    append(values, masterFields(datensatz, schulstufe));
    append(values, {{u"Neu"_s, datensatz.Neu}, {u"NichtOG"_s, datensatz.NichtOG}, swimmer(datensatz)});
    append(values, additionalFields(datensatz));
    append(values, feeFields(datensatz));
    append(values, remainingFields(datensatz));
    NewRow row = conn.AddNew(kTable);
    for (const auto& [field, value] : values) {
        const bool text = value.typeId() == QMetaType::QString;
        if (text && value.toString().isEmpty())
            row.SetIfPossible(field, u""_s);
        else if (conn.HasColumn(kTable, field))
            row.Set(field, value);
    }
    row.Update();
}

void changeRow(const SchuelerDatensatz& datensatz) {
    auto& conn = Global().Conn;
    FieldValues values = masterFields(datensatz, datensatz.SCH[kFeldKlasse].left(1));
    append(values, additionalFields(datensatz));
    for (const auto& [field, value] : feeFields(datensatz))
        values.push_back({field, value.toString().isEmpty() ? QVariant(0) : value});
    append(values, {{u"Neu"_s, datensatz.Neu}, {u"NichtOG"_s, datensatz.NichtOG}});
    append(values, remainingFields(datensatz));
    // Together with the data, so that the record is free the moment it is right.
    append(values, {{u"ZeitStempel"_s, u""_s}, {u"PC_Name"_s, u""_s}});
    conn.Change(kTable, values, kOfTheCurrentPupil, currentPupil());
    conn.Change(kTable, {swimmer(datensatz)}, kOfTheCurrentPupil, currentPupil());
}

/// Says that the class was made, once the record and the class are safe.
void tellNewClass(KlasseErgebnis ergebnis, const QString& klasse) {
    if (ergebnis != KlasseErgebnis::Vorhanden)
        KlasseMelden(ergebnis, klasse);
}

} // namespace

void SchuelerNeuSchreiben(const SchuelerDatensatz& datensatz) {
    const QString& klasse = datensatz.SCH[kFeldKlasse];
    Transaction transaction(Global().Conn);
    addRow(datensatz, klasse.left(1));
    const KlasseErgebnis ergebnis = KlasseAnlegen(klasse);
    transaction.Commit();
    tellNewClass(ergebnis, klasse);
}

void SchuelerAendern(const SchuelerDatensatz& datensatz) {
    const QString& klasse = datensatz.SCH[kFeldKlasse];
    Transaction transaction(Global().Conn);
    changeRow(datensatz);
    const KlasseErgebnis ergebnis = KlasseAnlegen(klasse);
    transaction.Commit();
    tellNewClass(ergebnis, klasse);
}

void SchuelerDeaktivieren() {
    Global().Conn.Change(kTable, {{u"aktiv"_s, false}}, kOfTheCurrentPupil, currentPupil());
}

void SchuelerNotizenLoeschen() {
    Global().Conn.Delete(u"SCH_Notiz"_s, u"SCH_ID = ?"_s, currentPupil());
}

void SchuelerAktivieren() {
    Global().Conn.Change(kTable, {{u"aktiv"_s, true}}, kOfTheCurrentPupil, currentPupil());
}

void SchulanfaengerNeuSchreiben(const SchuelerDatensatz& datensatz) {
    SchuelerDatensatz written = datensatz;
    QString& klasse = written.SCH[kFeldKlasse];
    if (klasse.size() == 1)
        klasse.prepend(u'0');
    addRow(written, 0);
}

void SchulanfaengerAendern(SchuelerDatensatz& datensatz) {
    QString& klasse = datensatz.SCH[kFeldKlasse];
    if (klasse.isEmpty())
        klasse = u"0"_s;
    if (klasse.size() == 1)
        klasse.prepend(u'0');
    Transaction transaction(Global().Conn);
    changeRow(datensatz);
    transaction.Commit();
}

void SchulanfaengerLoeschen() {
    Global().Conn.Delete(kTable, kOfTheCurrentPupil, currentPupil());
}

} // namespace kolibri
