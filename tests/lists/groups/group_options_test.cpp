#include "core/mdlAllgemein.h"
#include "core/widgets/application.h"
#include "lists/groups/group_options.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

void save(GroupOptions options, const ListTexts& texts) {
    const DbSession session(u"Test"_s);
    options.texte = texts;
    saveGroupTexts(options);
}

GroupOptions read(const GroupEntry& entry) {
    const DbSession session(u"Test"_s);
    GroupOptions options;
    readGroup(entry, options);
    return options;
}

GroupEntry entryOf(const QString& tag) {
    return {u"Chor"_s, tag, u"14:00 - 15:00"_s, u"CH"_s, u"14:00 - 15:00 CH"_s};
}

} // namespace

class GroupOptionsTest : public TestBase {
    Q_OBJECT

private:
    void useChoir() {
        useEmptyDatabase();
        const FieldValues monday{{u"Betreuer"_s, u"Frau Lenz"_s}, {u"Ort"_s, u"Aula"_s}};
        const FieldValues friday{{u"Betreuer"_s, u"Herr Ott"_s}, {u"Ort"_s, u"Musikraum"_s}};
        addGroup(u"Chor"_s, u"CH"_s, u"MO"_s, u"14:00 - 15:00"_s, {}, monday);
        addGroup(u"Chor"_s, u"CH"_s, u"FR"_s, u"14:00 - 15:00"_s, {}, friday);
    }

private Q_SLOTS:
    void eachRowOfTheFirstSlotIsAnEntry() {
        useChoir();
        addGroup(u"Ballett"_s, u"BA"_s, u"DI"_s, u"15:00 - 16:00"_s);
        const DbSession session(u"Test"_s);
        QStringList entries;
        for (const auto& entry : groupEntries())
            entries << QStringList{entry.langname, entry.tag, entry.zeit, entry.kurzname, entry.zeitKName}
                           .join(u'|');
        QCOMPARE(entries, QStringList({u"Ballett|DI|15:00 - 16:00|BA|15:00 - 16:00 BA"_s,
                                       u"Chor|MO|14:00 - 15:00|CH|14:00 - 15:00 CH"_s,
                                       u"Chor|FR|14:00 - 15:00|CH|14:00 - 15:00 CH"_s}));
    }

    void anEntryFillsTheFieldsOfItsDay() {
        useChoir();
        const GroupOptions options = read(entryOf(u"FR"_s));
        QCOMPARE(options.cmbAG, u"Chor"_s);
        QCOMPARE(options.txtTag, u"FR"_s);
        QCOMPARE(options.txtZeit, u"14:00 - 15:00"_s);
        QCOMPARE(options.txtK_Name, u"CH"_s);
        QCOMPARE(options.txtZeit_K_Name, u"14:00 - 15:00 CH"_s);
        QCOMPARE(options.txtBetreuer, u"Herr Ott"_s);
        QCOMPARE(options.txtOrt, u"Musikraum"_s);
    }

    void anEntryThatIsGoneLeavesTheFieldsEmpty() {
        useChoir();
        const GroupOptions options = read(entryOf(u"DO"_s));
        QCOMPARE(options.cmbAG, u"Chor"_s);
        QCOMPARE(options.txtZeit_K_Name + options.txtTag + options.txtOrt, QString());
    }

    void aTextStoredOnceIsFoundForAllDays() {
        useChoir();
        save(read(entryOf(u"MO"_s)), {u"vor"_s, u"nach"_s});
        QCOMPARE(read(entryOf(u"FR"_s)).texte, (ListTexts{u"vor"_s, u"nach"_s}));
        save(read(entryOf(u"FR"_s)), {u"neu"_s, QString()});
        QCOMPARE(read(entryOf(u"MO"_s)).texte, (ListTexts{u"neu"_s, QString()}));
        QCOMPARE(
            rowsOf(u"ME_LZ_AG_Notizen"_s),
            QStringList{u"ID=1; Typ=Arbeitsgruppe; Klasse=<null>; Tag=MO; Zeit=14:00 - 15:00; K_Name=CH; "
                        "L_Name=Chor; Zeit_K_Name=14:00 - 15:00 CH; Betreuer=Frau Lenz; Ort=Aula; "
                        "Anmerkung_V=neu; Anmerkung_N="_s});
    }

    void aMensaOfTheSameNameKeepsItsTexts() {
        useChoir();
        addRow(u"ME_LZ_AG_Notizen"_s,
               {{u"Typ"_s, u"Mensa"_s}, {u"L_Name"_s, u"Chor"_s}, {u"Anmerkung_V"_s, u"Essen"_s}});
        QCOMPARE(read(entryOf(u"MO"_s)).texte.vorher, u"Essen"_s);
        save(read(entryOf(u"MO"_s)), {u"Singen"_s, QString()});
        QCOMPARE(read(entryOf(u"MO"_s)).texte.vorher, u"Singen"_s);
        QVERIFY(rowsOf(u"ME_LZ_AG_Notizen"_s).first().contains(u"Anmerkung_V=Essen"_s));
    }

    void withoutAGroupNoTextIsKept() {
        useChoir();
        save({}, {u"vor"_s, u"nach"_s});
        QCOMPARE(rowsOf(u"ME_LZ_AG_Notizen"_s), QStringList());
    }

    void theSortWordsAreFour() {
        QCOMPARE(groupSortWords(), QStringList({u"Nachname"_s, u"Vorname"_s, u"Klasse"_s, u"Schulstufe"_s}));
        QCOMPARE(GroupOptions().cmbSortierung, groupSortWords().first());
    }
};

KOLIBRI_TEST_MAIN(GroupOptionsTest)
#include "group_options_test.moc"
