#include "calendar/frmBaustein.h"

#include "calendar/messages.h"
#include "calendar/modules.h"
#include "core/mdlAllgemein.h"
#include "core/row_id.h"
#include "core/widgets/entry_box.h"
#include "core/widgets/form_layout.h"
#include "core/widgets/list_view.h"

#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {

frmBaustein::frmBaustein()
    : FormWindow(u"frmBaustein"_s),
      lvwBausteine(new ListView(u"lvwBausteine"_s, u"Bausteine"_s)),
      txtBaustein(new EntryBox(u"txtBaustein"_s)) {
    setWindowTitle(u"BAUSTEIN"_s);
    // The blanks have always stood in the heading, to centre it by eye.
    lvwBausteine->setColumns({{u"ID"_s, kHiddenColumn}, {u"                BAUSTEINE"_s, 30}});
    lvwBausteine->onRowChosen([this](const QString& itemText) { zeileGewählt(itemText); });
    auto* column = new QVBoxLayout(this);
    column->addWidget(listBesideFields(lvwBausteine, buildFields()), 1);
    cmdOK = addEditorButtons(*this, *column);
    connect(cmdOK, &QPushButton::clicked, this, [this] { ok(); });
    setFirstSize(*this, 24);
}

QWidget* frmBaustein::buildFields() {
    constexpr int kCharacters = 32;
    txtBaustein->setWantedCharacters(kCharacters);
    auto* frame = new FieldFrame({});
    frame->addLine(u"BAUSTEIN"_s, txtBaustein)->setObjectName(u"lblBaustein"_s);
    return fieldColumn({frame});
}

void frmBaustein::Prepare() {
    cmdOK->setText(Tag == u"Korrektur"_s ? u"KORREKTUR"_s : Tag == u"Löschen"_s ? u"LÖSCHEN"_s : u"O K"_s);
    const DbSession session(u"Bausteine lesen"_s);
    Bausteine_DatenAnzeigen();
    eingabefeldLöschen();
}

void frmBaustein::Bausteine_DatenAnzeigen() {
    std::vector<ListRow> rows;
    for (const auto& module : Bausteine_DatenEinlesen())
        rows.push_back({ItemKey(module.ID), {ItemText(module.ID), module.Bausteine}});
    lvwBausteine->setRows(rows);
}

void frmBaustein::zeileGewählt(const QString& itemText) {
    const int id = RowIdOf(itemText);
    if (Tag == u"Neu"_s)
        return;
    const DbSession session(u"Baustein lesen"_s);
    m_id.reset();
    txtBaustein->clear();
    const auto text = Baustein_Text(id);
    // Another workstation may have deleted it; then no row is chosen.
    if (!text)
        return;
    m_id = id;
    Baustein_alt = *text;
    txtBaustein->setText(Baustein_alt);
}

void frmBaustein::eingabefeldLöschen() {
    m_id.reset();
    txtBaustein->clear();
    txtBaustein->setFocus();
}

bool frmBaustein::schreiben() {
    constexpr int kYesNoStop = 20;
    if (Tag == u"Neu"_s)
        m_id = static_cast<int>(Bausteine_Daten_Neu(txtBaustein->text()));
    else if (Tag == u"Korrektur"_s)
        Bausteine_Daten_Korrektur(*m_id, txtBaustein->text(), Baustein_alt);
    else if (Tag == u"Löschen"_s) {
        if (MsgBox(u"Baustein wirklich löschen? Es wird dieser Baustein, wenn vorhanden, auch bei den "
                   "Schülern/Schülerinnen gelöscht!"_s,
                   kYesNoStop, u"Baustein löschen"_s)
            == kAnswerNo)
            return false;
        Bausteine_Daten_Löschen(*m_id, Baustein_alt);
    }
    return true;
}

void frmBaustein::ok() {
    if (txtBaustein->text().isEmpty()) {
        MsgBox(u"Feld Baustein ist leer!"_s);
        txtBaustein->setFocus();
        return;
    }
    if (Tag != u"Neu"_s && !m_id) {
        meldungKeineZeile();
        return;
    }
    const DbSession session(u"Baustein speichern"_s);
    if (!schreiben())
        return;
    const int written = *m_id;
    Bausteine_DatenAnzeigen();
    lvwBausteine->showRow(lvwBausteine->rowOfKey(ItemKey(written)));
    eingabefeldLöschen();
}

} // namespace kolibri
