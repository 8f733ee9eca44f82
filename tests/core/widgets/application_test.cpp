#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/store/store_error.h"
#include "core/widgets/application.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

class ApplicationTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    const MessageBox& onlyBox() {
        if (doorsOfTest.boxes().size() != 1)
            qFatal("%d boxes", static_cast<int>(doorsOfTest.boxes().size()));
        return doorsOfTest.boxes().front();
    }

    /// The state after every error: nothing open, nothing waiting, and events still arrive.
    void verifyProgramIsAlive() {
        QVERIFY(!Global().Conn.IsOpen());
        QVERIFY(!QGuiApplication::overrideCursor());
        bool arrived = false;
        QTimer::singleShot(0, this, [&] { arrived = true; });
        QTRY_VERIFY(arrived);
    }

private Q_SLOTS:
    void aStoreErrorInAButtonsHandlerIsShownAndTheProgramGoesOn() {
        useEmptyDatabase();
        QPushButton button(u"OK"_s);
        int finished = 0;
        int pressed = 0;
        connect(&button, &QPushButton::clicked, this, [&] {
            if (++pressed == 1) {
                QGuiApplication::setOverrideCursor(Qt::WaitCursor);
                QGuiApplication::setOverrideCursor(Qt::BusyCursor);
                OpenDB();
                StoreError error(StoreError::Kind::Busy, u"Die Datenbank ist gesperrt."_s, u"Klassen"_s,
                                 u"database is locked"_s);
                error.setPurpose(u"Klassen laden"_s);
                throw error;
            }
            ++finished;
        });
        button.show();
        doorsOfTest.expect(u"Klassen laden: Die Datenbank ist gesperrt."_s);
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(onlyBox().title, u"Kolibri"_s);
        QCOMPARE(onlyBox().code, 16);
        QCOMPARE(onlyBox().details,
                 u"Vorgang: Klassen laden\nTabelle: Klassen\nMeldung der Datenbank: database is locked"_s);
        verifyProgramIsAlive();
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(finished, 1);
        QCOMPARE(doorsOfTest.boxes().size(), std::size_t(1));
    }

    void aStatementThatFailsInsideASessionNamesItsPurpose() {
        useEmptyDatabase();
        doorsOfTest.expectBeginning(u"Bausteine lesen: "_s);
        QTimer::singleShot(0, this, [] {
            const DbSession session(u"Bausteine lesen"_s);
            Global().Conn.Open(u"SELECT * FROM GibtEsNicht"_s);
        });
        QTRY_COMPARE(doorsOfTest.boxes().size(), std::size_t(1));
        QVERIFY(onlyBox().details.startsWith(u"Vorgang: Bausteine lesen\n"_s));
        verifyProgramIsAlive();
    }

    void aRuntimeErrorInATimerIsShownWithNumberAndWords() {
        useEmptyDatabase();
        QTimer timer;
        int ticks = 0;
        connect(&timer, &QTimer::timeout, this, [&] {
            if (++ticks == 1) {
                OpenDB();
                QGuiApplication::setOverrideCursor(Qt::WaitCursor);
                throw RuntimeError::outOfRange(u"mehr als 999 Zeilen"_s);
            }
            timer.stop();
        });
        doorsOfTest.expect(u"Laufzeitfehler '9': Index außerhalb des gültigen Bereichs"_s);
        timer.start(0);
        QTRY_COMPARE(ticks, 2);
        QCOMPARE(onlyBox().details, u"mehr als 999 Zeilen"_s);
        verifyProgramIsAlive();
    }

    void anyOtherExceptionInAMenuActionIsShownAsUnexpected() {
        useEmptyDatabase();
        QMainWindow window;
        QMenu* menu = window.menuBar()->addMenu(u"Menü"_s);
        int chosen = 0;
        connect(menu->addAction(u"Fehler"_s), &QAction::triggered, this, [&] {
            if (++chosen == 1) {
                OpenDB();
                QGuiApplication::setOverrideCursor(Qt::WaitCursor);
                throw std::out_of_range("vector::_M_range_check");
            }
        });
        window.show();
        const auto chooseWithTheMouse = [&] {
            menu->popup(window.pos());
            QTest::mouseClick(menu, Qt::LeftButton, {},
                              menu->actionGeometry(menu->actions().first()).center());
        };
        doorsOfTest.expect(u"Unerwarteter Fehler. Der Vorgang wurde abgebrochen."_s);
        chooseWithTheMouse();
        QCOMPARE(chosen, 1);
        QCOMPARE(onlyBox().details, u"vector::_M_range_check"_s);
        QVERIFY(!QApplication::activePopupWidget());
        verifyProgramIsAlive();
        chooseWithTheMouse();
        QCOMPARE(chosen, 2);
    }

    void whatIsNoExceptionAtAllIsCaughtToo() {
        doorsOfTest.expect(u"Unerwarteter Fehler. Der Vorgang wurde abgebrochen."_s);
        QTimer::singleShot(0, this, [] { throw 42; });
        QTRY_COMPARE(doorsOfTest.boxes().size(), std::size_t(1));
        QCOMPARE(onlyBox().details, QString());
        verifyProgramIsAlive();
    }

    void anErrorWhileTheBoxIsBeingReadShowsNoSecondOne() {
        // As with a real box, events go on arriving while it is open.
        class Waiting : public MessageDoor {
        public:
            Waiting(int& shown, const int& failures) : m_shown(shown), m_failures(failures) {}
            MessageAnswer show(const MessageBox&) override {
                ++m_shown;
                while (m_failures < 4)
                    QCoreApplication::processEvents();
                return kAnswerOk;
            }

        private:
            int& m_shown;
            const int& m_failures;
        };
        int shown = 0;
        int failures = 0;
        doors().messages = std::make_unique<Waiting>(shown, failures);
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            if (++failures >= 4)
                timer.stop();
            throw RuntimeError::overflow();
        });
        timer.start(0);
        QTimer::singleShot(0, this, [&] {
            ++failures;
            throw RuntimeError::typeMismatch();
        });
        QTRY_VERIFY(!timer.isActive());
        QVERIFY(failures >= 4);
        QCOMPARE(shown, 1);
    }

    void theProgramSpeaksGerman() {
        QCOMPARE(QLocale().decimalPoint(), u","_s);
        QCOMPARE(QLocale().toString(12.5, 'f', 2), u"12,50"_s);
        QCOMPARE(QCoreApplication::applicationVersion(), u"1.2.0"_s);
        QCOMPARE(QGuiApplication::desktopFileName(), u"kolibri"_s);
        QVERIFY(!QApplication::windowIcon().pixmap(16, 16).isNull());
    }
};

KOLIBRI_TEST_MAIN(ApplicationTest)
#include "application_test.moc"
