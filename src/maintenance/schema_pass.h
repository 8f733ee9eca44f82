#pragma once

#include "core/store/connection.h"

#include <functional>

namespace kolibri {

/// The kind of a column; no value when the table or the column does not exist.
std::optional<ColumnKind> SpaltenTyp(Connection& conn, const QString& tabelle, const QString& spalte);
/// True if the column exists.
bool SpalteVorhanden(Connection& conn, const QString& tabelle, const QString& spalte);
/// Turns a column into another kind, values included. False, and nothing changed, when that cannot be done.
bool SpalteAendern(Connection& conn, const QString& tabelle, const QString& spalte, ColumnKind typ);

/// Compares the open database with the schema, adds what is missing and sets the five upgrade flags of the
/// shared state for the conversions that the file needs. `beforeFirstChange` runs once, before anything is
/// written; on a current file it does not run and nothing is written.
void runSchemaPass(Connection& conn, const std::function<void()>& beforeFirstChange);

} // namespace kolibri
