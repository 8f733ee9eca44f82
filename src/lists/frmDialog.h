#pragma once

#include "core/widgets/forms.h"
#include "lists/dialog_options.h"

#include <array>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;

namespace kolibri {

/// Asks for the order, the choice, the columns and the format of a list of pupils. ListenArt says of which;
/// it is set before the form is shown. Left in either way, the form begins anew with its first choices.
class frmDialog : public FormWindow {
public:
    frmDialog();

protected:
    void Prepare() override;
    void hideEvent(QHideEvent* event) override;

private:
    QGroupBox* buildSorting();
    QGroupBox* buildFilter();
    QGroupBox* buildFormat();
    QGroupBox* buildOutput();

    /// What the controls say.
    DialogOptions collect() const;
    /// Puts options into the controls.
    void display(const DialogOptions& options);
    /// Offers the words that the chosen columns can be sorted by; a word that is still offered stays chosen.
    void SortierKriterien();
    /// Each fills one of the filters from the shared class lists, behind "Alles auswählen".
    void Alle_Klassen_auslesen();
    void Alle_Schulstufen_auslesen();
    void Alle_Klassen_NR_auslesen();
    void fillContactCategories();
    /// Enables and shows what the present choices give a meaning.
    void followChoices();
    void ok();

    QButtonGroup* optEbene;
    std::array<QComboBox*, 2> cmbSortieren;
    QButtonGroup* optFiltern;
    std::array<QComboBox*, 3> cmbFiltern;
    QButtonGroup* optFormat;
    QCheckBox* chkKontakteNeu;
    std::array<QComboBox*, 3> cmbKontakte;
    QCheckBox* chkBaustein;
    QCheckBox* chkSchwimmer;
    QCheckBox* chkKennung;
    QCheckBox* chkKlasse;
    QCheckBox* chkGebDatum;
    QCheckBox* chkBeiträge;
    QGroupBox* frmFiltern;
    /// The form is filling its controls; their changes are nobody's choice.
    bool m_filling = false;
};

} // namespace kolibri
