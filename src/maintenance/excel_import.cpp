#include "maintenance/excel_import.h"

#include "core/klasse_neu.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/progress.h"
#include "maintenance/safety_net.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kPupils = u"Stammdaten"_s;
const QString kClass = u"Klasse"_s;

std::vector<ExcelField> makeFields() {
    std::vector<ExcelField> fields{
        {0, u"SCH-Nachname:"_s, u"SCH_Name"_s},      {1, u"SCH-Vorname:"_s, u"SCH_Vorname"_s},
        {2, u"Geb. Datum:"_s, u"SCH_Geb"_s},         {3, u"Klasse:"_s, kClass},
        {4, u"Mitgliedsbeitrag"_s, u"MI_Beitrag"_s}, {5, u"Betreuungsentgelt:"_s, u"BT_Beitrag"_s}};
    const std::vector<std::pair<QString, QString>> contact{
        {u"Nachname:"_s, u"GV_Name"_s}, {u"Vorname:"_s, u"GV_Vorname"_s},
        {u"Strasse:"_s, u"Strasse"_s},  {u"PLZ:"_s, u"PLZ"_s},
        {u"Ort:"_s, u"Ort"_s},          {u"Telefon privat:"_s, u"Tel_privat"_s},
        {u"Mobil"_s, u"Mobil"_s},       {u"Telefon dienst."_s, u"Tel_Dienst"_s},
        {u"Email:"_s, u"E_Mail"_s},     {u"Verwandt:"_s, u"Verwandt"_s}};
    for (int number = 1; number <= kExcelContacts; ++number) {
        int index = number * kExcelContactStep;
        for (const auto& [label, column] : contact)
            fields.push_back({index++, label, column + QString::number(number)});
    }
    return fields;
}

/// Blanks at both ends go, nothing else.
QString trimmed(QString text) {
    while (text.startsWith(u' '))
        text.remove(0, 1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

std::size_t positionOf(const QString& column) {
    const auto& fields = excelFields();
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (fields[i].column == column)
            return i;
    Q_UNREACHABLE();
}

/// The class as the import splits it: one character each, so that "10a" gets the grade 1 and the letter 0.
void setClass(NewRow& row, const QString& text) {
    row.SetIfPossible(u"Schulstufe"_s, text.first(1));
    if (text.size() > 1)
        row.SetIfPossible(u"Kl_Nr"_s, text.sliced(1, 1));
}

void addPupil(Connection& conn, const QStringList& values) {
    const auto& fields = excelFields();
    NewRow row = conn.AddNew(kPupils);
    row.Set(u"aktiv"_s, true);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const QString& value = values.at(static_cast<qsizetype>(i));
        if (value.isEmpty())
            continue;
        row.SetIfPossible(fields[i].column, value);
        if (fields[i].column == kClass)
            setClass(row, value);
    }
    row.Update();
}

/// The row itself is at fault, not the store: another one may still be written.
bool isFaultOfTheRow(const StoreError& error) {
    using enum StoreError::Kind;
    return error.kind() == Value || error.kind() == KeyTaken || error.kind() == Syntax;
}

bool isStartersClass(const QString& text) {
    return text == u"0"_s || KlasseSchulanfaengerGueltig(text);
}

ExcelImportResult import(const Spreadsheet& sheet, const ExcelAssignment& assignment, bool overwrite) {
    constexpr int kWhole = 1;
    const Progress progress(u"Die Excel-Daten werden eingelesen..."_s, kWhole);
    auto& conn = Global().Conn;
    const auto rows = ExcelDatenLesen(sheet, assignment);
    if (overwrite) {
        withSafetyCopy(conn, [&] { ExcelDaten_inDB_Schreiben(conn, rows, true); });
    } else {
        Transaction transaction(conn);
        ExcelDaten_inDB_Schreiben(conn, rows, false);
        transaction.Commit();
    }
    return {static_cast<int>(sheet.rows.size() - rows.size()), makeMissingClasses(rows)};
}

QString leftOutText(int rows) {
    return (rows == 1 ? u"1 Zeile der Excel-Datei wurde nicht übernommen."_s
                      : u"%1 Zeilen der Excel-Datei wurden nicht übernommen."_s.arg(rows))
           + u" Es können höchstens %1 Zeilen auf einmal eingelesen werden."_s.arg(kMostExcelRows);
}

} // namespace

const std::vector<ExcelField>& excelFields() {
    static const std::vector<ExcelField> fields = makeFields();
    return fields;
}

QStringList ExcelSpalten(const Spreadsheet& sheet) {
    return sheet.columns.mid(0, kMostExcelColumns);
}

std::vector<QStringList> ExcelDatenLesen(const Spreadsheet& sheet, const ExcelAssignment& assignment) {
    const QStringList columns = ExcelSpalten(sheet);
    std::vector<QStringList> ExcelDaten;
    for (const auto& row : sheet.rows) {
        if (ExcelDaten.size() == kMostExcelRows)
            break;
        QStringList values;
        for (const auto& field : excelFields()) {
            const qsizetype column = columns.indexOf(assignment.value(field.index));
            values << (column < 0 ? QString() : trimmed(row.value(column)));
        }
        ExcelDaten.push_back(values);
    }
    return ExcelDaten;
}

void ExcelDaten_inDB_Schreiben(Connection& conn, const std::vector<QStringList>& rows, bool overwrite) {
    // The notes of the old pupils stay. Keys are never given twice, so nobody finds them again.
    if (overwrite)
        conn.Delete(kPupils);
    for (const auto& row : rows) {
        try {
            addPupil(conn, row);
        } catch (const StoreError& error) {
            if (!isFaultOfTheRow(error))
                throw;
        }
    }
}

QStringList makeMissingClasses(const std::vector<QStringList>& rows) {
    const auto position = static_cast<qsizetype>(positionOf(kClass));
    QStringList seen;
    QStringList made;
    for (const auto& row : rows) {
        const QString& text = row.at(position);
        if (isStartersClass(text) || seen.contains(text, Qt::CaseInsensitive))
            continue;
        seen << text;
        try {
            if (KlasseAnlegen(text) == KlasseErgebnis::Erstellt)
                made << text;
        } catch (const StoreError& error) {
            if (!isFaultOfTheRow(error))
                throw;
        }
    }
    return made;
}

std::optional<Spreadsheet> ExcelDateiOeffnen(const QString& tool) {
    const QString path = doors().files->chooseFile(u"Exceldatei öffnen"_s, Global().DB_Pfad,
                                                   u"*.xls (Exceldateien) (*.xls)"_s);
    if (path.isEmpty())
        return std::nullopt;
    const QString name = QFileInfo(path).fileName();
    if (!name.endsWith(u".xls"_s, Qt::CaseInsensitive) && !name.endsWith(u".xlsx"_s, Qt::CaseInsensitive)) {
        MsgBox(u"Ausgewählte Datei  '"_s + name + u"'  ist keine Excel-Datei!"_s);
        return std::nullopt;
    }
    return readSpreadsheetInOwnProcess(tool, path);
}

bool ExcelDatenImportieren(const Spreadsheet& sheet, const ExcelAssignment& assignment, bool overwrite) {
    auto& global = Global();
    global.MsgBoxKnoepfe = u"36"_s;
    global.MsgBoxTitel = u"Excel Daten Importieren"_s;
    global.MsgBoxText = overwrite
                            ? u"Wollen Sie vorhandene Daten wirklich überschreiben?"_s
                            : u"Wollen Sie die Excel-Daten wirklich an die vorhandenen Daten anfügen?"_s;
    MsgBoxZeigen();
    if (global.MsgBoxAntwort == kAnswerNo)
        return false;
    ExcelImportResult result;
    {
        const DbSession session(u"Excel-Daten importieren"_s);
        result = import(sheet, assignment, overwrite);
        for (const auto& name : result.newClasses)
            KlasseMelden(KlasseErgebnis::Erstellt, name);
    }
    MsgBox(u"Die Daten wurden übergeben!"_s);
    if (result.rowsLeftOut > 0)
        MsgBox(leftOutText(result.rowsLeftOut));
    return true;
}

} // namespace kolibri
