#include "core/frmStart_view.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/menu_table.h"
#include "core/widgets/card_button.h"
#include "core/widgets/picture.h"
#include "core/widgets/theme.h"

#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Least height of the picture in lines of text.
constexpr int kFewestLines = 7;

/// What stands in the middle of the window; all of one width, so that the edges are in line.
class Column : public QWidget {
public:
    QSize sizeHint() const override {
        return {fontMetrics().averageCharWidth() * kWidest, QWidget::sizeHint().height()};
    }

    /// Widths in average characters: on a large screen, and as the window opens.
    static constexpr int kWidest = 130;
    static constexpr int kUsual = 104;
};

/// The sky behind the picture, over the whole width of the window.
class Band : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), skyColour(palette())); }
};

/// A box in the amber of notices.
class NoticeBox : public Column {
protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const qreal radius = fontMetrics().height() * 0.35;
        painter.setPen(Qt::NoPen);
        painter.setBrush(noticeColour(palette()));
        painter.drawRoundedRect(rect(), radius, radius);
    }
};

QLabel* plainLabel(const QString& name, const QString& text, const QFont& font) {
    auto* label = new QLabel(text);
    label->setObjectName(name);
    // Names of schools and folders are read as they are written.
    label->setTextFormat(Qt::PlainText);
    label->setFont(font);
    label->setWordWrap(true);
    return label;
}

QLabel* heading(const QString& text) {
    constexpr qreal kLarger = 1.15;
    auto* label = new QLabel(text);
    label->setFont(scaledFont(label->font(), kLarger, QFont::DemiBold));
    label->setForegroundRole(QPalette::Link);
    return label;
}

int lineHeight(const QWidget* widget) {
    return widget->fontMetrics().height();
}

Picture* pictureOf(QWidget* content) {
    return dynamic_cast<Picture*>(content->findChild<QWidget*>(u"imgStart"_s));
}

/// Height of all parts in this width, with the picture so many lines high.
int heightWithPicture(QWidget* content, int width, int lines) {
    pictureOf(content)->setLines(lines);
    content->findChild<QLabel*>(u"lblUntertitel"_s)->setVisible(lines > kFewestLines);
    // Layouts learn of a change one by one, with the next round of events; the height is wanted now.
    for (auto* part : content->findChildren<QWidget*>())
        part->updateGeometry();
    return content->layout()->totalHeightForWidth(width);
}

/// Gives the picture the room that the other parts leave free; on a small screen it becomes small before
/// anything has to be scrolled for.
void fitPicture(QWidget* content, const QSize& room) {
    constexpr qreal kShareOfColumn = 0.5;
    const int column = qMin(room.width(), content->fontMetrics().averageCharWidth() * Column::kWidest);
    const int least = heightWithPicture(content, room.width(), kFewestLines);
    const int spare = (room.height() - least) / lineHeight(content);
    const int most = pictureOf(content)->linesForWidth(qRound(column * kShareOfColumn));
    heightWithPicture(content, room.width(),
                      qBound(kFewestLines, kFewestLines + spare, qMax(kFewestLines, most)));
}

/// On a small screen or with large letters the window scrolls before it cuts anything off.
class Area : public QScrollArea {
protected:
    void resizeEvent(QResizeEvent* event) override {
        fitPicture(widget(), maximumViewportSize());
        QScrollArea::resizeEvent(event);
    }
};

/// `content` in the middle of the window, a line away from its edges at least.
QWidget* inTheMiddle(QWidget* content) {
    auto* place = new QWidget;
    auto* row = new QHBoxLayout(place);
    const int margin = lineHeight(place);
    row->setContentsMargins(margin, 0, margin, 0);
    row->setSpacing(0);
    row->addStretch(1);
    row->addWidget(content, 0, Qt::AlignVCenter);
    row->addStretch(1);
    return place;
}

QWidget* headWords() {
    constexpr qreal kTitle = 2.6;
    auto* words = new QWidget;
    const QFont font = words->font();
    auto* title = plainLabel(u"lblProgramm"_s, kProgramTitle, scaledFont(font, kTitle, QFont::Bold));
    title->setForegroundRole(QPalette::Link);
    auto* column = new QVBoxLayout(words);
    column->setContentsMargins(0, lineHeight(words) / 2, 0, lineHeight(words) / 2);
    column->setSpacing(lineHeight(words) / 6);
    column->addStretch();
    column->addWidget(title);
    column->addWidget(plainLabel(u"lblUntertitel"_s, u"Das Büro der Ganztagsschule"_s, font));
    column->addSpacing(lineHeight(words) / 2);
    column->addWidget(plainLabel(u"lblOrganisation"_s, {}, scaledFont(font, 1.15, QFont::DemiBold)));
    column->addWidget(plainLabel(u"lblAnschrift"_s, {}, font));
    column->addStretch();
    return words;
}

CardButton* cardButton(const LargeButton& large) {
    auto* button = new CardButton(large.caption, large.symbol);
    button->setObjectName(large.name);
    return button;
}

} // namespace

QWidget* buildHead() {
    auto* picture = new Picture(u":/kolibri/startbild.svg"_s, kFewestLines);
    picture->setObjectName(u"imgStart"_s);
    picture->setAccessibleName(u"Ein Papagei auf dem Dach der Schule"_s);
    auto* column = new Column;
    auto* row = new QHBoxLayout(column);
    row->setContentsMargins(0, lineHeight(column) / 2, 0, 0);
    row->addWidget(headWords(), 1);
    row->addWidget(picture, 0, Qt::AlignBottom);
    auto* band = new Band;
    auto* whole = new QVBoxLayout(band);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addStretch();
    whole->addWidget(inTheMiddle(column));
    return band;
}

QSize usualSize(QWidget* content) {
    constexpr int kUsualLines = 13;
    const QFontMetrics metrics = content->fontMetrics();
    const int width = metrics.averageCharWidth() * Column::kUsual + 2 * metrics.height();
    return {width, heightWithPicture(content, width, kUsualLines)};
}

void showSchool(QWidget* head) {
    const auto& global = Global();
    QStringList address{global.SchuleStrasse, global.SchulePLZOrt};
    address.removeAll(QString());
    const auto show = [head](const QString& name, const QString& text) {
        auto* label = head->findChild<QLabel*>(name);
        label->setText(text);
        label->setVisible(!text.isEmpty());
    };
    show(u"lblOrganisation"_s, global.SchuleOrganisation);
    show(u"lblAnschrift"_s, address.join(u", "_s));
}

QWidget* buildNotice() {
    auto* box = new NoticeBox;
    auto* column = new QVBoxLayout(box);
    const int margin = lineHeight(box) * 2 / 3;
    column->setContentsMargins(margin, margin / 2, margin, margin / 2);
    column->setSpacing(lineHeight(box) / 6);
    column->addWidget(plainLabel(u"lblOhneDatenbank"_s, u"Die Datenbank wurde nicht gefunden."_s,
                                 scaledFont(box->font(), 1.0, QFont::Bold)));
    auto* looked = plainLabel(u"lblGesucht"_s, {}, box->font());
    looked->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column->addWidget(looked);
    column->addWidget(plainLabel(
        u"lblAbhilfe"_s,
        u"Bitte berichtigen Sie unter Extras → Einstellungen den Datenbankpfad, oder legen Sie unter "
        "Extras eine neue Datenbank oder eine Beispielschule an. Starten Sie danach das Programm neu."_s,
        box->font()));
    return inTheMiddle(box);
}

void showMissingFile(QWidget* notice, const QString& file) {
    notice->findChild<QLabel*>(u"lblGesucht"_s)
        ->setText(u"Gesucht wurde: "_s + QDir::toNativeSeparators(file));
}

QWidget* buildLargeButtons() {
    auto* column = new Column;
    auto* grid = new QGridLayout(column);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(lineHeight(column));
    grid->setVerticalSpacing(lineHeight(column) / 2);
    QString group;
    int place = -1;
    int line = 0;
    for (const auto& large : largeButtons()) {
        if (large.group != group) {
            group = large.group;
            line = 0;
            grid->addWidget(heading(group), line, ++place);
            grid->setColumnStretch(place, 1);
        }
        grid->addWidget(cardButton(large), ++line, place);
    }
    return inTheMiddle(column);
}

QScrollArea* scrolled(QWidget* content) {
    auto* area = new Area;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(content);
    return area;
}

} // namespace kolibri
