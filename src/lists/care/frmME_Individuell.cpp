#include "lists/care/frmME_Individuell.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/choice_list.h"
#include "core/widgets/form_layout.h"
#include "lists/care/care_options.h"
#include "lists/list_helpers.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {

frmME_Individuell::frmME_Individuell()
    : FormWindow(u"frmME_Individuell"_s),
      optTag(new QButtonGroup(this)),
      lstKlassen(new ChoiceList(u"lstKlassen"_s, u"Klassen"_s)),
      cmbMensa(new QComboBox) {
    setWindowTitle(u"MENSA INDIVIDUELL"_s);
    auto* classes = new QGroupBox(u"KLASSE"_s);
    auto* list = new QVBoxLayout(classes);
    list->addWidget(lstKlassen);
    cmbMensa->setObjectName(u"cmbMensa"_s);
    cmbMensa->setAccessibleName(u"Mensa"_s);
    cmbMensa->setPlaceholderText(u"Bitte wählen"_s);
    cmbMensa->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto* mensa = new QGroupBox(u"MENSA"_s);
    auto* box = new QVBoxLayout(mensa);
    box->addWidget(cmbMensa);
    auto* line = new QHBoxLayout;
    line->addWidget(buildDays());
    line->addWidget(classes, 1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(line, 1);
    column->addWidget(mensa);
    connect(addEditorButtons(*this, *column), &QPushButton::clicked, this, [this] { ok(); });
    setFirstSize(*this, 26);
}

QWidget* frmME_Individuell::buildDays() {
    auto* frame = new QGroupBox(u"TAG"_s);
    auto* column = new QVBoxLayout(frame);
    int index = 0;
    for (const auto& caption : {u"&MONTAG"_s, u"&DIENSTAG"_s, u"M&ITTWOCH"_s, u"D&ONNERSTAG"_s, u"&FREITAG"_s,
                                u"MONTAG - F&REITAG"_s}) {
        auto* option = new QRadioButton(caption);
        option->setObjectName(indexedName(u"optTag"_s, index));
        optTag->addButton(option, index++);
        column->addWidget(option);
    }
    column->addStretch();
    optTag->button(0)->setChecked(true);
    return frame;
}

void frmME_Individuell::Prepare() {
    lstKlassen->setEntries(namesInCapitals(Global().KlassenListe));
    const int chosen = cmbMensa->currentIndex();
    const DbSession session(u"Mensazeiten lesen"_s);
    cmbMensa->clear();
    for (const auto& offering : careOfferings(kListeMensa))
        cmbMensa->addItem(offering.langname);
    cmbMensa->setCurrentIndex(chosen < cmbMensa->count() ? chosen : -1);
    optTag->checkedButton()->setFocus();
}

void frmME_Individuell::ok() {
    auto& options = Liste().MensaSchueler;
    options.optTag = optTag->checkedId();
    options.lstKlassenIndividuell = lstKlassen->chosen();
    options.cmbMensa = cmbMensa->currentText();
    showList(options.optTag == kWholeWeek ? kMensaWoche : kMensaTag);
}

} // namespace kolibri
