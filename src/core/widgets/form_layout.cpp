#include "core/widgets/form_layout.h"

#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Has a place as large as what stands in it, where the screen allows.
class WholeFieldArea : public QScrollArea {
public:
    QSize sizeHint() const override {
        return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0);
    }
};

} // namespace

QString indexedName(const QString& name, int index) {
    return u"%1(%2)"_s.arg(name).arg(index);
}

FieldFrame::FieldFrame(const QString& caption) : QGroupBox(caption), m_lines(new QFormLayout(this)) {
    m_lines->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    m_lines->setRowWrapPolicy(QFormLayout::DontWrapRows);
}

QLabel* FieldFrame::addLine(const QString& label, QWidget* input, const QString& hint) {
    auto* caption = new QLabel(label);
    caption->setBuddy(input);
    auto* line = new QHBoxLayout;
    line->addWidget(input);
    if (!hint.isEmpty())
        line->addWidget(new QLabel(hint));
    if (input->sizePolicy().horizontalPolicy() == QSizePolicy::Fixed)
        line->addStretch();
    m_lines->addRow(caption, line);
    return caption;
}

void FieldFrame::addButtons(const std::vector<QPushButton*>& buttons) {
    auto* line = new QHBoxLayout;
    for (auto* button : buttons)
        line->addWidget(button);
    line->addStretch();
    m_lines->addRow(QString(), line);
}

void FieldFrame::addWide(QWidget* widget) {
    m_lines->addRow(widget);
}

void FieldFrame::setLineVisible(QWidget* input, bool visible) {
    for (int i = 0; i < m_lines->rowCount(); ++i) {
        QLayoutItem* line = m_lines->itemAt(i, QFormLayout::FieldRole);
        if (line && line->layout() && line->layout()->indexOf(input) >= 0)
            m_lines->setRowVisible(i, visible);
    }
}

QPushButton* formButton(const QString& name, const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    return button;
}

QPushButton* leaveButton(QDialog& form, const QString& name, const QString& caption) {
    QPushButton* leave = formButton(name, caption);
    QObject::connect(leave, &QPushButton::clicked, &form, &QDialog::reject);
    return leave;
}

void addButtonLine(QBoxLayout& column, const std::vector<QPushButton*>& buttons) {
    auto* line = new QHBoxLayout;
    line->addStretch();
    for (auto* button : buttons)
        line->addWidget(button);
    column.addLayout(line);
}

QPushButton* addEditorButtons(QDialog& form, QBoxLayout& column) {
    QPushButton* ok = formButton(u"cmdOK"_s, u"O K"_s);
    ok->setDefault(true);
    addButtonLine(column, {ok, leaveButton(form, u"cmdBeenden"_s, u"BEENDEN"_s)});
    return ok;
}

QWidget* fieldColumn(const std::vector<QWidget*>& parts) {
    auto* area = new QWidget;
    auto* column = new QVBoxLayout(area);
    column->setContentsMargins({});
    for (auto* part : parts)
        column->addWidget(part);
    column->addStretch();
    return area;
}

QScrollArea* fieldArea(QWidget* fields) {
    auto* area = new WholeFieldArea;
    area->setWidget(fields);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    // The keyboard goes from field to field, and the area follows.
    area->setFocusPolicy(Qt::NoFocus);
    // The ground of what is around it goes on behind the fields.
    area->viewport()->setAutoFillBackground(false);
    fields->setAutoFillBackground(false);
    return area;
}

QSplitter* listBesideFields(QWidget* list, QWidget* fields) {
    auto* splitter = new QSplitter(Qt::Horizontal);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(list);
    splitter->addWidget(fields);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    return splitter;
}

QSize roomOnScreen(const QWidget& form) {
    constexpr qreal kWidth = 0.98;
    constexpr qreal kHeight = 0.94;
    const QSizeF screen = form.screen()->availableSize();
    return QSizeF(screen.width() * kWidth, screen.height() * kHeight).toSize();
}

void setFirstSize(QWidget& form, int lines) {
    // Before a style has had its say, everything asks for a little less than it needs.
    for (QWidget* part : form.findChildren<QWidget*>())
        part->ensurePolished();
    const QSize wanted(form.sizeHint().width(), lines * form.fontMetrics().lineSpacing());
    form.resize(wanted.boundedTo(roomOnScreen(form)));
}

} // namespace kolibri
