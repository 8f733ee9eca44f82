#include "calendar/frmUnterrichtszeiten.h"

#include "core/frmMsgBox.h"
#include "core/mdlAllgemein.h"
#include "core/row_id.h"
#include "core/time_check.h"
#include "core/widgets/entry_box.h"
#include "core/widgets/form_layout.h"
#include "core/widgets/list_view.h"
#include "core/widgets/theme.h"

#include <QMenuBar>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kTimeCharacters = 8;

} // namespace

frmUnterrichtszeiten::frmUnterrichtszeiten()
    : FormWindow(u"frmUnterrichtszeiten"_s),
      lvwKlasse(new ListView(u"lvwKlasse"_s, u"Klassen und Tage"_s)),
      txtKlasse(displayBox(u"txtKlasse"_s, kTimeCharacters)),
      txtTag(displayBox(u"txtTag"_s, kTimeCharacters)),
      m_times{} {
    setWindowTitle(u"Unterrichtszeiten"_s);
    lvwKlasse->setColumns({{u"ID"_s, kHiddenColumn},
                           {u"Klasse"_s, 10, SortKind::Text},
                           {u"Tag"_s, 7, SortKind::Text},
                           {u"Beginn-VM"_s, 12, SortKind::Time},
                           {u"Ende-VM"_s, 12, SortKind::Time},
                           {u"Beginn-NM"_s, 12, SortKind::Time},
                           {u"Ende-NM"_s, 12, SortKind::Time}});
    lvwKlasse->onRowChosen([this](const QString& itemText) { zeileGewählt(itemText); });
    auto* column = new QVBoxLayout(this);
    column->addWidget(listBesideFields(lvwKlasse, buildFields()), 1);
    connect(addEditorButtons(*this, *column), &QPushButton::clicked, this, [this] { ok(); });
    buildHelp();
    setFirstSize(*this, 32);
}

QWidget* frmUnterrichtszeiten::buildFields() {
    const std::array<QString, kTeachingTimesOfDay> names{u"txtUnterrichtsbeginn"_s, u"txtUnterrichtsende"_s,
                                                         u"txtUnterrichtsbeginnNM"_s,
                                                         u"txtUnterrichtsendeNM"_s};
    for (std::size_t i = 0; i < names.size(); ++i)
        m_times[i] = new EntryBox(names[i], kTimeCharacters);
    auto* day = new FieldFrame(u"KLASSE / TAG"_s);
    day->addLine(u"Klasse"_s, txtKlasse);
    day->addLine(u"Tag"_s, txtTag);
    auto* morning = new FieldFrame(u"VORMITTAG"_s);
    morning->addLine(u"&Beginn"_s, m_times[0], u"hh:mm"_s);
    morning->addLine(u"&Ende"_s, m_times[1], u"hh:mm"_s);
    auto* afternoon = new FieldFrame(u"NACHMITTAG"_s);
    afternoon->addLine(u"Be&ginn"_s, m_times[2], u"hh:mm"_s);
    afternoon->addLine(u"E&nde"_s, m_times[3], u"hh:mm"_s);
    return fieldColumn({day, morning, afternoon});
}

void frmUnterrichtszeiten::buildHelp() {
    auto* bar = new QMenuBar;
    auto* menu = bar->addMenu(u"&Hilfe"_s);
    auto* entry = menu->addAction(u"&Erläuterung"_s);
    entry->setObjectName(u"mnuErläuterung"_s);
    entry->setShortcut(QKeySequence::HelpContents);
    connect(entry, &QAction::triggered, this,
            [] { Form<frmMsgBox>().zeigen(u"Unterrichtszeiten"_s, Unterrichtszeiten_Erläuterung()); });
    layout()->setMenuBar(bar);
}

void frmUnterrichtszeiten::Prepare() {
    const DbSession session(u"Unterrichtszeiten lesen"_s);
    eingabefelderLöschen();
    Unterrichtsende_DatenAnzeigen();
    lvwKlasse->setFocus();
}

void frmUnterrichtszeiten::Unterrichtsende_DatenAnzeigen() {
    std::vector<ListRow> rows;
    for (const auto& day : Unterrichtsende_DatenEinlesen()) {
        ListRow row{ItemKey(day.ID), {ItemText(day.ID), day.Klasse, day.Tag}};
        for (const auto& time : day.Zeiten)
            row.cells << time;
        rows.push_back(row);
    }
    lvwKlasse->setRows(rows);
}

void frmUnterrichtszeiten::zeileGewählt(const QString& itemText) {
    const DbSession session(u"Unterrichtszeiten lesen"_s);
    const ClassDay day = Unterrichtsende_DatensatzLesen(RowIdOf(itemText));
    eingabefelderLöschen();
    m_key = ItemKey(day.ID);
    txtKlasse->setText(day.Klasse);
    txtTag->setText(day.Tag);
    for (std::size_t i = 0; i < m_times.size(); ++i)
        m_times[i]->setText(day.Zeiten[i]);
}

void frmUnterrichtszeiten::eingabefelderLöschen() {
    m_key.clear();
    txtKlasse->clear();
    txtTag->clear();
    for (auto* box : m_times) {
        box->clear();
        setErrorColour(box, false);
    }
}

bool frmUnterrichtszeiten::zeitenGültig() {
    bool valid = true;
    for (auto* box : m_times) {
        const bool faulty = !box->text().isEmpty() && !ZeitGueltig(box->text());
        setErrorColour(box, faulty, u"Zeit entspricht nicht dem Format hh:mm"_s);
        valid = valid && !faulty;
    }
    return valid;
}

void frmUnterrichtszeiten::ok() {
    if (!zeitenGültig()) {
        MsgBox(u"Eingabefehler. Zeit entspricht nicht dem Format hh:mm!"_s);
        return;
    }
    const DbSession session(u"Unterrichtszeiten speichern"_s);
    TeachingTimes times;
    for (std::size_t i = 0; i < times.size(); ++i)
        times[i] = m_times[i]->text();
    const QString written = m_key;
    UnterrichtsBeginnEnde_Daten_Übergeben(txtKlasse->text(), txtTag->text(), times);
    eingabefelderLöschen();
    Unterrichtsende_DatenAnzeigen();
    // Arrow down leads on to the next day.
    lvwKlasse->showRow(lvwKlasse->rowOfKey(written));
    lvwKlasse->setFocus();
}

} // namespace kolibri
