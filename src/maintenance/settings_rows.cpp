#include "maintenance/settings_rows.h"

#include "core/mdlGlobal.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kKey = u"Feld"_s;

SettingsRow fontRow(const QString& key, int size, bool bold) {
    return {{kKey, key}, {u"Grösse"_s, size}, {u"Fett"_s, bold}, {u"Kursiv"_s, false}};
}

SettingsRow nameRow(const QString& key, const QString& shortening) {
    return {{kKey, key}, {u"NameKurz"_s, shortening}, {u"NameZuerst"_s, u"Vorname Nachname"_s}};
}

SettingsRow feeRow(int number, bool active, const QVariant& label) {
    return {{kKey, u"Beitrag_%1"_s.arg(number)},
            {u"BeitragAktiv"_s, active ? 1 : 0},
            {u"BeitragBezeichnung"_s, label}};
}

SettingsRow labelRow(const QString& key, int number, const QString& label) {
    return {{kKey, key}, {u"Nummer"_s, number}, {u"Bezeichnung"_s, label}};
}

std::vector<SettingsRow> makeFeeRows() {
    std::vector<SettingsRow> rows{feeRow(0, true, u"Mitgliedsbeitrag"_s),
                                  feeRow(1, true, u"Betreuungsbeitrag"_s)};
    for (int number = 2; number < kBeitraege; ++number)
        rows.push_back(feeRow(number, false, {}));
    return rows;
}

std::vector<SettingsRow> makeContactLabelRows() {
    std::vector<SettingsRow> rows;
    for (const auto& key : {u"GV1"_s, u"GV2"_s, u"GV3"_s})
        for (int number = 0; number < contactLabels().size(); ++number)
            rows.push_back(labelRow(key, number, contactLabels().at(number)));
    return rows;
}

} // namespace

const std::vector<SettingsRow>& baseSettingsRows() {
    static const std::vector<SettingsRow> rows{fontRow(u"TabelleKopfZeile"_s, 11, true),
                                               fontRow(u"TabelleZeile"_s, 10, false),
                                               fontRow(u"TabelleSummenZeile"_s, 10, true)};
    return rows;
}

const std::vector<SettingsRow>& nameFormatRows() {
    static const std::vector<SettingsRow> rows{nameRow(u"Name_Liste_ME_LZ"_s, u"Nachname gekürzt"_s),
                                               nameRow(u"Name_Liste_AG"_s, u"Ungekürzt"_s),
                                               nameRow(u"Name_Wochenplan"_s, u"Ungekürzt"_s)};
    return rows;
}

const std::vector<SettingsRow>& tagesplanFontRows() {
    // With a capital P, as they have always been written; the store finds them in either spelling.
    static const std::vector<SettingsRow> rows{fontRow(u"WochenPlanKopfZeile"_s, 10, true),
                                               fontRow(u"WochenPlanZeile"_s, 8, false)};
    return rows;
}

const std::vector<SettingsRow>& overlapRows() {
    static const std::vector<SettingsRow> rows{{{kKey, u"Ü-Zeitüberschneidung"_s}, {u"Grösse"_s, 1}}};
    return rows;
}

const std::vector<SettingsRow>& feeRows() {
    static const std::vector<SettingsRow> rows = makeFeeRows();
    return rows;
}

const std::vector<SettingsRow>& additionalFieldRows() {
    const QString value = u"SchülerZusatz"_s;
    static const std::vector<SettingsRow> rows{{{kKey, u"Schwimmer"_s}, {value, 0}},
                                               {{kKey, u"Baustein"_s}, {value, 0}},
                                               {{kKey, u"Kennung"_s}, {value, 0}}};
    return rows;
}

const QStringList& contactLabels() {
    static const QStringList labels{u"Nachname"_s, u"Vorname"_s,     u"Strasse"_s, u"PLZ"_s,
                                    u"Ort"_s,      u"Tel. Privat"_s, u"Mobil"_s,   u"Tel. Arbeit"_s,
                                    u"E-Mail"_s,   u"Verw. Verh."_s};
    return labels;
}

const QStringList& contactCategories() {
    static const QStringList names{u"Name"_s, u"Adresse"_s, u"Telefon"_s, u"E-Mail"_s, u"Sonstiges"_s};
    return names;
}

const std::vector<SettingsRow>& contactLabelRows() {
    static const std::vector<SettingsRow> rows = makeContactLabelRows();
    return rows;
}

std::vector<SettingsRow> contactRows(const QStringList& labels) {
    static const QStringList kCategories{u"Name"_s,    u"Name"_s,     u"Adresse"_s, u"Adresse"_s,
                                         u"Adresse"_s, u"Telefon"_s,  u"Telefon"_s, u"Telefon"_s,
                                         u"E-Mail"_s,  u"Sonstiges"_s};
    std::vector<SettingsRow> rows;
    for (int number = 0; number < kCategories.size(); ++number) {
        SettingsRow row = labelRow(u"Kontakt"_s, number, labels.value(number));
        row.push_back({u"KategorieKontakte"_s, kCategories.at(number)});
        rows.push_back(row);
    }
    return rows;
}

void addRows(Connection& conn, const QString& table, const std::vector<SettingsRow>& rows) {
    for (const auto& values : rows) {
        NewRow row = conn.AddNew(table);
        for (const auto& [field, value] : values)
            row.Set(field, value);
        row.Update();
    }
}

} // namespace kolibri
