#pragma once

#include <QString>
#include <QStringList>

namespace kolibri {

/// The entry of every box of frmListeNotizen that lets all through.
inline const QString kAlle = QStringLiteral("Alle");

/// What the form frmListeNotizen asks for, as plain values named like its controls.
struct NoteOptions {
    QString cmbKlasse = kAlle;
    QString cmbTag = kAlle;
    /// "Mensa", "Lernzeit", "Arbeitsgruppe"; for the notes of the Tagesplan a teaching unit.
    QString cmbME_LZ_AG = kAlle;
};

/// Entries of the boxes: "Alle", and what can be chosen.
QStringList noteClasses();
QStringList noteDays();
QStringList noteGroups();
/// The teaching units of the open database.
QStringList noteUnits();

} // namespace kolibri
