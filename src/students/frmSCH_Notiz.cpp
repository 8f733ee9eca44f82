#include "students/frmSCH_Notiz.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/rich_text.h"
#include "core/widgets/entry_box.h"
#include "core/widgets/form_layout.h"
#include "core/widgets/symbol.h"
#include "core/widgets/theme.h"
#include "core/widgets/wait_cursor.h"
#include "students/frmSchuelerIn_felder.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kTextLines = 8;
constexpr int kTextLetters = 64;

/// A picture beside the heading; its words are read out.
QLabel* picture(const QString& name, const QString& drawing, const QString& words, const QWidget& form) {
    auto* label = new QLabel;
    label->setObjectName(name);
    const int size = 2 * form.fontMetrics().height();
    label->setPixmap(symbolPixmap(drawing, size, accentColour(form.palette()), form.devicePixelRatioF()));
    label->setToolTip(words);
    label->setAccessibleName(words);
    return label;
}

} // namespace

frmSCH_Notiz::frmSCH_Notiz()
    : FormWindow(u"frmSCH_Notiz"_s),
      lblÜ1(new QLabel),
      txtSchülerIn(displayBox(u"txtSchülerIn"_s)),
      rtfNotiz(new QTextEdit),
      chkKeineTeilnahme(new QCheckBox),
      cmdOK(formButton(u"cmdOK"_s, u"O K"_s)),
      cmdLöschen(formButton(u"cmdLöschen"_s, u"LÖSCHEN"_s)) {
    setWindowTitle(u"Notiz"_s);
    rtfNotiz->setObjectName(u"rtfNotiz"_s);
    // Only the letters of a note are kept.
    rtfNotiz->setAcceptRichText(false);
    rtfNotiz->setTabChangesFocus(true);
    rtfNotiz->setMinimumSize(fontMetrics().averageCharWidth() * kTextLetters,
                             fontMetrics().lineSpacing() * kTextLines);
    chkKeineTeilnahme->setObjectName(u"chkKeineTeilnahme"_s);

    auto* column = new QVBoxLayout(this);
    column->addWidget(buildHeading());
    const auto caption = [](const QString& name, const QString& words, QWidget* input) {
        QLabel* label = captionOf(words, input);
        label->setObjectName(name);
        return label;
    };
    auto* person = new QHBoxLayout;
    person->addWidget(caption(u"lblSchülerIn"_s, u"&Schüler/Schülerin:"_s, txtSchülerIn));
    person->addWidget(txtSchülerIn, 1);
    column->addLayout(person);
    column->addWidget(caption(u"lblNotiz"_s, u"&Notiz:"_s, rtfNotiz));
    column->addWidget(rtfNotiz, 1);
    column->addWidget(chkKeineTeilnahme);
    column->addWidget(buildButtons());
}

QWidget* frmSCH_Notiz::buildHeading() {
    imgNotiz = {picture(u"imgNotiz(0)"_s, u"notiz"_s, u"Notiz zu einer gespeicherten Zuweisung"_s, *this),
                picture(u"imgNotiz(1)"_s, u"liste_tagesplan"_s,
                        u"Notiz ohne gespeicherte Zuweisung, für den Wochenplan"_s, *this)};
    lblÜ1->setObjectName(u"lblÜ1"_s);
    lblÜ1->setFont(scaledFont(lblÜ1->font(), 1.15, QFont::Bold));
    lblÜ1->setTextFormat(Qt::PlainText);
    auto* heading = new QWidget;
    auto* line = new QHBoxLayout(heading);
    line->setContentsMargins({});
    for (auto* image : imgNotiz)
        line->addWidget(image);
    line->addWidget(lblÜ1, 1);
    return heading;
}

QWidget* frmSCH_Notiz::buildButtons() {
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, [this] { ok(); });
    connect(cmdLöschen, &QPushButton::clicked, this, [this] { löschen(); });
    // Apart from the others, and never pressed by Enter, so that no note is deleted by a slip.
    cmdLöschen->setAutoDefault(false);
    auto* bar = new QWidget;
    auto* line = new QHBoxLayout(bar);
    line->setContentsMargins({});
    line->addWidget(cmdLöschen);
    line->addStretch();
    line->addWidget(cmdOK);
    line->addWidget(leaveButton(*this, u"cmdBeenden"_s, u"BEENDEN"_s));
    return bar;
}

void frmSCH_Notiz::setZuweisung(const QString& schluessel, const QString& schuelerName) {
    m_schluessel = schluessel;
    m_schuelerName = schuelerName;
}

void frmSCH_Notiz::Prepare() {
    const auto& global = Global();
    txtSchülerIn->clear();
    rtfNotiz->clear();
    chkKeineTeilnahme->setChecked(false);
    // Nothing is written before everything about this assignment is known.
    for (auto* button : {cmdOK, cmdLöschen})
        button->setEnabled(false);
    m_ort = {Tag, global.NotizTag, m_schluessel};
    {
        const DbSession session(u"Notiz lesen"_s);
        m_art = NotizArtLesen(m_ort);
        artZeigen();
        Langname = LangnameLesen(m_ort);
        txtSchülerIn->setText(m_schuelerName);
        if (global.NotizBearbeiten)
            notizZeigen();
    }
    chkKeineTeilnahme->setText(KeineTeilnahmeText(m_ort.Gruppe));
    // Whether a note goes into the Wochenplan is settled when it is written.
    chkKeineTeilnahme->setEnabled(!global.NotizBearbeiten);
    for (auto* button : {cmdOK, cmdLöschen})
        button->setEnabled(true);
    rtfNotiz->setFocus();
}

void frmSCH_Notiz::artZeigen() {
    imgNotiz[0]->setVisible(m_art == NotizArt::Zuweisung);
    imgNotiz[1]->setVisible(m_art == NotizArt::Wochenplan);
    lblÜ1->setText(NotizUeberschrift(m_art, m_ort));
}

void frmSCH_Notiz::notizZeigen() {
    const auto notiz = NotizLesen(m_ort);
    if (!notiz)
        return;
    rtfNotiz->setPlainText(richTextFrom(notiz->Notiz).plain());
    chkKeineTeilnahme->setChecked(notiz->WP_Notiz);
}

QString frmSCH_Notiz::text() const {
    return richTextFrom(*rtfNotiz->document()).plain();
}

void frmSCH_Notiz::ok() {
    {
        const WaitCursor wait;
        const DbSession session(u"Notiz speichern"_s);
        if (Global().NotizBearbeiten)
            NotizAendern(m_ort, text());
        else
            NotizNeuSchreiben(m_ort, Langname, {text(), chkKeineTeilnahme->isChecked()});
    }
    hide();
}

void frmSCH_Notiz::löschen() {
    constexpr int kYesNoStop = 20;
    if (MsgBox(u"Notiz wirklich löschen?"_s, kYesNoStop, u"Notiz löschen"_s) == kAnswerNo)
        return;
    {
        const DbSession session(u"Notiz löschen"_s);
        NotizenLoeschen(m_ort);
    }
    hide();
}

} // namespace kolibri
