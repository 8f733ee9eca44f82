#include "maintenance/jet_process.h"

#include "core/progress.h"
#include "maintenance/jet_copy.h"
#include "maintenance/tool_process.h"

#include <QElapsedTimer>
#include <QFile>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kReached = u"Stand"_s;

void removeFile(const QString& file) {
    QFile::remove(file);
    QFile::remove(file + u"-journal"_s);
}

} // namespace

void readJetInOwnProcess(const QString& tool, const QString& jetFile, const QString& newFile, int patience,
                         Progress& progress) {
    const ToolTask task{
        tool,
        {kReadJetVerb, jetFile, newFile},
        patience,
        u"Die Datei ist beschädigt und kann nicht übernommen werden. Sie wurde nicht verändert."_s};
    try {
        runTool(task, [&](const QString& word, const QString& text) {
            if (word == kReached)
                progress.Reach(text.toLongLong());
        });
    } catch (const StoreError&) {
        removeFile(newFile);
        throw;
    }
}

void serveJetReading(const QString& jetFile, const QString& newFile) {
    constexpr qint64 kWhole = 100;
    constexpr qint64 kBeat = 500;
    QElapsedTimer silence;
    silence.start();
    qint64 told = -1;
    const auto tell = [&](qint64 done, qint64 total) {
        const qint64 percent = done * kWhole / std::max<qint64>(total, 1);
        if (percent == told && silence.elapsed() < kBeat)
            return;
        tellProgram(kReached, QString::number(percent));
        told = percent;
        silence.restart();
    };
    serveProgram([&] { copyJetFile(jetFile, newFile, tell); });
}

} // namespace kolibri
