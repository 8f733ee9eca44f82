#include "core/office_settings.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kTable = u"Einstellungen"_s;
const QString kByKey = u"Feld = ?"_s;
const QString kByNumber = u"Feld = ? AND Nummer = ?"_s;
const QString kContact = u"Kontakt"_s;
const QString kApostrophe = u"Apostroph"_s;

const std::array<QString, kFontSettings> kFontKeys{u"TabelleKopfZeile"_s, u"TabelleZeile"_s,
                                                   u"TabelleSummenZeile"_s, u"WochenplanKopfZeile"_s,
                                                   u"WochenplanZeile"_s};
const std::array<QString, kNameFormats> kNameKeys{u"Name_Liste_ME_LZ"_s, u"Name_Liste_AG"_s,
                                                  u"Name_Wochenplan"_s};

/// The switches of the additional pupil fields and the rows that hold them.
const std::array<std::pair<QString, bool OfficeSettings::*>, 3> kSwitches{
    {{u"Schwimmer"_s, &OfficeSettings::Schwimmer},
     {u"Baustein"_s, &OfficeSettings::Baustein},
     {u"Kennung"_s, &OfficeSettings::Kennung}}};

QString feeKey(std::size_t number) {
    return u"Beitrag_%1"_s.arg(number);
}

Recordset rowsOf(Connection& conn, const QString& key) {
    return conn.Open(u"SELECT * FROM Einstellungen WHERE "_s + kByKey, {key});
}

/// The value of a list, or its first where the row is missing or holds something else.
QString known(const QString& value, const QStringList& list) {
    return list.contains(value) ? value : list.first();
}

void readContacts(Connection& conn, OfficeSettings& settings) {
    for (Recordset rs = rowsOf(conn, kContact); !rs.Eof(); rs.MoveNext()) {
        const qint64 number = rs.Number(u"Nummer");
        if (number >= 0 && number < kContactFields)
            settings.Kontakte[static_cast<std::size_t>(number)] = {rs.Text(u"Bezeichnung"),
                                                                   rs.Text(u"KategorieKontakte")};
    }
}

void writeFonts(Connection& conn, const OfficeSettings& settings) {
    for (std::size_t i = 0; i < kFontKeys.size(); ++i) {
        const FontSetting& font = settings.Schriften[i];
        FieldValues values{{u"Fett"_s, font.Fett}, {u"Kursiv"_s, font.Kursiv}};
        if (!font.Grösse.isEmpty())
            values.push_back({u"Grösse"_s, font.Grösse});
        conn.Change(kTable, values, kByKey, {kFontKeys[i]});
    }
}

void writeNames(Connection& conn, const OfficeSettings& settings) {
    for (std::size_t i = 0; i < kNameKeys.size(); ++i)
        conn.Change(kTable, {{u"NameKurz"_s, settings.Namen[i].NameKurz}}, kByKey, {kNameKeys[i]});
    for (std::size_t i = 0; i < kNameKeys.size(); ++i)
        conn.Change(kTable, {{u"NameZuerst"_s, settings.Namen[i].NameZuerst}}, kByKey, {kNameKeys[i]});
}

void writeFees(Connection& conn, const OfficeSettings& settings) {
    for (std::size_t i = 0; i < settings.Beiträge.size(); ++i)
        conn.Change(kTable,
                    {{u"BeitragBezeichnung"_s, settings.Beiträge[i].Bezeichnung},
                     {u"BeitragAktiv"_s, settings.Beiträge[i].Aktiv ? 1 : 0}},
                    kByKey, {feeKey(i)});
}

void writeContacts(Connection& conn, const OfficeSettings& settings) {
    for (int i = 0; i < kContactFields; ++i)
        conn.Change(kTable, {{u"Bezeichnung"_s, settings.Kontakte[static_cast<std::size_t>(i)].Bezeichnung}},
                    kByNumber, {kContact, i});
    for (int i = 0; i < kContactFields; ++i)
        conn.Change(kTable,
                    {{u"KategorieKontakte"_s, settings.Kontakte[static_cast<std::size_t>(i)].Kategorie}},
                    kByNumber, {kContact, i});
}

/// The row comes into being when the office first allows apostrophes; a school that never does has none.
void writeApostrophe(Connection& conn, bool allowed) {
    const int changed = conn.Change(kTable, {{u"Grösse"_s, allowed ? 1 : 0}}, kByKey, {kApostrophe});
    if (changed == 0 && allowed)
        conn.AddNew(kTable).Set(u"Feld"_s, kApostrophe).Set(u"Grösse"_s, 1).Update();
}

void writeAll(Connection& conn, const OfficeSettings& settings) {
    Transaction transaction(conn);
    writeFonts(conn, settings);
    writeNames(conn, settings);
    writeFees(conn, settings);
    for (const auto& [key, member] : kSwitches)
        conn.Change(kTable, {{u"SchülerZusatz"_s, settings.*member ? 1 : 0}}, kByKey, {key});
    writeContacts(conn, settings);
    writeApostrophe(conn, settings.Apostroph);
    transaction.Commit();
}

} // namespace

const QStringList& NameKurzListe() {
    static const QStringList list{u"Ungekürzt"_s, u"Vorname gekürzt"_s, u"Nachname gekürzt"_s};
    return list;
}

const QStringList& NameZuerstListe() {
    static const QStringList list{u"Vorname Nachname"_s, u"Nachname Vorname"_s};
    return list;
}

OfficeSettings EinstellungenLesen(Connection& conn) {
    OfficeSettings settings;
    for (std::size_t i = 0; i < kFontKeys.size(); ++i)
        if (const Recordset rs = rowsOf(conn, kFontKeys[i]); !rs.Eof())
            settings.Schriften[i] = {rs.Text(u"Grösse"), rs.Bool(u"Fett"), rs.Bool(u"Kursiv")};
    for (std::size_t i = 0; i < kNameKeys.size(); ++i) {
        const Recordset rs = rowsOf(conn, kNameKeys[i]);
        const auto text = [&](QStringView field) { return rs.Eof() ? QString() : rs.Text(field); };
        settings.Namen[i] = {known(text(u"NameKurz"), NameKurzListe()),
                             known(text(u"NameZuerst"), NameZuerstListe())};
    }
    for (std::size_t i = 0; i < settings.Beiträge.size(); ++i)
        if (const Recordset rs = rowsOf(conn, feeKey(i)); !rs.Eof())
            settings.Beiträge[i] = {rs.Text(u"BeitragBezeichnung"), rs.Number(u"BeitragAktiv") == 1};
    for (const auto& [key, member] : kSwitches)
        if (const Recordset rs = rowsOf(conn, key); !rs.Eof())
            settings.*member = rs.Number(u"SchülerZusatz") == 1;
    readContacts(conn, settings);
    settings.Apostroph = ApostropheErlaubt(conn);
    return settings;
}

void EinstellungenSchreiben(Connection& conn, const OfficeSettings& settings) {
    const bool before = conn.ApostrophesAllowed();
    // What is ticked counts for the texts saved along with it, or a first O'Neill would take two savings.
    conn.AllowApostrophes(settings.Apostroph);
    try {
        writeAll(conn, settings);
    } catch (...) {
        conn.AllowApostrophes(before);
        throw;
    }
}

bool ApostropheErlaubt(Connection& conn) {
    const Recordset rs = rowsOf(conn, kApostrophe);
    return !rs.Eof() && rs.Number(u"Grösse") == 1;
}

} // namespace kolibri
