#include "students/frmSchuelerIn_beitraege.h"

#include "core/widgets/form_layout.h"
#include "core/widgets/theme.h"
#include "students/frmSchuelerIn_felder.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QScopedValueRollback>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kFeeCharacters = 14;

} // namespace

SchuelerBeitraege::SchuelerBeitraege() : txtBeitrag{}, lblBeitrag{} {
    auto* grid = new QGridLayout(this);
    for (int i = 0; i <= kBeitraege; ++i) {
        const bool sum = i == kBeitragSumme;
        auto* box = new RecordBox(indexedName(u"txtBeitrag"_s, i), kFeeCharacters);
        box->setAlignment(Qt::AlignRight);
        box->onLeft([this] { verlassen(); });
        txtBeitrag[static_cast<std::size_t>(i)] = box;
        QLabel* label = captionOf(sum ? u"SUMME"_s : QString(), box);
        if (!sum) {
            label->setObjectName(indexedName(u"lblBeitrag"_s, i));
            lblBeitrag[static_cast<std::size_t>(i)] = label;
        }
        const int line = sum ? i + 1 : i;
        grid->addWidget(label, line, 0);
        grid->addWidget(box, line, 1);
        grid->addWidget(captionOf(u"€"_s, nullptr), line, 2);
    }
    auto* rule = new QFrame;
    rule->setFrameShape(QFrame::HLine);
    grid->addWidget(rule, kBeitraege, 0, 1, 3);
    grid->setColumnStretch(3, 1);
    grid->setRowStretch(kBeitraege + 2, 1);
}

void SchuelerBeitraege::leeren() {
    zeigen({});
}

void SchuelerBeitraege::zeigen(const SchuelerDatensatz& datensatz) {
    for (std::size_t i = 0; i < txtBeitrag.size(); ++i) {
        txtBeitrag[i]->setText(datensatz.Beitrag[i]);
        setErrorColour(txtBeitrag[i], false);
    }
}

BeitragTexte SchuelerBeitraege::texte() const {
    BeitragTexte texte;
    for (std::size_t i = 0; i < txtBeitrag.size(); ++i)
        texte[i] = txtBeitrag[i]->text();
    return texte;
}

void SchuelerBeitraege::einsammeln(SchuelerDatensatz& datensatz) const {
    datensatz.Beitrag = texte();
}

void SchuelerBeitraege::einstellungenZeigen(const BeitragEinstellungen& einstellungen) {
    auto* grid = static_cast<QGridLayout*>(layout());
    for (int i = 0; i < kBeitraege; ++i) {
        const auto& [aktiv, bezeichnung] = einstellungen[static_cast<std::size_t>(i)];
        for (int column = 0; column < 3; ++column)
            grid->itemAtPosition(i, column)->widget()->setVisible(aktiv);
        lblBeitrag[static_cast<std::size_t>(i)]->setText(bezeichnung);
        txtBeitrag[static_cast<std::size_t>(i)]->setAccessibleName(bezeichnung);
    }
}

void SchuelerBeitraege::verlassen() {
    const BeitragPruefung pruefung = BeitragSummeBilden(texte());
    for (std::size_t i = 0; i < txtBeitrag.size(); ++i)
        if (txtBeitrag[i]->text() != pruefung.texte[i])
            txtBeitrag[i]->setText(pruefung.texte[i]);
    // Going from one faulty box to the next while they are told of is no new leaving.
    if (m_tellingNow)
        return;
    const int telling = ++m_telling;
    if (pruefung.ungueltig.empty())
        return;
    QTimer::singleShot(0, this, [this, telling, pruefung] {
        if (telling == m_telling && window()->isVisible())
            melden(pruefung.ungueltig);
    });
}

bool SchuelerBeitraege::pruefen() {
    const BeitragPruefung pruefung = BeitragSummeBilden(texte());
    if (pruefung.ungueltig.empty())
        return true;
    ++m_telling;
    melden(pruefung.ungueltig);
    return false;
}

void SchuelerBeitraege::melden(const std::vector<int>& ungueltig) {
    const QScopedValueRollback<bool> telling(m_tellingNow, true);
    for (const int i : ungueltig) {
        RecordBox* box = txtBeitrag.at(static_cast<std::size_t>(i));
        // Another record may have come meanwhile.
        if (!box->text().isEmpty() && !BeitragInCent(box->text())) {
            box->setFocus();
            setErrorColour(box, true, kBeitragUngueltig);
        }
        MsgBox(kBeitragUngueltig);
    }
}

} // namespace kolibri
