#include "core/platform/engine_sandbox.h"

#include <QFileInfo>

#ifdef Q_OS_LINUX
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace kolibri {

bool engineSandboxWorks() {
#ifdef Q_OS_LINUX
    const bool container = qEnvironmentVariableIsSet("container") || QFileInfo::exists(u"/.dockerenv"_s)
                           || QFileInfo::exists(u"/run/.containerenv"_s);
    return geteuid() != 0 && !container;
#else
    return true;
#endif
}

} // namespace kolibri
