#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "maintenance/school_year.h"
#include "support/test_base.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

using Row = QMap<QString, QString>;
using School = QMap<QString, QList<Row>>;

const QString kDone = u"Die Änderung wurde durchgeführt!"_s;
const QString kFailed = u"Fehler beim Ändern der Daten in der Datenbank!"_s;

QString question(int grade) {
    return u"Wechsel Schuljahr wirklich durchführen? Es werden alle Schüler/Schülerinnen der %1. Klasse "
           "gelöscht. Bei allen anderen Schüler/Schülerinnen wird die Schulstufe um 1 erhöht. Die Änderung "
           "kann nicht mehr rückgängi gemacht werden!"_s.arg(grade);
}

School content() {
    School result;
    const DbSession session(u"Vergleich"_s);
    for (const auto& table : Global().Conn.Tables())
        for (Recordset rs = Global().Conn.Open(u"SELECT * FROM "_s + table); !rs.Eof(); rs.MoveNext()) {
            Row row;
            for (int i = 0; i < rs.FieldCount(); ++i)
                row.insert(rs.FieldName(i), rs.Value(i).isNull() ? u"<null>"_s : rs.Text(i));
            result[table] << row;
        }
    return result;
}

/// What the change must make of a school, told pupil by pupil.
School expected(School school, int highest) {
    QSet<QString> leaving;
    QSet<QString> letters;
    for (const auto& pupil : school[u"Stammdaten"_s])
        if (pupil[u"Schulstufe"_s] == QString::number(highest))
            leaving << pupil[u"ID"_s];
        else
            letters << pupil[u"Kl_Nr"_s];
    school[u"Stammdaten"_s].removeIf([&](const Row& pupil) { return leaving.contains(pupil[u"ID"_s]); });
    school[u"SCH_Notiz"_s].removeIf([&](const Row& note) { return leaving.contains(note[u"SCH_ID"_s]); });
    for (auto& pupil : school[u"Stammdaten"_s]) {
        bool isNumber = false;
        const int grade = pupil[u"Schulstufe"_s].toInt(&isNumber);
        if (isNumber && grade > 0)
            pupil[u"Neu"_s] = u"Falsch"_s;
        if (isNumber && grade >= 0 && grade < highest)
            pupil[u"Schulstufe"_s] = QString::number(grade + 1);
        const QString letter = pupil[u"Klasse"_s].right(1);
        const QString number = pupil[u"Klasse"_s].chopped(letter.size());
        const bool plain = !number.isEmpty() && number == QString::number(number.toInt());
        if (plain && letter >= u"a"_s && letter <= u"z"_s && letters.contains(letter)
            && number.toInt() < highest)
            pupil[u"Klasse"_s] = QString::number(number.toInt() + 1) + letter;
    }
    return school;
}

} // namespace

/// The change of the school year, compared over the whole database.
class SchoolYearTest : public TestBase {
    Q_OBJECT

private:
    /// Goes through the dialogue with this entry and says Yes.
    void change(const QString& entry, int grade) {
        doorsOfTest.answerInput(entry);
        doorsOfTest.expect(question(grade), kAnswerYes);
        doorsOfTest.expect(kDone);
        WechselSchuljahr();
    }

    static void addPupil(const QString& klasse, const QVariant& grade, const QVariant& letter,
                         bool isNew = true) {
        Global()
            .Conn.AddNew(u"Stammdaten"_s)
            .Set(u"aktiv"_s, true)
            .Set(u"Klasse"_s, klasse)
            .Set(u"Schulstufe"_s, grade)
            .Set(u"Kl_Nr"_s, letter)
            .Set(u"Neu"_s, isNew)
            .Update();
    }

    static QStringList column(const QString& field) {
        const DbSession session(u"Vergleich"_s);
        QStringList result;
        for (Recordset rs = Global().Conn.Open(u"SELECT * FROM Stammdaten"_s); !rs.Eof(); rs.MoveNext())
            result << rs.Text(field);
        return result;
    }

    void useClasses(const QStringList& classes) {
        useEmptyDatabase();
        const DbSession session(u"Schule"_s);
        for (const auto& klasse : classes)
            addPupil(klasse, klasse.chopped(1).toInt(), klasse.right(1));
    }

private Q_SLOTS:
    void theNumberAskedForIsTheOneAtTheBeginningOfTheText_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("grade");
        QTest::newRow("plain") << u"4"_s << 4;
        QTest::newRow("class") << u"4a"_s << 4;
        QTest::newRow("two digits") << u"10b"_s << 10;
        QTest::newRow("blanks") << u"  9 "_s << 9;
        QTest::newRow("empty") << u""_s << 0;
        QTest::newRow("no digits") << u"vier"_s << 0;
        QTest::newRow("digits behind") << u"a4"_s << 0;
        QTest::newRow("zero") << u"0"_s << 0;
        QTest::newRow("rounded up") << u"3.7"_s << 4;
        QTest::newRow("half to even") << u"4.5"_s << 4;
        QTest::newRow("comma") << u"3,7"_s << 3;
        QTest::newRow("largest") << u"255"_s << 255;
        QTest::newRow("just the largest") << u"255.4"_s << 255;
        QTest::newRow("exponent") << u"4e1"_s << 4;
    }

    void theNumberAskedForIsTheOneAtTheBeginningOfTheText() {
        QFETCH(QString, text);
        QFETCH(int, grade);
        QCOMPARE(HoechsteSchulstufeAusText(text), grade);
    }

    void aNumberThatNoByteHoldsEndsBeforeAnythingIsTouched_data() {
        QTest::addColumn<QString>("entry");
        for (const auto* entry : {"256", "-1", "1000000", "255.6"})
            QTest::newRow(entry) << QString::fromLatin1(entry);
    }

    void aNumberThatNoByteHoldsEndsBeforeAnythingIsTouched() {
        QFETCH(QString, entry);
        useClasses({u"4a"_s});
        const auto before = content();
        doorsOfTest.answerInput(entry);
        try {
            WechselSchuljahr();
            QFAIL("no error");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.number(), 6);
        }
        QCOMPARE(content(), before);
    }

    void zeroATextWithoutDigitsAndCancelEndWithoutAQuestion() {
        useClasses({u"4a"_s});
        const auto before = content();
        for (const auto& entry : {u"0"_s, u"keine"_s, u""_s}) {
            doorsOfTest.answerInput(entry);
            WechselSchuljahr();
        }
        WechselSchuljahr();
        QCOMPARE(doorsOfTest.boxes().size(), 0);
        QCOMPARE(doorsOfTest.dialogs(), QStringList(4, u"Kolibri"_s));
        QCOMPARE(content(), before);
    }

    void onNoNothingHappens() {
        useClasses({u"4a"_s});
        const auto before = content();
        doorsOfTest.answerInput(u"4"_s);
        doorsOfTest.expect(question(4), kAnswerNo);
        WechselSchuljahr();
        QCOMPARE(doorsOfTest.boxes().front().code, 20);
        QCOMPARE(doorsOfTest.boxes().front().title, u"Wechsel Schuljahr"_s);
        QCOMPARE(content(), before);
        QCOMPARE(QDir(home()).entryList({u"*Sicherheitskopie*"_s}), QStringList());
    }

    void theWholeSchoolIsAsItShouldBe_data() {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<int>("grade");
        QTest::newRow("1") << u"1"_s << 1;
        QTest::newRow("3") << u"3"_s << 3;
        QTest::newRow("4") << u"4"_s << 4;
        QTest::newRow("4a") << u"4a"_s << 4;
        QTest::newRow("9") << u"9"_s << 9;
        QTest::newRow("10") << u"10"_s << 10;
        QTest::newRow("255") << u"255"_s << 255;
    }

    void theWholeSchoolIsAsItShouldBe() {
        QFETCH(QString, entry);
        QFETCH(int, grade);
        useSampleSchool();
        const auto before = content();
        change(entry, grade);
        QCOMPARE(content(), expected(before, grade));
    }

    void aSecondRunMovesEverybodyAgain() {
        useSampleSchool();
        const auto before = content();
        change(u"4"_s, 4);
        change(u"4"_s, 4);
        const auto after = content();
        QCOMPARE(after, expected(expected(before, 4), 4));
        QVERIFY(after[u"Stammdaten"_s].size() < before[u"Stammdaten"_s].size() / 2 + 40);
    }

    void withNobodyInTheHighestGradeTheOthersStillMoveUp() {
        useClasses({u"1a"_s, u"2b"_s});
        change(u"4"_s, 4);
        QCOMPARE(column(u"Klasse"_s), QStringList({u"2a"_s, u"3b"_s}));
        QCOMPARE(column(u"Schulstufe"_s), QStringList({u"2"_s, u"3"_s}));
    }

    void schoolStartersReachTheFirstGradeAndStayNew() {
        useEmptyDatabase();
        {
            const DbSession session(u"Schule"_s);
            addPupil(u"a"_s, 0, u"a"_s);
            addPupil(u"0"_s, 0, u"0"_s);
            addPupil(u""_s, 0, u""_s);
            addPupil(u"00"_s, 0, u"0"_s);
            addPupil(u"0a"_s, 0, u"a"_s);
            addPupil(u"0z"_s, 0, u"z"_s);
            addPupil(u"1a"_s, 1, u"a"_s);
        }
        change(u"4"_s, 4);
        QCOMPARE(column(u"Klasse"_s),
                 QStringList({u"a"_s, u"0"_s, u""_s, u"00"_s, u"1a"_s, u"1z"_s, u"2a"_s}));
        QCOMPARE(column(u"Schulstufe"_s), QStringList(6, u"1"_s) + QStringList{u"2"_s});
        QCOMPARE(column(u"Neu"_s), QStringList(6, u"Wahr"_s) + QStringList{u"Falsch"_s});
    }

    void aGradeOfTwoDigitsMovesUpTheSameWay() {
        useClasses({u"9a"_s, u"10a"_s, u"11a"_s});
        change(u"11"_s, 11);
        QCOMPARE(column(u"Klasse"_s), QStringList({u"10a"_s, u"11a"_s}));
    }

    void aCapitalLetterMovesUpLikeAnyOther() {
        useClasses({u"2B"_s, u"1b"_s, u"1C"_s});
        change(u"4"_s, 4);
        // One letter for the store, written as the first pupil has it.
        QCOMPARE(column(u"Klasse"_s), QStringList({u"3B"_s, u"2B"_s, u"2C"_s}));
        QCOMPARE(column(u"Schulstufe"_s), QStringList({u"3"_s, u"2"_s, u"2"_s}));
    }

    void aGradeAboveTheHighestKeepsNumberAndClass() {
        useClasses({u"3a"_s, u"5a"_s, u"10a"_s});
        change(u"4"_s, 4);
        QCOMPARE(column(u"Klasse"_s), QStringList({u"4a"_s, u"5a"_s, u"10a"_s}));
        QCOMPARE(column(u"Schulstufe"_s), QStringList({u"4"_s, u"5"_s, u"10"_s}));
    }

    void notesOfThePlanOfTheDayStayBehind() {
        useClasses({u"4a"_s});
        {
            const DbSession session(u"Schule"_s);
            for (const auto& table : {u"SCH_Notiz"_s, u"WP_Notiz"_s})
                Global().Conn.AddNew(table).Set(u"SCH_ID"_s, 1).Update();
        }
        change(u"4"_s, 4);
        const auto after = content();
        QCOMPARE(after[u"SCH_Notiz"_s].size(), 0);
        QCOMPARE(after[u"WP_Notiz"_s].size(), 1);
    }

    void aSafetyCopyIsMadeFirst() {
        useClasses({u"3a"_s, u"4a"_s});
        const auto before = content();
        change(u"4"_s, 4);
        const QString copy = home() + u"/KOLIBRI_Daten-Sicherheitskopie-20261120-093000.mdb"_s;
        QVERIFY(QFile::remove(DatenbankDatei(home())) && QFile::copy(copy, DatenbankDatei(home())));
        QCOMPARE(content(), before);
    }

    void anErrorHalfWayIsToldAndWhatWasDoneStays() {
        useClasses({u"3a"_s, u"4a"_s});
        {
            const DbSession session(u"Sperre"_s);
            Global().Conn.Execute(u"CREATE TRIGGER Sperre BEFORE UPDATE OF Klasse ON Stammdaten "
                                  "BEGIN SELECT RAISE(ABORT, 'gesperrt'); END"_s);
        }
        doorsOfTest.answerInput(u"4"_s);
        doorsOfTest.expect(question(4), kAnswerYes);
        doorsOfTest.expect(kFailed);
        WechselSchuljahr();
        QCOMPARE(column(u"Klasse"_s), QStringList{u"3a"_s});
        QCOMPARE(column(u"Schulstufe"_s), QStringList{u"4"_s});
        QCOMPARE(column(u"Neu"_s), QStringList{u"Falsch"_s});
    }

    void anErrorWithTheNotesEndsInTheErrorBoxThatNamesTheSafetyCopy() {
        useClasses({u"3a"_s, u"4a"_s});
        {
            const DbSession session(u"Sperre"_s);
            Global().Conn.AddNew(u"SCH_Notiz"_s).Set(u"SCH_ID"_s, 2).Update();
            Global().Conn.Execute(u"CREATE TRIGGER Sperre BEFORE DELETE ON SCH_Notiz "
                                  "BEGIN SELECT RAISE(ABORT, 'gesperrt'); END"_s);
        }
        const auto before = content();
        doorsOfTest.answerInput(u"4"_s);
        doorsOfTest.expect(question(4), kAnswerYes);
        try {
            WechselSchuljahr();
            QFAIL("no error");
        } catch (const StoreError& error) {
            QVERIFY(error.note().contains(u"KOLIBRI_Daten-Sicherheitskopie-20261120-093000.mdb"_s));
        }
        QCOMPARE(content(), before);
    }
};

KOLIBRI_TEST_MAIN(SchoolYearTest)
#include "school_year_test.moc"
