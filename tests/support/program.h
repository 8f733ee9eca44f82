#pragma once

#include <QJsonValue>
#include <QLocalServer>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <vector>

class QLocalSocket;

namespace kolibri::test {

/// The built program in a process of its own, driven as a user drives it: by menus, fields, buttons and
/// boxes. A step that the program does not allow ends the test with the reason.
class Program {
public:
    /// Starts the program on a base folder and waits until it takes requests.
    explicit Program(const QString& home);
    ~Program();

    /// Presses a menu entry by its name.
    void trigger(const QString& action);
    void click(const QString& button);
    void type(const QString& box, const QString& text);
    void choose(const QString& comboBox, const QString& text);
    void clickEntry(const QString& listBox, const QString& text);
    /// Clicks the first row of a list view that has this text in a cell.
    void clickRowWith(const QString& list, const QString& cell);
    /// Presses a button of the message box that is waiting.
    void answer(const QString& caption);
    /// Gives the waiting file dialog a path.
    void chooseFile(const QString& path);

    QString text(const QString& control);
    QString colour(const QString& control);
    /// Text of the message box that is waiting; empty without one.
    QString box();
    std::vector<QStringList> rows(const QString& list);

    /// Waits until this window is in use.
    void waitForWindow(const QString& name);
    /// Waits until a message box with this beginning is there.
    void waitForBox(const QString& beginning);
    /// Waits until a file dialog is there.
    void waitForDialog();
    /// Presses the menu entry that ends the program. False when it does not end, or not well.
    bool endBy(const QString& action);

private:
    QJsonValue ask(const QString& verb, const QString& name = {}, const QString& text = {}, int row = 0);
    /// Asks for something to be done, and waits until it has been.
    void act(const QString& verb, const QString& name = {}, const QString& text = {}, int row = 0);

    QTemporaryDir m_folder;
    QLocalServer m_server;
    QProcess m_process;
    QLocalSocket* m_socket = nullptr;
};

} // namespace kolibri::test
