#include "calendar/offerings.h"
#include "core/widgets/application.h"
#include "support/driving.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class OfferingsTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void theTagTellsKindAndAction_data() {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("action");
        const QStringList kinds{u"Mensa"_s, u"Lernzeit"_s, u"Arbeitsgruppe"_s};
        const QStringList actions{u"Neu"_s, u"Korrektur"_s, u"Löschen"_s};
        for (int kind = 0; kind < kinds.size(); ++kind)
            for (int action = 0; action < actions.size(); ++action) {
                const QString tag = kinds.at(kind) + actions.at(action);
                QTest::newRow(qPrintable(tag)) << tag << kind << action;
            }
    }

    void theTagTellsKindAndAction() {
        QFETCH(QString, tag);
        QFETCH(int, kind);
        QFETCH(int, action);
        const OfferingMode mode = offeringMode(tag);
        QCOMPARE(static_cast<int>(mode.kind), kind);
        QCOMPARE(static_cast<int>(mode.action), action);
    }

    void eachKindHasItsTables() {
        QCOMPARE(tablesOf(OfferingKind::Mensa), QStringList{u"GR1"_s});
        QCOMPARE(tablesOf(OfferingKind::Lernzeit), QStringList{u"GR2"_s});
        QCOMPARE(tablesOf(OfferingKind::Arbeitsgruppe),
                 QStringList({u"GR3"_s, u"GR4"_s, u"GR5"_s, u"GR6"_s, u"GR7"_s}));
        QCOMPARE(listTableOf(OfferingKind::Arbeitsgruppe), u"GR3"_s);
    }

    void theKeyIsTimeBlankShortName() {
        Offering offering;
        offering[kBoxKName] = u"M1"_s;
        offering[kBoxVon] = u"08:00"_s;
        offering[kBoxBis] = u"08:45"_s;
        QCOMPARE(offering.Zeit(), u"08:00 - 08:45"_s);
        QCOMPARE(offering.Zeit_K_Name(), u"08:00 - 08:45 M1"_s);
    }

    void mensaAndLernzeitAreReadFromTheirOwnTables() {
        useEmptyDatabase();
        addRow(u"GR1"_s, {{u"K_Name"_s, u"ME2"_s}});
        addRow(u"GR1"_s, {{u"K_Name"_s, u"ME1"_s}, {u"Tag"_s, u"DI"_s}});
        addRow(u"GR1"_s, {{u"K_Name"_s, u"ME1"_s}, {u"Tag"_s, u"MO"_s}});
        addRow(u"GR2"_s, {{u"K_Name"_s, u"LZ1"_s}, {u"Zeit_von"_s, u"14:00"_s}, {u"UE_Zeit"_s, u"U"_s}});
        const DbSession session(u"Test"_s);
        QStringList order;
        for (const auto& row : ME_DatenEinlesen())
            order << row.cells.at(0) + u' ' + QString::number(row.ID);
        QCOMPARE(order, QStringList({u"ME1 2"_s, u"ME1 3"_s, u"ME2 1"_s}));
        const auto lernzeiten = LZ_DatenEinlesen();
        QCOMPARE(lernzeiten.size(), std::size_t(1));
        QCOMPARE(lernzeiten[0].cells,
                 QStringList({u"LZ1"_s, u""_s, u""_s, u"14:00"_s, u""_s, u""_s, u"U"_s}));
    }

    void aWorkingGroupHasSupervisorPlaceAndRemarkToo() {
        useEmptyDatabase();
        addRow(u"GR3"_s, {{u"K_Name"_s, u"CHOR"_s},
                          {u"Betreuer"_s, u"Frau Weiß"_s},
                          {u"Ort"_s, u"Aula"_s},
                          {u"Anmerkung"_s, u"mit Noten"_s},
                          {u"UE_Zeit"_s, u"U"_s}});
        addRow(u"GR4"_s, {{u"K_Name"_s, u"nur hier"_s}});
        const DbSession session(u"Test"_s);
        const auto groups = AG_DatenEinlesen();
        QCOMPARE(groups.size(), std::size_t(1));
        QCOMPARE(groups[0].cells.sliced(6), QStringList({u"Frau Weiß"_s, u"Aula"_s, u"mit Noten"_s, u"U"_s}));
    }

    void aFileWithoutRemarksShowsEmptyCells() {
        useEmptyDatabase();
        addRow(u"GR3"_s, {{u"K_Name"_s, u"CHOR"_s}, {u"Ort"_s, u"Aula"_s}});
        const DbSession session(u"Test"_s);
        Global().Conn.Execute(u"ALTER TABLE GR3 DROP COLUMN Anmerkung"_s);
        QCOMPARE(AG_DatenEinlesen()[0].cells.sliced(6), QStringList({u""_s, u"Aula"_s, u""_s, u""_s}));
    }

    void oneRowIsReadByItsKey() {
        useEmptyDatabase();
        addRow(u"GR1"_s, {{u"K_Name"_s, u"ME1"_s}});
        addRow(u"GR1"_s, {{u"K_Name"_s, u"ME2"_s},
                          {u"L_Name"_s, u"Mensa 2"_s},
                          {u"Tag"_s, u"FR"_s},
                          {u"Zeit_von"_s, u"13:00"_s},
                          {u"Betreuer"_s, u"niemand"_s}});
        const DbSession session(u"Test"_s);
        const Offering offering = ME_LZ_AG_DatensatzLesen(OfferingKind::Mensa, 2);
        QCOMPARE(QStringList(offering.boxes.begin(), offering.boxes.end()),
                 QStringList({u"ME2"_s, u"Mensa 2"_s, u"FR"_s, u"13:00"_s, u""_s, u""_s, u""_s}));
        QCOMPARE(ME_LZ_AG_DatensatzLesen(OfferingKind::Mensa, 3)[kBoxKName], QString());
    }
};

KOLIBRI_TEST_MAIN(OfferingsTest)
#include "offerings_test.moc"
