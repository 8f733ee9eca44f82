#include "core/widgets/form_layout.h"
#include "core/widgets/theme.h"
#include "students/frmSchuelerIn_felder.h"
#include "students/frmSchuelerIn_woche.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStackedWidget>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr QRgb kTickOnLight = 0xff0b7a2a;
constexpr QRgb kTickOnDark = 0xff5fd38a;
constexpr qreal kQuiet = 0.45;

/// GR1 "MENSA" to GR7 "5. ARBEITSGRUPPE".
QString groupCaption(int gruppe) {
    constexpr int kFirstWorkingGroup = 2;
    if (gruppe < kFirstWorkingGroup)
        return gruppe == 0 ? u"MENSA"_s : u"LERNZEIT"_s;
    return u"%1. ARBEITSGRUPPE"_s.arg(gruppe - kFirstWorkingGroup + 1);
}

QLabel* captionLabel(const QString& text, int width) {
    auto* label = new QLabel(text);
    label->setMinimumWidth(width);
    return label;
}

/// A line of the week: a caption and five cells of equal width.
class WeekLine : public QWidget {
public:
    explicit WeekLine(QWidget* caption) : m_line(new QHBoxLayout(this)) {
        m_line->setContentsMargins({});
        m_line->setSpacing(fontMetrics().horizontalAdvance(u'x') / 2);
        m_line->addWidget(caption);
    }

    void addCell(QWidget* cell) {
        // The share of the width alone decides, not what the cell holds; but none is squeezed.
        cell->setMinimumWidth(cell->minimumSizeHint().width());
        cell->setSizePolicy(QSizePolicy::Ignored, cell->sizePolicy().verticalPolicy());
        m_line->addWidget(cell, 1);
    }

private:
    QHBoxLayout* m_line;
};

/// A box that shows a teaching time.
EntryBox* timeBox(const QString& name, const QString& words) {
    EntryBox* box = displayBox(name);
    box->setFrame(false);
    QPalette colours = box->palette();
    colours.setColor(QPalette::Base, Qt::transparent);
    box->setPalette(colours);
    box->setAlignment(Qt::AlignCenter);
    box->setAccessibleName(words);
    return box;
}

} // namespace

SchuelerWoche::SchuelerWoche() {
    auto* column = new QVBoxLayout(this);
    column->setSpacing(fontMetrics().height() / 4);
    column->addWidget(buildHeadings());
    column->addWidget(buildTeaching(u"UNTERRICHT VORMITTAG"_s, QString(), &Unterricht::txtU_Beginn,
                                    &Unterricht::txtU_Ende));
    column->addWidget(buildTeaching(u"UNTERRICHT NACHMITTAG"_s, u"NM"_s, &Unterricht::txtU_BeginnNM,
                                    &Unterricht::txtU_EndeNM));
    for (int gruppe = 0; gruppe < kGruppen; ++gruppe)
        column->addWidget(buildGroup(gruppe));
    column->addStretch();
    ImgAlleNotizenAusblenden();
}

int SchuelerWoche::captionWidth() const {
    const auto width = [this](const QString& words) { return fontMetrics().horizontalAdvance(words); };
    return std::max(width(u"UNTERRICHT"_s), width(u"NACHMITTAG"_s)) + width(u"    BEGINN  "_s);
}

QWidget* SchuelerWoche::buildHeadings() {
    auto* line = new WeekLine(captionLabel(QString(), captionWidth()));
    for (int tag = 0; tag < kSchoolDays; ++tag) {
        auto* day = new QLabel(TagCode(tag));
        day->setFont(scaledFont(day->font(), 1.0, QFont::Bold));
        day->setAlignment(Qt::AlignCenter);
        line->addCell(day);
    }
    return line;
}

QWidget* SchuelerWoche::buildTeaching(const QString& caption, const QString& suffix,
                                      EntryBox* Unterricht::*beginn, EntryBox* Unterricht::*ende) {
    struct Edge {
        QString word;
        QString stem;
        EntryBox* Unterricht::*box;
    };
    auto* frame = new QWidget;
    auto* line = new QHBoxLayout(frame);
    line->setContentsMargins({});
    auto* words = new QLabel(caption);
    words->setWordWrap(true);
    auto* edges = new QVBoxLayout;
    edges->setSpacing(fontMetrics().height() / 8);
    for (const auto& [word, stem, box] :
         {Edge{u"BEGINN"_s, u"txtU_Beginn"_s, beginn}, Edge{u"ENDE"_s, u"txtU_Ende"_s, ende}}) {
        auto* edge = new WeekLine(captionLabel(word, fontMetrics().horizontalAdvance(u"BEGINN  "_s)));
        for (int tag = 0; tag < kSchoolDays; ++tag) {
            EntryBox* time =
                timeBox(indexedName(stem + suffix, tag), caption + u' ' + word + u' ' + TagCode(tag));
            m_unterricht[static_cast<std::size_t>(tag)].*box = time;
            edge->addCell(time);
        }
        edges->addWidget(edge);
    }
    words->setFixedWidth(captionWidth() - fontMetrics().horizontalAdvance(u"BEGINN  "_s) - line->spacing());
    line->addWidget(words);
    line->addLayout(edges, 1);
    return frame;
}

QWidget* SchuelerWoche::buildGroup(int gruppe) {
    auto* frame = new WeekLine(captionLabel(groupCaption(gruppe), captionWidth()));
    frame->setObjectName(u"frmGR%1"_s.arg(gruppe + 1));
    m_frames[static_cast<std::size_t>(gruppe)] = frame;
    for (int tag = 0; tag < kSchoolDays; ++tag)
        frame->addCell(buildCell(gruppe, tag));
    return frame;
}

QWidget* SchuelerWoche::buildCell(int gruppe, int tag) {
    const QString place = groupCaption(gruppe) + u' ' + TagCode(tag);
    const auto named = [&](const QString& stem) { return indexedName(stem.arg(gruppe + 1), tag); };
    Zelle& cell = zelle(gruppe, tag);
    cell.cmbGR = new RecordChoice(named(u"cmbGR%1"_s));
    cell.cmbGR->setAccessibleName(place);
    // Room for the begin of a time at least, so that five days fit half a usual screen; in a narrower window
    // the week scrolls.
    constexpr int kLetters = 4;
    cell.cmbGR->setMinimumContentsLength(kLetters);
    connect(cell.cmbGR, &QComboBox::activated, this, [this, gruppe, tag] { gewaehlt(gruppe, tag); });

    cell.bilder = new QStackedWidget;
    cell.bilder->addWidget(new QWidget);
    const QColor tick = QColor::fromRgb(isDark(palette()) ? kTickOnDark : kTickOnLight);
    // Quiet, but still to be seen on a poor screen.
    const QColor grey =
        blended(palette().color(QPalette::WindowText), palette().color(QPalette::Window), kQuiet);
    auto* none = drawnButton(named(u"N_GR%1"_s), u"notiz"_s, u"Notiz schreiben: "_s + place, grey);
    auto* there = drawnButton(named(u"Y_GR%1"_s), u"haken"_s, u"Notiz vorhanden: "_s + place, tick);
    for (auto* image : {none, there}) {
        const bool edit = image == there;
        cell.bilder->addWidget(image);
        connect(image, &QToolButton::clicked, this, [this, gruppe, tag, edit] {
            if (m_noteClicked)
                m_noteClicked(gruppe, tag, edit);
        });
    }
    cell.bilder->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);

    auto* both = new QWidget;
    auto* line = new QHBoxLayout(both);
    line->setContentsMargins({});
    line->setSpacing(0);
    line->addWidget(cell.cmbGR, 1);
    line->addWidget(cell.bilder);
    return both;
}

} // namespace kolibri
