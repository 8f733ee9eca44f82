#pragma once

#include "core/doors.h"

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

namespace kolibri {

/// First entry of the three filter boxes.
inline const QString kAllesAuswaehlen = QStringLiteral("Alles auswählen");

/// What a pupil list is narrowed to; the numbers are those of the option buttons.
enum class PupilFilter : quint8 { Klasse = 0, Schulstufe = 1, KlassenNr = 2 };

/// What the form frmDialog asks for, as plain values named like its controls.
struct DialogOptions {
    /// One or two levels of sorting, and the chosen words.
    int optEbene = 1;
    std::array<QString, 2> cmbSortieren{QStringLiteral("Nachname"), QStringLiteral("Nachname")};
    PupilFilter optFiltern = PupilFilter::Klasse;
    std::array<QString, 3> cmbFiltern{kAllesAuswaehlen, kAllesAuswaehlen, kAllesAuswaehlen};
    /// "HOCH" unless the user chose "QUER"; with neither, the printer keeps its format.
    std::optional<PaperOrientation> optFormat = PaperOrientation::Upright;
    bool chkKontakteNeu = false;
    /// Three categories of contact fields; an empty one adds no column.
    std::array<QString, 3> cmbKontakte;
    bool chkBaustein = false;
    bool chkSchwimmer = false;
    bool chkKennung = false;
    bool chkKlasse = false;
    bool chkGebDatum = false;
    bool chkBeiträge = false;

    /// Clears the seven check boxes, as the lists do that have no options of their own.
    void clearCheckBoxes();
};

/// First entry of the box of grades of the Tagesplan.
inline const QString kAlleSchulstufen = QStringLiteral("Alle");

/// What the form frmWochenplan asks for. The page of every list looks at the chosen day.
struct WochenplanOptions {
    /// A class letter.
    QString cmbKlasse;
    /// Text of cmbTag: a weekday code or a pair of them.
    QString cmbTag;
    /// "2 Tage / Blatt".
    bool chk2Tage = false;
    /// A grade, or all of them.
    QString cmbSchulstufe = kAlleSchulstufen;
};

/// Column of Stammdaten that a word of cmbSortieren stands for; empty for a word that is none.
QString sortColumn(QStringView word);
/// The same for element `ebene` (0 or 1) of cmbSortieren of the present options.
QString Sortierfeld(int ebene);
/// The words that cmbSortieren offers with these options: name first, then what the list shows.
QStringList SortierKriterien(const DialogOptions& options);

} // namespace kolibri
