#pragma once

#include "core/widgets/forms.h"
#include "lists/dialog_options.h"

#include <array>

class QCheckBox;
class QComboBox;

namespace kolibri {

class RichTextBox;

/// Asks for the Tagesplan of a class letter on one day or on two, and keeps the additional texts of the
/// classes.
class frmWochenplan : public FormWindow {
public:
    frmWochenplan();

protected:
    void Prepare() override;

private:
    QWidget* buildDisplay();
    QWidget* buildText();
    void auswahlFüllen();
    void tageFüllen(int rememberedIndex);
    void klasseGewählt();
    void textklasseGewählt();
    /// Keeps the text of the class that is shown, if the user has changed it.
    void textSpeichern();
    WochenplanOptions eingaben() const;
    void IndexSpeichern();
    void ok();

    QComboBox* cmbKlasse;
    QComboBox* cmbTag;
    QCheckBox* chk2Tage;
    QComboBox* cmbSeitenumbruch;
    QComboBox* cmbSchulstufe;
    QComboBox* cmbKlasseText;
    RichTextBox* rtfTextWP;

    /// Entries of cmbKlasse, cmbTag, cmbSeitenumbruch and cmbSchulstufe of the plan made last.
    std::array<int, 4> m_index{};
    /// The class whose text the box shows; empty before the first.
    QString m_textKlasse;
};

} // namespace kolibri
