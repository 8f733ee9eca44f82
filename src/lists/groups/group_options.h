#pragma once

#include "lists/groups/group_dates.h"
#include "lists/list_texts.h"

#include <QStringList>

#include <vector>

namespace kolibri {

/// What the form frmAG_Anzeigen asks for, as plain values named like its controls.
struct GroupOptions {
    /// Long name of the Arbeitsgruppe; the texts below it are read of it.
    QString cmbAG;
    QString txtBetreuer;
    QString txtOrt;
    QString txtTag;
    QString txtZeit;
    QString txtK_Name;
    QString txtZeit_K_Name;
    GroupDates txtDatum;
    /// The classes that do not take part, by date.
    std::array<QStringList, kMeetings> lstNichtTeilnehmen;
    /// "Nachname", "Vorname", "Klasse" or "Schulstufe".
    QString cmbSortierung = QStringLiteral("Nachname");
    ListTexts texte;
};

/// An entry of cmbAG: a row of GR3.
struct GroupEntry {
    QString langname;
    QString tag;
    QString zeit;
    QString kurzname;
    QString zeitKName;
};
/// The Arbeitsgruppen by long name, from the open store.
std::vector<GroupEntry> groupEntries();
/// The options with what is known of an entry: leader, place, time and list texts. The store is open.
void readGroup(const GroupEntry& entry, GroupOptions& options);
/// Keeps the texts of the options, which all days of the group share; nothing when no group is chosen.
void saveGroupTexts(const GroupOptions& options);

/// The words of cmbSortierung.
QStringList groupSortWords();
/// Columns of Stammdaten that such a word sorts by; empty for a word that is none.
QString groupSortColumns(const QString& word);

} // namespace kolibri
