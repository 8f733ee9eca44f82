#include "calendar/frmBelegungsplan_ME_LZ.h"

#include "core/mdlAllgemein.h"
#include "core/runtime_error.h"
#include "core/widgets/entry_box.h"
#include "core/widgets/form_layout.h"
#include "core/widgets/theme.h"

#include <QEvent>
#include <QFocusEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kLernzeitPlan = u"BelegungLZ"_s;
constexpr int kFirstPlaces = 2;
constexpr int kTotal = kFirstPlaces + kCapacityLetters;
constexpr int kPlacesCharacters = 6;

QString letterOf(int letter) {
    return QString(QChar(u'A' + letter));
}

QLabel* lineLabel(const QString& name, int index) {
    auto* label = new QLabel;
    label->setObjectName(indexedName(name, index));
    label->setTextFormat(Qt::PlainText);
    return label;
}

/// True when the user has gone to another control, not when another window came in front.
bool isLeaving(const QFocusEvent& event) {
    return event.reason() != Qt::ActiveWindowFocusReason && event.reason() != Qt::PopupFocusReason;
}

} // namespace

frmBelegungsplan_ME_LZ::frmBelegungsplan_ME_LZ()
    : FormWindow(u"frmBelegungsplan_ME_LZ"_s), lblHinweis(new QLabel) {
    setWindowTitle(u"Belegungsplan"_s);
    lblHinweis->setObjectName(u"lblHinweis"_s);
    lblHinweis->setWordWrap(true);
    auto* frame = new FieldFrame(u"MAXIMALE BELEGUNGEN"_s);
    frame->setObjectName(u"frmBelegungMax"_s);
    frame->addWide(buildPlan());
    frame->addWide(lblHinweis);
    auto* column = new QVBoxLayout(this);
    column->addWidget(frame, 1);
    QPushButton* cmdOK = addEditorButtons(*this, *column);
    connect(cmdOK, &QPushButton::clicked, this, [this] { ok(); });
    addLine();
}

QWidget* frmBelegungsplan_ME_LZ::buildPlan() {
    auto* area = new QWidget;
    auto* column = new QVBoxLayout(area);
    column->setContentsMargins({});
    m_grid = new QGridLayout;
    buildHeadings();
    column->addLayout(m_grid);
    column->addStretch();
    m_scroll = new QScrollArea;
    m_scroll->setObjectName(u"scrPlan"_s);
    m_scroll->setAccessibleName(u"Maximale Belegungen"_s);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setWidget(area);
    // The frame's own ground goes on behind the lines.
    m_scroll->viewport()->setAutoFillBackground(false);
    area->setAutoFillBackground(false);
    return m_scroll;
}

void frmBelegungsplan_ME_LZ::buildHeadings() {
    QStringList headings{QString(), u"ZEIT"_s};
    for (int letter = 0; letter < kCapacityLetters; ++letter)
        headings << u"Klasse "_s + letterOf(letter);
    headings << u"Gesamt"_s;
    for (int column = 0; column < headings.size(); ++column) {
        auto* label = lineLabel(u"lblUE"_s, column);
        label->setText(headings.at(column));
        label->setFont(scaledFont(label->font(), 1, QFont::DemiBold));
        m_grid->addWidget(label, 0, column);
        if (column == 0)
            m_heading = label;
    }
    m_grid->setColumnStretch(0, 1);
}

void frmBelegungsplan_ME_LZ::addLine() {
    const int index = static_cast<int>(m_lines.size());
    const int row = index + 1;
    Line line{lineLabel(u"lblME_LZ"_s, index),
              lineLabel(u"lblZeit"_s, index),
              lineLabel(u"lblK_Name"_s, index),
              lineLabel(u"lblZeit_K_Name"_s, index),
              {},
              displayBox(indexedName(u"txtPlätze_G"_s, index), kPlacesCharacters)};
    QWidget* before = m_lines.empty() ? static_cast<QWidget*>(m_scroll) : m_lines.back().txtPlätze.back();
    m_grid->addWidget(line.lblME_LZ, row, 0);
    m_grid->addWidget(line.lblZeit, row, 1);
    for (int letter = 0; letter < kCapacityLetters; ++letter) {
        auto* box = new EntryBox(indexedName(u"txtPlätze_"_s + letterOf(letter), index), kPlacesCharacters);
        box->installEventFilter(this);
        line.txtPlätze[static_cast<std::size_t>(letter)] = box;
        m_grid->addWidget(box, row, kFirstPlaces + letter);
        setTabOrder(before, box);
        before = box;
    }
    m_grid->addWidget(line.txtPlätze_G, row, kTotal);
    for (auto* carrier : {line.lblK_Name, line.lblZeit_K_Name}) {
        carrier->setParent(m_scroll->widget());
        carrier->hide();
    }
    m_lines.push_back(line);
}

void frmBelegungsplan_ME_LZ::Prepare() {
    m_kind = Tag == kLernzeitPlan ? OfferingKind::Lernzeit : OfferingKind::Mensa;
    m_heading->setText(m_kind == OfferingKind::Mensa ? u"MENSA"_s : u"LERNZEIT"_s);
    // Not into a box: leaving one counts its line.
    m_scroll->setFocus();
    std::vector<CapacityLine> lines;
    {
        const DbSession session(u"Belegungsplan lesen"_s);
        lines = Belegungsplan_lesen(m_kind);
    }
    zeilenAnzeigen(lines);
}

void frmBelegungsplan_ME_LZ::zeilenAnzeigen(const std::vector<CapacityLine>& lines) {
    while (m_lines.size() < lines.size())
        addLine();
    m_used = lines.size();
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        Line& line = m_lines[i];
        const bool used = i < m_used;
        zeileFüllen(line, used ? lines[i] : CapacityLine{});
        for (QWidget* part : {static_cast<QWidget*>(line.lblME_LZ), static_cast<QWidget*>(line.lblZeit),
                              static_cast<QWidget*>(line.txtPlätze_G)})
            part->setVisible(used);
        for (auto* box : line.txtPlätze)
            box->setVisible(used);
    }
    hinweisZeigen();
    formHöheAnpassen();
    // After all is shown: a stored number that is too large stops here, and the office can correct it.
    for (std::size_t i = 0; i < m_used; ++i)
        m_lines[i].txtPlätze_G->setText(Gesamt_anzeigen(lines[i].Gesamt, lines[i].Plätze));
}

void frmBelegungsplan_ME_LZ::formHöheAnpassen() {
    QWidget* plan = m_scroll->widget();
    plan->layout()->activate();
    const QSize lines = plan->sizeHint();
    // Room for the scroll bar, so that it covers nothing once there are more lines than the screen has.
    m_scroll->setMinimumWidth(lines.width() + m_scroll->verticalScrollBar()->sizeHint().width());
    const int rest = sizeHint().height() - m_scroll->sizeHint().height();
    const QSize wanted(std::max(width(), sizeHint().width()), lines.height() + rest);
    resize(wanted.boundedTo(roomOnScreen(*this)));
}

void frmBelegungsplan_ME_LZ::zeileFüllen(Line& line, const CapacityLine& content) {
    line.lblME_LZ->setText(content.L_Name);
    line.lblZeit->setText(content.Zeit);
    line.lblK_Name->setText(content.K_Name);
    line.lblZeit_K_Name->setText(content.Zeit_K_Name);
    const QString name = content.L_Name + u' ' + content.Zeit;
    for (std::size_t letter = 0; letter < line.txtPlätze.size(); ++letter) {
        EntryBox* box = line.txtPlätze[letter];
        box->setText(content.Plätze[letter]);
        box->setAccessibleName(name + u", Klasse "_s + letterOf(static_cast<int>(letter)));
    }
    zeilePrüfen(line);
    line.zuGroß.reset();
    line.txtPlätze_G->clear();
    line.txtPlätze_G->setAccessibleName(name + u", Gesamt"_s);
}

Places frmBelegungsplan_ME_LZ::plätze(const Line& line) {
    Places texts;
    for (std::size_t letter = 0; letter < texts.size(); ++letter)
        texts[letter] = line.txtPlätze[letter]->text();
    return texts;
}

EntryBox* frmBelegungsplan_ME_LZ::zeilePrüfen(const Line& line) {
    const PlacesFaults faults = Plätze_prüfen(plätze(line));
    EntryBox* first = nullptr;
    for (std::size_t letter = 0; letter < line.txtPlätze.size(); ++letter) {
        EntryBox* box = line.txtPlätze[letter];
        setErrorColour(box, faults[letter], u"Das ist keine Zahl."_s);
        if (faults[letter] && !first)
            first = box;
    }
    return first;
}

void frmBelegungsplan_ME_LZ::zeileVerlassen(Line& line) {
    const Places texts = plätze(line);
    // On the way to the buttons the user passes through the line again and knows it already.
    if (line.zuGroß == texts)
        return;
    zeilePrüfen(line);
    hinweisZeigen();
    try {
        if (const auto sum = Plätze_zählen(texts))
            line.txtPlätze_G->setText(QString::number(*sum));
    } catch (const RuntimeError&) {
        line.zuGroß = texts;
        throw;
    }
}

frmBelegungsplan_ME_LZ::Line* frmBelegungsplan_ME_LZ::zeileVon(const QObject* box) {
    for (auto& line : m_lines)
        if (std::find(line.txtPlätze.begin(), line.txtPlätze.end(), box) != line.txtPlätze.end())
            return &line;
    return nullptr;
}

bool frmBelegungsplan_ME_LZ::eventFilter(QObject* watched, QEvent* event) {
    const bool handled = FormWindow::eventFilter(watched, event);
    if (event->type() == QEvent::FocusOut && isVisible() && isLeaving(*static_cast<QFocusEvent*>(event)))
        if (Line* line = zeileVon(watched))
            zeileVerlassen(*line);
    return handled;
}

void frmBelegungsplan_ME_LZ::hinweisZeigen() {
    lblHinweis->setText(hinweis());
    lblHinweis->setVisible(!lblHinweis->text().isEmpty());
}

QString frmBelegungsplan_ME_LZ::hinweis() const {
    if (m_used == 0)
        return m_kind == OfferingKind::Mensa ? u"Es ist noch keine Mensazeit eingetragen."_s
                                             : u"Es ist noch keine Lernzeit eingetragen."_s;
    for (std::size_t i = 0; i < m_used; ++i) {
        const PlacesFaults faults = Plätze_prüfen(plätze(m_lines[i]));
        for (std::size_t letter = 0; letter < faults.size(); ++letter)
            if (const EntryBox* box = m_lines[i].txtPlätze[letter]; faults[letter])
                return u"%1: \"%2\" ist keine Zahl."_s.arg(box->accessibleName(), box->text());
    }
    return {};
}

std::vector<CapacityLine> frmBelegungsplan_ME_LZ::eingaben() const {
    std::vector<CapacityLine> lines;
    for (std::size_t i = 0; i < m_used; ++i) {
        const Line& line = m_lines[i];
        lines.push_back({line.lblME_LZ->text(), line.lblZeit->text(), line.lblK_Name->text(),
                         line.lblZeit_K_Name->text(), plätze(line), line.txtPlätze_G->text()});
    }
    return lines;
}

void frmBelegungsplan_ME_LZ::ok() {
    // Enter presses the button while a box still has the keyboard.
    if (Line* line = zeileVon(focusWidget()))
        zeileVerlassen(*line);
    EntryBox* faulty = nullptr;
    for (std::size_t i = 0; i < m_used; ++i) {
        EntryBox* box = zeilePrüfen(m_lines[i]);
        faulty = faulty ? faulty : box;
    }
    hinweisZeigen();
    if (faulty) {
        MsgBox(u"Bitte geben Sie in die gekennzeichneten Felder Zahlen ein!"_s, 0, u"Überprüfung Eingabe"_s);
        faulty->setFocus();
        return;
    }
    // A number that is too large must not come back with the next opening.
    for (std::size_t i = 0; i < m_used; ++i)
        Plätze_zählen(plätze(m_lines[i]));
    {
        const DbSession session(u"Belegungsplan speichern"_s);
        Belegungsplan_speichern(m_kind, eingaben());
    }
    accept();
}

} // namespace kolibri
