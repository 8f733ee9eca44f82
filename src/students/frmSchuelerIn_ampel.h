#pragma once

#include "students/overlap_check.h"

#include <QGroupBox>

#include <functional>

class QCheckBox;
class QLabel;

namespace kolibri {

/// The lamps of the pupil form, one for each day, with the waiver of the day and the switch of the whole
/// check.
class SchuelerAmpel : public QGroupBox {
public:
    SchuelerAmpel();

    /// Shows whether the check is on, without asking the store.
    void schalterZeigen(bool an);
    void onSwitched(std::function<void(bool)> handler) { m_switched = std::move(handler); }
    /// Takes all waivers back.
    void leeren();
    /// Adds the waivers to what is to be checked.
    void einsammeln(PruefWoche& woche) const;
    void zeigen(const PruefErgebnis& ergebnis);

private:
    void lampeZeigen(int tag, Ampel ampel);

    QCheckBox* chkZÜ;
    std::array<QLabel*, kSchoolDays> lblAmpel;
    std::array<QCheckBox*, kSchoolDays> chkÜ_Nein;
    /// What the lamps show; they are painted only when it changes.
    std::array<std::optional<Ampel>, kSchoolDays> m_shown;
    std::function<void(bool)> m_switched;
};

} // namespace kolibri
