#pragma once

#include "lists/list_texts.h"

#include <QString>
#include <QStringList>

namespace kolibri {

/// Variants of a Mensa or Lernzeit list, as ListenUnterArt tells them.
enum CareVariant : quint8 {
    kKlassenGruppiert = 1, ///< one offering, the classes of a letter
    kEinheiten = 2,        ///< several offerings, all classes
    kEineKlasse = 3        ///< one offering, one class
};

/// What the form frmME_LZ_Anzeigen asks for, as plain values named like its controls.
struct CareOptions {
    QString cmbKlasse;
    /// Long name of the offering, and what the form reads of it.
    QString cmbME_LZ;
    QString txtZeit;
    QString txtZeit_K_Name;
    QString txtK_Name;
    /// The chosen entries of lstME_LZ.
    QStringList lstME_LZ;
    /// The week, printed as it is typed.
    QString txtVon;
    QString txtBis;
    ListTexts texte;
};

/// An entry of lstME_LZ: "Mensa früh  (13:00 - 13:45 ME1)".
QString careEntry(const QString& langname, const QString& zeitKName);
/// The long name and the key of such an entry.
struct CareEntry {
    QString langname;
    QString zeitKName;
};
CareEntry splitCareEntry(const QString& entry);

/// "GR1" for the Mensa lists, "GR2" for those of the Lernzeit.
QString careGroup(quint8 listenArt);

/// A distinct offering of GR1 or GR2, for the boxes of the form.
struct CareOffering {
    QString langname;
    QString zeit;
    QString zeitKName;
};
/// The offerings by long name, from the open store.
std::vector<CareOffering> careOfferings(quint8 listenArt);
/// Puts what is known of the long name into the options: time, key and short name of its first row, or
/// nothing when it has none. The store is open.
void readCareOffering(quint8 listenArt, CareOptions& options);

/// The texts of the class and the time in the options, from the open store.
ListTexts careTexts(const CareOptions& options);
/// Keeps the texts of the options; nothing when no class or no offering is chosen. A Mensa and a Lernzeit
/// list of one class and time have the same texts.
void saveCareTexts(quint8 listenArt, const CareOptions& options);

/// What is missing before a list of this variant can be made; empty when nothing is.
QString missingCareChoice(quint8 unterArt, const CareOptions& options);

} // namespace kolibri
