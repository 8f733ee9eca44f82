#pragma once

#include "core/widgets/forms.h"

class QCheckBox;

namespace kolibri {

class ChoiceList;

/// Asks for the classes of the Mensa list by pupil.
class frmME_jeSchüler : public FormWindow {
public:
    frmME_jeSchüler();

protected:
    void Prepare() override;

private:
    void ok();

    ChoiceList* lstKlassen;
    QCheckBox* chkMensaMitZeit;
};

} // namespace kolibri
