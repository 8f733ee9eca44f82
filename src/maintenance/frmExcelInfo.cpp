#include "maintenance/frmExcelInfo.h"

#include "core/widgets/form_layout.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {

frmExcelInfo::frmExcelInfo() : FormWindow(u"frmExcelInfo"_s) {
    setWindowTitle(u"Bedingungen für den Import von Excel Daten:"_s);
    auto* conditions = new QLabel(u"1. Die Excel Datei muss mit der Endung .xls (Excel 2003) vorliegen\n"
                                  "2. Die Datei darf nur eine Tabelle enthalten.\n"
                                  "3. Die Tabelle darf nur eine Kopfzeile enthalten."_s);
    conditions->setObjectName(u"lblBedingungen"_s);
    conditions->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* column = new QVBoxLayout(this);
    column->addWidget(conditions, 1);
    QPushButton* leave = leaveButton(*this, u"cmdBeenden"_s, u"BEENDEN"_s);
    leave->setDefault(true);
    addButtonLine(*column, {leave});
}

} // namespace kolibri
