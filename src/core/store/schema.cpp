#include "core/store/schema.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

using enum ColumnKind;
using Columns = std::vector<SchemaColumn>;

constexpr bool kLater = true;
const QStringList kDays{u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s};

Columns of(ColumnKind kind, const QStringList& names, bool later = false) {
    Columns columns;
    for (const auto& name : names)
        columns.push_back({{name, kind}, later});
    return columns;
}

Columns joined(std::initializer_list<Columns> parts) {
    Columns columns;
    for (const auto& part : parts)
        columns.insert(columns.end(), part.begin(), part.end());
    return columns;
}

QStringList weekCells(int slot) {
    QStringList names;
    for (const auto& day : kDays)
        names << u"GR%1_%2"_s.arg(slot).arg(day);
    return names;
}

QStringList contact(int number) {
    QStringList names;
    for (const auto& name : {u"GV_Name"_s, u"GV_Vorname"_s, u"Strasse"_s, u"PLZ"_s, u"Ort"_s, u"Tel_privat"_s,
                             u"Mobil"_s, u"Tel_Dienst"_s, u"E_Mail"_s, u"Verwandt"_s})
        names << name + QString::number(number);
    return names;
}

QStringList numbered(const QString& stem, int first, int last) {
    QStringList names;
    for (int i = first; i <= last; ++i)
        names << stem + QString::number(i);
    return names;
}

SchemaTable stammdaten() {
    return {
        u"Stammdaten"_s, false,
        joined(
            {of(AutoNumber, {u"ID"_s}), of(Boolean, {u"aktiv"_s}),
             of(Text, {u"SCH_Name"_s, u"SCH_Vorname"_s, u"SCH_Geb"_s, u"Klasse"_s}),
             of(Long, {u"Schulstufe"_s}), of(Text, {u"Kl_Nr"_s}), of(Boolean, {u"Neu"_s}),
             of(Boolean, {u"NichtOG"_s}, kLater),
             of(Text, {u"Schwimmer"_s, u"Kennung"_s, u"Baustein"_s}, kLater),
             of(Currency, numbered(u"Beitrag_"_s, 0, 7), kLater), of(Text, weekCells(1)),
             of(Text, weekCells(2)), of(Text, weekCells(3)), of(Text, weekCells(4)),
             of(Text, weekCells(5), kLater), of(Text, weekCells(6), kLater), of(Text, weekCells(7), kLater),
             of(Text, contact(1), kLater), of(Text, contact(2), kLater), of(Text, contact(3), kLater),
             of(Text, {u"NotfallRN"_s, u"Anmerkung"_s, u"ZeitStempel"_s, u"PC_Name"_s}, kLater),
             of(Text, {u"GV_Name"_s, u"GV_Vorname"_s, u"Strasse"_s, u"PLZ"_s, u"Ort"_s, u"Tel_privat"_s,
                       u"Tel_dienst_Mutter"_s, u"Tel_dienst_Vater"_s, u"Handy_Mutter"_s, u"Handy_Vater"_s}),
             // Money rather than whole numbers: the first version's fees have cents.
             of(Currency, {u"MI_Beitrag"_s, u"BT_Beitrag"_s})})};
}

/// GR1 to GR7. The keys of the two tables that came last are set by the program; only GR3 keeps the remark of
/// a working group.
SchemaTable offerings(int slot) {
    const bool late = slot >= 6;
    const bool hasRemark = slot == 3;
    return {
        u"GR%1"_s.arg(slot), late,
        joined({of(late ? Long : AutoNumber, {u"ID"_s}), of(Long, {u"NR"_s}),
                of(Text, {u"K_Name"_s, u"L_Name"_s, u"Tag"_s}), of(DateTime, {u"Zeit_von"_s, u"Zeit_bis"_s}),
                of(Text, {u"Zeit"_s}), of(Text, {u"Zeit_K_Name"_s}, slot <= 2),
                of(Text, {u"Betreuer"_s, u"Ort"_s}), hasRemark ? of(Text, {u"Anmerkung"_s}) : Columns(),
                of(Memo, {u"Anmerkung_V"_s, u"Anmerkung_N"_s}), of(Text, {u"UE_Zeit"_s}, kLater)})};
}

SchemaTable klassen() {
    return {u"Klassen"_s, false,
            joined({of(AutoNumber, {u"ID"_s}), of(Text, {u"Klasse"_s, u"Tag"_s}), of(Long, {u"Tag_Zahl"_s}),
                    of(DateTime, {u"Unterrichtsbeginn"_s}, kLater), of(DateTime, {u"Unterrichtsende"_s}),
                    of(DateTime, {u"UnterrichtsbeginnNM"_s, u"UnterrichtsendeNM"_s}, kLater),
                    of(Text, {u"Schulstufe"_s, u"KlassenNR"_s}, kLater)})};
}

SchemaTable einstellungen() {
    return {u"Einstellungen"_s, false,
            joined({of(Text, {u"Feld"_s}), of(Long, {u"Grösse"_s}), of(Boolean, {u"Fett"_s, u"Kursiv"_s}),
                    of(Text, {u"NameKurz"_s, u"NameZuerst"_s}, kLater), of(Long, {u"BeitragAktiv"_s}, kLater),
                    of(Text, {u"BeitragBezeichnung"_s}, kLater), of(Long, {u"SchülerZusatz"_s}, kLater),
                    of(Text, {u"Bezeichnung"_s}, kLater), of(Long, {u"Nummer"_s}, kLater),
                    of(Text, {u"KategorieKontakte"_s}, kLater)})};
}

SchemaTable pupilNotes() {
    return {u"SCH_Notiz"_s, false,
            joined({of(AutoNumber, {u"ID"_s}), of(Long, {u"SCH_ID"_s}),
                    of(Text, {u"GR"_s, u"L_Name"_s, u"Tag"_s}), of(Long, {u"Tag_Zahl"_s}),
                    of(Text, {u"Zeit"_s}), of(Text, {u"Zeit_K_Name"_s}, kLater), of(Memo, {u"Notiz"_s}),
                    of(Text, {u"WP_Notiz"_s}, kLater)})};
}

SchemaTable listTexts() {
    return {u"ME_LZ_AG_Notizen"_s, false,
            joined({of(AutoNumber, {u"ID"_s}),
                    of(Text, {u"Typ"_s, u"Klasse"_s, u"Tag"_s, u"Zeit"_s, u"K_Name"_s, u"L_Name"_s}),
                    of(Text, {u"Zeit_K_Name"_s}, kLater), of(Text, {u"Betreuer"_s, u"Ort"_s}),
                    of(Memo, {u"Anmerkung_V"_s, u"Anmerkung_N"_s})})};
}

SchemaTable laterTable(const QString& name, std::initializer_list<Columns> parts) {
    return {name, kLater, joined(parts)};
}

std::vector<SchemaTable> makeSchema() {
    std::vector<SchemaTable> tables;
    tables.push_back(stammdaten());
    for (int slot = 1; slot <= 5; ++slot)
        tables.push_back(offerings(slot));
    tables.push_back(klassen());
    tables.push_back(einstellungen());
    tables.push_back(pupilNotes());
    tables.push_back(listTexts());
    tables.push_back(
        laterTable(u"Temp_Zeiten"_s, {of(Long, {u"ID"_s}), of(Text, {u"Zeit"_s, u"Tag"_s, u"K_Name"_s})}));
    tables.push_back(
        laterTable(u"WP_Notiz"_s, {of(Long, {u"ID"_s, u"SCH_ID"_s}), of(Text, {u"UE"_s, u"Tag"_s}),
                                   of(Long, {u"Tag_Zahl"_s}), of(Text, {u"Notiz"_s})}));
    tables.push_back(laterTable(u"Unterrichtseinheiten"_s,
                                {of(Long, {u"ID"_s}), of(Text, {u"Zeit"_s}), of(Long, {u"Sort_NR"_s})}));
    tables.push_back(laterTable(u"Stundenplan"_s,
                                {of(Long, {u"ID"_s}), of(Text, {u"Klasse"_s, u"UE"_s}), of(Text, kDays)}));
    tables.push_back(offerings(6));
    tables.push_back(offerings(7));
    tables.push_back(laterTable(
        u"Liste_AG"_s, {of(Long, {u"ID"_s}), of(Text, numbered(u"Datum"_s, 1, 6)), of(Text, {u"AG"_s})}));
    tables.push_back(laterTable(u"Parameter"_s, {of(Long, {u"ID"_s}), of(Text, {u"Bezeichnung"_s}),
                                                 of(Text, numbered(u"Feld"_s, 1, 10))}));
    tables.push_back(laterTable(u"WochenplanTexte"_s,
                                {of(Long, {u"ID"_s}), of(Text, {u"Klasse"_s}), of(Memo, {u"TextVorher"_s})}));
    tables.push_back(laterTable(u"Bausteine"_s, {of(Long, {u"ID"_s}), of(Text, {u"Bausteine"_s})}));
    tables.push_back(laterTable(u"KategorieKontakte"_s, {of(Long, {u"ID"_s}), of(Text, {u"Name"_s})}));
    for (auto& table : tables)
        for (auto& column : table.columns)
            column.later = column.later || table.later;
    return tables;
}

} // namespace

std::vector<ColumnInfo> SchemaTable::columnInfos() const {
    std::vector<ColumnInfo> infos;
    for (const auto& column : columns)
        infos.push_back(column.info);
    return infos;
}

const std::vector<SchemaTable>& schema() {
    static const std::vector<SchemaTable> tables = makeSchema();
    return tables;
}

const SchemaTable& schemaTable(QStringView name) {
    for (const auto& table : schema())
        if (table.name == name)
            return table;
    Q_UNREACHABLE();
}

} // namespace kolibri
