#include "students/frmSchuelerIn_kontakte.h"

#include "core/widgets/form_layout.h"
#include "students/frmSchuelerIn_felder.h"

#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

QString personOf(int kontakt) {
    return u"%1. Kontakt"_s.arg(kontakt + 1);
}

} // namespace

SchuelerKontakte::SchuelerKontakte() : lblGV1{}, txtGV{}, txtNotfallRN(new RecordBox(u"txtNotfallRN"_s)) {
    auto* grid = new QGridLayout(this);
    // Person by person in the order of the keyboard.
    for (int kontakt = 0; kontakt < kKontakte; ++kontakt) {
        const int column = kontakt + 1;
        grid->addWidget(new QLabel(personOf(kontakt)), 0, column);
        grid->setColumnStretch(column, 1);
        for (int feld = 0; feld < kContactFields; ++feld) {
            auto* box = new RecordBox(indexedName(u"txtGV%1"_s.arg(column), feld));
            txtGV[static_cast<std::size_t>(kontakt)][static_cast<std::size_t>(feld)] = box;
            grid->addWidget(box, feld + 1, column);
        }
    }
    for (int feld = 0; feld < kContactFields; ++feld) {
        auto* label = new QLabel;
        label->setObjectName(indexedName(u"lblGV1"_s, feld));
        lblGV1[static_cast<std::size_t>(feld)] = label;
        grid->addWidget(label, feld + 1, 0);
    }
    const int last = kContactFields + 1;
    grid->addWidget(captionOf(u"Not&fall-RN:"_s, txtNotfallRN), last, 0);
    grid->addWidget(txtNotfallRN, last, 1);
    grid->setRowStretch(last + 1, 1);
}

void SchuelerKontakte::leeren() {
    zeigen({});
}

void SchuelerKontakte::zeigen(const SchuelerDatensatz& datensatz) {
    for (std::size_t kontakt = 0; kontakt < txtGV.size(); ++kontakt)
        for (std::size_t feld = 0; feld < txtGV[kontakt].size(); ++feld)
            txtGV[kontakt][feld]->setText(datensatz.GV[kontakt][feld]);
    txtNotfallRN->setText(datensatz.NotfallRN);
}

void SchuelerKontakte::einsammeln(SchuelerDatensatz& datensatz) const {
    for (std::size_t kontakt = 0; kontakt < txtGV.size(); ++kontakt)
        for (std::size_t feld = 0; feld < txtGV[kontakt].size(); ++feld)
            datensatz.GV[kontakt][feld] = txtGV[kontakt][feld]->text();
    datensatz.NotfallRN = txtNotfallRN->text();
}

void SchuelerKontakte::bezeichnungenZeigen() {
    for (std::size_t feld = 0; feld < lblGV1.size(); ++feld) {
        const QString& words = Global().KontaktBezeichnung[feld];
        lblGV1[feld]->setText(words);
        for (std::size_t kontakt = 0; kontakt < txtGV.size(); ++kontakt)
            txtGV[kontakt][feld]->setAccessibleName(personOf(static_cast<int>(kontakt)) + u' ' + words);
    }
}

} // namespace kolibri
