#include "core/frmStart.h"

#include "core/frmStart_targets.h"
#include "core/mdlAllgemein.h"
#include "core/menu_table.h"
#include "core/widgets/forms.h"
#include "core/widgets/picture.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// An entry with entries below it is a menu.
bool isMenu(const std::vector<MenuEntry>& table, std::size_t i) {
    return table[i].depth == 0 || (i + 1 < table.size() && table[i + 1].depth > table[i].depth);
}

} // namespace

frmStart::frmStart() {
    setObjectName(u"frmStart"_s);
    setWindowTitle(kProgramTitle);
    buildMenus();
    auto* centre = new QWidget;
    auto* column = new QVBoxLayout(centre);
    column->addWidget(buildHead(), 1);
    column->addWidget(buildButtons());
    auto* version = new QLabel(versionLine());
    version->setObjectName(u"lblVersion"_s);
    column->addWidget(version);
    setCentralWidget(centre);
}

void frmStart::buildMenus() {
    std::vector<QMenu*> open;
    const auto& table = menuTable();
    for (std::size_t i = 0; i < table.size(); ++i) {
        const MenuEntry& entry = table[i];
        open.resize(static_cast<std::size_t>(entry.depth));
        QAction* action = nullptr;
        if (isMenu(table, i)) {
            QMenu* menu =
                open.empty() ? menuBar()->addMenu(entry.caption) : open.back()->addMenu(entry.caption);
            menu->setObjectName(entry.name);
            action = menu->menuAction();
            open.push_back(menu);
        } else {
            action = open.back()->addAction(entry.caption);
            action->setObjectName(entry.name);
            connect(action, &QAction::triggered, this, [this, &entry] { run(entry.task); });
        }
        action->setVisible(!entry.hidden);
    }
}

QWidget* frmStart::buildHead() {
    auto* picture = new Picture(u":/kolibri/startbild.svg"_s);
    picture->setObjectName(u"imgStart"_s);
    return picture;
}

QWidget* frmStart::buildButtons() {
    constexpr int kColumns = 4;
    auto* area = new QWidget;
    auto* grid = new QGridLayout(area);
    int position = 0;
    for (const auto& large : largeButtons()) {
        auto* button = new QPushButton(large.caption);
        button->setObjectName(large.name);
        auto* entry = findChild<QAction*>(large.entry);
        connect(button, &QPushButton::clicked, entry, &QAction::trigger);
        grid->addWidget(button, position / kColumns, position % kColumns);
        ++position;
    }
    return area;
}

void frmStart::setState(StartState state) {
    const bool ready = state == StartState::Ready;
    for (const auto& name : menusOfADatabase()) {
        if (auto* menu = findChild<QMenu*>(name))
            menu->menuAction()->setEnabled(ready);
        else
            findChild<QAction*>(name)->setEnabled(ready);
    }
    for (const auto& large : largeButtons())
        findChild<QPushButton*>(large.name)->setEnabled(ready);
    for (const auto& name : {u"mnuNeueDatenbank"_s, u"mnuBeispielschule"_s})
        findChild<QAction*>(name)->setVisible(!ready);
}

void frmStart::run(const MenuTask& task) {
    applyTask(task);
    const auto& targets = menuTargets();
    const auto found = targets.find(task.target);
    (found == targets.end() ? targets.at(QString()) : found->second)(this, task);
}

void frmStart::closeEvent(QCloseEvent* event) {
    event->accept();
    QCoreApplication::quit();
}

} // namespace kolibri
