#include "students/frmSchuelerIn_ampel.h"

#include "core/widgets/form_layout.h"
#include "students/frmSchuelerIn_felder.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr QRgb kRed = 0xffff0000;
constexpr QRgb kGreen = 0xff00c000;

struct Look {
    /// Behind the day, so that the colour is not the only sign.
    QString word;
    QString explanation;
};

Look lookOf(Ampel ampel) {
    switch (ampel) {
    case Ampel::Rot:
        return {u"Konflikt"_s, u"An diesem Tag überschneiden sich Zeiten."_s};
    case Ampel::Neutral:
        return {u"–"_s, u"Dieser Tag wird nicht geprüft."_s};
    case Ampel::Gruen:
        break;
    }
    return {u"OK"_s, u"An diesem Tag überschneidet sich nichts."_s};
}

} // namespace

SchuelerAmpel::SchuelerAmpel()
    : QGroupBox(u"ZEITÜBERSCHNEIDUNGEN"_s), chkZÜ(new QCheckBox(u"PRÜFEN"_s)), lblAmpel{}, chkÜ_Nein{} {
    setObjectName(u"frmAmpel"_s);
    chkZÜ->setObjectName(u"chkZÜ"_s);
    chkZÜ->setToolTip(
        u"Zeiten vor dem Speichern auf Überschneidungen prüfen (gilt für alle Arbeitsplätze)"_s);
    auto* grid = new QGridLayout(this);
    grid->setVerticalSpacing(fontMetrics().height() / 4);
    grid->addWidget(chkZÜ, 0, 0);
    grid->addWidget(new QLabel(u"nicht prüfen:"_s), 1, 0);
    for (int tag = 0; tag < kSchoolDays; ++tag) {
        auto* lamp = new QLabel;
        lamp->setObjectName(indexedName(u"lblAmpel"_s, tag));
        lamp->setAlignment(Qt::AlignCenter);
        lamp->setAutoFillBackground(true);
        lamp->setFrameShape(QFrame::StyledPanel);
        lamp->setMinimumWidth(fontMetrics().horizontalAdvance(u" MO: Konflikt "_s));
        auto* waiver = new QCheckBox(TagCode(tag));
        waiver->setObjectName(indexedName(u"chkÜ_Nein"_s, tag));
        waiver->setAccessibleName(TagCode(tag) + u" nicht prüfen"_s);
        waiver->setToolTip(u"Diesen Tag nicht prüfen, bis ein anderer Datensatz gewählt wird"_s);
        lblAmpel[static_cast<std::size_t>(tag)] = lamp;
        chkÜ_Nein[static_cast<std::size_t>(tag)] = waiver;
        grid->addWidget(lamp, 0, tag + 1);
        grid->addWidget(waiver, 1, tag + 1, Qt::AlignCenter);
        grid->setColumnStretch(tag + 1, 1);
        lampeZeigen(tag, Ampel::Gruen);
    }
    connect(chkZÜ, &QCheckBox::clicked, this, [this](bool on) {
        if (m_switched)
            m_switched(on);
    });
}

void SchuelerAmpel::schalterZeigen(bool an) {
    chkZÜ->setChecked(an);
    for (auto* lamp : lblAmpel)
        lamp->setVisible(an);
    for (auto* waiver : chkÜ_Nein)
        waiver->setEnabled(an);
}

void SchuelerAmpel::leeren() {
    for (auto* waiver : chkÜ_Nein)
        waiver->setChecked(false);
}

void SchuelerAmpel::einsammeln(PruefWoche& woche) const {
    for (std::size_t d = 0; d < woche.size(); ++d)
        woche[d].Ü_Nein = chkÜ_Nein[d]->isChecked();
}

void SchuelerAmpel::zeigen(const PruefErgebnis& ergebnis) {
    for (int tag = 0; tag < kSchoolDays; ++tag)
        lampeZeigen(tag, ergebnis.Lampen[static_cast<std::size_t>(tag)]);
}

void SchuelerAmpel::lampeZeigen(int tag, Ampel ampel) {
    const auto d = static_cast<std::size_t>(tag);
    if (m_shown[d] == ampel)
        return;
    m_shown[d] = ampel;
    QLabel* lamp = lblAmpel[d];
    const Look look = lookOf(ampel);
    QPalette colours = palette();
    if (ampel == Ampel::Neutral) {
        colours.setColor(QPalette::Window, palette().color(QPalette::Button));
    } else {
        colours.setColor(QPalette::Window, QColor::fromRgb(ampel == Ampel::Rot ? kRed : kGreen));
        colours.setColor(QPalette::WindowText, Qt::black);
    }
    lamp->setPalette(colours);
    lamp->setText(TagCode(tag) + u": "_s + look.word);
    lamp->setToolTip(look.explanation);
    lamp->setAccessibleDescription(look.explanation);
}

} // namespace kolibri
