#include "calendar/frmStundenplan.h"

#include "core/mdlGlobal.h"
#include "core/widgets/form_layout.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

// The names of two of the labels lack a letter, and are known so outside.
const std::array<QString, kSchoolDays> kDayLabels{u"lblMO"_s, u"lbDI"_s, u"lbMI"_s, u"lblDO"_s, u"lblFR"_s};

} // namespace

frmStundenplan::frmStundenplan()
    : FormWindow(u"frmStundenplan"_s), cmbKlasse(new QComboBox), lblHinweis(new QLabel) {
    setWindowTitle(u"Stundenplan"_s);
    cmbKlasse->setObjectName(u"cmbKlasse"_s);
    lblHinweis->setObjectName(u"lblHinweis"_s);
    lblHinweis->setWordWrap(true);
    connect(cmbKlasse, &QComboBox::currentIndexChanged, this, [this] { klasseGewählt(); });
    auto* frame = new FieldFrame(u"STUNDENPLAN"_s);
    frame->addLine(u"&Klasse:"_s, cmbKlasse);
    frame->addWide(lblHinweis);
    frame->addWide(fieldArea(buildGrid()));
    auto* column = new QVBoxLayout(this);
    column->addWidget(frame, 1);
    auto* cmdOK = formButton(u"cmdOK"_s, u"O K"_s);
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, [this] { ok(); });
    addButtonLine(*column, {cmdOK, leaveButton(*this, u"cmdAbbrechen"_s, u"ABBRECHEN"_s)});
    setFirstSize(*this, 34);
}

QWidget* frmStundenplan::buildGrid() {
    auto* area = new QWidget;
    auto* grid = new QGridLayout(area);
    for (int day = 0; day < kSchoolDays; ++day) {
        auto* label = new QLabel(TagCode(day));
        label->setObjectName(kDayLabels[static_cast<std::size_t>(day)]);
        label->setAlignment(Qt::AlignCenter);
        grid->addWidget(label, 0, day + 1);
        grid->setColumnStretch(day + 1, 1);
    }
    for (int index = 1; index <= kTimetableLines; ++index)
        m_lines.push_back(buildLine(*grid, index));
    grid->setRowStretch(kTimetableLines + 1, 1);
    return area;
}

frmStundenplan::Line frmStundenplan::buildLine(QGridLayout& grid, int index) {
    Line line{new QLabel, {}};
    line.unit->setObjectName(indexedName(u"lblÜ"_s, index));
    grid.addWidget(line.unit, index, 0);
    for (int day = 0; day < kSchoolDays; ++day) {
        auto* box = new QLineEdit;
        box->setObjectName(indexedName(u"txt"_s + TagCode(day), index));
        grid.addWidget(box, index, day + 1);
        line.days[static_cast<std::size_t>(day)] = box;
    }
    return line;
}

void frmStundenplan::Prepare() {
    {
        const QSignalBlocker loading(cmbKlasse);
        cmbKlasse->clear();
        cmbKlasse->addItems(Global().KlassenListe);
        cmbKlasse->setCurrentIndex(0);
    }
    klasseGewählt();
    cmbKlasse->setFocus();
}

void frmStundenplan::klasseGewählt() {
    const DbSession session(u"Stundenplan lesen"_s);
    const TimetableUnits units = UE_feststellen();
    m_units = units.zeiten;
    Form_formatieren();
    MeldungVorbereitung(units.fehler, cmbKlasse->currentText());
    if (units.fehler == TimetableError::None)
        stundenplanAnzeigen();
}

void frmStundenplan::Form_formatieren() {
    for (int i = 0; i < kTimetableLines; ++i) {
        const Line& line = m_lines[static_cast<std::size_t>(i)];
        const QString unit = m_units.value(i);
        const bool used = i < m_units.size();
        line.unit->setText(unit);
        line.unit->setVisible(used);
        for (int day = 0; day < kSchoolDays; ++day) {
            auto* box = line.days[static_cast<std::size_t>(day)];
            box->clear();
            box->setVisible(used);
            box->setAccessibleName(TagCode(day) + u' ' + unit);
        }
    }
    lblHinweis->setText(hinweis());
    lblHinweis->setVisible(!lblHinweis->text().isEmpty());
}

QString frmStundenplan::hinweis() const {
    if (cmbKlasse->count() == 0)
        return u"Es ist noch keine Klasse angelegt."_s;
    if (m_units.isEmpty())
        return u"Es sind noch keine Unterrichtseinheiten eingetragen."_s;
    if (m_units.size() > kTimetableLines)
        return u"Es gibt %1 Unterrichtseinheiten. Der Stundenplan zeigt die ersten %2."_s.arg(m_units.size())
            .arg(kTimetableLines);
    return {};
}

void frmStundenplan::stundenplanAnzeigen() {
    for (const auto& stored : Stundenplan_lesen(cmbKlasse->currentText()))
        for (const auto& line : m_lines)
            if (!line.unit->text().isEmpty() && line.unit->text() == stored.UE)
                for (std::size_t day = 0; day < line.days.size(); ++day) {
                    line.days[day]->setText(stored.Tage[day]);
                    // A long text is read from its beginning.
                    line.days[day]->setCursorPosition(0);
                }
}

void frmStundenplan::ok() {
    if (cmbKlasse->count() == 0)
        return;
    const DbSession session(u"Stundenplan speichern"_s);
    if (UE_feststellen().zeiten.isEmpty())
        return;
    std::vector<TimetableLine> lines;
    for (const auto& line : m_lines) {
        if (line.unit->text().isEmpty())
            continue;
        TimetableLine written{line.unit->text(), {}};
        for (std::size_t day = 0; day < line.days.size(); ++day)
            written.Tage[day] = line.days[day]->text();
        lines.push_back(written);
    }
    Stundenplan_schreiben(cmbKlasse->currentText(), lines);
    // Arrow down leads on to the next class.
    cmbKlasse->setFocus();
}

} // namespace kolibri
