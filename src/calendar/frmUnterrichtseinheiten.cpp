#include "calendar/frmUnterrichtseinheiten.h"

#include "calendar/messages.h"
#include "calendar/teaching_units.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/row_id.h"
#include "core/time_check.h"
#include "core/widgets/entry_box.h"
#include "core/widgets/form_layout.h"
#include "core/widgets/list_view.h"
#include "core/widgets/theme.h"

#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kTimeLength = 5;

/// What the form is called and its button, in the mode that the flags tell.
struct Captions {
    QString form;
    QString ok;
};

Captions captions() {
    if (Global().ModusUE_Korrektur)
        return {u"Unterrichtseinheit Korrigieren"_s, u"KORREKTUR"_s};
    if (Global().ModusUE_Loeschen)
        return {u"Unterrichtseinheit Löschen"_s, u"LÖSCHEN"_s};
    return {u"Unterrichtseinheit Neueingabe"_s, u"O K"_s};
}

} // namespace

frmUnterrichtseinheiten::frmUnterrichtseinheiten()
    : FormWindow(u"frmUnterrichtseinheiten"_s),
      lvwUE(new ListView(u"lvwUE"_s, u"Unterrichtseinheiten"_s)),
      txtZeitVon(new EntryBox(u"txtZeitVon"_s, kTimeLength + 3)),
      txtZeitBis(new EntryBox(u"txtZeitBis"_s, kTimeLength + 3)),
      lblText1(new QLabel) {
    lvwUE->setColumns({{u"ID"_s, kHiddenColumn}, {u"Zeit"_s, 20}});
    lvwUE->onRowChosen([this](const QString& itemText) { zeileGewählt(itemText); });
    auto* column = new QVBoxLayout(this);
    column->addWidget(listBesideFields(lvwUE, buildFields()), 1);
    cmdOK = addEditorButtons(*this, *column);
    connect(cmdOK, &QPushButton::clicked, this, [this] { ok(); });
    setFirstSize(*this, 28);
}

QWidget* frmUnterrichtseinheiten::buildFields() {
    auto* times = new FieldFrame(u"ZEIT"_s);
    times->addLine(u"Zeit &Von:"_s, txtZeitVon, u"hh:mm"_s);
    times->addLine(u"Zeit &Bis:"_s, txtZeitBis, u"hh:mm"_s);
    lblText1->setObjectName(u"lblText1"_s);
    lblText1->setWordWrap(true);
    lblText1->setText(
        u"Mit den hier eingegebenen Unterrichtseinheiten (Unterrichtsstunden) werden die Spalten im "
        u"Tagesplan "
        "gebildet. Tragen Sie auch zusätzlich 'fiktive' Unterrichtseinheiten für Mensa, Lernzeit und AG's "
        "ein, "
        "in denen kein Unterricht stattfindet. Ordnen Sie die Unterrichtseinheiten im Anschluss Mensa, "
        "Lernzeiten und AG's zu. Z.B. unter 'Bearbeiten -> Mensa -> Korrektur'."_s);
    return fieldColumn({times, lblText1});
}

void frmUnterrichtseinheiten::Prepare() {
    const Captions texts = captions();
    setWindowTitle(texts.form);
    cmdOK->setText(texts.ok);
    eingabefelderLöschen();
    const DbSession session(u"Unterrichtseinheiten lesen"_s);
    Unterrichtseinheiten_DatenAnzeigen();
    if (Global().ModusUE_Neu)
        txtZeitVon->setFocus();
    else
        lvwUE->setFocus();
}

void frmUnterrichtseinheiten::hideEvent(QHideEvent* event) {
    FormWindow::hideEvent(event);
    if (!event->spontaneous())
        Global().ModusUE_Neu = Global().ModusUE_Korrektur = Global().ModusUE_Loeschen = false;
}

void frmUnterrichtseinheiten::Unterrichtseinheiten_DatenAnzeigen() {
    std::vector<ListRow> rows;
    for (const auto& unit : Unterrichtseinheiten_DatenEinlesen())
        rows.push_back({ItemKey(unit.ID), {ItemText(unit.ID), unit.Zeit}});
    lvwUE->setRows(rows);
}

void frmUnterrichtseinheiten::zeileGewählt(const QString& itemText) {
    const int id = RowIdOf(itemText);
    if (Global().ModusUE_Neu)
        return;
    const DbSession session(u"Unterrichtseinheit lesen"_s);
    eingabefelderLöschen();
    const auto zeit = Unterrichtseinheit_Zeit(id);
    // Another workstation may have deleted it; then no row is chosen.
    if (!zeit)
        return;
    m_id = id;
    Zeit_alt = *zeit;
    txtZeitVon->setText(Zeit_alt.left(kTimeLength));
    txtZeitBis->setText(Zeit_alt.right(kTimeLength));
}

void frmUnterrichtseinheiten::eingabefelderLöschen() {
    m_id.reset();
    for (auto* box : {txtZeitVon, txtZeitBis}) {
        box->clear();
        setErrorColour(box, false);
    }
}

bool frmUnterrichtseinheiten::eingabenGültig() {
    const bool bothFilled = !txtZeitVon->text().isEmpty() && !txtZeitBis->text().isEmpty();
    for (auto* box : {txtZeitVon, txtZeitBis})
        setErrorColour(box, box->text().isEmpty(), u"Das Feld ist leer"_s);
    if (!bothFilled) {
        MsgBox(u"Feld Zeit Von und Feld Zeit Bis dürfen nicht leer sein!"_s);
        return false;
    }
    for (auto* box : {txtZeitVon, txtZeitBis}) {
        if (ZeitGueltig(box->text()))
            continue;
        const QString message =
            (box == txtZeitVon ? u"Zeit Von"_s : u"Zeit Bis"_s) + u" entspricht nicht dem Format hh:mm!"_s;
        setErrorColour(box, true, message);
        MsgBox(message);
        return false;
    }
    return true;
}

bool frmUnterrichtseinheiten::löschenBestätigt() {
    constexpr int kYesNoStop = 20;
    return MsgBox(u"Unterrichtseinheit wirklich löschen? Es wird diese Unterrichtseinheit, wenn vorhanden, "
                  "auch bei Mensa, Lernzeit oder Arbeitsgruppe gelöscht!"_s,
                  kYesNoStop, u"Unterrichtseinheit löschen"_s)
           != kAnswerNo;
}

void frmUnterrichtseinheiten::schreiben() {
    Transaction transaction(Global().Conn);
    const QString zeit = txtZeitVon->text() + u" - "_s + txtZeitBis->text();
    if (Global().ModusUE_Neu)
        m_id = static_cast<int>(Unterrichtseinheiten_Daten_Neu(zeit));
    else if (Global().ModusUE_Korrektur)
        Unterrichtseinheiten_Daten_Korrektur(*m_id, zeit, Zeit_alt);
    else if (Global().ModusUE_Loeschen)
        Unterrichtseinheiten_Daten_Löschen(*m_id, Zeit_alt);
    Unterrichtseinheiten_Sortieren();
    transaction.Commit();
}

void frmUnterrichtseinheiten::ok() {
    if (!eingabenGültig())
        return;
    if (!Global().ModusUE_Neu && !m_id) {
        meldungKeineZeile();
        return;
    }
    if (Global().ModusUE_Loeschen && !löschenBestätigt())
        return;
    const DbSession session(u"Unterrichtseinheit speichern"_s);
    schreiben();
    const int written = *m_id;
    eingabefelderLöschen();
    Unterrichtseinheiten_DatenAnzeigen();
    lvwUE->showRow(lvwUE->rowOfKey(ItemKey(written)));
    if (Global().ModusUE_Neu)
        txtZeitVon->setFocus();
    else
        lvwUE->setFocus();
}

} // namespace kolibri
