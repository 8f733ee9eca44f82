#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "lists/care/mensa_pupils.h"
#include "lists/list_helpers.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kFrueh = u"13:00 - 14:00 ME1"_s;
const QString kSpaet = u"13:30 - 14:00 ME2"_s;

/// The page of a list, which is gathered only while it is written.
QStringList page(quint8 listenArt) {
    Global().ListenArt = listenArt;
    FreitagBelegt_Pruefen();
    return produced(listenArt);
}

QStringList rows(quint8 listenArt) {
    page(listenArt);
    return listRows();
}

void addMensa(const QString& langname, const QString& kurzname, const QString& zeit) {
    addOffering(u"GR1"_s, langname, kurzname, u"MO"_s, zeit);
}

void chooseMensa(const QStringList& classes, int tag) {
    MensaPupilOptions& options = Liste().MensaSchueler;
    options.lstKlassenIndividuell = classes;
    options.optTag = tag;
    options.cmbMensa = u"Mensa früh"_s;
}

} // namespace

class MensaPupilsTest : public TestBase {
    Q_OBJECT

private:
    void useSchool() {
        useEmptyDatabase();
        Global().NameKurz.fill(u"Ungekürzt"_s);
        Global().NameZuerst.fill(u"Vorname Nachname"_s);
        addMensa(u"Mensa früh"_s, u"ME1"_s, u"13:00 - 14:00"_s);
        addMensa(u"Mensa spät"_s, u"ME2"_s, u"13:30 - 14:00"_s);
    }

private Q_SLOTS:
    void aPupilWithoutMensaDoesNotAppearWhileTheTableOfTheClassDoes() {
        useSchool();
        addPupil(u"Ohne"_s, u"Anna"_s, u"2a"_s);
        Liste().MensaSchueler.lstKlassen = {u"2A"_s};
        const QStringList body = page(kMensaJeSchueler);
        QCOMPARE(listRows(), QStringList({u"21: 2A |  |  |  | "_s, u":  |  |  |  | "_s}));
        QVERIFY(body.contains(u"<H1>MENSA - KLASSE: 2A</H1><br>"_s));
        QVERIFY(body.contains(u"<TR class=\"KopfZeile\">"_s));
        QVERIFY(body.filter(u"Liste_MensaJeSchülerM"_s).isEmpty());
        QCOMPARE(body.count(u"</TABLE>"_s), 1);
    }

    void theWeekOfEachPupilByFirstName() {
        useSchool();
        addPupil(u"N"_s, u"Berta"_s, u"2a"_s, {{u"GR1_MO"_s, kFrueh}, {u"GR1_FR"_s, kSpaet}});
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR1_DI"_s, kSpaet}, {u"aktiv"_s, false}});
        addPupil(u"N"_s, u"Fremd"_s, u"2b"_s, {{u"GR1_DI"_s, kSpaet}});
        addPupil(u"N"_s, u"Cem"_s, u"2a"_s, {{u"GR1_DO"_s, u"09:00 - 10:00 weg"_s}});
        Liste().MensaSchueler.lstKlassen = {u"2A"_s};
        QCOMPARE(rows(kMensaJeSchueler),
                 QStringList({u"21: 2A |  |  |  |  | "_s, u"1: Anna N |  | ME2 |  |  | "_s,
                              u"1: Berta N | ME1 |  |  |  | ME2"_s, u"1: Cem N |  |  |  |  | "_s,
                              u":  |  |  |  |  | "_s}));
    }

    void theFridayColumnIsMissingWhenNobodyEatsOnFridays() {
        useSchool();
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR1_MO"_s, kFrueh}});
        Liste().MensaSchueler.lstKlassen = {u"2A"_s};
        const QStringList body = page(kMensaJeSchueler);
        QCOMPARE(Liste().SpaltenAnzahl, 5);
        QVERIFY(body.filter(u">FR</TD>"_s).isEmpty());
        addPupil(u"N"_s, u"Fremd"_s, u"4b"_s, {{u"GR1_FR"_s, kFrueh}});
        QCOMPARE(page(kMensaJeSchueler).filter(u">FR</TD>"_s).size(), 1);
    }

    void withTimeACellShowsTheTimeAboveTheName() {
        useSchool();
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR1_MO"_s, kFrueh}});
        Liste().MensaSchueler.lstKlassen = {u"2A"_s};
        Liste().MensaSchueler.chkMensaMitZeit = true;
        rows(kMensaJeSchueler);
        QCOMPARE(Liste().Daten(2, 2), u"13:00-14:00<br /> ME1"_s);
        // The lists of one Mensa have no such box, and follow this one.
        chooseMensa({u"2A"_s}, 0);
        rows(kMensaTag);
        QCOMPARE(Liste().Daten(4, 2), u"13:00-14:00<br /> ME1"_s);
        rows(kMensaWoche);
        QCOMPARE(Liste().Daten(4, 2), u"13:00-14:00<br /> ME1"_s);
    }

    void everyClassButTheLastEndsItsSheet() {
        useSchool();
        Liste().MensaSchueler.lstKlassen = {u"1A"_s, u"2A"_s, u"3A"_s};
        QCOMPARE(page(kMensaJeSchueler).filter(u"<TABLE"_s),
                 QStringList({u"<TABLE class=\"SeitenumbruchAfter\">"_s,
                              u"<TABLE class=\"SeitenumbruchAfter\">"_s, u"<TABLE class=\"Tpt\">"_s}));
    }

    void theWholeBodyOfAClass() {
        useSchool();
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR1_MO"_s, kFrueh}});
        Liste().MensaSchueler.lstKlassen = {u"2A"_s};
        const auto cell = [](int width, const QString& align, const QString& text) {
            return u"<TD WIDTH=%1pt ALIGN=%2>%3</TD>"_s.arg(width).arg(align, text);
        };
        QStringList expected{u"<BODY>"_s,
                             u"<div id=\"kopf_anschrift\">"_s,
                             u"</div>"_s,
                             u"<div id='box_table'>"_s,
                             u"<div id=\"kopf_mitte\">"_s,
                             u"<H1>MENSA - KLASSE: 2A</H1><br>"_s,
                             u"</div>"_s,
                             u"<TABLE class=\"Tpt\">"_s,
                             u"<THEAD>"_s,
                             u"<TR class=\"KopfZeile\">"_s,
                             cell(144, u"left"_s, u"NAME"_s)};
        for (const auto& day : {u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s})
            expected << cell(96, u"center"_s, day);
        expected << u"</TR>"_s << u"</THEAD>"_s << u"<TR class=\"Liste_MensaJeSchülerM\">"_s
                 << cell(144, u"left"_s, u"Anna N"_s) << cell(96, u"center"_s, u"ME1"_s);
        for (int day = 1; day < 4; ++day)
            expected << cell(96, u"center"_s, QString());
        expected << u"</TR>"_s << u"</TABLE>"_s << u"</br>"_s << u"</div>"_s << u"</BODY>"_s << u"</HTML>"_s
                 << QString();
        QCOMPARE(page(kMensaJeSchueler), expected);
    }

    void theBoundsAreSixtyClassesAndNineHundredNinetyNineRows() {
        useSchool();
        QStringList& classes = Liste().MensaSchueler.lstKlassen;
        for (int i = 0; i < 60; ++i)
            classes << u"%1a"_s.arg(i + 1);
        QCOMPARE(rows(kMensaJeSchueler).size(), 120);
        classes << u"61a"_s;
        const auto failure = [] {
            try {
                page(kMensaJeSchueler);
            } catch (const RuntimeError& error) {
                return error.number();
            }
            return 0;
        };
        QCOMPARE(failure(), 9);
        classes = QStringList{u"1a"_s};
        {
            const DbSession session(u"Test"_s);
            Transaction transaction(Global().Conn);
            for (int i = 0; i < 997; ++i)
                Global()
                    .Conn.AddNew(u"Stammdaten"_s)
                    .Set(u"Klasse"_s, u"1a"_s)
                    .Set(u"GR1_MO"_s, kFrueh)
                    .Update();
            transaction.Commit();
        }
        QCOMPARE(failure(), 0);
        QCOMPARE(Liste().ZeilenAnzahl, 999);
        addPupil(u"N"_s, u"N"_s, u"1a"_s, {{u"GR1_MO"_s, kFrueh}});
        QCOMPARE(failure(), 9);
    }

    void theWeekOfOneMensa() {
        useSchool();
        addPupil(u"N"_s, u"Berta"_s, u"2a"_s, {{u"GR1_MO"_s, kFrueh}, {u"GR1_DI"_s, kSpaet}});
        addPupil(u"N"_s, u"Anna"_s, u"3b"_s, {{u"GR1_FR"_s, kFrueh}, {u"aktiv"_s, false}});
        addPupil(u"N"_s, u"Cem"_s, u"2a"_s, {{u"GR1_MO"_s, kSpaet}});
        addPupil(u"N"_s, u"Fremd"_s, u"4a"_s, {{u"GR1_MO"_s, kFrueh}});
        chooseMensa({u"2A"_s, u"3B"_s}, kWholeWeek);
        QCOMPARE(
            rows(kMensaWoche),
            QStringList({u"21: MENSA FRÜH |  |  |  |  |  |  | "_s, u"1: Anna N | 3b |  |  |  |  |  | ME1"_s,
                         u"1: Berta N | 2a |  | ME1 |  |  |  | "_s, u":  |  |  |  |  |  |  | "_s}));
        QVERIFY(page(kMensaWoche).contains(u"<H1>MENSA FRÜH</H1><br>"_s));
    }

    void oneMensaOnOneDay() {
        useSchool();
        addPupil(u"N"_s, u"Berta"_s, u"2a"_s, {{u"GR1_DI"_s, kFrueh}});
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR1_MO"_s, kFrueh}, {u"GR1_DI"_s, kSpaet}});
        chooseMensa({u"2A"_s}, 1);
        QCOMPARE(rows(kMensaTag), QStringList({u"21: MENSA FRÜH - DI |  |  | "_s,
                                               u"1: Berta N | 2a |  | ME1"_s, u":  |  |  | "_s}));
    }

    void aPupilWithTwoNotesShowsOnlyTheFirst() {
        useSchool();
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR1_MO"_s, kFrueh}, {u"GR1_MI"_s, kFrueh}});
        const auto note = [](const QString& gr, const QString& tag, const QString& name,
                             const QString& text) {
            addAssignmentNote(1, gr, tag, name, u"13:00 - 14:00"_s, u"ME1"_s, text);
        };
        note(u"GR2"_s, u"MO"_s, u"Mensa früh"_s, u"andere Gruppe"_s);
        note(u"GR1"_s, u"MO"_s, u"Mensa spät"_s, u"anderer Name"_s);
        note(u"GR1"_s, u"MI"_s, u"Mensa früh"_s, u"mittwochs"_s);
        note(u"GR1"_s, u"MO"_s, u"Mensa früh"_s, u"montags"_s);
        note(u"GR1"_s, u"MO"_s, u"Mensa früh"_s, u"noch eine"_s);
        chooseMensa({u"2A"_s}, kWholeWeek);
        rows(kMensaWoche);
        QCOMPARE(Liste().Daten(3, 2), u"mittwochs"_s);
        chooseMensa({u"2A"_s}, 0);
        rows(kMensaTag);
        QCOMPARE(Liste().Daten(3, 2), u"montags"_s);
        chooseMensa({u"2A"_s}, 2);
        rows(kMensaTag);
        QCOMPARE(Liste().Daten(3, 2), u"mittwochs"_s);
    }

    void aSecondTimeOfTheSameNameIsNotListed() {
        useSchool();
        addMensa(u"Mensa früh"_s, u"ME1"_s, u"12:00 - 12:30"_s);
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR1_MO"_s, u"12:00 - 12:30 ME1"_s}});
        addPupil(u"N"_s, u"Berta"_s, u"2a"_s, {{u"GR1_MO"_s, kFrueh}});
        chooseMensa({u"2A"_s}, 0);
        QCOMPARE(rows(kMensaTag).size(), 3);
        QCOMPARE(Liste().Daten(1, 2), u"Berta N"_s);
    }

    void withoutAClassTheListIsEmpty_data() {
        QTest::addColumn<int>("listenArt");
        QTest::newRow("week") << int(kMensaWoche);
        QTest::newRow("day") << int(kMensaTag);
    }
    void withoutAClassTheListIsEmpty() {
        QFETCH(const int, listenArt);
        useSchool();
        // A school starter may have no class, and is not meant.
        addPupil(u"N"_s, u"Anna"_s, u"2a"_s, {{u"GR1_MO"_s, kFrueh}, {u"Klasse"_s, u""_s}});
        chooseMensa({}, 0);
        QCOMPARE(rows(static_cast<quint8>(listenArt)).size(), 2);
        QVERIFY(bodyLines().contains(u"<TR class=\"KopfZeile\">"_s));
    }

    void aNameWithoutAMensaIsToldAndGivesAnEmptyPage_data() { withoutAClassTheListIsEmpty_data(); }
    void aNameWithoutAMensaIsToldAndGivesAnEmptyPage() {
        QFETCH(const int, listenArt);
        useSchool();
        chooseMensa({u"2A"_s}, 0);
        Liste().MensaSchueler.cmbMensa = u"Kantine"_s;
        doorsOfTest.expect(u"Kein Kurzname für die Mensa gefunden!"_s);
        const QStringList body = page(static_cast<quint8>(listenArt));
        QCOMPARE(Liste().ZeilenAnzahl, 0);
        QCOMPARE(body.mid(3), QStringList({u"<div id='box_table'>"_s, u"</div>"_s, u"</BODY>"_s, u"</HTML>"_s,
                                           QString()}));
    }

    void manyClassesAreAskedForAtOnce() {
        useSchool();
        QStringList classes;
        for (int i = 0; i < 80; ++i)
            classes << u"%1a"_s.arg(i + 1);
        addPupil(u"N"_s, u"Anna"_s, u"80a"_s, {{u"GR1_MO"_s, kFrueh}});
        chooseMensa(classes, 0);
        QCOMPARE(rows(kMensaTag).size(), 3);
    }
};

KOLIBRI_TEST_MAIN(MensaPupilsTest)
#include "mensa_pupils_test.moc"
