#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "support/test_base.h"

#include <QDate>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

const QStringList kDays{u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s};

Recordset rowsOf(const QString& tableAndCondition) {
    return Global().Conn.Open(u"SELECT * FROM "_s + tableAndCondition);
}

QString cellName(int slot, int day) {
    return u"GR%1_%2"_s.arg(slot).arg(kDays.at(day));
}

} // namespace

/// Notes, places and texts of the sample school, which all hang on its offerings, pupils and classes.
class SampleListsTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    static void addSizes() {
        QTest::addColumn<int>("pupils");
        for (const int pupils : {1, 17, 320, 1000})
            QTest::addRow("%d", pupils) << pupils;
    }

private Q_SLOTS:
    void everyNoteStandsOnAnAssignment_data() { addSizes(); }
    void everyNoteStandsOnAnAssignment() {
        QFETCH(int, pupils);
        useSampleSchool(pupils);
        const DbSession session(u"Test"_s);
        QSet<QString> seen;
        for (Recordset rs = rowsOf(u"SCH_Notiz"_s); !rs.Eof(); rs.MoveNext()) {
            QCOMPARE(rs.Text(u"Tag"), kDays.at(int(rs.Number(u"Tag_Zahl"))));
            QVERIFY(!rs.Text(u"Notiz").isEmpty());
            QVERIFY(rs.Text(u"WP_Notiz").isEmpty() || rs.Text(u"WP_Notiz") == u"1"_s);
            const Recordset pupil = rowsOf(u"Stammdaten WHERE aktiv AND ID = %1"_s.arg(rs.Number(u"SCH_ID")));
            QCOMPARE(pupil.RecordCount(), 1);
            QCOMPARE(pupil.Text(rs.Text(u"GR") + u'_' + rs.Text(u"Tag")), rs.Text(u"Zeit_K_Name"));
            const Recordset offering = Global().Conn.Open(
                u"SELECT * FROM %1 WHERE Tag = ? AND Zeit_K_Name = ?"_s.arg(rs.Text(u"GR")),
                {rs.Text(u"Tag"), rs.Text(u"Zeit_K_Name")});
            QCOMPARE(offering.RecordCount(), 1);
            QCOMPARE(offering.Text(u"L_Name"), rs.Text(u"L_Name"));
            QCOMPARE(offering.Text(u"Zeit"), rs.Text(u"Zeit"));
            const QString place = rs.Text(u"SCH_ID") + rs.Text(u"GR") + rs.Text(u"Tag");
            QVERIFY2(!seen.contains(place), qPrintable(place));
            seen << place;
        }
    }

    void everyNoteOfTheTagesplanHasItsPupilAndUnit_data() { addSizes(); }
    void everyNoteOfTheTagesplanHasItsPupilAndUnit() {
        QFETCH(int, pupils);
        useSampleSchool(pupils);
        const DbSession session(u"Test"_s);
        QSet<QString> seen;
        int id = 0;
        for (Recordset rs = rowsOf(u"WP_Notiz"_s); !rs.Eof(); rs.MoveNext()) {
            QCOMPARE(int(rs.Number(u"ID")), ++id);
            QCOMPARE(rs.Text(u"Tag"), kDays.at(int(rs.Number(u"Tag_Zahl"))));
            QVERIFY(!rs.Text(u"Notiz").isEmpty());
            QCOMPARE(
                rowsOf(u"Stammdaten WHERE aktiv AND Schulstufe > 0 AND ID = %1"_s.arg(rs.Number(u"SCH_ID")))
                    .RecordCount(),
                1);
            QCOMPARE(rowsOf(u"Unterrichtseinheiten WHERE Zeit = '%1'"_s.arg(rs.Text(u"UE"))).RecordCount(),
                     1);
            const QString place = rs.Text(u"SCH_ID") + rs.Text(u"UE") + rs.Text(u"Tag");
            QVERIFY2(!seen.contains(place), qPrintable(place));
            seen << place;
        }
    }

    void oneMensaIsOverfullAndNothingElse() {
        useSampleSchool();
        const DbSession session(u"Test"_s);
        QStringList overfull;
        int id = 0;
        for (Recordset rs = rowsOf(u"Parameter"_s); !rs.Eof(); rs.MoveNext()) {
            QCOMPARE(int(rs.Number(u"ID")), ++id);
            const int slot = rs.Text(u"Feld1") == u"ME"_s ? 1 : 2;
            QVERIFY(rowsOf(u"GR%1 WHERE K_Name = '%2' AND Zeit = '%3' AND Zeit_K_Name = '%4'"_s.arg(slot).arg(
                               rs.Text(u"Bezeichnung"), rs.Text(u"Feld2"), rs.Text(u"Feld3")))
                        .RecordCount()
                    > 0);
            int total = 0;
            QSet<QString> letters;
            for (int letter = 0; letter < 4; ++letter) {
                const int places = rs.Text(u"Feld%1"_s.arg(4 + letter)).toInt();
                total += places;
                for (int day = 0; day < kSchoolDays; ++day)
                    if (rowsOf(u"Stammdaten WHERE aktiv AND Kl_Nr = '%1' AND %2 = '%3' AND Schulstufe > 0"_s
                                   .arg(QChar(u'a' + letter))
                                   .arg(cellName(slot, day), rs.Text(u"Feld3")))
                            .RecordCount()
                        > places)
                        letters << rs.Text(u"Bezeichnung") + u' ' + QChar(u'A' + letter);
            }
            QCOMPARE(rs.Text(u"Feld8"), QString::number(total));
            overfull += letters.values();
        }
        QCOMPARE(id, 6);
        QCOMPARE(overfull, QStringList{u"ME2 A"_s});
    }

    void theListTextsBelongToOfferings() {
        useSampleSchool();
        const DbSession session(u"Test"_s);
        const QMap<QString, QString> tables{
            {u"Mensa"_s, u"GR1"_s}, {u"Lernzeit"_s, u"GR2"_s}, {u"Arbeitsgruppe"_s, u"GR3"_s}};
        QMap<QString, int> counts;
        for (Recordset rs = rowsOf(u"ME_LZ_AG_Notizen"_s); !rs.Eof(); rs.MoveNext()) {
            const QString type = rs.Text(u"Typ");
            ++counts[type];
            const Recordset offering = Global().Conn.Open(
                u"SELECT * FROM %1 WHERE L_Name = ? AND Zeit_K_Name = ?"_s.arg(tables.value(type)),
                {rs.Text(u"L_Name"), rs.Text(u"Zeit_K_Name")});
            QVERIFY(offering.RecordCount() > 0);
            QCOMPARE(offering.Text(u"Zeit"), rs.Text(u"Zeit"));
            QCOMPARE(offering.Text(u"K_Name"), rs.Text(u"K_Name"));
            QVERIFY(!rs.Text(u"Anmerkung_V").isEmpty() || !rs.Text(u"Anmerkung_N").isEmpty());
            if (type == u"Arbeitsgruppe"_s) {
                QCOMPARE(offering.Text(u"Betreuer"), rs.Text(u"Betreuer"));
                QCOMPARE(offering.Text(u"Ort"), rs.Text(u"Ort"));
                QCOMPARE(offering.Text(u"Tag"), rs.Text(u"Tag"));
            } else {
                QVERIFY((QStringList{u"A"_s, u"B"_s, u"C"_s, u"D"_s}).contains(rs.Text(u"Klasse")));
            }
        }
        QCOMPARE(counts, (QMap<QString, int>{{u"Arbeitsgruppe"_s, 5}, {u"Lernzeit"_s, 9}, {u"Mensa"_s, 9}}));
    }

    void theDatesOfAGroupFallOnItsWeekday() {
        useSampleSchool();
        const DbSession session(u"Test"_s);
        QStringList ids;
        for (Recordset rs = rowsOf(u"Liste_AG"_s); !rs.Eof(); rs.MoveNext()) {
            ids << rs.Text(u"ID");
            QDate before;
            for (int number = 1; number <= 6; ++number) {
                const QString text = rs.Text(u"Datum%1"_s.arg(number));
                if (text.isEmpty())
                    continue;
                QVERIFY(DatumPruefen(text, u"dd.mm.yyyy"_s, false));
                const QDate date = QDate::fromString(text, u"dd.MM.yyyy"_s);
                QVERIFY(number == 1 || before.addDays(7) == date);
                before = date;
                if (rs.Text(u"ID") == u"2"_s)
                    QCOMPARE(date.dayOfWeek(), 1);
                if (const QString group = rs.Text(u"AG"); !group.isEmpty())
                    QVERIFY(rowsOf(u"GR3 WHERE L_Name = '%1' AND Tag = '%2'"_s.arg(
                                       group, kDays.value(date.dayOfWeek() - 1)))
                                .RecordCount()
                            > 0);
            }
        }
        QCOMPARE(ids, (QStringList{u"1"_s, u"2"_s, u"3"_s, u"3"_s, u"3"_s}));
    }

    void theTimetableAndTheClassTextsBelongToClasses() {
        useSampleSchool();
        const DbSession session(u"Test"_s);
        QCOMPARE(rowsOf(u"Stundenplan"_s).RecordCount(), 4 * 10);
        for (Recordset rs = rowsOf(u"Stundenplan"_s); !rs.Eof(); rs.MoveNext())
            for (int day = 0; day < kSchoolDays; ++day) {
                const QString from = rs.Text(u"UE").left(5);
                const QString to = rs.Text(u"UE").right(5);
                const Recordset taught = rowsOf(
                    u"Klassen WHERE Klasse = '%1' AND Tag_Zahl = %2"_s.arg(rs.Text(u"Klasse")).arg(day));
                QCOMPARE(taught.RecordCount(), 1);
                const bool lesson = to <= taught.Text(u"Unterrichtsende")
                                    || (from >= taught.Text(u"UnterrichtsbeginnNM")
                                        && to <= taught.Text(u"UnterrichtsendeNM"));
                QCOMPARE(!rs.Text(kDays.at(day)).isEmpty(), lesson);
            }
        QCOMPARE(rowsOf(u"WochenplanTexte"_s).RecordCount(), 5);
        for (Recordset rs = rowsOf(u"WochenplanTexte"_s); !rs.Eof(); rs.MoveNext()) {
            QVERIFY(rowsOf(u"Klassen WHERE Klasse = '%1'"_s.arg(rs.Text(u"Klasse"))).RecordCount() == 5);
            QVERIFY(rs.Text(u"TextVorher").contains(u"\\fs"_s));
        }
    }
};

KOLIBRI_TEST_MAIN(SampleListsTest)
#include "sample_lists_test.moc"
