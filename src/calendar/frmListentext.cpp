#include "calendar/frmListentext.h"

#include "core/mdlAllgemein.h"
#include "core/rich_text.h"
#include "core/widgets/entry_box.h"
#include "core/widgets/form_layout.h"
#include "core/widgets/rich_text_box.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// The boxes of a working group.
enum GroupBox { kGroupKName, kGroupTag, kGroupZeit, kGroupBetreuer, kGroupOrt };

constexpr int kTextLines = 7;
constexpr int kTextCharacters = 80;

QComboBox* namedBox(const QString& name, int characters) {
    auto* box = new QComboBox;
    box->setObjectName(name);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(characters);
    return box;
}

void fill(QComboBox& box, const QStringList& entries) {
    const QSignalBlocker filling(&box);
    box.clear();
    box.addItems(entries);
    box.setCurrentIndex(-1);
}

QLineEdit* carrier(const QString& name, QWidget* parent) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    box->hide();
    return box;
}

} // namespace

frmListentext::frmListentext()
    : FormWindow(u"frmListentext"_s),
      cmbKlasse(namedBox(u"cmbKlasse"_s, 4)),
      cmbME_LZ(namedBox(u"cmbME_LZ"_s, 24)),
      txtZeit(displayBox(u"txtZeit"_s, 14)),
      txtZeit_K_Name(carrier(u"txtZeit_K_Name"_s, this)),
      txtK_Name(carrier(u"txtK_Name"_s, this)),
      cmbText(namedBox(u"cmbText"_s, 24)) {
    setWindowTitle(u"Listentexte"_s);
    connect(cmbKlasse, &QComboBox::currentIndexChanged, this, [this] { klasseGewählt(); });
    connect(cmbME_LZ, &QComboBox::currentIndexChanged, this, [this] { zeitGewählt(); });
    connect(cmbText, &QComboBox::currentIndexChanged, this, [this] { gruppeGewählt(); });
    auto* column = new QVBoxLayout(this);
    column->addWidget(buildCare());
    column->addWidget(buildGroups());
    column->addWidget(buildTexts(), 1);
    QPushButton* cmdOK = addEditorButtons(*this, *column);
    connect(cmdOK, &QPushButton::clicked, this, [this] { ok(); });
}

QWidget* frmListentext::buildCare() {
    auto* frame = new FieldFrame({});
    frame->setObjectName(indexedName(u"frmAuswahl"_s, 0));
    frame->addLine(u"&Klasse:"_s, cmbKlasse);
    m_offeringLabel = frame->addLine(u"&ME:"_s, cmbME_LZ);
    frame->addLine(u"&Zeit:"_s, txtZeit);
    frmAuswahl[0] = frame;
    return frame;
}

QWidget* frmListentext::buildGroups() {
    struct BoxLayout {
        QString label;
        int characters;
    };
    const std::array<BoxLayout, 5> layouts{
        {{u"&Kurzname:"_s, 8}, {u"&Tag:"_s, 8}, {u"&Zeit:"_s, 14}, {u"Bet&reuerIn:"_s, 0}, {u"&Ort:"_s, 0}}};
    auto* frame = new FieldFrame(u"ARBEITSGRUPPE"_s);
    frame->setObjectName(indexedName(u"frmAuswahl"_s, 1));
    frame->addLine(u"&Langname:"_s, cmbText);
    for (std::size_t i = 0; i < txtText.size(); ++i) {
        txtText[i] = displayBox(indexedName(u"txtText"_s, static_cast<int>(i)), layouts[i].characters);
        frame->addLine(layouts[i].label, txtText[i]);
    }
    frmAuswahl[1] = frame;
    return frame;
}

QWidget* frmListentext::buildTexts() {
    auto* frame = new FieldFrame(u"LISTENTEXTE"_s);
    const QStringList captions{u"Text &vorher:"_s, u"Text &nachher:"_s};
    for (std::size_t i = 0; i < rtfListentext.size(); ++i) {
        const int index = static_cast<int>(i);
        auto* box = new RichTextBox(indexedName(u"rtfListentext"_s, index));
        box->setWantedLines(kTextLines);
        rtfListentext[i] = box;
        frame->addWide(captioned(captions.at(index), *box));
    }
    return frame;
}

void frmListentext::Prepare() {
    m_kind = offeringMode(Tag).kind;
    Felder_Löschen();
    for (QLineEdit* box : {static_cast<QLineEdit*>(txtZeit), txtZeit_K_Name, txtK_Name})
        box->clear();
    formFormatieren();
    const DbSession session(u"Listentexte lesen"_s);
    auswahlFüllen();
    const bool isGroup = m_kind == OfferingKind::Arbeitsgruppe;
    (isGroup ? cmbText : cmbKlasse)->setFocus();
}

void frmListentext::formFormatieren() {
    const bool isGroup = m_kind == OfferingKind::Arbeitsgruppe;
    frmAuswahl[0]->setVisible(!isGroup);
    frmAuswahl[1]->setVisible(isGroup);
    frmAuswahl[0]->setTitle(offeringTyp(m_kind).toUpper());
    m_offeringLabel->setText(m_kind == OfferingKind::Mensa ? u"&ME:"_s : u"&LZ:"_s);
    // Before the window is there, the layout does not yet know which frame is left out.
    layout()->invalidate();
    layout()->activate();
    // Wide enough for a line of text as a list shows it.
    const QSize wanted(kTextCharacters * fontMetrics().averageCharWidth(), 0);
    resize(sizeHint().expandedTo(wanted).boundedTo(roomOnScreen(*this)));
}

void frmListentext::auswahlFüllen() {
    if (m_kind == OfferingKind::Arbeitsgruppe) {
        fill(*cmbText, AGs_Einlesen());
        return;
    }
    fill(*cmbKlasse, Klassen_einlesen());
    fill(*cmbME_LZ, Zeiten_Einlesen(m_kind));
}

void frmListentext::Felder_Löschen() {
    for (auto* box : txtText)
        box->clear();
    for (auto* box : rtfListentext)
        box->setRichText({});
}

void frmListentext::klasseGewählt() {
    Felder_Löschen();
    const DbSession session(u"Listentexte lesen"_s);
    texteZeigen();
}

void frmListentext::zeitGewählt() {
    const DbSession session(u"Listentexte lesen"_s);
    const TextOffering offering = Angebot_Einlesen(m_kind, cmbME_LZ->currentText());
    txtZeit->setText(offering.Zeit);
    txtZeit_K_Name->setText(offering.Zeit_K_Name);
    txtK_Name->setText(offering.K_Name);
    texteZeigen();
}

void frmListentext::gruppeGewählt() {
    Felder_Löschen();
    const DbSession session(u"Listentexte lesen"_s);
    const TextOffering group = Angebot_Einlesen(m_kind, cmbText->currentText());
    txtText[kGroupKName]->setText(group.K_Name);
    txtText[kGroupTag]->setText(group.Tag);
    txtText[kGroupZeit]->setText(group.Zeit);
    txtText[kGroupBetreuer]->setText(group.Betreuer);
    txtText[kGroupOrt]->setText(group.Ort);
    texteZeigen();
}

void frmListentext::texteZeigen() {
    const ListTexts texts = Text_Einlesen(auswahl());
    rtfListentext[0]->setRichText(richTextFrom(texts.vorher));
    rtfListentext[1]->setRichText(richTextFrom(texts.nachher));
}

TextOffering frmListentext::auswahl() const {
    if (m_kind != OfferingKind::Arbeitsgruppe)
        return {.kind = m_kind,
                .Klasse = cmbKlasse->currentText(),
                .L_Name = cmbME_LZ->currentText(),
                .K_Name = txtK_Name->text(),
                .Zeit = txtZeit->text(),
                .Zeit_K_Name = txtZeit_K_Name->text()};
    const QString zeit = txtText[kGroupZeit]->text();
    const QString kurzname = txtText[kGroupKName]->text();
    return {.kind = m_kind,
            .L_Name = cmbText->currentText(),
            .K_Name = kurzname,
            .Tag = txtText[kGroupTag]->text(),
            .Zeit = zeit,
            .Zeit_K_Name = zeit + u' ' + kurzname,
            .Betreuer = txtText[kGroupBetreuer]->text(),
            .Ort = txtText[kGroupOrt]->text()};
}

void frmListentext::ok() {
    const ListTexts texts{storedText(rtfListentext[0]->richText()), storedText(rtfListentext[1]->richText())};
    {
        const DbSession session(u"Listentext speichern"_s);
        Text_Speichern(auswahl(), texts);
    }
    accept();
}

} // namespace kolibri
