#include "lists/dayplan/frmWochenplan.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/choice_list.h"
#include "core/widgets/form_layout.h"
#include "core/widgets/rich_text_box.h"
#include "core/widgets/wait_cursor.h"
#include "lists/dayplan/class_text.h"
#include "lists/list_helpers.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Classes of a letter that have a text, and entries of cmbSeitenumbruch. The school has four grades.
constexpr int kFour = 4;

QStringList dayChoices(bool twoDays) {
    if (twoDays)
        return {u"MO/DI"_s, u"MI/DO"_s, u"FR"_s};
    return {u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s};
}

/// "1", "2", "3" and "4", each with this behind it.
QStringList oneToFour(const QString& behind = {}) {
    QStringList entries;
    for (int number = 1; number <= kFour; ++number)
        entries << QString::number(number) + behind;
    return entries;
}

} // namespace

frmWochenplan::frmWochenplan()
    : FormWindow(u"frmWochenplan"_s),
      cmbKlasse(new QComboBox),
      cmbTag(new QComboBox),
      chk2Tage(new QCheckBox(u"&2 Tage / Blatt"_s)),
      cmbSeitenumbruch(new QComboBox),
      cmbSchulstufe(new QComboBox),
      cmbKlasseText(new QComboBox),
      rtfTextWP(new RichTextBox(u"rtfTextWP"_s)) {
    setWindowTitle(u"Tagesplan"_s);
    auto* line = new QHBoxLayout;
    line->addWidget(fieldColumn({buildDisplay()}));
    line->addWidget(buildText(), 1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(line, 1);
    connect(addEditorButtons(*this, *column), &QPushButton::clicked, this, [this] { ok(); });
    setFirstSize(*this, 24);
}

QWidget* frmWochenplan::buildDisplay() {
    cmbKlasse->setObjectName(u"cmbKlasse"_s);
    cmbTag->setObjectName(u"cmbTag"_s);
    chk2Tage->setObjectName(u"chk2Tage"_s);
    cmbSeitenumbruch->setObjectName(u"cmbSeitenumbruch"_s);
    cmbSchulstufe->setObjectName(u"cmbSchulstufe"_s);
    auto* frame = new FieldFrame(u"ANZEIGE"_s);
    frame->setObjectName(u"frmAnzeige"_s);
    frame->addLine(u"&Klasse:"_s, cmbKlasse);
    frame->addLine(u"&Tag:"_s, cmbTag);
    frame->addWide(chk2Tage);
    cmbSeitenumbruch->setToolTip(u"Die Seite wechselt immer nach jeder Klasse."_s);
    frame->addLine(u"&Nach"_s, cmbSeitenumbruch, u"Klasse(n) Seitenwechsel"_s);
    frame->addLine(u"&Schulstufe:"_s, cmbSchulstufe);
    connect(cmbKlasse, &QComboBox::currentIndexChanged, this, [this] { klasseGewählt(); });
    connect(chk2Tage, &QCheckBox::toggled, this, [this] { tageFüllen(0); });
    return frame;
}

QWidget* frmWochenplan::buildText() {
    auto* frame = new QGroupBox(u"ZUSATZ-TEXT TAGESPLAN"_s);
    frame->setObjectName(u"frmText"_s);
    cmbKlasseText->setObjectName(u"cmbKlasseText"_s);
    rtfTextWP->setAccessibleName(u"Zusatztext"_s);
    auto* label = new QLabel(u"Text &für Klasse:"_s);
    label->setBuddy(cmbKlasseText);
    auto* head = new QHBoxLayout;
    head->addWidget(label);
    head->addWidget(cmbKlasseText);
    head->addStretch();
    head->addWidget(formatButtons(*rtfTextWP));
    auto* column = new QVBoxLayout(frame);
    column->addLayout(head);
    column->addWidget(rtfTextWP, 1);
    connect(cmbKlasseText, &QComboBox::currentIndexChanged, this, [this] { textklasseGewählt(); });
    return frame;
}

void frmWochenplan::Prepare() {
    auswahlFüllen();
    klasseGewählt();
    cmbKlasse->setFocus();
}

void frmWochenplan::auswahlFüllen() {
    fillBox(*cmbKlasse, namesInCapitals(Global().KlassenNRListe), m_index[0]);
    tageFüllen(m_index[1]);
    fillBox(*cmbSeitenumbruch, oneToFour(), m_index[2]);
    fillBox(*cmbSchulstufe, QStringList{kAlleSchulstufen} + Global().SchulstufenListe, m_index[3]);
}

void frmWochenplan::tageFüllen(int rememberedIndex) {
    fillBox(*cmbTag, dayChoices(chk2Tage->isChecked()), rememberedIndex);
}

void frmWochenplan::klasseGewählt() {
    fillBox(*cmbKlasseText, oneToFour(cmbKlasse->currentText()), 0);
    textklasseGewählt();
}

void frmWochenplan::textklasseGewählt() {
    try {
        textSpeichern();
    } catch (...) {
        // The box goes on showing the text that could not be kept, so its class must stand above it.
        const QSignalBlocker goingBack(cmbKlasseText);
        if (cmbKlasseText->findText(m_textKlasse) < 0)
            cmbKlasseText->addItem(m_textKlasse);
        cmbKlasseText->setCurrentText(m_textKlasse);
        throw;
    }
    const DbSession session(u"Zusatztext lesen"_s);
    m_textKlasse = cmbKlasseText->currentText();
    rtfTextWP->setRichText(richTextFrom(readClassText(m_textKlasse)));
}

void frmWochenplan::textSpeichern() {
    if (!rtfTextWP->isTouched())
        return;
    const DbSession session(u"Zusatztext speichern"_s);
    Text_WP_Speichern(m_textKlasse, storedClassText(rtfTextWP->richText()));
    rtfTextWP->document()->setModified(false);
}

WochenplanOptions frmWochenplan::eingaben() const {
    return {.cmbKlasse = cmbKlasse->currentText(),
            .cmbTag = cmbTag->currentText(),
            .chk2Tage = chk2Tage->isChecked(),
            .cmbSchulstufe = cmbSchulstufe->currentText()};
}

void frmWochenplan::IndexSpeichern() {
    m_index = {cmbKlasse->currentIndex(), cmbTag->currentIndex(), cmbSeitenumbruch->currentIndex(),
               cmbSchulstufe->currentIndex()};
}

void frmWochenplan::ok() {
    {
        const WaitCursor wait;
        textSpeichern();
        Liste().Wochenplan = eingaben();
        prepareList(kTagesplan);
    }
    // Before the page is shown, for the form is prepared anew when its window closes.
    IndexSpeichern();
    doors().page->show();
    hide();
}

} // namespace kolibri
