#include "core/frmStart.h"
#include "core/frmStart_view.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/menu_table.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

/// 1366 x 768 dots at 200 percent, less the frame and the desktop's bar.
const QSize kSmallScreen(683, 340);

} // namespace

class frmStartViewTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    frmStart& window() { return Form<frmStart>(); }
    QAction* action(const QString& name) { return window().findChild<QAction*>(name); }
    QPushButton* button(const QString& name) { return window().findChild<QPushButton*>(name); }
    QString text(const QString& label) { return window().findChild<QLabel*>(label)->text(); }

    void show(StartState state) {
        window().setState(state);
        window().show();
        QVERIFY(QTest::qWaitForWindowExposed(&window()));
    }

    /// Labels and buttons have the room that their words need; the window may have to be scrolled for it.
    void verifyNoTextIsCut() {
        for (auto* part : window().centralWidget()->findChildren<QWidget*>()) {
            const bool words = qobject_cast<QLabel*>(part) || qobject_cast<QPushButton*>(part);
            if (!words || !part->isVisible())
                continue;
            const int height = part->hasHeightForWidth() ? part->heightForWidth(part->width())
                                                         : part->minimumSizeHint().height();
            QVERIFY2(part->height() >= height, qPrintable(part->objectName()));
            QVERIFY2(part->width() >= part->minimumSizeHint().width(), qPrintable(part->objectName()));
        }
    }

private Q_SLOTS:
    void aLargeButtonIsPressedByEnterSpaceAndItsLetter() {
        show(StartState::Ready);
        window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window()));
        QAction* entry = action(u"mnuTagesplan"_s);
        disconnect(entry, &QAction::triggered, &window(), nullptr);
        const QSignalSpy triggered(entry, &QAction::triggered);
        auto* plan = button(u"Liste_Tagesplan"_s);
        plan->setFocus();
        QTest::keyClick(plan, Qt::Key_Return);
        QCOMPARE(triggered.size(), 1);
        QTest::keyClick(plan, Qt::Key_Space);
        QCOMPARE(triggered.size(), 2);
        QTest::keyClick(&window(), Qt::Key_T, Qt::AltModifier);
        QTRY_COMPARE(triggered.size(), 3);
    }

    void tabGoesThroughAllLargeButtonsInTheirOrder() {
        show(StartState::Ready);
        window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window()));
        button(u"SchülerNeu"_s)->setFocus();
        QStringList order;
        for (std::size_t i = 0; i < largeButtons().size(); ++i) {
            order << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QStringList expected;
        for (const auto& large : largeButtons())
            expected << large.name;
        QCOMPARE(order, expected);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"SchülerNeu"_s);
    }

    void aButtonTellsItsTipInTheStatusBar() {
        show(StartState::Ready);
        QCOMPARE(button(u"Belegug_Mensa"_s)->statusTip(), action(u"mnuBelegungME"_s)->statusTip());
        QStatusTipEvent tip(button(u"Belegug_Mensa"_s)->statusTip());
        QCoreApplication::sendEvent(&window(), &tip);
        QCOMPARE(window().statusBar()->currentMessage(), u"Freie und belegte Plätze der Mensa"_s);
    }

    void theSchoolStandsInTheHeadAsItIsWritten() {
        Global().SchuleOrganisation = u"Grundschule <b>Am Bach</b>"_s;
        Global().SchuleStrasse = u"Bachweg 1"_s;
        Global().SchulePLZOrt = u"53111 Bonn"_s;
        show(StartState::Ready);
        QCOMPARE(text(u"lblOrganisation"_s), u"Grundschule <b>Am Bach</b>"_s);
        QCOMPARE(window().findChild<QLabel*>(u"lblOrganisation"_s)->textFormat(), Qt::PlainText);
        QCOMPARE(text(u"lblAnschrift"_s), u"Bachweg 1, 53111 Bonn"_s);
        QVERIFY(window().findChild<QLabel*>(u"lblAnschrift"_s)->isVisible());
    }

    void withoutAnAddressTheHeadHasNoEmptyLines() {
        Global().SchulePLZOrt = u"53111 Bonn"_s;
        show(StartState::Ready);
        QVERIFY(!window().findChild<QLabel*>(u"lblOrganisation"_s)->isVisible());
        QCOMPARE(text(u"lblAnschrift"_s), u"53111 Bonn"_s);
        Global().SchulePLZOrt.clear();
        window().setState(StartState::Ready);
        QVERIFY(!window().findChild<QLabel*>(u"lblAnschrift"_s)->isVisible());
    }

    void withoutDatabaseTheWindowTellsWhereItLooked() {
        Global().DB_Pfad = u"/srv/schule"_s;
        show(StartState::WithoutDatabase);
        QVERIFY(window().findChild<QLabel*>(u"lblOhneDatenbank"_s)->isVisible());
        QCOMPARE(text(u"lblGesucht"_s),
                 u"Gesucht wurde: "_s + QDir::toNativeSeparators(u"/srv/schule/KOLIBRI_Daten.mdb"_s));
        QVERIFY(text(u"lblAbhilfe"_s).contains(u"Extras → Einstellungen"_s));
    }

    void theWindowFitsASmallScreenAtDoubleScale() {
        show(StartState::Ready);
        for (const auto state : {StartState::Ready, StartState::WithoutDatabase}) {
            window().setState(state);
            QVERIFY(window().minimumSizeHint().width() <= kSmallScreen.width());
            QVERIFY(window().minimumSizeHint().height() <= kSmallScreen.height());
            window().resize(kSmallScreen);
            QCoreApplication::processEvents();
            QVERIFY(!window().findChild<QScrollArea*>()->horizontalScrollBar()->isVisible());
        }
    }

    void noTextIsCutWhateverTheSizeOfLettersAndWindow() {
        const QFont usual = QApplication::font();
        for (const int points : {9, 14, 20}) {
            QFont font = usual;
            font.setPointSize(points);
            QApplication::setFont(font);
            unloadForms();
            Global().SchuleOrganisation = u"Gemeinschaftsgrundschule Am Mühlenbach"_s;
            for (const auto state : {StartState::Ready, StartState::WithoutDatabase}) {
                show(state);
                for (const QSize& size : {kSmallScreen, window().size(), QSize(1900, 1000)}) {
                    window().resize(size);
                    QCoreApplication::processEvents();
                    verifyNoTextIsCut();
                }
            }
        }
        QApplication::setFont(usual);
    }

    void theWindowOpensNoLargerThanTheScreenAndScrollsOnlyWhenItMust() {
        show(StartState::Ready);
        const QRect screen = window().screen()->availableGeometry();
        QVERIFY(window().width() <= screen.width() && window().height() <= screen.height());
        QVERIFY(!window().findChild<QScrollArea*>()->verticalScrollBar()->isVisible());
        QVERIFY(!window().findChild<QScrollArea*>()->horizontalScrollBar()->isVisible());
    }
};

KOLIBRI_TEST_MAIN(frmStartViewTest)
#include "frmStart_view_test.moc"
