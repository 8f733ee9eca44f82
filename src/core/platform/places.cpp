#include "core/platform/places.h"

#include <QDir>
#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace kolibri {

QString baseFolder() {
#ifdef Q_OS_WIN
    return u"C:/Kolibri"_s;
#else
    const QString set = qEnvironmentVariable("KOLIBRI_HOME");
    return set.isEmpty() ? QDir::home().filePath(u"Kolibri"_s) : QDir::cleanPath(set);
#endif
}

QString programDataFolder() {
    return baseFolder() + u"/ProgramData"_s;
}

QString computerName() {
    const QString set = qEnvironmentVariable("ComputerName");
    return set.isEmpty() ? QSysInfo::machineHostName() : set;
}

} // namespace kolibri
