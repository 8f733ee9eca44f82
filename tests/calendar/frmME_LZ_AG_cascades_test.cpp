// Corrections and deletions through the form: a workstation that dies at any statement, a number of pupils
// that the program does not hold, a database that refuses.

#include "calendar/frmME_LZ_AG.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "support/cascade_school.h"
#include "support/driving.h"
#include "support/expected_state.h"
#include "support/probe.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kOutOfRange = u"Laufzeitfehler '9': Index außerhalb des gültigen Bereichs"_s;

QString box(int i) {
    return u"txtME_LZ_AG(%1)"_s.arg(i);
}

} // namespace

class FrmME_LZ_AGCascadesTest : public TestBase {
    Q_OBJECT

private:
    void useSchool(bool groups) {
        useEmptyDatabase();
        groups ? makeGroupSchool() : makeCareSchool();
        addRow(u"Unterrichtseinheiten"_s, {{u"ID"_s, 0}, {u"Zeit"_s, kUnit}, {u"Sort_NR"_s, 1}});
    }

    static FormWindow& openForm(const QString& mode) {
        auto& form = Form<frmME_LZ_AG>();
        form.hide();
        form.Tag = mode;
        if (!shown(form))
            qFatal("the form is not active");
        return form;
    }

    /// Clicks the row with this ID, types into the boxes and presses the button; an error may be expected.
    void change(FormWindow& form, int id, const QStringList& typed, const QString& error = {}) {
        auto& list = control<ListView>(form, u"lvwME_LZ_AG"_s);
        clickRow(list, list.rowOfKey(u"A%1"_s.arg(id, 4, 10, QChar(u'0'))));
        for (const auto& each : typed)
            type(form, box(each.section(u'=', 0, 0).toInt()), each.section(u'=', 1));
        if (form.Tag.endsWith(u"Löschen"_s))
            doorsOfTest.expect(u"Wollen Sie die Daten wirklich löschen?"_s, kAnswerYes);
        if (!error.isEmpty())
            doorsOfTest.expect(error);
        press(form);
    }

    static void addPupils(int count, const QString& column, const QString& key) {
        const DbSession session(u"Test"_s);
        Transaction transaction(Global().Conn);
        for (int i = 0; i < count; ++i)
            Global().Conn.AddNew(u"Stammdaten"_s).Set(u"SCH_Name"_s, u"Kind"_s).Set(column, key).Update();
        transaction.Commit();
    }

private Q_SLOTS:
    void aDeathAtAnyStatementLeavesTheOldStateAndTheNextTrySucceeds_data() {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<int>("id");
        QTest::addColumn<QStringList>("typed");
        const QStringList newTime{u"3=13:15"_s, u"4=14:00"_s};
        QTest::newRow("correcting a Mensa") << u"MensaKorrektur"_s << 1 << newTime;
        QTest::newRow("correcting a Lernzeit") << u"LernzeitKorrektur"_s << 1 << newTime;
        QTest::newRow("moving a group") << u"ArbeitsgruppeKorrektur"_s << 1 << QStringList{u"2=DI"_s};
        QTest::newRow("deleting a Mensa") << u"MensaLöschen"_s << 1 << QStringList();
        QTest::newRow("deleting a Lernzeit") << u"LernzeitLöschen"_s << 1 << QStringList();
        QTest::newRow("deleting a group") << u"ArbeitsgruppeLöschen"_s << 1 << QStringList();
    }

    void aDeathAtAnyStatementLeavesTheOldStateAndTheNextTrySucceeds() {
        QFETCH(const QString, mode);
        QFETCH(const int, id);
        QFETCH(const QStringList, typed);
        useSchool(mode.startsWith(u"Arbeitsgruppe"_s));
        const QString file = DatenbankDatei(home());
        const QString kept = scratch() + u"/vorher.mdb"_s;
        QVERIFY(QFile::copy(file, kept));
        const auto before = wholeDatabase();
        auto& form = openForm(mode);
        change(form, id, typed);
        const auto after = wholeDatabase();
        QVERIFY(changedTables(before, after).size() >= 4);

        QStringList statements;
        for (int number = 1;; ++number) {
            form.hide();
            QVERIFY(QFile::remove(file) && QFile::copy(kept, file));
            Probe probe(QStringList{home(), mode, QString::number(id), QString::number(number)} + typed, {},
                        u"cascade_probe"_s);
            const QString reached = probe.line();
            if (reached == u"done"_s) {
                QVERIFY(probe.ended());
                break;
            }
            probe.kill();
            statements << reached;
            QCOMPARE(wholeDatabase(), before);
            change(openForm(mode), id, typed);
            QCOMPARE(wholeDatabase(), after);
        }
        QCOMPARE(wholeDatabase(), after);
        // It was there for the beginning, every write and the end.
        QVERIFY2(statements.size() >= 7, qPrintable(statements.join(u'\n')));
        QVERIFY(statements.first().startsWith(u"BEGIN"_s));
        QCOMPARE(statements.last(), u"COMMIT"_s);
    }

    void aThousandPupilsEndInTheErrorBoxWithTheOldState_data() {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<QString>("column");
        QTest::addColumn<QString>("key");
        QTest::newRow("Mensa") << u"MensaKorrektur"_s << u"GR1_MO"_s << kMe2;
        QTest::newRow("group") << u"ArbeitsgruppeKorrektur"_s << u"GR5_MO"_s << kTanz;
        QTest::newRow("deleted group") << u"ArbeitsgruppeLöschen"_s << u"GR7_MO"_s << kTanz;
    }

    void aThousandPupilsEndInTheErrorBoxWithTheOldState() {
        QFETCH(const QString, mode);
        QFETCH(const QString, column);
        QFETCH(const QString, key);
        useSchool(mode.startsWith(u"Arbeitsgruppe"_s));
        addPupils(1000 - columnOf(u"Stammdaten"_s, column).count(key), column, key);
        const QStringList typed = mode.endsWith(u"Korrektur"_s) ? QStringList{u"3=12:15"_s} : QStringList();
        auto& form = openForm(mode);
        const ExpectedState before;
        change(form, 3, typed, kOutOfRange);
        COMPARE_STATE(before);
        QCOMPARE(textOf(form, box(0)), key.section(u' ', -1));
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Delete(u"Stammdaten"_s, u"ID = (SELECT MAX(ID) FROM Stammdaten)"_s);
        }
        if (mode.endsWith(u"Löschen"_s))
            doorsOfTest.expect(u"Wollen Sie die Daten wirklich löschen?"_s, kAnswerYes);
        press(form);
        QCOMPARE(columnOf(u"Stammdaten"_s, column).count(key), 0);
        QCOMPARE(textOf(form, box(0)), QString());
    }
};

KOLIBRI_TEST_MAIN(FrmME_LZ_AGCascadesTest)
#include "frmME_LZ_AG_cascades_test.moc"
