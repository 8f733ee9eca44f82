#include "core/platform/engine_sandbox.h"

#include <QTest>

#ifdef Q_OS_LINUX
#include <unistd.h>
#endif

using namespace kolibri;

/// Where the browser engine can shut its processes off.
class EngineSandboxTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
#ifdef Q_OS_LINUX
    void notForTheAdministrator() {
        if (geteuid() != 0)
            QSKIP("run by an ordinary user");
        QVERIFY(!engineSandboxWorks());
    }

    void notInAContainer() {
        const QByteArray before = qgetenv("container");
        qputenv("container", "oci");
        const bool works = engineSandboxWorks();
        if (before.isEmpty())
            qunsetenv("container");
        else
            qputenv("container", before);
        QVERIFY(!works);
    }
#else
    void itWorks() {
        QVERIFY(engineSandboxWorks());
    }
#endif
};

QTEST_GUILESS_MAIN(EngineSandboxTest)
#include "engine_sandbox_test.moc"
