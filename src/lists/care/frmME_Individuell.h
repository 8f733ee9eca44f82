#pragma once

#include "core/widgets/forms.h"

class QButtonGroup;
class QComboBox;

namespace kolibri {

class ChoiceList;

/// Asks for one Mensa, the classes, and a day or the whole week.
class frmME_Individuell : public FormWindow {
public:
    frmME_Individuell();

protected:
    void Prepare() override;

private:
    QWidget* buildDays();
    void ok();

    QButtonGroup* optTag;
    ChoiceList* lstKlassen;
    QComboBox* cmbMensa;
};

} // namespace kolibri
