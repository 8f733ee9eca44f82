#include "calendar/frmKlassenZuweisung.h"

#include "calendar/class_assignment.h"
#include "core/mdlAllgemein.h"
#include "core/widgets/form_layout.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// What the form says in one of its modes.
struct ModeTexts {
    QString hint;
    QString frame;
    /// Title of the question before the offering is given.
    QString title;
};

const ModeTexts& textsOf(OfferingKind kind) {
    static const std::array<ModeTexts, 3> texts{
        {{u"Weisen Sie hier einer Klasse eine bestimmte Mensa-Einheit zu!\r\n"
          "Es werden nur Klassen mit Schülern/Schülerinnen aufgelistet."_s,
          u"MENSA"_s, u"MENSA an Klasse zuordnen"_s},
         {u"Weisen Sie hier einer Klasse eine bestimmte Lernzeiten-Einheit zu!"_s, u"LERNZEIT"_s,
          u"LERNZEIT an Klasse zuordnen"_s},
         // The missing letter in the frame's caption has always stood there.
         {u"Weisen Sie hier einer Klasse eine bestimmte Arbeitsgruppen-Einheit zu!"_s, u"ARBEITSGRUPE"_s,
          u"ARBEITSGRUPPE an Klasse zuordnen"_s}}};
    return texts.at(static_cast<std::size_t>(kind));
}

QComboBox* namedBox(const QString& name) {
    constexpr int kCharacters = 20;
    auto* box = new QComboBox;
    box->setObjectName(name);
    // The entries come and go with the day; the form must not change its width with them.
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(kCharacters);
    return box;
}

} // namespace

frmKlassenZuweisung::frmKlassenZuweisung()
    : FormWindow(u"frmKlassenZuweisung"_s),
      lblKlassenZuweisungText(new QLabel),
      frmEinheit(new FieldFrame({})),
      cmbEinheitTag(namedBox(u"cmbEinheitTag"_s)),
      cmbEinheit(namedBox(u"cmbEinheit"_s)),
      cmbKlasse(namedBox(u"cmbKlasse"_s)) {
    lblKlassenZuweisungText->setObjectName(u"lblKlassenZuweisungText"_s);
    // The longest text tells the form's first width.
    lblKlassenZuweisungText->setText(textsOf(OfferingKind::Mensa).hint);
    frmEinheit->setObjectName(u"frmEinheit"_s);
    frmEinheit->addLine(u"&Tag:"_s, cmbEinheitTag);
    frmEinheit->addLine(u"&Einheit:"_s, cmbEinheit);
    auto* frmKlasse = new FieldFrame(u"KLASSE"_s);
    frmKlasse->setObjectName(u"frmKlasse"_s);
    frmKlasse->addLine(u"&Klasse:"_s, cmbKlasse);
    connect(cmbEinheitTag, &QComboBox::currentIndexChanged, this, [this] {
        const DbSession session(u"Zeiten lesen"_s);
        ME_LZ_AG_ZeitenEintragen();
    });

    auto* column = new QVBoxLayout(this);
    column->addWidget(lblKlassenZuweisungText);
    column->addWidget(frmEinheit);
    column->addWidget(frmKlasse);
    column->addStretch();
    QPushButton* cmdOK = formButton(u"cmdOK"_s, u"O K"_s);
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, [this] { ok(); });
    addButtonLine(*column, {cmdOK, leaveButton(*this, u"comBeenden"_s, u"BEENDEN"_s)});
}

void frmKlassenZuweisung::Prepare() {
    m_kind = offeringMode(Tag).kind;
    lblKlassenZuweisungText->setText(textsOf(m_kind).hint);
    frmEinheit->setTitle(textsOf(m_kind).frame);
    const DbSession session(u"Klassen und Zeiten lesen"_s);
    klassenEintragen();
    {
        const QSignalBlocker filling(cmbEinheitTag);
        cmbEinheitTag->clear();
        cmbEinheitTag->addItems(zuweisungTage());
        cmbEinheitTag->setCurrentIndex(0);
    }
    ME_LZ_AG_ZeitenEintragen();
    cmbEinheitTag->setFocus();
}

void frmKlassenZuweisung::klassenEintragen() {
    cmbKlasse->clear();
    cmbKlasse->addItems(KlassenMitSchülern());
    // Which class it shall be, only the user can say.
    cmbKlasse->setCurrentIndex(-1);
}

void frmKlassenZuweisung::ME_LZ_AG_ZeitenEintragen() {
    cmbEinheit->clear();
    cmbEinheit->addItems(kolibri::ME_LZ_AG_ZeitenEintragen(m_kind, cmbEinheitTag->currentText()));
    if (cmbEinheit->count() > 0)
        cmbEinheit->setCurrentIndex(0);
}

void frmKlassenZuweisung::ok() {
    constexpr int kYesNoQuestion = 36;
    if (MsgBox(u"Wollen Sie die Daten wirklich übergeben?"_s, kYesNoQuestion, textsOf(m_kind).title)
        != kAnswerYes)
        return;
    bool assigned = false;
    {
        const DbSession session(u"Klasse zuweisen"_s);
        assigned = Klasse_ME_LZ_AG_Zuordnen(m_kind, cmbKlasse->currentText(), cmbEinheitTag->currentText(),
                                            cmbEinheit->currentText());
    }
    // Where the store refuses it, as it does for a Saturday, nothing is said.
    if (assigned)
        MsgBox(u"Die Daten wurden übergeben."_s);
}

} // namespace kolibri
