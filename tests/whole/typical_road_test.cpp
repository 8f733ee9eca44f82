// A day in the office, walked on the built program from outside: the Monday lunch of one pupil, from the
// offering to the printed list, and back through everything that a corrected time has to reach.

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "support/fixtures.h"
#include "support/program.h"
#include "support/test_base.h"

#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kPupil = u"Probekind"_s;

/// The first value of a query.
QString value(const QString& select) {
    const DbSession session(u"Nachsehen"_s);
    const Recordset rs = Global().Conn.Open(select);
    return rs.Eof() ? u"<nichts>"_s : rs.Text(0);
}

/// Gives one pupil of a class a name of his own, in both places because lists may shorten one, and a free
/// week. @returns the class
QString preparePupil() {
    const QString id =
        value(u"SELECT ID FROM Stammdaten WHERE aktiv = true AND Schulstufe > 0 AND NichtOG = false"
              u" ORDER BY ID"_s);
    QStringList cells;
    for (int group = 1; group <= 7; ++group)
        for (int day = 0; day < kSchoolDays; ++day)
            cells << u"GR%1_%2 = ''"_s.arg(QString::number(group), TagCode(day));
    const DbSession session(u"Vorbereiten"_s);
    Global().Conn.Execute(u"UPDATE Stammdaten SET SCH_Name = ?, SCH_Vorname = ?, "_s + cells.join(u", "_s)
                              + u" WHERE ID = ?"_s,
                          {kPupil, kPupil, id.toInt()});
    return Global().Conn.Open(u"SELECT Klasse FROM Stammdaten WHERE ID = ?"_s, {id.toInt()}).Text(0);
}

QString pdfText(const QString& file) {
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-layout"_s, file, u"-"_s});
    if (!reader.waitForFinished() || reader.exitCode() != 0)
        qFatal("cannot read %s", qPrintable(file));
    return QString::fromUtf8(reader.readAllStandardOutput());
}

} // namespace

class TypicalRoadTest : public TestBase {
    Q_OBJECT

private:
    static void enterOffering(Program& program, const QString& entry, const QString& shortName,
                              const QString& longName, const QString& from, const QString& to) {
        program.trigger(entry);
        program.waitForWindow(u"frmME_LZ_AG"_s);
        program.type(u"txtME_LZ_AG(0)"_s, shortName);
        program.type(u"txtME_LZ_AG(1)"_s, longName);
        program.clickEntry(u"lstME_LZ_AG"_s, u"MO"_s);
        program.type(u"txtME_LZ_AG(3)"_s, from);
        program.type(u"txtME_LZ_AG(4)"_s, to);
        program.click(u"cmdOK"_s);
        program.click(u"cmdBeenden"_s);
        program.waitForWindow(u"frmStart"_s);
    }

    static bool lampSays(Program& program, const QString& word) {
        return QTest::qWaitFor([&] { return program.text(u"lblAmpel(0)"_s).contains(word); });
    }

    /// Assigns the lunch, with a look at the lamp, and keeps a note on it.
    static void assignLunch(Program& program) {
        program.trigger(u"mnuSchülerIn_Korrektur"_s);
        program.waitForWindow(u"frmSchülerIn"_s);
        program.clickRowWith(u"lvwStammdaten"_s, kPupil);
        program.choose(u"cmbGR1(0)"_s, u"17:00 - 17:45 MEX"_s);
        QVERIFY(lampSays(program, u"OK"_s));
        const QString green = program.colour(u"lblAmpel(0)"_s);
        program.choose(u"cmbGR2(0)"_s, u"17:30 - 18:00 LZX"_s);
        QVERIFY(lampSays(program, u"Konflikt"_s));
        QVERIFY(program.colour(u"lblAmpel(0)"_s) != green);
        program.choose(u"cmbGR2(0)"_s, QString());
        QVERIFY(lampSays(program, u"OK"_s));
        QCOMPARE(program.colour(u"lblAmpel(0)"_s), green);
        program.click(u"cmdOK"_s);
        QCOMPARE(program.box(), QString());

        program.clickRowWith(u"lvwStammdaten"_s, kPupil);
        program.click(u"N_GR1(0)"_s);
        program.waitForWindow(u"frmSCH_Notiz"_s);
        program.type(u"rtfNotiz"_s, u"kommt aus dem Turnen"_s);
        program.click(u"cmdOK"_s);
        program.waitForWindow(u"frmSchülerIn"_s);
        program.click(u"cmdBeenden"_s);
        program.waitForWindow(u"frmStart"_s);
    }

    /// Shows the Mensa list of the class and gives its PDF as text.
    QString mensaList(Program& program, const QString& klasse, const QString& remark) {
        program.trigger(u"mnuListeMensaKlasse"_s);
        program.waitForWindow(u"frmME_LZ_Anzeigen"_s);
        program.choose(u"cmbKlasse"_s, klasse);
        program.choose(u"cmbME_LZ"_s, u"Mensa Probe"_s);
        if (!remark.isEmpty())
            program.type(u"rtfVorher"_s, remark);
        program.click(u"cmdOK"_s);
        program.waitForWindow(u"frmAnzeige_WEB_Browser"_s);
        program.trigger(u"mnuPDF"_s);
        const QString file = scratch() + u"/liste%1.pdf"_s.arg(++m_lists);
        program.waitForDialog();
        program.chooseFile(file);
        program.waitForWindow(u"frmAnzeige_WEB_Browser"_s);
        if (!QTest::qWaitFor([&] { return QFile::exists(file); }, 30000))
            qFatal("no PDF");
        program.trigger(u"mnuFensterSchliessen"_s);
        program.waitForWindow(u"frmME_LZ_Anzeigen"_s);
        program.click(u"cmdBeenden"_s);
        program.waitForWindow(u"frmStart"_s);
        return pdfText(file);
    }

    static void correctTime(Program& program) {
        program.trigger(u"mnuMensaKorrektur"_s);
        program.waitForWindow(u"frmME_LZ_AG"_s);
        program.clickRowWith(u"lvwME_LZ_AG"_s, u"MEX"_s);
        program.type(u"txtME_LZ_AG(3)"_s, u"17:15"_s);
        program.type(u"txtME_LZ_AG(4)"_s, u"18:00"_s);
        program.click(u"cmdOK"_s);
        QCOMPARE(program.box(), QString());
        program.click(u"cmdBeenden"_s);
        program.waitForWindow(u"frmStart"_s);
    }

    /// Everything that names the lunch by its key.
    static QStringList everyCopyOfTheKey() {
        return {value(u"SELECT GR1_MO FROM Stammdaten WHERE SCH_Name = 'Probekind'"_s),
                value(u"SELECT Zeit_K_Name FROM SCH_Notiz WHERE L_Name = 'Mensa Probe'"_s),
                value(u"SELECT Zeit_K_Name FROM ME_LZ_AG_Notizen WHERE K_Name = 'MEX'"_s),
                value(u"SELECT Feld3 FROM Parameter WHERE Bezeichnung = 'MEX'"_s),
                value(u"SELECT Zeit_K_Name FROM GR1 WHERE K_Name = 'MEX'"_s)};
    }

    void walkTheRoad() {
        const QString klasse = preparePupil();
        Program program(home());
        program.waitForWindow(u"frmStart"_s);
        enterOffering(program, u"mnuMensaNeu"_s, u"MEX"_s, u"Mensa Probe"_s, u"17:00"_s, u"17:45"_s);
        enterOffering(program, u"mnuLernzeitNeu"_s, u"LZX"_s, u"Lernzeit Probe"_s, u"17:30"_s, u"18:00"_s);
        assignLunch(program);
        const QString before = mensaList(program, klasse, u"Bitte pünktlich sein"_s);
        QVERIFY2(before.contains(kPupil) && before.contains(u"17:00 - 17:45")
                     && before.contains(u"Bitte pünktlich"),
                 qPrintable(before));
        QCOMPARE(everyCopyOfTheKey(), QStringList(5, u"17:00 - 17:45 MEX"_s));

        correctTime(program);
        QCOMPARE(everyCopyOfTheKey(), QStringList(5, u"17:15 - 18:00 MEX"_s));
        const QString after = mensaList(program, klasse, {});
        QVERIFY2(after.contains(kPupil) && after.contains(u"17:15 - 18:00")
                     && after.contains(u"Bitte pünktlich") && !after.contains(u"17:00 - 17:45"),
                 qPrintable(after));
        QVERIFY(program.endBy(u"mnuBeenden"_s));
    }

    int m_lists = 0;

private Q_SLOTS:
    void theMondayLunchOfOnePupil() {
        useSampleSchool(40);
        walkTheRoad();
    }

    void theSameOnADatabaseOfTheEarlierProgram() {
        writeFile(DatenbankDatei(home()), fixture(u"jet/neu/KOLIBRI_Daten.mdb"_s));
        {
            Program program(home());
            program.waitForBox(u"Die Datenbank stammt aus einer älteren Programmversion."_s);
            program.answer(u"Ja"_s);
            program.waitForWindow(u"frmStart"_s);
            QVERIFY(program.endBy(u"mnuBeenden"_s));
        }
        walkTheRoad();
    }
};

KOLIBRI_TEST_MAIN(TypicalRoadTest)
#include "typical_road_test.moc"
