#pragma once

#include <QDeadlineTimer>
#include <QProcess>
#include <QStringList>

namespace kolibri::test {

/// A second process that works on a database file; see tests/probes/store_probe.cpp for its verbs.
class Probe {
public:
    /// Longest time that a probe may take to say its next line.
    static constexpr int kPatience = 120'000;

    /// `prefix` is a command that starts the probe as somebody else.
    explicit Probe(const QStringList& arguments, QStringList prefix = {}) {
        prefix << QStringLiteral(KOLIBRI_BIN_DIR "/store_probe") << arguments;
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
