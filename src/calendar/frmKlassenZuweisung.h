#pragma once

#include "calendar/offerings.h"
#include "core/widgets/forms.h"

class QComboBox;
class QLabel;

namespace kolibri {

class FieldFrame;

/// Gives one offering of one day to a whole class, in one of the modes "Mensa", "Lernzeit" and
/// "Arbeitsgruppe".
class frmKlassenZuweisung : public FormWindow {
public:
    frmKlassenZuweisung();

protected:
    void Prepare() override;

private:
    /// Fills the box of classes; the database is open.
    void klassenEintragen();
    /// Fills the box of offerings for the chosen day; the database is open.
    void ME_LZ_AG_ZeitenEintragen();
    void ok();

    OfferingKind m_kind = OfferingKind::Mensa;
    QLabel* lblKlassenZuweisungText;
    FieldFrame* frmEinheit;
    QComboBox* cmbEinheitTag;
    QComboBox* cmbEinheit;
    QComboBox* cmbKlasse;
};

} // namespace kolibri
