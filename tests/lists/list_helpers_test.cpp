#include "core/mdlAllgemein.h"
#include "core/widgets/application.h"
#include "lists/list_helpers.h"
#include "lists/list_state.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

void addPupil(const FieldValues& values) {
    auto row = Global().Conn.AddNew(u"Stammdaten"_s);
    for (const auto& [field, value] : values)
        row.Set(field, value);
    row.Update();
}

} // namespace

class ListHelpersTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void aShortenedNameIsItsFirstLetters_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("expected");
        QTest::newRow("one") << u"Anna"_s << u"A."_s;
        QTest::newRow("umlaut") << u"Özgür"_s << u"Ö."_s;
        QTest::newRow("two") << u"Anna Maria"_s << u"A. M."_s;
        QTest::newRow("three") << u"Anna Maria Luise"_s << u"A. M."_s;
        QTest::newRow("hyphen") << u"Anna-Maria"_s << u"A."_s;
        QTest::newRow("blank at the end") << u"Anna "_s << u"A. ."_s;
        QTest::newRow("none") << QString() << u"."_s;
    }
    void aShortenedNameIsItsFirstLetters() {
        QFETCH(const QString, name);
        QTEST(shortenedName(name), "expected");
    }

    void namesAreWrittenAsTheOfficeChose_data() {
        QTest::addColumn<QString>("shortening");
        QTest::addColumn<QString>("order");
        QTest::addColumn<QString>("expected");
        const QString first = u"Vorname Nachname"_s;
        const QString family = u"Nachname Vorname"_s;
        QTest::newRow("whole") << u"Ungekürzt"_s << first << u"Anna Maria von Arx"_s;
        QTest::newRow("whole, family first") << u"Ungekürzt"_s << family << u"von Arx Anna Maria"_s;
        QTest::newRow("first short") << u"Vorname gekürzt"_s << first << u"A. M. von Arx"_s;
        QTest::newRow("first short, family first") << u"Vorname gekürzt"_s << family << u"von Arx A. M."_s;
        QTest::newRow("family short") << u"Nachname gekürzt"_s << first << u"Anna Maria v. A."_s;
        QTest::newRow("no order") << u"Nachname gekürzt"_s << QString() << u"v. A. Anna Maria"_s;
        QTest::newRow("no shortening") << QString() << first << u"as it was"_s;
        QTest::newRow("unknown shortening") << u"gekürzt"_s << first << u"as it was"_s;
    }
    void namesAreWrittenAsTheOfficeChose() {
        QFETCH(const QString, shortening);
        QFETCH(const QString, order);
        auto& liste = Liste();
        liste.dimensionieren(3, 5);
        liste.ZeilenNr = 4;
        for (const auto format : {kNamesMensaLernzeit, kNamesArbeitsgruppe, kNamesTagesplan}) {
            Global().NameKurz.fill(u"-"_s);
            Global().NameKurz.at(format) = shortening;
            Global().NameZuerst.at(format) = order;
            liste.Daten(2, 4) = u"as it was"_s;
            Name_Formatieren(u"Anna Maria"_s, u"von Arx"_s, 2, format);
            QTEST(liste.Daten(2, 4), "expected");
        }
    }

    void everyPupilCounts() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        QCOMPARE(pupilCount(), 0);
        addPupil({{u"aktiv"_s, true}});
        addPupil({{u"aktiv"_s, false}});
        QCOMPARE(pupilCount(), 2);
    }

    void fridayIsLookedUpInTheOfferingOfTheList_data() {
        QTest::addColumn<QString>("column");
        QTest::addColumn<QList<int>>("lists");
        QTest::newRow("Mensa") << u"GR1_FR"_s << QList<int>{4, 11, 12, 14};
        QTest::newRow("Lernzeit") << u"GR2_FR"_s << QList<int>{5, 21, 22};
    }
    void fridayIsLookedUpInTheOfferingOfTheList() {
        QFETCH(const QString, column);
        QFETCH(const QList<int>, lists);
        useEmptyDatabase();
        {
            const DbSession session(u"Test"_s);
            // A deactivated pupil counts; an empty cell does not.
            addPupil({{column, u"13:00 - 13:45 ME1"_s}});
            addPupil({{u"GR1_FR"_s, u""_s}, {u"GR2_FR"_s, u""_s}, {u"GR3_FR"_s, u"AG"_s}});
        }
        for (const int listenArt : {4, 5, 11, 12, 14, 21, 22}) {
            Global().ListenArt = static_cast<quint8>(listenArt);
            Liste().FreitagBelegt = !lists.contains(listenArt);
            FreitagBelegt_Pruefen();
            QCOMPARE(Liste().FreitagBelegt, lists.contains(listenArt));
            QVERIFY(!Global().Conn.IsOpen());
        }
    }

    void fridayInsideAnOpenStoreLeavesOutTheListByPupil() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        addPupil({{u"GR1_FR"_s, u"13:00 - 13:45 ME1"_s}});
        for (const int listenArt : {4, 11, 12}) {
            Global().ListenArt = static_cast<quint8>(listenArt);
            Liste().FreitagBelegt = false;
            FreitagBelegt_Pruefen_Offen();
            QVERIFY(Liste().FreitagBelegt);
        }
        Global().ListenArt = 14;
        Liste().FreitagBelegt = false;
        FreitagBelegt_Pruefen_Offen();
        QVERIFY(!Liste().FreitagBelegt);
        QVERIFY(Global().Conn.IsOpen());
    }
};

KOLIBRI_TEST_MAIN(ListHelpersTest)
#include "list_helpers_test.moc"
