#include "core/frmEinstellungen_kategorien.h"

#include "core/contact_categories.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/entry_box.h"
#include "core/widgets/form_layout.h"

#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// The question before a category is renamed or deleted; renaming has always borne the title of deleting.
bool confirmed(const QString& text) {
    auto& global = Global();
    global.MsgBoxKnoepfe = u"36"_s;
    global.MsgBoxTitel = u"Kategorie löschen"_s;
    global.MsgBoxText = text;
    MsgBoxZeigen();
    return global.MsgBoxAntwort != kAnswerNo;
}

} // namespace

KategorienRahmen::KategorienRahmen(std::function<void()> refill)
    : QGroupBox(u"KATEGORIEN BEARBEITEN"_s),
      lstKategorienBearbeiten(new QListWidget),
      txtKategorie(new EntryBox(u"txtKategorie"_s)),
      m_refill(std::move(refill)) {
    constexpr int kLines = 5;
    lstKategorienBearbeiten->setObjectName(u"lstKategorienBearbeiten"_s);
    lstKategorienBearbeiten->setAccessibleName(u"Kategorien"_s);
    lstKategorienBearbeiten->setMinimumHeight(kLines * fontMetrics().lineSpacing());
    lstKategorienBearbeiten->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    txtKategorie->setAccessibleName(u"Kategorie"_s);
    auto* buttons = new QHBoxLayout;
    const auto button = [&](const QString& name, const QString& caption, void (KategorienRahmen::*action)()) {
        QPushButton* made = formButton(name, caption);
        // Enter in the text box must not rename or delete what happens to be chosen.
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, [this, action] { (this->*action)(); });
        buttons->addWidget(made);
    };
    button(u"cmdKategorieNeu"_s, u"NEU"_s, &KategorienRahmen::neu);
    button(u"cmdKategorieKorrektur"_s, u"KORREKTUR"_s, &KategorienRahmen::korrektur);
    button(u"cmdKategorieLöschen"_s, u"LÖSCHEN"_s, &KategorienRahmen::löschen);
    auto* column = new QVBoxLayout(this);
    column->addWidget(lstKategorienBearbeiten, 1);
    column->addWidget(txtKategorie);
    column->addLayout(buttons);
    connect(
        lstKategorienBearbeiten, &QListWidget::currentItemChanged, this,
        [this](const QListWidgetItem* entry) { txtKategorie->setText(entry ? entry->text() : QString()); });
    connect(lstKategorienBearbeiten, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem* entry) { txtKategorie->setText(entry->text()); });
}

void KategorienRahmen::anzeigen() {
    const QSignalBlocker quiet(lstKategorienBearbeiten);
    lstKategorienBearbeiten->clear();
    lstKategorienBearbeiten->addItems(Kategorien_DatenEinlesen());
}

void KategorienRahmen::neu() {
    const DbSession session(u"Kategorie speichern"_s);
    if (!Kategorie_Daten_NEU(txtKategorie->text()))
        return;
    anzeigen();
    txtKategorie->clear();
    m_refill();
}

void KategorienRahmen::korrektur() {
    const auto* chosen = lstKategorienBearbeiten->currentItem();
    const QString alt = chosen ? chosen->text() : QString();
    const QString neu = txtKategorie->text();
    if (!confirmed(u"Kategorie von "_s + alt + u" auf "_s + neu + u" korrigieren?"_s))
        return;
    const DbSession session(u"Kategorie speichern"_s);
    Kategorie_Daten_KORREKTUR(alt, neu);
    // The boxes beside the contact fields keep the old name, as their rows do.
    anzeigen();
    txtKategorie->clear();
}

void KategorienRahmen::löschen() {
    if (!confirmed(u"Kategorie wirklich löschen?"_s))
        return;
    const DbSession session(u"Kategorie löschen"_s);
    Kategorie_Daten_LÖSCHEN(txtKategorie->text());
    anzeigen();
    m_refill();
    txtKategorie->clear();
}

} // namespace kolibri
