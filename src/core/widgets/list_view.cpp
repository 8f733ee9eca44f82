#include "core/widgets/list_view.h"

#include "core/store/german_order.h"
#include "core/widgets/list_search.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kKeyRole = Qt::UserRole;

/// Holds a list's painting back while its rows move.
class UpdatesLocked {
public:
    explicit UpdatesLocked(QWidget& widget) : m_widget(widget) { m_widget.setUpdatesEnabled(false); }
    ~UpdatesLocked() { m_widget.setUpdatesEnabled(true); }
    UpdatesLocked(const UpdatesLocked&) = delete;
    UpdatesLocked& operator=(const UpdatesLocked&) = delete;

private:
    QWidget& m_widget;
};

struct SortedItem {
    QByteArray text;
    QTreeWidgetItem* item;
};

} // namespace

ListView::ListView(const QString& objectName, const QString& accessibleName)
    : m_search(new ListSearch(*this)) {
    setObjectName(objectName);
    setAccessibleName(accessibleName);
    // Narrow letters, since the lists have many columns; the size stays that of the desktop.
    QFont narrow;
    narrow.setFamilies({u"Arial"_s});
    setFont(narrow);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setHorizontalScrollMode(ScrollPerPixel);
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(true);
    header()->setMinimumSectionSize(1);
    connect(header(), &QHeaderView::sectionClicked, this, [this](int column) { sortByHeading(column); });
    connect(this, &QTreeWidget::itemClicked, this, [this] { choose(); });
    auto* find = new QShortcut(QKeySequence::Find, this);
    find->setContext(Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, this, [this] { startSearch(); });
}

ListView::~ListView() {
    // A search box that has the keyboard lets go of it when it dies, and must find its list whole then.
    delete m_search;
}

void ListView::setColumns(const std::vector<ListColumn>& columns) {
    m_columns = columns;
    QStringList headings;
    for (const auto& column : columns)
        headings << column.heading;
    clear();
    setColumnCount(static_cast<int>(columns.size()));
    setHeaderLabels(headings);
    applyWidths();
}

void ListView::applyWidths() {
    constexpr int kThinnest = 1;
    const int character = fontMetrics().averageCharWidth();
    m_wantedWidth = 0;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const int column = static_cast<int>(i);
        const int heading = header()->sectionSizeHint(column);
        const int width = m_columns[i].characters == kHiddenColumn
                              ? kThinnest
                              : std::max(heading, m_columns[i].characters * character);
        header()->resizeSection(column, width);
        m_wantedWidth += width;
    }
    updateGeometry();
}

QSize ListView::sizeHint() const {
    // A splitter takes its handle from the widgets beside it.
    const int besides = verticalScrollBar()->sizeHint().width() + 2 * frameWidth()
                        + style()->pixelMetric(QStyle::PM_SplitterWidth, nullptr, this);
    // Not what the header measures: its last column takes all the room that the list happens to have.
    return {m_wantedWidth + besides, QTreeWidget::sizeHint().height()};
}

void ListView::setRows(const std::vector<ListRow>& rows) {
    const UpdatesLocked locked(*this);
    const QSignalBlocker blocker(this);
    const int top = verticalScrollBar()->value();
    header()->setSortIndicatorShown(false);
    m_sorted = false;
    clear();
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<qsizetype>(rows.size()));
    for (const auto& row : rows) {
        auto* item = new QTreeWidgetItem(row.cells);
        item->setData(0, kKeyRole, row.key);
        items.append(item);
    }
    addTopLevelItems(items);
    if (top > 0) {
        doItemsLayout();
        verticalScrollBar()->setValue(top);
    }
}

QString ListView::itemText(int row) const {
    return cell(row, 0);
}

QString ListView::cell(int row, int column) const {
    const QTreeWidgetItem* item = topLevelItem(row - 1);
    return item ? item->text(column) : QString();
}

QString ListView::key(int row) const {
    const QTreeWidgetItem* item = topLevelItem(row - 1);
    return item ? item->data(0, kKeyRole).toString() : QString();
}

int ListView::rowOfKey(const QString& key) const {
    for (int row = 1; row <= rowCount(); ++row)
        if (this->key(row) == key)
            return row;
    return 0;
}

void ListView::showRow(int row) {
    QTreeWidgetItem* item = topLevelItem(row - 1);
    if (!item)
        return;
    const QSignalBlocker blocker(this);
    setCurrentItem(item, 0, QItemSelectionModel::NoUpdate);
    scrollToItem(item);
}

void ListView::choose() {
    if (m_chosen && currentItem() && currentItem()->isSelected())
        m_chosen(currentItem()->text(0));
}

void ListView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space) {
        if (currentItem())
            setCurrentItem(currentItem());
        choose();
        return;
    }
    const auto* before = selectedItems().value(0);
    QTreeWidget::keyPressEvent(event);
    if (selectedItems().value(0) != before)
        choose();
}

void ListView::startSearch(const QString& text) {
    m_search->start(text);
}

void ListView::sortByHeading(int column) {
    SortierenListView(column, *this, m_columns[static_cast<std::size_t>(column)].sort);
}

/// What the headings do for the mouse, for the keyboard.
void ListView::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(u"Suchen\tStrg+F"_s, this, [this] { startSearch(); });
    menu->addSeparator();
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        if (m_columns[i].sort != SortKind::None)
            menu->addAction(u"Sortieren nach "_s + m_columns[i].heading.trimmed(), this,
                            [this, i] { sortByHeading(static_cast<int>(i)); });
    menu->popup(event->globalPos());
}

void ListView::changeEvent(QEvent* event) {
    QTreeWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        applyWidths();
}

void ListView::resizeEvent(QResizeEvent* event) {
    QTreeWidget::resizeEvent(event);
    m_search->place();
}

void SortierenListView(int spalte, ListView& list, SortKind art) {
    if (art == SortKind::None)
        return;
    const bool flip = list.m_sorted && list.m_order == Qt::AscendingOrder;
    list.m_order = flip ? Qt::DescendingOrder : Qt::AscendingOrder;
    list.m_sorted = true;
    const UpdatesLocked locked(list);
    const QSignalBlocker blocker(&list);
    QTreeWidgetItem* selected = list.selectedItems().value(0);
    QTreeWidgetItem* root = list.invisibleRootItem();
    std::vector<SortedItem> items;
    for (auto* item : root->takeChildren())
        items.push_back({SortText(item->text(spalte), art).toUtf8(), item});
    std::stable_sort(items.begin(), items.end(), [&](const SortedItem& a, const SortedItem& b) {
        const int order = germanOrder(a.text, b.text);
        return list.m_order == Qt::AscendingOrder ? order < 0 : order > 0;
    });
    QList<QTreeWidgetItem*> sorted;
    for (const auto& entry : items)
        sorted.append(entry.item);
    root->addChildren(sorted);
    list.header()->setSortIndicatorShown(true);
    list.header()->setSortIndicator(spalte, list.m_order);
    if (selected) {
        list.setCurrentItem(selected);
        list.scrollToItem(selected);
    }
}

int lvw_Search_NN(const ListView& list, const QString& text, int start) {
    for (int row = std::max(start, 1); row <= list.rowCount(); ++row)
        for (int column = 0; column < list.columnCount(); ++column)
            if (list.cell(row, column).contains(text, Qt::CaseInsensitive))
                return row;
    return 0;
}

void Eintrag_MARKIEREN(ListView& list, int zeile) {
    QTreeWidgetItem* item = list.topLevelItem(zeile - 1);
    if (!item)
        return;
    const QSignalBlocker blocker(&list);
    list.setCurrentItem(item);
    list.scrollToItem(item);
    list.setFocus();
}

} // namespace kolibri
