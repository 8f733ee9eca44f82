#include "core/klasse_neu.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "support/test_base.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

class KlasseNeuTest : public kolibri::test::TestBase {
    Q_OBJECT

    /// Rows of Klassen as "Klasse Tag Tag_Zahl Schulstufe KlassenNR", a null time as "-".
    static QStringList classRows() {
        QStringList rows;
        for (Recordset rs = Global().Conn.Open(u"SELECT * FROM Klassen ORDER BY ID"_s); !rs.Eof();
             rs.MoveNext()) {
            QStringList cells;
            for (const auto& field : {u"Klasse"_s, u"Tag"_s, u"Tag_Zahl"_s, u"Schulstufe"_s, u"KlassenNR"_s})
                cells << rs.Text(field);
            for (const auto& field : {u"Unterrichtsbeginn"_s, u"Unterrichtsende"_s, u"UnterrichtsbeginnNM"_s,
                                      u"UnterrichtsendeNM"_s})
                cells << (rs.IsNull(field) ? u"-"_s : rs.Text(field));
            rows << cells.join(u' ');
        }
        return rows;
    }

private Q_SLOTS:
    void aNewClassHasFiveRowsWithGradeAndLetterAndNoTimes() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        doorsOfTest.expect(u"Die Klasse 3a wurde erstellt!"_s);
        QString name = u"3a"_s;
        Klasse_Neu(name);
        QVERIFY(name.isEmpty());
        QCOMPARE(classRows(),
                 (QStringList{u"3a MO 0 3 a - - - -"_s, u"3a DI 1 3 a - - - -"_s, u"3a MI 2 3 a - - - -"_s,
                              u"3a DO 3 3 a - - - -"_s, u"3a FR 4 3 a - - - -"_s}));
        QCOMPARE(Global().KlassenListe, QStringList{u"3a"_s});
        QCOMPARE(Global().SchulstufenListe, QStringList{u"3"_s});
        QCOMPARE(Global().KlassenNRListe, QStringList{u"a"_s});
    }

    void theGradeOfATwoDigitClassHasBothDigits() {
        QCOMPARE(KlasseTeilen(u"10a"_s).Schulstufe, u"10"_s);
        QCOMPARE(KlasseTeilen(u"10a"_s).KlassenNR, u"a"_s);
    }

    void aNameOfOneOrFourLettersHasNeitherGradeNorLetter_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("one") << u"a"_s;
        QTest::newRow("four") << u"100a"_s;
    }
    void aNameOfOneOrFourLettersHasNeitherGradeNorLetter() {
        QFETCH(const QString, name);
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        QCOMPARE(KlasseAnlegen(name), KlasseErgebnis::Erstellt);
        QCOMPARE(Global()
                     .Conn.Open(u"SELECT ID FROM Klassen WHERE Schulstufe = '' AND KlassenNR = ''"_s)
                     .RecordCount(),
                 kSchoolDays);
    }

    void creatingAClassTwiceSaysSoAndAddsNothing() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        QCOMPARE(KlasseAnlegen(u"3a"_s), KlasseErgebnis::Erstellt);
        const QStringList before = classRows();
        doorsOfTest.expect(u"Klasse 3A ist bereits vorhanden!"_s);
        QString name = u"3A"_s;
        Klasse_Neu(name);
        QVERIFY(name.isEmpty());
        QCOMPARE(classRows(), before);
    }

    void anEmptyNameIsRefused() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        doorsOfTest.expect(u"Das Feld 'Klasse' darf nicht leer sein."_s);
        QString name;
        Klasse_Neu(name);
        QVERIFY(classRows().isEmpty());
    }

    void anApostropheIsRefusedBeforeAnythingIsWritten() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        QVERIFY_THROWS_EXCEPTION(StoreError, KlasseAnlegen(u"3'a"_s));
        QVERIFY(classRows().isEmpty());
    }
};

KOLIBRI_TEST_MAIN(KlasseNeuTest)
#include "klasse_neu_test.moc"
