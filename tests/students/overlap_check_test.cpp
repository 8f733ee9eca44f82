#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "students/overlap_check.h"
#include "support/test_base.h"

#include <QTest>

#include <bitset>
#include <random>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

constexpr int kMinutesOfDay = 24 * 60;
using Minutes = std::bitset<kMinutesOfDay>;

struct Span {
    int from = 0;
    int to = 0;
};

QString clock(int minutes) {
    return u"%1:%2"_s.arg(minutes / 60, 2, 10, QChar(u'0')).arg(minutes % 60, 2, 10, QChar(u'0'));
}

Minutes minutesOf(Span span) {
    Minutes result;
    for (int minute = span.from; minute < span.to; ++minute)
        result.set(static_cast<std::size_t>(minute));
    return result;
}

/// A day of whole minutes, each of which is taken or free.
struct MinuteDay {
    std::array<std::optional<Span>, kGruppen> groups;
    std::optional<int> begin, end, beginNM, endNM;

    PruefTag asForm() const {
        const auto text = [](const std::optional<int>& minutes) {
            return minutes ? clock(*minutes) : QString();
        };
        PruefTag tag;
        for (std::size_t n = 0; n < kGruppen; ++n)
            if (groups[n])
                tag.GR[n] = clock(groups[n]->from) + u" - "_s + clock(groups[n]->to) + u" AG%1"_s.arg(n);
        tag.U_Beginn = text(begin);
        tag.U_Ende = text(end);
        tag.U_BeginnNM = text(beginNM);
        tag.U_EndeNM = text(endNM);
        return tag;
    }

    /// The second formulation: a day is clean if nobody needs one minute twice, and nobody sits in an
    /// offering over the stroke at which teaching begins.
    bool hasConflict() const {
        Minutes taken;
        for (const auto& span : groups) {
            if (!span)
                continue;
            const Minutes own = minutesOf(*span);
            if ((own & taken).any())
                return true;
            taken |= own;
        }
        return (begin && (spans(begin) || spans(beginNM)))
               || (end && ((taught(begin, end) & taken).any() || (taught(beginNM, endNM) & taken).any()));
    }

private:
    bool spans(const std::optional<int>& moment) const {
        if (!moment || *moment == 0)
            return false;
        const auto minute = static_cast<std::size_t>(*moment);
        return std::any_of(groups.begin(), groups.end(), [&](const auto& span) {
            return span && minutesOf(*span).test(minute - 1) && minutesOf(*span).test(minute);
        });
    }

    static Minutes taught(const std::optional<int>& from, const std::optional<int>& to) {
        return minutesOf({from.value_or(0), to.value_or(0)});
    }
};

PruefErgebnis checkMonday(const PruefTag& monday) {
    return Check_ZeitÜberschneidungen_Vor_Datenübernahme({monday});
}

} // namespace

class OverlapCheckTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void aDay_data() {
        QTest::addColumn<QStringList>("groups");
        QTest::addColumn<QStringList>("teaching");
        QTest::addColumn<bool>("red");
        const QStringList none{QString(), QString(), QString(), QString()};
        QTest::newRow("with no group selected the lamp is green")
            << QStringList{} << QStringList{u"08:00"_s, u"12:00"_s, u"13:00"_s, u"15:00"_s} << false;
        QTest::newRow("touching boxes are green")
            << QStringList{u"12:00 - 13:00 A"_s, u"13:00 - 14:00 B"_s} << none << false;
        QTest::newRow("one shared minute is red")
            << QStringList{u"12:00 - 13:01 A"_s, u"13:00 - 14:00 B"_s} << none << true;
        QTest::newRow("one inside the other is red")
            << QStringList{u"12:00 - 15:00 A"_s, u"13:00 - 14:00 B"_s} << none << true;
        QTest::newRow("the same text twice is red")
            << QStringList{u"12:00 - 13:00 A"_s, u"12:00 - 13:00 A"_s} << none << true;
        QTest::newRow("the same working group in two slots is red")
            << QStringList{QString(), QString(), u"14:00 - 15:00 Chor"_s, QString(),
                           QString(), QString(), u"14:00 - 15:00 Chor"_s}
            << none << true;
        QTest::newRow("a meal that begins when teaching ends passes")
            << QStringList{u"11:00 - 12:00 ME1"_s}
            << QStringList{u"08:00"_s, u"11:00"_s, QString(), QString()} << false;
        QTest::newRow("a meal one minute before the end of teaching is red")
            << QStringList{u"11:00 - 12:00 ME1"_s}
            << QStringList{u"08:00"_s, u"11:01"_s, QString(), QString()} << true;
        QTest::newRow("an offering that ends when teaching begins passes")
            << QStringList{u"07:00 - 08:00 Früh"_s}
            << QStringList{u"08:00"_s, u"12:00"_s, QString(), QString()} << false;
        QTest::newRow("an offering that encloses teaching is red")
            << QStringList{u"07:00 - 14:00 Tag"_s}
            << QStringList{u"08:00"_s, u"12:00"_s, QString(), QString()} << true;
        QTest::newRow("an offering over the begin alone is red without an end")
            << QStringList{u"07:00 - 09:00 Früh"_s}
            << QStringList{u"08:00"_s, QString(), QString(), QString()} << true;
        QTest::newRow("an offering during teaching passes without an end")
            << QStringList{u"09:00 - 10:00 Vor"_s} << QStringList{u"08:00"_s, QString(), QString(), QString()}
            << false;
        QTest::newRow("with an empty begin everything before the end of teaching is red")
            << QStringList{u"07:00 - 07:30 Früh"_s}
            << QStringList{QString(), u"12:00"_s, QString(), QString()} << true;
        QTest::newRow("an offering during the afternoon's teaching is red")
            << QStringList{u"14:00 - 15:00 AG"_s}
            << QStringList{u"08:00"_s, u"12:00"_s, u"13:30"_s, u"15:00"_s} << true;
        QTest::newRow("an offering between morning and afternoon passes")
            << QStringList{u"12:00 - 13:30 ME1"_s}
            << QStringList{u"08:00"_s, u"12:00"_s, u"13:30"_s, u"15:00"_s} << false;
        QTest::newRow("afternoon teaching without morning times is not checked")
            << QStringList{u"14:00 - 15:00 AG"_s} << QStringList{QString(), QString(), u"13:30"_s, u"15:00"_s}
            << false;
        QTest::newRow("an empty morning end leaves the afternoon's end unchecked")
            << QStringList{u"14:00 - 15:00 AG"_s}
            << QStringList{u"08:00"_s, QString(), u"13:30"_s, u"15:00"_s} << false;
        QTest::newRow("an empty morning end leaves the afternoon's begin checked")
            << QStringList{u"13:00 - 14:00 AG"_s}
            << QStringList{u"08:00"_s, QString(), u"13:30"_s, u"15:00"_s} << true;
        QTest::newRow("an afternoon end without a begin blocks from midnight")
            << QStringList{u"12:00 - 13:00 ME1"_s}
            << QStringList{u"08:00"_s, u"12:00"_s, QString(), u"15:00"_s} << true;
        QTest::newRow("an offering across midnight is compared as it stands")
            << QStringList{u"23:00 - 01:00 A"_s, u"22:00 - 23:30 B"_s} << none << false;
        QTest::newRow("an end before the start is compared as it stands")
            << QStringList{u"14:00 - 13:00 A"_s, u"12:00 - 15:00 B"_s} << none << true;
        QTest::newRow("hours of one digit in front are read")
            << QStringList{u"8:05 - 09:00 A"_s} << QStringList{u"07:00"_s, u"08:06"_s, QString(), QString()}
            << true;
    }
    void aDay() {
        QFETCH(const QStringList, groups);
        QFETCH(const QStringList, teaching);
        QFETCH(const bool, red);
        PruefTag monday;
        for (int n = 0; n < groups.size(); ++n)
            monday.GR[static_cast<std::size_t>(n)] = groups.at(n);
        monday.U_Beginn = teaching.at(0);
        monday.U_Ende = teaching.at(1);
        monday.U_BeginnNM = teaching.at(2);
        monday.U_EndeNM = teaching.at(3);
        const PruefErgebnis ergebnis = checkMonday(monday);
        QCOMPARE(ergebnis.Lampen[0], red ? Ampel::Rot : Ampel::Gruen);
        QCOMPARE(ergebnis.ZeitKonflikt, red);
        for (std::size_t d = 1; d < kSchoolDays; ++d)
            QCOMPARE(ergebnis.Lampen[d], Ampel::Gruen);
    }

    void anyTwoOfTheSevenGroupsAreCompared() {
        for (std::size_t a = 0; a < kGruppen; ++a) {
            for (std::size_t b = a + 1; b < kGruppen; ++b) {
                PruefTag monday;
                monday.GR[a] = u"12:00 - 13:01 A"_s;
                monday.GR[b] = u"13:00 - 14:00 B"_s;
                QVERIFY(checkMonday(monday).ZeitKonflikt);
                monday.GR[a] = u"12:00 - 13:00 A"_s;
                QVERIFY(!checkMonday(monday).ZeitKonflikt);
            }
        }
    }

    void anOfferingEnclosingTeachingIsFoundByTheEndAndTheBegin() {
        PruefTag tag;
        tag.U_Beginn = u"08:00"_s;
        tag.U_Ende = u"12:00"_s;
        GruppenZeiten zeiten;
        zeiten.GR_Leer.fill(true);
        GR_Von_Bis_Zeiten_ermitteln(0, u"07:00 - 14:00 Tag"_s, zeiten);
        QVERIFY(ZeitüberschneidungMitUnterrichtsendeÜberprüfen(zeiten, tag));
        QVERIFY(ZeitüberschneidungMitUnterrichtsbeginnÜberprüfen(zeiten, tag));
        // From the begin on it is the end alone that finds it.
        GR_Von_Bis_Zeiten_ermitteln(0, u"08:00 - 14:00 Tag"_s, zeiten);
        QVERIFY(ZeitüberschneidungMitUnterrichtsendeÜberprüfen(zeiten, tag));
        QVERIFY(!ZeitüberschneidungMitUnterrichtsbeginnÜberprüfen(zeiten, tag));
    }

    void theAfternoonIsReadFromItsOwnBoxes() {
        PruefTag tag;
        tag.U_BeginnNM = u"13:30"_s;
        tag.U_EndeNM = u"15:00"_s;
        GruppenZeiten zeiten;
        zeiten.GR_Leer.fill(true);
        GR_Von_Bis_Zeiten_ermitteln(6, u"13:00 - 14:00 AG"_s, zeiten);
        QVERIFY(ZeitüberschneidungMitUnterrichtsbeginnNMÜberprüfen(zeiten, tag));
        QVERIFY(ZeitüberschneidungMitUnterrichtsendeNMÜberprüfen(zeiten, tag));
        GR_Von_Bis_Zeiten_ermitteln(6, u"15:00 - 16:00 AG"_s, zeiten);
        QVERIFY(!ZeitüberschneidungMitUnterrichtsbeginnNMÜberprüfen(zeiten, tag));
        QVERIFY(!ZeitüberschneidungMitUnterrichtsendeNMÜberprüfen(zeiten, tag));
    }

    void aWaivedDayIsNeutralAndDoesNotBlock() {
        PruefWoche woche;
        woche[2].GR[0] = woche[2].GR[1] = u"12:00 - 13:00 A"_s;
        QVERIFY(Check_ZeitÜberschneidungen_Vor_Datenübernahme(woche).ZeitKonflikt);
        woche[2].Ü_Nein = true;
        const PruefErgebnis waived = Check_ZeitÜberschneidungen_Vor_Datenübernahme(woche);
        QCOMPARE(waived.Lampen[2], Ampel::Neutral);
        QVERIFY(!waived.ZeitKonflikt);
        woche[4].GR[0] = woche[4].GR[1] = u"12:00 - 13:00 A"_s;
        QVERIFY(Check_ZeitÜberschneidungen_Vor_Datenübernahme(woche).ZeitKonflikt);
    }

    void aConflictOfAnEarlierDayIsNotForgotten() {
        PruefWoche woche;
        woche[0].GR[0] = woche[0].GR[1] = u"12:00 - 13:00 A"_s;
        const PruefErgebnis ergebnis = Check_ZeitÜberschneidungen_Vor_Datenübernahme(woche);
        QCOMPARE(ergebnis.Lampen[0], Ampel::Rot);
        QCOMPARE(ergebnis.Lampen[4], Ampel::Gruen);
        QVERIFY(ergebnis.ZeitKonflikt);
    }

    void theTimesOfAnEmptyBoxStayAsTheyWere() {
        GruppenZeiten zeiten;
        GR_Von_Bis_Zeiten_ermitteln(2, u"12:00 - 13:15 A"_s, zeiten);
        GR_Von_Bis_Zeiten_ermitteln(2, QString(), zeiten);
        QVERIFY(zeiten.GR_Leer[2]);
        QCOMPARE(zeiten.GR_Von[2], 720);
        QCOMPARE(zeiten.GR_Bis[2], 795);
    }

    void aColonInTheShortNameBreaksTheReading() {
        PruefTag monday;
        monday.GR[3] = u"13:00 - 14:00 AG: Chor"_s;
        QVERIFY_THROWS_EXCEPTION(RuntimeError, checkMonday(monday));
        monday.Ü_Nein = true;
        QVERIFY_THROWS_EXCEPTION(RuntimeError, checkMonday(monday));
    }

    void aColonWithDigitsInTheShortNameIsTheEnd() {
        GruppenZeiten zeiten;
        GR_Von_Bis_Zeiten_ermitteln(0, u"13:00 - 14:00 ab 15:30"_s, zeiten);
        QCOMPARE(zeiten.GR_Bis[0], 930);
    }

    void aTextWithoutTimesIsAnError_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("no colon") << u"Mensa"_s;
        QTest::newRow("letters") << u"ab:cd - ef:gh"_s;
        QTest::newRow("blank") << u" "_s;
        QTest::newRow("too many hours for 16 bits") << u"600:00 - 14:00 A"_s;
    }
    void aTextWithoutTimesIsAnError() {
        QFETCH(const QString, text);
        PruefTag monday;
        monday.GR[0] = text;
        QVERIFY_THROWS_EXCEPTION(RuntimeError, checkMonday(monday));
    }

    void randomWeeksGiveWhatCountingMinutesGives() {
        std::mt19937 random(20261120);
        const auto upTo = [&](int last) { return std::uniform_int_distribution<int>(0, last)(random); };
        const auto span = [&](int longest) {
            const int from = upTo(kMinutesOfDay - longest - 1);
            return Span{from, from + 1 + upTo(longest - 1)};
        };
        int red = 0, days = 0;
        for (int week = 0; week < 4000; ++week) {
            std::array<MinuteDay, kSchoolDays> expected;
            PruefWoche woche;
            for (std::size_t d = 0; d < kSchoolDays; ++d) {
                auto& day = expected[d];
                for (auto& group : day.groups)
                    if (upTo(3) == 0)
                        group = span(upTo(1) == 0 ? 45 : 120);
                const Span morning = span(300), afternoon = span(120);
                if (upTo(3) != 0)
                    day.begin = morning.from;
                if (upTo(3) != 0)
                    day.end = morning.to;
                if (upTo(2) == 0)
                    day.beginNM = afternoon.from;
                if (upTo(2) == 0)
                    day.endNM = afternoon.to;
                woche[d] = day.asForm();
            }
            const PruefErgebnis ergebnis = Check_ZeitÜberschneidungen_Vor_Datenübernahme(woche);
            bool any = false;
            for (std::size_t d = 0; d < kSchoolDays; ++d) {
                const bool conflict = expected[d].hasConflict();
                QVERIFY2((ergebnis.Lampen[d] == Ampel::Rot) == conflict,
                         qPrintable(u"week %1 day %2"_s.arg(week).arg(d)));
                any |= conflict;
                red += conflict ? 1 : 0;
                ++days;
            }
            QCOMPARE(ergebnis.ZeitKonflikt, any);
        }
        // Both answers must occur often enough for the comparison to mean something.
        QVERIFY2(red > days / 10 && red < days * 9 / 10, qPrintable(u"%1 of %2"_s.arg(red).arg(days)));
    }
};

KOLIBRI_TEST_MAIN(OverlapCheckTest)
#include "overlap_check_test.moc"
