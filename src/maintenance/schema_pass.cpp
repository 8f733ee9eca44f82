#include "maintenance/schema_pass.h"

#include "core/mdlGlobal.h"
#include "core/store/schema.h"
#include "maintenance/settings_rows.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kPupils = u"Stammdaten"_s;
const QString kSettings = u"Einstellungen"_s;

/// One run over the file. There is no version number in it: that a table or column is there is the version.
class SchemaPass {
public:
    SchemaPass(Connection& conn, const std::function<void()>& beforeFirstChange)
        : m_conn(conn), m_beforeFirstChange(beforeFirstChange) {}

    void run();

private:
    void beforeChange();
    void makeText(const QString& column);
    /// True if at least one of the columns was missing.
    bool addColumns(const QString& table, const QStringList& columns);
    /// True if the table was missing; columns that an existing one lacks are added.
    bool addTable(const QString& table);
    void addRowsUnlessThere(const QString& key, const std::vector<SettingsRow>& rows);
    void addPupilColumns();
    void addClassColumns();
    void splitClasses();
    void addNameFormats(const QString& column);
    void addSettingsColumns();
    void addSlotTables();

    Connection& m_conn;
    std::function<void()> m_beforeFirstChange;
    bool m_changed = false;
    /// Begun with the first change only: at an ordinary start the other workstations are not held up.
    std::optional<Transaction> m_transaction;
};

QStringList contactColumns() {
    QStringList names;
    for (int number = 1; number <= 3; ++number)
        for (const auto& stem : {u"GV_Name"_s, u"GV_Vorname"_s, u"Strasse"_s, u"PLZ"_s, u"Ort"_s,
                                 u"Tel_privat"_s, u"Mobil"_s, u"Tel_Dienst"_s, u"E_Mail"_s, u"Verwandt"_s})
            names << stem + QString::number(number);
    return names << u"NotfallRN"_s << u"Anmerkung"_s;
}

QStringList feeColumns() {
    QStringList names;
    for (int i = 0; i <= 7; ++i)
        names << u"Beitrag_%1"_s.arg(i);
    return names;
}

ColumnInfo schemaColumn(const QString& table, const QString& name) {
    for (const auto& column : schemaTable(table).columns)
        if (column.info.name == name)
            return column.info;
    Q_UNREACHABLE();
}

/// Grade and letter of a class: "3a" and "10a" have both, any other name has none.
std::optional<std::pair<QString, QString>> gradeAndLetter(const QString& name) {
    if (name.size() == 2)
        return std::pair(name.first(1), name.last(1));
    bool isNumber = false;
    if (name.size() == 3)
        name.first(2).toInt(&isNumber);
    return isNumber ? std::optional(std::pair(name.first(2), name.last(1))) : std::nullopt;
}

void SchemaPass::beforeChange() {
    if (m_changed)
        return;
    m_changed = true;
    m_beforeFirstChange();
    m_transaction.emplace(m_conn);
}

void SchemaPass::makeText(const QString& column) {
    const auto kind = SpaltenTyp(m_conn, kPupils, column);
    if (!kind || *kind == ColumnKind::Text)
        return;
    beforeChange();
    SpalteAendern(m_conn, kPupils, column, ColumnKind::Text);
}

bool SchemaPass::addColumns(const QString& table, const QStringList& columns) {
    bool added = false;
    for (const auto& name : columns) {
        if (m_conn.HasColumn(table, name))
            continue;
        beforeChange();
        m_conn.AddColumn(table, schemaColumn(table, name));
        added = true;
    }
    return added;
}

bool SchemaPass::addTable(const QString& table) {
    const auto& wanted = schemaTable(table);
    if (!m_conn.HasTable(table)) {
        beforeChange();
        m_conn.CreateTable(table, wanted.columnInfos());
        return true;
    }
    QStringList names;
    for (const auto& column : wanted.columns)
        names << column.info.name;
    addColumns(table, names);
    return false;
}

void SchemaPass::addRowsUnlessThere(const QString& key, const std::vector<SettingsRow>& rows) {
    if (m_conn.Open(u"SELECT * FROM Einstellungen WHERE Feld = ?"_s, {key}).RecordCount() > 0)
        return;
    beforeChange();
    addRows(m_conn, kSettings, rows);
}

void SchemaPass::addPupilColumns() {
    auto& global = Global();
    addColumns(kPupils, {u"NichtOG"_s, u"ZeitStempel"_s, u"PC_Name"_s});
    global.UpgradeKontakte = !m_conn.HasColumn(kPupils, u"GV_Name1"_s);
    addColumns(kPupils, contactColumns());
    addColumns(kPupils, {u"Kennung"_s, u"Baustein"_s});
    global.UpgradeBeitraege = !m_conn.HasColumn(kPupils, u"Beitrag_0"_s);
    addColumns(kPupils, feeColumns());
    addColumns(kPupils, {u"Schwimmer"_s});
}

void SchemaPass::addClassColumns() {
    const QString table = u"Klassen"_s;
    const bool unsplit = !m_conn.HasColumn(table, u"KlassenNR"_s);
    addColumns(table, {u"Unterrichtsbeginn"_s, u"UnterrichtsbeginnNM"_s, u"UnterrichtsendeNM"_s,
                       u"Schulstufe"_s, u"KlassenNR"_s});
    if (unsplit)
        splitClasses();
}

void SchemaPass::splitClasses() {
    for (Recordset rs = m_conn.Open(u"SELECT ID, Klasse, Schulstufe, KlassenNR FROM Klassen"_s); !rs.Eof();
         rs.MoveNext())
        if (const auto parts = gradeAndLetter(rs.Text(u"Klasse")))
            m_conn.Change(u"Klassen"_s, {{u"Schulstufe"_s, parts->first}, {u"KlassenNR"_s, parts->second}},
                          u"ID = ?"_s, {rs.Number(u"ID")});
}

/// The standard name formats of a new column. A row that has lost the column gets its value back; of two rows
/// the lists would find the first only.
void SchemaPass::addNameFormats(const QString& column) {
    for (const auto& row : nameFormatRows())
        for (const auto& value : row)
            if (value.field == column
                && m_conn.Change(kSettings, {value}, u"Feld = ?"_s, {row.front().value}) == 0)
                addRows(m_conn, kSettings, {row});
}

void SchemaPass::addSettingsColumns() {
    const bool shorteningIsNew = addColumns(kSettings, {u"NameKurz"_s});
    const bool orderIsNew = addColumns(kSettings, {u"NameZuerst"_s});
    if (shorteningIsNew)
        addNameFormats(u"NameKurz"_s);
    if (orderIsNew)
        addNameFormats(u"NameZuerst"_s);
    addColumns(kSettings, {u"BeitragAktiv"_s, u"BeitragBezeichnung"_s, u"SchülerZusatz"_s, u"Bezeichnung"_s,
                           u"Nummer"_s});
}

void SchemaPass::addSlotTables() {
    const bool fourthIsNew = addTable(u"GR6"_s);
    const bool fifthIsNew = addTable(u"GR7"_s);
    Global().UpgradeAG_Slots = fourthIsNew || fifthIsNew;
    for (const auto& table : {u"GR5"_s, u"GR4"_s, u"GR3"_s, u"GR2"_s, u"GR1"_s})
        addColumns(table, {u"UE_Zeit"_s});
}

void SchemaPass::run() {
    auto& global = Global();
    for (bool mdlGlobal::*flag :
         {&mdlGlobal::UpgradeNotizen, &mdlGlobal::UpgradeKontakte, &mdlGlobal::UpgradeAG_Slots,
          &mdlGlobal::UpgradeBeitraege, &mdlGlobal::UpgradeKategorien})
        global.*flag = false;
    makeText(u"SCH_Geb"_s);
    makeText(u"PLZ"_s);
    addPupilColumns();
    addTable(u"Temp_Zeiten"_s);
    global.UpgradeNotizen = addTable(u"WP_Notiz"_s);
    addClassColumns();
    addColumns(u"SCH_Notiz"_s, {u"WP_Notiz"_s});
    addSettingsColumns();
    addTable(u"Unterrichtseinheiten"_s);
    addTable(u"Stundenplan"_s);
    addSlotTables();
    addRowsUnlessThere(u"WochenPlanKopfZeile"_s, tagesplanFontRows());
    addRowsUnlessThere(u"Ü-Zeitüberschneidung"_s, overlapRows());
    for (const auto& table : {u"Liste_AG"_s, u"Parameter"_s, u"WochenplanTexte"_s, u"Bausteine"_s})
        addTable(table);
    global.UpgradeKategorien = !m_conn.HasTable(u"KategorieKontakte"_s);
    if (global.UpgradeKategorien)
        beforeChange(); // the conversion makes this table itself
    else
        addTable(u"KategorieKontakte"_s);
    if (m_transaction)
        m_transaction->Commit();
}

} // namespace

std::optional<ColumnKind> SpaltenTyp(Connection& conn, const QString& tabelle, const QString& spalte) {
    for (const auto& column : conn.Columns(tabelle))
        if (column.name.compare(spalte, Qt::CaseInsensitive) == 0)
            return column.kind;
    return std::nullopt;
}

bool SpalteVorhanden(Connection& conn, const QString& tabelle, const QString& spalte) {
    return SpaltenTyp(conn, tabelle, spalte).has_value();
}

bool SpalteAendern(Connection& conn, const QString& tabelle, const QString& spalte, ColumnKind typ) {
    try {
        conn.ChangeColumn(tabelle, {spalte, typ});
        return true;
    } catch (const StoreError&) {
        // The old engine refused some changes, and the file went on working with the old kind.
        return false;
    }
}

void runSchemaPass(Connection& conn, const std::function<void()>& beforeFirstChange) {
    SchemaPass(conn, beforeFirstChange).run();
}

} // namespace kolibri
