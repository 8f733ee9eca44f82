#pragma once

namespace kolibri {

class ColumnBuilder;

/// Columns of a list of pupils by the options of frmDialog: name, date of birth, class, the contact fields of
/// the chosen categories, the additional fields and the fees in use. Opens and closes the store if it reads
/// it. @throws RuntimeError, StoreError (also when the settings lack the row of a fee)
void buildPupilColumns(ColumnBuilder& builder);

} // namespace kolibri
