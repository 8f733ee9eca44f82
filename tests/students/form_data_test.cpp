#include "core/klasse_neu.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "students/class_times.h"
#include "students/form_settings.h"
#include "students/note_images.h"
#include "support/test_base.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

/// What the pupil form reads beside the record: teaching times, notes, settings.
class FormDataTest : public kolibri::test::TestBase {
    Q_OBJECT

    static void addNote(int pupil, const QString& gr, const QVariant& tag, const QVariant& key) {
        Global()
            .Conn.AddNew(u"SCH_Notiz"_s)
            .Set(u"SCH_ID"_s, pupil)
            .Set(u"GR"_s, gr)
            .Set(u"Tag_Zahl"_s, tag)
            .Set(u"Zeit_K_Name"_s, key)
            .Update();
    }

private Q_SLOTS:
    void init() {
        TestBase::init();
        useEmptyDatabase();
    }

    void teachingTimesByWeekdayWithUnsetOnesEmpty() {
        const DbSession session(u"Test"_s);
        QCOMPARE(KlasseAnlegen(u"3a"_s), KlasseErgebnis::Erstellt);
        auto& conn = Global().Conn;
        conn.Change(u"Klassen"_s,
                    {{u"Unterrichtsbeginn"_s, u"08:00"_s},
                     {u"Unterrichtsende"_s, u"11:45"_s},
                     {u"UnterrichtsbeginnNM"_s, u"00:00"_s}},
                    u"Tag = ?"_s, {u"MO"_s});
        conn.Change(u"Klassen"_s, {{u"UnterrichtsendeNM"_s, u"15:30"_s}}, u"Tag = ?"_s, {u"FR"_s});
        const auto tage = UnterrichtszeitenLesen(u"3a"_s);
        QCOMPARE(tage.size(), std::size_t{5});
        QCOMPARE(tage[0], (UnterrichtTag{u"08:00"_s, u"11:45"_s, QString(), QString()}));
        QCOMPARE(tage[1], UnterrichtTag{});
        QCOMPARE(tage[4], (UnterrichtTag{QString(), QString(), QString(), u"15:30"_s}));
        QVERIFY(UnterrichtszeitenLesen(u"4a"_s).empty());
    }

    void aClassWithTooManyRowsFillsOneWeek() {
        const DbSession session(u"Test"_s);
        for (int i = 0; i < 7; ++i)
            Global()
                .Conn.AddNew(u"Klassen"_s)
                .Set(u"Klasse"_s, u"3a"_s)
                .Set(u"Tag_Zahl"_s, i)
                .Set(u"Unterrichtsende"_s, u"1%1:00"_s.arg(i))
                .Update();
        const auto tage = UnterrichtszeitenLesen(u"3a"_s);
        QCOMPARE(tage.size(), std::size_t{5});
        QCOMPARE(tage[4].Zeit_Unterrichtsende, u"14:00"_s);
    }

    void aTickStandsOnlyWhileTheBoxShowsTheAssignmentOfTheNote() {
        const DbSession session(u"Test"_s);
        Global().AktuelleSchuelerID = 7;
        addNote(7, u"GR3"_s, 1, u"14:00 - 15:00 Chor"_s);
        addNote(8, u"GR3"_s, 2, u"14:00 - 15:00 Chor"_s);
        const SchuelerNotizen notizen = NotizenLesen();
        QCOMPARE(notizen.bild(2, 1, u"14:00 - 15:00 Chor"_s), NotizBild::Haken);
        QCOMPARE(notizen.bild(2, 1, u"14:00 - 15:00 Judo"_s), NotizBild::Ohne);
        QCOMPARE(notizen.bild(2, 1, QString()), NotizBild::Keins);
        QCOMPARE(notizen.bild(2, 2, u"14:00 - 15:00 Chor"_s), NotizBild::Ohne);
        QCOMPARE(notizen.bild(3, 1, u"14:00 - 15:00 Chor"_s), NotizBild::Ohne);
        QCOMPARE(notizen.bild(0, 0, QString()), NotizBild::Keins);
    }

    void notesOfNoGroupOrDayArePassedOver() {
        const DbSession session(u"Test"_s);
        Global().AktuelleSchuelerID = 7;
        addNote(7, u"GR8"_s, 1, u"x"_s);
        addNote(7, u"GR1"_s, 5, u"x"_s);
        addNote(7, u"GR1"_s, QVariant(), u"x"_s);
        addNote(7, u"GR1"_s, 0, QVariant());
        const SchuelerNotizen notizen = NotizenLesen();
        for (int gruppe = 0; gruppe < kGruppen; ++gruppe)
            for (int tag = 0; tag < kSchoolDays; ++tag) {
                QCOMPARE(notizen.bild(gruppe, tag, u"x"_s), NotizBild::Ohne);
                QCOMPARE(notizen.bild(gruppe, tag, QString()), NotizBild::Keins);
            }
    }

    void theFeesOfTheSettings() {
        const DbSession session(u"Test"_s);
        Global().Conn.Change(u"Einstellungen"_s,
                             {{u"BeitragAktiv"_s, 1}, {u"BeitragBezeichnung"_s, u"Essen"_s}}, u"Feld = ?"_s,
                             {u"Beitrag_6"_s});
        const auto einstellungen = BeitragEinstellungenLesen();
        QCOMPARE(einstellungen[0], (BeitragEinstellung{true, u"Mitgliedsbeitrag"_s}));
        QCOMPARE(einstellungen[1], (BeitragEinstellung{true, u"Betreuungsbeitrag"_s}));
        QCOMPARE(einstellungen[2], BeitragEinstellung{});
        QCOMPARE(einstellungen[6], (BeitragEinstellung{true, u"Essen"_s}));
    }

    void switchingTheOverlapCheckActsHereAndInTheStore() {
        const DbSession session(u"Test"_s);
        const auto stored = [] {
            return Global()
                .Conn.Open(u"SELECT Grösse FROM Einstellungen WHERE Feld = 'Ü-Zeitüberschneidung'"_s)
                .Text(0);
        };
        ZeitpruefungSchalten(false);
        QVERIFY(!Global().UeberschneidungPruefen);
        QCOMPARE(stored(), u"0"_s);
        ZeitpruefungSchalten(true);
        QVERIFY(Global().UeberschneidungPruefen);
        QCOMPARE(stored(), u"1"_s);
    }
};

KOLIBRI_TEST_MAIN(FormDataTest)
#include "form_data_test.moc"
