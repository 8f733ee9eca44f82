#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "core/windows1252.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/page_production.h"
#include "lists/reports/occupancy_picture.h"
#include "support/expected_page.h"
#include "support/fixtures.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

#include <QXmlStreamReader>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

QString key(const QString& name) {
    return u"13:00 - 14:00 "_s + name;
}

void addPlaces(const QString& name, const QStringList& places) {
    FieldValues values{{u"Bezeichnung"_s, name},
                       {u"Feld1"_s, u"ME"_s},
                       {u"Feld2"_s, u"13:00 - 14:00"_s},
                       {u"Feld3"_s, key(name)}};
    for (int i = 0; i < places.size(); ++i)
        values.push_back({u"Feld%1"_s.arg(4 + i), places.at(i)});
    addRow(u"Parameter"_s, values);
}

void addEaters(int number, const QString& klasse, const QString& tag) {
    for (int i = 0; i < number; ++i)
        addPupil(u"A"_s, u"Kind"_s, klasse, {{u"GR1_"_s + tag, key(u"ME1"_s)}});
}

QString picture() {
    produced(kMensaBelegung);
    return fromTextFile(fileContent(writeOccupancyPicture()));
}

/// The drawing of a weekday.
QString dayOf(const QString& text, const QString& name) {
    return text.section(u"<h2>%1</h2>"_s.arg(name), 1).section(u"</section>"_s, 0, 0);
}

/// Widths of the bars of a look, from left to right.
QList<int> widths(const QString& drawing, const QString& look) {
    QList<int> result;
    for (const auto& line : drawing.split(u"\r\n"_s))
        if (line.startsWith(u"<rect"_s) && line.contains(u"class=\"%1\""_s.arg(look)))
            result << line.section(u"width=\""_s, 1).section(u'"', 0, 0).toInt();
    return result;
}

} // namespace

class OccupancyPictureTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void onlyTheOccupancyPlansHaveAPicture() {
        for (int listenArt = 0; listenArt <= 255; ++listenArt)
            QCOMPARE(hasOccupancyPicture(static_cast<quint8>(listenArt)), listenArt == 13 || listenArt == 23);
    }

    void aBarIsAsLongAsItsPlacesAndFilledAsFarAsTheyAreTaken() {
        useEmptyDatabase();
        addPlaces(u"ME1"_s, {u"8"_s, u"4"_s, u"2"_s, u"0"_s, u"14"_s});
        addEaters(4, u"1a"_s, u"MO"_s);
        addEaters(4, u"1b"_s, u"MO"_s);
        const QString monday = dayOf(picture(), u"Montag"_s);
        QCOMPARE(widths(monday, u"plaetze"_s), QList<int>({84, 42, 21, 0, 84}));
        QCOMPARE(widths(monday, u"belegt"_s), QList<int>({42, 42, 0, 0, 48}));
        QVERIFY(widths(monday, u"zuviel"_s).isEmpty());
        QVERIFY(monday.contains(u">4/8</text>"_s));
        QVERIFY(monday.contains(u">8/14</text>"_s));
    }

    void whatIsTooMuchStandsBehindTheFrameAndIsMarked() {
        useEmptyDatabase();
        addPlaces(u"ME1"_s, {u"4"_s, u"8"_s, u"8"_s, u"8"_s, u"28"_s});
        addEaters(6, u"1a"_s, u"DI"_s);
        const QString text = picture();
        const QString tuesday = dayOf(text, u"Dienstag"_s);
        QCOMPARE(widths(tuesday, u"zuviel"_s), QList<int>({21}));
        QVERIFY(tuesday.contains(u"class=\"zahl voll\">6/4 !</text>"_s));
        QVERIFY(!dayOf(text, u"Montag"_s).contains(u"voll"_s));
    }

    void everyPlaceTakenIsNotTooMuch() {
        useEmptyDatabase();
        addPlaces(u"ME1"_s, {u"5"_s, u"5"_s, u"5"_s, u"5"_s, u"20"_s});
        addEaters(5, u"1a"_s, u"FR"_s);
        const QString friday = dayOf(picture(), u"Freitag"_s);
        QVERIFY(widths(friday, u"zuviel"_s).isEmpty());
        QVERIFY(friday.contains(u">5/5</text>"_s));
    }

    void thePageItselfDoesNotKnowThePicture() {
        useEmptyDatabase();
        addPlaces(u"ME1"_s, {u"5"_s, u"5"_s, u"5"_s, u"5"_s, u"20"_s});
        produced(kMensaBelegung);
        const QByteArray before = pageBytes();
        const QString file = writeOccupancyPicture();
        QCOMPARE(file, occupancyPictureFile());
        QVERIFY(file != pageFile());
        QCOMPARE(pageBytes(), before);
        QVERIFY(!before.contains("<svg"));
    }

    void theDrawingsAreWellFormedWhateverTheNamesHold() {
        useEmptyDatabase();
        addPlaces(u"<b>Früh & \"spät\""_s, {u"5"_s, u"5"_s, u"5"_s, u"5"_s, u"20"_s});
        addPlaces(u"Ein Name, der länger ist als der Platz neben den Balken"_s, {u"-1"_s});
        const QString text = picture();
        const QStringList parts = text.split(u"<svg"_s).mid(1);
        QCOMPARE(parts.size(), 6);
        for (const auto& part : parts) {
            QXmlStreamReader reader(u"<svg"_s + part.section(u"</svg>"_s, 0, 0) + u"</svg>"_s);
            while (!reader.atEnd())
                reader.readNext();
            QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
        }
        QVERIFY(text.contains(u">&lt;b&gt;Früh &amp; &quot;spät&quot;</text>"_s));
        QVERIFY(text.contains(u">Ein Name, der länger is…</text>"_s));
    }

    void withoutPlacesThereIsNoBar() {
        useEmptyDatabase();
        doorsOfTest.expect(u"Geben Sie die Anzahl der maximal möglichen Plätze ein!"_s);
        const QString text = picture();
        QVERIFY(!text.contains(u"<section>"_s));
        QVERIFY(text.contains(u"<h1>MENSA BELEGUNG ALS GRAFIK</h1>"_s));
    }

    void thePictureOfTheSampleSchoolIsTheExpectedOne() {
        useSampleSchool(40);
        produced(kMensaBelegung);
        compareWithExpected(fileContent(writeOccupancyPicture()), u"grafik_mensa_belegung.html"_s);
    }
};

KOLIBRI_TEST_MAIN(OccupancyPictureTest)
#include "occupancy_picture_test.moc"
