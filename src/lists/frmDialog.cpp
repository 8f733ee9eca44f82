#include "lists/frmDialog.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/form_layout.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHideEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kUpright = 1;
constexpr int kAcross = 2;

QGroupBox* frame(const QString& name, const QString& caption) {
    auto* box = new QGroupBox(caption);
    box->setObjectName(name);
    return box;
}

QComboBox* choiceBox(const QString& name, int index, const QString& accessibleName) {
    auto* box = new QComboBox;
    box->setObjectName(indexedName(name, index));
    box->setAccessibleName(accessibleName);
    box->setMinimumContentsLength(18);
    return box;
}

/// An option button of a group; its number is that of its name.
QRadioButton* option(QButtonGroup& group, const QString& name, int index, const QString& caption) {
    auto* button = new QRadioButton(caption);
    button->setObjectName(indexedName(name, index));
    group.addButton(button, index);
    return button;
}

QCheckBox* checkBox(const QString& name, const QString& caption) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(name);
    return box;
}

/// Fills a box with these entries; what was chosen stays chosen if it is still there, else the first is.
void refill(QComboBox& box, const QStringList& entries) {
    const QString chosen = box.currentText();
    box.clear();
    box.addItems(entries);
    box.setCurrentIndex(std::max(0, box.findText(chosen)));
}

void choose(QComboBox& box, const QString& text) {
    box.setCurrentIndex(std::max(0, box.findText(text)));
}

} // namespace

frmDialog::frmDialog()
    : FormWindow(u"frmDialog"_s),
      optEbene(new QButtonGroup(this)),
      cmbSortieren{choiceBox(u"cmbSortieren"_s, 0, u"Sortierung, 1. Ebene"_s),
                   choiceBox(u"cmbSortieren"_s, 1, u"Sortierung, 2. Ebene"_s)},
      optFiltern(new QButtonGroup(this)),
      cmbFiltern{choiceBox(u"cmbFiltern"_s, 0, u"Klasse"_s), choiceBox(u"cmbFiltern"_s, 1, u"Schulstufe"_s),
                 choiceBox(u"cmbFiltern"_s, 2, u"Klassen-NR"_s)},
      optFormat(new QButtonGroup(this)),
      chkKontakteNeu(checkBox(u"chkKontakteNeu"_s, u"&Kontakte"_s)),
      cmbKontakte{choiceBox(u"cmbKontakte"_s, 0, u"Kontakte, 1. Kategorie"_s),
                  choiceBox(u"cmbKontakte"_s, 1, u"Kontakte, 2. Kategorie"_s),
                  choiceBox(u"cmbKontakte"_s, 2, u"Kontakte, 3. Kategorie"_s)},
      chkBaustein(checkBox(u"chkBaustein"_s, u"B&austein"_s)),
      chkSchwimmer(checkBox(u"chkSchwimmer"_s, u"&Schwimmer"_s)),
      chkKennung(checkBox(u"chkKennung"_s, u"K&ennung"_s)),
      chkKlasse(checkBox(u"chkKlasse"_s, u"K&lasse"_s)),
      chkGebDatum(checkBox(u"chkGebDatum"_s, u"&Geburtsdatum"_s)),
      chkBeiträge(checkBox(u"chkBeiträge"_s, u"&Beiträge"_s)),
      frmFiltern(buildFilter()) {
    auto* grid = new QGridLayout;
    grid->addWidget(buildSorting(), 0, 0);
    grid->addWidget(frmFiltern, 1, 0);
    grid->addWidget(buildOutput(), 0, 1, 2, 1);
    grid->addWidget(buildFormat(), 2, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(grid, 1);
    connect(addEditorButtons(*this, *column), &QPushButton::clicked, this, [this] { ok(); });

    for (auto* box : {chkKontakteNeu, chkKlasse, chkGebDatum, chkBeiträge})
        connect(box, &QCheckBox::toggled, this, [this] {
            if (!m_filling)
                SortierKriterien();
        });
    connect(chkKontakteNeu, &QCheckBox::toggled, this, [this] { followChoices(); });
    for (auto* group : {optEbene, optFiltern})
        connect(group, &QButtonGroup::idToggled, this, [this] { followChoices(); });
    constexpr int kFirstLines = 22;
    setFirstSize(*this, kFirstLines);
}

QGroupBox* frmDialog::buildSorting() {
    auto* box = frame(u"frmSortierung"_s, u"SORTIERUNG"_s);
    auto* grid = new QGridLayout(box);
    grid->addWidget(option(*optEbene, u"optEbene"_s, 1, u"&1 Ebene"_s), 0, 0);
    grid->addWidget(option(*optEbene, u"optEbene"_s, 2, u"&2 Ebenen"_s), 0, 1);
    for (int ebene = 0; ebene < 2; ++ebene) {
        auto* label = new QLabel(u"%1. Ebene"_s.arg(ebene + 1));
        QComboBox* words = cmbSortieren.at(static_cast<std::size_t>(ebene));
        label->setBuddy(words);
        grid->addWidget(label, ebene + 1, 0);
        grid->addWidget(words, ebene + 1, 1);
    }
    grid->setColumnStretch(1, 1);
    return box;
}

QGroupBox* frmDialog::buildFilter() {
    auto* box = frame(u"frmFiltern"_s, u"FILTERN"_s);
    auto* grid = new QGridLayout(box);
    const QStringList captions{u"Klasse:"_s, u"Schulstufe:"_s, u"Klassen-NR:"_s};
    for (int i = 0; i < captions.size(); ++i) {
        grid->addWidget(option(*optFiltern, u"optFiltern"_s, i, captions.at(i)), i, 0);
        grid->addWidget(cmbFiltern.at(static_cast<std::size_t>(i)), i, 1);
    }
    grid->setColumnStretch(1, 1);
    return box;
}

QGroupBox* frmDialog::buildFormat() {
    auto* box = frame(u"frmDrucker"_s, u"DRUCK - FORMAT"_s);
    auto* line = new QHBoxLayout(box);
    line->addWidget(option(*optFormat, u"optFormat"_s, kUpright, u"&HOCH"_s));
    line->addWidget(option(*optFormat, u"optFormat"_s, kAcross, u"&QUER"_s));
    line->addStretch();
    return box;
}

QGroupBox* frmDialog::buildOutput() {
    auto* box = frame(u"frmAusgabeMit"_s, u"AUSGABE"_s);
    auto* column = new QVBoxLayout(box);
    for (auto* check : {chkKlasse, chkGebDatum, chkSchwimmer, chkKennung, chkBaustein, chkBeiträge})
        column->addWidget(check);
    column->addWidget(chkKontakteNeu);
    for (auto* categories : cmbKontakte) {
        // The window must not jump when the boxes come and go.
        QSizePolicy policy = categories->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        categories->setSizePolicy(policy);
        column->addWidget(categories);
    }
    column->addStretch();
    return box;
}

void frmDialog::Prepare() {
    const QScopedValueRollback filling(m_filling, true);
    const quint8 listenArt = Global().ListenArt;
    setWindowTitle(listenArt == kSchulanfaenger ? u"Liste Schulanfänger"_s : u"Liste Stammdaten"_s);
    // School starters have no class yet that they could be chosen by.
    frmFiltern->setEnabled(listenArt != kSchulanfaenger);
    Alle_Klassen_auslesen();
    Alle_Schulstufen_auslesen();
    Alle_Klassen_NR_auslesen();
    fillContactCategories();
    display(Liste().Dialog);
    cmbSortieren[0]->setFocus();
}

void frmDialog::hideEvent(QHideEvent* event) {
    if (!event->spontaneous())
        Liste().Dialog = {};
    FormWindow::hideEvent(event);
}

void frmDialog::Alle_Klassen_auslesen() {
    refill(*cmbFiltern[0], QStringList(kAllesAuswaehlen) + Global().KlassenListe);
}

void frmDialog::Alle_Schulstufen_auslesen() {
    refill(*cmbFiltern[1], QStringList(kAllesAuswaehlen) + Global().SchulstufenListe);
}

void frmDialog::Alle_Klassen_NR_auslesen() {
    refill(*cmbFiltern[2], QStringList(kAllesAuswaehlen) + Global().KlassenNRListe);
}

void frmDialog::fillContactCategories() {
    QStringList names{QString()};
    {
        const DbSession session(u"Kategorien der Kontakte lesen"_s);
        for (Recordset rs = Global().Conn.Open(u"SELECT * from KategorieKontakte"_s); !rs.Eof();
             rs.MoveNext())
            names << rs.Text(u"Name");
    }
    for (auto* box : cmbKontakte)
        refill(*box, names);
}

DialogOptions frmDialog::collect() const {
    DialogOptions options;
    options.optEbene = optEbene->checkedId();
    for (std::size_t i = 0; i < cmbSortieren.size(); ++i)
        options.cmbSortieren[i] = cmbSortieren[i]->currentText();
    options.optFiltern = static_cast<PupilFilter>(optFiltern->checkedId());
    for (std::size_t i = 0; i < cmbFiltern.size(); ++i)
        options.cmbFiltern[i] = cmbFiltern[i]->currentText();
    options.optFormat =
        optFormat->checkedId() == kAcross ? PaperOrientation::Across : PaperOrientation::Upright;
    for (std::size_t i = 0; i < cmbKontakte.size(); ++i)
        options.cmbKontakte[i] = cmbKontakte[i]->currentText();
    options.chkKontakteNeu = chkKontakteNeu->isChecked();
    options.chkBaustein = chkBaustein->isChecked();
    options.chkSchwimmer = chkSchwimmer->isChecked();
    options.chkKennung = chkKennung->isChecked();
    options.chkKlasse = chkKlasse->isChecked();
    options.chkGebDatum = chkGebDatum->isChecked();
    options.chkBeiträge = chkBeiträge->isChecked();
    return options;
}

void frmDialog::display(const DialogOptions& options) {
    chkKontakteNeu->setChecked(options.chkKontakteNeu);
    chkBaustein->setChecked(options.chkBaustein);
    chkSchwimmer->setChecked(options.chkSchwimmer);
    chkKennung->setChecked(options.chkKennung);
    chkKlasse->setChecked(options.chkKlasse);
    chkGebDatum->setChecked(options.chkGebDatum);
    chkBeiträge->setChecked(options.chkBeiträge);
    SortierKriterien();
    optEbene->button(options.optEbene)->setChecked(true);
    for (std::size_t i = 0; i < cmbSortieren.size(); ++i)
        choose(*cmbSortieren[i], options.cmbSortieren[i]);
    optFiltern->button(static_cast<int>(options.optFiltern))->setChecked(true);
    for (std::size_t i = 0; i < cmbFiltern.size(); ++i)
        choose(*cmbFiltern[i], options.cmbFiltern[i]);
    optFormat->button(options.optFormat == PaperOrientation::Across ? kAcross : kUpright)->setChecked(true);
    for (std::size_t i = 0; i < cmbKontakte.size(); ++i)
        choose(*cmbKontakte[i], options.cmbKontakte[i]);
    followChoices();
}

void frmDialog::SortierKriterien() {
    const QStringList words = kolibri::SortierKriterien(collect());
    for (auto* box : cmbSortieren)
        refill(*box, words);
}

void frmDialog::followChoices() {
    cmbSortieren[1]->setEnabled(optEbene->checkedId() == 2);
    for (std::size_t i = 0; i < cmbFiltern.size(); ++i)
        cmbFiltern[i]->setEnabled(optFiltern->checkedId() == static_cast<int>(i));
    for (auto* box : cmbKontakte)
        box->setVisible(chkKontakteNeu->isChecked());
}

void frmDialog::ok() {
    Liste().Dialog = collect();
    showList(Global().ListenArt);
    hide();
}

} // namespace kolibri
