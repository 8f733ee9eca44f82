#pragma once

#include "core/widgets/forms.h"

#include <array>

class QComboBox;
class QLabel;

namespace kolibri {

class FieldFrame;

/// Asks which notes a list shall show: those on assignments in the mode "ME_LZ_AG", those of the Tagesplan in
/// the mode "TP".
class frmListeNotizen : public FormWindow {
public:
    frmListeNotizen();

protected:
    void Prepare() override;

private:
    static constexpr int kBoxes = 3;

    void ok();

    QComboBox* cmbKlasse;
    QComboBox* cmbTag;
    QComboBox* cmbME_LZ_AG;
    QLabel* lblME_LZ_AG = nullptr;
    std::array<QComboBox*, kBoxes> m_boxes;
    /// The entries of the last list, chosen again when the form opens. Both modes share them.
    std::array<int, kBoxes> m_indices{};
};

} // namespace kolibri
