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
    static QString newClass(QString name) {
        const DbSession session(u"Test"_s);
        Klasse_Neu(name);
        return name;
    }

    static bool deleteClass(QString& name) {
        const DbSession session(u"Test"_s);
        return Klasse_Löschen(name);
    }

    static void addPupil(const QString& klasse, bool aktiv) {
        addRow(u"Stammdaten"_s, {{u"SCH_Name"_s, u"Test"_s}, {u"Klasse"_s, klasse}, {u"aktiv"_s, aktiv}});
    }

private Q_SLOTS:
    void aNewClassYieldsFiveRowsWithGradeAndLetter() {
        useEmptyDatabase();
        const auto before = wholeDatabase();
        doorsOfTest.expect(u"Die Klasse 3a wurde erstellt!"_s);
        QCOMPARE(newClass(u"3a"_s), QString());
        const QString row = u"ID=%1; Klasse=3a; Tag=%2; Tag_Zahl=%3; Unterrichtsbeginn=<null>; "
                            "Unterrichtsende=<null>; UnterrichtsbeginnNM=<null>; UnterrichtsendeNM=<null>; "
                            "Schulstufe=3; KlassenNR=a"_s;
        QStringList expected;
        for (int day = 0; day < kSchoolDays; ++day)
            expected << row.arg(day + 1).arg(TagCode(day)).arg(day);
        QCOMPARE(rowsOf(u"Klassen"_s), expected);
        QCOMPARE(changedTables(before, wholeDatabase()), QStringList{u"Klassen"_s});
        QCOMPARE(doorsOfTest.boxes().front().code, 0);
        QCOMPARE(doorsOfTest.boxes().front().title, kProgramTitle);
    }

    void aNameIsSplitIntoGradeAndLetter_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("grade");
        QTest::addColumn<QString>("letter");
        QTest::newRow("two letters") << u"3a"_s << u"3"_s << u"a"_s;
        QTest::newRow("three letters") << u"10a"_s << u"10"_s << u"a"_s;
        QTest::newRow("any two letters") << u"VK"_s << u"V"_s << u"K"_s;
        QTest::newRow("one letter") << u"a"_s << u""_s << u""_s;
        QTest::newRow("four letters") << u"3a/b"_s << u""_s << u""_s;
    }

    void aNameIsSplitIntoGradeAndLetter() {
        QFETCH(QString, name);
        QFETCH(QString, grade);
        QFETCH(QString, letter);
        useEmptyDatabase();
        doorsOfTest.expect(u"Die Klasse "_s + name + u" wurde erstellt!"_s);
        newClass(name);
        QCOMPARE(columnOf(u"Klassen"_s, u"Schulstufe"_s), QStringList(5, grade));
        QCOMPARE(columnOf(u"Klassen"_s, u"KlassenNR"_s), QStringList(5, letter));
    }

    void creatingAClassTwiceAddsNoRows() {
        useEmptyDatabase();
        doorsOfTest.expect(u"Die Klasse 3a wurde erstellt!"_s);
        newClass(u"3a"_s);
        const auto before = wholeDatabase();
        doorsOfTest.expect(u"Klasse 3a ist bereits vorhanden!"_s);
        QCOMPARE(newClass(u"3a"_s), QString());
        QCOMPARE(wholeDatabase(), before);
    }

    void anEmptyNameIsNoClass() {
        useEmptyDatabase();
        const auto before = wholeDatabase();
        doorsOfTest.expect(u"Das Feld 'Klasse' darf nicht leer sein."_s);
        newClass({});
        QCOMPARE(wholeDatabase(), before);
    }

    void theSharedListsKnowTheNewClass() {
        useEmptyDatabase();
        doorsOfTest.expect(u"Die Klasse 10b wurde erstellt!"_s);
        newClass(u"10b"_s);
        QCOMPARE(Global().KlassenListe, QStringList{u"10b"_s});
        QCOMPARE(Global().SchulstufenListe, QStringList{u"10"_s});
        QCOMPARE(Global().KlassenNRListe, QStringList{u"b"_s});
    }

    void aNameWithAnApostropheIsRefusedByTheStore() {
        useEmptyDatabase();
        const auto before = wholeDatabase();
        QVERIFY_THROWS_EXCEPTION(StoreError, newClass(u"3'a"_s));
        QCOMPARE(wholeDatabase(), before);
    }

    void aClassWithPupilsStays_data() {
        QTest::addColumn<QList<bool>>("active");
        QTest::addColumn<QString>("message");
        QTest::newRow("one active pupil, singular")
            << QList<bool>{true}
            << u"In dieser Klasse ist noch 1 Schüler vorhanden. Sie müssen vorher diesen Schüler löschen oder dessen Klasse ändern!"_s;
        QTest::newRow("three active pupils, plural")
            << QList<bool>{true, true, true}
            << u"In dieser Klasse sind noch 3 Schüler vorhanden. Sie müssen vorher diese Schüler löschen oder deren Klasse ändern!"_s;
        QTest::newRow("deactivated pupils behind an active one are counted")
            << QList<bool>{true, false}
            << u"In dieser Klasse sind noch 2 Schüler vorhanden. Sie müssen vorher diese Schüler löschen oder deren Klasse ändern!"_s;
    }

    void aClassWithPupilsStays() {
        QFETCH(QList<bool>, active);
        QFETCH(QString, message);
        useEmptyDatabase();
        doorsOfTest.expect(u"Die Klasse 3a wurde erstellt!"_s);
        newClass(u"3a"_s);
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
        doorsOfTest.expect(u"Die Klasse 3a wurde erstellt!"_s);
        newClass(u"3a"_s);
        addPupil(u"3a"_s, false);
        doorsOfTest.expect(u"Klasse wirklich löschen?"_s, kAnswerYes);
        QString name = u"3a"_s;
        QVERIFY(deleteClass(name));
        QCOMPARE(name, QString());
        QCOMPARE(rowsOf(u"Klassen"_s), QStringList());
        QCOMPARE(columnOf(u"Stammdaten"_s, u"Klasse"_s), QStringList{u"3a"_s});
    }

    void onlyTheFirstPupilDecides() {
        useEmptyDatabase();
        doorsOfTest.expect(u"Die Klasse 3a wurde erstellt!"_s);
        newClass(u"3a"_s);
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
        doorsOfTest.expect(u"Die Klasse 3a wurde erstellt!"_s);
        doorsOfTest.expect(u"Die Klasse 3b wurde erstellt!"_s);
        newClass(u"3a"_s);
        newClass(u"3b"_s);
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
        doorsOfTest.expect(u"Die Klasse 3a wurde erstellt!"_s);
        newClass(u"3a"_s);
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
