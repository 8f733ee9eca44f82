#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "support/list_fixtures.h"
#include "support/test_base.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class ListTableTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void eachListStandsInTheTableOnce() {
        const auto& table = listTable();
        for (const auto& entry : table)
            QCOMPARE(
                std::count_if(table.begin(), table.end(),
                              [&](const ListEntry& other) { return other.listenArt == entry.listenArt; }),
                std::ptrdiff_t(1));
    }

    void aListIsGatheredAtItsMoment_data() {
        QTest::addColumn<ListMoment>("moment");
        for (const int listenArt : {3, 4, 5, 6, 51, 61, 101, 111, 113, 114, 115})
            QTest::addRow("%d", listenArt) << ListMoment::BeforeWindow;
        for (const int listenArt : {14, 15, 16})
            QTest::addRow("%d", listenArt) << ListMoment::InPage;
    }
    void aListIsGatheredAtItsMoment() {
        const auto listenArt = static_cast<quint8>(QByteArray(QTest::currentDataTag()).toInt());
        QTEST(findList(listenArt).moment, "moment");
    }

    void onlyTheListsWithoutOptionsClearTheCheckBoxes() {
        QList<int> clearing;
        for (const auto& entry : listTable())
            if (entry.clearsOptions)
                clearing << entry.listenArt;
        QCOMPARE(clearing, QList<int>({113, 114}));
    }

    void aNumberWithoutAListIsAClearError() {
        for (const quint8 none : {0, 1, 8, 112, 255}) {
            try {
                prepareList(none);
                QFAIL("no error");
            } catch (const RuntimeError& error) {
                QCOMPARE(error.message(),
                         u"Laufzeitfehler '5': Ungültiger Prozeduraufruf oder ungültiges Argument"_s);
                QCOMPARE(error.details(), u"Eine Liste mit der Nummer %1 gibt es nicht."_s.arg(none));
            }
        }
    }

    void aListGatheredBeforeTheWindowShowsWhatWasThereThen() {
        useEmptyDatabase();
        addPupil(u"Berg"_s, u"Ada"_s, u"2a"_s);
        prepareList(kErweiterteListe);
        addPupil(u"Amsel"_s, u"Zoe"_s, u"2a"_s);
        producePage();
        QCOMPARE(listRows(), QStringList{u"1: 1 | Berg | Ada"_s});
        QVERIFY(!Global().Conn.IsOpen());
    }

    void aListGatheredInThePageWaitsForIt() {
        useEmptyDatabase();
        auto& liste = Liste();
        liste.dimensionieren(1, 1);
        liste.ZeilenAnzahl = 77;
        prepareList(kMensaJeSchueler);
        QCOMPARE(liste.ZeilenAnzahl, 77);
        producePage();
        QVERIFY(liste.ZeilenAnzahl != 77);
        QVERIFY(!Global().Conn.IsOpen());
    }

    void showingAListOpensThePageWindow() {
        useEmptyDatabase();
        showList(kNeueSchueler);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>{kNeueSchueler});
    }
};

KOLIBRI_TEST_MAIN(ListTableTest)
#include "list_table_test.moc"
