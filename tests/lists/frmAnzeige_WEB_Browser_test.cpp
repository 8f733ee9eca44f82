#include "core/mdlGlobal.h"
#include "core/page_module.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "lists/frmAnzeige_WEB_Browser.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "support/driving.h"
#include "support/expected_page.h"
#include "support/paper.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QProcess>
#include <QScreen>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

frmAnzeige_WEB_Browser& window() {
    return Form<frmAnzeige_WEB_Browser>();
}

QWidget& browser() {
    return control<QWidget>(window(), u"WebBrowser1"_s);
}

/// What has the keyboard while the page is being read.
QWidget& page() {
    return browser().focusProxy() ? *browser().focusProxy() : browser();
}

void trigger(const QString& entry) {
    auto* action = window().findChild<QAction*>(entry);
    if (!action || !action->isEnabled())
        qFatal("no entry %s", qPrintable(entry));
    action->trigger();
}

/// Shows a list and waits until its window can be used.
void open(quint8 listenArt) {
    prepareList(listenArt);
    window().ShowPage(nullptr);
    QVERIFY(QTest::qWaitForWindowActive(&window()));
}

void addModule(int id, const QString& name) {
    addRow(u"Bausteine"_s, {{u"ID"_s, id}, {u"Bausteine"_s, name}});
}

QString writePage(const QString& name, const QByteArray& body) {
    const QString path = QFileInfo(pageFile()).path() + u'/' + name;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write("<HTML><BODY>" + body + "</BODY></HTML>") < 0)
        qFatal("no page");
    return path;
}

/// Shows a page with this body, as a list would bring it.
void showBody(const QByteArray& body) {
    window().ShowFile(writePage(u"probe.html"_s, body));
    QVERIFY(shown(window()));
}

QString shownText() {
    return sheetTexts(window().Pdf()).join(QString());
}

/// Looks for a text in the page that is shown and tells what the line for searching says.
QString searched(const QString& text) {
    auto& places = control<QLabel>(window(), u"lblTreffer"_s);
    QTest::keyClick(&page(), Qt::Key_F, Qt::ControlModifier);
    auto& box = control<QLineEdit>(window(), u"txtSuchen"_s);
    box.clear();
    places.clear();
    box.setText(text);
    if (!QTest::qWaitFor([&] { return !places.text().isEmpty(); }))
        return u"no answer"_s;
    return places.text();
}

int dotsOfColour(const QImage& image, QRgb colour) {
    int dots = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            dots += (image.pixel(x, y) & RGB_MASK) == (colour & RGB_MASK) ? 1 : 0;
    return dots;
}

QByteArray pictureOf(const QString& file, Qt::GlobalColor colour) {
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(colour);
    if (!image.save(file))
        qFatal("no picture");
    return "<img src=\"" + QUrl::fromLocalFile(file).toEncoded() + "\">";
}

} // namespace

/// The window that shows the lists.
class FrmAnzeigeWebBrowserTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void theMenuHasItsEntries() {
        const auto* menu = window().findChild<QMenu*>(u"mnuDatei"_s);
        QVERIFY(menu);
        QCOMPARE(menu->title(), u"&Datei"_s);
        QStringList entries;
        for (const auto* action : menu->actions())
            entries << action->objectName() + u": "_s + action->text();
        QCOMPARE(entries,
                 QStringList({u"mnuFensterSchliessen: &Fenster schliessen"_s, u"mnuDrucken: &Drucken"_s,
                              u"mnuPDF: Als PDF speichern"_s, u"mnuExcelExport: Export -> Excel"_s,
                              u"mnuExcelExportAlle: Export -> Excel, alle Zeilen"_s}));
    }

    void aListOpensTheWindowAndWaitsUntilItIsClosed() {
        useEmptyDatabase();
        addModule(1, u"Frühdienst"_s);
        openPageDoors();
        bool seen = false;
        QTimer user;
        connect(&user, &QTimer::timeout, &user, [&] {
            if (!window().isVisible())
                return;
            seen = window().windowTitle() == u"Auswertung"_s && window().isModal()
                   && window().windowModality() == Qt::ApplicationModal && browser().isVisible();
            trigger(u"mnuFensterSchliessen"_s);
        });
        user.start(10);
        showList(kBausteine);
        QVERIFY(seen);
        QVERIFY(!window().isVisible());
        QVERIFY(pageBytes().contains("Fr\xFChdienst"));
    }

    void thePageIsWrittenAnewEachTimeAndNothingOfTheListBeforeIsSeen() {
        useEmptyDatabase();
        addModule(1, u"Erster"_s);
        open(kBausteine);
        QVERIFY(shownText().contains(u"Erster"_s));
        QTRY_VERIFY(dotsOfColour(browser().grab().toImage(), qRgb(0, 0, 0)) > 0);
        window().hide();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Execute(u"UPDATE Bausteine SET Bausteine = 'Zweiter'"_s);
        }
        prepareList(kBausteine);
        window().ShowPage(nullptr);
        QCOMPARE(searched(u"Erster"_s), u"Nicht gefunden"_s);
        QCOMPARE(searched(u"Zweiter"_s), u"1 Stelle"_s);
    }

    void escClosesTheSearchFirstAndThenTheWindow() {
        useEmptyDatabase();
        open(kBausteine);
        auto& bar = control<QWidget>(window(), u"Suchleiste"_s);
        QTest::keyClick(&page(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(bar.isVisible());
        QTest::keyClick(&control<QLineEdit>(window(), u"txtSuchen"_s), Qt::Key_Escape);
        QVERIFY(!bar.isVisible());
        QVERIFY(window().isVisible());
        QTest::keyClick(&page(), Qt::Key_Escape);
        QVERIFY(!window().isVisible());
    }

    void theSearchTellsHowOftenATextIsThere() {
        useEmptyDatabase();
        addModule(1, u"Hort früh"_s);
        addModule(2, u"Hort spät"_s);
        open(kBausteine);
        QCOMPARE(searched(u"hort"_s), u"2 Stellen"_s);
        QCOMPARE(searched(u"spät"_s), u"1 Stelle"_s);
        QCOMPARE(searched(u"Mittag"_s), u"Nicht gefunden"_s);
    }

    void thePageGrowsAndShrinksWithTheKeyboardAndStaysSo() {
        useEmptyDatabase();
        open(kBausteine);
        const auto zoom = [] { return browser().property("zoomFactor").toDouble(); };
        QCOMPARE(zoom(), 1.0);
        QTest::keyClick(&page(), Qt::Key_Plus, Qt::ControlModifier);
        const double larger = zoom();
        QVERIFY(larger > 1);
        window().hide();
        open(kBausteine);
        QCOMPARE(zoom(), larger);
        QTest::keyClick(&page(), Qt::Key_Minus, Qt::ControlModifier);
        QTest::keyClick(&page(), Qt::Key_Minus, Qt::ControlModifier);
        QVERIFY(zoom() < 1);
        QTest::keyClick(&page(), Qt::Key_0, Qt::ControlModifier);
        QCOMPARE(zoom(), 1.0);
    }

    void theWindowFollowsTheFormatOfTheList() {
        useEmptyDatabase();
        const QSize screen = window().screen()->availableSize();
        Liste().Dialog.optFormat = PaperOrientation::Upright;
        open(kBausteine);
        QCOMPARE(window().size(), QSize(868, 693).boundedTo(screen));
        window().hide();
        Liste().Dialog.optFormat = PaperOrientation::Across;
        open(kBausteine);
        QCOMPARE(window().size(), QSize(1134, 693).boundedTo(screen));
    }

    void withoutAFormatTheWindowKeepsItsSizeAndThePrinterItsOrientation() {
        useEmptyDatabase();
        doors().printer->setOrientation(PaperOrientation::Across);
        window().resize(640, 480);
        Liste().Dialog.optFormat.reset();
        open(kBausteine);
        QCOMPARE(window().size(), QSize(640, 480));
        QCOMPARE(doorsOfTest.orientations().size(), 1U);
        QCOMPARE(sheetSize(window().Pdf()).toSize(), QSize(842, 595));
    }

    void aPageThatCannotBeWrittenLeavesTheWindowClosed() {
        useEmptyDatabase();
        prepareList(kBausteine);
        QVERIFY(QDir(home() + u"/ProgramData"_s).removeRecursively());
        QVERIFY_THROWS_EXCEPTION(RuntimeError, window().ShowPage(nullptr));
        QVERIFY(!window().isVisible());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void aPageFileThatIsNotThereIsAClearError() {
        try {
            window().ShowFile(home() + u"/ProgramData/fehlt.html"_s);
            QFAIL("no error");
        } catch (const PageError& error) {
            QVERIFY2(error.message().contains(u"fehlt.html"_s), qPrintable(error.message()));
            QVERIFY(error.message().endsWith(u"kann nicht angezeigt werden."_s));
        }
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void anotherFileCanBeShownInTheSameWindow() {
        useEmptyDatabase();
        addModule(1, u"Erster"_s);
        open(kBausteine);
        showBody("<p>GRAFIK</p>");
        const QString text = shownText();
        QVERIFY(text.contains(u"GRAFIK"_s));
        QVERIFY(!text.contains(u"Erster"_s));
    }

    void markupFromTheDataIsShownAsMarkupRunsNothingAndAsksNoNetwork() {
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        useEmptyDatabase();
        const QString address = u"http://127.0.0.1:%1/"_s.arg(server.serverPort());
        addModule(1,
                  u"<b>FETT</b><script>document.body.textContent='LIEF'</script><img src=\"%1a.png\" "
                  u"onerror=\"document.body.textContent='LIEF'\"><noscript>OHNE</noscript>"_s.arg(address));
        open(kBausteine);
        QVERIFY(pageBytes().contains("<script>document.body.textContent='LIEF'</script>"));
        QCOMPARE(searched(u"LIEF"_s), u"Nicht gefunden"_s);
        QCOMPARE(searched(u"FETT"_s), u"1 Stelle"_s);
        // Only where scripts are off.
        QCOMPARE(searched(u"OHNE"_s), u"1 Stelle"_s);
        const QString paper = shownText();
        QVERIFY(paper.contains(u"FETT"_s) && paper.contains(u"OHNE"_s));
        QVERIFY(!paper.contains(u"LIEF"_s) && !paper.contains(u"<b>"_s));
        expectOnlyOwnCallTo(server);
    }

    void noKindOfMarkupReachesANetwork() {
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        const QByteArray address = "http://127.0.0.1:" + QByteArray::number(server.serverPort()) + '/';
        QByteArray body;
        for (const char* part :
             {"<img src=\"%1\">", "<img src=\"//127.0.0.1:%2/\">", "<link rel=\"stylesheet\" href=\"%1\">",
              "<link rel=\"preconnect\" href=\"%1\">", "<link rel=\"dns-prefetch\" href=\"%1\">",
              "<link rel=\"prefetch\" href=\"%1\">", "<link rel=\"preload\" as=\"image\" href=\"%1\">",
              "<link rel=\"icon\" href=\"%1\">", "<script src=\"%1\"></script>",
              "<iframe src=\"%1\"></iframe>", "<object data=\"%1\"></object>", "<embed src=\"%1\">",
              "<video src=\"%1\" autoplay></video>", "<audio src=\"%1\" autoplay></audio>",
              "<style>@import url(\"%1\"); @font-face { font-family: x; src: url(\"%1\") } p { font-family: "
              "x; "
              "background-image: url(\"%1\") }</style>",
              "<p style=\"background: url('%1')\">SCHLUSS</p>", "<input type=\"image\" src=\"%1\">",
              "<meta http-equiv=\"refresh\" content=\"0;url=%1\">"})
            body += QByteArray(part)
                        .replace("%1", address)
                        .replace("%2", QByteArray::number(server.serverPort()));
        showBody(body);
        QTRY_VERIFY(dotsOfColour(browser().grab().toImage(), qRgb(255, 255, 255)) > 0);
        QCOMPARE(searched(u"SCHLUSS"_s), u"1 Stelle"_s);
        QVERIFY(shownText().contains(u"SCHLUSS"_s));
        expectOnlyOwnCallTo(server);
    }

    void thePageLeadsNowhereElse() {
        const QString other = writePage(u"anders.html"_s, "<p>ANDERS</p>");
        const QByteArray link = QUrl::fromLocalFile(other).toEncoded();
        showBody("<a href=\"" + link + "\" style=\"display:block;height:500px\">VERWEIS</a>"
                 + "<meta http-equiv=\"refresh\" content=\"0;url=" + link + "\"><iframe src=\"" + link
                 + "\"></iframe>");
        QTRY_VERIFY(dotsOfColour(browser().grab().toImage(), qRgb(255, 255, 255)) > 0);
        QTest::mouseClick(&page(), Qt::LeftButton, {}, QPoint(100, 200));
        QCOMPARE(searched(u"VERWEIS"_s), u"1 Stelle"_s);
        QCOMPARE(searched(u"ANDERS"_s), u"Nicht gefunden"_s);
        QCOMPARE(browser().property("url").toUrl().fileName(), u"probe.html"_s);
    }

    void picturesComeOnlyFromTheFoldersOfThePageAndTheProgram() {
        const QString besidePage = QFileInfo(pageFile()).path() + u"/rot.png"_s;
        const QByteArray body =
            pictureOf(besidePage, Qt::red) + pictureOf(scratch() + u"/blau.png"_s, Qt::blue);
        showBody(body);
        QTRY_VERIFY(dotsOfColour(browser().grab().toImage(), qRgb(255, 0, 0)) >= 40 * 40);
        QCOMPARE(dotsOfColour(browser().grab().toImage(), qRgb(0, 0, 255)), 0);
    }

    void theEngineLeavesNothingOnTheDisk() {
        useEmptyDatabase();
        addModule(1, u"Frühdienst"_s);
        open(kBausteine);
        QVERIFY(!shownText().isEmpty());
        QCOMPARE(QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)).exists(), false);
        QCOMPARE(QDir(QStandardPaths::writableLocation(QStandardPaths::CacheLocation)).exists(), false);
    }

    void withoutAPrinterTheOfficeIsToldSo() {
        if (pageModule().hasPrinter())
            QSKIP("this machine has a printer");
        useEmptyDatabase();
        open(kBausteine);
        doorsOfTest.expect(u"Auf diesem Rechner ist kein Drucker eingerichtet. Die Liste kann als PDF "
                           "gespeichert werden."_s);
        trigger(u"mnuDrucken"_s);
        QVERIFY(window().isVisible());
    }

    void withoutAPrinterTheSheetIsA4() {
        if (pageModule().hasPrinter())
            QSKIP("this machine has a printer");
        openPageDoors();
        QCOMPARE(doors().printer->measures().physicalWidth, 595.0);
        doors().printer->setOrientation(PaperOrientation::Across);
        QCOMPARE(doors().printer->measures().printableWidth, 818.0);
    }

    void aListIsSavedAsPdfUnderItsTitleAndTheDate() {
        useEmptyDatabase();
        open(kBausteine);
        const QString chosen = scratch() + u"/liste.pdf"_s;
        doorsOfTest.answerPath(chosen);
        trigger(u"mnuPDF"_s);
        QCOMPARE(doorsOfTest.dialogs(), QStringList{u"Als PDF speichern"_s});
        QCOMPARE(QFileInfo(doorsOfTest.suggestions().first()).fileName(),
                 u"LISTE BAUSTEINE 20.11.2026.pdf"_s);
        QFile file(chosen);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(sheetTexts(file.readAll()).first().contains(u"BAUSTEINE"_s));
        // The next list goes into the same folder.
        trigger(u"mnuPDF"_s);
        QCOMPARE(QFileInfo(doorsOfTest.suggestions().last()).path(), scratch());
    }

    void theSpreadsheetEntriesLeaveTheWindowOpen() {
        useEmptyDatabase();
        addModule(1, u"Frühdienst"_s);
        open(kBausteine);
        trigger(u"mnuExcelExport"_s);
        trigger(u"mnuExcelExportAlle"_s);
        QCOMPARE(doorsOfTest.openedFiles().size(), 2);
        QVERIFY(window().isVisible());
    }

    void aMissingPageModuleIsSaidInWords() {
        QProcess probe;
        probe.start(QStringLiteral(KOLIBRI_TEST_DIR) + u"/module_probe"_s);
        QVERIFY(probe.waitForFinished());
        QCOMPARE(probe.exitCode(), EXIT_FAILURE);
        const QString words = QString::fromUtf8(probe.readAllStandardOutput());
        QVERIFY2(
            words.startsWith(u"Der Programmteil, der Listen anzeigt und druckt (kolibri_web), kann nicht "
                             "geladen werden."_s),
            qPrintable(words));
    }

private:
    /// A call of the test's own comes in behind whatever the page has sent before; nothing else may be there.
    static void expectOnlyOwnCallTo(QTcpServer& server) {
        int calls = 0;
        const auto count = [&] {
            while (auto* caller = server.nextPendingConnection()) {
                ++calls;
                caller->deleteLater();
            }
        };
        QTcpSocket own;
        own.connectToHost(server.serverAddress(), server.serverPort());
        QVERIFY(own.waitForConnected());
        QTRY_VERIFY((count(), calls > 0));
        QCOMPARE(calls, 1);
    }
};

KOLIBRI_TEST_MAIN(FrmAnzeigeWebBrowserTest)
#include "frmAnzeige_WEB_Browser_test.moc"
