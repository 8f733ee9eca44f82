#include "core/widgets/application.h"
#include "core/widgets/choice_list.h"
#include "support/driving.h"
#include "support/test_base.h"

#include <QCheckBox>
#include <QSignalSpy>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class ChoiceListTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void clicksAndTheSpaceBarChooseAnyNumberOfEntries() {
        ChoiceList list(u"lstKlassen"_s, u"Klassen"_s);
        list.setEntries({u"1a"_s, u"1b"_s, u"2a"_s});
        QVERIFY(shown(list));
        QVERIFY(list.chosen().isEmpty());
        clickEntry(list, u"2a"_s);
        clickEntry(list, u"1a"_s);
        QCOMPARE(list.chosen(), QStringList({u"1a"_s, u"2a"_s}));
        clickEntry(list, u"2a"_s);
        QCOMPARE(list.chosen(), QStringList{u"1a"_s});
        QTest::keyClick(&list, Qt::Key_Up);
        QCOMPARE(list.currentItem()->text(), u"1b"_s);
        QTest::keyClick(&list, Qt::Key_Space);
        QCOMPARE(list.chosen(), QStringList({u"1a"_s, u"1b"_s}));
    }

    void whatIsStillThereStaysChosen() {
        ChoiceList list(u"lstKlassen"_s, u"Klassen"_s);
        list.setEntries({u"1a"_s, u"1b"_s, u"2a"_s});
        list.choose({u"1b"_s, u"2a"_s});
        list.setEntries({u"1a"_s, u"2a"_s, u"3a"_s});
        QCOMPARE(list.chosen(), QStringList{u"2a"_s});
    }

    void theBoxChoosesEveryEntryOrNone() {
        QWidget window;
        auto* column = new QVBoxLayout(&window);
        auto* list = new ChoiceList(u"lstKlassen"_s, u"Klassen"_s);
        column->addWidget(list);
        column->addWidget(chooseAllBox(u"chkKlassen_Y_N"_s, u"Aktiv J/N"_s, *list));
        list->setEntries({u"1a"_s, u"1b"_s});
        QVERIFY(shown(window));
        press(window, u"chkKlassen_Y_N"_s);
        QCOMPARE(list->chosen(), QStringList({u"1a"_s, u"1b"_s}));
        press(window, u"chkKlassen_Y_N"_s);
        QVERIFY(list->chosen().isEmpty());
    }

    void anImageIsReachedByTabAndSaysWhatItDoes() {
        const std::unique_ptr<QToolButton> image(
            imageButton(u"imgAuswahlAlle"_s, u"alle"_s, u"Alle auswählen"_s));
        QCOMPARE(image->focusPolicy(), Qt::TabFocus);
        QCOMPARE(image->accessibleName(), u"Alle auswählen"_s);
        QCOMPARE(image->toolTip(), u"Alle auswählen"_s);
    }

    void aFilledBoxShowsTheRememberedEntryElseTheFirst_data() {
        QTest::addColumn<int>("remembered");
        QTest::addColumn<int>("shown");
        QTest::newRow("none") << 0 << 0;
        QTest::newRow("the second") << 1 << 1;
        QTest::newRow("the last") << 2 << 2;
        QTest::newRow("one that is gone") << 3 << 0;
        QTest::newRow("nothing chosen") << -1 << 0;
    }
    void aFilledBoxShowsTheRememberedEntryElseTheFirst() {
        QFETCH(int, remembered);
        QFETCH(int, shown);
        QComboBox box;
        const QSignalSpy changes(&box, &QComboBox::currentIndexChanged);
        fillBox(box, {u"MO"_s, u"DI"_s, u"MI"_s}, remembered);
        QCOMPARE(box.currentIndex(), shown);
        QVERIFY(changes.isEmpty());
        fillBox(box, {}, remembered);
        QCOMPARE(box.currentIndex(), -1);
    }
};

KOLIBRI_TEST_MAIN(ChoiceListTest)
#include "choice_list_test.moc"
