#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "lists/page_style.h"
#include "support/expected_page.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using kolibri::test::compareWithExpected;
using kolibri::test::pageBytes;

namespace {

/// What the sheet must hold, written down once more and in another shape than the table: the name of each
/// rule, the font group it follows (-1 for none), and whether a printed sheet has it.
struct SheetRule {
    const char16_t* name;
    int group;
    bool printed;
};

constexpr SheetRule kSheet[] = {
    {u"BODY", -1, true},
    {u"#kopf_links", -1, true},
    {u"#kopf_mitte", -1, true},
    {u"#kopf_rechts", -1, true},
    {u"#kopf_anschrift", -1, true},
    {u"#copyright", -1, true},
    {u"#tn_daten", -1, true},
    {u"h1", -1, true},
    {u"h3", -1, true},
    {u".datum", -1, true},
    {u".UE1_ME_LZ_AG", -1, true},
    {u".woche", -1, true},
    {u".anmerkung_vorher", -1, true},
    {u".anmerkung_nachher", -1, true},
    {u".tabelle", -1, true},
    {u".UE1_vorher", -1, true},
    {u"#box_table", -1, true},
    {u"/* CSS Style für Tabelle */", -1, true},
    {u"TABLE.Tpt", -1, true},
    {u"TABLE.Wochenplan", -1, true},
    {u"TABLE.Wochenplan_ohneSU", -1, true},
    {u"TABLE.Seitenumbruch", -1, true},
    {u"TABLE.SeitenumbruchAfter", -1, true},
    {u"TR.KopfZeile TD", 0, true},
    {u"TR.KopfZeile_ME_LZ_AG TD", 0, true},
    {u"TR.KopfZeile_Wochenplan", 3, true},
    {u"TR.ME_LZ_AG_Daten1 TD", 1, true},
    {u"TR.ME_LZ_AG_Daten2 TD", 1, true},
    {u"TR.Wochenplan_Daten1 TD", 4, true},
    {u"TR.Wochenplan_Daten2 TD", 4, true},
    {u"TR.SummenZeile_ME_LZ_AG TD", 2, true},
    {u"TR.Seitenumbruch_vorher", 1, true},
    {u"TR.Seitenumbruch_nachher", 1, true},
    {u"TR TD", -1, true},
    {u"TR.Zeile2 TD", -1, true},
    {u"TR#Ueberschrift_KL_MN", -1, true},
    {u"TR.Liste_Stammdaten TD", 1, true},
    {u"TR.Liste_MensaJeSchülerS TD", 1, false},
    {u"TR.Liste_MensaJeSchülerM TD", 1, false},
    {u"TR.Liste_MensaJeSchülerL TD", 1, false},
    {u"TR.Stammdaten1 TD", 1, false},
    {u"TR.Stammdaten111 TD", 1, false},
    {u"TR.Stammdaten112 TD", 1, false},
    {u"TR.Stammdaten113 TD", 1, false},
    {u"TR.Stammdaten2 TD", 1, false},
    {u"TR.StammdatenGV11 TD", 1, false},
    {u"TR.StammdatenGV12 TD", 1, false},
    {u"TR.StammdatenGV13 TD", 1, false},
    {u"TR.StammdatenGV21 TD", 1, false},
    {u"TR.StammdatenGV22 TD", 1, false},
    {u"TR.StammdatenGV23 TD", 1, false},
    {u"THEAD", -1, true},
    {u"THEAD", -1, true},
    {u"TABLE.STD_Basic", -1, true},
    {u"TR.STD_KopfZeile TD", 0, true},
    {u"TR.STD_1 TD", 1, true},
    {u"TR.STD_2 TD", 1, true},
    {u"TR.STD_Summe TD", 1, true},
    {u"TABLE.AG", -1, true},
    {u"TR.ArbeitsgruppeKopf TD", -1, true},
    {u"TD.Liste_ME_LZ_AG_KZ10", -1, true},
    {u"TD.Liste_ME_LZ_AG_KZ11", -1, true},
    {u"TD.Liste_ME_LZ_AG_KZ20", -1, true},
    {u"TD.Liste_ME_LZ_AG_KZ21", -1, true},
    {u"TD.Liste_ME_LZ_AG_KZ22", -1, true},
    {u"TD.Liste_ME_LZ_AG_1", -1, true},
    {u"TD.Liste_ME_LZ_AG_2", -1, true},
    {u"TD.Liste_ME_LZ_AG_SZ1", -1, true},
    {u"TD.Liste_ME_LZ_AG_SZ2", -1, true},
    {u"TABLE.Belegungen", -1, true},
    {u"TD.BelegungToMax", -1, true},
    {u".WP_Zusatztext", -1, true},
};

/// Values that differ in every group, so that a rule of the wrong group shows.
PageValues distinctValues() {
    PageValues values;
    values.TabellenBreite = 777;
    for (std::size_t i = 0; i < kFontGroups; ++i) {
        values.FontGroesse[i] = static_cast<quint8>(100 + i);
        values.FontGewicht[i] = u"weight%1"_s.arg(i);
        values.FontStil[i] = u"style%1"_s.arg(i);
    }
    return values;
}

void setFont(const QString& key, int size, bool bold, bool italic) {
    Global().Conn.Change(u"Einstellungen"_s, {{u"Grösse"_s, size}, {u"Fett"_s, bold}, {u"Kursiv"_s, italic}},
                         u"Feld = ?"_s, {key});
}

QByteArray head() {
    prepareList(kBausteine);
    producePage();
    const QByteArray page = pageBytes();
    return page.left(page.indexOf("<BODY>"));
}

} // namespace

class PageStyleTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void theHeadOfANewDatabaseIsTheExpectedOne() {
        useEmptyDatabase();
        compareWithExpected(head(), u"head_upright.html"_s);
    }

    void theHeadAcrossWithOtherFontsIsTheExpectedOne() {
        useEmptyDatabase();
        {
            const DbSession session(u"Schriften"_s);
            setFont(u"TabelleKopfZeile"_s, 14, false, true);
            setFont(u"TabelleZeile"_s, 12, true, true);
            setFont(u"TabelleSummenZeile"_s, 9, false, false);
            setFont(u"WochenplanKopfZeile"_s, 16, false, true);
            setFont(u"WochenplanZeile"_s, 7, true, false);
        }
        Liste().Dialog.optFormat = PaperOrientation::Across;
        compareWithExpected(head(), u"head_across.html"_s);
    }

    void theSheetHoldsItsRulesInTheirOrder() {
        const auto& rules = styleRules();
        QCOMPARE(rules.size(), std::size(kSheet));
        for (std::size_t i = 0; i < rules.size(); ++i) {
            const QString name = QString::fromUtf16(kSheet[i].name);
            const QString text = rules[i].text.toString();
            QVERIFY2(text == name || text.startsWith(name + u" {"_s), qPrintable(text));
            QCOMPARE(!rules[i].screenOnly, kSheet[i].printed);
        }
    }

    void eachRuleFollowsItsFontGroup() {
        const PageValues values = distinctValues();
        const auto& rules = styleRules();
        for (std::size_t i = 0; i < std::size(kSheet); ++i) {
            const QString line = styleLine(rules[i], values);
            const int group = kSheet[i].group;
            QVERIFY2(!line.contains(u"{W}"_s) && !line.contains(u"{S}"_s) && !line.contains(u"{B}"_s)
                         && !line.contains(u"{I}"_s),
                     qPrintable(line));
            QCOMPARE(line.contains(u"font-style: style"_s), group >= 0);
            if (group < 0)
                continue;
            const auto size = u"font-size: %1px;"_s.arg(100 + group);
            QVERIFY2(line.contains(size) && line.contains(u"font-style: style%1;"_s.arg(group)),
                     qPrintable(line));
            // Only the sum row of the fees is bold whatever the settings say.
            QCOMPARE(line.contains(u"font-weight: weight%1;"_s.arg(group)),
                     !line.startsWith(u"TR.STD_Summe"_s));
        }
    }

    void theTablesThatFillTheSheetHaveItsWidth() {
        QStringList wide;
        for (const auto& rule : styleRules())
            if (styleLine(rule, distinctValues()).contains(u"width: 777pt;"_s))
                wide << rule.text.left(rule.text.indexOf(u' ')).toString();
        QCOMPARE(wide, QStringList({u"TABLE.Tpt"_s, u"TABLE.Wochenplan"_s, u"TABLE.Wochenplan_ohneSU"_s,
                                    u"TABLE.Seitenumbruch"_s, u"TABLE.SeitenumbruchAfter"_s,
                                    u"TABLE.Belegungen"_s}));
    }

    void theRuleOfH1EndsWithTwoClosingBraces() {
        useEmptyDatabase();
        QCOMPARE(head().count("margin-top: 10px;}}\r\n"), 2);
    }

    void theSlipsOfTheSheetStay() {
        QStringList all;
        for (const auto& rule : styleRules())
            all << rule.text.toString();
        const QString sheet = all.join(u'\n');
        for (const auto& slip :
             {u"BODY {align: center;"_s, u".datum {color: back;"_s, u"font-style = italic}"_s,
              u"THEAD { line height: 40px; }"_s, u"vertical-align: top, font-weight: {B}"_s,
              u"vertical-align: top, height: 25px;"_s})
            QVERIFY2(sheet.contains(slip), qPrintable(slip));
    }
};

KOLIBRI_TEST_MAIN(PageStyleTest)
#include "page_style_test.moc"
