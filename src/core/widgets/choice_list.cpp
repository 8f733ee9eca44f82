#include "core/widgets/choice_list.h"

#include <QCheckBox>
#include <QComboBox>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolButton>

namespace kolibri {

ChoiceList::ChoiceList(const QString& objectName, const QString& accessibleName) {
    setObjectName(objectName);
    setAccessibleName(accessibleName);
    setSelectionMode(QAbstractItemView::MultiSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void ChoiceList::setEntries(const QStringList& entries) {
    const QStringList before = chosen();
    clear();
    addItems(entries);
    if (count() > 0)
        setCurrentRow(0, QItemSelectionModel::NoUpdate);
    choose(before);
    updateGeometry();
}

QStringList ChoiceList::chosen() const {
    QStringList entries;
    for (int row = 0; row < count(); ++row)
        if (item(row)->isSelected())
            entries << item(row)->text();
    return entries;
}

void ChoiceList::choose(const QStringList& entries) {
    for (int row = 0; row < count(); ++row)
        item(row)->setSelected(entries.contains(item(row)->text()));
}

void ChoiceList::chooseAll(bool all) {
    if (all)
        selectAll();
    else
        clearSelection();
}

QSize ChoiceList::sizeHint() const {
    constexpr int kLines = 8;
    constexpr int kCharacters = 6;
    const int letters = std::max(sizeHintForColumn(0), kCharacters * fontMetrics().averageCharWidth());
    const int line = count() > 0 ? sizeHintForRow(0) : fontMetrics().lineSpacing();
    return {letters + verticalScrollBar()->sizeHint().width() + 2 * frameWidth(),
            kLines * line + 2 * frameWidth()};
}

QSize ChoiceList::minimumSizeHint() const {
    return {sizeHint().width(), sizeHint().height() / 2};
}

QCheckBox* chooseAllBox(const QString& objectName, const QString& caption, ChoiceList& list) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(objectName);
    QObject::connect(box, &QCheckBox::toggled, &list, [&list](bool on) { list.chooseAll(on); });
    return box;
}

QToolButton* imageButton(const QString& objectName, const QString& text, const QString& tip) {
    auto* image = new QToolButton;
    image->setObjectName(objectName);
    image->setText(text);
    image->setToolTip(tip);
    image->setAccessibleName(tip);
    image->setFocusPolicy(Qt::TabFocus);
    return image;
}

void fillBox(QComboBox& box, const QStringList& entries, int rememberedIndex) {
    const QSignalBlocker filling(box);
    box.clear();
    box.addItems(entries);
    box.setCurrentIndex(rememberedIndex >= 1 && rememberedIndex < box.count() ? rememberedIndex : 0);
}

} // namespace kolibri
