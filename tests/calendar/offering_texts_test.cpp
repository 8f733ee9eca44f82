#include "calendar/offering_cascades.h"
#include "calendar/offering_texts.h"
#include "core/widgets/application.h"
#include "lists/care/care_options.h"
#include "lists/groups/group_options.h"
#include "support/driving.h"
#include "support/expected_state.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

constexpr auto kMensa = OfferingKind::Mensa;
constexpr auto kLernzeit = OfferingKind::Lernzeit;
constexpr auto kGroup = OfferingKind::Arbeitsgruppe;

void addTime(const QString& table, const QString& name, const QString& tag, const QString& zeit) {
    addRow(table, {{u"L_Name"_s, u"Lang "_s + name},
                   {u"K_Name"_s, name},
                   {u"Tag"_s, tag},
                   {u"Zeit_von"_s, zeit.first(5)},
                   {u"Zeit_bis"_s, zeit.last(5)},
                   {u"Zeit"_s, zeit},
                   {u"Zeit_K_Name"_s, zeit + u' ' + name},
                   {u"Betreuer"_s, u"Frau Weiß"_s},
                   {u"Ort"_s, u"Aula"_s}});
}

TextOffering offering(OfferingKind kind, const QString& name, const QString& letter = {}) {
    const DbSession session(u"Test"_s);
    TextOffering result = Angebot_Einlesen(kind, name);
    result.Klasse = letter;
    return result;
}

ListTexts read(const TextOffering& of) {
    const DbSession session(u"Test"_s);
    return Text_Einlesen(of);
}

void save(const TextOffering& of, const ListTexts& texts) {
    const DbSession session(u"Test"_s);
    Text_Speichern(of, texts);
}

QStringList rows() {
    return rowsOf(u"ME_LZ_AG_Notizen"_s);
}

} // namespace

class OfferingTextsTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        TestBase::init();
        useEmptyDatabase();
        for (const auto& table : {u"GR1"_s, u"GR2"_s}) {
            addTime(table, u"Z2"_s, u"MO"_s, u"13:00 - 13:45"_s);
            addTime(table, u"Z2"_s, u"DI"_s, u"13:00 - 13:45"_s);
            addTime(table, u"Z1"_s, u"MO"_s, u"12:00 - 12:45"_s);
            addTime(table, u"Z2"_s, u"MI"_s, u"14:00 - 14:45"_s);
        }
        addTime(u"GR3"_s, u"TANZ"_s, u"DI"_s, u"15:00 - 16:00"_s);
        addTime(u"GR3"_s, u"CHOR"_s, u"MO"_s, u"15:00 - 16:00"_s);
        addTime(u"GR3"_s, u"TANZ"_s, u"MO"_s, u"14:00 - 15:00"_s);
    }

    void offeringsStandByTimeAndOneWithTwoTimesTwice() {
        const DbSession session(u"Test"_s);
        const QStringList names{u"Lang Z1"_s, u"Lang Z2"_s, u"Lang Z2"_s};
        QCOMPARE(Zeiten_GR1_Einlesen(), names);
        QCOMPARE(Zeiten_GR2_Einlesen(), names);
        QCOMPARE(Klassen_einlesen(), QStringList({u"A"_s, u"B"_s, u"C"_s, u"D"_s}));
    }

    void aGroupOnTwoDaysStandsTwice() {
        const DbSession session(u"Test"_s);
        QCOMPARE(AGs_Einlesen(), QStringList({u"Lang CHOR"_s, u"Lang TANZ"_s, u"Lang TANZ"_s}));
    }

    void theFirstRowOfALongNameCounts() {
        const TextOffering mensa = offering(kMensa, u"Lang Z2"_s);
        QCOMPARE(mensa.Zeit, u"13:00 - 13:45"_s);
        QCOMPARE(mensa.Zeit_K_Name, u"13:00 - 13:45 Z2"_s);
        QCOMPARE(mensa.K_Name, u"Z2"_s);
        const TextOffering group = offering(kGroup, u"Lang TANZ"_s);
        QCOMPARE(group.Tag, u"DI"_s);
        QCOMPARE(group.Betreuer, u"Frau Weiß"_s);
        QCOMPARE(group.Ort, u"Aula"_s);
        const TextOffering none = offering(kLernzeit, u"Lang"_s);
        QCOMPARE(none.L_Name, u"Lang"_s);
        QCOMPARE(none.Zeit + none.Zeit_K_Name + none.K_Name, QString());
    }

    void theFirstSaveOfALetterAddsARowAndTheNextChangesIt() {
        save(offering(kMensa, u"Lang Z2"_s, u"A"_s), {u"vorher"_s, u"nachher"_s});
        QCOMPARE(rows(), QStringList{u"ID=1; Typ=Mensa; Klasse=A; Tag=<null>; Zeit=13:00 - 13:45; K_Name=Z2; "
                                     "L_Name=Lang Z2; Zeit_K_Name=13:00 - 13:45 Z2; Betreuer=<null>; "
                                     "Ort=<null>; Anmerkung_V=vorher; Anmerkung_N=nachher"_s});
        ExpectedState expected;
        save(offering(kMensa, u"Lang Z2"_s, u"A"_s), {u"anders"_s, QString()});
        expected.change(u"ME_LZ_AG_Notizen"_s, 1,
                        {{u"Anmerkung_V"_s, u"anders"_s}, {u"Anmerkung_N"_s, u""_s}});
        COMPARE_STATE(expected);
    }

    void aGroupHasOneTextForAllItsDays() {
        save(offering(kGroup, u"Lang TANZ"_s), {u"vorher"_s, u"nachher"_s});
        QCOMPARE(rows(), QStringList{u"ID=1; Typ=Arbeitsgruppe; Klasse=<null>; Tag=DI; Zeit=15:00 - 16:00; "
                                     "K_Name=TANZ; L_Name=Lang TANZ; Zeit_K_Name=15:00 - 16:00 TANZ; "
                                     "Betreuer=Frau Weiß; Ort=Aula; Anmerkung_V=vorher; "
                                     "Anmerkung_N=nachher"_s});
        TextOffering monday = offering(kGroup, u"Lang TANZ"_s);
        monday.Tag = u"MO"_s;
        monday.Zeit = u"14:00 - 15:00"_s;
        QCOMPARE(read(monday), (ListTexts{u"vorher"_s, u"nachher"_s}));
        save(monday, {u"anders"_s, u"nachher"_s});
        QCOMPARE(columnOf(u"ME_LZ_AG_Notizen"_s, u"Tag"_s), QStringList{u"DI"_s});
        QCOMPARE(columnOf(u"ME_LZ_AG_Notizen"_s, u"Anmerkung_V"_s), QStringList{u"anders"_s});
    }

    void eachLetterAndKindHasItsOwnText() {
        save(offering(kMensa, u"Lang Z1"_s, u"A"_s), {u"A"_s, QString()});
        save(offering(kMensa, u"Lang Z1"_s, u"B"_s), {u"B"_s, QString()});
        save(offering(kLernzeit, u"Lang Z1"_s, u"A"_s), {u"LZ"_s, QString()});
        QCOMPARE(rows().size(), 3);
        QCOMPARE(read(offering(kMensa, u"Lang Z1"_s, u"B"_s)).vorher, u"B"_s);
        QCOMPARE(read(offering(kLernzeit, u"Lang Z1"_s, u"A"_s)).vorher, u"LZ"_s);
        QCOMPARE(read(offering(kMensa, u"Lang Z1"_s, u"C"_s)), ListTexts{});
        QCOMPARE(read(offering(kMensa, u"Lang Z2"_s, u"A"_s)), ListTexts{});
    }

    /// The lists ask for letter and time alone, so the text of a Mensa is that of the Lernzeit too.
    void theListsFindTheTexts() {
        save(offering(kMensa, u"Lang Z1"_s, u"A"_s), {u"vorher"_s, QString()});
        save(offering(kGroup, u"Lang CHOR"_s), {QString(), u"nachher"_s});
        const DbSession session(u"Test"_s);
        CareOptions care;
        care.cmbKlasse = u"A"_s;
        care.txtZeit = u"12:00 - 12:45"_s;
        QCOMPARE(careTexts(care), (ListTexts{u"vorher"_s, QString()}));
        GroupOptions group;
        readGroup({u"Lang CHOR"_s, u"MO"_s, u"15:00 - 16:00"_s, u"CHOR"_s, u"15:00 - 16:00 CHOR"_s}, group);
        QCOMPARE(group.texte, (ListTexts{QString(), u"nachher"_s}));
    }

    void withoutAChoiceTheRowHasEmptyKeys() {
        save({}, {u"verloren"_s, QString()});
        save({.kind = kGroup, .Zeit_K_Name = u" "_s}, {u"auch"_s, QString()});
        QCOMPARE(columnOf(u"ME_LZ_AG_Notizen"_s, u"Zeit_K_Name"_s), QStringList({u""_s, u" "_s}));
        QCOMPARE(columnOf(u"ME_LZ_AG_Notizen"_s, u"L_Name"_s), QStringList({u""_s, u""_s}));
        QCOMPARE(columnOf(u"ME_LZ_AG_Notizen"_s, u"Klasse"_s), QStringList({u""_s, u"<null>"_s}));
    }

    void anApostropheIsTakenInANewTextAndRefusedInAChange() {
        const TextOffering mensa = offering(kMensa, u"Lang Z1"_s, u"A"_s);
        save(mensa, {u"Oma's Küche"_s, QString()});
        const ExpectedState expected;
        QVERIFY_THROWS_EXCEPTION(StoreError, save(mensa, {u"Opa's Küche"_s, QString()}));
        COMPARE_STATE(expected);
    }

    void deletingAnOfferingTakesItsTexts() {
        save(offering(kMensa, u"Lang Z1"_s, u"A"_s), {u"vorher"_s, QString()});
        save(offering(kMensa, u"Lang Z2"_s, u"A"_s), {u"bleibt"_s, QString()});
        {
            const DbSession session(u"Test"_s);
            const Offering mensa = ME_LZ_AG_DatensatzLesen(kMensa, 3);
            ME_Daten_LÖSCHEN(mensa, {3, mensa.Zeit(), mensa[kBoxTag], mensa.Zeit_K_Name()});
        }
        QCOMPARE(columnOf(u"ME_LZ_AG_Notizen"_s, u"Anmerkung_V"_s), QStringList{u"bleibt"_s});
    }
};

KOLIBRI_TEST_MAIN(OfferingTextsTest)
#include "offering_texts_test.moc"
