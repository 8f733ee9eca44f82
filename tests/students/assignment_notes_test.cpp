#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "students/assignment_notes.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

const QString kKey = u"12:00 - 12:45 ME1"_s;
const NotizOrt kMensaMO{u"GR1"_s, u"MO"_s, kKey};

} // namespace

/// The notes on assignments: what they are called and what the store holds of them.
class AssignmentNotesTest : public kolibri::test::TestBase {
    Q_OBJECT

    static QStringList notes() {
        QStringList lines;
        Recordset rs = Global().Conn.Open(u"SELECT * FROM SCH_Notiz ORDER BY ID"_s);
        for (; !rs.Eof(); rs.MoveNext()) {
            QStringList cells;
            for (const auto* field : {u"SCH_ID", u"GR", u"L_Name", u"Tag", u"Tag_Zahl", u"Zeit",
                                      u"Zeit_K_Name", u"Notiz", u"WP_Notiz"})
                cells << (rs.IsNull(field) ? u"<null>"_s : rs.Text(field));
            lines << cells.join(u'|');
        }
        return lines;
    }

private Q_SLOTS:
    void init() {
        TestBase::init();
        useEmptyDatabase();
        Global().AktuelleSchuelerID = 1;
        OpenDB();
    }
    void cleanup() {
        CloseDB();
        TestBase::cleanup();
    }

    void theHeadingNamesTheKindTheDayAndTheTime_data() {
        QTest::addColumn<QString>("gruppe");
        QTest::addColumn<QString>("heading");
        const QString where = u"\nMO  "_s + kKey;
        QTest::newRow("GR1") << u"GR1"_s << u"Notiz MENSA"_s + where;
        QTest::newRow("GR2") << u"GR2"_s << u"Notiz LERNZEIT"_s + where;
        for (const auto& gr : {u"GR3"_s, u"GR4"_s, u"GR5"_s, u"GR6"_s, u"GR7"_s})
            QTest::newRow(qPrintable(gr)) << gr << u"Notiz ARBEITSGRUPPE"_s + where;
    }
    void theHeadingNamesTheKindTheDayAndTheTime() {
        QFETCH(const QString, gruppe);
        QFETCH(const QString, heading);
        const NotizOrt ort{gruppe, u"MO"_s, kKey};
        QCOMPARE(NotizUeberschrift(NotizArt::Zuweisung, ort), heading);
        QCOMPARE(NotizUeberschrift(NotizArt::Wochenplan, ort), u"Notiz Wochenplan - MO  "_s + kKey);
    }

    void theCaptionNamesTheKindOfParticipation() {
        QCOMPARE(KeineTeilnahmeText(u"GR1"_s), u"Notiz Wochenplan, keine ME Teilnahme"_s);
        QCOMPARE(KeineTeilnahmeText(u"GR2"_s), u"Notiz Wochenplan, keine LZ Teilnahme"_s);
        for (const auto& gr : {u"GR3"_s, u"GR4"_s, u"GR5"_s, u"GR6"_s, u"GR7"_s})
            QCOMPARE(KeineTeilnahmeText(gr), u"Notiz Wochenplan, keine AG Teilnahme"_s);
    }

    void theTimeIsTheFirstThirteenCharactersOfTheKey() {
        QCOMPARE(ZeitTextVon(kKey), u"12:00 - 12:45"_s);
        QCOMPARE(ZeitTextVon(u"kurz"_s), u"kurz"_s);
    }

    void theStoredCellDecidesWhetherThePupilTakesPart() {
        // No such pupil, a null, an empty text, a time.
        QVERIFY(NotizArtLesen(kMensaMO) == NotizArt::Wochenplan);
        Global().Conn.AddNew(u"Stammdaten"_s).Set(u"SCH_Name"_s, u"A"_s).Update();
        QVERIFY(NotizArtLesen(kMensaMO) == NotizArt::Wochenplan);
        Global().Conn.Change(u"Stammdaten"_s, {{u"GR1_MO"_s, u""_s}});
        QVERIFY(NotizArtLesen(kMensaMO) == NotizArt::Wochenplan);
        Global().Conn.Change(u"Stammdaten"_s, {{u"GR1_MO"_s, u"11:00 - 11:30 X"_s}});
        QVERIFY(NotizArtLesen(kMensaMO) == NotizArt::Zuweisung);
        QVERIFY(NotizArtLesen({u"GR1"_s, u"DI"_s, kKey}) == NotizArt::Wochenplan);
    }

    void theLongNameIsThatOfTheOfferingAndEmptyWithoutOne() {
        test::addOffering(u"GR1"_s, u"Mittagessen"_s, u"ME1"_s, u"MO"_s, u"12:00 - 12:45"_s);
        OpenDB();
        QCOMPARE(LangnameLesen(kMensaMO), u"Mittagessen"_s);
        QCOMPARE(LangnameLesen({u"GR1"_s, u"DI"_s, kKey}), QString());
        QCOMPARE(LangnameLesen({u"GR7"_s, u"MO"_s, kKey}), QString());
    }

    void aNewNoteHoldsItsPlaceAndItsText() {
        NotizNeuSchreiben(kMensaMO, u"Mittagessen"_s, {u"ohne Fisch"_s, false});
        NotizNeuSchreiben({u"GR7"_s, u"FR"_s, u"14:00 - 15:00 Chor"_s}, {}, {QString(), true});
        QCOMPARE(notes(),
                 (QStringList{u"1|GR1|Mittagessen|MO|0|12:00 - 12:45|12:00 - 12:45 ME1|ohne Fisch|"_s,
                              u"1|GR7||FR|4|14:00 - 15:00|14:00 - 15:00 Chor||1"_s}));
    }

    void anApostropheIsTakenInANewNoteAndRefusedInAChangedOne() {
        NotizNeuSchreiben(kMensaMO, {}, {u"Oma's Essen"_s, false});
        QCOMPARE(NotizLesen(kMensaMO)->Notiz, u"Oma's Essen"_s);
        QVERIFY_THROWS_EXCEPTION(StoreError, NotizAendern(kMensaMO, u"Opa's Essen"_s));
        QCOMPARE(NotizLesen(kMensaMO)->Notiz, u"Oma's Essen"_s);
    }

    void aFileWithoutTheLateColumnTakesTheNoteAllTheSame() {
        Global().Conn.Execute(u"ALTER TABLE SCH_Notiz DROP COLUMN WP_Notiz"_s);
        OpenDB();
        NotizNeuSchreiben(kMensaMO, u"Mittagessen"_s, {u"ohne Fisch"_s, true});
        QCOMPARE(*NotizLesen(kMensaMO), (SchuelerNotiz{u"ohne Fisch"_s, false}));
    }

    void aChangeTouchesTheNoteOfThisAssignmentAlone() {
        const NotizOrt other{u"GR1"_s, u"MO"_s, u"12:45 - 13:30 ME2"_s};
        const NotizOrt nextDay{u"GR1"_s, u"DI"_s, kKey};
        for (const auto& ort : {kMensaMO, other, nextDay})
            NotizNeuSchreiben(ort, {}, {u"alt"_s, true});
        Global().AktuelleSchuelerID = 2;
        NotizNeuSchreiben(kMensaMO, {}, {u"alt"_s, true});
        Global().AktuelleSchuelerID = 1;
        const QStringList before = notes();
        NotizAendern(kMensaMO, u"neu"_s);
        QStringList expected = before;
        expected[0].replace(u"alt"_s, u"neu"_s);
        QCOMPARE(notes(), expected);
        NotizAendern(kMensaMO, {});
        expected.removeFirst();
        QCOMPARE(notes(), expected);
        QVERIFY(!NotizLesen(kMensaMO));
    }

    void deletingTakesAllNotesOfTheGroupAndDay() {
        const NotizOrt other{u"GR1"_s, u"MO"_s, u"12:45 - 13:30 ME2"_s};
        const NotizOrt nextDay{u"GR1"_s, u"DI"_s, kKey};
        const NotizOrt otherGroup{u"GR2"_s, u"MO"_s, kKey};
        for (const auto& ort : {kMensaMO, other, nextDay, otherGroup})
            NotizNeuSchreiben(ort, {}, {u"Text"_s, false});
        const QStringList before = notes();
        NotizenLoeschen(kMensaMO);
        QCOMPARE(notes(), before.sliced(2));
    }
};

QTEST_GUILESS_MAIN(AssignmentNotesTest)
#include "assignment_notes_test.moc"
