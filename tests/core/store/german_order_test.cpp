#include "core/store/connection.h"
#include "core/store/german_order.h"
#include "core/widgets/application.h"
#include "support/test_base.h"

#include <QCollator>
#include <QRandomGenerator>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

int order(const QString& left, const QString& right) {
    return germanOrder(left.toUtf8(), right.toUtf8());
}

int signOf(int number) {
    return number < 0 ? -1 : number > 0 ? 1 : 0;
}

/// The order as the collator alone would give it, without any short cut.
int collatorOrder(const QString& left, const QString& right) {
    static const QCollator collator = [] {
        QCollator german(QLocale(QLocale::German, QLocale::Germany));
        german.setCaseSensitivity(Qt::CaseInsensitive);
        return german;
    }();
    const int result = collator.compare(left, right);
    return result != 0 ? result : left.toLower().compare(right.toLower());
}

QString randomText(QRandomGenerator& random, const QString& alphabet) {
    QString text;
    for (int length = random.bounded(7); length > 0; --length)
        text += alphabet.at(random.bounded(static_cast<int>(alphabet.size())));
    return text;
}

QString printableAscii() {
    QString letters;
    for (char16_t code = 0x20; code < 0x7f; ++code)
        letters += QChar(code);
    return letters;
}

const QString kUmlauts = u"äöüßÄÖÜẞéÉ"_s;

} // namespace

class german_orderTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void namesStandAsInAGermanDictionary() {
        const QStringList sorted{u""_s,      u"1a"_s,    u"Abel"_s,  u"Ärger"_s,   u"Arzt"_s,   u"Münster"_s,
                                 u"Musik"_s, u"Öhler"_s, u"Ohm"_s,   u"Strasse"_s, u"Straße"_s, u"Strauß"_s,
                                 u"Übung"_s, u"Uhr"_s,   u"Ziege"_s, u"Zöbl"_s,    u"Zucker"_s};
        for (qsizetype i = 0; i + 1 < sorted.size(); ++i) {
            const QByteArray pair = (sorted.at(i) + u" < "_s + sorted.at(i + 1)).toUtf8();
            QVERIFY2(order(sorted.at(i), sorted.at(i + 1)) < 0, pair.constData());
            QVERIFY2(order(sorted.at(i + 1), sorted.at(i)) > 0, pair.constData());
        }
    }

    void caseMakesNoDifference_data() {
        QTest::addColumn<QString>("left");
        QTest::addColumn<QString>("right");
        QTest::newRow("plain") << u"Wochenplan"_s << u"WOCHENPLAN"_s;
        QTest::newRow("umlauts") << u"ärger öl übung"_s << u"ÄRGER ÖL ÜBUNG"_s;
        QTest::newRow("sharp s") << u"straße"_s << u"STRAẞE"_s;
        QTest::newRow("other letters") << u"éàç"_s << u"ÉÀÇ"_s;
        QTest::newRow("empty") << u""_s << u""_s;
    }

    void caseMakesNoDifference() {
        QFETCH(QString, left);
        QFETCH(QString, right);
        QCOMPARE(order(left, right), 0);
        QCOMPARE(order(right, left), 0);
    }

    void textsThatDifferInMoreThanCaseAreNotEqual_data() {
        QTest::addColumn<QString>("left");
        QTest::addColumn<QString>("right");
        QTest::newRow("umlaut and vowel") << u"Müller"_s << u"Muller"_s;
        QTest::newRow("umlaut and two letters") << u"Müller"_s << u"Mueller"_s;
        QTest::newRow("sharp s and ss") << u"Straße"_s << u"Strasse"_s;
        QTest::newRow("blank at the end") << u"13:00 - 13:45 ME1"_s << u"13:00 - 13:45 ME1 "_s;
        QTest::newRow("blank at the front") << u"a"_s << u" a"_s;
        QTest::newRow("blank at the end, umlaut") << u"ä"_s << u"ä "_s;
        QTest::newRow("hyphen") << u"13:00-13:45"_s << u"1300 1345"_s;
        QTest::newRow("hyphen and blank") << u"a-b"_s << u"a b"_s;
        QTest::newRow("line end") << u"a"_s << u"a\n"_s;
        QTest::newRow("accent") << u"Zoe"_s << u"Zoé"_s;
        QTest::newRow("empty and blank") << u""_s << u" "_s;
    }

    void textsThatDifferInMoreThanCaseAreNotEqual() {
        QFETCH(QString, left);
        QFETCH(QString, right);
        QVERIFY(order(left, right) != 0);
        QCOMPARE(signOf(order(left, right)), -signOf(order(right, left)));
    }

    void sharpSStandsBesideSs() {
        QVERIFY(order(u"Weisa"_s, u"Weiß"_s) < 0);
        QVERIFY(order(u"Weiss"_s, u"Weiß"_s) != 0);
        QVERIFY(order(u"Weiß"_s, u"Weist"_s) < 0);
        QVERIFY(order(u"Weiss"_s, u"Weist"_s) < 0);
    }

    void theQuickPathSaysWhatTheCollatorSays_data() {
        QTest::addColumn<QString>("alphabet");
        QTest::newRow("plain") << printableAscii();
        QTest::newRow("few letters") << u"aAbB -"_s;
        QTest::newRow("punctuation") << u"aA-'.,:_()1 "_s;
        QTest::newRow("umlauts") << u"aAoOuUsS"_s + kUmlauts;
        QTest::newRow("mixed") << printableAscii() + kUmlauts + kUmlauts;
        QTest::newRow("combining marks") << u"aAoOä"_s + QChar(0x0308) + QChar(0x0301);
        QTest::newRow("control characters") << u"ab\n\t\r ä"_s;
    }

    void theQuickPathSaysWhatTheCollatorSays() {
        QFETCH(QString, alphabet);
        QRandomGenerator random(1);
        for (int i = 0; i < 30000; ++i) {
            const QString left = randomText(random, alphabet);
            const QString right = randomText(random, alphabet);
            const int expected = signOf(collatorOrder(left, right));
            if (signOf(order(left, right)) != expected)
                QFAIL(qPrintable(u"\"%1\" and \"%2\": %3"_s.arg(left, right).arg(expected)));
        }
    }

    void theOrderHasNoContradictions_data() { theQuickPathSaysWhatTheCollatorSays_data(); }

    void theOrderHasNoContradictions() {
        QFETCH(QString, alphabet);
        QRandomGenerator random(2);
        std::vector<QString> texts;
        for (int i = 0; i < 120; ++i)
            texts.push_back(randomText(random, alphabet));
        for (const auto& a : texts) {
            QCOMPARE(order(a, a), 0);
            for (const auto& b : texts) {
                const int ab = signOf(order(a, b));
                QCOMPARE(signOf(order(b, a)), -ab);
                if (ab > 0)
                    continue;
                for (const auto& c : texts)
                    if (signOf(order(b, c)) <= 0 && order(a, c) > 0)
                        QFAIL(qPrintable(u"\"%1\" <= \"%2\" <= \"%3\""_s.arg(a, b, c)));
            }
        }
    }

    void brokenTextIsStillOrdered() {
        const QByteArray broken("M\xfcller");
        QCOMPARE(germanOrder(broken, broken), 0);
        QCOMPARE(signOf(germanOrder(broken, "Muller")), -signOf(germanOrder("Muller", broken)));
        QVERIFY(germanOrder(broken, "Z") < 0);
    }

    void aStatementComparesAndSortsByIt() {
        Connection conn;
        conn.CreateFile(scratch() + u"/namen.mdb"_s);
        conn.CreateTable(u"Namen"_s, {{u"Name"_s, ColumnKind::Text}, {u"Lang"_s, ColumnKind::Memo}});
        for (const auto& name : {u"Zöbl"_s, u"arzt"_s, u"Ärger"_s, u"ZUSE"_s, u"ärger"_s, u"Strasse"_s})
            conn.AddNew(u"Namen"_s).Set(u"Name"_s, name).Set(u"Lang"_s, name).Update();
        for (const auto& column : {u"Name"_s, u"Lang"_s}) {
            QStringList sorted;
            Recordset rs = conn.Open(u"SELECT %1 FROM Namen ORDER BY %1, rowid DESC"_s.arg(column));
            for (; !rs.Eof(); rs.MoveNext())
                sorted << rs.Text(0);
            QCOMPARE(sorted,
                     QStringList({u"ärger"_s, u"Ärger"_s, u"arzt"_s, u"Strasse"_s, u"Zöbl"_s, u"ZUSE"_s}));
            const auto count = [&](const QString& condition, const QString& value) {
                return conn.Open(u"SELECT * FROM Namen WHERE %1 %2"_s.arg(column, condition), {value})
                    .RecordCount();
            };
            QCOMPARE(count(u"= ?"_s, u"ÄRGER"_s), 2);
            QCOMPARE(count(u"= ?"_s, u"zöbl"_s), 1);
            QCOMPARE(count(u"= ?"_s, u"Zobl"_s), 0);
            QCOMPARE(count(u"= ?"_s, u"Straße"_s), 0);
            QCOMPARE(count(u"= ?"_s, u"Zöbl "_s), 0);
            QCOMPARE(count(u"< ?"_s, u"Zöbl"_s), 4);
            QCOMPARE(count(u"IN (?)"_s, u"ARZT"_s), 1);
            QCOMPARE(conn.Open(u"SELECT DISTINCT %1 FROM Namen"_s.arg(column)).RecordCount(), 5);
            QCOMPARE(conn.Open(u"SELECT MAX(%1) FROM Namen"_s.arg(column)).Text(0), u"ZUSE"_s);
            QCOMPARE(conn.Open(u"SELECT %1 FROM Namen GROUP BY %1"_s.arg(column)).RecordCount(), 5);
        }
    }
};

KOLIBRI_TEST_MAIN(german_orderTest)
#include "german_order_test.moc"
