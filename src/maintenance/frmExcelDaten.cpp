#include "maintenance/frmExcelDaten.h"

#include "core/widgets/form_layout.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

QRadioButton* option(const QString& name, const QString& caption) {
    auto* button = new QRadioButton(caption);
    button->setObjectName(name);
    return button;
}

} // namespace

frmExcelDaten::frmExcelDaten()
    : FormWindow(u"frmExcelDaten"_s),
      optÜberschreibenJA(option(u"optÜberschreibenJA"_s, u"&Ja"_s)),
      optÜberschreibenNein(option(u"optÜberschreibenNein"_s, u"&Nein"_s)) {
    constexpr int kLines = 34;
    setWindowTitle(u"Excel Daten Importieren"_s);
    auto* column = new QVBoxLayout(this);
    column->addWidget(fieldArea(buildFields()), 1);
    column->addWidget(buildMode());
    connect(addEditorButtons(*this, *column), &QPushButton::clicked, this, [this] { ok(); });
    setFirstSize(*this, kLines);
}

QWidget* frmExcelDaten::buildFields() {
    constexpr int kPupilFields = 6;
    const auto contact = [this](int number) {
        const int first = number * kExcelContactStep;
        return buildFrame(u"KONTAKT %1"_s.arg(number), first, first + kExcelContactStep - 1);
    };
    auto* fields = new QWidget;
    auto* sides = new QHBoxLayout(fields);
    sides->setContentsMargins({});
    // The boxes are made in the order in which the tab key goes through them.
    sides->addWidget(fieldColumn({buildFrame(u"SCHÜLERIN"_s, 0, kPupilFields - 1)}), 1);
    for (int number = 1; number <= kExcelContacts; ++number)
        sides->addWidget(fieldColumn({contact(number)}), 1);
    return fields;
}

FieldFrame* frmExcelDaten::buildFrame(const QString& caption, int firstIndex, int lastIndex) {
    constexpr int kCharacters = 14;
    auto* frame = new FieldFrame(caption);
    frame->addLine(u"PROGRAMM"_s, new QLabel(u"EXCEL"_s));
    for (const auto& field : excelFields()) {
        if (field.index < firstIndex || field.index > lastIndex)
            continue;
        auto* box = new QComboBox;
        box->setObjectName(indexedName(u"cmbDatenExcel"_s, field.index));
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(kCharacters);
        box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        box->setAccessibleName(caption + u' ' + field.label);
        frame->addLine(field.label, box);
        cmbDatenExcel.insert(field.index, box);
    }
    return frame;
}

QWidget* frmExcelDaten::buildMode() {
    auto* frame = new QGroupBox(u"vorhandene Daten überschreiben:"_s);
    auto* line = new QHBoxLayout(frame);
    line->addWidget(optÜberschreibenJA);
    line->addWidget(optÜberschreibenNein);
    line->addStretch();
    return frame;
}

void frmExcelDaten::SetSheet(const Spreadsheet& sheet) {
    m_sheet = sheet;
    for (auto* box : cmbDatenExcel) {
        box->clear();
        box->addItem(QString());
        box->addItems(ExcelSpalten(m_sheet));
    }
    // Nothing is lost unless the office asks for it.
    optÜberschreibenNein->setChecked(true);
}

ExcelAssignment frmExcelDaten::collect() const {
    ExcelAssignment assignment;
    for (auto box = cmbDatenExcel.begin(); box != cmbDatenExcel.end(); ++box)
        assignment.insert(box.key(), box.value()->currentText());
    return assignment;
}

void frmExcelDaten::ok() {
    if (ExcelDatenImportieren(m_sheet, collect(), optÜberschreibenJA->isChecked()))
        hide();
}

} // namespace kolibri
