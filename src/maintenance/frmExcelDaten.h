#pragma once

#include "core/widgets/forms.h"
#include "maintenance/excel_import.h"

class QComboBox;
class QRadioButton;

namespace kolibri {

class FieldFrame;

/// Assigns the columns of a spreadsheet to the fields of a pupil and reads the pupils in.
class frmExcelDaten : public FormWindow {
public:
    frmExcelDaten();

    /// The sheet to be read in. Every field begins without a column.
    void SetSheet(const Spreadsheet& sheet);

private:
    QWidget* buildFields();
    FieldFrame* buildFrame(const QString& caption, int firstIndex, int lastIndex);
    QWidget* buildMode();
    ExcelAssignment collect() const;
    void ok();

    Spreadsheet m_sheet;
    QMap<int, QComboBox*> cmbDatenExcel;
    QRadioButton* optÜberschreibenJA;
    QRadioButton* optÜberschreibenNein;
};

} // namespace kolibri
