#include "students/frmSchuelerIn_stamm.h"

#include "core/widgets/form_layout.h"
#include "core/widgets/theme.h"
#include "students/frmSchuelerIn_felder.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kDateCharacters = 10;
constexpr int kClassCharacters = 4;
constexpr int kMarkCharacters = 12;

QCheckBox* checkBox(const QString& name) {
    auto* box = new QCheckBox;
    box->setObjectName(name);
    return box;
}

QLabel* named(QLabel* label, const QString& name) {
    label->setObjectName(name);
    return label;
}

} // namespace

SchuelerStamm::SchuelerStamm()
    : txtSCH{new RecordBox(u"txtSCH(0)"_s), new RecordBox(u"txtSCH(1)"_s),
             new RecordBox(u"txtSCH(2)"_s, kDateCharacters), new RecordBox(u"txtSCH(3)"_s, kClassCharacters)},
      Image1(drawnButton(u"Image1"_s, u"suche"_s, u"Nachnamen in der Liste suchen (Strg+Umschalt+F)"_s,
                         accentColour(palette()))),
      chkNeu(checkBox(u"chkNeu"_s)),
      chkNichtOG(checkBox(u"chkNichtOG"_s)),
      chkSchwimmer(checkBox(u"chkSchwimmer"_s)),
      cmbBaustein(new RecordChoice(u"cmbBaustein"_s)),
      txtKennung(new RecordBox(u"txtKennung"_s)),
      lblSchwimmer(named(captionOf(u"&Schwimmer:"_s, chkSchwimmer), u"lblSchwimmer"_s)),
      lblBaustein(named(captionOf(u"Ba&ustein:"_s, cmbBaustein), u"lblBaustein"_s)),
      lblKennung(named(captionOf(u"Kennun&g:"_s, txtKennung), u"lblKennung"_s)) {
    Image1->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_F);
    txtKennung->setWantedCharacters(kMarkCharacters);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    auto* first = new QHBoxLayout;
    const std::array<QString, kSchuelerFelder> captions{u"&Nachname:"_s, u"&Vorname:"_s, u"Geb.-&Datum:"_s,
                                                        u"&Klasse:"_s};
    for (std::size_t i = 0; i < captions.size(); ++i) {
        const bool name = i <= kFeldVorname;
        first->addWidget(captionOf(captions[i], txtSCH[i]));
        first->addWidget(txtSCH[i], name ? 1 : 0);
        if (i == kFeldName)
            first->addWidget(Image1);
    }
    column->addLayout(first);
    auto* second = new QHBoxLayout;
    for (const auto& [label, box] : {std::pair{captionOf(u"N&eu:"_s, chkNeu), chkNeu},
                                     std::pair{captionOf(u"Nicht &OG:"_s, chkNichtOG), chkNichtOG},
                                     std::pair{lblSchwimmer, chkSchwimmer}}) {
        second->addWidget(label);
        second->addWidget(box);
        second->addSpacing(fontMetrics().height());
    }
    second->addWidget(lblBaustein);
    second->addWidget(cmbBaustein, 1);
    second->addWidget(lblKennung);
    second->addWidget(txtKennung, 1);
    column->addLayout(second);
}

void SchuelerStamm::leeren() {
    for (auto* box : txtSCH) {
        box->clear();
        setErrorColour(box, false);
    }
    for (auto* box : {chkNeu, chkNichtOG, chkSchwimmer})
        box->setChecked(false);
    cmbBaustein->selectText({});
    txtKennung->clear();
}

void SchuelerStamm::zeigen(const SchuelerDatensatz& datensatz) {
    for (std::size_t i = 0; i < txtSCH.size(); ++i)
        txtSCH[i]->setText(datensatz.SCH[i]);
    chkNeu->setChecked(datensatz.Neu);
    chkNichtOG->setChecked(datensatz.NichtOG);
    chkSchwimmer->setChecked(datensatz.Schwimmer);
    cmbBaustein->selectText(datensatz.Baustein);
    txtKennung->setText(datensatz.Kennung);
}

void SchuelerStamm::einsammeln(SchuelerDatensatz& datensatz) const {
    for (std::size_t i = 0; i < txtSCH.size(); ++i)
        datensatz.SCH[i] = txtSCH[i]->text();
    datensatz.Neu = chkNeu->isChecked();
    datensatz.NichtOG = chkNichtOG->isChecked();
    datensatz.Schwimmer = chkSchwimmer->isChecked();
    datensatz.Baustein = cmbBaustein->currentText();
    datensatz.Kennung = txtKennung->text();
}

void SchuelerStamm::fehlerZeigen(const EingabePruefung& pruefung) {
    for (std::size_t i = 0; i < txtSCH.size(); ++i)
        setErrorColour(txtSCH[i], pruefung.fehler[i]);
    if (pruefung.fokus)
        txtSCH[*pruefung.fokus]->setFocus();
}

void SchuelerStamm::bausteineSetzen(const QStringList& bausteine) {
    cmbBaustein->setEntries(bausteine);
}

void SchuelerStamm::zusatzfelderFreigeben() {
    const auto& global = Global();
    const auto enable = [](std::initializer_list<QWidget*> pair, bool used) {
        for (auto* widget : pair)
            widget->setEnabled(used);
    };
    enable({lblSchwimmer, chkSchwimmer}, global.ZusatzSchwimmer);
    enable({lblBaustein, cmbBaustein}, global.ZusatzBaustein);
    enable({lblKennung, txtKennung}, global.ZusatzKennung);
}

} // namespace kolibri
