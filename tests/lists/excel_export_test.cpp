// The spreadsheet of a list, read back with an unpacker and an XML reader that know nothing of the writer.

#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "lists/excel_export.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/row_codes.h"
#include "support/list_fixtures.h"
#include "support/test_base.h"

#include <QFileInfo>
#include <QProcess>
#include <QXmlStreamReader>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

QByteArray part(const QString& book, const QString& name) {
    QProcess unzip;
    unzip.start(u"unzip"_s, {u"-p"_s, book, name});
    if (!unzip.waitForFinished() || unzip.exitCode() != 0)
        qFatal("cannot unpack %s of %s", qPrintable(name), qPrintable(book));
    return unzip.readAllStandardOutput();
}

QStringList sharedTexts(const QString& book) {
    QStringList texts;
    QXmlStreamReader xml(part(book, u"xl/sharedStrings.xml"_s));
    while (!xml.atEnd())
        if (xml.readNextStartElement() && xml.name() == u"t")
            texts << xml.readElementText();
        else if (xml.name() == u"sst" || xml.name() == u"si")
            continue;
    return texts;
}

/// A workbook as another program sees it.
struct Book {
    /// Cell by address, such as "B2".
    QMap<QString, QString> cells;
    /// Style by address, where a cell has one.
    QMap<QString, QString> styles;
    QString headingStyle;
    QMap<int, double> widths;
    QMap<QString, double> margins;
    QString header;
    QString footer;
    QString paper;
};

Book read(const QString& file) {
    Book book;
    const QStringList texts = sharedTexts(file);
    QXmlStreamReader xml(part(file, u"xl/worksheets/sheet1.xml"_s));
    QString address;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto attributes = xml.attributes();
        if (xml.name() == u"c") {
            address = attributes.value(u"r"_s).toString();
            book.styles[address] = attributes.value(u"s"_s).toString();
        } else if (xml.name() == u"v") {
            book.cells[address] = texts.value(xml.readElementText().toInt());
        } else if (xml.name() == u"row" && attributes.value(u"r"_s) == u"1") {
            book.headingStyle = attributes.value(u"s"_s).toString();
        } else if (xml.name() == u"col") {
            for (int i = attributes.value(u"min"_s).toInt(); i <= attributes.value(u"max"_s).toInt(); ++i)
                book.widths[i] = attributes.value(u"width"_s).toDouble();
        } else if (xml.name() == u"pageMargins") {
            for (const auto& attribute : attributes)
                book.margins[attribute.name().toString()] = attribute.value().toDouble();
        } else if (xml.name() == u"pageSetup") {
            book.paper = attributes.value(u"paperSize"_s).toString();
        } else if (xml.name() == u"oddHeader") {
            book.header = xml.readElementText();
        } else if (xml.name() == u"oddFooter") {
            book.footer = xml.readElementText();
        }
    }
    return book;
}

/// A list of two columns with these rows, a code and two cells each.
void makeList(const std::vector<QStringList>& rows) {
    auto& liste = Liste();
    liste.SpaltenAnzahl = 2;
    liste.SpaltenText(1) = u"NAME"_s;
    liste.SpaltenText(2) = uR"(<img src="C:\Kolibri\Notiz20.jpg">)"_s;
    liste.dimensionieren(2, static_cast<int>(rows.size()));
    int row = 0;
    for (const auto& cells : rows) {
        ++row;
        liste.ZeilenCode(row) = cells.at(0);
        liste.Daten(1, row) = cells.at(1);
        liste.Daten(2, row) = cells.at(2);
    }
    liste.ZeilenAnzahl = row;
}

const std::vector<QStringList> kMixedRows{{u"21"_s, u"Überschrift"_s, QString()},
                                          {u"1"_s, u"Jäger Łukasz"_s, u"12,50"_s},
                                          {u"2"_s, u"Notfall-NR"_s, u"0241 1"_s},
                                          {QString(), u"leer"_s, QString()},
                                          {u"111"_s, u"Mehrfach"_s, u"007"_s},
                                          {u"22"_s, u"Summe"_s, u"1"_s},
                                          {u"1"_s, u"Zander"_s, u"<br /><i>Notiz</i>"_s},
                                          {u"29"_s, QString(), QString()}};

} // namespace

class ExcelExportTest : public TestBase {
    Q_OBJECT

private:
    Book written(SheetRows rows) {
        const QString file = scratch() + u"/liste.xlsx"_s;
        writeWorkbook(file, rows);
        return read(file);
    }

private Q_SLOTS:
    void takesTheRowsWithTheCodeOneWithoutGaps() {
        makeList(kMixedRows);
        const Book book = written(SheetRows::OneRowEach);
        QCOMPARE(book.cells.value(u"A1"_s), u"NAME"_s);
        QCOMPARE(book.cells.value(u"A2"_s), u"Jäger Łukasz"_s);
        QCOMPARE(book.cells.value(u"B2"_s), u"12,50"_s);
        QCOMPARE(book.cells.value(u"A3"_s), u"Zander"_s);
        QVERIFY(!book.cells.contains(u"A4"_s));
    }

    void theSecondEntryTakesEveryRowWithData() {
        makeList(kMixedRows);
        const Book book = written(SheetRows::All);
        QCOMPARE(book.cells.value(u"A2"_s), u"Jäger Łukasz"_s);
        QCOMPARE(book.cells.value(u"A3"_s), u"Notfall-NR"_s);
        QCOMPARE(book.cells.value(u"A4"_s), u"Mehrfach"_s);
        QCOMPARE(book.cells.value(u"A5"_s), u"Zander"_s);
        QVERIFY(!book.cells.contains(u"A6"_s));
    }

    void aListWithoutDataRowsLeavesTheHeadingsOnly() {
        makeList({});
        const Book book = written(SheetRows::All);
        QCOMPARE(book.cells.size(), 2);
        QCOMPARE(book.cells.value(u"A1"_s), u"NAME"_s);
        QCOMPARE(book.header, u"&C&\"Arial,Fett\"&11"_s);
    }

    void theNoteColumnOfTheMensaListHasItsImageTagAsText() {
        makeList(kMixedRows);
        QCOMPARE(written(SheetRows::OneRowEach).cells.value(u"B1"_s),
                 uR"(<img src="C:\Kolibri\Notiz20.jpg">)"_s);
    }

    void markupOfACellStaysAsItStands() {
        makeList(kMixedRows);
        QCOMPARE(written(SheetRows::OneRowEach).cells.value(u"B3"_s), u"<br /><i>Notiz</i>"_s);
    }

    // A fee or a telephone number must not change because a spreadsheet takes it for another number.
    void numbersStayAsTheListHoldsThem() {
        makeList(kMixedRows);
        const Book book = written(SheetRows::All);
        QCOMPARE(book.cells.value(u"B2"_s), u"12,50"_s);
        QCOMPARE(book.cells.value(u"B4"_s), u"007"_s);
    }

    void headingsAreBoldAndCentred() {
        makeList(kMixedRows);
        const QString file = scratch() + u"/liste.xlsx"_s;
        writeWorkbook(file, SheetRows::OneRowEach);
        const Book book = read(file);
        const int style = book.headingStyle.toInt();
        QVERIFY(style > 0);
        // A cell without a style of its own would look like any other, whatever its row says.
        QCOMPARE(book.styles.value(u"A1"_s), book.headingStyle);
        QCOMPARE(book.styles.value(u"B1"_s), book.headingStyle);
        QCOMPARE(book.styles.value(u"A2"_s), QString());
        const QString styles = QString::fromUtf8(part(file, u"xl/styles.xml"_s));
        const QString formats = styles.section(u"<cellXfs"_s, 1).section(u"</cellXfs>"_s, 0, 0);
        const QString heading = formats.section(u"<xf "_s, style + 1, style + 1);
        QVERIFY2(heading.contains(u"horizontal=\"center\""), qPrintable(heading));
        const int font = heading.section(u"fontId=\""_s, 1).section(u'"', 0, 0).toInt();
        const QString fonts = styles.section(u"<fonts"_s, 1).section(u"</fonts>"_s, 0, 0);
        QVERIFY2(fonts.section(u"<font>"_s, font + 1, font + 1).contains(u"<b/>"), qPrintable(fonts));
    }

    void columnsAreAsWideAsTheirTexts() {
        makeList(kMixedRows);
        const Book book = written(SheetRows::OneRowEach);
        QVERIFY(book.widths.value(1) > 12);
        QVERIFY(book.widths.value(2) > book.widths.value(1));
    }

    void columnsBeyondZAreNotFitted() {
        auto& liste = Liste();
        constexpr int kColumns = 28;
        liste.SpaltenAnzahl = kColumns;
        for (int column = 1; column <= kColumns; ++column)
            liste.SpaltenText(column) = u"EINE SEHR LANGE ÜBERSCHRIFT"_s;
        liste.dimensionieren(kColumns, 1);
        liste.ZeilenAnzahl = 0;
        const Book book = written(SheetRows::OneRowEach);
        QVERIFY(book.widths.contains(26));
        QVERIFY(!book.widths.contains(27));
        QCOMPARE(book.cells.value(u"AB1"_s), u"EINE SEHR LANGE ÜBERSCHRIFT"_s);
    }

    void thePrintedSheetHasMarginsTheFirstCellAboveAndAddressAndDateBelow() {
        auto& global = Global();
        global.SchuleOrganisation = u"OGS Groß & Klein"_s;
        global.SchuleStrasse = u"Weg 1"_s;
        global.SchulePLZOrt = u"52062 Aachen"_s;
        makeList(kMixedRows);
        const Book book = written(SheetRows::OneRowEach);
        QCOMPARE(book.margins.value(u"top"_s), 1.1);
        QCOMPARE(book.margins.value(u"left"_s), 0.5);
        QCOMPARE(book.margins.value(u"right"_s), 0.5);
        QCOMPARE(book.margins.value(u"bottom"_s), 0.5);
        QCOMPARE(book.paper, u"9"_s);
        QCOMPARE(book.header, u"&C&\"Arial,Fett\"&11Überschrift"_s);
        QCOMPARE(book.footer, u"&LOGS Groß && Klein, Weg 1, 52062 Aachen&R &D"_s);
    }

    // "1a" behind the font size 11 would be read as size 111.
    void aHeaderThatBeginsWithADigitIsKeptApartFromTheFontSize() {
        makeList({{u"1"_s, u"1a"_s, QString()}});
        QCOMPARE(written(SheetRows::OneRowEach).header, u"&C&\"Arial,Fett\"&11 1a"_s);
    }

    // "&G" stands for a picture in a header, and the library that writes the sheet breaks on it.
    void anAmpersandBeforeAGIsNoPicture() {
        Global().SchuleOrganisation = u"Müller&Graf"_s;
        Global().SchuleStrasse = u"A&[Picture]"_s;
        makeList({{u"1"_s, u"Kunst&Gestaltung"_s, QString()}});
        for (int time = 0; time < 2; ++time) {
            const Book book = written(SheetRows::OneRowEach);
            QCOMPARE(book.header, u"&C&\"Arial,Fett\"&11Kunst&& Gestaltung"_s);
            QCOMPARE(book.footer, u"&LMüller&& Graf, A&& [Picture], &R &D"_s);
            QCOMPARE(book.cells.value(u"A2"_s), u"Kunst&Gestaltung"_s);
        }
    }

    void anEndlessFirstCellOrAddressDoesNotBreakTheSheet() {
        Global().SchuleOrganisation = QString(300, u'O');
        makeList({{u"1"_s, QString(400, u'x'), QString(40000, u'y')}});
        const Book book = written(SheetRows::OneRowEach);
        QVERIFY(book.header.size() <= 255);
        QVERIFY(book.footer.endsWith(u"&R &D"_s));
        QCOMPARE(book.cells.value(u"B2"_s).size(), 32767);
    }

    // Half of a doubled "&" would take the date's code for a part of the address.
    void anAddressIsNotCutInsideADoubledMark() {
        Global().SchuleStrasse.clear();
        for (int length = 240; length <= 252; ++length) {
            Global().SchuleOrganisation = QString(length, u'O') + QString(9, u'&');
            makeList({});
            const QString footer = written(SheetRows::OneRowEach).footer;
            QVERIFY(footer.size() <= 255);
            QVERIFY(footer.endsWith(u"&R &D"_s));
            QCOMPARE(footer.chopped(5).count(u'&') % 2, 1);
        }
    }

    void aListOfTheSampleSchoolArrivesCellForCell() {
        useSampleSchool(40);
        Liste().Dialog.chkKlasse = true;
        prepareList(kErweiterteListe);
        const Book book = written(SheetRows::OneRowEach);
        const auto& liste = Liste();
        QVERIFY(liste.ZeilenAnzahl > 20);
        for (int row = 1; row <= liste.ZeilenAnzahl; ++row)
            for (int column = 1; column <= liste.SpaltenAnzahl; ++column) {
                const QString address = QChar(u'A' + column - 1) + QString::number(row + 1);
                QCOMPARE(book.cells.value(address), liste.Daten(column, row));
            }
    }

    void aPupilWithSeveralContactsIsMissingUnlessAllRowsAreAskedFor() {
        useEmptyDatabase();
        addPupil(u"Ärger"_s, u"Anna"_s, u"1a"_s,
                 joined({contact(1, u"Eins"_s, u"1"_s), contact(2, u"Zwei"_s, u"2"_s)}));
        addPupil(u"Zander"_s, u"Carl"_s, u"1a"_s, contact(1, u"Allein"_s, u"3"_s));
        chooseContacts(u"Name"_s);
        Liste().Dialog.chkKontakteNeu = true;
        Liste().Dialog.cmbKontakte[0] = u"Name"_s;
        prepareList(kErweiterteListe);
        QCOMPARE(written(SheetRows::OneRowEach).cells.value(u"B2"_s), u"Zander"_s);
        QCOMPARE(written(SheetRows::All).cells.value(u"B2"_s), u"Ärger"_s);
    }

    void theMasterDataSheetIsExportedWithItsWeek() {
        useSampleSchool(40);
        Liste().BlattSchuelerID = 33;
        prepareList(kStammdatenBlatt);
        const Book book = written(SheetRows::All);
        QVERIFY(book.cells.values().contains(u"Geburtsdatum"_s));
        QVERIFY(book.cells.values().contains(u"MO"_s));
    }

    void theDesktopOpensTheWorkbookFromTheTemporaryFolder() {
        qputenv("TMPDIR", scratch().toLocal8Bit());
        makeList(kMixedRows);
        exportToSpreadsheet(SheetRows::OneRowEach);
        QCOMPARE(doorsOfTest.openedFiles().size(), 1);
        const QString file = doorsOfTest.openedFiles().first();
        QVERIFY(file.startsWith(scratch()));
        QVERIFY(file.endsWith(u".xlsx"_s));
        QCOMPARE(read(file).cells.value(u"A3"_s), u"Zander"_s);
        exportToSpreadsheet(SheetRows::OneRowEach);
        QVERIFY(doorsOfTest.openedFiles().last() != file);
        QVERIFY(QFileInfo::exists(file));
    }

    void withoutAProgramForTablesABoxNamesTheFile() {
        qputenv("TMPDIR", scratch().toLocal8Bit());
        makeList(kMixedRows);
        doorsOfTest.setDesktopOpens(false);
        doorsOfTest.expectBeginning(
            u"Auf diesem Rechner ist kein Programm für Tabellen eingerichtet. Die Tabelle liegt hier:\n"_s);
        exportToSpreadsheet(SheetRows::OneRowEach);
        QVERIFY(doorsOfTest.boxes().front().text.endsWith(doorsOfTest.openedFiles().first()));
    }

    void aFolderThatCannotBeWrittenIsAClearError() {
        makeList(kMixedRows);
        QVERIFY_THROWS_EXCEPTION(RuntimeError,
                                 writeWorkbook(scratch() + u"/gibt/es/nicht.xlsx"_s, SheetRows::OneRowEach));
        QFile file(scratch() + u"/datei"_s);
        QVERIFY(file.open(QIODevice::WriteOnly));
        qputenv("TMPDIR", file.fileName().toLocal8Bit());
        QVERIFY_THROWS_EXCEPTION(RuntimeError, exportToSpreadsheet(SheetRows::OneRowEach));
        QVERIFY(doorsOfTest.openedFiles().isEmpty());
    }

#ifdef Q_OS_UNIX
    void aDiskWithoutRoomIsAClearErrorAndLeavesNoFile() {
        qputenv("TMPDIR", scratch().toLocal8Bit());
        makeList({{u"1"_s, QString(20'000, u'x'), QString(20'000, u'y')}});
        rlimit before{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        rlimit small = before;
        small.rlim_cur = 1000;
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
        QString failure;
        try {
            exportToSpreadsheet(SheetRows::OneRowEach);
        } catch (const RuntimeError& error) {
            failure = error.message();
        }
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
        QCOMPARE(failure, u"Laufzeitfehler '75': Fehler beim Zugriff auf Pfad/Datei"_s);
        QVERIFY(doorsOfTest.openedFiles().isEmpty());
        QCOMPARE(QDir(scratch()).entryList({u"*.xlsx"_s}, QDir::Files), QStringList());
    }
#endif

    void cleanup() {
        qunsetenv("TMPDIR");
        TestBase::cleanup();
    }
};

KOLIBRI_TEST_MAIN(ExcelExportTest)
#include "excel_export_test.moc"
