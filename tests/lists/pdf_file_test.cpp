#include "core/widgets/application.h"
#include "lists/pdf_file.h"
#include "support/test_base.h"

#include <QDir>
#include <QFile>
#include <QTest>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

using namespace Qt::StringLiterals;
using namespace kolibri;

class PdfFileTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    QString place() const { return scratch() + u"/liste.pdf"_s; }

    void write(const QByteArray& bytes) const {
        QFile file(place());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    QByteArray bytes() const {
        QFile file(place());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QString asksToReplace() const {
        return u"Die Datei %1 gibt es schon. Soll sie ersetzt werden?"_s.arg(
            QDir::toNativeSeparators(place()));
    }

private Q_SLOTS:
    void givingUpChoosesNothing() {
        QCOMPARE(choosePdfFile(scratch() + u"/vorschlag.pdf"_s), QString());
        QCOMPARE(doorsOfTest.dialogs(), QStringList{u"Als PDF speichern"_s});
        QCOMPARE(doorsOfTest.suggestions(), QStringList{scratch() + u"/vorschlag.pdf"_s});
    }

    void aNameWithoutAnEndingGetsOne() {
        doorsOfTest.answerPath(scratch() + u"/Liste 20.11.2026"_s);
        QCOMPARE(choosePdfFile({}), scratch() + u"/Liste 20.11.2026.pdf"_s);
        doorsOfTest.answerPath(scratch() + u"/LISTE.PDF"_s);
        QCOMPARE(choosePdfFile({}), scratch() + u"/LISTE.PDF"_s);
    }

    void aFileThatIsThereIsReplacedOnlyWhenTheUserSaysSo() {
        write("alt");
        doorsOfTest.answerPath(place());
        doorsOfTest.expect(asksToReplace(), kAnswerYes);
        QCOMPARE(choosePdfFile({}), place());
        QCOMPARE(doorsOfTest.boxes().back().code, 292);
    }

    void whoDoesNotReplaceChoosesAgain() {
        write("alt");
        doorsOfTest.answerPath(place());
        doorsOfTest.expect(asksToReplace(), kAnswerNo);
        doorsOfTest.answerPath(scratch() + u"/neu.pdf"_s);
        QCOMPARE(choosePdfFile(scratch() + u"/vorschlag.pdf"_s), scratch() + u"/neu.pdf"_s);
        QCOMPARE(doorsOfTest.suggestions().last(), place());
    }

    void theFileIsWritten() {
        write("alt");
        savePdf(place(), "neu");
        QCOMPARE(bytes(), "neu");
    }

    void aFolderThatIsNotThereIsSaidInWords() {
        const QString file = scratch() + u"/fehlt/liste.pdf"_s;
        doorsOfTest.expectBeginning(
            u"Die Datei %1 kann nicht geschrieben werden."_s.arg(QDir::toNativeSeparators(file)));
        savePdf(file, "neu");
        QVERIFY(!QFile::exists(file));
    }

#ifdef Q_OS_UNIX
    void aDiskWithoutRoomLeavesTheOldFile() {
        write("alt");
        rlimit before{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        rlimit small = before;
        small.rlim_cur = 20'000;
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
        doorsOfTest.expectBeginning(u"Die Datei "_s);
        savePdf(place(), QByteArray(100'000, 'x'));
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
        QCOMPARE(bytes(), "alt");
        QCOMPARE(QDir(scratch()).entryList(QDir::Files), QStringList{u"liste.pdf"_s});
    }
#endif
};

KOLIBRI_TEST_MAIN(PdfFileTest)
#include "pdf_file_test.moc"
