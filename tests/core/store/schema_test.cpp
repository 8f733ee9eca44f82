#include "core/mdlAllgemein.h"
#include "core/store/connection.h"
#include "core/store/schema.h"
#include "core/widgets/application.h"
#include "plain_sqlite.h"
#include "store_support.h"
#include "support/test_base.h"

#include <QMetaEnum>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

struct ExpectedTable {
    const char* name;
    bool later;
    /// Kind and names of its columns, in their order; a plus marks what older files lack.
    std::vector<const char*> columns;
};

const std::vector<const char*> kOfferingOfMensaAndLernzeit{
    "AutoNumber ID", "Long NR",           "Text K_Name L_Name Tag", "DateTime Zeit_von Zeit_bis",
    "Text Zeit",     "+Text Zeit_K_Name", "Text Betreuer Ort",      "Memo Anmerkung_V Anmerkung_N",
    "+Text UE_Zeit"};
const std::vector<const char*> kOfferingOfThirdToFifth{"AutoNumber ID",
                                                       "Long NR",
                                                       "Text K_Name L_Name Tag",
                                                       "DateTime Zeit_von Zeit_bis",
                                                       "Text Zeit",
                                                       "Text Zeit_K_Name Betreuer Ort",
                                                       "Memo Anmerkung_V Anmerkung_N",
                                                       "+Text UE_Zeit"};
const std::vector<const char*> kOfferingOfSixthAndSeventh{"+Long ID NR",
                                                          "+Text K_Name L_Name Tag",
                                                          "+DateTime Zeit_von Zeit_bis",
                                                          "+Text Zeit Zeit_K_Name Betreuer Ort",
                                                          "+Memo Anmerkung_V Anmerkung_N",
                                                          "+Text UE_Zeit"};

// The tables of the office's database, written out once more on their own.
const std::vector<ExpectedTable> kExpected{
    {"Stammdaten",
     false,
     {"AutoNumber ID",
      "Boolean aktiv",
      "Text SCH_Name SCH_Vorname SCH_Geb Klasse",
      "Long Schulstufe",
      "Text Kl_Nr",
      "Boolean Neu",
      "+Boolean NichtOG",
      "+Text Schwimmer Kennung Baustein",
      "+Currency Beitrag_0 Beitrag_1 Beitrag_2 Beitrag_3 Beitrag_4 Beitrag_5 Beitrag_6 Beitrag_7",
      "Text GR1_MO GR1_DI GR1_MI GR1_DO GR1_FR",
      "Text GR2_MO GR2_DI GR2_MI GR2_DO GR2_FR",
      "Text GR3_MO GR3_DI GR3_MI GR3_DO GR3_FR",
      "Text GR4_MO GR4_DI GR4_MI GR4_DO GR4_FR",
      "+Text GR5_MO GR5_DI GR5_MI GR5_DO GR5_FR",
      "+Text GR6_MO GR6_DI GR6_MI GR6_DO GR6_FR",
      "+Text GR7_MO GR7_DI GR7_MI GR7_DO GR7_FR",
      "+Text GV_Name1 GV_Vorname1 Strasse1 PLZ1 Ort1 Tel_privat1 Mobil1 Tel_Dienst1 E_Mail1 Verwandt1",
      "+Text GV_Name2 GV_Vorname2 Strasse2 PLZ2 Ort2 Tel_privat2 Mobil2 Tel_Dienst2 E_Mail2 Verwandt2",
      "+Text GV_Name3 GV_Vorname3 Strasse3 PLZ3 Ort3 Tel_privat3 Mobil3 Tel_Dienst3 E_Mail3 Verwandt3",
      "+Text NotfallRN Anmerkung ZeitStempel PC_Name",
      "Text GV_Name GV_Vorname Strasse PLZ Ort Tel_privat",
      "Text Tel_dienst_Mutter Tel_dienst_Vater Handy_Mutter Handy_Vater",
      "Currency MI_Beitrag BT_Beitrag"}},
    {"GR1", false, kOfferingOfMensaAndLernzeit},
    {"GR2", false, kOfferingOfMensaAndLernzeit},
    {"GR3",
     false,
     {"AutoNumber ID", "Long NR", "Text K_Name L_Name Tag", "DateTime Zeit_von Zeit_bis", "Text Zeit",
      "Text Zeit_K_Name Betreuer Ort Anmerkung", "Memo Anmerkung_V Anmerkung_N", "+Text UE_Zeit"}},
    {"GR4", false, kOfferingOfThirdToFifth},
    {"GR5", false, kOfferingOfThirdToFifth},
    {"Klassen",
     false,
     {"AutoNumber ID", "Text Klasse Tag", "Long Tag_Zahl", "+DateTime Unterrichtsbeginn",
      "DateTime Unterrichtsende", "+DateTime UnterrichtsbeginnNM UnterrichtsendeNM",
      "+Text Schulstufe KlassenNR"}},
    {"Einstellungen",
     false,
     {"Text Feld", "Long Grösse", "Boolean Fett Kursiv", "+Text NameKurz NameZuerst", "+Long BeitragAktiv",
      "+Text BeitragBezeichnung", "+Long SchülerZusatz", "+Text Bezeichnung", "+Long Nummer",
      "+Text KategorieKontakte"}},
    {"SCH_Notiz",
     false,
     {"AutoNumber ID", "Long SCH_ID", "Text GR L_Name Tag", "Long Tag_Zahl", "Text Zeit", "+Text Zeit_K_Name",
      "Memo Notiz", "+Text WP_Notiz"}},
    {"ME_LZ_AG_Notizen",
     false,
     {"AutoNumber ID", "Text Typ Klasse Tag Zeit K_Name L_Name", "+Text Zeit_K_Name", "Text Betreuer Ort",
      "Memo Anmerkung_V Anmerkung_N"}},
    {"Temp_Zeiten", true, {"+Long ID", "+Text Zeit Tag K_Name"}},
    {"WP_Notiz", true, {"+Long ID SCH_ID", "+Text UE Tag", "+Long Tag_Zahl", "+Text Notiz"}},
    {"Unterrichtseinheiten", true, {"+Long ID", "+Text Zeit", "+Long Sort_NR"}},
    {"Stundenplan", true, {"+Long ID", "+Text Klasse UE MO DI MI DO FR"}},
    {"GR6", true, kOfferingOfSixthAndSeventh},
    {"GR7", true, kOfferingOfSixthAndSeventh},
    {"Liste_AG", true, {"+Long ID", "+Text Datum1 Datum2 Datum3 Datum4 Datum5 Datum6 AG"}},
    {"Parameter",
     true,
     {"+Long ID", "+Text Bezeichnung Feld1 Feld2 Feld3 Feld4 Feld5 Feld6 Feld7 Feld8 Feld9 Feld10"}},
    {"WochenplanTexte", true, {"+Long ID", "+Text Klasse", "+Memo TextVorher"}},
    {"Bausteine", true, {"+Long ID", "+Text Bausteine"}},
    {"KategorieKontakte", true, {"+Long ID", "+Text Name"}},
};

const QMap<QString, ColumnKind> kKinds{
    {u"Text"_s, ColumnKind::Text},         {u"Memo"_s, ColumnKind::Memo},
    {u"Long"_s, ColumnKind::Long},         {u"AutoNumber"_s, ColumnKind::AutoNumber},
    {u"Boolean"_s, ColumnKind::Boolean},   {u"Currency"_s, ColumnKind::Currency},
    {u"DateTime"_s, ColumnKind::DateTime},
};

/// How a column of the kind is declared in the file; other tools and later versions rely on it.
const QMap<ColumnKind, QString> kDeclarations{
    {ColumnKind::Text, u"TEXT(255) COLLATE NOCASE"_s},
    {ColumnKind::Memo, u"MEMO TEXT COLLATE NOCASE"_s},
    {ColumnKind::Long, u"INTEGER"_s},
    {ColumnKind::AutoNumber, u"INTEGER PRIMARY KEY AUTOINCREMENT"_s},
    {ColumnKind::Boolean, u"BOOLEAN NOT NULL DEFAULT 0"_s},
    {ColumnKind::Currency, u"CURRENCY"_s},
    {ColumnKind::DateTime, u"DATETIME"_s},
};

std::vector<SchemaColumn> columnsOf(const ExpectedTable& table) {
    std::vector<SchemaColumn> columns;
    for (const char* line : table.columns) {
        QStringList words = QString::fromUtf8(line).split(u' ');
        QString kind = words.takeFirst();
        const bool later = kind.startsWith(u'+');
        if (later)
            kind.remove(0, 1);
        for (const auto& name : words)
            columns.push_back({{name, kKinds.value(kind)}, later});
    }
    return columns;
}

QStringList lines(const std::vector<ColumnInfo>& columns) {
    QStringList result;
    for (const auto& column : columns)
        result << column.name + u' ' + kKinds.key(column.kind);
    return result;
}

} // namespace

class schemaTest : public TestBase {
    Q_OBJECT

    QString file() const { return DatenbankDatei(home()); }

private Q_SLOTS:
    void tablesAndColumnsAreThoseOfTheOffice() {
        QStringList names;
        for (const auto& table : schema())
            names << table.name;
        QStringList expectedNames;
        for (const auto& table : kExpected)
            expectedNames << QString::fromUtf8(table.name);
        QCOMPARE(names, expectedNames);
        for (const auto& expected : kExpected) {
            const SchemaTable& table = schemaTable(QString::fromUtf8(expected.name));
            QVERIFY2(table.later == expected.later, expected.name);
            const auto columns = columnsOf(expected);
            for (std::size_t i = 0; i < std::min(columns.size(), table.columns.size()); ++i) {
                const QByteArray where = QByteArray(expected.name) + '.' + columns[i].info.name.toUtf8();
                QVERIFY2(table.columns[i].info.name == columns[i].info.name, where.constData());
                QVERIFY2(table.columns[i].info.kind == columns[i].info.kind, where.constData());
                QVERIFY2(table.columns[i].later == columns[i].later, where.constData());
            }
            QCOMPARE(table.columns.size(), columns.size());
        }
    }

    void namesDifferInMoreThanCase() {
        QSet<QString> tables;
        for (const auto& table : schema()) {
            QVERIFY2(!tables.contains(table.name.toLower()), qPrintable(table.name));
            tables.insert(table.name.toLower());
            QSet<QString> columns;
            for (const auto& column : table.columns) {
                QVERIFY2(!columns.contains(column.info.name.toLower()), qPrintable(column.info.name));
                columns.insert(column.info.name.toLower());
            }
        }
    }

    void aNewDatabaseHasExactlyTheTablesOfTheSchema() {
        useEmptyDatabase();
        Connection conn;
        conn.OpenFile(file());
        QStringList names;
        for (const auto& table : schema()) {
            names << table.name;
            QCOMPARE(lines(conn.Columns(table.name)), lines(table.columnInfos()));
        }
        QCOMPARE(conn.Tables(), names);
    }

    void theDeclaredTypesOnDiskAreTheAgreedOnes() {
        useEmptyDatabase();
        for (const auto& table : kExpected) {
            QStringList parts;
            for (const auto& column : columnsOf(table))
                parts << u"\"%1\" %2"_s.arg(column.info.name, kDeclarations.value(column.info.kind));
            const QString name = QString::fromUtf8(table.name);
            QCOMPARE(plainRows(file(), u"SELECT sql FROM sqlite_master WHERE name = '%1'"_s.arg(name)),
                     QStringList{u"CREATE TABLE \"%1\" (%2)"_s.arg(name, parts.join(u", "_s))});
        }
    }

    void theCatalogueOfTheEngineReadsTheSameTypes() {
        useEmptyDatabase();
        const auto types = [this](const QString& table) {
            QStringList result;
            for (const auto& row : plainRows(file(), u"PRAGMA table_info(%1)"_s.arg(table)))
                result << row.section(u'|', 1);
            return result;
        };
        QCOMPARE(types(u"Klassen"_s).mid(0, 5),
                 QStringList({u"ID|INTEGER|0||1"_s, u"Klasse|TEXT(255)|0||0"_s, u"Tag|TEXT(255)|0||0"_s,
                              u"Tag_Zahl|INTEGER|0||0"_s, u"Unterrichtsbeginn|DATETIME|0||0"_s}));
        QVERIFY(types(u"Stammdaten"_s).contains(u"NichtOG|BOOLEAN|1|0|0"_s));
        QVERIFY(types(u"Stammdaten"_s).contains(u"Beitrag_7|CURRENCY|0||0"_s));
        QVERIFY(types(u"SCH_Notiz"_s).contains(u"Notiz|MEMO TEXT|0||0"_s));
        QVERIFY(types(u"GR6"_s).contains(u"ID|INTEGER|0||0"_s));
    }

    void anAddedColumnIsDeclaredLikeOneThatWasThereFromTheStart() {
        Connection conn;
        conn.CreateFile(file());
        conn.CreateTable(u"Klassen"_s, {{u"ID"_s, ColumnKind::AutoNumber}});
        conn.AddNew(u"Klassen"_s).Update();
        for (const auto& [name, kind] : kKinds.asKeyValueRange())
            if (kind != ColumnKind::AutoNumber)
                conn.AddColumn(u"Klassen"_s, {name, kind});
        const QString sql =
            plainRows(file(), u"SELECT sql FROM sqlite_master WHERE name = 'Klassen'"_s).join(u' ');
        for (const auto& [name, kind] : kKinds.asKeyValueRange())
            if (kind != ColumnKind::AutoNumber)
                QVERIFY2(sql.contains(u"\"%1\" %2"_s.arg(name, kDeclarations.value(kind))), qPrintable(sql));
        QCOMPARE(conn.Open(u"SELECT Boolean FROM Klassen"_s).Text(0), u"Falsch"_s);
        QVERIFY(conn.Open(u"SELECT Text FROM Klassen"_s).IsNull(u"Text"));
        QCOMPARE(conn.IntegrityProblems(), QStringList());
    }

    void theFileHasNoIndexARollbackJournalAndASoundContent() {
        useEmptyDatabase();
        QCOMPARE(plainRows(file(), u"SELECT * FROM sqlite_master WHERE type <> 'table'"_s), QStringList());
        QCOMPARE(plainRows(file(), u"PRAGMA journal_mode"_s), QStringList{u"delete"_s});
        QCOMPARE(plainRows(file(), u"PRAGMA integrity_check"_s), QStringList{u"ok"_s});
        QCOMPARE(plainRows(file(), u"PRAGMA encoding"_s), QStringList{u"UTF-8"_s});
        QCOMPARE(filesIn(home()).filter(u"KOLIBRI"_s), QStringList{u"KOLIBRI_Daten.mdb"_s});
    }

    void theSettingsOfTheConnectionAreTheSafeOnes() {
        useEmptyDatabase();
        Connection conn;
        conn.OpenFile(file());
        constexpr int kFull = 2;
        QCOMPARE(conn.Open(u"PRAGMA synchronous"_s).Value(0).toInt(), kFull);
        QCOMPARE(conn.Open(u"PRAGMA journal_mode"_s).Text(0), u"delete"_s);
        QCOMPARE(conn.Open(u"PRAGMA foreign_keys"_s).Value(0).toInt(), 0);
    }

    /// A tool that knows nothing of the German order opens, reads, sorts and changes the file.
    void anyOtherToolCanWorkWithTheFile() {
        useEmptyDatabase();
        {
            Connection conn;
            conn.OpenFile(file());
            for (const auto& name : {u"Zöbl"_s, u"Ärger"_s, u"Arzt"_s})
                conn.AddNew(u"Stammdaten"_s)
                    .Set(u"SCH_Name"_s, name)
                    .Set(u"Beitrag_0"_s, u"12,50"_s)
                    .Update();
        }
        QCOMPARE(plainRows(file(), u"SELECT SCH_Name FROM Stammdaten ORDER BY SCH_Name"_s),
                 QStringList({u"Arzt"_s, u"Zöbl"_s, u"Ärger"_s}));
        QCOMPARE(plainRows(file(), u"SELECT Beitrag_0 FROM Stammdaten WHERE SCH_Name = 'ARZT'"_s),
                 QStringList{u"12.5"_s});
        QCOMPARE(plainRows(file(), u"UPDATE Stammdaten SET SCH_Name = 'Arndt' WHERE SCH_Name = 'arzt'"_s),
                 QStringList());
        QCOMPARE(plainRows(file(), u"PRAGMA integrity_check"_s), QStringList{u"ok"_s});
        Connection conn;
        conn.OpenFile(file());
        QCOMPARE(conn.Open(u"SELECT SCH_Name FROM Stammdaten ORDER BY SCH_Name"_s).Text(0), u"Ärger"_s);
        QCOMPARE(conn.IntegrityProblems(), QStringList());
    }
};

KOLIBRI_TEST_MAIN(schemaTest)
#include "schema_test.moc"
