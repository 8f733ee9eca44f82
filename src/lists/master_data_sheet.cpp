#include "lists/master_data_sheet.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/rich_text.h"
#include "lists/list_columns.h"
#include "lists/list_state.h"
#include "lists/page_body.h"
#include "lists/page_geometry.h"
#include "lists/page_writer.h"
#include "lists/program_picture.h"
#include "lists/pupil_fields.h"
#include "lists/row_codes.h"

#include <algorithm>
#include <array>
#include <numeric>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Heading of a contact person, one of the person's fields, and a day of the week table.
const QString kCodeKontaktTitel = u"51"_s;
const QString kCodeKontakt = u"52"_s;
const QString kCodeTag = u"53"_s;

/// Day, Mensa, Lernzeit and the working groups stand side by side.
constexpr int kWeekColumns = 4;
/// Two working groups fit side by side, so that a full week still leaves the sheet on one page.
constexpr std::array<int, kWeekColumns> kWeekWeights{2, 5, 5, 10};
constexpr int kMaxSheetRows = 99;
constexpr int kFirstGroup = 3;
constexpr int kLastGroup = 7;

/// The labels take less room on the sheet than a list's columns would give them.
constexpr qint16 kLabelWeight = 3;
constexpr qint16 kValueWeight = 15;

void addRow(const QString& code, const QStringList& cells) {
    auto& liste = Liste();
    for (int i = 0; i < cells.size(); ++i)
        liste.Daten(i + 1, liste.ZeilenNr) = cells.at(i);
    liste.ZeilenCode(liste.ZeilenNr) = code;
    liste.naechsteZeile();
}

/// A tick, as markup. The address has no quotation marks around it, so a blank in it must not end it.
QString tick(bool set) {
    return set ? u"<img src="_s + programPicture(u"OK.png"_s).replace(u' ', u"%20"_s) + u'>' : QString();
}

/// The labels of a contact person and the contact fields (by number) behind them.
struct ContactLine {
    QString label;
    std::vector<int> fields;
};

/// The labels are those that parents have on their sheets from all the years before, slip included.
const std::vector<ContactLine>& contactLines() {
    static const std::vector<ContactLine> lines{
        {u"Gesetzl. Vertreter"_s, {0, 1}}, {u"Strasse"_s, {2}}, {u"PLZ"_s, {3}},          {u"Ort"_s, {4}},
        {u"Tel. privat"_s, {5}},           {u"Mobil"_s, {6}},   {u"Tel. Arrbeit"_s, {7}}, {u"E-Mail"_s, {8}},
        {u"Verw. Verhältnis"_s, {9}}};
    return lines;
}

QString contactText(const Recordset& pupil, const ContactLine& line, int person) {
    QStringList parts;
    for (const int field : line.fields)
        parts << pupil.Text(contactColumn(field, person));
    parts.removeAll(QString());
    return parts.join(u' ');
}

void addContact(const Recordset& pupil, int person) {
    std::vector<QString> texts;
    for (const auto& line : contactLines())
        texts.push_back(contactText(pupil, line, person));
    if (std::all_of(texts.begin(), texts.end(), [](const QString& text) { return text.isEmpty(); }))
        return;
    addRow(kCodeKontaktTitel, {u"KONTAKT %1"_s.arg(person)});
    for (std::size_t i = 0; i < texts.size(); ++i)
        addRow(kCodeKontakt, {contactLines()[i].label, texts[i]});
}

/// The remark, which the pupil form keeps as rich text; one from before that is on the sheet as it stands.
QString remark(const Recordset& pupil) {
    const QString stored = pupil.Text(u"Anmerkung");
    return isRtf(stored) ? toHtml(readRtf(stored)) : stored;
}

/// The working groups of a day from morning to evening, two in a line.
QString groupsOfDay(const Recordset& pupil, const QString& day) {
    QStringList groups;
    for (int slot = kFirstGroup; slot <= kLastGroup; ++slot)
        groups << pupil.Text(u"GR%1_%2"_s.arg(slot).arg(day));
    groups.removeAll(QString());
    groups.sort(); // the texts begin with their times
    QString text;
    for (qsizetype i = 0; i < groups.size(); ++i) {
        if (i > 0)
            text += i % 2 == 0 ? u"<br />"_s : u", "_s;
        text += groups.at(i);
    }
    return text;
}

void addWeek(const Recordset& pupil) {
    for (int day = 0; day < kSchoolDays; ++day) {
        const QString code = TagCode(day);
        addRow(kCodeTag,
               {code, pupil.Text(u"GR1_"_s + code), pupil.Text(u"GR2_"_s + code), groupsOfDay(pupil, code)});
    }
}

void addPupil(const Recordset& pupil) {
    addRow(kCodeDaten, {u"Geburtsdatum"_s, pupil.Text(u"SCH_Geb")});
    addRow(kCodeDaten, {u"Klasse"_s, pupil.Text(u"Klasse")});
    addRow(kCodeDaten, {u"Schüler Neu"_s, tick(pupil.Bool(u"Neu"))});
    addRow(kCodeDaten, {u"Nicht OG Schüler"_s, tick(pupil.Bool(u"NichtOG"))});
    addRow(kCodeDaten, {u"Schwimmer"_s, tick(pupil.Text(u"Schwimmer") == u"JA")});
    addRow(kCodeDaten, {u"Baustein"_s, pupil.Text(u"Baustein")});
    addRow(kCodeDaten, {u"Kennung"_s, pupil.Text(u"Kennung")});
    for (int person = 1; person <= kContactPersons; ++person)
        addContact(pupil, person);
    addRow(kCodeDaten, {u"Notfall Rufnummer"_s, pupil.Text(u"NotfallRN")});
    addRow(kCodeDaten, {u"Anmerkung"_s, remark(pupil)});
    addWeek(pupil);
}

/// The rows of the contacts take the rest of the sheet's width for their second cell, and so follow the
/// columns of the table however many it has.
void writeMasterRow(PageWriter& page, int row) {
    const auto& liste = Liste();
    const QString& code = liste.ZeilenCode(row);
    const QString& label = liste.Daten(1, row);
    beginRow(page, u"Liste_Stammdaten");
    if (code == kCodeKontaktTitel)
        page.line({cellStart(1), u"<b>", label, u"</b></TD>"});
    else
        page.line({cellStart(1), label, u"</TD>"});
    if (code == kCodeDaten)
        page.line({cellStart(2), liste.Daten(2, row), u"</TD>"});
    else
        page.line({u"<TD COLSPAN=", QString::number(liste.SpaltenAnzahl - 1), u" ALIGN=",
                   liste.SpaltenAlign(2), u">", liste.Daten(2, row), u"</TD>"});
    endRow(page);
}

void writeMasterRows(PageWriter& page) {
    const auto& liste = Liste();
    beginTable(page, u"Tpt");
    for (int row = 1; row <= liste.ZeilenAnzahl; ++row)
        if (liste.ZeilenCode(row) != kCodeTag)
            writeMasterRow(page, row);
    endTable(page);
}

void writeWeekRow(PageWriter& page, int row, int widthUnit) {
    beginRow(page, u"ME_LZ_AG_Daten1");
    for (int column = 1; column <= kWeekColumns; ++column) {
        const int width = kWeekWeights[static_cast<std::size_t>(column - 1)] * widthUnit;
        page.line({u"<TD WIDTH=", QString::number(width), u"pt ALIGN=center>", Liste().Daten(column, row),
                   u"</TD>"});
    }
    endRow(page);
}

void writeWeek(PageWriter& page) {
    const auto& liste = Liste();
    beginTable(page, u"Tpt");
    beginRow(page, u"STD_KopfZeile");
    for (const QStringView heading : {u"TAG", u"ME", u"LZ", u"AG"})
        page.line({u"<TD align='center'>", heading, u"</TD>"});
    endRow(page);
    const int weights = std::accumulate(kWeekWeights.begin(), kWeekWeights.end(), 0);
    const int widthUnit = wholeNumber(static_cast<double>(liste.Seite.TabellenBreite) / weights);
    for (int row = 1; row <= liste.ZeilenAnzahl; ++row)
        if (liste.ZeilenCode(row) == kCodeTag)
            writeWeekRow(page, row, widthUnit);
    endTable(page);
}

} // namespace

void StammdatenBlatt_Sammeln() {
    auto& liste = Liste();
    const DbSession session(u"Stammdatenblatt lesen"_s);
    const Recordset pupil =
        Global().Conn.Open(u"SELECT * FROM Stammdaten WHERE ID = ?"_s, {liste.BlattSchuelerID});
    liste.dimensionieren(kWeekColumns, kMaxSheetRows);
    liste.BlattTitel.clear();
    liste.ZeilenNr = 1;
    if (!pupil.Eof()) {
        liste.BlattTitel = pupil.Text(u"SCH_Name") + u' ' + pupil.Text(u"SCH_Vorname");
        addPupil(pupil);
    }
    liste.ZeilenAnzahl = liste.ZeilenNr - 1;
}

void StammdatenBlatt_Schreiben(PageWriter& page) {
    auto& liste = Liste();
    liste.SpaltenGewicht(1) = kLabelWeight;
    liste.SpaltenGewicht(2) = kValueWeight;
    computeWidths();
    beginBody(page);
    writeTitle(page, liste.BlattTitel, TitleEnd::Plain);
    beginBoxTable(page);
    writeMasterRows(page);
    page.line(u"<br />");
    writeWeek(page);
    endBody(page);
}

} // namespace kolibri
