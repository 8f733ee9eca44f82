#include "calendar/classes.h"
#include "core/klasse_neu.h"
#include "core/widgets/application.h"
#include "support/driving.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class ClassesTest : public TestBase {
    Q_OBJECT

private:
    static void addClass(const QString& klasse) {
        for (int day = 0; day < kSchoolDays; ++day)
            addRow(u"Klassen"_s, {{u"Klasse"_s, klasse}, {u"Tag"_s, TagCode(day)}, {u"Tag_Zahl"_s, day}});
    }

    static bool deleteClass(QString& name) {
        const DbSession session(u"Test"_s);
        return Klasse_Löschen(name);
    }

    static void addPupil(const QString& klasse, bool aktiv) {
        addRow(u"Stammdaten"_s, {{u"SCH_Name"_s, u"Test"_s}, {u"Klasse"_s, klasse}, {u"aktiv"_s, aktiv}});
    }

private Q_SLOTS:
    void aClassWithPupilsStays_data() {
        QTest::addColumn<QList<bool>>("active");
        QTest::addColumn<QString>("message");
        QTest::newRow("one active pupil, singular")
            << QList<bool>{true}
            << u"In dieser Klasse ist noch 1 Schüler vorhanden. Sie müssen vorher diesen Schüler löschen oder dessen Klasse ändern!"_s;
        QTest::newRow("three active pupils, plural")
            << QList<bool>{true, true, true}
            << u"In dieser Klasse sind noch 3 Schüler vorhanden. Sie müssen vorher diese Schüler löschen oder deren Klasse ändern!"_s;
        // The number has always been that of all who hold the class, and the office compares it with its
        // list.
        QTest::newRow("deactivated pupils behind an active one are counted")
            << QList<bool>{true, false}
            << u"In dieser Klasse sind noch 2 Schüler vorhanden. Sie müssen vorher diese Schüler löschen oder deren Klasse ändern!"_s;
    }

    void aClassWithPupilsStays() {
        QFETCH(QList<bool>, active);
        QFETCH(QString, message);
        useEmptyDatabase();
        addClass(u"3a"_s);
        for (const bool aktiv : active)
            addPupil(u"3a"_s, aktiv);
        const auto before = wholeDatabase();
        doorsOfTest.expect(message);
        QString name = u"3a"_s;
        QVERIFY(!deleteClass(name));
        QCOMPARE(name, u"3a"_s);
        QCOMPARE(wholeDatabase(), before);
    }

    void aClassWithOneDeactivatedPupilGoesAndThePupilKeepsItsName() {
        useEmptyDatabase();
        addClass(u"3a"_s);
        addPupil(u"3a"_s, false);
        doorsOfTest.expect(u"Klasse wirklich löschen?"_s, kAnswerYes);
        QString name = u"3a"_s;
        QVERIFY(deleteClass(name));
        QCOMPARE(name, QString());
        QCOMPARE(rowsOf(u"Klassen"_s), QStringList());
        QCOMPARE(columnOf(u"Stammdaten"_s, u"Klasse"_s), QStringList{u"3a"_s});
    }

    /// The office clears a class by deactivating its pupils and relies on the warning as it has always been:
    /// a class that begins with a deactivated pupil is taken for a cleared one, whoever follows.
    void onlyTheFirstPupilDecides() {
        useEmptyDatabase();
        addClass(u"3a"_s);
        addPupil(u"3a"_s, false);
        addPupil(u"3a"_s, true);
        addPupil(u"3a"_s, true);
        doorsOfTest.expect(u"Klasse wirklich löschen?"_s, kAnswerYes);
        QString name = u"3a"_s;
        QVERIFY(deleteClass(name));
        QCOMPARE(rowsOf(u"Klassen"_s), QStringList());
    }

    void deletingTouchesNoOtherTable() {
        useEmptyDatabase();
        addClass(u"3a"_s);
        addClass(u"3b"_s);
        addPupil(u"3a"_s, false);
        addRow(u"Stundenplan"_s, {{u"ID"_s, 0}, {u"Klasse"_s, u"3a"_s}});
        addRow(u"WochenplanTexte"_s, {{u"ID"_s, 0}, {u"Klasse"_s, u"3a"_s}});
        addRow(u"ME_LZ_AG_Notizen"_s, {{u"Klasse"_s, u"A"_s}});
        const auto before = wholeDatabase();
        doorsOfTest.expect(u"Klasse wirklich löschen?"_s, kAnswerYes);
        QString name = u"3a"_s;
        deleteClass(name);
        QCOMPARE(changedTables(before, wholeDatabase()), QStringList{u"Klassen"_s});
        QCOMPARE(columnOf(u"Klassen"_s, u"Klasse"_s), QStringList(5, u"3b"_s));
        QCOMPARE(Global().KlassenListe, QStringList{u"3b"_s});
    }

    void theQuestionCanBeAnsweredWithNo() {
        useEmptyDatabase();
        addClass(u"3a"_s);
        const auto before = wholeDatabase();
        doorsOfTest.expect(u"Klasse wirklich löschen?"_s, kAnswerNo);
        QString name = u"3a"_s;
        QVERIFY(!deleteClass(name));
        QCOMPARE(name, u"3a"_s);
        QCOMPARE(wholeDatabase(), before);
        QCOMPARE(doorsOfTest.boxes().back().code, 20);
        QCOMPARE(doorsOfTest.boxes().back().title, u"Klasse löschen"_s);
    }

    void aClassThatIsNotThereIsTold() {
        useEmptyDatabase();
        doorsOfTest.expect(u"Klasse 9z ist nicht vorhanden!"_s);
        QString name = u"9z"_s;
        QVERIFY(!deleteClass(name));
        QCOMPARE(name, QString());
    }
};

KOLIBRI_TEST_MAIN(ClassesTest)
#include "classes_test.moc"
