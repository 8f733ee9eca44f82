#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "maintenance/excel_import.h"
#include "support/fixtures.h"
#include "support/test_base.h"

#include <QDir>
#include <QJsonArray>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kTool = QStringLiteral(KOLIBRI_BIN_DIR) + u"/kolibri-db"_s;
const QString kOverwrite = u"Wollen Sie vorhandene Daten wirklich überschreiben?"_s;
const QString kAppend = u"Wollen Sie die Excel-Daten wirklich an die vorhandenen Daten anfügen?"_s;
const QString kDone = u"Die Daten wurden übergeben!"_s;

/// A sheet with the columns Name, Klasse, Beitrag.
Spreadsheet sheetOf(const std::vector<QStringList>& rows) {
    return {u"Tabelle1"_s, {u"Name"_s, u"Klasse"_s, u"Beitrag"_s}, rows};
}

const ExcelAssignment kAssignment{{0, u"Name"_s}, {3, u"Klasse"_s}, {4, u"Beitrag"_s}};

/// The fields of the program for the columns of the office's sheet, in their order.
ExcelAssignment wholeAssignment(const QStringList& columns) {
    ExcelAssignment result;
    for (qsizetype i = 0; i < columns.size(); ++i)
        result.insert(excelFields().at(static_cast<std::size_t>(i)).index, columns.at(i));
    return result;
}

QStringList column(const QString& field, const QString& table = u"Stammdaten"_s) {
    const DbSession session(u"Vergleich"_s);
    QStringList result;
    for (Recordset rs = Global().Conn.Open(u"SELECT * FROM "_s + table); !rs.Eof(); rs.MoveNext())
        result << (rs.IsNull(field) ? u"<null>"_s : rs.Text(field));
    return result;
}

} // namespace

/// Reading pupils in from a spreadsheet.
class ExcelImportTest : public TestBase {
    Q_OBJECT

private:
    void append(const Spreadsheet& sheet, const ExcelAssignment& assignment,
                const QStringList& classes = {}) {
        doorsOfTest.expect(kAppend, kAnswerYes);
        for (const auto& name : classes)
            doorsOfTest.expect(u"Die Klasse "_s + name + u" wurde erstellt!"_s);
        doorsOfTest.expect(kDone);
        QVERIFY(ExcelDatenImportieren(sheet, assignment, false));
    }

    /// An office's school: one pupil with a note of each kind, and the class 1a.
    void useSmallSchool() {
        useEmptyDatabase();
        const DbSession session(u"Schule"_s);
        auto& conn = Global().Conn;
        conn.AddNew(u"Stammdaten"_s).Set(u"SCH_Name"_s, u"Alt"_s).Set(u"Klasse"_s, u"1a"_s).Update();
        for (const auto& table : {u"SCH_Notiz"_s, u"WP_Notiz"_s})
            conn.AddNew(table).Set(u"SCH_ID"_s, 1).Update();
        for (const auto& day : {u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s})
            conn.AddNew(u"Klassen"_s).Set(u"Klasse"_s, u"1a"_s).Set(u"Tag"_s, day).Update();
    }

private Q_SLOTS:
    void theFieldsAreThoseOfTheForm() {
        const auto& fields = excelFields();
        QCOMPARE(fields.size(), 36U);
        QCOMPARE(fields[5].index, 5);
        QCOMPARE(fields[6].index, 100);
        QCOMPARE(fields[35].index, 309);
        QCOMPARE(fields[35].column, u"Verwandt3"_s);
        QCOMPARE(fields[33].label, u"Telefon dienst."_s);
    }

    void theOfficesSheetComesInCellForCell_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("as the maker writes it") << u"schueler.xls"_s;
        QTest::newRow("as another program writes it") << u"schueler_libreoffice.xls"_s;
    }

    void theOfficesSheetComesInCellForCell() {
        QFETCH(QString, name);
        useEmptyDatabase();
        writeFile(scratch() + u'/' + name, fixture(u"xls/"_s + name));
        doorsOfTest.answerPath(scratch() + u'/' + name);
        const auto sheet = ExcelDateiOeffnen(kTool);
        QVERIFY(sheet.has_value());
        const QJsonArray rows = jsonFixture(u"xls/expected.json"_s)[name].toObject()[u"rows"].toArray();
        QStringList classes;
        for (const auto& row : rows)
            if (const QString klasse = row.toArray().at(3).toString();
                !klasse.isEmpty() && !classes.contains(klasse))
                classes << klasse;
        append(*sheet, wholeAssignment(sheet->columns), classes);
        const DbSession session(u"Vergleich"_s);
        Recordset rs = Global().Conn.Open(u"SELECT * FROM Stammdaten ORDER BY ID"_s);
        QCOMPARE(rs.RecordCount(), rows.size());
        for (const auto& row : rows) {
            const QJsonArray cells = row.toArray();
            QVERIFY(rs.Bool(u"aktiv"));
            for (qsizetype i = 0; i < cells.size(); ++i) {
                const ExcelField& field = excelFields().at(static_cast<std::size_t>(i));
                const QString wanted = cells.at(i).toString().trimmed();
                QCOMPARE(rs.Text(field.column),
                         QString(wanted).replace(u'.', field.index == 4 || field.index == 5 ? u',' : u'.'));
                QCOMPARE(rs.IsNull(field.column), wanted.isEmpty());
            }
            const QString klasse = cells.at(3).toString();
            QCOMPARE(rs.Text(u"Schulstufe"), klasse.left(1));
            QCOMPARE(rs.Text(u"Kl_Nr"), klasse.mid(1, 1));
            rs.MoveNext();
        }
        QCOMPARE(Global().KlassenListe.size(), classes.size());
    }

    void aClassOfThreeCharactersIsSplitByItsFirstTwo() {
        useSmallSchool();
        append(sheetOf({{u"Neu"_s, u"10a"_s, {}}}), kAssignment, {u"10a"_s});
        QCOMPARE(column(u"Klasse"_s).last(), u"10a"_s);
        QCOMPARE(column(u"Schulstufe"_s).last(), u"1"_s);
        QCOMPARE(column(u"Kl_Nr"_s).last(), u"0"_s);
    }

    void anEmptyClassLeavesClassGradeAndLetterUnset() {
        useSmallSchool();
        append(sheetOf({{u"Neu"_s, {}, {}}, {u"Neu"_s, u"  "_s, {}}}), kAssignment);
        for (const auto& field : {u"Klasse"_s, u"Schulstufe"_s, u"Kl_Nr"_s})
            QCOMPARE(column(field).last(2), QStringList({u"<null>"_s, u"<null>"_s}));
    }

    void aClassOfOneLetterLeavesTheGradeUnset() {
        useSmallSchool();
        append(sheetOf({{u"Neu"_s, u"b"_s, {}}}), kAssignment);
        QCOMPARE(column(u"Klasse"_s).last(), u"b"_s);
        QCOMPARE(column(u"Schulstufe"_s).last(), u"<null>"_s);
        QCOMPARE(column(u"Kl_Nr"_s).last(), u"<null>"_s);
    }

    void withAllBoxesEmptyAsManyPupilsAreMadeAsTheSheetHasRows() {
        useSmallSchool();
        append(sheetOf({{u"A"_s, u"9z"_s, u"1"_s}, {u"B"_s, u"9z"_s, u"2"_s}, {{}, {}, {}}}), {});
        QCOMPARE(column(u"aktiv"_s), QStringList({u"Falsch"_s, u"Wahr"_s, u"Wahr"_s, u"Wahr"_s}));
        const DbSession session(u"Vergleich"_s);
        for (const auto& row : tableRows(Global().Conn, u"Stammdaten"_s).sliced(1)) {
            QString rest = row.section(u"; "_s, 2);
            rest.remove(u"Neu=Falsch; "_s).remove(u"NichtOG=Falsch; "_s);
            QCOMPARE(rest.count(u'='), rest.count(u"=<null>"_s));
        }
    }

    void blanksAroundAValueGoAndOthersStay() {
        useSmallSchool();
        append(sheetOf({{u"  Müller  Mai \t"_s, u" 1a "_s, u" 12,5 "_s}}), kAssignment);
        QCOMPARE(column(u"SCH_Name"_s).last(), u"Müller  Mai \t"_s);
        QCOMPARE(column(u"Klasse"_s).last(), u"1a"_s);
        QCOMPARE(column(u"MI_Beitrag"_s).last(), u"12,5"_s);
    }

    void aValueThatItsColumnRefusesLeavesTheFieldEmpty() {
        useSmallSchool();
        append(sheetOf({{QString(256, u'x'), u"1a"_s, u"frei"_s}, {u"O'Neill"_s, u"1a"_s, u"9"_s}}),
               kAssignment);
        QCOMPARE(column(u"SCH_Name"_s).last(2), QStringList({u"<null>"_s, u"O'Neill"_s}));
        QCOMPARE(column(u"MI_Beitrag"_s).last(2), QStringList({u"<null>"_s, u"9"_s}));
    }

    void theFeesGoToTheOldColumns() {
        useSmallSchool();
        append(sheetOf({{u"Neu"_s, u"1a"_s, u"36"_s}}), kAssignment);
        QCOMPARE(column(u"MI_Beitrag"_s).last(), u"36"_s);
        QCOMPARE(column(u"Beitrag_0"_s).last(), u"<null>"_s);
    }

    void appendingKeepsThePupilsAndTakesDuplicates() {
        useSmallSchool();
        append(sheetOf({{u"Alt"_s, u"1a"_s, {}}}), kAssignment);
        QCOMPARE(column(u"SCH_Name"_s), QStringList({u"Alt"_s, u"Alt"_s}));
        QCOMPARE(QDir(home()).entryList({u"*Sicherheitskopie*"_s}), QStringList());
    }

    void overwritingKeepsTheNotesWhichPointToNobody() {
        useSmallSchool();
        const auto before = wholeDatabase();
        doorsOfTest.expect(kOverwrite, kAnswerYes);
        doorsOfTest.expect(kDone);
        QVERIFY(ExcelDatenImportieren(sheetOf({{u"Neu"_s, u"1a"_s, {}}}), kAssignment, true));
        QCOMPARE(doorsOfTest.boxes().front().code, 36);
        QCOMPARE(doorsOfTest.boxes().front().title, u"Excel Daten Importieren"_s);
        QCOMPARE(column(u"SCH_Name"_s), QStringList{u"Neu"_s});
        QCOMPARE(column(u"ID"_s), QStringList{u"2"_s});
        QCOMPARE(column(u"SCH_ID"_s, u"SCH_Notiz"_s), QStringList{u"1"_s});
        QCOMPARE(column(u"SCH_ID"_s, u"WP_Notiz"_s), QStringList{u"1"_s});
        const QString copy = home() + u"/KOLIBRI_Daten-Sicherheitskopie-20261120-093000.mdb"_s;
        QVERIFY(QFile::remove(DatenbankDatei(home())) && QFile::copy(copy, DatenbankDatei(home())));
        QCOMPARE(wholeDatabase(), before);
    }

    void onNoNothingHappens() {
        useSmallSchool();
        const auto before = wholeDatabase();
        doorsOfTest.expect(kOverwrite, kAnswerNo);
        QVERIFY(!ExcelDatenImportieren(sheetOf({{u"Neu"_s, u"1a"_s, {}}}), kAssignment, true));
        QCOMPARE(wholeDatabase(), before);
    }

    void missingClassesAreMadeOnceEach() {
        useSmallSchool();
        append(sheetOf({{u"A"_s, u"2b"_s, {}},
                        {u"B"_s, u"1A"_s, {}},
                        {u"C"_s, u"2B"_s, {}},
                        {u"D"_s, u"Igel"_s, {}},
                        {u"E"_s, u"2'b"_s, {}}}),
               kAssignment, {u"2b"_s, u"Igel"_s});
        QCOMPARE(column(u"Klasse"_s, u"Klassen"_s).count(u"2b"_s), 5);
        QCOMPARE(Global().KlassenListe, QStringList({u"1a"_s, u"2b"_s, u"Igel"_s}));
        QCOMPARE(column(u"Klasse"_s).last(), u"2'b"_s);
    }

    void aSchoolStartersClassNeedsNone() {
        useSmallSchool();
        append(sheetOf({{u"A"_s, u"0"_s, {}}, {u"B"_s, u"0a"_s, {}}, {u"C"_s, u"b"_s, {}}}), kAssignment);
        QCOMPARE(column(u"Klasse"_s, u"Klassen"_s), QStringList(5, u"1a"_s));
    }

    void rowsBeyondTheBoundAreLostAndCounted_data() {
        QTest::addColumn<int>("rows");
        QTest::addColumn<QString>("words");
        const QString rest = u" Es können höchstens 999 Zeilen auf einmal eingelesen werden."_s;
        QTest::newRow("999") << 999 << QString();
        QTest::newRow("1000") << 1000 << u"1 Zeile der Excel-Datei wurde nicht übernommen."_s + rest;
        QTest::newRow("1200") << 1200 << u"201 Zeilen der Excel-Datei wurden nicht übernommen."_s + rest;
    }

    void rowsBeyondTheBoundAreLostAndCounted() {
        QFETCH(int, rows);
        QFETCH(QString, words);
        useEmptyDatabase();
        std::vector<QStringList> content;
        for (int i = 1; i <= rows; ++i)
            content.push_back({QString::number(i), {}, {}});
        doorsOfTest.expect(kAppend, kAnswerYes);
        doorsOfTest.expect(kDone);
        if (!words.isEmpty())
            doorsOfTest.expect(words);
        QVERIFY(ExcelDatenImportieren(sheetOf(content), kAssignment, false));
        QCOMPARE(column(u"SCH_Name"_s).size(), 999);
        QCOMPARE(column(u"SCH_Name"_s).last(), u"999"_s);
    }

    void columnsBeyondTheBoundCannotBeChosen() {
        Spreadsheet sheet;
        QStringList row;
        for (int i = 1; i <= 120; ++i) {
            sheet.columns << u"S%1"_s.arg(i);
            row << u"Wert %1"_s.arg(i);
        }
        sheet.rows = {row};
        QCOMPARE(ExcelSpalten(sheet).size(), 99);
        QCOMPARE(ExcelDatenLesen(sheet, {{0, u"S99"_s}}).front().front(), u"Wert 99"_s);
        QVERIFY(ExcelDatenLesen(sheet, {{0, u"S100"_s}}).front().front().isNull());
    }

    void withoutAFileNothingHappens() {
        QVERIFY(!ExcelDateiOeffnen(kTool));
        QCOMPARE(doorsOfTest.dialogs(), QStringList{u"Exceldatei öffnen"_s});
        QCOMPARE(doorsOfTest.boxes().size(), 0);
    }

    void anotherEndingIsToldInABox() {
        doorsOfTest.answerPath(scratch() + u"/Liste.csv"_s);
        doorsOfTest.expect(u"Ausgewählte Datei  'Liste.csv'  ist keine Excel-Datei!"_s);
        QVERIFY(!ExcelDateiOeffnen(kTool));
    }

    void aFileThatIsNoneEndsInAClearError_data() {
        QTest::addColumn<QString>("name");
        for (const auto* name : {"kein_excel.xls", "schueler.xlsx", "leer.xls"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void aFileThatIsNoneEndsInAClearError() {
        QFETCH(QString, name);
        useSmallSchool();
        const auto before = wholeDatabase();
        writeFile(scratch() + u'/' + name, fixture(u"xls/"_s + name));
        doorsOfTest.answerPath(scratch() + u'/' + name);
        QVERIFY_THROWS_EXCEPTION(StoreError, ExcelDateiOeffnen(kTool));
        QCOMPARE(wholeDatabase(), before);
    }
};

KOLIBRI_TEST_MAIN(ExcelImportTest)
#include "excel_import_test.moc"
