#include "core/windows1252.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

class Windows1252Test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void germanLettersAreOneByteEach() {
        QCOMPARE(*toWindows1252(u"Ärger, Öl, Übung, ß, €, „Zitat“"),
                 QByteArray("\xC4rger, \xD6l, \xDC"
                            "bung, \xDF, \x80, \x84Zitat\x93"));
    }

    void everyByteComesBackAsItself() {
        QByteArray all;
        for (int byte = 0; byte < 256; ++byte)
            all += static_cast<char>(byte);
        const auto back = toWindows1252(fromTextFile(all));
        QVERIFY(back.has_value());
        QCOMPARE(*back, all);
    }

    void aLetterWithoutAPlaceIsSaidSo() {
        QVERIFY(!toWindows1252(u"Łukasz").has_value());
        QVERIFY(!toWindows1252(QString(u"\U0001F600"_s)).has_value());
    }

    void aTextFileLosesNoLetter() {
        QCOMPARE(toTextFile(u"Grün"), QByteArray("Gr\xFCn"));
        const QByteArray bytes = toTextFile(u"Łukasz");
        QVERIFY(bytes.startsWith("\xEF\xBB\xBF"));
        QCOMPARE(fromTextFile(bytes), u"Łukasz"_s);
    }
};

QTEST_GUILESS_MAIN(Windows1252Test)
#include "windows1252_test.moc"
