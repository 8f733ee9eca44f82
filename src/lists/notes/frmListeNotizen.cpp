#include "lists/notes/frmListeNotizen.h"

#include "core/mdlAllgemein.h"
#include "core/widgets/form_layout.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

QComboBox* choiceBox(const QString& name) {
    auto* box = new QComboBox;
    box->setObjectName(name);
    constexpr int kLetters = 18;
    box->setMinimumContentsLength(kLetters);
    return box;
}

/// Offers these entries, the chosen one by its place; the first where there are fewer now.
void offer(QComboBox& box, const QStringList& entries, int index) {
    box.clear();
    box.addItems(entries);
    box.setCurrentIndex(index < entries.size() ? index : 0);
}

} // namespace

frmListeNotizen::frmListeNotizen()
    : FormWindow(u"frmListeNotizen"_s),
      cmbKlasse(choiceBox(u"cmbKlasse"_s)),
      cmbTag(choiceBox(u"cmbTag"_s)),
      cmbME_LZ_AG(choiceBox(u"cmbME_LZ_AG"_s)),
      m_boxes{cmbKlasse, cmbTag, cmbME_LZ_AG} {
    setWindowTitle(u"LISTE NOTIZEN"_s);
    auto* frame = new FieldFrame(u"AUSWAHL"_s);
    frame->setObjectName(u"frmAuswahl"_s);
    frame->addLine(u"&Klasse:"_s, cmbKlasse)->setObjectName(u"lblKlasse"_s);
    frame->addLine(u"&Tag:"_s, cmbTag)->setObjectName(u"lblTag"_s);
    lblME_LZ_AG = frame->addLine({}, cmbME_LZ_AG);
    lblME_LZ_AG->setObjectName(u"lblME_LZ_AG"_s);
    cmbKlasse->setAccessibleName(u"Klasse"_s);
    cmbTag->setAccessibleName(u"Tag"_s);
    auto* column = new QVBoxLayout(this);
    column->addWidget(frame, 1);
    connect(addEditorButtons(*this, *column), &QPushButton::clicked, this, [this] { ok(); });
}

void frmListeNotizen::Prepare() {
    const bool dayPlan = Tag == u"TP"_s;
    lblME_LZ_AG->setText(dayPlan ? u"&Unterrichtseinheit"_s : u"&ME/LZ/AG:"_s);
    cmbME_LZ_AG->setAccessibleName(dayPlan ? u"Unterrichtseinheit"_s
                                           : u"Mensa, Lernzeit oder Arbeitsgruppe"_s);
    QStringList choices = noteGroups();
    if (dayPlan) {
        const DbSession session(u"Unterrichtseinheiten lesen"_s);
        choices = noteUnits();
    }
    offer(*cmbKlasse, noteClasses(), m_indices[0]);
    offer(*cmbTag, noteDays(), m_indices[1]);
    offer(*cmbME_LZ_AG, choices, m_indices[2]);
    cmbKlasse->setFocus();
    // The label of the other mode may be longer than the form is wide.
    lblME_LZ_AG->parentWidget()->layout()->activate();
    layout()->activate();
    resize(size().expandedTo(sizeHint()));
}

void frmListeNotizen::ok() {
    // Taken down before the page opens: when it goes away, the form is prepared anew.
    std::array<int, kBoxes> chosen{};
    for (std::size_t i = 0; i < m_boxes.size(); ++i)
        chosen[i] = m_boxes[i]->currentIndex();
    Liste().Notizen = {cmbKlasse->currentText(), cmbTag->currentText(), cmbME_LZ_AG->currentText()};
    showList(Tag == u"TP"_s ? kNotizenTagesplan : kNotizenZuweisungen);
    m_indices = chosen;
    hide();
}

} // namespace kolibri
