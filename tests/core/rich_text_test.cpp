#include "core/mdlAllgemein.h"
#include "core/rich_text.h"
#include "core/widgets/application.h"
#include "support/test_base.h"

#include <QTest>
#include <QTextDocument>

#include <random>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

constexpr TextStyle kNone{};
constexpr TextStyle kBold{true, false, false};
constexpr TextStyle kItalic{false, true, false};
constexpr TextStyle kUnderline{false, false, true};
constexpr TextStyle kBoldItalic{true, true, false};

/// A text as the rich text box of older Windows programs stores it.
QString oldBox(const QString& body) {
    return u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1031{\\fonttbl{\\f0\\fnil\\fcharset0 MS Sans "
           "Serif;}}\r\n\\viewkind4\\uc1\\pard\\f0\\fs17 "_s
           + body + u"\r\n\\par }\r\n"_s;
}

RichText textOf(const std::vector<TextRun>& runs) {
    RichText text;
    for (const auto& run : runs)
        text.append(run.text, run.style);
    return text;
}

/// Random texts with all that the store can hold.
class TextSource {
public:
    RichText next() {
        RichText text;
        for (int run = upTo(5); run >= 0; --run)
            text.append(word(), {upTo(1) == 0, upTo(2) == 0, upTo(3) == 0});
        return text;
    }

    int upTo(int last) { return std::uniform_int_distribution<int>(0, last)(m_random); }

private:
    QString word() {
        static const QStringList pieces{u"a"_s,      u"Z"_s,  u"9"_s,  u" "_s,    u"-"_s,  u"?"_s,
                                        u"\\"_s,     u"{"_s,  u"}"_s,  u"'"_s,    u"\n"_s, u"\t"_s,
                                        u"\u2028"_s, u"ü"_s,  u"ß"_s,  u"€"_s,    u"č"_s,  u"\u00a0"_s,
                                        u"😀"_s,      u"\n"_s, u"fs"_s, u"u252"_s, u"<"_s,  u"&"_s};
        QString text;
        for (int count = upTo(6); count >= 0; --count)
            text += pieces.at(upTo(static_cast<int>(pieces.size()) - 1));
        return text;
    }

    std::mt19937 m_random{7};
};

} // namespace

class RichTextTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void whatTheOldBoxStored_data() {
        QTest::addColumn<QString>("body");
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << u"Foto nicht erlaubt"_s << u"Foto nicht erlaubt"_s;
        QTest::newRow("empty") << QString() << QString();
        QTest::newRow("umlauts and quotes")
            << u"F\\'f6rderbedarf \\'84H\\'f6ren\\'93"_s << u"Förderbedarf „Hören“"_s;
        QTest::newRow("two lines") << u"Mutter spricht kaum Deutsch\r\n\\par bitte Vater anrufen"_s
                                   << u"Mutter spricht kaum Deutsch\nbitte Vater anrufen"_s;
        QTest::newRow("an empty line between") << u"A\r\n\\par \r\n\\par B"_s << u"A\n\nB"_s;
        QTest::newRow("letters beyond the code page with their fallback")
            << u"Vater: Gy\\u337?z\\u337? Erd\\u337?s, \\'84\\u336?\\'93 beachten"_s
            << u"Vater: Győző Erdős, „Ő“ beachten"_s;
        QTest::newRow("braces and a backslash")
            << u"\\'dcben: Lesen, Gr\\'f6\\'dfe \\{\\'e4\\\\\\'f6\\}, \\'a71, 5 \\'80"_s
            << u"Üben: Lesen, Größe {ä\\ö}, §1, 5 €"_s;
        QTest::newRow("escapes that were replaced by their letter")
            << u"Mittwoch: B\\ücherei ge\\öffnet"_s << u"Mittwoch: Bücherei geöffnet"_s;
        QTest::newRow("a replaced paragraph sign") << u"\\§ 1 und \\Ä"_s << u"§ 1 und Ä"_s;
        QTest::newRow("a fallback of two bytes") << u"\\uc2\\u268\\'43\\'43oli\\uc1\\u263?"_s
                                                 << u"Čoli"
                                                    "ć"_s;
        QTest::newRow("no fallback") << u"\\uc0\\u252 ber \\u252\\u228\\uc1\\u246?"_s << u"über üäö"_s;
        QTest::newRow("a negative number and a pair") << u"\\u-10179?\\u-8704?"_s << u"😀"_s;
        QTest::newRow("half a pair") << u"a\\u-10179?b"_s << u"a\ufffdb"_s;
        QTest::newRow("breaks, tabs and signs")
            << u"a\\line b\\tab c\\~d\\endash e\\bullet f\\rquote g"_s << u"a\nb\tc\u00a0d–e•f’g"_s;
        QTest::newRow("a backslash before a line end is a paragraph") << u"a\\\r\nb"_s << u"a\nb"_s;
        QTest::newRow("a colour table and a picture")
            << u"{\\colortbl;\\red0\\green0\\blue255;}a{\\pict\\wmetafile8 0123{\\b x}}b"_s << u"ab"_s;
        QTest::newRow("an unknown destination") << u"a{\\*\\generator Riched20 5.50;}b"_s << u"ab"_s;
        QTest::newRow("raw bytes") << u"a\\bin3 }}}b"_s << u"ab"_s;
        QTest::newRow("a field shows its result")
            << u"{\\field{\\*\\fldinst HYPERLINK x}{\\fldrslt Seite}}"_s << u"Seite"_s;
        QTest::newRow("a broken escape") << u"a\\'zzb"_s << u"azzb"_s;
    }
    void whatTheOldBoxStored() {
        QFETCH(const QString, body);
        QFETCH(const QString, text);
        QVERIFY(isRtf(oldBox(body)));
        const RichText read = richTextFrom(oldBox(body));
        QCOMPARE(read.plain(), text);
        QVERIFY(!read.hasMarks());
        QCOMPARE(readRtf(toRtf(read)), read);
    }

    void boldOfTheOldBox() {
        const RichText read = richTextFrom(oldBox(u"\\b Achtung:\\b0  Fr\\'fchdienst ab 7:15"_s));
        QCOMPARE(read, textOf({{u"Achtung:"_s, kBold}, {u" Frühdienst ab 7:15"_s, kNone}}));
    }

    void marksEndWithTheirGroup() {
        const RichText read =
            readRtf(u"{\\rtf1 a{\\b b{\\i c}}d\\ul e\\ulnone f\\uldb g\\ul0 h\\b\\i i\\plain j}"_s);
        QCOMPARE(read, textOf({{u"a"_s, kNone},
                               {u"b"_s, kBold},
                               {u"c"_s, kBoldItalic},
                               {u"d"_s, kNone},
                               {u"e"_s, kUnderline},
                               {u"f"_s, kNone},
                               {u"g"_s, kUnderline},
                               {u"h"_s, kNone},
                               {u"i"_s, kBoldItalic},
                               {u"j"_s, kNone}}));
    }

    void aTextThatIsNoMarkupIsTakenAsItIs_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("umlauts") << u"Allergie: Nüsse, Äpfel"_s;
        QTest::newRow("braces") << u"{nur} \\b so \\'e4"_s;
        QTest::newRow("empty") << QString();
    }
    void aTextThatIsNoMarkupIsTakenAsItIs() {
        QFETCH(const QString, text);
        QVERIFY(!isRtf(text));
        QCOMPARE(richTextFrom(text).plain(), text);
        QVERIFY(!richTextFrom(text).hasMarks());
    }

    void lineEndsOfAPlainTextAreParagraphs() {
        QCOMPARE(richTextFrom(u"a\r\nb\rc\nd"_s).plain(), u"a\nb\nc\nd"_s);
    }

    void theShortestMarkup_data() {
        QTest::addColumn<QString>("markup");
        QTest::newRow("empty") << u"{\\rtf1}"_s;
        QTest::newRow("a word") << u"{\\rtf1 Foto}"_s;
        QTest::newRow("no blank where none is needed") << u"{\\rtf1(Foto)}"_s;
        QTest::newRow("an umlaut") << u"{\\rtf1\\u220?ben}"_s;
        QTest::newRow("an apostrophe of the user is one character") << u"{\\rtf1 wenn's geht}"_s;
        QTest::newRow("a paragraph") << u"{\\rtf1 a\\par b}"_s;
        QTest::newRow("an empty last paragraph") << u"{\\rtf1 a\\par\\par}"_s;
        QTest::newRow("bold to the end") << u"{\\rtf1 a\\b b}"_s;
        QTest::newRow("bold at the beginning") << u"{\\rtf1{\\b a} b}"_s;
        QTest::newRow("bold and italic together") << u"{\\rtf1{\\b\\i a}b}"_s;
        QTest::newRow("italic inside bold") << u"{\\rtf1{\\b a{\\i b}c}d}"_s;
        QTest::newRow("underline inside bold at the end") << u"{\\rtf1 a\\b b{\\ul c}d}"_s;
        QTest::newRow("a blank that belongs to the text") << u"{\\rtf1{\\b  a}b}"_s;
    }
    void theShortestMarkup() {
        QFETCH(const QString, markup);
        QCOMPARE(toRtf(readRtf(markup)), markup);
    }

    void marksAndLettersSurviveARoundTrip() {
        const RichText text = textOf({{u"Frühdienst "_s, kBold},
                                      {u"ab 7:15\n"_s, kNone},
                                      {u"Győző"_s, kItalic},
                                      {u" {ß}\\\t"_s, kUnderline},
                                      {u"€ 5\n"_s, kNone}});
        QCOMPARE(readRtf(toRtf(text)), text);
    }

    void randomTextsSurviveARoundTripThroughMarkupAndTextBox() {
        TextSource source;
        for (int round = 0; round < 5000; ++round) {
            const RichText text = source.next();
            const QString markup = toRtf(text);
            QCOMPARE(readRtf(markup), text);
            QVERIFY(std::all_of(markup.begin(), markup.end(),
                                [](QChar c) { return c.unicode() >= 0x20 && c.unicode() < 0x7f; }));
            QCOMPARE(markup.count(u'\''), text.plain().count(u'\''));
            QTextDocument document;
            fillDocument(document, text);
            QCOMPARE(richTextFrom(document), text);
        }
    }

    void theTextBoxGivesTheMarksBack() {
        const RichText text = textOf({{u"a\n"_s, kNone}, {u"b"_s, kBold}, {u"c\u2028\t "_s, kItalic}});
        QTextDocument document;
        fillDocument(document, text);
        QCOMPARE(document.blockCount(), 2);
        QCOMPARE(richTextFrom(document), text);
        fillDocument(document, {});
        QVERIFY(richTextFrom(document).isEmpty());
    }

    void thePageGetsMarksAsTagsAndNothingElseAsMarkup() {
        const RichText text =
            textOf({{u"<b>\n"_s, kNone}, {u"A & B"_s, kBoldItalic}, {u"\u2028ü"_s, kUnderline}});
        QCOMPARE(toHtml(text), u"&lt;b&gt;<br /><b><i>A &amp; B</i></b><u><br />ü</u>"_s);
    }

    void brokenMarkupGivesWhatCanBeRead_data() {
        QTest::addColumn<QString>("markup");
        QTest::addColumn<QString>("text");
        QTest::newRow("cut off in the text") << u"{\\rtf1 Fot"_s << u"Fot"_s;
        QTest::newRow("cut off in an escape") << u"{\\rtf1 F\\'f"_s << u"Ff"_s;
        QTest::newRow("cut off behind a backslash") << u"{\\rtf1 F\\"_s << u"F"_s;
        QTest::newRow("cut off in raw bytes") << u"{\\rtf1 F\\bin99999 x"_s << u"F"_s;
        QTest::newRow("text behind the end") << u"{\\rtf1 F}x}y"_s << u"F"_s;
        QTest::newRow("a number too large") << u"{\\rtf1 F\\u99999999999?\\b99999999999 x"_s << u"Fx"_s;
    }
    void brokenMarkupGivesWhatCanBeRead() {
        QFETCH(const QString, markup);
        QFETCH(const QString, text);
        QCOMPARE(richTextFrom(markup).plain(), text);
    }

    void mutatedMarkupIsReadWithoutHarm() {
        const QStringList originals{
            oldBox(u"\\b Achtung:\\b0  Fr\\'fchdienst ab 7:15\\par\\ul x\\ulnone"_s),
            oldBox(u"Gy\\u337?z\\u337? {\\*\\x y}{\\pict 00}\\bin4 abcd\\uc2\\u-10179??\\~\\-"_s),
            oldBox(u"B\\ücherei \\{\\'e4\\\\\\'f6\\}\\line\\tab"_s)};
        TextSource source;
        const QString alphabet = u"\\{}'*\r\n 019-abu?ü~\u0001"_s + QChar(0xd83d);
        for (int round = 0; round < 20'000; ++round) {
            QString markup = originals.at(source.upTo(2));
            for (int change = source.upTo(8); change >= 0; --change) {
                const auto at = source.upTo(static_cast<int>(markup.size()));
                const QChar c = alphabet.at(source.upTo(static_cast<int>(alphabet.size()) - 1));
                if (source.upTo(2) == 0)
                    markup.insert(at, c);
                else if (source.upTo(20) == 0)
                    markup.truncate(at);
                else
                    markup.remove(at, 1 + source.upTo(3));
            }
            const RichText read = readRtf(markup);
            QCOMPARE(readRtf(toRtf(read)), read);
        }
    }

    void deepNestingIsReadWithoutHarm() {
        const QString markup = u"{\\rtf1 "_s + QString(200'000, u'{') + u"x"_s;
        QCOMPARE(readRtf(markup).plain(), u"x"_s);
    }
};

KOLIBRI_TEST_MAIN(RichTextTest)
#include "rich_text_test.moc"
