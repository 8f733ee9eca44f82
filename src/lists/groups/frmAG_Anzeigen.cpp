#include "lists/groups/frmAG_Anzeigen.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/choice_list.h"
#include "core/widgets/entry_box.h"
#include "core/widgets/form_layout.h"
#include "core/widgets/wait_cursor.h"
#include "lists/frmListTexts.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kDateCharacters = 11;

/// An entry of the box: what tells one meeting of a group from another.
QString entryText(const GroupEntry& group) {
    return QStringList{group.langname, group.tag, group.zeitKName}.join(u", "_s);
}

/// The six parts of a frame beside each other, so that those of one date stand below each other.
QHBoxLayout* evenLine(QWidget* frame) {
    auto* line = new QHBoxLayout(frame);
    line->setSpacing(2 * line->spacing());
    return line;
}

} // namespace

frmAG_Anzeigen::frmAG_Anzeigen()
    : FormWindow(u"frmAG_Anzeigen"_s),
      cmbAG(new QComboBox),
      txtBetreuer(displayBox(u"txtBetreuer"_s)),
      txtOrt(displayBox(u"txtOrt"_s)),
      txtTag(displayBox(u"txtTag"_s, 4)),
      txtZeit(displayBox(u"txtZeit"_s, 15)),
      txtK_Name(displayBox(u"txtK_Name"_s)),
      txtZeit_K_Name(displayBox(u"txtZeit_K_Name"_s)),
      chkMO1WO(new QCheckBox(u"Daten ab diesem &Montag"_s)),
      txtMO1WO(new EntryBox(u"txtMO1WO"_s, kDateCharacters)),
      cmbSortierung(new QComboBox),
      m_texts(new ListTextBoxes),
      Timer1(new QTimer(this)) {
    setWindowTitle(u"LISTE ARBEITSGRUPPE"_s);
    auto* head = new QHBoxLayout;
    head->addWidget(buildGroup(), 1);
    head->addWidget(fieldColumn({buildFirstMonday(), buildSorting()}));
    auto* remarks = new QGroupBox(u"ANMERKUNGEN"_s);
    remarks->setObjectName(u"frmAnmerkung"_s);
    auto* texts = new QVBoxLayout(remarks);
    texts->addWidget(m_texts);
    auto* column = new QVBoxLayout(this);
    column->addLayout(head);
    column->addWidget(buildDates());
    column->addWidget(buildAbsence(), 1);
    column->addWidget(remarks, 1);
    connect(addEditorButtons(*this, *column), &QPushButton::clicked, this, [this] { ok(); });
    Timer1->setObjectName(u"Timer1"_s);
    connect(Timer1, &QTimer::timeout, this, [this] { ListBoxen_NichtTeilnahme_Enable(); });
    setFirstSize(*this, 46);
}

QWidget* frmAG_Anzeigen::buildGroup() {
    auto* frame = new FieldFrame(u"AUSWAHL"_s);
    frame->setObjectName(u"frmAuswahl"_s);
    cmbAG->setObjectName(u"cmbAG"_s);
    cmbAG->setPlaceholderText(u"Bitte wählen"_s);
    cmbAG->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    frame->addLine(u"Arbeits&gruppe:"_s, cmbAG);
    frame->addLine(u"Betreuung:"_s, txtBetreuer);
    frame->addLine(u"Ort:"_s, txtOrt);
    frame->addLine(u"Tag:"_s, txtTag);
    frame->addLine(u"Zeit:"_s, txtZeit);
    // Carried along for the list, not for reading.
    for (auto* box : {txtK_Name, txtZeit_K_Name}) {
        frame->addWide(box);
        box->hide();
    }
    connect(cmbAG, &QComboBox::currentIndexChanged, this, [this] { gruppeGewählt(); });
    return frame;
}

QWidget* frmAG_Anzeigen::buildFirstMonday() {
    auto* frame = new FieldFrame(u"DATUM MONTAG 1. WO"_s);
    frame->setObjectName(u"frmMO1WO"_s);
    chkMO1WO->setObjectName(u"chkMO1WO"_s);
    txtMO1WO->setAccessibleName(u"Montag der ersten Woche"_s);
    QPushButton* take = formButton(u"cmdOK_MO1WO"_s, u"Ü&bernehmen"_s);
    take->setAutoDefault(false);
    auto* monday = new QWidget;
    auto* line = new QHBoxLayout(monday);
    line->setContentsMargins({});
    line->addWidget(txtMO1WO);
    line->addWidget(take);
    frame->addWide(chkMO1WO);
    frame->addWide(monday);
    connect(chkMO1WO, &QCheckBox::toggled, this, [this](bool on) { ersterMontagGewählt(on); });
    connect(take, &QPushButton::clicked, this, [this] { ersterMontag(); });
    return frame;
}

QWidget* frmAG_Anzeigen::buildSorting() {
    auto* frame = new FieldFrame(u"SORTIERUNG"_s);
    frame->setObjectName(u"frmSortierung"_s);
    cmbSortierung->setObjectName(u"cmbSortierung"_s);
    cmbSortierung->addItems(groupSortWords());
    frame->addLine(u"Na&ch:"_s, cmbSortierung);
    return frame;
}

QWidget* frmAG_Anzeigen::buildDates() {
    auto* frame = new QGroupBox(u"ANWESENHEIT"_s);
    frame->setObjectName(u"frmAnwesenheit"_s);
    auto* line = evenLine(frame);
    for (int i = 0; i < kMeetings; ++i) {
        auto* box = new EntryBox(indexedName(u"txtDatum"_s, i));
        box->setWantedCharacters(kDateCharacters);
        box->setAccessibleName(u"%1. Datum"_s.arg(i + 1));
        box->setPlaceholderText(u"TT.MM.JJJJ"_s);
        txtDatum[static_cast<std::size_t>(i)] = box;
        line->addWidget(box, 1);
    }
    return frame;
}

QWidget* frmAG_Anzeigen::buildAbsence() {
    auto* frame = new QGroupBox(u"NICHT TEILNEHMEN"_s);
    frame->setObjectName(u"frmNichtTeilnehmen"_s);
    auto* line = evenLine(frame);
    for (int number = 0; number < kMeetings; ++number) {
        const auto i = static_cast<std::size_t>(number);
        const QString date = u"%1. Datum"_s.arg(number + 1);
        auto* list = new ChoiceList(indexedName(u"lstNichtTeilnehmen"_s, number),
                                    u"Klassen ohne Teilnahme, "_s + date);
        lstNichtTeilnehmen[i] = list;
        imgAuswahlAlle[i] = imageButton(indexedName(u"imgAuswahlAlle"_s, number), u"alle"_s,
                                        date + u": alle Klassen auswählen"_s);
        imgAuswahlKeine[i] = imageButton(indexedName(u"imgAuswahlKeine"_s, number), u"keine"_s,
                                         date + u": keine Klasse auswählen"_s);
        connect(imgAuswahlAlle[i], &QToolButton::clicked, list, [list] { list->chooseAll(true); });
        connect(imgAuswahlKeine[i], &QToolButton::clicked, list, [list] { list->chooseAll(false); });
        auto* images = new QHBoxLayout;
        images->addWidget(imgAuswahlAlle[i]);
        images->addWidget(imgAuswahlKeine[i]);
        if (i < imgAuswahlToRight.size()) {
            imgAuswahlToRight[i] = imageButton(indexedName(u"imgAuswahlToRight"_s, number), u"→"_s,
                                               date + u": Auswahl zum nächsten Datum übernehmen"_s);
            connect(imgAuswahlToRight[i], &QToolButton::clicked, this,
                    [this, i] { AG_NichtTeilnahme_AuswahlToRight(i); });
            images->addWidget(imgAuswahlToRight[i]);
        }
        // The last column is as wide as the others, so that each stands below its date.
        if (i == imgAuswahlToRight.size())
            images->addSpacing(imgAuswahlToRight[0]->sizeHint().width() + images->spacing());
        images->addStretch();
        auto* column = new QVBoxLayout;
        column->addWidget(list, 1);
        column->addLayout(images);
        line->addLayout(column, 1);
    }
    return frame;
}

void frmAG_Anzeigen::Prepare() {
    constexpr int kTick = 500;
    {
        const DbSession session(u"Arbeitsgruppen lesen"_s);
        const GroupEntry* before = gewählteGruppe();
        const QString chosen = before ? entryText(*before) : QString();
        AGs_Auflisten();
        AG_Nicht_Teilnahme_ListBox_Füllen();
        const GroupEntry* now = gewählteGruppe();
        Eingabefelder_Löschen();
        gruppeAnzeigen();
        // The dates of a group that is still chosen stay, so that a holiday needs moving only once.
        if (!now)
            Datum_1bis6_Laden();
        else if (entryText(*now) != chosen)
            termineAnzeigen();
    }
    ListBoxen_NichtTeilnahme_Enable();
    Timer1->start(kTick);
    cmbAG->setFocus();
}

void frmAG_Anzeigen::hideEvent(QHideEvent* event) {
    Timer1->stop();
    FormWindow::hideEvent(event);
}

void frmAG_Anzeigen::AGs_Auflisten() {
    const QSignalBlocker filling(cmbAG);
    m_groups = groupEntries();
    cmbAG->clear();
    for (const auto& group : m_groups)
        cmbAG->addItem(entryText(group));
    cmbAG->setCurrentIndex(m_groupIndex < cmbAG->count() ? m_groupIndex : -1);
}

const GroupEntry* frmAG_Anzeigen::gewählteGruppe() const {
    const int index = cmbAG->currentIndex();
    return index < 0 ? nullptr : &m_groups.at(static_cast<std::size_t>(index));
}

void frmAG_Anzeigen::Eingabefelder_Löschen() {
    for (auto* box : {txtBetreuer, txtOrt, txtTag, txtZeit, txtK_Name, txtZeit_K_Name})
        box->clear();
    m_texts->setTexts({});
}

void frmAG_Anzeigen::gruppeAnzeigen() {
    const GroupEntry* group = gewählteGruppe();
    if (!group)
        return;
    GroupOptions options;
    readGroup(*group, options);
    txtTag->setText(options.txtTag);
    txtZeit->setText(options.txtZeit);
    txtK_Name->setText(options.txtK_Name);
    txtZeit_K_Name->setText(options.txtZeit_K_Name);
    txtBetreuer->setText(options.txtBetreuer);
    txtOrt->setText(options.txtOrt);
    m_texts->setTexts(options.texte);
}

void frmAG_Anzeigen::gruppeGewählt() {
    const DbSession session(u"Arbeitsgruppe lesen"_s);
    Eingabefelder_Löschen();
    gruppeAnzeigen();
    termineAnzeigen();
    ListBoxen_NichtTeilnahme_Enable();
}

void frmAG_Anzeigen::termineAnzeigen() {
    if (chkMO1WO->isChecked())
        Datum_MO1WO_anzeigen();
    else
        Datum_1bis6_AG_laden();
}

void frmAG_Anzeigen::setDates(const GroupDates& dates) {
    for (std::size_t i = 0; i < dates.size(); ++i)
        txtDatum[i]->setText(dates[i]);
}

void frmAG_Anzeigen::Datum_MO1WO_anzeigen() {
    if (const auto dates = datesFromMonday(txtMO1WO->text(), txtTag->text()))
        setDates(*dates);
}

void frmAG_Anzeigen::Datum_MO1WO_speichern() {
    const DbSession session(u"Montag der ersten Woche speichern"_s);
    saveFirstMonday(txtMO1WO->text());
}

void frmAG_Anzeigen::Datum_MO1WO_laden() {
    txtMO1WO->setText(readFirstMonday());
}

void frmAG_Anzeigen::Datum_1bis6_Laden() {
    setDates(readLastDates());
}

void frmAG_Anzeigen::Datum_1bis6_AG_laden() {
    if (const GroupEntry* group = gewählteGruppe())
        // A group without dates of its own begins with those used last.
        setDates(readDatesOf(group->langname).value_or(readLastDates()));
}

void frmAG_Anzeigen::ersterMontag() {
    Datum_MO1WO_anzeigen();
    Datum_MO1WO_speichern();
    ListBoxen_NichtTeilnahme_Enable();
}

void frmAG_Anzeigen::ersterMontagGewählt(bool gewählt) {
    const DbSession session(u"Termine lesen"_s);
    if (gewählt)
        Datum_MO1WO_laden();
    termineAnzeigen();
    ListBoxen_NichtTeilnahme_Enable();
}

void frmAG_Anzeigen::AG_Nicht_Teilnahme_ListBox_Füllen() {
    for (auto* list : lstNichtTeilnehmen)
        list->setEntries(Global().KlassenListe);
}

void frmAG_Anzeigen::AG_NichtTeilnahme_AuswahlToRight(std::size_t date) {
    lstNichtTeilnehmen[date + 1]->choose(lstNichtTeilnehmen[date]->chosen());
}

void frmAG_Anzeigen::ListBoxen_NichtTeilnahme_Enable() {
    const auto stands = [this](std::size_t date) { return !txtDatum[date]->text().isEmpty(); };
    for (std::size_t i = 0; i < txtDatum.size(); ++i) {
        lstNichtTeilnehmen[i]->setEnabled(stands(i));
        imgAuswahlAlle[i]->setEnabled(stands(i));
        imgAuswahlKeine[i]->setEnabled(stands(i));
        if (i < imgAuswahlToRight.size())
            imgAuswahlToRight[i]->setEnabled(stands(i) && stands(i + 1));
    }
}

GroupOptions frmAG_Anzeigen::eingaben() const {
    GroupOptions options;
    if (const GroupEntry* group = gewählteGruppe())
        options.cmbAG = group->langname;
    options.txtBetreuer = txtBetreuer->text();
    options.txtOrt = txtOrt->text();
    options.txtTag = txtTag->text();
    options.txtZeit = txtZeit->text();
    options.txtK_Name = txtK_Name->text();
    options.txtZeit_K_Name = txtZeit_K_Name->text();
    for (std::size_t i = 0; i < txtDatum.size(); ++i) {
        options.txtDatum[i] = txtDatum[i]->text();
        options.lstNichtTeilnehmen[i] = lstNichtTeilnehmen[i]->chosen();
    }
    options.cmbSortierung = cmbSortierung->currentText();
    options.texte = m_texts->texts();
    return options;
}

void frmAG_Anzeigen::ok() {
    const GroupOptions options = eingaben();
    Liste().Arbeitsgruppe = options;
    {
        const WaitCursor wait;
        {
            const DbSession session(u"Listentexte speichern"_s);
            saveGroupTexts(options);
        }
        prepareList(kListeArbeitsgruppe);
        const DbSession session(u"Termine speichern"_s);
        saveDates(options.txtDatum, options.cmbAG);
    }
    m_groupIndex = cmbAG->currentIndex();
    doors().page->show();
}

} // namespace kolibri
