#include "maintenance/tool_process.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kForeign = u"Fremd"_s;
const QString kDamaged = u"Fehler"_s;
const QString kDetails = u"Einzelheiten"_s;

/// A process that does not outlive whoever asked for it.
class Tool {
public:
    explicit Tool(const ToolTask& task) {
        // The libraries complain there, about a damaged file for hours.
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.start(task.tool, task.arguments);
        if (!m_process.waitForStarted())
            throw StoreError(
                StoreError::Kind::Missing,
                u"Das Programm kolibri-db fehlt neben Kolibri. Bitte richten Sie Kolibri noch einmal ein."_s,
                {}, m_process.errorString());
    }
    ~Tool() {
        if (m_process.state() == QProcess::NotRunning)
            return;
        m_process.kill();
        m_process.waitForFinished();
    }
    Tool(const Tool&) = delete;
    Tool& operator=(const Tool&) = delete;

    /// Waits for the end. False when the process fell silent or failed.
    bool wait(int patience, const ToolLine& take) {
        constexpr int kBeat = 50;
        QElapsedTimer silence;
        silence.start();
        while (m_process.state() != QProcess::NotRunning) {
            m_process.waitForFinished(kBeat);
            if (takeLines(take))
                silence.restart();
            if (silence.elapsed() > patience)
                return false;
        }
        takeLines(take);
        return m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
    }

private:
    bool takeLines(const ToolLine& take) {
        bool any = false;
        while (m_process.canReadLine()) {
            any = true;
            const QString line = QString::fromUtf8(m_process.readLine()).trimmed();
            take(line.section(u' ', 0, 0), line.section(u' ', 1));
        }
        return any;
    }

    QProcess m_process;
};

} // namespace

QString toolPath() {
    return QCoreApplication::applicationDirPath() + u"/kolibri-db"_s;
}

void runTool(const ToolTask& task, const ToolLine& take) {
    auto kind = StoreError::Kind::Damaged;
    QString words = task.words;
    QString details;
    Tool tool(task);
    const bool done = tool.wait(task.patience, [&](const QString& word, const QString& text) {
        if (word == kDetails)
            details = text;
        else if (word == kForeign || word == kDamaged)
            words = text;
        else
            take(word, text);
        if (word == kForeign)
            kind = StoreError::Kind::Foreign;
    });
    if (!done)
        throw StoreError(kind, words, {}, details);
}

void tellProgram(const QString& word, const QString& text) {
    static QTextStream out(stdout);
    out << word << u' ' << QString(text).replace(u'\n', u' ') << Qt::endl;
}

void serveProgram(const std::function<void()>& work) {
    try {
        work();
    } catch (const StoreError& error) {
        tellProgram(kDetails, error.details());
        tellProgram(error.kind() == StoreError::Kind::Foreign ? kForeign : kDamaged, error.message());
        throw;
    }
}

} // namespace kolibri
