#include "core/startup.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/office_settings.h"
#include "core/platform/places.h"
#include "core/runtime_error.h"
#include "core/settings_file.h"
#include "core/store/schema.h"

#include <QDir>
#include <QSettings>

#include <array>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// One make-directory call: a missing base folder is for whoever installs the program to make, so that a
/// wrong place does not silently become a second, empty one.
void checkProgramDataFolder() {
    const QString folder = programDataFolder();
    if (QDir(folder).exists())
        return;
    if (!QDir(baseFolder()).exists())
        throw RuntimeError::pathNotFound(
            u"Der Ordner %1 fehlt. Bitte legen Sie ihn an und starten Sie das Programm neu."_s.arg(
                QDir::toNativeSeparators(baseFolder())));
    if (!QDir().mkdir(folder))
        throw RuntimeError::fileAccess(
            u"Der Ordner %1 kann nicht angelegt werden."_s.arg(QDir::toNativeSeparators(folder)));
}

void readDatabasePath(const QString& programFolder) {
    auto& global = Global();
    if (const auto folder = readDatabaseFolder(settingsFile())) {
        global.DB_Pfad = *folder;
        return;
    }
    const auto carriedOver = readDatabaseFolder(programFolder + u'/' + kSettingsFileName);
    global.DB_Pfad = carriedOver.value_or(QDir::toNativeSeparators(baseFolder()));
    writeDatabaseFolder(settingsFile(), global.DB_Pfad);
}

void readAddress() {
    auto& global = Global();
    const QSettings settings(u"Nordlicht"_s, u"Kolibri"_s);
    const auto value = [&](const QString& name) { return settings.value(name).toString(); };
    global.SchuleName = value(u"Name"_s);
    global.SchuleOrganisation = value(u"Organisation"_s);
    global.SchuleStrasse = value(u"Strasse"_s);
    global.SchulePLZOrt = value(u"PLZOrt"_s);
    global.SchuleEmail = value(u"Email"_s);
}

void readAdditionalFields() {
    auto& global = Global();
    Recordset rs = global.Conn.Open(u"SELECT Feld, SchülerZusatz FROM Einstellungen"_s);
    const std::array<std::pair<QString, bool*>, 3> fields{{{u"Schwimmer"_s, &global.ZusatzSchwimmer},
                                                           {u"Baustein"_s, &global.ZusatzBaustein},
                                                           {u"Kennung"_s, &global.ZusatzKennung}}};
    for (; !rs.Eof(); rs.MoveNext())
        for (const auto& [name, state] : fields)
            if (rs.Text(u"Feld").compare(name, Qt::CaseInsensitive) == 0)
                *state = rs.Number(u"SchülerZusatz") == 1;
}

void readNameFormats() {
    auto& global = Global();
    const std::array<QString, kNameFormats> rows{u"Name_Liste_ME_LZ"_s, u"Name_Liste_AG"_s,
                                                 u"Name_Wochenplan"_s};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        Recordset rs = global.Conn.Open(
            u"SELECT Feld, NameKurz, NameZuerst FROM Einstellungen WHERE Feld = ?"_s, {rows[i]});
        if (rs.Eof())
            continue;
        global.NameKurz[i] = rs.Text(u"NameKurz");
        global.NameZuerst[i] = rs.Text(u"NameZuerst");
    }
}

void readOverlapSwitch() {
    Recordset rs = Global().Conn.Open(u"SELECT Feld, Grösse FROM Einstellungen WHERE Feld = ?"_s,
                                      {u"Ü-Zeitüberschneidung"_s});
    Global().UeberschneidungPruefen = !rs.Eof() && rs.Text(u"Grösse") == u"1"_s;
}

} // namespace

void SchuldatenbankPruefen() {
    auto& conn = Global().Conn;
    for (const auto& table : schema())
        if (!table.later && !conn.HasTable(table.name))
            throw StoreError(
                StoreError::Kind::Foreign,
                u"Die Datei %1 ist keine Datenbank dieses Programms. Sie wurde nicht verändert."_s.arg(
                    Global().ConnString),
                table.name);
}

void KontaktBezeichnungenLesen() {
    auto& global = Global();
    Recordset rs =
        global.Conn.Open(u"SELECT Nummer, Bezeichnung FROM Einstellungen WHERE Feld = ?"_s, {u"Kontakt"_s});
    for (; !rs.Eof(); rs.MoveNext()) {
        const qint64 number = rs.Number(u"Nummer");
        if (number >= 0 && number < kContactFields)
            global.KontaktBezeichnung[static_cast<std::size_t>(number)] = rs.Text(u"Bezeichnung");
    }
}

StartState startUp(const QString& programFolder, const StartSteps& steps) {
    constexpr int kPlain = 0;
    auto& global = Global();
    global.StartLaeuft = true;
    global.ComputerName = computerName();
    checkProgramDataFolder();
    readDatabasePath(programFolder);
    if (!DateiVorhanden(DatenbankDatei(global.DB_Pfad))) {
        MsgBox(
            u"Datenbank ***KOLIBRI_Daten.mdb*** wurde nicht gefunden. Bitte korrigieren Sie unter EXTRAS -> "
            "EINSTELLUNGEN den Datenbankpfad!"_s,
            kPlain);
        return StartState::WithoutDatabase;
    }
    if (steps.beforeOpening && !steps.beforeOpening(DatenbankDatei(global.DB_Pfad)))
        return StartState::WithoutDatabase;
    {
        const DbSession session(u"Programmstart"_s);
        SchuldatenbankPruefen();
        global.Conn.AllowApostrophes(ApostropheErlaubt(global.Conn));
    }
    if (steps.bringUpToDate)
        steps.bringUpToDate();
    readAddress();
    {
        const DbSession session(u"Programmstart"_s);
        KlassenListenLaden();
        readAdditionalFields();
        KontaktBezeichnungenLesen();
        readNameFormats();
        readOverlapSwitch();
    }
    if (steps.finishUpgrade)
        steps.finishUpgrade();
    global.StartLaeuft = false;
    return StartState::Ready;
}

QString versionLine() {
    return u"Version   "_s + QStringLiteral(KOLIBRI_VERSION);
}

} // namespace kolibri
