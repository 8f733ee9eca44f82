#include "core/mdlAllgemein.h"
#include "core/settings_file.h"
#include "core/widgets/application.h"
#include "support/test_base.h"

#include <QProcess>

using namespace Qt::StringLiterals;
using namespace kolibri;

/// The built executable, as the office starts it.
class MainTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    QString executable() { return QStringLiteral(KOLIBRI_BIN_DIR) + u"/kolibri"_s; }

    void prepare(QProcess& program) {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        environment.insert(u"KOLIBRI_HOME"_s, home());
        // The user's own settings stay out of it.
        environment.insert(u"HOME"_s, scratch());
        environment.insert(u"XDG_CONFIG_HOME"_s, scratch());
        environment.insert(u"QT_LOGGING_RULES"_s, u"kolibri.start.debug=true"_s);
        environment.insert(u"QT_FORCE_STDERR_LOGGING"_s, u"1"_s);
        program.setProcessEnvironment(environment);
        program.setProgram(executable());
        program.setProcessChannelMode(QProcess::MergedChannels);
    }

    /// Reads what the program says until these words come; false when it ends or a minute passes first.
    bool waitFor(QProcess& program, const QByteArray& words) {
        constexpr int kMinute = 60'000;
        while (!m_output.contains(words)) {
            if (!program.waitForReadyRead(kMinute))
                return false;
            m_output += program.readAll();
        }
        return true;
    }

    void stop(QProcess& program) {
        program.terminate();
        QVERIFY(program.waitForFinished());
    }

    /// Memory in use of a running process in MB; 0 where the system does not tell it as Linux does.
    double residentMemory(qint64 process) {
        QFile status(u"/proc/%1/status"_s.arg(process));
        if (!status.open(QIODevice::ReadOnly))
            return 0;
        static const QRegularExpression line(u"VmRSS:\\s+(\\d+) kB"_s);
        return line.match(QString::fromLatin1(status.readAll())).captured(1).toDouble() / 1024;
    }

    QByteArray m_output;

private Q_SLOTS:
    void init() {
        TestBase::init();
        m_output.clear();
    }

    void theProgramComesUpOnASampleSchoolAndStays() {
        useSampleSchool();
        const auto before = kolibri::test::wholeDatabase();
        QProcess program;
        prepare(program);
        QElapsedTimer clock;
        clock.start();
        program.start();
        QVERIFY2(waitFor(program, "Hauptfenster bereit"), m_output.constData());
        const qint64 ready = clock.elapsed();
        const double memory = residentMemory(program.processId());
        qInfo("start to usable main window: %lld ms, memory: %.1f MB", ready, memory);
        constexpr qint64 kVeryLong = 20'000;
        constexpr double kVeryMuch = 500;
        QVERIFY(ready < kVeryLong);
        QVERIFY(memory < kVeryMuch);
        QCOMPARE(program.state(), QProcess::Running);
        stop(program);
        QCOMPARE(readDatabaseFolder(settingsFile()), std::optional(QDir::toNativeSeparators(home())));
        QCOMPARE(kolibri::test::wholeDatabase(), before);
    }

    void twoProgramsCanStandOpenOnOneDatabase() {
        useEmptyDatabase();
        QProcess first;
        QProcess second;
        for (auto* program : {&first, &second}) {
            prepare(*program);
            m_output.clear();
            program->start();
            QVERIFY2(waitFor(*program, "Hauptfenster bereit"), m_output.constData());
        }
        QCOMPARE(first.state(), QProcess::Running);
        stop(first);
        stop(second);
    }
};

KOLIBRI_TEST_MAIN(MainTest)
#include "main_test.moc"
