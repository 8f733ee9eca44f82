#include "core/store/store_error.h"
#include "core/widgets/application.h"
#include "maintenance/jet_header.h"
#include "maintenance/new_database.h"
#include "support/fixtures.h"
#include "support/jet_cipher.h"
#include "support/test_base.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

/// Recognising the database of an older program version, and refusing what cannot be taken over.
class JetHeaderTest : public TestBase {
    Q_OBJECT

private:
    /// The words with which a file of this content is refused; empty when it is not.
    QString refusal(const QByteArray& content, StoreError::Kind kind = StoreError::Kind::Foreign) {
        const QString file = scratch() + u"/alt.mdb"_s;
        writeFile(file, content);
        try {
            checkJetFile(file);
        } catch (const StoreError& error) {
            return error.kind() == kind ? error.message() : u"wrong kind: "_s + error.message();
        }
        return {};
    }

private Q_SLOTS:
    void theOldFilesAreRecognised_data() {
        QTest::addColumn<QString>("name");
        for (const auto* name : {"alt", "uralt", "neu"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void theOldFilesAreRecognised() {
        QFETCH(QString, name);
        const QByteArray content = fixture(u"jet/%1/KOLIBRI_Daten.mdb"_s.arg(name));
        const JetHeader header(content);
        QVERIFY(header.isJet());
        QVERIFY(header.isJet4());
        QVERIFY(!header.isEncrypted());
        QVERIFY(!header.hasPassword());
        QCOMPARE(header.pageSize(), 4096);
        QCOMPARE(refusal(content), QString());
    }

    void otherFilesAreNone() {
        QVERIFY(!JetHeader(QByteArray()).isJet());
        QVERIFY(!JetHeader(QByteArray(5000, '\0')).isJet());
        QVERIFY(!JetHeader(QByteArray("\0\1\0\0Standard Jet DB\0", 20)).isJet());
        QVERIFY(!JetHeader(QByteArray("\0\1\0\0Standard ACE DB\0\2", 21).leftJustified(4096, '\0')).isJet());
        QVERIFY(!JetHeader::ofFile(scratch() + u"/fehlt"_s).isJet());
        useEmptyDatabase();
        QVERIFY(!JetHeader::ofFile(createDatabase(scratch())).isJet());
    }

    void theOlderOfTheTwoFormatsIsRecognised() {
        QByteArray content = fixture(u"jet/alt/KOLIBRI_Daten.mdb"_s);
        content[0x14] = '\0';
        const JetHeader header(content);
        QVERIFY(header.isKnownVersion());
        QVERIFY(!header.isJet4());
        QCOMPARE(header.pageSize(), 2048);
    }

    void aLaterFormatIsRefused() {
        QByteArray content = fixture(u"jet/alt/KOLIBRI_Daten.mdb"_s);
        content[0x14] = '\2';
        QVERIFY(refusal(content).contains(u"hat ein Format, das nicht übernommen werden kann."_s));
    }

    void anEncryptedFileIsRefused() {
        const QByteArray content = encrypted(fixture(u"jet/alt/KOLIBRI_Daten.mdb"_s), 0x1234abcd);
        QVERIFY(JetHeader(content).isEncrypted());
        QVERIFY(refusal(content).contains(u"ist verschlüsselt."_s));
    }

    void aFileWithAPasswordIsRefused() {
        const QByteArray content = withPassword(fixture(u"jet/alt/KOLIBRI_Daten.mdb"_s), u"geheim"_s);
        QVERIFY(!JetHeader(content).isEncrypted());
        QVERIFY(JetHeader(content).hasPassword());
        QVERIFY(refusal(content).contains(u"ist mit einem Kennwort geschützt."_s));
    }

    void aFileCutWithinAPageIsRefused() {
        const QByteArray content = fixture(u"jet/alt/KOLIBRI_Daten.mdb"_s);
        for (const qsizetype size : {qsizetype(300), qsizetype(4095), content.size() - 1})
            QVERIFY(refusal(content.first(size), StoreError::Kind::Damaged).contains(u"ist unvollständig"_s));
    }

    void whatIsNoOldFileIsRefused() {
        QVERIFY(refusal("Das ist keine Datenbank.").contains(u"ist keine Datenbank einer älteren"_s));
        QVERIFY(refusal({}).contains(u"ist keine Datenbank einer älteren"_s));
        try {
            checkJetFile(scratch() + u"/fehlt.mdb"_s);
            QFAIL("no error");
        } catch (const StoreError& error) {
            QCOMPARE(error.kind(), StoreError::Kind::Missing);
        }
    }
};

KOLIBRI_TEST_MAIN(JetHeaderTest)
#include "jet_header_test.moc"
