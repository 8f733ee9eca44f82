#include "maintenance/jet_process.h"

#include "core/progress.h"
#include "core/store/store_error.h"
#include "maintenance/jet_copy.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

// What the two processes say to each other, a line each.
const QString kStand = u"Stand "_s;
const QString kForeign = u"Fremd "_s;
const QString kError = u"Fehler "_s;
const QString kDetails = u"Einzelheiten "_s;

/// The process that reads, and what it has said so far.
class Reader {
public:
    Reader(const QString& tool, const QStringList& arguments) {
        // The library complains there, about a damaged file for hours.
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.start(tool, arguments);
        if (!m_process.waitForStarted())
            throw StoreError(
                StoreError::Kind::Missing,
                u"Das Programm kolibri-db fehlt neben Kolibri. Bitte richten Sie Kolibri noch einmal ein."_s,
                {}, m_process.errorString());
    }
    /// The process does not outlive whoever asked for it.
    ~Reader() {
        if (m_process.state() == QProcess::NotRunning)
            return;
        m_process.kill();
        m_process.waitForFinished();
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    /// Waits for the end. False when the process fell silent.
    bool wait(int patience, Progress& progress) {
        constexpr int kBeat = 50;
        QElapsedTimer silence;
        silence.start();
        while (m_process.state() != QProcess::NotRunning) {
            m_process.waitForFinished(kBeat);
            if (takeLines(progress))
                silence.restart();
            if (silence.elapsed() > patience)
                return false;
        }
        takeLines(progress);
        return true;
    }

    bool succeeded() const {
        return m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
    }

    StoreError error() const {
        const QString words =
            m_error.isEmpty()
                ? u"Die Datei ist beschädigt und kann nicht übernommen werden. Sie wurde nicht verändert."_s
                : m_error;
        return {m_foreign ? StoreError::Kind::Foreign : StoreError::Kind::Damaged, words, {}, m_details};
    }

private:
    bool takeLines(Progress& progress) {
        bool any = false;
        while (m_process.canReadLine()) {
            any = true;
            const QString line = QString::fromUtf8(m_process.readLine()).trimmed();
            if (line.startsWith(kStand))
                progress.Reach(line.mid(kStand.size()).toLongLong());
            if (line.startsWith(kDetails))
                m_details = line.mid(kDetails.size());
            m_foreign = m_foreign || line.startsWith(kForeign);
            for (const auto& mark : {kForeign, kError})
                if (line.startsWith(mark))
                    m_error = line.mid(mark.size());
        }
        return any;
    }

    QProcess m_process;
    QString m_error;
    QString m_details;
    bool m_foreign = false;
};

void removeFile(const QString& file) {
    QFile::remove(file);
    QFile::remove(file + u"-journal"_s);
}

} // namespace

QString toolPath() {
    return QCoreApplication::applicationDirPath() + u"/kolibri-db"_s;
}

void readJetInOwnProcess(const QString& tool, const QString& jetFile, const QString& newFile, int patience,
                         Progress& progress) {
    Reader reader(tool, {kReadJetVerb, jetFile, newFile});
    const bool ended = reader.wait(patience, progress);
    if (ended && reader.succeeded())
        return;
    const StoreError error = reader.error();
    removeFile(newFile);
    throw error;
}

void serveJetReading(const QString& jetFile, const QString& newFile) {
    constexpr qint64 kWhole = 100;
    constexpr qint64 kBeat = 500;
    QTextStream out(stdout);
    QElapsedTimer silence;
    silence.start();
    qint64 told = -1;
    const auto tell = [&](qint64 done, qint64 total) {
        const qint64 percent = done * kWhole / std::max<qint64>(total, 1);
        if (percent == told && silence.elapsed() < kBeat)
            return;
        out << kStand << percent << Qt::endl;
        told = percent;
        silence.restart();
    };
    const auto oneLine = [](QString text) { return text.replace(u'\n', u' '); };
    try {
        copyJetFile(jetFile, newFile, tell);
    } catch (const StoreError& error) {
        const bool foreign = error.kind() == StoreError::Kind::Foreign;
        out << kDetails << oneLine(error.details()) << Qt::endl;
        out << (foreign ? kForeign : kError) << oneLine(error.message()) << Qt::endl;
        throw;
    }
}

} // namespace kolibri
