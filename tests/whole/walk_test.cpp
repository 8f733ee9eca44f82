// The walk through the windows behind run.sh: it leaves what it says, and says no where it could not.

#include "core/widgets/application.h"
#include "support/test_base.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

/// What a walk came to.
struct Run {
    int code = -1;
    QStringList lines;
    QString errors;
};

/// The number in a line such as "Listen als PDF: 29 in /folder".
int numberIn(const QString& line, const QString& folder) {
    static const QRegularExpression form(u"^[^:]+: (\\d+) in (.+)$"_s);
    const auto match = form.match(line);
    return match.captured(2) == folder ? match.captured(1).toInt() : -1;
}

bool showsSomething(const QString& file) {
    const QImage image(file);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != image.pixel(0, 0))
                return true;
    return false;
}

QString pdfText(const QString& file) {
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-layout"_s, file, u"-"_s});
    return reader.waitForFinished() && reader.exitCode() == 0
               ? QString::fromUtf8(reader.readAllStandardOutput())
               : QString();
}

} // namespace

class WalkTest : public TestBase {
    Q_OBJECT

private:
    QString out() const { return scratch() + u"/bilder"_s; }

    Run walk() const {
        constexpr int kPatience = 150000;
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"KOLIBRI_HOME"_s, home());
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(KOLIBRI_BIN_DIR "/kolibri-rundgang"), {out()});
        if (!process.waitForFinished(kPatience) || process.exitStatus() != QProcess::NormalExit)
            return {};
        return {process.exitCode(),
                QString::fromUtf8(process.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts),
                QString::fromUtf8(process.readAllStandardError())};
    }

    QStringList files(const QString& ending) const { return QDir(out()).entryList({u"*."_s + ending}); }

private Q_SLOTS:
    void leavesThePicturesAndListsThatItSays() {
        constexpr int kPupils = 320;
        useSampleSchool(kPupils);
        const Run run = walk();
        QVERIFY2(run.code == 0, qPrintable(run.errors));
        QCOMPARE(run.lines.size(), 3);
        QCOMPARE(numberIn(run.lines.at(0), out()), files(u"png"_s).size());
        QCOMPARE(numberIn(run.lines.at(1), out()), files(u"pdf"_s).size());
        for (const auto& name : files(u"png"_s))
            QVERIFY2(showsSomething(QDir(out()).filePath(name)), qPrintable(name));
        for (const auto& name : files(u"pdf"_s))
            QVERIFY2(!pdfText(QDir(out()).filePath(name)).trimmed().isEmpty(), qPrintable(name));

        // The lunch that was entered, given to a girl and corrected on the way.
        const QString sheet = pdfText(out() + u"/liste-stammdatenblatt.pdf"_s);
        QVERIFY2(sheet.contains(u"12:30 - 13:15 ME4"_s), qPrintable(sheet));
        QVERIFY(pdfText(out() + u"/liste-mensa-einheit.pdf"_s).contains(u"12:30 - 13:15 ME4"_s));
    }

    void saysNoWhereThereIsNoDatabase() {
        const Run run = walk();
        QVERIFY(run.code > 0);
        QCOMPARE(run.lines, QStringList());
        QVERIFY2(run.errors.contains(u"there is no database"_s), qPrintable(run.errors));
    }

    void saysNoWhereAPictureCannotBeWritten() {
        constexpr int kPupils = 40;
        useSampleSchool(kPupils);
        QVERIFY(QDir().mkpath(out() + u"/hauptfenster.png"_s));
        const Run run = walk();
        QVERIFY(run.code > 0);
        QCOMPARE(run.lines, QStringList());
        QVERIFY2(run.errors.contains(u"hauptfenster.png"_s), qPrintable(run.errors));
    }
};

KOLIBRI_TEST_MAIN(WalkTest)
#include "walk_test.moc"
