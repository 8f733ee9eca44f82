#include "walk_controls.h"

#include "core/widgets/list_view.h"
#include "walk_stations.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

[[noreturn]] void stop(const QObject& control, const QString& value) {
    throw WalkStopped(u"%1 does not offer \"%2\""_s.arg(control.objectName(), value));
}

/// The place of the first of `count` texts that holds the value; one that is the value comes first.
template <class TextAt> int placeOf(const QObject& control, const QString& value, int count, TextAt textAt) {
    for (int i = 0; i < count; ++i)
        if (textAt(i) == value)
            return i;
    for (int i = 0; i < count; ++i)
        if (textAt(i).contains(value))
            return i;
    stop(control, value);
}

void chooseRow(ListView& list, const QString& value) {
    const int row = lvw_Search_NN(list, value, 1);
    if (row == 0)
        stop(list, value);
    Eintrag_MARKIEREN(list, row);
    list.choose();
}

/// Chooses every entry that begins with the value; "*" stands for all.
void chooseEntries(QListWidget& list, const QString& value) {
    bool found = false;
    for (int i = 0; i < list.count(); ++i) {
        QListWidgetItem* item = list.item(i);
        if (value != u"*"_s && !item->text().startsWith(value))
            continue;
        item->setSelected(true);
        found = true;
    }
    if (!found)
        stop(list, value);
}

void turnTo(QTabWidget& tabs, const QString& value) {
    tabs.setCurrentIndex(
        placeOf(tabs, value, tabs.count(), [&](int i) { return tabs.tabText(i).remove(u'&'); }));
}

void chooseEntry(QComboBox& box, const QString& value) {
    if (!box.isEnabled())
        stop(box, value);
    box.setCurrentIndex(placeOf(box, value, box.count(), [&](int i) { return box.itemText(i); }));
    // What a choice by mouse or keyboard tells besides.
    Q_EMIT box.activated(box.currentIndex());
}

/// Types a text and goes on to the next box, as some boxes are looked at when they are left.
void type(QLineEdit& box, const QString& text) {
    box.setFocus();
    box.setText(text);
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QCoreApplication::sendEvent(&box, &tab);
}

/// Runs `work` on the control if it is of this kind.
template <class T, class Work> bool with(QObject* control, Work work) {
    auto* known = dynamic_cast<T*>(control);
    if (known)
        work(*known);
    return known != nullptr;
}

} // namespace

void fill(QWidget& window, const Filling& filling) {
    QObject* control = window.findChild<QObject*>(filling.control);
    if (!control)
        throw WalkStopped(u"%1 has no %2"_s.arg(window.objectName(), filling.control));
    const QString& value = filling.value;
    const bool done = with<ListView>(control, [&](auto& list) { chooseRow(list, value); })
                      || with<QListWidget>(control, [&](auto& list) { chooseEntries(list, value); })
                      || with<QComboBox>(control, [&](auto& box) { chooseEntry(box, value); })
                      || with<QLineEdit>(control, [&](auto& box) { type(box, value); })
                      || with<QTextEdit>(control, [&](auto& box) { box.setPlainText(value); })
                      || with<QPlainTextEdit>(control, [&](auto& box) { box.setPlainText(value); })
                      || with<QTabWidget>(control, [&](auto& tabs) { turnTo(tabs, value); })
                      || with<QAbstractButton>(control, [](auto& button) { button.click(); })
                      || with<QAction>(control, [](auto& action) { action.trigger(); });
    if (!done)
        throw WalkStopped(u"%1 cannot be worked by the walk"_s.arg(filling.control));
}

} // namespace kolibri
