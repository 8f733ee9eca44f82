#pragma once

#include "core/widgets/forms.h"
#include "lists/groups/group_options.h"

class QCheckBox;
class QComboBox;
class QTimer;
class QToolButton;

namespace kolibri {

class ChoiceList;
class EntryBox;
class ListTextBoxes;

/// Asks for the attendance sheet of an Arbeitsgruppe: the group, its six dates, the order of the pupils, and
/// the classes that do not take part on a date.
class frmAG_Anzeigen : public FormWindow {
public:
    frmAG_Anzeigen();

protected:
    void Prepare() override;
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* buildGroup();
    QWidget* buildFirstMonday();
    QWidget* buildSorting();
    QWidget* buildDates();
    QWidget* buildAbsence();

    void AGs_Auflisten();
    /// Shows what is known of the chosen group, but leaves the dates; the database is open.
    void gruppeAnzeigen();
    void gruppeGewählt();
    /// Shows the group's dates: from the first Monday if that box is set, else its own; the database is open.
    void termineAnzeigen();
    void Eingabefelder_Löschen();
    const GroupEntry* gewählteGruppe() const;

    void setDates(const GroupDates& dates);
    void Datum_MO1WO_anzeigen();
    void Datum_MO1WO_speichern();
    /// The next three read the open database.
    void Datum_MO1WO_laden();
    void Datum_1bis6_Laden();
    void Datum_1bis6_AG_laden();
    void ersterMontag();
    void ersterMontagGewählt(bool gewählt);

    void AG_Nicht_Teilnahme_ListBox_Füllen();
    void AG_NichtTeilnahme_AuswahlToRight(std::size_t date);
    /// Absence can be chosen for a date that stands, and taken over to the next one if that stands, too.
    void ListBoxen_NichtTeilnahme_Enable();

    GroupOptions eingaben() const;
    void ok();

    QComboBox* cmbAG;
    EntryBox* txtBetreuer;
    EntryBox* txtOrt;
    EntryBox* txtTag;
    EntryBox* txtZeit;
    EntryBox* txtK_Name;
    EntryBox* txtZeit_K_Name;
    QCheckBox* chkMO1WO;
    EntryBox* txtMO1WO;
    QComboBox* cmbSortierung;
    std::array<EntryBox*, kMeetings> txtDatum{};
    std::array<ChoiceList*, kMeetings> lstNichtTeilnehmen{};
    std::array<QToolButton*, kMeetings> imgAuswahlAlle{};
    std::array<QToolButton*, kMeetings> imgAuswahlKeine{};
    std::array<QToolButton*, kMeetings - 1> imgAuswahlToRight{};
    ListTextBoxes* m_texts;
    QTimer* Timer1;

    std::vector<GroupEntry> m_groups;
    /// The entry of cmbAG for which a list was made last; -1 before the first.
    int m_groupIndex = -1;
};

} // namespace kolibri
