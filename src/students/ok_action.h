#pragma once

#include "students/pupil_mode.h"
#include "students/pupil_record.h"

#include <optional>

namespace kolibri {

/// Does to the store what the button of the pupil form stands for, with the questions and refusals on the
/// way. The record has passed its checks, and the database is open. `belegtVon` is the workstation that holds
/// the record, if the selection was refused: nothing is written to such a record then, also not when the
/// fields were filled by hand.
/// @returns false when the action ended without a write
bool SchuelerAktionAusfuehren(const SchuelerModus& modus, SchuelerDatensatz& datensatz,
                              const std::optional<QString>& belegtVon);

} // namespace kolibri
