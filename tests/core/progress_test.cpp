#include "core/doors.h"
#include "core/progress.h"
#include "core/widgets/application.h"
#include "core/widgets/qt_doors.h"
#include "support/test_base.h"

#include <QProgressDialog>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

/// Notes what the door is told.
class NotingDoor final : public ProgressDoor {
public:
    explicit NotingDoor(QStringList& notes) : m_notes(notes) {}
    void begin(const QString& text, int steps) override { m_notes << u"%1 %2"_s.arg(text).arg(steps); }
    void step(int done) override { m_notes << QString::number(done); }
    void end() override { m_notes << u"Ende"_s; }

private:
    QStringList& m_notes;
};

QProgressDialog* window() {
    for (auto* widget : QApplication::topLevelWidgets())
        if (auto* dialog = qobject_cast<QProgressDialog*>(widget))
            return dialog;
    return nullptr;
}

} // namespace

/// Telling the user how far long work has come.
class ProgressTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void theDoorIsToldEachHundredthOnce() {
        QStringList notes;
        doors().progress = std::make_unique<NotingDoor>(notes);
        {
            Progress progress(u"Arbeit"_s, 5000);
            for (const qint64 done : {1, 49, 50, 99, 100, 2500, 5000, 6000, -1})
                progress.Reach(done);
        }
        doors().progress.reset();
        QCOMPARE(notes, QStringList({u"Arbeit 100"_s, u"1"_s, u"2"_s, u"50"_s, u"100"_s, u"0"_s, u"Ende"_s}));
    }

    void theDoorIsToldTheEndWhenTheWorkFails() {
        QStringList notes;
        doors().progress = std::make_unique<NotingDoor>(notes);
        try {
            const Progress progress(u"Arbeit"_s, 0);
            throw std::runtime_error("halb fertig");
        } catch (const std::runtime_error&) {
            notes << u"Fehler"_s;
        }
        doors().progress.reset();
        QCOMPARE(notes, QStringList({u"Arbeit 100"_s, u"Ende"_s, u"Fehler"_s}));
    }

    void nobodyNeedsToWatch() {
        doors().progress.reset();
        Progress progress(u"Arbeit"_s, 10);
        progress.Reach(5);
    }

    void theWaitCursorComesAtOnceAndTheWindowLater() {
        openQtDoors();
        {
            Progress progress(u"Die Daten werden wiederhergestellt..."_s, 1'000'000);
            QVERIFY(QApplication::overrideCursor());
            QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
            progress.Reach(10'000);
            QVERIFY(window() && window()->isHidden());
            constexpr int kVeryLong = 20'000;
            QElapsedTimer running;
            running.start();
            for (qint64 done = 20'000; window()->isHidden() && running.elapsed() < kVeryLong;
                 done = (done + 10'000) % 1'000'000)
                progress.Reach(done);
            QVERIFY(window()->isVisible());
            QCOMPARE(window()->windowTitle(), u"Kolibri"_s);
            QCOMPARE(window()->labelText(), u"Die Daten werden wiederhergestellt..."_s);
            progress.Reach(750'000);
            QCOMPARE(window()->value(), 75);
        }
        QVERIFY(!window());
        QVERIFY(!QApplication::overrideCursor());
    }
};

KOLIBRI_TEST_MAIN(ProgressTest)
#include "progress_test.moc"
