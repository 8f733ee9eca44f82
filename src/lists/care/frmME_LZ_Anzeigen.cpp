#include "lists/care/frmME_LZ_Anzeigen.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/choice_list.h"
#include "core/widgets/entry_box.h"
#include "core/widgets/form_layout.h"
#include "core/widgets/wait_cursor.h"
#include "lists/frmListTexts.h"
#include "lists/list_helpers.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// The kinds of list that optListe offers, by index.
const std::array<std::pair<QString, CareVariant>, 3>& variants() {
    static const std::array<std::pair<QString, CareVariant>, 3> table{
        {{u"Kla&sse"_s, kEineKlasse},
         {u"Klassen &gruppiert"_s, kKlassenGruppiert},
         {u"M&E/LZ"_s, kEinheiten}}};
    return table;
}

bool severalOfferings() {
    return Global().ListenUnterArt == kEinheiten;
}

} // namespace

frmME_LZ_Anzeigen::frmME_LZ_Anzeigen()
    : FormWindow(u"frmME_LZ_Anzeigen"_s),
      frmAuswahl1(new FieldFrame({})),
      cmbKlasse(new QComboBox),
      cmbME_LZ(new QComboBox),
      txtZeit(new EntryBox(u"txtZeit"_s, 15)),
      txtZeit_K_Name(displayBox(u"txtZeit_K_Name"_s)),
      txtK_Name(displayBox(u"txtK_Name"_s)),
      lstKlasse(new ChoiceList(u"lstKlasse"_s, u"Klassen"_s)),
      lstSchulstufe(new ChoiceList(u"lstSchulstufe"_s, u"Schulstufen"_s)),
      lstME_LZ(new ChoiceList(u"lstME_LZ"_s, {})),
      optListe(new QButtonGroup(this)),
      txtVon(new EntryBox(u"txtVon"_s, 12)),
      txtBis(new EntryBox(u"txtBis"_s, 12)),
      m_texts(new ListTextBoxes) {
    buildOffering();
    frmAuswahl2 = buildMarks();
    auto* choice = new QHBoxLayout;
    choice->addWidget(frmAuswahl1, 1);
    choice->addWidget(frmAuswahl2, 1);
    choice->addWidget(buildVariants());
    auto* column = new QVBoxLayout(this);
    column->addLayout(choice);
    column->addWidget(buildRemarks(), 1);
    connect(addEditorButtons(*this, *column), &QPushButton::clicked, this, [this] { ok(); });
    setFirstSize(*this, 36);
}

void frmME_LZ_Anzeigen::buildOffering() {
    frmAuswahl1->setObjectName(u"frmAuswahl1"_s);
    cmbKlasse->setObjectName(u"cmbKlasse"_s);
    cmbME_LZ->setObjectName(u"cmbME_LZ"_s);
    cmbME_LZ->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    frmAuswahl1->addLine(u"&Klasse:"_s, cmbKlasse);
    lblME_LZ = frmAuswahl1->addLine(u"&ME:"_s, cmbME_LZ);
    lblME_LZ->setObjectName(u"lblME_LZ"_s);
    frmAuswahl1->addLine(u"&Zeit:"_s, txtZeit);
    // Carried along for the list, not for reading.
    for (auto* box : {txtZeit_K_Name, txtK_Name}) {
        frmAuswahl1->addWide(box);
        box->hide();
    }
    connect(cmbKlasse, &QComboBox::currentIndexChanged, this, [this] { klasseGewählt(); });
    connect(cmbME_LZ, &QComboBox::currentIndexChanged, this, [this] { ME_LZ_gewählt(); });
}

QWidget* frmME_LZ_Anzeigen::buildMarks() {
    auto* frame = new FieldFrame({});
    frame->setObjectName(u"frmAuswahl2"_s);
    auto* lists = new QWidget;
    auto* line = new QHBoxLayout(lists);
    line->setContentsMargins({});
    const auto add = [&](ChoiceList* list, const QString& box, const QString& caption, int stretch) {
        auto* part = new QVBoxLayout;
        part->addWidget(list, 1);
        part->addWidget(chooseAllBox(box, caption, *list));
        line->addLayout(part, stretch);
    };
    add(lstME_LZ, u"chkME_LZ_Y_N"_s, u"Akt&ivieren J/N"_s, 1);
    add(lstKlasse, u"chkKlassen_Y_N"_s, u"&Aktiv J/N"_s, 0);
    add(lstSchulstufe, u"chkSchulstufe_Y_N"_s, u"Aktivie&ren J/N"_s, 0);
    frame->addWide(lists);
    auto* hint = new QLabel(u"Die Liste zeigt immer alle Klassen und Schulstufen."_s);
    hint->setObjectName(u"lblHinweis"_s);
    hint->setWordWrap(true);
    frame->addWide(hint);
    return frame;
}

QWidget* frmME_LZ_Anzeigen::buildVariants() {
    auto* frame = new QGroupBox(u"LISTE"_s);
    frame->setObjectName(u"frmAuswahlListe"_s);
    auto* column = new QVBoxLayout(frame);
    int index = 0;
    for (const auto& [caption, variant] : variants()) {
        auto* option = new QRadioButton(caption);
        option->setObjectName(indexedName(u"optListe"_s, index));
        optListe->addButton(option, index++);
        column->addWidget(option);
    }
    column->addStretch();
    connect(optListe, &QButtonGroup::idClicked, this, [this](int chosen) { varianteGewählt(chosen); });
    return frame;
}

QWidget* frmME_LZ_Anzeigen::buildRemarks() {
    auto* frame = new QGroupBox(u"ANMERKUNGEN"_s);
    frame->setObjectName(u"frmAnmerkungen"_s);
    auto* column = new QVBoxLayout(frame);
    auto* week = new QHBoxLayout;
    const auto add = [week](const QString& caption, EntryBox* box) {
        auto* label = new QLabel(caption);
        label->setBuddy(box);
        week->addWidget(label);
        week->addWidget(box);
    };
    add(u"&Woche vom:"_s, txtVon);
    add(u"&bis:"_s, txtBis);
    week->addStretch();
    column->addLayout(week);
    column->addWidget(m_texts, 1);
    return frame;
}

void frmME_LZ_Anzeigen::Prepare() {
    m_listenArt = Global().ListeLernzeit ? kListeLernzeit : kListeMensa;
    Global().ListenArt = m_listenArt;
    formatieren();
    FreitagBelegt_Pruefen();
    const DbSession session(u"Zeiten lesen"_s);
    auswahlFüllen();
    Zeit_einlesen();
    // What was typed for a list of several offerings belongs to no class; it stays until another kind of list
    // is asked for.
    const int kind = m_listenArt * 10 + Global().ListenUnterArt;
    if (!severalOfferings() || kind != m_textsOf)
        Text_Vorher_Nachher_einlesen();
    m_textsOf = kind;
    if (severalOfferings())
        lstME_LZ->setFocus();
    else
        cmbKlasse->setFocus();
}

void frmME_LZ_Anzeigen::formatieren() {
    const bool mensa = m_listenArt == kListeMensa;
    const QString word = mensa ? u"MENSA"_s : u"LERNZEIT"_s;
    setWindowTitle(u"LISTE "_s + word);
    frmAuswahl1->setTitle(u"AUSWAHL "_s + word);
    static_cast<FieldFrame*>(frmAuswahl2)->setTitle(u"AUSWAHL "_s + word);
    lblME_LZ->setText(mensa ? u"&ME:"_s : u"&LZ:"_s);
    lstME_LZ->setAccessibleName(mensa ? u"Mensazeiten"_s : u"Lernzeiten"_s);
    frmAuswahl1->setVisible(!severalOfferings());
    frmAuswahl2->setVisible(severalOfferings());
    for (std::size_t i = 0; i < variants().size(); ++i)
        optListe->button(static_cast<int>(i))->setChecked(variants()[i].second == Global().ListenUnterArt);
}

void frmME_LZ_Anzeigen::auswahlFüllen() {
    const auto& global = Global();
    const auto offerings = careOfferings(m_listenArt);
    QStringList names;
    QStringList entries;
    for (const auto& offering : offerings) {
        names << offering.langname;
        entries << careEntry(offering.langname, offering.zeitKName);
    }
    const bool grouped = global.ListenUnterArt == kKlassenGruppiert;
    fillBox(*cmbKlasse, grouped ? global.KlassenNRListe : global.KlassenListe, m_klasseIndex);
    fillBox(*cmbME_LZ, severalOfferings() ? QStringList() : names, m_offeringIndex);
    lstME_LZ->setEntries(entries);
    lstKlasse->setEntries(global.KlassenListe);
    lstSchulstufe->setEntries(global.SchulstufenListe);
}

void frmME_LZ_Anzeigen::klasseGewählt() {
    const DbSession session(u"Listentexte lesen"_s);
    Text_Vorher_Nachher_einlesen();
}

void frmME_LZ_Anzeigen::ME_LZ_gewählt() {
    const DbSession session(u"Zeiten lesen"_s);
    Zeit_einlesen();
    Text_Vorher_Nachher_einlesen();
}

void frmME_LZ_Anzeigen::Zeit_einlesen() {
    CareOptions options = eingaben();
    readCareOffering(m_listenArt, options);
    txtZeit->setText(options.txtZeit);
    txtZeit_K_Name->setText(options.txtZeit_K_Name);
    txtK_Name->setText(options.txtK_Name);
}

void frmME_LZ_Anzeigen::Text_Vorher_Nachher_einlesen() {
    m_texts->setTexts(severalOfferings() ? ListTexts() : careTexts(eingaben()));
}

void frmME_LZ_Anzeigen::varianteGewählt(int index) {
    Global().ListenUnterArt = variants()[static_cast<std::size_t>(index)].second;
    Prepare();
}

CareOptions frmME_LZ_Anzeigen::eingaben() const {
    return {.cmbKlasse = cmbKlasse->currentText(),
            .cmbME_LZ = cmbME_LZ->currentText(),
            .txtZeit = txtZeit->text(),
            .txtZeit_K_Name = txtZeit_K_Name->text(),
            .txtK_Name = txtK_Name->text(),
            .lstME_LZ = lstME_LZ->chosen(),
            .txtVon = txtVon->text(),
            .txtBis = txtBis->text(),
            .texte = m_texts->texts()};
}

void frmME_LZ_Anzeigen::ok() {
    const CareOptions options = eingaben();
    if (const QString missing = missingCareChoice(Global().ListenUnterArt, options); !missing.isEmpty()) {
        MsgBox(missing);
        return;
    }
    Liste().MensaLernzeit = options;
    {
        const WaitCursor wait;
        if (!severalOfferings()) {
            const DbSession session(u"Listentexte speichern"_s);
            saveCareTexts(m_listenArt, options);
        }
        prepareList(m_listenArt);
    }
    m_klasseIndex = cmbKlasse->currentIndex();
    m_offeringIndex = cmbME_LZ->currentIndex();
    doors().page->show();
}

} // namespace kolibri
