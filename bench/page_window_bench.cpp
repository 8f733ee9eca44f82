// Time from a menu entry until the page of a list can be read in its window, for the first list of a run,
// which loads the browser engine, and for the ones behind it; and time in which the list becomes a PDF.

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "core/widgets/qt_doors.h"
#include "lists/frmAnzeige_WEB_Browser.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "maintenance/sample_school.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTextStream>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

DialogOptions everyOption() {
    DialogOptions options;
    options.chkKontakteNeu = options.chkBaustein = options.chkSchwimmer = options.chkKennung = true;
    options.chkKlasse = options.chkGebDatum = options.chkBeiträge = true;
    options.cmbKontakte = {u"Name"_s, u"Telefon"_s, QString()};
    options.optFormat = PaperOrientation::Across;
    return options;
}

frmAnzeige_WEB_Browser& window() {
    return Form<frmAnzeige_WEB_Browser>();
}

bool drawn() {
    const QImage image = window().findChild<QWidget*>(u"WebBrowser1"_s)->grab().toImage();
    // Black letters are there; whatever the window shows before the page is of one light colour.
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) == 0)
                return true;
    return false;
}

qint64 openTime(quint8 listenArt, const DialogOptions& options) {
    QElapsedTimer clock;
    clock.start();
    Liste().Dialog = options;
    prepareList(listenArt);
    window().ShowPage(nullptr);
    while (!drawn())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return clock.elapsed();
}

qint64 pdfTime() {
    QElapsedTimer clock;
    clock.start();
    if (window().Pdf().isEmpty())
        throw std::runtime_error("no PDF");
    return clock.elapsed();
}

void measure(int pupils) {
    QTextStream out(stdout);
    QTemporaryDir folder;
    qputenv("KOLIBRI_HOME", folder.path().toLocal8Bit());
    QDir(folder.path()).mkdir(u"ProgramData"_s);
    createSampleSchool(folder.path(), {.pupils = pupils});
    Global().DB_Pfad = folder.path();
    {
        const DbSession session(u"Messung"_s);
        KlassenListenLaden();
    }
    constexpr quint8 kSmall = kBausteine;
    out << pupils << " pupils\n";
    out << "  small list, first or next of the run  " << openTime(kSmall, {}) << " ms\n";
    window().hide();
    out << "  small list, again                     " << openTime(kSmall, {}) << " ms\n";
    window().hide();
    out << "  Erweiterte Liste with all options     " << openTime(kErweiterteListe, everyOption())
        << " ms, PDF " << pdfTime() << " ms\n";
    window().hide();
}

} // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    QCoreApplication::addLibraryPath(QStringLiteral(KOLIBRI_BIN_DIR));
    openQtDoors();
    openPageDoors();
    for (const int pupils : {300, 1000, 3000})
        measure(pupils);
    unloadForms();
    return EXIT_SUCCESS;
}
