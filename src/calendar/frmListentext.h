#pragma once

#include "calendar/offering_texts.h"
#include "core/widgets/forms.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace kolibri {

class EntryBox;
class FieldFrame;
class RichTextBox;

/// The texts before and after the lists, in one of the modes "Mensa", "Lernzeit" and "Arbeitsgruppe".
class frmListentext : public FormWindow {
public:
    frmListentext();

protected:
    void Prepare() override;

private:
    QWidget* buildCare();
    QWidget* buildGroups();
    QWidget* buildTexts();
    /// Shows the frame of the kind and the form as large as it needs.
    void formFormatieren();
    /// Fills the boxes from which the user chooses, with nothing chosen; the database is open.
    void auswahlFüllen();
    void Felder_Löschen();
    void klasseGewählt();
    /// Shows a Mensa or Lernzeit by its long name, and its texts.
    void zeitGewählt();
    void gruppeGewählt();
    /// Shows the stored texts of what is chosen; the database is open.
    void texteZeigen();
    TextOffering auswahl() const;
    void ok();

    OfferingKind m_kind = OfferingKind::Mensa;
    /// Index 0 serves Mensa and Lernzeit, index 1 the working groups.
    std::array<FieldFrame*, 2> frmAuswahl{};
    QComboBox* cmbKlasse;
    QComboBox* cmbME_LZ;
    QLabel* m_offeringLabel = nullptr;
    EntryBox* txtZeit;
    /// Not seen; they carry the keys of the chosen offering.
    QLineEdit* txtZeit_K_Name;
    QLineEdit* txtK_Name;
    QComboBox* cmbText;
    std::array<EntryBox*, 5> txtText{};
    std::array<RichTextBox*, 2> rtfListentext{};
};

} // namespace kolibri
