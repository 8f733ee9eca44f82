// Loaded into the unmodified program by Qt itself (QT_QPA_GENERIC_PLUGINS): takes requests of a test over a
// local socket and does with mouse and keyboard what a user would do. It knows widgets by their names and
// nothing of the program's own code.

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QGenericPlugin>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocalSocket>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

/// Why a request cannot be done; goes back to the test.
struct Refused {
    QString reason;
};

QWidgetList windowsByUse() {
    QWidgetList windows;
    if (QWidget* modal = QApplication::activeModalWidget())
        windows << modal;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && !windows.contains(window))
            windows << window;
    return windows;
}

template <class T> T& find(const QString& name) {
    for (const QWidget* window : windowsByUse())
        for (T* found : window->findChildren<T*>(name))
            return *found;
    throw Refused{u"no %1 with the name %2"_s.arg(QLatin1String(T::staticMetaObject.className()), name)};
}

/// A control that a user could work with.
template <class T> T& usable(const QString& name) {
    T& found = find<T>(name);
    if (!found.isVisible())
        throw Refused{name + u" is hidden"_s};
    if (!found.isEnabled())
        throw Refused{name + u" is disabled"_s};
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal && found.window() != modal)
        throw Refused{name + u" is behind "_s + modal->objectName()};
    return found;
}

QString textOf(const QString& name) {
    const QWidget& widget = find<QWidget>(name);
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
        return line->text();
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->text();
    if (const auto* box = qobject_cast<const QComboBox*>(&widget))
        return box->currentText();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->text();
    throw Refused{name + u" has no text"_s};
}

QJsonArray rowsOf(const QString& name) {
    const auto& tree = find<QTreeWidget>(name);
    QJsonArray rows;
    for (int row = 0; row < tree.topLevelItemCount(); ++row) {
        QJsonArray cells;
        for (int column = 0; column < tree.columnCount(); ++column)
            cells << tree.topLevelItem(row)->text(column);
        rows << cells;
    }
    return rows;
}

void type(const QString& name, const QString& text) {
    auto& box = usable<QWidget>(name);
    box.setFocus();
    QTest::keySequence(&box, QKeySequence::SelectAll);
    QTest::keyClick(&box, Qt::Key_Delete);
    for (const QChar letter : text)
        QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, QString(letter), Qt::NoModifier);
}

void choose(const QString& name, const QString& text) {
    auto& box = usable<QComboBox>(name);
    const int index = box.findText(text);
    if (index < 0)
        throw Refused{u"%1 does not offer %2"_s.arg(name, text)};
    box.setFocus();
    box.setCurrentIndex(index);
    Q_EMIT box.activated(index);
}

void clickItem(QAbstractItemView& view, const QModelIndex& index) {
    view.scrollTo(index);
    const QRect seen = view.visualRect(index).intersected(view.viewport()->rect());
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, seen.center());
}

void clickRow(const QString& name, int row) {
    auto& tree = usable<QTreeWidget>(name);
    if (row < 0 || row >= tree.topLevelItemCount())
        throw Refused{u"%1 has no row %2"_s.arg(name).arg(row)};
    clickItem(tree, tree.model()->index(row, 1));
}

void clickEntry(const QString& name, const QString& text) {
    auto& list = usable<QListWidget>(name);
    const auto found = list.findItems(text, Qt::MatchExactly);
    if (found.isEmpty())
        throw Refused{u"%1 has no entry %2"_s.arg(name, text)};
    clickItem(list, list.model()->index(list.row(found.first()), 0));
}

void answer(const QString& caption) {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box)
        throw Refused{u"no message box is waiting"_s};
    for (auto* button : box->buttons())
        if (button->text().remove(u'&') == caption)
            return QTest::mouseClick(button, Qt::LeftButton);
    throw Refused{u"the box has no button "_s + caption};
}

void chooseFile(const QString& path) {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (!dialog)
        throw Refused{u"no file dialog is waiting"_s};
    auto* line = dialog->findChild<QLineEdit*>(u"fileNameEdit"_s);
    if (!line)
        throw Refused{u"the file dialog has no line for the name"_s};
    line->setText(path);
    QTest::keyClick(line, Qt::Key_Return);
}

void trigger(const QString& name) {
    auto& action = find<QAction>(name);
    if (!action.isEnabled() || !action.isVisible())
        throw Refused{u"the entry %1 is not offered"_s.arg(name)};
    action.trigger();
}

QString windowInUse() {
    const QWidgetList windows = windowsByUse();
    return windows.isEmpty() ? QString() : windows.first()->objectName();
}

class Driver : public QObject {
public:
    Driver() {
        connect(&m_socket, &QLocalSocket::readyRead, this, [this] { read(); });
        // The program does not outlive the test that drives it.
        connect(&m_socket, &QLocalSocket::disconnected, this, [] { std::_Exit(EXIT_FAILURE); });
        QTimer::singleShot(0, this,
                           [this] { m_socket.connectToServer(qEnvironmentVariable("KOLIBRI_DRIVER")); });
    }

    ~Driver() override { m_socket.disconnect(this); }

private:
    void read() {
        while (m_socket.canReadLine()) {
            const QJsonObject request = QJsonDocument::fromJson(m_socket.readLine()).object();
            QJsonObject reply = m_failed;
            m_failed = {};
            if (reply.isEmpty()) {
                try {
                    reply[u"value"_s] = done(request);
                } catch (const Refused& refused) {
                    reply[u"error"_s] = refused.reason;
                }
            }
            m_socket.write(QJsonDocument(reply).toJson(QJsonDocument::Compact) + '\n');
            m_socket.flush();
        }
    }

    /// A question is answered at once. What a user does is done behind the answer, because a dialog may open
    /// and the next request has to find it.
    QJsonValue done(const QJsonObject& request) {
        const QString verb = request.value(u"do"_s).toString();
        const QString name = request.value(u"name"_s).toString();
        const QString text = request.value(u"text"_s).toString();
        const int row = request.value(u"row"_s).toInt();
        if (verb == u"window")
            return windowInUse();
        if (verb == u"dialog")
            return qobject_cast<const QFileDialog*>(QApplication::activeModalWidget()) != nullptr;
        if (verb == u"text")
            return textOf(name);
        if (verb == u"rows")
            return rowsOf(name);
        if (verb == u"colour")
            return find<QWidget>(name).palette().color(QPalette::Window).name();
        if (verb == u"box") {
            const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            return box ? box->text() : QJsonValue();
        }
        if (verb == u"trigger")
            later([name] { trigger(name); });
        else if (verb == u"click")
            later([name] { QTest::mouseClick(&usable<QAbstractButton>(name), Qt::LeftButton); });
        else if (verb == u"type")
            later([name, text] { type(name, text); });
        else if (verb == u"choose")
            later([name, text] { choose(name, text); });
        else if (verb == u"clickRow")
            later([name, row] { clickRow(name, row); });
        else if (verb == u"clickEntry")
            later([name, text] { clickEntry(name, text); });
        else if (verb == u"answer")
            later([text] { answer(text); });
        else if (verb == u"chooseFile")
            later([text] { chooseFile(text); });
        else if (verb == u"idle")
            return true;
        else
            throw Refused{u"unknown request "_s + verb};
        return true;
    }

    template <class Work> void later(Work work) {
        QTimer::singleShot(0, this, [this, work] {
            try {
                work();
            } catch (const Refused& refused) {
                m_failed[u"error"_s] = refused.reason;
            }
        });
    }

    QLocalSocket m_socket;
    /// What was refused after its request had been answered; told with the next answer.
    QJsonObject m_failed;
};

} // namespace

class DriverPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "driver.json")

public:
    QObject* create(const QString&, const QString&) override { return new Driver; }
};

#include "driver.moc"
