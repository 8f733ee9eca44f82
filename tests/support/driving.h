#pragma once

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/list_view.h"
#include "support/test_base.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>

/// What a user does to a form, for the tests of the forms.
namespace kolibri::test {

/// A control of a form by its name; a missing one ends the test program, for the test cannot go on.
template <class T> T& control(const QWidget& form, const QString& name) {
    T* found = form.findChild<T*>(name);
    if (!found)
        qFatal("no control %s", qPrintable(name));
    return *found;
}

inline QString textOf(const QWidget& form, const QString& name) {
    return control<QLineEdit>(form, name).text();
}

/// Types into whatever has the keyboard there, umlauts included.
inline void keys(QWidget& widget, const QString& text) {
    for (const QChar letter : text)
        QTest::sendKeyEvent(QTest::Click, &widget, Qt::Key_unknown, QString(letter), Qt::NoModifier);
}

/// Replaces the text of a box by typing; an empty text clears it.
inline void type(const QWidget& form, const QString& name, const QString& text) {
    auto& box = control<QLineEdit>(form, name);
    box.setFocus();
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    keys(box, text);
}

/// Shows a window and waits until it has the keyboard.
inline bool shown(QWidget& window) {
    window.show();
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

inline void press(const QWidget& form, const QString& button = QStringLiteral("cmdOK")) {
    auto& control = test::control<QAbstractButton>(form, button);
    // A box to tick may be wider than its words, and takes a click only on them.
    const QPoint onTheMark(control.height() / 2, control.height() / 2);
    const bool isBox = qobject_cast<QCheckBox*>(&control) || qobject_cast<QRadioButton*>(&control);
    QTest::mouseClick(&control, Qt::LeftButton, {}, isBox ? onTheMark : control.rect().center());
}

/// Clicks a row of a list view, counted from 1.
inline void clickRow(ListView& list, int row) {
    QTreeWidgetItem* item = list.topLevelItem(row - 1);
    list.scrollToItem(item);
    // A row with many columns reaches beyond the list.
    const QRect seen = list.visualItemRect(item).intersected(list.viewport()->rect());
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, seen.center());
}

/// Clicks the heading of a column.
inline void clickHeading(ListView& list, const QString& heading) {
    QHeaderView& header = *list.header();
    int column = 0;
    while (column < list.columnCount() && list.headerItem()->text(column) != heading)
        ++column;
    list.horizontalScrollBar()->setValue(header.sectionPosition(column));
    const QPoint middle(header.sectionViewportPosition(column) + header.sectionSize(column) / 2,
                        header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, middle);
}

inline void clickEntry(QListWidget& list, const QString& text) {
    const auto found = list.findItems(text, Qt::MatchExactly);
    if (found.isEmpty())
        qFatal("no entry %s", qPrintable(text));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(found.first()).center());
}

/// Chooses an entry of a box by its text.
inline void chooseEntry(const QWidget& form, const QString& name, const QString& text) {
    auto& box = control<QComboBox>(form, name);
    const int index = box.findText(text);
    if (index < 0)
        qFatal("no entry %s", qPrintable(text));
    box.setCurrentIndex(index);
}

/// The entries of a box.
inline QStringList entriesOf(const QComboBox& box) {
    QStringList entries;
    for (int i = 0; i < box.count(); ++i)
        entries << box.itemText(i);
    return entries;
}

/// The selected entries of a list, from the top.
inline QStringList selectedOf(const QListWidget& list) {
    QStringList entries;
    for (int row = 0; row < list.count(); ++row)
        if (list.item(row)->isSelected())
            entries << list.item(row)->text();
    return entries;
}

/// Background of an input as the user sees it.
inline QColor groundOf(const QWidget& form, const QString& name) {
    return control<QWidget>(form, name).palette().color(QPalette::Base);
}
inline bool isFaulty(const QWidget& form, const QString& name) {
    return groundOf(form, name) == QColor(0xff, 0xe0, 0xc0);
}

/// All cells of a column of a list view, from the top.
inline QStringList cellsOf(const ListView& list, int column) {
    QStringList cells;
    for (int row = 1; row <= list.rowCount(); ++row)
        cells << list.cell(row, column);
    return cells;
}

inline QStringList headingsOf(const ListView& list) {
    QStringList headings;
    for (int column = 0; column < list.columnCount(); ++column)
        headings << list.headerItem()->text(column);
    return headings;
}

/// Writes a row past the forms.
inline qint64 addRow(const QString& table, const FieldValues& values) {
    const DbSession session(QStringLiteral("Testdaten"));
    NewRow row = Global().Conn.AddNew(table);
    for (const auto& [field, value] : values)
        row.Set(field, value);
    return row.Update();
}

/// A column of a table, in the order of its rows.
inline QStringList columnOf(const QString& table, const QString& column) {
    const DbSession session(QStringLiteral("Vergleich"));
    QStringList values;
    Recordset rs = Global().Conn.Open(QStringLiteral("SELECT %1 FROM %2").arg(column, table));
    for (; !rs.Eof(); rs.MoveNext())
        values << (rs.Value(0).isNull() ? QStringLiteral("<null>") : rs.Text(0));
    return values;
}

/// Names of the tables whose rows differ between two states of the database.
inline QStringList changedTables(const QMap<QString, QStringList>& before,
                                 const QMap<QString, QStringList>& after) {
    QStringList names;
    for (auto table = after.begin(); table != after.end(); ++table)
        if (before.value(table.key()) != table.value())
            names << table.key();
    return names;
}

/// All rows of a table as texts.
inline QStringList rowsOf(const QString& table) {
    return wholeDatabase().value(table);
}

} // namespace kolibri::test
