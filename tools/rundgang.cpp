// Walks through the windows of the program on the sample school, and leaves a picture of each and the lists
// of the day as PDF in a folder. Called by run.sh where there is no display, and for the pictures of the
// manual.

#include "core/error_report.h"
#include "core/frmEinstellungen.h"
#include "core/frmStart.h"
#include "core/frmStart_targets.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "lists/list_helpers.h"
#include "maintenance/frmExcelDaten.h"
#include "walk.h"
#include "walk_controls.h"
#include "walk_doors.h"

#include <QCommandLineParser>
#include <QDir>
#include <QLoggingCategory>
#include <QTextStream>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

/// The main window as it stands before there is a database, and as it stands every day.
void showMainWindow(Walk& road, frmStart& start) {
    auto& folder = Global().DB_Pfad;
    const QString school = std::exchange(folder, u"/home/buero/Kolibri"_s);
    start.setState(StartState::WithoutDatabase);
    start.show();
    road.picture(start, u"hauptfenster-ohne-datenbank"_s);
    folder = school;
    start.setState(StartState::Ready);
    road.picture(start, u"hauptfenster"_s);
}

/// Behind its menu entry stands a file dialog, so the window gets its sheet here.
void showImport(Walk& road, frmStart& start) {
    auto& form = Form<frmExcelDaten>();
    form.SetSheet({u"Schüler"_s,
                   {u"Name"_s, u"Rufname"_s, u"geboren"_s, u"Kl."_s, u"Mutter"_s, u"Telefon"_s},
                   {{u"Amsel"_s, u"Ida"_s, u"04.03.2018"_s, u"2a"_s, u"Amsel, Ute"_s, u"0123 4567"_s}}});
    form.ShowOver(&start);
    const std::vector<Filling> columns{{u"cmbDatenExcel(0)"_s, u"Name"_s},
                                       {u"cmbDatenExcel(1)"_s, u"Rufname"_s},
                                       {u"cmbDatenExcel(2)"_s, u"geboren"_s},
                                       {u"cmbDatenExcel(3)"_s, u"Kl."_s}};
    for (const auto& column : columns)
        fill(form, column);
    road.picture(form, u"excel-import"_s);
    form.reject();
}

void walk(Walk& road) {
    const StartState state = startUp(QCoreApplication::applicationDirPath(), startSteps());
    if (state != StartState::Ready)
        throw WalkStopped(u"there is no database in %1"_s.arg(Global().DB_Pfad));
    inventAddress();
    Form<frmEinstellungen>();
    auto& start = Form<frmStart>();
    showMainWindow(road, start);
    for (const auto& station : stations())
        road.visit(start, station);
    showImport(road, start);
}

int countPupils() {
    const DbSession session(u"Kinder zählen"_s);
    return pupilCount();
}

void report(const Walk& road, const QDir& folder) {
    const QString place = QDir::toNativeSeparators(folder.absolutePath());
    QTextStream out(stdout);
    out << u"Bilder der Fenster: %1 in %2\n"_s.arg(road.pictures()).arg(place)
        << u"Listen als PDF: %1 in %2\n"_s.arg(road.lists()).arg(place)
        << u"Beispielschule: %1 Kinder in %2 Klassen\n"_s.arg(countPupils())
               .arg(Global().KlassenListe.size());
}

} // namespace

int main(int argc, char** argv) {
    // What the browser engine tells of a machine without graphics hardware helps nobody here.
    QLoggingCategory::setFilterRules(u"qt.webenginecontext=false"_s);
    Application application(argc, argv);
    QCommandLineParser parser;
    parser.addOption({u"breite"_s, u"Kleine Bilder für Dokumente, keines breiter."_s, u"N"_s, u"0"_s});
    parser.addPositionalArgument(u"ORDNER"_s, u"Wohin Bilder und Listen kommen; ohne Angabe out"_s);
    parser.process(application);
    const QDir folder(parser.positionalArguments().value(0, u"out"_s));
    if (!folder.mkpath(u"."_s))
        return EXIT_FAILURE;
    Walk road(folder, parser.value(u"breite"_s).toInt());
    openWalkDoors([&road] { road.page(); });
    int result = EXIT_FAILURE;
    try {
        walk(road);
        report(road, folder);
        // Told of on the terminal already.
        result = boxesOfTrouble() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const WalkStopped& stopped) {
        QTextStream(stderr) << QString::fromUtf8(stopped.what()) << '\n';
    } catch (...) {
        reportError(std::current_exception());
    }
    unloadForms();
    return result;
}
