#include "support/program.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kolibri::test {
namespace {

constexpr int kPatience = 30000;

} // namespace

Program::Program(const QString& home) {
    const QString socket = m_folder.filePath(u"fahrer"_s);
    if (!m_server.listen(socket))
        qFatal("cannot listen on %s", qPrintable(socket));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"KOLIBRI_HOME"_s, home);
    environment.insert(u"KOLIBRI_DRIVER"_s, socket);
    environment.insert(u"QT_PLUGIN_PATH"_s, QStringLiteral(KOLIBRI_BIN_DIR "/../tests/plugins"));
    environment.insert(u"QT_QPA_GENERIC_PLUGINS"_s, u"kolibri_driver"_s);
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(KOLIBRI_BIN_DIR "/kolibri"), QStringList());
    if (!m_process.waitForStarted() || !m_server.waitForNewConnection(kPatience))
        qFatal("the program does not start");
    m_socket = m_server.nextPendingConnection();
}

Program::~Program() {
    m_process.kill();
    m_process.waitForFinished();
}

QJsonValue Program::ask(const QString& verb, const QString& name, const QString& text, int row) {
    const QJsonObject request{{u"do"_s, verb}, {u"name"_s, name}, {u"text"_s, text}, {u"row"_s, row}};
    m_socket->write(QJsonDocument(request).toJson(QJsonDocument::Compact) + '\n');
    m_socket->flush();
    while (!m_socket->canReadLine())
        if (!m_socket->waitForReadyRead(kPatience))
            qFatal("no answer to %s %s: %s", qPrintable(verb), qPrintable(name),
                   qPrintable(m_socket->errorString()));
    const QJsonObject reply = QJsonDocument::fromJson(m_socket->readLine()).object();
    if (reply.contains(u"error"_s))
        qFatal("%s %s: %s", qPrintable(verb), qPrintable(name),
               qPrintable(reply.value(u"error"_s).toString()));
    return reply.value(u"value"_s);
}

void Program::act(const QString& verb, const QString& name, const QString& text, int row) {
    ask(verb, name, text, row);
    ask(u"idle"_s);
}

void Program::trigger(const QString& action) {
    act(u"trigger"_s, action);
}

void Program::click(const QString& button) {
    act(u"click"_s, button);
}

void Program::type(const QString& box, const QString& text) {
    act(u"type"_s, box, text);
}

void Program::choose(const QString& comboBox, const QString& text) {
    act(u"choose"_s, comboBox, text);
}

void Program::clickEntry(const QString& listBox, const QString& text) {
    act(u"clickEntry"_s, listBox, text);
}

void Program::clickRowWith(const QString& list, const QString& cell) {
    const auto all = rows(list);
    for (std::size_t row = 0; row < all.size(); ++row)
        if (all[row].contains(cell))
            return act(u"clickRow"_s, list, {}, static_cast<int>(row));
    qFatal("%s has no row with %s", qPrintable(list), qPrintable(cell));
}

void Program::answer(const QString& caption) {
    act(u"answer"_s, {}, caption);
}

void Program::chooseFile(const QString& path) {
    act(u"chooseFile"_s, {}, path);
}

QString Program::text(const QString& control) {
    return ask(u"text"_s, control).toString();
}

QString Program::colour(const QString& control) {
    return ask(u"colour"_s, control).toString();
}

QString Program::box() {
    return ask(u"box"_s).toString();
}

std::vector<QStringList> Program::rows(const QString& list) {
    std::vector<QStringList> result;
    for (const QJsonValue row : ask(u"rows"_s, list).toArray()) {
        QStringList cells;
        for (const QJsonValue cell : row.toArray())
            cells << cell.toString();
        result.push_back(cells);
    }
    return result;
}

void Program::waitForWindow(const QString& name) {
    if (!QTest::qWaitFor([&] { return ask(u"window"_s).toString() == name; }, kPatience))
        qFatal("the window %s does not come, but %s is there", qPrintable(name),
               qPrintable(ask(u"window"_s).toString() + u' ' + box()));
}

void Program::waitForBox(const QString& beginning) {
    if (!QTest::qWaitFor([&] { return box().startsWith(beginning); }, kPatience))
        qFatal("the box \"%s\" does not come, but \"%s\" is there", qPrintable(beginning), qPrintable(box()));
}

void Program::waitForDialog() {
    if (!QTest::qWaitFor([&] { return ask(u"dialog"_s).toBool(); }, kPatience))
        qFatal("no file dialog comes");
}

bool Program::endBy(const QString& action) {
    ask(u"trigger"_s, action);
    return m_process.waitForFinished(kPatience) && m_process.exitStatus() == QProcess::NormalExit
           && m_process.exitCode() == 0;
}

} // namespace kolibri::test
