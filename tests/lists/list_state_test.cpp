#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "lists/column_builder.h"
#include "lists/list_state.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

const QString kOutOfRange = u"Laufzeitfehler '9': Index außerhalb des gültigen Bereichs"_s;
const QString kOverflow = u"Laufzeitfehler '6': Überlauf"_s;

template <typename Action> QString errorOf(Action action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.message();
    }
    return {};
}

} // namespace

class ListStateTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void thereAreNinetyNineColumnsAndNotOneMore() {
        auto& liste = Liste();
        ColumnBuilder builder(liste);
        for (int i = 1; i <= 99; ++i)
            builder.add(QString::number(i), 1, kLinks);
        QCOMPARE(errorOf([&] { builder.add(u"100"_s, 1, kLinks); }), kOutOfRange);
        QCOMPARE(builder.count(), 99);
        QCOMPARE(liste.SpaltenText(99), u"99"_s);
    }

    void columnsCountFromOne() {
        QCOMPARE(errorOf([] { Liste().SpaltenText(0) = u"x"_s; }), kOutOfRange);
    }

    void thereAreNineHundredNinetyNineRowCodes() {
        auto& liste = Liste();
        liste.dimensionieren(2, 2000);
        liste.ZeilenCode(999) = u"1"_s;
        QCOMPARE(errorOf([&] { liste.ZeilenCode(1000) = u"1"_s; }), kOutOfRange);
        liste.dimensionieren(2, 2000, 2000);
        liste.ZeilenCode(2000) = u"1"_s;
        QCOMPARE(liste.ZeilenCode(2000), u"1"_s);
    }

    void cellsBeyondTheBoundsAreRefused() {
        auto& liste = Liste();
        QCOMPARE(errorOf([&] { liste.Daten(1, 1) = u"x"_s; }), kOutOfRange);
        liste.dimensionieren(3, 4);
        liste.Daten(3, 4) = u"corner"_s;
        QCOMPARE(liste.Daten(3, 4), u"corner"_s);
        for (const auto& [column, row] : {std::pair{0, 1}, {4, 1}, {1, 0}, {1, 5}})
            QCOMPARE(errorOf([&, c = column, r = row] { liste.Daten(c, r) = u"x"_s; }), kOutOfRange);
    }

    void anUntouchedCellIsEmpty() {
        Liste().dimensionieren(3, 4);
        const ListState& liste = Liste();
        QCOMPARE(liste.Daten(2, 3), QString());
    }

    void theNextGathererBeginsWithEmptyCellsAndCodes() {
        auto& liste = Liste();
        liste.dimensionieren(1, 1);
        liste.Daten(1, 1) = u"old"_s;
        liste.ZeilenCode(1) = u"1"_s;
        liste.dimensionieren(1, 1);
        QCOMPARE(liste.Daten(1, 1), QString());
        QCOMPARE(liste.ZeilenCode(1), QString());
    }

    void theRowCounterHasSixteenBits() {
        auto& liste = Liste();
        liste.ZeilenNr = 32766;
        liste.naechsteZeile();
        QCOMPARE(liste.ZeilenNr, 32767);
        QCOMPARE(errorOf([&] { liste.naechsteZeile(); }), kOverflow);
    }

    void resettingTheModesErasesCellsAndCodes() {
        auto& liste = Liste();
        liste.dimensionieren(1, 1);
        liste.Daten(1, 1) = u"old"_s;
        liste.ZeilenCode(1) = u"1"_s;
        liste.SpaltenAnzahl = 7;
        Global().ListenArt = 115;
        ModiZuruecksetzen();
        QCOMPARE(Global().ListenArt, 0);
        QCOMPARE(errorOf([&] { liste.Daten(1, 1) = u"x"_s; }), kOutOfRange);
        QCOMPARE(liste.ZeilenCode(1), QString());
        QCOMPARE(liste.SpaltenAnzahl, 7);
    }
};

KOLIBRI_TEST_MAIN(ListStateTest)
#include "list_state_test.moc"
