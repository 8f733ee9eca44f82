#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "support/expected_page.h"
#include "support/test_base.h"

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;
using namespace kolibri;
using kolibri::test::bodyLines;
using kolibri::test::pageBytes;

namespace {

const QByteArray kOldPage = "the page of before";

void writeOldPage() {
    QFile file(pageFile());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(kOldPage) == kOldPage.size());
}

void change(const FieldValues& values, const QString& key) {
    const DbSession session(u"Test"_s);
    Global().Conn.Change(u"Einstellungen"_s, values, u"Feld = ?"_s, {key});
}

void addModule(int id, const QString& name) {
    const DbSession session(u"Test"_s);
    Global().Conn.AddNew(u"Bausteine"_s).Set(u"ID"_s, id).Set(u"Bausteine"_s, name).Update();
}

void produce(quint8 listenArt) {
    prepareList(listenArt);
    producePage();
}

/// The message of a page that cannot be made; empty when it can.
QString failureOfPage() {
    try {
        producePage();
    } catch (const RuntimeError& error) {
        return error.message();
    } catch (const StoreError& error) {
        return error.message();
    }
    return {};
}

QString failureOf(quint8 listenArt) {
    prepareList(listenArt);
    return failureOfPage();
}

#ifdef Q_OS_UNIX
/// The administrator may write anywhere; for the length of a block the program has an ordinary user's rights.
class OrdinaryUser {
public:
    OrdinaryUser() {
        constexpr uid_t kNobody = 65534;
        if (m_administrator)
            QCOMPARE(seteuid(kNobody), 0);
    }
    ~OrdinaryUser() {
        if (m_administrator)
            QCOMPARE(seteuid(0), 0);
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    const bool m_administrator = geteuid() == 0;
};
#endif

} // namespace

class PageProductionTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void thePageLiesInTheProgramsDataFolder() { QCOMPARE(pageFile(), home() + u"/ProgramData/mog.html"_s); }

    void everyLineEndsWithCarriageReturnAndLineFeed() {
        useEmptyDatabase();
        produce(kBausteine);
        const QByteArray page = pageBytes();
        QVERIFY(page.endsWith("</HTML>\r\n"));
        QCOMPARE(page.count('\n'), page.count("\r\n"));
        QCOMPARE(page.count('\r'), page.count("\r\n"));
    }

    void anUmlautIsOneByteAndNoEntity() {
        useEmptyDatabase();
        addModule(1, u"Frühdienst ß"_s);
        produce(kBausteine);
        QVERIFY(pageBytes().contains(">Fr\xFChdienst \xDF</TD>\r\n"));
    }

    void aCharacterOfTheCodePageIsOneByte() {
        useEmptyDatabase();
        addModule(1, u"5 € – „ja“"_s);
        produce(kBausteine);
        QVERIFY(pageBytes().contains(">5 \x80 \x96 \x84ja\x93</TD>\r\n"));
    }

    void aCharacterOutsideTheCodePageBecomesADecimalReference() {
        useEmptyDatabase();
        addModule(1, u"Michał Çelik 😀"_s);
        produce(kBausteine);
        QVERIFY(pageBytes().contains(">Micha&#322; \xC7"
                                     "elik &#128512;</TD>\r\n"));
    }

    void markupFromTheDataReachesThePageAsMarkup() {
        useEmptyDatabase();
        addModule(1, u"<b>A & B</b>"_s);
        produce(kBausteine);
        QVERIFY(pageBytes().contains("><b>A & B</b></TD>\r\n"));
    }

    void anEmptyOrganisationYieldsAnEmptyAddressBlock() {
        useEmptyDatabase();
        Global().SchuleStrasse = u"Schulweg 1"_s;
        Global().SchulePLZOrt = u"52062 Aachen"_s;
        produce(kBausteine);
        QCOMPARE(bodyLines().mid(0, 4), QStringList({u"<BODY>"_s, u"<div id=\"kopf_anschrift\">"_s,
                                                     u"</div>"_s, u"<div id=\"kopf_mitte\">"_s}));
        QVERIFY(!pageBytes().contains("Schulweg"));
    }

    void theAddressIsOneLine() {
        useEmptyDatabase();
        Global().SchuleOrganisation = u"OGS Müllerstraße"_s;
        Global().SchuleStrasse = u"Schulweg 1"_s;
        Global().SchulePLZOrt = u"52062 Aachen"_s;
        produce(kBausteine);
        QCOMPARE(bodyLines().value(2), u"OGS Müllerstraße<br />Schulweg 1, 52062 Aachen"_s);
    }

    void aMissingFontRowIsAClearErrorAndTheOldPageStands() {
        useEmptyDatabase();
        writeOldPage();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Delete(u"Einstellungen"_s, u"Feld = 'TabelleSummenZeile'"_s);
        }
        QCOMPARE(failureOf(kBausteine), u"In den Einstellungen fehlt die "
                                        u"Schriftgröße \"TabelleSummenZeile\"."_s);
        QCOMPARE(pageBytes(), kOldPage);
        QVERIFY(!Global().Conn.IsOpen());
    }

    void aFontRowWithoutASizeIsAClearError() {
        useEmptyDatabase();
        writeOldPage();
        change({{u"Grösse"_s, {}}}, u"TabelleZeile"_s);
        QVERIFY(failureOf(kBausteine).contains(u"\"TabelleZeile\""_s));
        QCOMPARE(pageBytes(), kOldPage);
    }

    void aSizeAbove255IsAnOverflowAndTheOldPageStands() {
        useEmptyDatabase();
        change({{u"Grösse"_s, 255}}, u"TabelleZeile"_s);
        QCOMPARE(failureOf(kBausteine), QString());
        QVERIFY(pageBytes().contains("font-size: 255px"));
        writeOldPage();
        for (const int size : {256, -1}) {
            change({{u"Grösse"_s, size}}, u"TabelleZeile"_s);
            QCOMPARE(failureOf(kBausteine), u"Laufzeitfehler '6': Überlauf"_s);
            QCOMPARE(pageBytes(), kOldPage);
        }
    }

    void aSizeThatIsNoNumberIsAClearErrorAndTheOldPageStands() {
        useEmptyDatabase();
        writeOldPage();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Execute(u"UPDATE Einstellungen SET Grösse = 'gross' WHERE Feld = 'TabelleZeile'"_s);
        }
        QCOMPARE(failureOf(kBausteine), u"Laufzeitfehler '13': Typen unverträglich"_s);
        QCOMPARE(pageBytes(), kOldPage);
    }

    void moreThan255TeachingUnitsAreAnOverflowAndTheOldPageStands() {
        useEmptyDatabase();
        writeOldPage();
        {
            const DbSession session(u"Test"_s);
            Transaction transaction(Global().Conn);
            for (int id = 1; id <= 256; ++id)
                Global().Conn.AddNew(u"Unterrichtseinheiten"_s).Set(u"ID"_s, id).Update();
            transaction.Commit();
        }
        QCOMPARE(failureOf(kBausteine), u"Laufzeitfehler '6': Überlauf"_s);
        QCOMPARE(pageBytes(), kOldPage);
    }

    void aListThatDoesNotExistIsAClearErrorAndTheOldPageStands() {
        useEmptyDatabase();
        writeOldPage();
        Global().ListenArt = 250;
        try {
            producePage();
            QFAIL("no error");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.number(), 5);
            QCOMPARE(error.details(), u"Eine Liste mit der Nummer 250 gibt es nicht."_s);
        }
        QCOMPARE(pageBytes(), kOldPage);
    }

    void aFolderThatIsNotThereIsAClearError() {
        useEmptyDatabase();
        QVERIFY(QDir(home() + u"/ProgramData"_s).removeRecursively());
        QCOMPARE(failureOf(kBausteine), u"Laufzeitfehler '75': Fehler beim Zugriff auf Pfad/Datei"_s);
    }

#ifdef Q_OS_UNIX
    void aFolderThatCannotBeWrittenLeavesTheOldPage() {
        useEmptyDatabase();
        writeOldPage();
        prepareList(kBausteine);
        const QString folder = home() + u"/ProgramData"_s;
        const auto mayEnter = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
        QVERIFY(QFile::setPermissions(home(), mayEnter | QFile::WriteOwner));
        QVERIFY(QFile::setPermissions(folder, mayEnter));
        QString failure;
        {
            const OrdinaryUser user;
            failure = failureOfPage();
        }
        QVERIFY(QFile::setPermissions(folder, mayEnter | QFile::WriteOwner));
        QCOMPARE(failure, u"Laufzeitfehler '75': Fehler beim Zugriff auf Pfad/Datei"_s);
        QCOMPARE(pageBytes(), kOldPage);
    }

    void aDiskWithoutRoomLeavesTheOldPage() {
        useEmptyDatabase();
        for (int id = 1; id <= 200; ++id)
            addModule(id, QString(200, u'x'));
        prepareList(kBausteine);
        writeOldPage();
        rlimit before{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        rlimit small = before;
        small.rlim_cur = 20'000;
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
        const QString failure = failureOf(kBausteine);
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
        QCOMPARE(failure, u"Laufzeitfehler '75': Fehler beim Zugriff auf Pfad/Datei"_s);
        QCOMPARE(pageBytes(), kOldPage);
        QCOMPARE(QDir(home() + u"/ProgramData"_s).entryList(QDir::Files), QStringList{u"mog.html"_s});
    }
#endif

    void theHeadingsOfTheDaysFollowTheChosenDay_data() {
        QTest::addColumn<QString>("choice");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        QTest::newRow("MO") << u"MO"_s << u"MONTAG"_s << QString();
        QTest::newRow("DI") << u"DI"_s << u"DIENSTAG"_s << QString();
        QTest::newRow("MI") << u"MI"_s << u"MITTWOCH"_s << QString();
        QTest::newRow("DO") << u"DO"_s << u"DONNERSTAG"_s << QString();
        QTest::newRow("FR") << u"FR"_s << u"FREITAG"_s << QString();
        QTest::newRow("MO/DI") << u"MO/DI"_s << u"MONTAG"_s << u"DIENSTAG"_s;
        QTest::newRow("MI/DO") << u"MI/DO"_s << u"MITTWOCH"_s << u"DONNERSTAG"_s;
        QTest::newRow("none") << QString() << QString() << QString();
        QTest::newRow("other") << u"SA"_s << QString() << QString();
    }
    void theHeadingsOfTheDaysFollowTheChosenDay() {
        QFETCH(const QString, choice);
        QFETCH(const QString, first);
        QFETCH(const QString, second);
        useEmptyDatabase();
        auto& liste = Liste();
        liste.Seite.TagKopf.fill(u"left over"_s);
        liste.Wochenplan.cmbTag = choice;
        produce(kBausteine);
        QCOMPARE(liste.Seite.TagKopf, (std::array<QString, 8>{first, second}));
    }

    void theTeachingUnitsAreCountedForEveryList() {
        useEmptyDatabase();
        {
            const DbSession session(u"Test"_s);
            for (int id = 1; id <= 3; ++id)
                Global().Conn.AddNew(u"Unterrichtseinheiten"_s).Set(u"ID"_s, id).Update();
        }
        produce(kBausteine);
        QCOMPARE(Liste().Seite.AnzahlUE, quint8(3));
    }

    void thePageIsWrittenAnewEachTime() {
        useEmptyDatabase();
        addModule(1, u"Frühdienst"_s);
        produce(kBausteine);
        const QByteArray first = pageBytes();
        addModule(2, u"Spätdienst"_s);
        produce(kBausteine);
        QVERIFY(pageBytes().size() > first.size());
        QCOMPARE(pageBytes().count("</HTML>"), 1);
    }
};

KOLIBRI_TEST_MAIN(PageProductionTest)
#include "page_production_test.moc"
