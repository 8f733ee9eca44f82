#include "core/frmStart.h"

#include "core/frmStart_targets.h"
#include "core/frmStart_view.h"
#include "core/mdlAllgemein.h"
#include "core/menu_table.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {

Q_LOGGING_CATEGORY(startLog, "kolibri.start", QtWarningMsg)

namespace {

/// An entry with entries below it is a menu.
bool isMenu(const std::vector<MenuEntry>& table, std::size_t i) {
    return table[i].depth == 0 || (i + 1 < table.size() && table[i + 1].depth > table[i].depth);
}

} // namespace

frmStart::frmStart() {
    setObjectName(u"frmStart"_s);
    setWindowTitle(kProgramTitle);
    setContextMenuPolicy(Qt::NoContextMenu);
    buildMenus();
    buildContent();
    connectLargeButtons();
    auto* version = new QLabel(versionLine());
    version->setObjectName(u"lblVersion"_s);
    statusBar()->addPermanentWidget(version);
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
            action->setStatusTip(entry.tip);
            if (!entry.task.target.isEmpty())
                connect(action, &QAction::triggered, this, [this, &entry] { run(entry.task); });
        }
        action->setVisible(!entry.hidden);
    }
}

void frmStart::buildContent() {
    const int line = fontMetrics().height();
    m_head = buildHead();
    m_notice = buildNotice();
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, line * 2 / 3);
    column->setSpacing(line * 2 / 3);
    column->addWidget(m_head, 1);
    column->addWidget(m_notice);
    column->addWidget(buildLargeButtons(), 1);
    m_area = scrolled(content);
    setCentralWidget(m_area);
}

void frmStart::connectLargeButtons() {
    for (const auto& large : largeButtons()) {
        auto* button = findChild<QPushButton*>(large.name);
        auto* entry = findChild<QAction*>(large.entry);
        button->setStatusTip(entry->statusTip());
        button->setAccessibleDescription(entry->statusTip());
        connect(button, &QPushButton::clicked, entry, &QAction::trigger);
    }
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
    for (const auto& name : entriesWithoutDatabase())
        findChild<QAction*>(name)->setVisible(!ready);
    showSchool(m_head);
    showMissingFile(m_notice, DatenbankDatei(Global().DB_Pfad));
    m_notice->setVisible(!ready);
    resize(startSize());
}

QSize frmStart::startSize() const {
    // The window's frame and the desktop's own bar need some room too.
    constexpr qreal kShareOfScreen = 0.92;
    const QSize around(0, menuBar()->sizeHint().height() + statusBar()->sizeHint().height());
    return (usualSize(m_area->widget()) + around).boundedTo(screen()->availableSize() * kShareOfScreen);
}

void frmStart::run(const MenuTask& task) {
    applyTask(task);
    menuTargets().at(task.target)(this, task);
}

bool frmStart::event(QEvent* event) {
    if (event->type() == QEvent::Paint && !m_painted) {
        m_painted = true;
        // Once more through the event loop: then all parts have been painted and keys are taken.
        QTimer::singleShot(0, this, [] { qCDebug(startLog, "Hauptfenster bereit"); });
    }
    return QMainWindow::event(event);
}

void frmStart::closeEvent(QCloseEvent* event) {
    event->accept();
    // Not quit(), which asks every window first and gives up when one refuses.
    QCoreApplication::exit(EXIT_SUCCESS);
}

} // namespace kolibri
