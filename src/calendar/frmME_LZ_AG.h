#pragma once

#include "calendar/offering_cascades.h"
#include "calendar/offering_check.h"
#include "core/widgets/forms.h"

class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QToolButton;

namespace kolibri {

class EntryBox;
class FieldFrame;
class ListView;

/// The editor of Mensa, Lernzeit and working groups, in the nine modes "MensaNeu" to "ArbeitsgruppeLöschen".
class frmME_LZ_AG : public FormWindow {
public:
    frmME_LZ_AG();

protected:
    void Prepare() override;

private:
    QWidget* buildFields();
    QWidget* buildDays();
    /// Sets captions, and which inputs are shown and enabled, by the mode.
    void ME_LZ_AG_Format();
    void formatBoxes();
    void setFirstFocus();
    void lstME_LZ_AG_Füllen();
    /// Shows the columns and rows of the kind; the database is open.
    void ME_LZ_AG_DatenAnzeigen();
    /// Fills the box of teaching units; the database is open.
    void Zeiten_Unterrichtseinheiten_Einlesen();
    void ME_LZ_AG_EingabefelderLöschen();
    void ME_LZ_AG_FelderFüllen(const Offering& offering);
    void Tag_Auswählen(bool alle);
    void zeileGewählt(const QString& itemText);
    Offering eingaben() const;
    /// Colours the boxes and says what is wrong. True when the entry can be written.
    bool eingabenGültig();
    void ok();
    /// Writes what the mode asks for, and shows the list anew with empty boxes.
    void schreiben();

    OfferingMode m_mode;
    ListView* lvwME_LZ_AG;
    std::array<EntryBox*, kOfferingBoxes> txtME_LZ_AG;
    QComboBox* cmbUE;
    QListWidget* lstME_LZ_AG;
    QToolButton* imgAuswahlAlle;
    QToolButton* imgAuswahlKeine;
    /// The list of weekdays with its two images.
    QWidget* m_dayChoice = nullptr;
    QLabel* m_dayLabel = nullptr;
    FieldFrame* m_frame;
    QPushButton* cmdOK;
    ClickedOffering m_clicked;
};

} // namespace kolibri
