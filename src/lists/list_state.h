#pragma once

#include "core/doors.h"
#include "core/mdlGlobal.h"
#include "lists/care/care_options.h"
#include "lists/care/mensa_pupils.h"
#include "lists/cell_table.h"
#include "lists/dialog_options.h"
#include "lists/groups/group_options.h"
#include "lists/notes/note_options.h"
#include "lists/page_values.h"
#include "lists/reports/occupancy_plan.h"
#include "students/fees.h"

#include <QDate>
#include <QString>

#include <array>
#include <vector>

namespace kolibri {

/// Most columns of a list.
inline constexpr int kMaxSpalten = 99;
/// Most rows of a list, unless its gatherer asks for the room that its pupils need.
inline constexpr int kMaxZeilenCodes = 999;
/// The row counter has 16 bits.
inline constexpr int kMaxZeilenNr = 32767;

/// Alignment of a column; any other number leaves the alignment of the list before.
enum Ausrichtung : quint8 { kLinks = 1, kRechts = 2, kMitte = 3 };

/// The one list in production. Its gatherer fills this state, its writer and the spreadsheet export read it,
/// and they know nothing else of each other. Everything counts from 1.
struct ListState {
    int SpaltenAnzahl = 0;
    /// What stands over a column.
    ListArray<QString> SpaltenText{kMaxSpalten, u"SpaltenText"};
    /// What a column is: its text, unless the list has another word for it.
    ListArray<QString> SpaltenKey{kMaxSpalten, u"SpaltenKey"};
    /// Width of a column in proportion to the others.
    ListArray<qint16> SpaltenGewicht{kMaxSpalten, u"SpaltenGewicht"};
    ListArray<quint8> SpaltenAusrichtung{kMaxSpalten, u"SpaltenAusrichtung"};
    /// Width of a column in points, and its alignment as the page writes it.
    ListArray<qint16> SpaltenBreitePt{kMaxSpalten, u"SpaltenBreitePt"};
    ListArray<QString> SpaltenAlign{kMaxSpalten, u"SpaltenAlign"};

    CellTable Daten;
    /// What the writer does with a row; a row whose code is no number is skipped.
    ListArray<QString> ZeilenCode{kMaxZeilenCodes, u"ZeilenCode"};
    /// Marks on the cells of the occupancy plan.
    CellTable BelegungMark;
    int ZeilenAnzahl = 0;
    /// The row being gathered.
    int ZeilenNr = 0;

    /// The list has a Friday column.
    bool FreitagBelegt = false;
    /// Columns with the keys "ORT" and "Mannschaft" do not count when the width is shared out. No list asks
    /// for that.
    bool OhneOrt = false;

    /// Number of contact columns, and which contact field (0 to 9) each of them shows, from left to right.
    int KontaktSpalten = 0;
    std::vector<int> KontaktNummern;
    /// Which fee (0 to 6) each fee column shows, from left to right.
    std::vector<int> BeitragNummern;
    /// Sums of the seven fees, in ten-thousandths.
    std::array<qint64, kBeitraege> BeitragSummen{};
    /// Number of pupils of an Arbeitsgruppe.
    int AnzahlAG = 0;
    /// The day on which the list was asked for.
    QDate ListenDatum;

    /// What the option forms say.
    DialogOptions Dialog;
    WochenplanOptions Wochenplan;
    CareOptions MensaLernzeit;
    GroupOptions Arbeitsgruppe;
    MensaPupilOptions MensaSchueler;
    NoteOptions Notizen;
    /// The pupil whose master data sheet is asked for, and the heading of that sheet.
    qint64 BlattSchuelerID = 0;
    QString BlattTitel;

    /// The occupancy plan behind the rows, from which its picture is drawn.
    OccupancyPlan Belegung;

    /// Values of the page, filled anew for each.
    PageValues Seite;

    /// Goes on to the next row. @throws RuntimeError 6 when the counter is full
    void naechsteZeile();
    /// Makes Daten anew with these bounds and the row codes empty, for a gatherer that begins.
    /// @param zeilenCodes bound of ZeilenCode where the list may be longer than others
    void dimensionieren(int spalten, int zeilen, int zeilenCodes = kMaxZeilenCodes);
};

/// The list state in use.
ListState& Liste();
/// Throws the list state away and begins a new one.
void ListeNeu();

} // namespace kolibri
