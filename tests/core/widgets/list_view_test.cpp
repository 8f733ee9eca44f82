#include "core/widgets/application.h"
#include "core/widgets/list_view.h"
#include "support/driving.h"
#include "support/test_base.h"

#include <QHeaderView>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

enum Column { kId, kName, kBorn, kFee, kRemark };

std::vector<ListColumn> columns() {
    return {{u"ID"_s, kHiddenColumn, SortKind::Number},
            {u"Name"_s, 15, SortKind::Text},
            {u"Geb. Datum"_s, 12, SortKind::Date},
            {u"Beitrag"_s, 10, SortKind::Number},
            {u"Bemerkung"_s, 20}};
}

std::vector<ListRow> rows() {
    return {{u"A0003"_s, {u"00003"_s, u"Zöbl"_s, u"01.03.2015"_s, u"12,50"_s, u"Seestraße"_s}},
            {u"A0001"_s, {u"00001"_s, u"Ärger"_s, u"31.12.2014"_s, u"9"_s, u"Auf dem Berg"_s}},
            {u"A0002"_s, {u"00002"_s, u"arzt"_s, u"02.02.2015"_s, u"100"_s, u"Seestraße"_s}}};
}

} // namespace

/// The list that all editors share.
class ListViewTest : public TestBase {
    Q_OBJECT

private:
    std::unique_ptr<ListView> m_list;
    QStringList m_chosen;

    ListView& list() {
        m_chosen.clear();
        m_list = std::make_unique<ListView>(u"lvwTest"_s, u"Testliste"_s);
        m_list->setColumns(columns());
        m_list->onRowChosen([this](const QString& text) { m_chosen << text; });
        m_list->setRows(rows());
        m_list->resize(700, 300);
        if (!shown(*m_list))
            qFatal("the list is not active");
        return *m_list;
    }

    static void clickHeading(ListView& list, int column) {
        auto* header = list.header();
        const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, {x, header->height() / 2});
    }

    static QLineEdit& searchBox(ListView& list) { return control<QLineEdit>(list, u"txtSuche"_s); }

    static QStringList names(const ListView& list) { return cellsOf(list, kName); }

private Q_SLOTS:
    void cleanup() {
        m_list.reset();
        TestBase::cleanup();
    }

    void showsColumnsAndRows() {
        auto& view = list();
        QCOMPARE(headingsOf(view),
                 QStringList({u"ID"_s, u"Name"_s, u"Geb. Datum"_s, u"Beitrag"_s, u"Bemerkung"_s}));
        QCOMPARE(view.rowCount(), 3);
        QCOMPARE(view.itemText(1), u"00003"_s);
        QCOMPARE(view.key(1), u"A0003"_s);
        QCOMPARE(view.cell(2, kBorn), u"31.12.2014"_s);
        QCOMPARE(view.rowOfKey(u"A0002"_s), 3);
        QCOMPARE(view.rowOfKey(u"A0004"_s), 0);
        QCOMPARE(view.itemText(0), QString());
        QCOMPARE(view.key(4), QString());
    }

    void theKeyColumnIsKeptButNotForReading() {
        auto& view = list();
        QCOMPARE(view.columnWidth(kId), 1);
        QVERIFY(view.columnWidth(kName) > 50);
        QVERIFY(view.accessibleName() == u"Testliste"_s);
        QCOMPARE(view.font().families(), QStringList{u"Arial"_s});
    }

    void aListAsksForTheWidthOfItsColumnsHoweverWideItIs() {
        ListView view(u"lvwTest"_s, u"Testliste"_s);
        view.setColumns({{u"ID"_s, kHiddenColumn}, {u"Zeit"_s, 20}});
        const int wanted = view.sizeHint().width();
        QVERIFY(wanted < 40 * view.fontMetrics().averageCharWidth());
        QVERIFY(wanted > 20 * view.fontMetrics().averageCharWidth());
        view.resize(1000, 300);
        view.show();
        QCOMPARE(view.sizeHint().width(), wanted);
    }

    void aHeadingIsNeverCutOff() {
        auto& view = list();
        view.setColumns({{u"Eine sehr lange Überschrift über einer schmalen Spalte"_s, 2}, {u"B"_s, 2}});
        QVERIFY(view.columnWidth(0) >= view.fontMetrics().horizontalAdvance(view.headerItem()->text(0)));
    }

    void aClickSelectsTheWholeRowAndTellsItsText() {
        auto& view = list();
        clickRow(view, 2);
        QCOMPARE(m_chosen, QStringList{u"00001"_s});
        QCOMPARE(view.selectionModel()->selectedRows().size(), 1);
        QCOMPARE(view.selectedItems().size(), 1);
    }

    void aClickOnTheChosenRowTellsItAgain() {
        auto& view = list();
        clickRow(view, 2);
        clickRow(view, 2);
        QCOMPARE(m_chosen, QStringList({u"00001"_s, u"00001"_s}));
    }

    void theKeyboardChoosesLikeTheMouse() {
        auto& view = list();
        clickRow(view, 1);
        view.setFocus();
        QTest::keyClick(&view, Qt::Key_Down);
        QTest::keyClick(&view, Qt::Key_End);
        QTest::keyClick(&view, Qt::Key_Down);
        QCOMPARE(m_chosen, QStringList({u"00003"_s, u"00001"_s, u"00002"_s}));
        QTest::keyClick(&view, Qt::Key_Space);
        QCOMPARE(m_chosen.last(), u"00002"_s);
        QCOMPARE(m_chosen.size(), 4);
    }

    void fillingMarkingSortingAndShowingByCodeFireNoHandler() {
        auto& view = list();
        clickRow(view, 2);
        m_chosen.clear();
        view.setRows(rows());
        Eintrag_MARKIEREN(view, 3);
        SortierenListView(kName, view, SortKind::Text);
        view.showRow(1);
        view.setColumns(columns());
        QCOMPARE(m_chosen, QStringList());
    }

    void theFirstClickOnAHeadingSortsUpwardsAndTheSecondReverses() {
        auto& view = list();
        clickHeading(view, kName);
        QCOMPARE(names(view), QStringList({u"Ärger"_s, u"arzt"_s, u"Zöbl"_s}));
        clickHeading(view, kName);
        QCOMPARE(names(view), QStringList({u"Zöbl"_s, u"arzt"_s, u"Ärger"_s}));
        clickHeading(view, kName);
        QCOMPARE(names(view), QStringList({u"Ärger"_s, u"arzt"_s, u"Zöbl"_s}));
    }

    void everyClickTurnsTheOrderAlsoOnAnotherColumn() {
        auto& view = list();
        clickHeading(view, kName);
        clickHeading(view, kBorn);
        QCOMPARE(cellsOf(view, kBorn), QStringList({u"01.03.2015"_s, u"02.02.2015"_s, u"31.12.2014"_s}));
    }

    void numbersSortByTheirValueAndTheVisibleTextIsUnchanged() {
        auto& view = list();
        clickHeading(view, kFee);
        QCOMPARE(cellsOf(view, kFee), QStringList({u"9"_s, u"12,50"_s, u"100"_s}));
        clickHeading(view, kFee);
        QCOMPARE(cellsOf(view, kFee), QStringList({u"100"_s, u"12,50"_s, u"9"_s}));
        QCOMPARE(cellsOf(view, kId), QStringList({u"00002"_s, u"00003"_s, u"00001"_s}));
    }

    void keysStayWithTheirRows() {
        auto& view = list();
        clickHeading(view, kName);
        for (int row = 1; row <= view.rowCount(); ++row)
            QCOMPARE(view.key(row), u"A"_s + view.itemText(row).mid(1));
    }

    void everyKindOfColumnSorts_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QStringList>("inOrder");
        QTest::newRow("0 text") << 0 << QStringList{u"10"_s, u"9"_s, u"ab"_s};
        QTest::newRow("1 number") << 1 << QStringList{u"9"_s, u"10"_s, u"ab"_s};
        QTest::newRow("2 date") << 2 << QStringList{u"28.02.2014"_s, u"01.01.2015"_s, u"ab"_s};
        QTest::newRow("3 time") << 3 << QStringList{u""_s, u"9:05"_s, u"10:00"_s};
        QTest::newRow("4 time with seconds") << 4 << QStringList{u"9:05:10"_s, u"09:05:11"_s, u"10:00:00"_s};
        QTest::newRow("5 date and time")
            << 5 << QStringList{u"28.02.2014 10:00:00"_s, u"01.01.2015 07:00:00"_s, u"01.01.2015 08:00:00"_s};
    }

    void everyKindOfColumnSorts() {
        QFETCH(int, kind);
        QFETCH(QStringList, inOrder);
        auto& view = list();
        view.setColumns({{u"Wert"_s, 20, static_cast<SortKind>(kind)}});
        std::vector<ListRow> mixed;
        for (const int i : {1, 2, 0})
            mixed.push_back({QString::number(i), {inOrder.at(i)}});
        view.setRows(mixed);
        clickHeading(view, 0);
        QCOMPARE(cellsOf(view, 0), inOrder);
        std::reverse(inOrder.begin(), inOrder.end());
        clickHeading(view, 0);
        QCOMPARE(cellsOf(view, 0), inOrder);
    }

    void aColumnWithoutSortingDoesNothing() {
        auto& view = list();
        clickHeading(view, kRemark);
        QCOMPARE(names(view), QStringList({u"Zöbl"_s, u"Ärger"_s, u"arzt"_s}));
        QVERIFY(!view.header()->isSortIndicatorShown());
        clickHeading(view, kName);
        clickHeading(view, kRemark);
        QCOMPARE(names(view), QStringList({u"Ärger"_s, u"arzt"_s, u"Zöbl"_s}));
    }

    void rowsThatAreEqualKeepTheirPlaces() {
        auto& view = list();
        SortierenListView(kRemark, view, SortKind::Text);
        QCOMPARE(names(view), QStringList({u"Ärger"_s, u"Zöbl"_s, u"arzt"_s}));
        SortierenListView(kRemark, view, SortKind::Text);
        QCOMPARE(names(view), QStringList({u"Zöbl"_s, u"arzt"_s, u"Ärger"_s}));
    }

    void theSelectedRowStaysSelectedWhereItGoes() {
        auto& view = list();
        clickRow(view, 1);
        clickHeading(view, kName);
        QCOMPARE(view.currentItem()->text(kName), u"Zöbl"_s);
        QVERIFY(view.topLevelItem(2)->isSelected());
        QCOMPARE(view.selectedItems().size(), 1);
    }

    void aRebuiltListDropsTheSortOrder() {
        auto& view = list();
        clickHeading(view, kName);
        view.setRows(rows());
        QCOMPARE(names(view), QStringList({u"Zöbl"_s, u"Ärger"_s, u"arzt"_s}));
        QVERIFY(!view.header()->isSortIndicatorShown());
        clickHeading(view, kName);
        QCOMPARE(names(view), QStringList({u"Ärger"_s, u"arzt"_s, u"Zöbl"_s}));
    }

    void aRebuiltListHasNoSelectionAndStandsWhereItWas() {
        auto& view = list();
        std::vector<ListRow> many;
        for (int i = 0; i < 200; ++i)
            many.push_back({QString::number(i), {QString::number(i), u"Name"_s}});
        view.setRows(many);
        clickRow(view, 150);
        const int top = view.verticalScrollBar()->value();
        QVERIFY(top > 0);
        view.setRows(many);
        QCOMPARE(view.selectedItems().size(), 0);
        QCOMPARE(view.verticalScrollBar()->value(), top);
    }

    void aListWithoutRowsSortsAndSearchesNothing() {
        auto& view = list();
        view.setRows({});
        clickHeading(view, kName);
        QCOMPARE(view.rowCount(), 0);
        QCOMPARE(lvw_Search_NN(view, u"a"_s, 1), 0);
    }

    void markingSelectsShowsAndFocusesWithoutChoosing() {
        auto& view = list();
        Eintrag_MARKIEREN(view, 3);
        QVERIFY(view.topLevelItem(2)->isSelected());
        QVERIFY(view.hasFocus());
        QCOMPARE(m_chosen, QStringList());
    }

    void markingARowThatIsNotThereIsPassedOver() {
        auto& view = list();
        Eintrag_MARKIEREN(view, 2);
        for (const int row : {0, -1, 4, 1000})
            Eintrag_MARKIEREN(view, row);
        QVERIFY(view.topLevelItem(1)->isSelected());
    }

    void aShownRowIsNotSelectedAndTheKeyboardGoesOnFromIt() {
        auto& view = list();
        view.showRow(1);
        QCOMPARE(view.selectedItems().size(), 0);
        view.setFocus();
        QTest::keyClick(&view, Qt::Key_Down);
        QCOMPARE(m_chosen, QStringList{u"00001"_s});
    }

    void theSearchLooksAtEveryColumnWithoutRegardToCase() {
        auto& view = list();
        QCOMPARE(lvw_Search_NN(view, u"zö"_s, 1), 1);
        QCOMPARE(lvw_Search_NN(view, u"BERG"_s, 1), 2);
        QCOMPARE(lvw_Search_NN(view, u"seestr"_s, 2), 3);
        QCOMPARE(lvw_Search_NN(view, u"00002"_s, 1), 3);
        QCOMPARE(lvw_Search_NN(view, u"Huber"_s, 1), 0);
        QCOMPARE(lvw_Search_NN(view, u"zö"_s, 2), 0);
    }

    void ctrlFMarksWhatIsTypedAndEnterChoosesIt() {
        auto& view = list();
        view.setFocus();
        QTest::keyClick(&view, Qt::Key_F, Qt::ControlModifier);
        auto& box = searchBox(view);
        QVERIFY(box.isVisible());
        QVERIFY(box.hasFocus());
        keys(box, u"ar"_s);
        QCOMPARE(view.currentItem()->text(kName), u"arzt"_s);
        QVERIFY(box.hasFocus());
        QCOMPARE(m_chosen, QStringList());
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(m_chosen, QStringList{u"00002"_s});
        QVERIFY(!box.isVisible());
        QVERIFY(view.hasFocus());
    }

    void f3GoesToTheNextFitAndBeginsAgainBehindTheLast() {
        auto& view = list();
        view.startSearch(u"seestr"_s);
        QCOMPARE(view.currentItem()->text(kName), u"Zöbl"_s);
        QTest::keyClick(&searchBox(view), Qt::Key_F3);
        QCOMPARE(view.currentItem()->text(kName), u"arzt"_s);
        QTest::keyClick(&searchBox(view), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(view.currentItem()->text(kName), u"Zöbl"_s);
    }

    void escEndsTheSearchAndChoosesNothing() {
        auto& view = list();
        view.startSearch(u"ar"_s);
        QTest::keyClick(&searchBox(view), Qt::Key_Escape);
        QVERIFY(!searchBox(view).isVisible());
        QVERIFY(view.hasFocus());
        QCOMPARE(m_chosen, QStringList());
    }

    void aSearchThatIsGivenUpMarksTheChosenRowAgain() {
        auto& view = list();
        clickRow(view, 1);
        view.startSearch(u"ar"_s);
        QCOMPARE(view.currentItem()->text(kName), u"arzt"_s);
        QTest::keyClick(&searchBox(view), Qt::Key_Escape);
        QCOMPARE(view.selectedItems().value(0)->text(kName), u"Zöbl"_s);
        QCOMPARE(m_chosen, QStringList{u"00003"_s});
    }

    void aSearchThatIsGivenUpMarksNothingWhereNothingWasChosen() {
        auto& view = list();
        view.startSearch(u"ar"_s);
        QTest::keyClick(&searchBox(view), Qt::Key_Escape);
        QCOMPARE(view.selectedItems().size(), 0);
    }

    void aSearchThatIsLeftMarksTheChosenRowAgain() {
        auto& view = list();
        clickRow(view, 1);
        view.startSearch(u"ar"_s);
        view.setFocus();
        QVERIFY(!searchBox(view).isVisible());
        QCOMPARE(view.selectedItems().value(0)->text(kName), u"Zöbl"_s);
    }

    void whatIsNotFoundIsShownAsAnError() {
        auto& view = list();
        view.startSearch(u"Huber"_s);
        QVERIFY(isFaulty(view, u"txtSuche"_s));
        QCOMPARE(searchBox(view).toolTip(), u"Nicht gefunden"_s);
        type(view, u"txtSuche"_s, u"zö"_s);
        QVERIFY(!isFaulty(view, u"txtSuche"_s));
    }

    void lettersTypedIntoTheListBeginASearch() {
        auto& view = list();
        view.setFocus();
        QTest::keyClick(&view, 'z');
        QVERIFY(searchBox(view).isVisible());
        QCOMPARE(searchBox(view).text(), u"z"_s);
        QCOMPARE(view.currentItem()->text(kName), u"Zöbl"_s);
    }

    void leavingTheSearchBoxClosesIt() {
        auto& view = list();
        view.startSearch(u"ar"_s);
        clickRow(view, 1);
        view.setFocus();
        QVERIFY(!searchBox(view).isVisible());
    }

    /// The pupil form has 44 columns; the figure is printed for whoever changes the list.
    void aSchoolOfAThousandPupilsIsFilledAtOnce() {
        constexpr int kPupils = 1000;
        constexpr int kColumns = 44;
        auto& view = list();
        std::vector<ListColumn> many;
        for (int i = 0; i < kColumns; ++i)
            many.push_back({u"Spalte %1"_s.arg(i), 12, SortKind::Text});
        view.setColumns(many);
        std::vector<ListRow> pupils;
        for (int row = 0; row < kPupils; ++row) {
            ListRow pupil{u"A%1"_s.arg(row), {}};
            for (int i = 0; i < kColumns; ++i)
                pupil.cells << u"Wert %1 von Spalte %2"_s.arg((row * 7919) % kPupils).arg(i);
            pupils.push_back(pupil);
        }
        QBENCHMARK {
            view.setRows(pupils);
            view.grab();
        }
        QCOMPARE(view.rowCount(), kPupils);
        QElapsedTimer clock;
        clock.start();
        SortierenListView(5, view, SortKind::Text);
        qInfo("sorting %d rows: %lld ms", kPupils, clock.elapsed());
        QCOMPARE(view.cell(1, 5), u"Wert 0 von Spalte 5"_s);
    }
};

KOLIBRI_TEST_MAIN(ListViewTest)
#include "list_view_test.moc"
