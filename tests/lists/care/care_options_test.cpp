#include "core/mdlAllgemein.h"
#include "core/widgets/application.h"
#include "lists/care/care_options.h"
#include "lists/list_numbers.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

CareOptions chosen(const QString& klasse, const QString& zeit, const QString& kurzname) {
    CareOptions options;
    options.cmbKlasse = klasse;
    options.cmbME_LZ = u"Mensa "_s + kurzname;
    options.txtZeit = zeit;
    options.txtK_Name = kurzname;
    options.txtZeit_K_Name = zeit + u' ' + kurzname;
    return options;
}

void save(quint8 listenArt, CareOptions options, const ListTexts& texts) {
    const DbSession session(u"Test"_s);
    options.texte = texts;
    saveCareTexts(listenArt, options);
}

ListTexts read(const CareOptions& options) {
    const DbSession session(u"Test"_s);
    return careTexts(options);
}

} // namespace

class CareOptionsTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void anEntryGivesItsNameAndItsKeyBack_data() {
        QTest::addColumn<QString>("langname");
        QTest::newRow("plain") << u"Mensa früh"_s;
        QTest::newRow("brackets") << u"Mensa (Halle)  (groß)"_s;
        QTest::newRow("empty") << QString();
    }
    void anEntryGivesItsNameAndItsKeyBack() {
        QFETCH(const QString, langname);
        const QString entry = careEntry(langname, u"13:00 - 13:45 ME1"_s);
        QCOMPARE(entry, langname + u"  (13:00 - 13:45 ME1)"_s);
        QCOMPARE(splitCareEntry(entry).langname, langname);
        QCOMPARE(splitCareEntry(entry).zeitKName, u"13:00 - 13:45 ME1"_s);
    }

    void theBoxListsEachNameAndTimeOnce() {
        useEmptyDatabase();
        for (const auto& tag : {u"MO"_s, u"DI"_s}) {
            addOffering(u"GR1"_s, u"Spät"_s, u"ME2"_s, tag, u"13:30 - 14:00"_s);
            addOffering(u"GR1"_s, u"Früh"_s, u"ME1"_s, tag, u"12:00 - 12:30"_s);
        }
        addOffering(u"GR1"_s, u"Früh"_s, u"ME1"_s, u"MI"_s, u"12:30 - 13:00"_s);
        addOffering(u"GR2"_s, u"Lernen"_s, u"LZ"_s, u"MI"_s, u"14:00 - 15:00"_s);
        const DbSession session(u"Test"_s);
        QStringList names;
        for (const auto& offering : careOfferings(kListeMensa))
            names << careEntry(offering.langname, offering.zeitKName);
        names.sort();
        QCOMPARE(names, QStringList({u"Früh  (12:00 - 12:30 ME1)"_s, u"Früh  (12:30 - 13:00 ME1)"_s,
                                     u"Spät  (13:30 - 14:00 ME2)"_s}));
        QCOMPARE(careOfferings(kListeMensa).back().langname, u"Spät"_s);
        QCOMPARE(careOfferings(kListeLernzeit).size(), std::size_t(1));
    }

    void aLongNameStandsForItsFirstTime() {
        useEmptyDatabase();
        addOffering(u"GR1"_s, u"Früh"_s, u"ME1"_s, u"MO"_s, u"12:00 - 12:30"_s);
        addOffering(u"GR1"_s, u"Früh"_s, u"ME9"_s, u"DI"_s, u"12:30 - 13:00"_s);
        CareOptions options;
        options.cmbME_LZ = u"Früh"_s;
        const DbSession session(u"Test"_s);
        readCareOffering(kListeMensa, options);
        QCOMPARE(options.txtZeit, u"12:00 - 12:30"_s);
        QCOMPARE(options.txtZeit_K_Name, u"12:00 - 12:30 ME1"_s);
        QCOMPARE(options.txtK_Name, u"ME1"_s);
        readCareOffering(kListeLernzeit, options);
        QCOMPARE(options.txtZeit + options.txtZeit_K_Name + options.txtK_Name, QString());
    }

    void theTextsBelongToClassAndTimeWhateverTheKind() {
        useEmptyDatabase();
        const CareOptions mensa = chosen(u"A"_s, u"13:00 - 13:45"_s, u"ME1"_s);
        CareOptions lernzeit = mensa;
        lernzeit.txtZeit_K_Name = u"13:00 - 13:45 LZ1"_s;
        lernzeit.txtK_Name = u"LZ1"_s;
        save(kListeMensa, mensa, {u"vor"_s, u"nach"_s});
        QCOMPARE(read(lernzeit), (ListTexts{u"vor"_s, u"nach"_s}));
        save(kListeLernzeit, lernzeit, {u"neu"_s, u"nach"_s});
        QCOMPARE(read(mensa), (ListTexts{u"neu"_s, u"nach"_s}));
        QCOMPARE(rowsOf(u"ME_LZ_AG_Notizen"_s),
                 QStringList{u"ID=1; Typ=Mensa; Klasse=A; Tag=<null>; Zeit=13:00 - 13:45; K_Name=ME1; "
                             "L_Name=Mensa ME1; Zeit_K_Name=13:00 - 13:45 ME1; Betreuer=<null>; Ort=<null>; "
                             "Anmerkung_V=neu; Anmerkung_N=nach"_s});
    }

    void anotherClassOrTimeHasItsOwnTexts() {
        useEmptyDatabase();
        save(kListeLernzeit, chosen(u"A"_s, u"13:00 - 13:45"_s, u"LZ"_s), {u"a"_s, QString()});
        save(kListeLernzeit, chosen(u"B"_s, u"13:00 - 13:45"_s, u"LZ"_s), {u"b"_s, QString()});
        save(kListeLernzeit, chosen(u"A"_s, u"14:00 - 14:45"_s, u"LZ"_s), {u"c"_s, QString()});
        QCOMPARE(read(chosen(u"A"_s, u"13:00 - 13:45"_s, u"LZ"_s)).vorher, u"a"_s);
        QCOMPARE(read(chosen(u"b"_s, u"13:00 - 13:45"_s, u"LZ"_s)).vorher, u"b"_s);
        QCOMPARE(read(chosen(u"A"_s, u"14:00 - 14:45"_s, u"LZ"_s)).vorher, u"c"_s);
        QCOMPARE(read(chosen(u"C"_s, u"13:00 - 13:45"_s, u"LZ"_s)), ListTexts{});
        QVERIFY(rowsOf(u"ME_LZ_AG_Notizen"_s).first().contains(u"Typ=Lernzeit"_s));
    }

    void withoutClassOrOfferingNothingIsKept() {
        useEmptyDatabase();
        save(kListeMensa, chosen(QString(), u"13:00 - 13:45"_s, u"ME1"_s), {u"a"_s, QString()});
        save(kListeMensa,
             [] {
                 CareOptions options;
                 options.cmbKlasse = u"A"_s;
                 return options;
             }(),
             {u"a"_s, QString()});
        QCOMPARE(rowsOf(u"ME_LZ_AG_Notizen"_s), QStringList());
    }

    void onlyTheListOfUnitsNeedsAMark() {
        CareOptions options;
        QCOMPARE(missingCareChoice(kEinheiten, options), u"Sie haben keine Markierung vorgenommen!"_s);
        QCOMPARE(missingCareChoice(kEineKlasse, options), QString());
        QCOMPARE(missingCareChoice(kKlassenGruppiert, options), QString());
        options.lstME_LZ << u"x"_s;
        QCOMPARE(missingCareChoice(kEinheiten, options), QString());
    }
};

KOLIBRI_TEST_MAIN(CareOptionsTest)
#include "care_options_test.moc"
