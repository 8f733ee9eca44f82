#pragma once

#include "core/store/connection.h"

#include <QString>

#include <vector>

namespace kolibri {

/// A row of the table Einstellungen, by its key and the columns that it uses.
using SettingsRow = FieldValues;

/// The three rows that a file of the first version holds already: fonts of the list tables.
const std::vector<SettingsRow>& baseSettingsRows();
/// Name formats of the three kinds of lists.
const std::vector<SettingsRow>& nameFormatRows();
/// Fonts of the Tagesplan.
const std::vector<SettingsRow>& tagesplanFontRows();
/// The overlap check is on.
const std::vector<SettingsRow>& overlapRows();
/// The seven fees.
const std::vector<SettingsRow>& feeRows();
/// The three additional fields of a pupil, all off.
const std::vector<SettingsRow>& additionalFieldRows();
/// Labels of the three contacts, thirty rows.
const std::vector<SettingsRow>& contactLabelRows();
/// Labels and categories of the contact fields, ten rows. The labels are those given, ten of them.
std::vector<SettingsRow> contactRows(const QStringList& labels);
/// The ten labels of a contact, in their order.
const QStringList& contactLabels();
/// Names of the five contact categories; the first has the ID 0.
const QStringList& contactCategories();

/// Adds rows to an open table.
void addRows(Connection& conn, const QString& table, const std::vector<SettingsRow>& rows);

} // namespace kolibri
