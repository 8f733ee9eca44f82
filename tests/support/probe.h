#pragma once

#include <QDeadlineTimer>
#include <QProcess>
#include <QStringList>

namespace kolibri::test {

/// A second process that works on a database; see tests/probes for what the programs take and say.
class Probe {
public:
    /// Longest time that a probe may take to say its next line.
    static constexpr int kPatience = 120'000;

    /// Starts a probe, the one of the store unless another is named; `prefix` is a command that starts it as
    /// somebody else.
    explicit Probe(const QStringList& arguments, QStringList prefix = {},
                   const QString& program = QStringLiteral("store_probe")) {
        prefix << QStringLiteral(KOLIBRI_BIN_DIR "/") + program << arguments;
        m_process.setProgram(prefix.takeFirst());
        m_process.setArguments(prefix);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start();
    }
    ~Probe() { kill(); }

    /// The next line it says; empty when it ends without one.
    QString line() {
        const QDeadlineTimer deadline(kPatience);
        while (!m_process.canReadLine() && m_process.state() != QProcess::NotRunning
               && !deadline.hasExpired())
            m_process.waitForReadyRead(static_cast<int>(deadline.remainingTime()));
        return QString::fromUtf8(m_process.readLine()).trimmed();
    }
    void goOn() { m_process.write("\n"); }
    void kill() {
        m_process.kill();
        m_process.waitForFinished();
    }
    /// True when it came to its end without an error.
    bool ended() {
        return m_process.waitForFinished(kPatience) && m_process.exitStatus() == QProcess::NormalExit
               && m_process.exitCode() == 0;
    }

private:
    QProcess m_process;
};

} // namespace kolibri::test
