#pragma once

#include "core/widgets/forms.h"

namespace kolibri {

/// What a spreadsheet must be like to be read in.
class frmExcelInfo : public FormWindow {
public:
    frmExcelInfo();
};

} // namespace kolibri
