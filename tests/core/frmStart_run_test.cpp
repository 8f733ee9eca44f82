#include "core/frmStart.h"
#include "core/frmStart_run.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/menu_table.h"
#include "core/settings_file.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

const QString kMissing =
    u"Datenbank ***KOLIBRI_Daten.mdb*** wurde nicht gefunden. Bitte korrigieren Sie unter EXTRAS -> "
    "EINSTELLUNGEN den Datenbankpfad!"_s;

QStringList& unloadLog() {
    static QStringList lines;
    return lines;
}

/// A form of the test's own that says when it goes; the second one fails while it does.
template <int N> class Passing : public FormWindow {
public:
    Passing() : FormWindow(u"frmTest"_s) {}
    ~Passing() override { unloadLog() << u"gone %1"_s.arg(N); }
    void Unload() override {
        unloadLog() << u"unload %1"_s.arg(N);
        if (N == 2) {
            OpenDB();
            throw StoreError(StoreError::Kind::Busy, u"gesperrt"_s);
        }
    }
};

} // namespace

class frmStartRunTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    frmStart& window() { return Form<frmStart>(); }
    QAction* action(const QString& name) {
        if (auto* menu = window().findChild<QMenu*>(name))
            return menu->menuAction();
        return window().findChild<QAction*>(name);
    }

    /// Runs the whole program and has `act` happen in its event loop.
    template <class Act> int run(Act act) {
        QTimer::singleShot(0, this, act);
        return runProgram(scratch());
    }

    QByteArray fileContent(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private Q_SLOTS:
    void closingTheWindowEndsTheProgramWithSuccess() {
        useEmptyDatabase();
        bool wasVisible = false;
        const int code = run([&] {
            wasVisible = window().isVisible();
            window().close();
        });
        QVERIFY(wasVisible);
        QCOMPARE(code, 0);
        QVERIFY(!registeredForm(typeid(frmStart)));
    }

    void beendenEndsTheProgramInTheSameWay() {
        useEmptyDatabase();
        QCOMPARE(run([&] { action(u"mnuBeenden"_s)->trigger(); }), 0);
        QVERIFY(!registeredForm(typeid(frmStart)));
    }

    void bothUnloadAllFormsOneAfterTheOtherWithErrorsPassedOver() {
        useEmptyDatabase();
        for (const bool byMenu : {true, false}) {
            unloadLog().clear();
            const int code = run([&] {
                Form<Passing<1>>();
                Form<Passing<2>>();
                byMenu ? action(u"mnuBeenden"_s)->trigger() : static_cast<void>(window().close());
            });
            QCOMPARE(code, 0);
            QCOMPARE(unloadLog(), QStringList({u"unload 2"_s, u"gone 2"_s, u"unload 1"_s, u"gone 1"_s}));
            QVERIFY(!Global().Conn.IsOpen());
            QVERIFY(!registeredForm(typeid(Passing<2>)));
        }
    }

    void closingEndsTheProgramAlsoWhileAFormStandsOpen() {
        useEmptyDatabase();
        QCOMPARE(run([&] {
                     Form<Passing<1>>().ShowOver(&window());
                     window().close();
                 }),
                 0);
    }

    void withoutDatabaseTheProgramGoesOnAfterItsBox() {
        doorsOfTest.expect(kMissing);
        bool reduced = false;
        QCOMPARE(run([&] {
                     reduced =
                         window().isVisible() && !action(u"mnuDatei"_s)->isEnabled() && Global().StartLaeuft;
                     window().close();
                 }),
                 0);
        QVERIFY(reduced);
        QCOMPARE(fileContent(settingsFile()), (u"Datenbankpfad;"_s + home() + u"\r\n"_s).toLatin1());
    }

    void aMissingBaseFolderEndsTheStartWithARuntimeError() {
        const QString missing = scratch() + u"/fehlt"_s;
        qputenv("KOLIBRI_HOME", missing.toLocal8Bit());
        doorsOfTest.expect(u"Laufzeitfehler '76': Pfad nicht gefunden"_s);
        QCOMPARE(runProgram(scratch()), 1);
        QVERIFY(!QFile::exists(missing));
        QVERIFY(!registeredForm(typeid(frmStart)));
    }

    void aDatabaseOfAnotherProgramEndsTheStart() {
        QFile file(DatenbankDatei(home()));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(5000, 'x'));
        file.close();
        doorsOfTest.expectBeginning(u"Programmstart: "_s);
        QCOMPARE(runProgram(scratch()), 1);
        QCOMPARE(fileContent(file.fileName()), QByteArray(5000, 'x'));
    }
};

KOLIBRI_TEST_MAIN(frmStartRunTest)
#include "frmStart_run_test.moc"
