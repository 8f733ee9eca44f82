// Whole pages of the sample school beside the expected ones. A page that has changed on purpose is written
// anew with KOLIBRI_UPDATE_EXPECTED=1 and read before it is kept.

#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "support/expected_page.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

/// Small enough to be read through, large enough for every kind of row.
constexpr int kPupils = 40;
/// A pupil with three contact persons, an emergency number and a working group.
constexpr qint64 kPupilOfTheSheet = 17;

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

} // namespace

Q_DECLARE_METATYPE(Choose)

class SamplePagesTest : public TestBase {
    Q_OBJECT

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
        useSampleSchool(kPupils);
        auto& global = Global();
        global.SchuleOrganisation = u"OGS Müllerstraße"_s;
        global.SchuleStrasse = u"Müllerstraße 12"_s;
        global.SchulePLZOrt = u"52062 Aachen"_s;
        Liste().BlattSchuelerID = kPupilOfTheSheet;
        choose(Liste().Dialog);
        prepareList(static_cast<quint8>(listenArt));
        producePage();
        compareWithExpected(pageBytes(),
                            u"seite_"_s + QString::fromLatin1(QTest::currentDataTag()) + u".html"_s);
    }
};

KOLIBRI_TEST_MAIN(SamplePagesTest)
#include "sample_pages_test.moc"
