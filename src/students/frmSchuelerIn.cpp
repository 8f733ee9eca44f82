#include "students/frmSchuelerIn.h"

#include "core/startup.h"
#include "core/widgets/form_layout.h"
#include "core/widgets/list_view.h"
#include "core/widgets/theme.h"
#include "core/widgets/wait_cursor.h"
#include "students/edit_guard.h"
#include "students/frmSchuelerIn_ampel.h"
#include "students/frmSchuelerIn_anmerkung.h"
#include "students/frmSchuelerIn_beitraege.h"
#include "students/frmSchuelerIn_felder.h"
#include "students/frmSchuelerIn_kontakte.h"
#include "students/frmSchuelerIn_stamm.h"
#include "students/frmSchuelerIn_woche.h"
#include "students/student_list.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollArea>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr QSize kFirstSize(1350, 700);

QScrollArea* scrolling(QWidget* page) {
    auto* area = new QScrollArea;
    area->setWidget(page);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    // The tab's own ground shows through.
    page->setAutoFillBackground(false);
    area->viewport()->setAutoFillBackground(false);
    return area;
}

/// Widgets that rest until a preparation is through, however it ends.
class Resting {
public:
    explicit Resting(std::initializer_list<QWidget*> widgets) : m_widgets(widgets) { enable(false); }
    ~Resting() { enable(true); }
    Resting(const Resting&) = delete;
    Resting& operator=(const Resting&) = delete;

private:
    void enable(bool on) const {
        for (auto* widget : m_widgets)
            widget->setEnabled(on);
    }

    std::vector<QWidget*> m_widgets;
};

} // namespace

SchuelerFormZiele& schuelerFormZiele() {
    static SchuelerFormZiele ziele;
    return ziele;
}

frmSchülerIn::frmSchülerIn()
    : FormWindow(u"frmSchülerIn"_s),
      lvwStammdaten(new ListView(u"lvwStammdaten"_s, u"Schüler und Schülerinnen"_s)),
      lblModus(new QLabel),
      m_stamm(new SchuelerStamm),
      m_ampel(new SchuelerAmpel),
      SSTab1(new QTabWidget),
      m_woche(new SchuelerWoche),
      m_kontakte(new SchuelerKontakte),
      m_beitraege(new SchuelerBeitraege),
      m_anmerkung(new SchuelerAnmerkung),
      imgPrinter(drawnButton(u"imgPrinter"_s, u"drucker"_s, u"Datensatz drucken (Strg+P)"_s,
                             accentColour(palette()))),
      cmdOK(formButton(u"cmdOK"_s, QString())),
      cmdBeenden(leaveButton(*this, u"cmdBeenden"_s, u"BEENDEN"_s)),
      Timer1(new QTimer(this)) {
    auto* record = new QWidget;
    auto* column = new QVBoxLayout(record);
    column->setContentsMargins({});
    column->addWidget(lblModus);
    column->addWidget(m_stamm);
    column->addWidget(m_ampel);
    buildHead();
    buildTabs();
    column->addWidget(SSTab1, 1);
    column->addWidget(buildButtons());
    QSplitter* halves = listBesideFields(lvwStammdaten, record);
    // The list has many columns to scroll through; what room there is more belongs to the record.
    halves->setStretchFactor(0, 0);
    halves->setStretchFactor(1, 1);
    lvwStammdaten->setMinimumWidth(fontMetrics().averageCharWidth() * 14);
    auto* whole = new QVBoxLayout(this);
    whole->addWidget(halves);
    resize(kFirstSize.boundedTo(screen()->availableSize()));
    halves->setSizes({width() / 4, width() * 3 / 4});

    lvwStammdaten->onRowChosen([this](const QString&) {
        if (!FormWirdVorbereitet)
            ListViewStammdaten_Click();
    });
    Timer1->setObjectName(u"Timer1"_s);
    connect(Timer1, &QTimer::timeout, this, [this] { Check_ZeitÜberschneidungen_Vor_Datenübernahme(); });
}

frmSchülerIn::~frmSchülerIn() = default;

void frmSchülerIn::buildHead() {
    lblModus->setObjectName(u"lblModus"_s);
    lblModus->setFont(scaledFont(lblModus->font(), 1.15, QFont::Bold));
    connect(m_stamm->Image1, &QToolButton::clicked, this, [this] { Search_Nachname_Schüler(); });
    connect(m_stamm->chkNichtOG, &QCheckBox::clicked, this, [this](bool on) { nichtOG(on); });
    m_stamm->txtSCH[kFeldKlasse]->onLeft([this] { klasseVerlassen(); });
    m_ampel->onSwitched([this](bool on) { zeitpruefungSchalten(on); });
}

void frmSchülerIn::buildTabs() {
    SSTab1->setObjectName(u"SSTab1"_s);
    SSTab1->addTab(scrolling(m_woche), u"&Woche"_s);
    SSTab1->addTab(scrolling(m_kontakte), u"Kon&takte"_s);
    SSTab1->addTab(scrolling(m_beitraege), u"&Beiträge"_s);
    SSTab1->addTab(m_anmerkung, u"&Anmerkung"_s);
    m_woche->onGuardAsked([this] { return DatensatzWirdGeladen || OK_Laeuft; });
    m_woche->onNoteClicked([this](int gruppe, int tag, bool edit) { notiz(gruppe, tag, edit); });
}

QWidget* frmSchülerIn::buildButtons() {
    auto* bar = new QWidget;
    auto* column = new QVBoxLayout(bar);
    column->setContentsMargins({});
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, [this] { ok(); });
    imgPrinter->setText(u"Drucken"_s);
    imgPrinter->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    imgPrinter->setShortcut(QKeySequence::Print);
    connect(imgPrinter, &QToolButton::clicked, this, [this] { drucken(); });
    auto* line = new QHBoxLayout;
    line->addWidget(imgPrinter);
    line->addStretch();
    line->addWidget(cmdOK);
    line->addWidget(cmdBeenden);
    column->addLayout(line);
    return bar;
}

void frmSchülerIn::Prepare() {
    const Resting resting{cmdBeenden, cmdOK, imgPrinter};
    m_modus = AktuellerSchuelerModus();
    modusZeigen();
    m_stamm->zusatzfelderFreigeben();
    {
        const QScopedValueRollback<bool> preparing(FormWirdVorbereitet, true);
        Eingabefelder_Löschen();
        const WaitCursor wait;
        const DbSession session(u"Schülerliste laden"_s);
        einstellungenZeigen();
        listenLaden();
        m_stamm->chkNeu->setChecked(m_modus.istNeu());
    }
    auto& global = Global();
    // Back from a note or a page: the record is where it is now, not where it was.
    const int row = m_gemerkteZeile.isEmpty() ? 0 : lvwStammdaten->rowOfKey(m_gemerkteZeile);
    if (row > 0)
        global.MarkierteZeile = static_cast<qint16>(row);
    m_gemerkteZeile.clear();
    if (global.MarkierteZeile >= 1 && !global.ModusSchuelerNeu) {
        Eintrag_MARKIEREN(*lvwStammdaten, global.MarkierteZeile);
        ListViewStammdaten_Click();
    }
    uhrStellen();
}

void frmSchülerIn::modusZeigen() {
    const QString whom = m_modus.istSchulanfaenger() ? u"Schulanfänger"_s : u"Schüler / Schülerin"_s;
    const QString what = OkBeschriftung(m_modus.aktion);
    setWindowTitle(whom + u" – "_s + what);
    lblModus->setText(whom + u": "_s + what);
    cmdOK->setText(what);
    m_ampel->setVisible(m_modus.ampel);
    m_ampel->schalterZeigen(Global().UeberschneidungPruefen);
    if (m_modus.istNeu() || m_modus.istSchulanfaenger())
        m_stamm->txtSCH[kFeldName]->setFocus();
    else
        lvwStammdaten->setFocus();
}

void frmSchülerIn::einstellungenZeigen() {
    KontaktBezeichnungenLesen();
    m_kontakte->bezeichnungenZeigen();
    m_beitraege->einstellungenZeigen(BeitragEinstellungenLesen());
}

void frmSchülerIn::listenLaden() {
    SchuelerLaden(m_speicher, m_modus.menge);
    if (m_modus.menge == SchuelerMenge::Deaktivierte && m_speicher.SchuelerAnzahl() == 0)
        ListeLeerFuellen();
    else
        ListeFuellen();
    if (m_modus.mitGruppen()) {
        MensaLaden(m_speicher);
        LernzeitLaden(m_speicher);
        m_woche->eintraegeSetzen(GruppenListenLaden());
    } else {
        m_woche->eintraegeEntfernen();
    }
    m_stamm->bausteineSetzen(BausteineLaden());
}

void frmSchülerIn::ListeFuellen() {
    constexpr int kName = 14, kDate = 11, kClass = 5, kOther = 12;
    if (!m_spaltenDa || m_platzhalter) {
        std::vector<ListColumn> columns;
        for (const auto& [kopf, sortierung] : SchuelerListenSpalten())
            columns.push_back({kopf, kOther, sortierung});
        columns[0].characters = kHiddenColumn;
        columns[1].characters = columns[2].characters = kName;
        columns[3].characters = kDate;
        columns[4].characters = kClass;
        lvwStammdaten->setColumns(columns);
        m_spaltenDa = true;
        m_platzhalter = false;
    }
    std::vector<ListRow> rows;
    m_zeilen.clear();
    for (const auto& zeile : SchuelerListenZeilen(m_speicher)) {
        m_zeilen.push_back(zeile.texte);
        rows.push_back({zeile.schluessel, zeile.texte});
    }
    lvwStammdaten->setRows(rows);
}

void frmSchülerIn::ListeLeerFuellen() {
    constexpr int kWide = 60;
    lvwStammdaten->setColumns({{QString(), kWide}});
    lvwStammdaten->setRows({{QString(), {KeineSchuelerText()}}});
    m_zeilen = {{KeineSchuelerText()}};
    m_platzhalter = true;
}

void frmSchülerIn::StempelLoesen() {
    if (Global().AktuelleSchuelerID <= 0)
        return;
    const DbSession session(u"Datensatz freigeben"_s);
    StempelFreigeben();
}

void frmSchülerIn::reject() {
    // Left in any case: a stamp that cannot be taken back runs out by itself.
    try {
        StempelLoesen();
    } catch (...) {
        FormWindow::reject();
        throw;
    }
    FormWindow::reject();
}

void frmSchülerIn::Unload() {
    if (isVisible())
        StempelLoesen();
}

void frmSchülerIn::uhrStellen() {
    constexpr int kHalfASecond = 500;
    if (Global().UeberschneidungPruefen) {
        Timer1->start(kHalfASecond);
        return;
    }
    Timer1->stop();
    Timer1->setInterval(0);
}

} // namespace kolibri
