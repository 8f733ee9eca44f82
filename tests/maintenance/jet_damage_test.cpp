#include "core/mdlAllgemein.h"
#include "core/store/connection.h"
#include "core/widgets/application.h"
#include "maintenance/jet_takeover.h"
#include "support/fixtures.h"
#include "support/test_base.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

constexpr int kPage = 4096;

/// An old file with damage of the given kind: cut off, bytes overwritten anywhere, pages swapped, or bytes
/// overwritten where the file describes its tables or keeps its rows.
QByteArray mutated(QByteArray file, int kind, quint32 seed) {
    QRandomGenerator random(seed);
    const int pages = static_cast<int>(file.size()) / kPage;
    const auto page = [&] { return 1 + random.bounded(pages - 1); };
    const auto pageOfType = [&](char type) {
        int candidate = page();
        while (file.at(qsizetype(candidate) * kPage) != type)
            candidate = page();
        return candidate;
    };
    const auto overwrite = [&](qsizetype place) { file[place] = static_cast<char>(random.bounded(256)); };
    const int times = 1 << random.bounded(8);
    constexpr char kRows = 1;
    constexpr char kDescription = 2;
    switch (kind) {
    case 0:
        return file.first(qsizetype(page()) * kPage + (random.bounded(4) == 0 ? random.bounded(kPage) : 0));
    case 1:
        for (int i = 0; i < times; ++i)
            overwrite(random.bounded(kPage, static_cast<int>(file.size())));
        return file;
    case 2: {
        const qsizetype one = qsizetype(page()) * kPage;
        const qsizetype other = qsizetype(page()) * kPage;
        const QByteArray content = file.sliced(one, kPage);
        return file.replace(one, kPage, file.sliced(other, kPage)).replace(other, kPage, content);
    }
    case 3:
        for (int i = 0; i < times; ++i)
            overwrite(qsizetype(pageOfType(kDescription)) * kPage + random.bounded(4, 600));
        return file;
    default:
        for (int i = 0; i < times; ++i)
            overwrite(qsizetype(pageOfType(kRows)) * kPage + random.bounded(kPage));
        return file;
    }
}

} // namespace

/// Three hundred damaged files of an older program version: each is taken over or refused in words, within
/// the given patience, and a refused one is as it was.
class JetDamageTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void damagedFilesNeverCrash_data() {
        QTest::addColumn<int>("kind");
        QTest::newRow("cut off") << 0;
        QTest::newRow("overwritten") << 1;
        QTest::newRow("swapped pages") << 2;
        QTest::newRow("damaged descriptions") << 3;
        QTest::newRow("damaged rows") << 4;
    }

    void damagedFilesNeverCrash() {
        QFETCH(int, kind);
        constexpr quint32 kFiles = 60;
        const TakeoverOptions options{.tool = QStringLiteral(KOLIBRI_BIN_DIR) + u"/kolibri-db"_s,
                                      .patience = 2000,
                                      .protocolFolder = scratch()};
        const QList<QByteArray> sound{fixture(u"jet/alt/KOLIBRI_Daten.mdb"_s),
                                      fixture(u"jet/uralt/KOLIBRI_Daten.mdb"_s)};
        const QString file = DatenbankDatei(home());
        int refused = 0;
        for (quint32 seed = 0; seed < kFiles; ++seed) {
            const QByteArray content = mutated(sound.at(seed % 2), kind, seed);
            writeFile(file, content);
            try {
                takeOver(file, home(), options);
                Connection conn;
                conn.OpenFile(file);
                QCOMPARE(conn.IntegrityProblems(), QStringList());
                QVERIFY(QFile::remove(home() + u"/KOLIBRI_Daten-alt.mdb"_s));
            } catch (const StoreError& error) {
                ++refused;
                QVERIFY(!error.message().isEmpty());
                QCOMPARE(fileContent(file), content);
            }
            QCOMPARE(QDir(home()).entryList(QDir::Files), QStringList{kDatabaseName});
        }
        QVERIFY2(refused > 0, "the damage shows nowhere");
    }
};

KOLIBRI_TEST_MAIN(JetDamageTest)
#include "jet_damage_test.moc"
