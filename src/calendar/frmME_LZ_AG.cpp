#include "calendar/frmME_LZ_AG.h"

#include "calendar/offering_writes.h"
#include "calendar/teaching_units.h"
#include "core/mdlAllgemein.h"
#include "core/row_id.h"
#include "core/widgets/choice_list.h"
#include "core/widgets/entry_box.h"
#include "core/widgets/form_layout.h"
#include "core/widgets/list_view.h"
#include "core/widgets/theme.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// A text box of the form: its label, its width in characters (0 for what there is), a hint behind it.
struct BoxLayout {
    QString label;
    int characters;
    QString hint;
};

const std::array<BoxLayout, kOfferingBoxes>& boxLayouts() {
    static const std::array<BoxLayout, kOfferingBoxes> layouts{{{u"&Kurz-Name:"_s, 8, u"max. 5-stellig"_s},
                                                                {u"&Lang-Name:"_s, 0, {}},
                                                                {u"&Tag:"_s, 8, {}},
                                                                {u"Zeit &von:"_s, 8, u"hh:mm"_s},
                                                                {u"Zeit &bis:"_s, 8, u"hh:mm"_s},
                                                                {u"Bet&reuerIn:"_s, 0, {}},
                                                                {u"&Ort:"_s, 0, {}}}};
    return layouts;
}

std::vector<ListColumn> listColumns(OfferingKind kind) {
    std::vector<ListColumn> columns{
        {u"ID"_s, 6, SortKind::Number},       {u"K_Name"_s, 8, SortKind::Text},
        {u"L_Name"_s, 18, SortKind::Text},    {u"Tag"_s, 6, SortKind::Text},
        {u"Zeit_von"_s, 9, SortKind::Number}, {u"Zeit_bis"_s, 9, SortKind::Number},
        {u"Zeit"_s, 13, SortKind::Number}};
    if (kind == OfferingKind::Arbeitsgruppe)
        columns.insert(columns.end(), {{u"Betreuer/in"_s, 14}, {u"Ort"_s, 13}, {u"Anmerkung"_s, 17}});
    columns.push_back({u"Unterrichtseinheit"_s, 13});
    return columns;
}

QString okCaption(OfferingAction action) {
    switch (action) {
    case OfferingAction::Neu:
        return u"O K"_s;
    case OfferingAction::Korrektur:
        return u"KORREKTUR"_s;
    case OfferingAction::Löschen:
        break;
    }
    return u"LÖSCHEN"_s;
}

} // namespace

frmME_LZ_AG::frmME_LZ_AG()
    : FormWindow(u"frmME_LZ_AG"_s),
      lvwME_LZ_AG(new ListView(u"lvwME_LZ_AG"_s, u"Vorhandene Zeiten"_s)),
      txtME_LZ_AG{},
      cmbUE(new QComboBox),
      lstME_LZ_AG(new QListWidget),
      imgAuswahlAlle(imageButton(u"imgAuswahlAlle"_s, u"alle"_s, u"Alle Tage auswählen"_s)),
      imgAuswahlKeine(imageButton(u"imgAuswahlKeine"_s, u"keine"_s, u"Keinen Tag auswählen"_s)) {
    // The kind with the most columns tells the form's first width.
    lvwME_LZ_AG->setColumns(listColumns(OfferingKind::Arbeitsgruppe));
    lvwME_LZ_AG->onRowChosen([this](const QString& itemText) { zeileGewählt(itemText); });
    connect(imgAuswahlAlle, &QToolButton::clicked, this, [this] { Tag_Auswählen(true); });
    connect(imgAuswahlKeine, &QToolButton::clicked, this, [this] { Tag_Auswählen(false); });
    auto* column = new QVBoxLayout(this);
    column->addWidget(listBesideFields(lvwME_LZ_AG, buildFields()), 1);
    cmdOK = addEditorButtons(*this, *column);
    connect(cmdOK, &QPushButton::clicked, this, [this] { ok(); });
    setFirstSize(*this, 34);
}

QWidget* frmME_LZ_AG::buildFields() {
    m_frame = new FieldFrame({});
    for (int box = 0; box < kOfferingBoxes; ++box) {
        const auto i = static_cast<std::size_t>(box);
        const BoxLayout& line = boxLayouts()[i];
        const QString name = indexedName(u"txtME_LZ_AG"_s, box);
        txtME_LZ_AG[i] = line.characters > 0 ? new EntryBox(name, line.characters) : new EntryBox(name);
        if (box == kBoxTag)
            m_dayLabel = m_frame->addLine(line.label, buildDays());
        else
            m_frame->addLine(line.label, txtME_LZ_AG[i], line.hint);
    }
    cmbUE->setObjectName(u"cmbUE"_s);
    m_frame->addLine(u"&Unterrichtseinheit:"_s, cmbUE);
    return fieldColumn({m_frame});
}

/// The weekdays: a list for new rows, a box for the day of an existing one.
QWidget* frmME_LZ_AG::buildDays() {
    lstME_LZ_AG->setObjectName(u"lstME_LZ_AG"_s);
    lstME_LZ_AG->setAccessibleName(u"Tage"_s);
    lstME_LZ_AG->setSelectionMode(QAbstractItemView::MultiSelection);
    lstME_LZ_AG->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    lstME_LZ_AG->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    lstME_LZ_AG->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* hint = new QLabel(u"MO, DI usw."_s);
    hint->setObjectName(u"lblTag"_s);
    m_dayChoice = new QWidget;
    auto* choice = new QHBoxLayout(m_dayChoice);
    choice->setContentsMargins({});
    choice->addWidget(lstME_LZ_AG);
    auto* images = new QVBoxLayout;
    images->addWidget(imgAuswahlAlle);
    images->addWidget(imgAuswahlKeine);
    images->addStretch();
    choice->addLayout(images);
    auto* area = new QWidget;
    auto* line = new QHBoxLayout(area);
    line->setContentsMargins({});
    line->addWidget(m_dayChoice);
    line->addWidget(txtME_LZ_AG[kBoxTag]);
    line->addWidget(hint);
    line->addStretch();
    hint->hide();
    return area;
}

void frmME_LZ_AG::Prepare() {
    m_mode = offeringMode(Tag);
    ME_LZ_AG_Format();
    const DbSession session(u"Zeiten lesen"_s);
    ME_LZ_AG_EingabefelderLöschen();
    ME_LZ_AG_DatenAnzeigen();
    Zeiten_Unterrichtseinheiten_Einlesen();
    setFirstFocus();
}

void frmME_LZ_AG::setFirstFocus() {
    if (txtME_LZ_AG[kBoxKName]->isEnabled())
        txtME_LZ_AG[kBoxKName]->setFocus();
    else
        lvwME_LZ_AG->setFocus();
}

void frmME_LZ_AG::ME_LZ_AG_Format() {
    lstME_LZ_AG_Füllen();
    cmdOK->setText(okCaption(m_mode.action));
    formatBoxes();
    const bool isNew = m_mode.action == OfferingAction::Neu;
    m_dayChoice->setVisible(isNew);
    txtME_LZ_AG[kBoxTag]->setVisible(!isNew);
    m_dayLabel->setBuddy(isNew ? static_cast<QWidget*>(lstME_LZ_AG) : txtME_LZ_AG[kBoxTag]);
    for (auto* image : {imgAuswahlAlle, imgAuswahlKeine})
        image->setEnabled(isNew);
}

void frmME_LZ_AG::formatBoxes() {
    const bool isGroup = m_mode.kind == OfferingKind::Arbeitsgruppe;
    const bool isNew = m_mode.action == OfferingAction::Neu;
    const bool changes = m_mode.action == OfferingAction::Korrektur;
    // Pupils hold an offering by its short name, and only a working group may move to another day.
    for (const OfferingBox box : {kBoxKName, kBoxLName})
        txtME_LZ_AG[box]->setEnabled(isNew);
    txtME_LZ_AG[kBoxTag]->setEnabled(isNew || (changes && isGroup));
    for (const OfferingBox box : {kBoxVon, kBoxBis})
        txtME_LZ_AG[box]->setEnabled(isNew || changes);
    for (const OfferingBox box : {kBoxBetreuer, kBoxOrt})
        m_frame->setLineVisible(txtME_LZ_AG[box], isGroup);
}

void frmME_LZ_AG::lstME_LZ_AG_Füllen() {
    lstME_LZ_AG->clear();
    for (int day = 0; day < kSchoolDays; ++day)
        lstME_LZ_AG->addItem(TagCode(day));
}

void frmME_LZ_AG::ME_LZ_AG_DatenAnzeigen() {
    std::vector<ListRow> rows;
    for (const auto& row : ME_LZ_AG_DatenEinlesen(m_mode.kind))
        rows.push_back({ItemKey(row.ID), QStringList{ItemText(row.ID)} + row.cells});
    const auto columns = listColumns(m_mode.kind);
    if (lvwME_LZ_AG->columnCount() != static_cast<int>(columns.size()))
        lvwME_LZ_AG->setColumns(columns);
    lvwME_LZ_AG->setRows(rows);
}

void frmME_LZ_AG::Zeiten_Unterrichtseinheiten_Einlesen() {
    cmbUE->clear();
    cmbUE->addItem(u""_s);
    for (const auto& unit : Unterrichtseinheiten_DatenEinlesen())
        cmbUE->addItem(unit.Zeit);
    cmbUE->setCurrentIndex(0);
}

void frmME_LZ_AG::ME_LZ_AG_EingabefelderLöschen() {
    for (auto* box : txtME_LZ_AG) {
        box->clear();
        setErrorColour(box, false);
    }
    Tag_Auswählen(false);
}

void frmME_LZ_AG::ME_LZ_AG_FelderFüllen(const Offering& offering) {
    for (std::size_t box = 0; box < txtME_LZ_AG.size(); ++box)
        txtME_LZ_AG[box]->setText(offering.boxes[box]);
    // A unit that is gone leaves the offering without one.
    cmbUE->setCurrentIndex(std::max(0, cmbUE->findText(offering.UE_Zeit, Qt::MatchFixedString)));
}

void frmME_LZ_AG::Tag_Auswählen(bool alle) {
    if (alle)
        lstME_LZ_AG->selectAll();
    else
        lstME_LZ_AG->clearSelection();
}

void frmME_LZ_AG::zeileGewählt(const QString& itemText) {
    ME_LZ_AG_EingabefelderLöschen();
    m_clicked.id = RowIdOf(itemText);
    const DbSession session(u"Zeiten lesen"_s);
    const Offering offering = ME_LZ_AG_DatensatzLesen(m_mode.kind, m_clicked.id);
    ME_LZ_AG_FelderFüllen(offering);
    m_clicked.Zeit_alt = offering.Zeit();
    m_clicked.Tag_alt = offering[kBoxTag];
    m_clicked.Zeit_K_Name_alt = offering.Zeit_K_Name();
}

Offering frmME_LZ_AG::eingaben() const {
    Offering offering;
    for (std::size_t box = 0; box < txtME_LZ_AG.size(); ++box)
        offering.boxes[box] = txtME_LZ_AG[box]->text();
    offering.UE_Zeit = cmbUE->currentText();
    for (int day = 0; day < lstME_LZ_AG->count(); ++day)
        if (lstME_LZ_AG->item(day)->isSelected())
            offering.tage << lstME_LZ_AG->item(day)->text();
    return offering;
}

bool frmME_LZ_AG::eingabenGültig() {
    const OfferingCheck check = Eingaben_ME_LZ_AG_überprüfen(m_mode, eingaben());
    for (std::size_t box = 0; box < txtME_LZ_AG.size(); ++box)
        if (check.marks[box] != BoxMark::AsItWas)
            setErrorColour(txtME_LZ_AG[box], check.marks[box] == BoxMark::Faulty, u"Bitte prüfen"_s);
    for (const auto& meldung : check.meldungen)
        MsgBox(meldung, 0, u"Überprüfung Eingabe"_s);
    return !check.fehler;
}

void frmME_LZ_AG::ok() {
    constexpr int kYesNoQuestion = 36;
    if (!eingabenGültig())
        return;
    const bool deletes = m_mode.action == OfferingAction::Löschen;
    const DbSession session(deletes ? u"Zeiten löschen"_s : u"Zeiten speichern"_s);
    if (deletes
        && MsgBox(u"Wollen Sie die Daten wirklich löschen?"_s, kYesNoQuestion, u"vorhandene Zeiten löschen"_s)
               == kAnswerNo)
        return;
    schreiben();
}

void frmME_LZ_AG::schreiben() {
    qint64 written = m_clicked.id;
    if (m_mode.action == OfferingAction::Neu)
        written = ME_LZ_AG_Daten_NEU(m_mode.kind, eingaben());
    else
        ME_LZ_AG_Daten_ÄNDERN(m_mode, eingaben(), m_clicked);
    ME_LZ_AG_DatenAnzeigen();
    lvwME_LZ_AG->showRow(lvwME_LZ_AG->rowOfKey(ItemKey(written)));
    ME_LZ_AG_EingabefelderLöschen();
    setFirstFocus();
}

} // namespace kolibri
