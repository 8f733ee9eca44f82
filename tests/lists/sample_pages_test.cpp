// Whole pages of the sample school beside the expected ones. A page that has changed on purpose is written
// anew with KOLIBRI_UPDATE_EXPECTED=1 and read before it is kept.

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "lists/list_helpers.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "support/expected_page.h"
#include "support/test_base.h"

#include <functional>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

/// Small enough to be read through, large enough for every kind of row.
constexpr int kPupils = 40;
/// A pupil with two contact persons, a remark in rich text and working groups.
constexpr qint64 kPupilOfTheSheet = 33;

void chooseNothing(DialogOptions&) {}

void chooseEverything(DialogOptions& options) {
    options.chkKontakteNeu = options.chkBaustein = options.chkSchwimmer = options.chkKennung = true;
    options.chkKlasse = options.chkGebDatum = options.chkBeiträge = true;
    options.cmbKontakte = {u"Name"_s, u"Telefon"_s, QString()};
    options.optEbene = 2;
    options.cmbSortieren = {u"Klasse"_s, u"Nachname"_s};
    options.optFormat = PaperOrientation::Across;
}

void chooseOneClass(DialogOptions& options) {
    options.optFiltern = PupilFilter::KlassenNr;
    options.cmbFiltern[2] = u"a"_s;
    options.cmbSortieren[0] = u"Vorname"_s;
}

using Choose = void (*)(DialogOptions&);
/// Chooses what the option form of a list would.
using Ask = std::function<void()>;

/// The first offering of a list, in one of the variants, for the classes of letter a or for class 2a.
Ask care(quint8 listenArt, CareVariant variant) {
    return [=] {
        Global().ListenUnterArt = variant;
        CareOptions& options = Liste().MensaLernzeit;
        const DbSession session(u"Test"_s);
        for (const auto& offering : careOfferings(listenArt))
            options.lstME_LZ << careEntry(offering.langname, offering.zeitKName);
        options.cmbME_LZ = careOfferings(listenArt).front().langname;
        readCareOffering(listenArt, options);
        options.cmbKlasse = variant == kKlassenGruppiert ? u"a"_s : u"2a"_s;
        options.txtVon = u"16.11.2026"_s;
        options.txtBis = u"20.11.2026"_s;
        options.texte = careTexts(options);
    };
}

Ask withoutFriday(const Ask& ask) {
    return [=] {
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(u"Stammdaten"_s, {{u"GR1_FR"_s, u""_s}, {u"GR2_FR"_s, u""_s}});
        }
        ask();
    };
}

/// A group with classes that stay away, a pupil who holds it in two slots, and a note.
void askForGroup() {
    GroupOptions& options = Liste().Arbeitsgruppe;
    const DbSession session(u"Test"_s);
    auto& conn = Global().Conn;
    const GroupEntry group = groupEntries().front();
    readGroup(group, options);
    options.txtDatum = readDatesOf(group.langname).value_or(readLastDates());
    options.txtDatum[5] = u"Ausflug"_s;
    options.lstNichtTeilnehmen[1] = {u"1a"_s, u"2a"_s};
    options.lstNichtTeilnehmen[4] = {u"2a"_s};
    for (const int pupil : {3, 4, 7, 12})
        conn.Change(u"Stammdaten"_s,
                    {{u"GR3_"_s + group.tag, group.zeitKName}, {u"GR6_"_s + group.tag, group.zeitKName}},
                    u"ID = ?"_s, {pupil});
    conn.AddNew(u"SCH_Notiz"_s)
        .Set(u"SCH_ID"_s, 4)
        .Set(u"GR"_s, u"GR3"_s)
        .Set(u"Tag"_s, group.tag)
        .Set(u"L_Name"_s, group.langname)
        .Set(u"Zeit"_s, group.zeit)
        .Set(u"Zeit_K_Name"_s, group.zeitKName)
        .Set(u"Notiz"_s, u"wird um 15 Uhr abgeholt"_s)
        .Update();
}

Ask dayPlan(const QString& days, bool twoDays = false, const QString& grade = kAlleSchulstufen) {
    return [=] { Liste().Wochenplan = {u"A"_s, days, twoDays, grade}; };
}

/// The pupils of this class keep the end of teaching of those above them.
void askForPlanWithAClassWithoutRows() {
    {
        const DbSession session(u"Test"_s);
        Global().Conn.Delete(u"Klassen"_s, u"Klasse = ?"_s, {u"3a"_s});
    }
    dayPlan(u"DO"_s)();
}

/// Two classes, or the first Mensa for all classes, on a day or in the whole week.
Ask mensaPupils(int day, bool withTime) {
    return [=] {
        MensaPupilOptions& options = Liste().MensaSchueler;
        options.chkMensaMitZeit = withTime;
        options.lstKlassen = {u"1A"_s, u"2A"_s};
        options.optTag = day;
        Global().ListenArt = kMensaJeSchueler;
        FreitagBelegt_Pruefen();
        const DbSession session(u"Test"_s);
        KlassenListenLaden();
        options.lstKlassenIndividuell = namesInCapitals(Global().KlassenListe);
        options.cmbMensa = careOfferings(kListeMensa).front().langname;
    };
}

} // namespace

Q_DECLARE_METATYPE(Choose)
Q_DECLARE_METATYPE(Ask)

class SamplePagesTest : public TestBase {
    Q_OBJECT

private:
    void useSchool() {
        useSampleSchool(kPupils);
        auto& global = Global();
        global.SchuleOrganisation = u"OGS Müllerstraße"_s;
        global.SchuleStrasse = u"Müllerstraße 12"_s;
        global.SchulePLZOrt = u"52062 Aachen"_s;
        global.NameKurz.fill(u"Ungekürzt"_s);
        global.NameZuerst.fill(u"Vorname Nachname"_s);
    }

    static void comparePage(int listenArt) {
        prepareList(static_cast<quint8>(listenArt));
        producePage();
        compareWithExpected(pageBytes(),
                            u"seite_"_s + QString::fromLatin1(QTest::currentDataTag()) + u".html"_s);
    }

private Q_SLOTS:
    void thePagesAreTheExpectedOnes_data() {
        QTest::addColumn<int>("listenArt");
        QTest::addColumn<Choose>("choose");
        const auto row = [](const char* file, int listenArt, Choose choose = chooseNothing) {
            QTest::newRow(file) << listenArt << choose;
        };
        row("unterrichtszeiten", kUnterrichtszeiten);
        row("stammdatenblatt", kStammdatenBlatt);
        row("bausteine", kBausteine);
        row("schulanfaenger", kSchulanfaenger);
        row("schulanfaenger_alles", kSchulanfaenger, chooseEverything);
        row("namensliste", kNamensliste);
        row("namensliste_klassen_a", kNamensliste, chooseOneClass);
        row("neue_schueler", kNeueSchueler, chooseEverything);
        row("nicht_og_schueler", kNichtOgSchueler);
        row("erweiterte_liste", kErweiterteListe);
        row("erweiterte_liste_alles", kErweiterteListe, chooseEverything);
    }
    void thePagesAreTheExpectedOnes() {
        QFETCH(const int, listenArt);
        QFETCH(const Choose, choose);
        useSchool();
        Liste().BlattSchuelerID = kPupilOfTheSheet;
        choose(Liste().Dialog);
        comparePage(listenArt);
    }

    void thePagesOfOfferingsAreTheExpectedOnes_data() {
        QTest::addColumn<int>("listenArt");
        QTest::addColumn<Ask>("ask");
        const auto row = [](const char* file, int listenArt, const Ask& ask) {
            QTest::newRow(file) << listenArt << ask;
        };
        row("mensa_klassen_gruppiert", kListeMensa, care(kListeMensa, kKlassenGruppiert));
        row("mensa_einheiten", kListeMensa, care(kListeMensa, kEinheiten));
        row("mensa_klasse", kListeMensa, care(kListeMensa, kEineKlasse));
        row("mensa_klassen_gruppiert_ohne_fr", kListeMensa,
            withoutFriday(care(kListeMensa, kKlassenGruppiert)));
        row("mensa_einheiten_ohne_fr", kListeMensa, withoutFriday(care(kListeMensa, kEinheiten)));
        row("mensa_klasse_ohne_fr", kListeMensa, withoutFriday(care(kListeMensa, kEineKlasse)));
        row("lernzeit_klassen_gruppiert", kListeLernzeit, care(kListeLernzeit, kKlassenGruppiert));
        row("lernzeit_einheiten", kListeLernzeit, care(kListeLernzeit, kEinheiten));
        row("lernzeit_klasse", kListeLernzeit, care(kListeLernzeit, kEineKlasse));
        row("lernzeit_klassen_gruppiert_ohne_fr", kListeLernzeit,
            withoutFriday(care(kListeLernzeit, kKlassenGruppiert)));
        row("lernzeit_einheiten_ohne_fr", kListeLernzeit, withoutFriday(care(kListeLernzeit, kEinheiten)));
        row("lernzeit_klasse_ohne_fr", kListeLernzeit, withoutFriday(care(kListeLernzeit, kEineKlasse)));
        row("arbeitsgruppe", kListeArbeitsgruppe, askForGroup);
        row("tagesplan_mo", kTagesplan, dayPlan(u"MO"_s));
        row("tagesplan_di_stufe_2", kTagesplan, dayPlan(u"DI"_s, false, u"2"_s));
        row("tagesplan_mo_di", kTagesplan, dayPlan(u"MO/DI"_s, true));
        row("tagesplan_fr_zwei_tage", kTagesplan, dayPlan(u"FR"_s, true));
        row("tagesplan_klasse_ohne_zeiten", kTagesplan, askForPlanWithAClassWithoutRows);
        row("mensa_je_schueler", kMensaJeSchueler, mensaPupils(0, false));
        row("mensa_je_schueler_zeit", kMensaJeSchueler, mensaPupils(0, true));
        row("mensa_woche", kMensaWoche, mensaPupils(kWholeWeek, false));
        row("mensa_woche_zeit", kMensaWoche, mensaPupils(kWholeWeek, true));
        row("mensa_tag", kMensaTag, mensaPupils(2, false));
        row("mensa_tag_zeit", kMensaTag, mensaPupils(2, true));
    }
    void thePagesOfOfferingsAreTheExpectedOnes() {
        QFETCH(const int, listenArt);
        QFETCH(const Ask, ask);
        useSchool();
        ask();
        comparePage(listenArt);
    }
};

KOLIBRI_TEST_MAIN(SamplePagesTest)
#include "sample_pages_test.moc"
