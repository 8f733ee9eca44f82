#include "web/request_guard.h"

#include <QCoreApplication>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;
using namespace kolibri;

/// What a page may ask for.
class RequestGuardTest : public QObject {
    Q_OBJECT

private:
    RequestGuard m_guard;

private Q_SLOTS:
    void init() { m_guard.allow(u"/k/ProgramData/mog.html"_s, u"/k/ProgramData"_s); }

    void onlyTheShownFileIsAPage_data() {
        QTest::addColumn<QString>("address");
        QTest::addColumn<bool>("allowed");
        QTest::newRow("the page") << u"file:///k/ProgramData/mog.html"_s << true;
        QTest::newRow("with a mark") << u"file:///k/ProgramData/mog.html#unten"_s << true;
        QTest::newRow("by a detour") << u"file:///k/ProgramData/../ProgramData/mog.html"_s << true;
        QTest::newRow("beside it") << u"file:///k/ProgramData/einstellungen.txt"_s << false;
        QTest::newRow("on another machine") << u"file://server/k/ProgramData/mog.html"_s << false;
        QTest::newRow("web") << u"http://localhost/k/ProgramData/mog.html"_s << false;
        QTest::newRow("data") << u"data:text/html,x"_s << false;
        QTest::newRow("nothing") << QString() << false;
    }
    void onlyTheShownFileIsAPage() {
        QFETCH(const QString, address);
        QFETCH(const bool, allowed);
        QCOMPARE(m_guard.isAllowedPage(QUrl(address)), allowed);
    }

    void picturesLieBesideThePageOrTheProgram_data() {
        QTest::addColumn<QString>("address");
        QTest::addColumn<bool>("allowed");
        const QString program = QUrl::fromLocalFile(QCoreApplication::applicationDirPath()).toString();
        QTest::newRow("beside the page") << u"file:///k/ProgramData/grafik.png"_s << true;
        QTest::newRow("beside the program") << program + u"/OK.png"_s << true;
        QTest::newRow("installed") << program + u"/../share/kolibri/OK.png"_s << true;
        QTest::newRow("below") << u"file:///k/ProgramData/x/grafik.png"_s << false;
        QTest::newRow("above") << u"file:///k/ProgramData/../grafik.png"_s << false;
        QTest::newRow("elsewhere") << u"file:///home/user/foto.png"_s << false;
        QTest::newRow("on another machine") << u"file://server/k/ProgramData/grafik.png"_s << false;
        QTest::newRow("web") << u"https://example.org/OK.png"_s << false;
    }
    void picturesLieBesideThePageOrTheProgram() {
        QFETCH(const QString, address);
        QFETCH(const bool, allowed);
        QCOMPARE(m_guard.isAllowedPicture(QUrl(address)), allowed);
    }
};

QTEST_MAIN(RequestGuardTest)
#include "request_guard_test.moc"
