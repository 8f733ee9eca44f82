#pragma once

#include "core/widgets/forms.h"
#include "lists/care/care_options.h"

#include <array>

class QButtonGroup;
class QComboBox;
class QLabel;

namespace kolibri {

class ChoiceList;
class EntryBox;
class FieldFrame;
class ListTextBoxes;

/// Asks for a list of the Mensa or the Lernzeit: one offering with the classes of a letter or with one class,
/// or several offerings with all classes. Which of the two and which variant, the menu entry has told.
class frmME_LZ_Anzeigen : public FormWindow {
public:
    frmME_LZ_Anzeigen();

protected:
    void Prepare() override;

private:
    void buildOffering();
    QWidget* buildMarks();
    QWidget* buildVariants();
    QWidget* buildRemarks();

    /// Sets captions, and which of the two frames is shown.
    void formatieren();
    /// Fills boxes and lists; the database is open.
    void auswahlFüllen();
    void klasseGewählt();
    void ME_LZ_gewählt();
    /// Fills the fields of the chosen offering; the database is open.
    void Zeit_einlesen();
    /// Shows the list texts of class and time; the database is open.
    void Text_Vorher_Nachher_einlesen();
    void varianteGewählt(int index);
    CareOptions eingaben() const;
    void ok();

    FieldFrame* frmAuswahl1;
    QComboBox* cmbKlasse;
    QLabel* lblME_LZ = nullptr;
    QComboBox* cmbME_LZ;
    EntryBox* txtZeit;
    EntryBox* txtZeit_K_Name;
    EntryBox* txtK_Name;
    QWidget* frmAuswahl2 = nullptr;
    ChoiceList* lstKlasse;
    ChoiceList* lstSchulstufe;
    ChoiceList* lstME_LZ;
    QButtonGroup* optListe;
    EntryBox* txtVon;
    EntryBox* txtBis;
    ListTextBoxes* m_texts;

    quint8 m_listenArt = 0;
    /// The kind of list for which the texts were read last.
    int m_textsOf = 0;
    /// Entries of cmbKlasse and cmbME_LZ of the list made last.
    int m_klasseIndex = 0;
    int m_offeringIndex = 0;
};

} // namespace kolibri
