#pragma once

#include "core/rich_text.h"

namespace kolibri {

/// The stored form of a pupil's remark: markup as short as it can be, nothing for an empty remark. A remark
/// without marks that is too long as markup, as some of older files are, stays the plain text that it was.
QString AnmerkungSpeicherform(const RichText& anmerkung);
/// True if the column takes the stored form.
bool AnmerkungPasst(const QString& speicherform);
/// How much of the column the stored form takes: "118 / 255".
QString AnmerkungZaehler(const QString& speicherform);
/// What the user is told about a remark that the column does not take.
QString AnmerkungZuLang(const QString& speicherform);

} // namespace kolibri
