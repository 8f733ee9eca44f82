#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kZeit = u"13:00 - 14:00"_s;
const QString kEinheit = u"08:00 - 08:45"_s;

void addNote(qint64 pupil, const QString& gr, const QString& tag, const QString& text) {
    addAssignmentNote(pupil, gr, tag, u"Angebot"_s, kZeit, u"A"_s, text);
}

QStringList notes(quint8 listenArt) {
    QStringList texts;
    gathered(listenArt);
    for (int row = 1; row <= Liste().ZeilenAnzahl; ++row)
        texts << Liste().Daten(Liste().SpaltenAnzahl, row);
    return texts;
}

QStringList noteTexts(const NoteOptions& options, quint8 listenArt = kNotizenZuweisungen) {
    Liste().Notizen = options;
    QStringList texts = notes(listenArt);
    texts.sort();
    return texts;
}

} // namespace

class NoteListsTest : public TestBase {
    Q_OBJECT

private:
    void usePupils() {
        useEmptyDatabase();
        addPupil(u"Zebra"_s, u"Anna"_s, u"1a"_s);
        addPupil(u"Adler"_s, u"Bert"_s, u"2b"_s);
    }

private Q_SLOTS:
    void theNotesOnAssignmentsByFamilyName() {
        usePupils();
        addNote(1, u"GR1"_s, u"MO"_s, u"isst kein Fleisch"_s);
        addNote(2, u"GR4"_s, u"FR"_s, u"wird früher geholt"_s);
        QCOMPARE(gathered(kNotizenZuweisungen),
                 QStringList({u"1: Adler Bert | 2b | FR | Angebot | 13:00 - 14:00 | wird früher geholt"_s,
                              u"1: Zebra Anna | 1a | MO | Angebot | 13:00 - 14:00 | isst kein Fleisch"_s}));
    }

    void theNotesOfTheTagesplanByFamilyName() {
        usePupils();
        addDayPlanNote(1, kEinheit, u"DI"_s, u"Förderung"_s);
        addDayPlanNote(2, kEinheit, u"MO"_s, u"Logopädie"_s);
        QCOMPARE(gathered(kNotizenTagesplan),
                 QStringList({u"1: Adler Bert | 2b | MO | 08:00 - 08:45 | Logopädie"_s,
                              u"1: Zebra Anna | 1a | DI | 08:00 - 08:45 | Förderung"_s}));
    }

    void eachKindOfAssignmentHasItsNotes() {
        usePupils();
        for (int slot = 1; slot <= 7; ++slot)
            addNote(1, u"GR%1"_s.arg(slot), u"MO"_s, u"zu %1"_s.arg(slot));
        QCOMPARE(noteTexts({kAlle, kAlle, u"Mensa"_s}), QStringList({u"zu 1"_s}));
        QCOMPARE(noteTexts({kAlle, kAlle, u"Lernzeit"_s}), QStringList({u"zu 2"_s}));
        QCOMPARE(noteTexts({kAlle, kAlle, u"Arbeitsgruppe"_s}),
                 QStringList({u"zu 3"_s, u"zu 4"_s, u"zu 5"_s, u"zu 6"_s, u"zu 7"_s}));
        QCOMPARE(noteTexts({}).size(), 7);
    }

    void classAndDayNarrowTheNotesOnAssignments() {
        usePupils();
        addNote(1, u"GR1"_s, u"MO"_s, u"1a MO"_s);
        addNote(1, u"GR1"_s, u"DI"_s, u"1a DI"_s);
        addNote(2, u"GR1"_s, u"MO"_s, u"2b MO"_s);
        QCOMPARE(noteTexts({u"1a"_s, kAlle, kAlle}), QStringList({u"1a DI"_s, u"1a MO"_s}));
        QCOMPARE(noteTexts({kAlle, u"MO"_s, kAlle}), QStringList({u"1a MO"_s, u"2b MO"_s}));
        QCOMPARE(noteTexts({u"2b"_s, u"MO"_s, u"Mensa"_s}), QStringList({u"2b MO"_s}));
        QVERIFY(noteTexts({u"2b"_s, u"DI"_s, kAlle}).isEmpty());
    }

    void allOfEverythingStillMeansAKnownGroupAndAKnownDay() {
        usePupils();
        addNote(1, u"GR1"_s, u"MO"_s, u"bekannt"_s);
        addNote(1, u"GR8"_s, u"MO"_s, u"keine Gruppe"_s);
        addNote(1, u"GR1"_s, u"SA"_s, u"kein Schultag"_s);
        addRow(u"SCH_Notiz"_s, {{u"SCH_ID"_s, 1}, {u"GR"_s, u"GR1"_s}, {u"Notiz"_s, u"ohne Tag"_s}});
        QCOMPARE(noteTexts({}), QStringList({u"bekannt"_s}));
    }

    void twoEqualNotesShowOnce() {
        usePupils();
        for (int i = 0; i < 2; ++i) {
            addNote(1, u"GR1"_s, u"MO"_s, u"doppelt"_s);
            addDayPlanNote(1, kEinheit, u"MO"_s, u"doppelt"_s);
        }
        addNote(1, u"GR2"_s, u"MO"_s, u"doppelt"_s);
        QCOMPARE(noteTexts({}), QStringList({u"doppelt"_s, u"doppelt"_s}));
        QCOMPARE(noteTexts({}, kNotizenTagesplan), QStringList({u"doppelt"_s}));
    }

    void dayAndUnitNarrowTheNotesOfTheTagesplanAndTheClassDoesNot() {
        usePupils();
        const QString spaet = u"09:00 - 09:45"_s;
        addDayPlanNote(1, kEinheit, u"MO"_s, u"1a früh"_s);
        addDayPlanNote(2, kEinheit, u"DI"_s, u"2b früh"_s);
        addDayPlanNote(2, spaet, u"DI"_s, u"2b spät"_s);
        addRow(u"WP_Notiz"_s, {{u"ID"_s, 9}, {u"SCH_ID"_s, 1}, {u"Notiz"_s, u"ohne Tag"_s}});
        const auto of = [](const NoteOptions& options) { return noteTexts(options, kNotizenTagesplan); };
        // With nothing chosen there is no condition, so even a note without a day is there.
        QCOMPARE(of({}), QStringList({u"1a früh"_s, u"2b früh"_s, u"2b spät"_s, u"ohne Tag"_s}));
        QCOMPARE(of({u"1a"_s, kAlle, kAlle}).size(), 4);
        QCOMPARE(of({kAlle, u"DI"_s, kAlle}), QStringList({u"2b früh"_s, u"2b spät"_s}));
        QCOMPARE(of({kAlle, kAlle, spaet}), QStringList({u"2b spät"_s}));
        QCOMPARE(of({u"1a"_s, u"DI"_s, kEinheit}), QStringList({u"2b früh"_s}));
    }

    void notesOfAPupilWhoIsGoneAreNotShownAndThoseOfADeactivatedOneAre() {
        usePupils();
        addPupil(u"Weg"_s, u"Cem"_s, u"1a"_s, {{u"aktiv"_s, false}});
        addNote(3, u"GR1"_s, u"MO"_s, u"deaktiviert"_s);
        addNote(99, u"GR1"_s, u"MO"_s, u"gibt es nicht"_s);
        QCOMPARE(noteTexts({}), QStringList({u"deaktiviert"_s}));
    }

    void aClassWithAnApostropheIsRefused() {
        usePupils();
        Liste().Notizen.cmbKlasse = u"1'a"_s;
        QVERIFY_THROWS_EXCEPTION(StoreError, prepareList(kNotizenZuweisungen));
        QVERIFY(!Global().Conn.IsOpen());
        prepareList(kNotizenTagesplan);
    }

    void withoutNotesThePageShowsItsHeaderOnly() {
        usePupils();
        const QStringList body = produced(kNotizenZuweisungen);
        QCOMPARE(Liste().ZeilenAnzahl, 0);
        const QStringList expected{u"<BODY>"_s,
                                   uR"(<div id="kopf_anschrift">)"_s,
                                   u"</div>"_s,
                                   uR"(<div id="kopf_mitte">)"_s,
                                   u"<h1>NOTIZEN ME/LZ/AG</h1>"_s,
                                   u"</div>"_s,
                                   u"<div id='box_table'>"_s,
                                   uR"(<TABLE class="Tpt">)"_s,
                                   u"<THEAD>"_s,
                                   uR"(<TR class="STD_KopfZeile">)"_s,
                                   u"<TD align='center'>NAME</TD>"_s,
                                   u"<TD align='center'>KL</TD>"_s,
                                   u"<TD align='center'>TAG</TD>"_s,
                                   u"<TD align='center'>ME/LZ/AG</TD>"_s,
                                   u"<TD align='center'>ZEIT</TD>"_s,
                                   u"<TD align='center'>NOTIZ</TD>"_s,
                                   u"</TR>"_s,
                                   u"</THEAD>"_s,
                                   u"</TABLE>"_s,
                                   u"</div>"_s,
                                   u"</BODY>"_s,
                                   u"</HTML>"_s,
                                   QString()};
        QCOMPARE(body, expected);
    }

    void thePageOfTheTagesplanNotes() {
        usePupils();
        addDayPlanNote(1, kEinheit, u"DI"_s, u"Förderung"_s);
        addDayPlanNote(2, kEinheit, u"MO"_s, u"Logopädie"_s);
        const QStringList body = produced(kNotizenTagesplan);
        QVERIFY(body.contains(u"<h1>NOTIZEN TAGESPLAN</h1>"_s));
        QCOMPARE(body.filter(u"align='center'"_s),
                 QStringList({u"<TD align='center'>NAME</TD>"_s, u"<TD align='center'>KLASSE</TD>"_s,
                              u"<TD align='center'>TAG</TD>"_s, u"<TD align='center'>UE</TD>"_s,
                              u"<TD align='center'>NOTIZ</TD>"_s}));
        QCOMPARE(rowClasses(body), QStringList({u"Stammdaten1"_s, u"Stammdaten2"_s}));
        const qsizetype row = body.indexOf(uR"(<TR class="Stammdaten1">)"_s);
        QCOMPARE(
            body.sliced(row + 1, 6),
            QStringList({u"<TD WIDTH=135pt ALIGN=left>Adler Bert</TD>"_s,
                         u"<TD WIDTH=45pt ALIGN=center>2b</TD>"_s, u"<TD WIDTH=45pt ALIGN=center>MO</TD>"_s,
                         u"<TD WIDTH=90pt ALIGN=center>08:00 - 08:45</TD>"_s,
                         u"<TD WIDTH=225pt ALIGN=left>Logopädie</TD>"_s, u"</TR>"_s}));
    }

    void theSpreadsheetHeadsTheColumnsInItsOwnWords() {
        usePupils();
        gathered(kNotizenZuweisungen);
        QCOMPARE(Liste().SpaltenText(2), u"KLASSE"_s);
        QCOMPARE(Liste().SpaltenText(4), u"L_NAME"_s);
    }
};

KOLIBRI_TEST_MAIN(NoteListsTest)
#include "note_lists_test.moc"
