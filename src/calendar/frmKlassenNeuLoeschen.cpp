#include "calendar/frmKlassenNeuLoeschen.h"

#include "calendar/classes.h"
#include "core/klasse_neu.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/entry_box.h"
#include "core/widgets/form_layout.h"

#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {

frmKlassenNeuLöschen::frmKlassenNeuLöschen()
    : FormWindow(u"frmKlassenNeuLöschen"_s),
      txtKlasse(new EntryBox(u"txtKlasse"_s)),
      lstKlassen(new QListWidget) {
    setWindowTitle(u"Klassen Neu/Löschen"_s);
    lstKlassen->setObjectName(u"lstKlassen"_s);
    lstKlassen->setAccessibleName(u"Klassen"_s);
    lstKlassen->setAlternatingRowColors(true);
    // Only what is selected: when Tab reaches the list, its first entry is not the user's choice yet.
    const auto copy = [this] {
        if (const auto* item = lstKlassen->selectedItems().value(0))
            txtKlasse->setText(item->text());
    };
    connect(lstKlassen, &QListWidget::itemClicked, this, copy);
    connect(lstKlassen, &QListWidget::itemSelectionChanged, this, copy);

    auto* column = new QVBoxLayout(this);
    column->addWidget(listBesideFields(lstKlassen, buildFields()), 1);
    addButtonLine(*column, {leaveButton(*this, u"cmdBeenden"_s, u"BEENDEN"_s)});
    setFirstSize(*this, 24);
}

QWidget* frmKlassenNeuLöschen::buildFields() {
    auto* fields = new FieldFrame(u"KLASSEN"_s);
    fields->addLine(u"&Klasse"_s, txtKlasse);
    QPushButton* cmdNeu = formButton(u"cmdNeu"_s, u"NEU"_s);
    cmdNeu->setDefault(true);
    cmdNeu->setShortcut(u"Alt+N"_s);
    connect(cmdNeu, &QPushButton::clicked, this, [this] { neu(); });
    QPushButton* cmdLöschen = formButton(u"cmdLöschen"_s, u"LÖSCHEN"_s);
    cmdLöschen->setShortcut(u"Alt+L"_s);
    connect(cmdLöschen, &QPushButton::clicked, this, [this] { löschen(); });
    fields->addButtons({cmdNeu, cmdLöschen});
    return fieldColumn({fields});
}

void frmKlassenNeuLöschen::Prepare() {
    lstKlassen_Füllen();
    txtKlasse->setFocus();
}

void frmKlassenNeuLöschen::lstKlassen_Füllen(const QString& selected) {
    const QSignalBlocker blocker(lstKlassen);
    lstKlassen->clear();
    lstKlassen->addItems(Global().KlassenListe);
    const auto found = lstKlassen->findItems(selected, Qt::MatchFixedString);
    lstKlassen->setCurrentItem(found.value(0));
}

void frmKlassenNeuLöschen::neu() {
    const QString name = txtKlasse->text();
    QString klasse = name;
    {
        const DbSession session(u"Klasse anlegen"_s);
        Klasse_Neu(klasse);
    }
    txtKlasse->setText(klasse);
    lstKlassen_Füllen(name);
    txtKlasse->setFocus();
}

void frmKlassenNeuLöschen::löschen() {
    QString klasse = txtKlasse->text();
    bool changed = false;
    {
        const DbSession session(u"Klasse löschen"_s);
        changed = Klasse_Löschen(klasse);
    }
    txtKlasse->setText(klasse);
    if (changed)
        lstKlassen_Füllen();
    txtKlasse->setFocus();
}

} // namespace kolibri
