#include "core/settings_file.h"

#include "core/platform/places.h"
#include "core/runtime_error.h"
#include "core/windows1252.h"

#include <QFile>
#include <QRegularExpression>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kKey = u"Datenbankpfad"_s;

bool isFolderLine(const QString& line) {
    return line.startsWith(kKey) && line.size() > kKey.size()
           && (line.at(kKey.size()) == u';' || line.at(kKey.size()) == u'=');
}

[[noreturn]] void fail(const QFileDevice& file) {
    throw RuntimeError::fileAccess(file.fileName() + u": "_s + file.errorString());
}

} // namespace

std::optional<QString> readDatabaseFolder(const QString& name) {
    QFile file(name);
    if (!file.exists())
        return std::nullopt;
    if (!file.open(QIODevice::ReadOnly))
        fail(file);
    QString folder;
    static const QRegularExpression lineEnd(u"\r\n|\r|\n"_s);
    for (const QString& line : fromTextFile(file.readAll()).split(lineEnd))
        if (isFolderLine(line))
            folder = line.sliced(kKey.size() + 1);
    return folder;
}

void writeDatabaseFolder(const QString& name, const QString& folder) {
    QSaveFile file(name);
    const QByteArray content = toTextFile(kKey + u';' + folder + u"\r\n"_s);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
        fail(file);
}

QString settingsFile() {
    return programDataFolder() + u'/' + kSettingsFileName;
}

} // namespace kolibri
