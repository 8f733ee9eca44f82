#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "students/remark_text.h"
#include "support/test_base.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

class RemarkTextTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void anEmptyRemarkIsTheEmptyText() { QCOMPARE(AnmerkungSpeicherform({}), QString()); }

    void aRemarkIsKeptAsMarkup() {
        QCOMPARE(AnmerkungSpeicherform(RichText(u"Nüsse"_s)), u"{\\rtf1 N\\u252?sse}"_s);
    }

    void whatTheWindowsTextBoxStoredBecomesShort() {
        const QString old =
            u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1031{\\fonttbl{\\f0\\fnil\\fcharset0 MS Sans "
            "Serif;}}\r\n\\viewkind4\\uc1\\pard\\f0\\fs17 Gr\\'f6\\'dfe 134\r\n\\par }\r\n"_s;
        QCOMPARE(AnmerkungSpeicherform(richTextFrom(old)), u"{\\rtf1 Gr\\u246?\\u223?e 134}"_s);
    }

    void theLongestRemarkThatFits() {
        // Eight characters of markup stand around the text.
        RichText fits;
        fits.append(QString(246, u'x'), {true, false, false});
        QCOMPARE(AnmerkungZaehler(AnmerkungSpeicherform(fits)), u"256 / 255"_s);
        QVERIFY(!AnmerkungPasst(AnmerkungSpeicherform(fits)));
        RichText shorter;
        shorter.append(QString(245, u'x'), {true, false, false});
        QVERIFY(AnmerkungPasst(AnmerkungSpeicherform(shorter)));
    }

    void aPlainRemarkTooLongAsMarkupStaysPlain() {
        const QString text = u"Ü"_s + QString(254, u'x');
        QCOMPARE(AnmerkungSpeicherform(RichText(text)), text);
        const QString longer = text + u'x';
        QVERIFY(!AnmerkungPasst(AnmerkungSpeicherform(RichText(longer))));
    }

    void aPlainTextThatLooksLikeMarkupIsNotStoredPlain() {
        const QString text = u"{\\rtf1 "_s + QString(244, u'x') + u'}';
        QVERIFY(!AnmerkungPasst(AnmerkungSpeicherform(RichText(text))));
    }

    void theMessageSaysHowLongItIs() {
        RichText text;
        text.append(QString(300, u'x'), {});
        QCOMPARE(
            AnmerkungZuLang(AnmerkungSpeicherform(text)),
            u"Feld Anmerkung: der Text braucht mit seinen Auszeichnungen 308 Zeichen, höchstens 255 sind "
            "möglich. Bitte kürzen Sie ihn!"_s);
    }

    void everyFormThatFitsIsTakenByTheStoreAndReadBack() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        auto& conn = Global().Conn;
        for (const auto& text : {u"Nüsse"_s, QString(247, u'x'), QString(248, u'ü'), QString(255, u'x')}) {
            const QString stored = AnmerkungSpeicherform(RichText(text));
            QVERIFY(AnmerkungPasst(stored));
            const qint64 id = conn.AddNew(u"Stammdaten"_s).Set(u"Anmerkung"_s, stored).Update();
            const Recordset rs = conn.Open(u"SELECT Anmerkung FROM Stammdaten WHERE ID = ?"_s, {id});
            QCOMPARE(richTextFrom(rs.Text(u"Anmerkung")).plain(), text);
        }
    }
};

KOLIBRI_TEST_MAIN(RemarkTextTest)
#include "remark_text_test.moc"
