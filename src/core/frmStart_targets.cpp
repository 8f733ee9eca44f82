#include "core/frmStart_targets.h"

#include "calendar/frmBaustein.h"
#include "calendar/frmBelegungsplan_ME_LZ.h"
#include "calendar/frmKlassenNeuLoeschen.h"
#include "calendar/frmKlassenZuweisung.h"
#include "calendar/frmListentext.h"
#include "calendar/frmME_LZ_AG.h"
#include "calendar/frmStundenplan.h"
#include "calendar/frmUnterrichtseinheiten.h"
#include "calendar/frmUnterrichtszeiten.h"
#include "core/frmEinstellungen.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/menu_table.h"
#include "core/platform/places.h"
#include "core/settings_file.h"
#include "core/startup.h"
#include "core/widgets/forms.h"
#include "core/widgets/wait_cursor.h"
#include "lists/care/frmME_Individuell.h"
#include "lists/care/frmME_LZ_Anzeigen.h"
#include "lists/care/frmME_jeSchueler.h"
#include "lists/dayplan/frmWochenplan.h"
#include "lists/frmDialog.h"
#include "lists/groups/frmAG_Anzeigen.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/notes/frmListeNotizen.h"
#include "lists/reports/report_entry.h"
#include "maintenance/backup.h"
#include "maintenance/excel_import.h"
#include "maintenance/frmExcelDaten.h"
#include "maintenance/frmExcelInfo.h"
#include "maintenance/jet_takeover.h"
#include "maintenance/mdlVers111.h"
#include "maintenance/new_database.h"
#include "maintenance/restore.h"
#include "maintenance/sample_school.h"
#include "maintenance/school_year.h"
#include "maintenance/tool_process.h"
#include "maintenance/upgrade.h"
#include "students/frmSchuelerIn.h"
#include "students/frmWP_Notizen.h"

#include <QDir>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kInformation = 64;

/// Runs a command that is told the number of a list.
template <void (*show)(quint8)> void list(QWidget*, const MenuTask& task) {
    show(task.listenArt);
}

void info(QWidget*, const MenuTask&) {
    MsgBox(u"Kolibri\n"_s + versionLine(), kInformation, u"Info"_s);
}

/// Looks at every pupil of the school before the page opens.
void overlapReport(QWidget*, const MenuTask& task) {
    {
        const WaitCursor wait;
        prepareList(task.listenArt);
    }
    doors().page->show();
}

/// Lets the user choose a folder, makes a database in it, and has the program look there from its next start
/// on.
void makeDatabase(const std::function<void(const QString&)>& make) {
    const QString start = DateiVorhanden(Global().DB_Pfad) ? Global().DB_Pfad : baseFolder();
    const QString folder = QDir::toNativeSeparators(
        doors().files->chooseFolder(u"Bitte wählen Sie einen Ordner aus..."_s, start));
    if (folder.isEmpty())
        return;
    {
        const WaitCursor wait;
        make(folder);
    }
    writeDatabaseFolder(settingsFile(), folder);
    Global().DB_Pfad = folder;
    MsgBox(u"Zur Übernahme der Daten bitte das Programm neu starten!"_s);
}

void newDatabase(QWidget*, const MenuTask&) {
    makeDatabase([](const QString& folder) { createDatabase(folder); });
}

void sampleSchool(QWidget*, const MenuTask&) {
    makeDatabase([](const QString& folder) { createSampleSchool(folder, {}); });
}

/// Runs an action that needs no form.
template <void (*action)()> void command(QWidget*, const MenuTask&) {
    action();
}

/// Opens a form in the mode of the menu entry.
template <class T> void open(QWidget* window, const MenuTask& task) {
    T& form = Form<T>();
    form.Tag = task.mode;
    if (!task.caption.isEmpty())
        form.setWindowTitle(task.caption);
    form.ShowOver(window);
}

/// Shows the sheet of the pupil selected on the pupil form.
void printPupil() {
    Liste().BlattSchuelerID = Global().AktuelleSchuelerID;
    showList(kStammdatenBlatt);
}

void pupilForm(QWidget* window, const MenuTask& task) {
    schuelerFormZiele().drucken = printPupil;
    open<frmSchülerIn>(window, task);
}

void excelImport(QWidget* window, const MenuTask&) {
    const auto sheet = ExcelDateiOeffnen(toolPath());
    if (!sheet)
        return;
    auto& form = Form<frmExcelDaten>();
    form.SetSheet(*sheet);
    form.ShowOver(window);
}

} // namespace

StartSteps startSteps() {
    return {.beforeOpening =
                [](const QString& file) { return offerTakeover(file, {.protocolFolder = baseFolder()}); },
            .bringUpToDate = bringUpToDate,
            .finishUpgrade = fillNewSlots};
}

const std::map<QString, MenuTarget>& menuTargets() {
    static const std::map<QString, MenuTarget> targets{
        {u"Beenden"_s, [](QWidget* window, const MenuTask&) { window->close(); }},
        {u"BerichtMitFrage"_s, list<Bericht_Zeigen>},
        {u"BerichtArbeitsgruppen"_s, list<showList>},
        {u"Belegung"_s, list<Belegung_Zeigen>},
        {u"ListeZeitüberschneidungen"_s, overlapReport},
        {u"Info"_s, info},
        {u"SchülerListeSofort"_s, list<showList>},
        {u"ListeUnterrichtszeiten"_s, list<showList>},
        {u"ListeBausteine"_s, [](QWidget*, const MenuTask&) { showList(kBausteine); }},
        {u"frmDialog"_s, open<frmDialog>},
        {u"Datensicherung"_s, command<DatensicherungErstellen>},
        {u"DatenWiederherstellen"_s, command<DatenWiederherstellen>},
        {u"ExcelImport"_s, excelImport},
        {u"WechselSchuljahr"_s, command<WechselSchuljahr>},
        {u"DatenbankAktualisieren"_s, command<DatenbankAktualisieren>},
        {u"NeueDatenbank"_s, newDatabase},
        {u"Beispielschule"_s, sampleSchool},
        {u"frmBaustein"_s, open<frmBaustein>},
        {u"frmAG_Anzeigen"_s, open<frmAG_Anzeigen>},
        {u"frmBelegungsplan_ME_LZ"_s, open<frmBelegungsplan_ME_LZ>},
        {u"frmEinstellungen"_s, open<frmEinstellungen>},
        {u"frmExcelInfo"_s, open<frmExcelInfo>},
        {u"frmKlassenNeuLöschen"_s, open<frmKlassenNeuLöschen>},
        {u"frmKlassenZuweisung"_s, open<frmKlassenZuweisung>},
        {u"frmListeNotizen"_s, open<frmListeNotizen>},
        {u"frmListentext"_s, open<frmListentext>},
        {u"frmME_Individuell"_s, open<frmME_Individuell>},
        {u"frmME_LZ_AG"_s, open<frmME_LZ_AG>},
        {u"frmME_LZ_Anzeigen"_s, open<frmME_LZ_Anzeigen>},
        {u"frmME_jeSchüler"_s, open<frmME_jeSchüler>},
        {u"frmSchülerIn"_s, pupilForm},
        {u"frmStundenplan"_s, open<frmStundenplan>},
        {u"frmUnterrichtseinheiten"_s, open<frmUnterrichtseinheiten>},
        {u"frmUnterrichtszeiten"_s, open<frmUnterrichtszeiten>},
        {u"frmWP_Notizen"_s, open<frmWP_Notizen>},
        {u"frmWochenplan"_s, open<frmWochenplan>},
    };
    return targets;
}

} // namespace kolibri
