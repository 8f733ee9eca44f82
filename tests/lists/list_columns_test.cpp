#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "lists/column_builder.h"
#include "lists/list_columns.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/page_body.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

/// The columns as "text weight alignment", with "text=key" where they differ.
QStringList columns() {
    const auto& liste = Liste();
    QStringList result;
    for (int i = 1; i <= liste.SpaltenAnzahl; ++i) {
        QString text = liste.SpaltenText(i);
        if (liste.SpaltenKey(i) != text)
            text += u'=' + liste.SpaltenKey(i);
        result << u"%1 %2 %3"_s.arg(text)
                      .arg(liste.SpaltenGewicht(i))
                      .arg(QStringView(u"?lrc").at(liste.SpaltenAusrichtung(i)));
    }
    return result;
}

QStringList columnsOf(int listenArt) {
    Global().ListenArt = static_cast<quint8>(listenArt);
    defineColumns();
    return columns();
}

/// What the store says against the columns of a list.
QString storeFailureOf(int listenArt) {
    try {
        columnsOf(listenArt);
    } catch (const StoreError& error) {
        return error.message();
    }
    return {};
}

QStringList split(const char* text) {
    return QString::fromUtf8(text).split(u", "_s);
}

void setAllOptions(DialogOptions& options) {
    options.chkKontakteNeu = options.chkBaustein = options.chkSchwimmer = options.chkKennung = true;
    options.chkKlasse = options.chkGebDatum = options.chkBeiträge = true;
    options.cmbKontakte = {u"Name"_s, QString(), u"Telefon"_s};
}

/// A list with columns of these weights, all aligned left.
void defineWeights(std::initializer_list<int> weights) {
    auto& liste = Liste();
    ColumnBuilder builder(liste);
    for (const int weight : weights)
        builder.add(u"S%1"_s.arg(weight), static_cast<qint16>(weight), kLinks);
    liste.SpaltenAnzahl = builder.count();
}

QList<int> widths() {
    QList<int> result;
    for (int i = 1; i <= Liste().SpaltenAnzahl; ++i)
        result << Liste().SpaltenBreitePt(i);
    return result;
}

} // namespace

class ListColumnsTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void theColumnsOfEachList_data() {
        QTest::addColumn<int>("listenArt");
        QTest::addColumn<bool>("freitag");
        QTest::addColumn<QString>("expected");
        const auto row = [](int listenArt, bool freitag, const char* expected) {
            QTest::addRow("%d%s", listenArt, freitag ? " Freitag" : "")
                << listenArt << freitag << QString::fromUtf8(expected);
        };
        row(3, false, "KLASSE 15 c, MO 10 c, DI 10 c, MI 10 c, DO 10 c, FR 10 c");
        row(6, false,
            "NAME 10 l, KLASSE 5 l, AN=ANWESENHEIT 2 l, AN=ANWESENHEIT 2 l, AN=ANWESENHEIT 2 l, "
            "AN=ANWESENHEIT 2 l, AN=ANWESENHEIT 2 l, AN=ANWESENHEIT 2 l");
        row(7, false,
            "NAME 9 l, KL 3 c, TAG 3 c, U-ENDE=U 9 c, ME 9 c, LZ 9 c, AG1 9 c, AG2 9 c, AG3 9 c, AG4 9 c, "
            "AG5 9 c");
        for (const int report : {11, 12, 21, 22}) {
            row(report, false, "MENSA-ZEIT 30 c, MO 10 c, DI 10 c, MI 10 c, DO 10 c");
            row(report, true, "MENSA-ZEIT 30 c, MO 10 c, DI 10 c, MI 10 c, DO 10 c, FR 10 c");
        }
        row(13, false, "MENSA 20 c, ZEIT=A 20 c, A 10 c, B 10 c, C 10 c, D 10 c, GES 10 c");
        row(23, false, "LERNZEIT 20 c, ZEIT=A 20 c, A 10 c, B 10 c, C 10 c, D 10 c, GES 10 c");
        row(14, true, "NAME 18 l, MO 12 c, DI 12 c, MI 12 c, DO 12 c, FR 12 c");
        row(14, false, "NAME 18 l, MO 12 c, DI 12 c, MI 12 c, DO 12 c");
        row(15, false, "NAME 22 l, KLASSE 7 l, NOTIZ 14 l, MO 10 c, DI 10 c, MI 10 c, DO 10 c, FR 10 c");
        row(16, false, "NAME 20 l, KL 7 l, NOTIZ 25 l, MENSA 20 c");
        row(31, false, "ARBEITSGRUPPE 20 l, TAG 10 c, ZEIT 10 c, SUMME 10 c");
        row(41, false, "NAME 15 l, KLASSE 3 c, TAG 3 c, L_NAME 13 c, ZEIT 13 c, NOTIZ 20 l");
        row(42, false, "NAME 15 l, KLASSE 5 c, TAG 5 c, UE 10 c, NOTIZ 25 l");
        row(51, false, "ART 15 l, BEZEICHNUNG 45 l");
        row(61, false, "NR 8 c, BAUSTEIN 45 l");
        row(101, false, "NAME 15 l");
        row(111, false, "NR 5 r, NAME 15 l");
        row(113, false, "NAME 15 l, KL 3 c");
        row(114, false, "NAME 15 l, KL 3 c");
        row(115, false, "NR 5 r, NACHNAME 15 l, VORNAME 10 l");
    }
    void theColumnsOfEachList() {
        QFETCH(const int, listenArt);
        QFETCH(const bool, freitag);
        QFETCH(const QString, expected);
        Liste().FreitagBelegt = freitag;
        QCOMPARE(columnsOf(listenArt), expected.split(u", "_s));
    }

    void mensaAndLernzeitHaveAPairOfColumnsForEachDay() {
        const QString picture =
            u"<img src=\""_s + QCoreApplication::applicationDirPath() + u"\\Notiz20.jpg\">=NOTIZ 7 l"_s;
        for (const int listenArt : {4, 5})
            for (const bool freitag : {false, true}) {
                Liste().FreitagBelegt = freitag;
                QStringList expected;
                for (int day = 0; day < (freitag ? 5 : 4); ++day)
                    expected << u"NAME 10 l"_s << picture;
                QCOMPARE(columnsOf(listenArt), expected);
            }
    }

    void thePupilListsWithAllOptions_data() {
        QTest::addColumn<int>("listenArt");
        QTest::addColumn<QString>("names");
        QTest::newRow("101") << 101 << u"NAME 15 l"_s;
        QTest::newRow("111") << 111 << u"NAME 15 l"_s;
        QTest::newRow("113") << 113 << u"NAME 15 l"_s;
        QTest::newRow("114") << 114 << u"NAME 15 l"_s;
        QTest::newRow("115") << 115 << u"NR 5 r, NACHNAME 15 l, VORNAME 10 l"_s;
    }
    void thePupilListsWithAllOptions() {
        QFETCH(const int, listenArt);
        QFETCH(const QString, names);
        useEmptyDatabase();
        setAllOptions(Liste().Dialog);
        const QStringList expected =
            names.split(u", "_s)
            + split("GEB. DAT.=GEB. DATUM 15 r, KL 3 c, Nachname=Kontakt 15 l, Vorname=Kontakt 15 l, "
                    "Tel. Privat=Kontakt 15 l, Mobil=Kontakt 15 l, Tel. Arbeit=Kontakt 15 l, SCHWIMMER 8 c, "
                    "KENNUNG 12 c, BAUSTEIN 12 c, Mitgliedsbeitrag 7 r, Betreuungsbeitrag 7 r");
        QCOMPARE(columnsOf(listenArt), expected);
        QCOMPARE(Liste().KontaktSpalten, 5);
        QCOMPARE(Liste().KontaktNummern, std::vector({0, 1, 5, 6, 7}));
        QCOMPARE(Liste().BeitragNummern, std::vector({0, 1}));
    }

    void aContactCategoryWithoutTextAddsNoColumns() {
        useEmptyDatabase();
        Liste().Dialog.chkKontakteNeu = true;
        QCOMPARE(columnsOf(115), split("NR 5 r, NACHNAME 15 l, VORNAME 10 l"));
        QCOMPARE(Liste().KontaktSpalten, 0);
    }

    void aCategoryWithAnApostropheIsRefusedByTheStore() {
        useEmptyDatabase();
        Liste().Dialog.chkKontakteNeu = true;
        Liste().Dialog.cmbKontakte[0] = u"Oma's"_s;
        Global().ListenArt = kErweiterteListe;
        try {
            defineColumns();
            QFAIL("no error");
        } catch (const StoreError& error) {
            QCOMPARE(error.kind(), StoreError::Kind::Syntax);
        }
    }

    void aFeeThatIsOffHasNoColumn() {
        useEmptyDatabase();
        {
            const DbSession session(u"Beiträge"_s);
            Global().Conn.Change(u"Einstellungen"_s, {{u"BeitragAktiv"_s, 0}}, u"Feld = 'Beitrag_0'"_s);
            Global().Conn.Change(u"Einstellungen"_s,
                                 {{u"BeitragAktiv"_s, 1}, {u"BeitragBezeichnung"_s, u"Ferien"_s}},
                                 u"Feld = 'Beitrag_6'"_s);
        }
        Liste().Dialog.chkBeiträge = true;
        QCOMPARE(columnsOf(101), split("NAME 15 l, Betreuungsbeitrag 7 r, Ferien 7 r"));
        QCOMPARE(Liste().BeitragNummern, std::vector({1, 6}));
    }

    void aMissingRowOfAFeeIsAClearErrorIfFeesAreAskedFor() {
        useEmptyDatabase();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Delete(u"Einstellungen"_s, u"Feld = 'Beitrag_5'"_s);
        }
        QCOMPARE(columnsOf(101), split("NAME 15 l"));
        Liste().Dialog.chkBeiträge = true;
        QCOMPARE(storeFailureOf(101), u"In den Einstellungen fehlt die Zeile \"Beitrag_5\"."_s);
        QVERIFY(!Global().Conn.IsOpen());
    }

    void aContactFieldWithoutItsNumberIsAClearError() {
        useEmptyDatabase();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(u"Einstellungen"_s, {{u"Nummer"_s, {}}},
                                 u"Feld = 'Kontakt' AND Nummer = 6"_s);
        }
        Liste().Dialog.chkKontakteNeu = true;
        Liste().Dialog.cmbKontakte[0] = u"Telefon"_s;
        QCOMPARE(storeFailureOf(115),
                 u"In den Einstellungen fehlt die Nummer des Kontaktfeldes \"Mobil\"."_s);
        QVERIFY(!Global().Conn.IsOpen());
    }

    void tooManyContactColumnsAreARunTimeError() {
        useEmptyDatabase();
        {
            const DbSession session(u"Kontakte"_s);
            for (int i = 0; i < 98; ++i)
                Global()
                    .Conn.AddNew(u"Einstellungen"_s)
                    .Set(u"Feld"_s, u"Kontakt"_s)
                    .Set(u"Nummer"_s, 9)
                    .Set(u"Bezeichnung"_s, u"K"_s)
                    .Set(u"KategorieKontakte"_s, u"Viele"_s)
                    .Update();
        }
        Liste().Dialog.chkKontakteNeu = true;
        Liste().Dialog.cmbKontakte[2] = u"Viele"_s;
        Global().ListenArt = kNamensliste;
        defineColumns();
        QCOMPARE(Liste().SpaltenAnzahl, 99);
        Global().ListenArt = kErweiterteListe;
        try {
            defineColumns();
            QFAIL("no error");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.number(), 9);
        }
    }

    void theNextListForgetsFeesAndContacts() {
        useEmptyDatabase();
        setAllOptions(Liste().Dialog);
        columnsOf(115);
        columnsOf(3);
        QCOMPARE(Liste().KontaktSpalten, 0);
        QVERIFY(Liste().BeitragNummern.empty());
    }

    void theWidthIsSharedOutByWeight() {
        Liste().Seite.TabellenBreite = 514;
        Global().ListenArt = 3;
        defineColumns();
        computeWidths();
        // 514 points over 65 units are 7.9, and so 8.
        QCOMPARE(widths(), QList<int>({120, 80, 80, 80, 80, 80}));
        QCOMPARE(Liste().SpaltenAlign(1), u"center"_s);
    }

    void theFactorRoundsAHalfToTheEvenNeighbour() {
        Liste().Seite.TabellenBreite = 5;
        defineWeights({1, 1});
        computeWidths();
        QCOMPARE(widths(), QList<int>({2, 2}));
        Liste().Seite.TabellenBreite = 7;
        computeWidths();
        QCOMPARE(widths(), QList<int>({4, 4}));
    }

    // A point for each unit of weight is the least that a column can have; below half a point it has none.
    void weightsAboveTheWidthOfTheTableGiveCellsOfNoWidth() {
        Liste().Seite.TabellenBreite = 514;
        defineWeights({500, 527});
        computeWidths();
        QCOMPARE(widths(), QList<int>({500, 527}));
        for (const int second : {528, 1000}) {
            defineWeights({500, second});
            computeWidths();
            QCOMPARE(widths(), QList<int>({0, 0}));
            QCOMPARE(cellStart(1), u"<TD WIDTH=0pt ALIGN=left>"_s);
            QCOMPARE(cellStart(2), u"<TD WIDTH=0pt ALIGN=left>"_s);
        }
    }

    void aListWithoutWeightsIsADivisionByZero() {
        Liste().Seite.TabellenBreite = 514;
        defineWeights({0});
        try {
            computeWidths();
            QFAIL("no error");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.message(), u"Laufzeitfehler '11': Division durch Null"_s);
        }
    }

    void anAlignmentThatIsNoneLeavesTheOneOfTheListBefore() {
        auto& liste = Liste();
        liste.Seite.TabellenBreite = 100;
        defineWeights({1, 1, 1});
        liste.SpaltenAusrichtung(1) = 1;
        liste.SpaltenAusrichtung(2) = 2;
        liste.SpaltenAusrichtung(3) = 3;
        computeWidths();
        for (const quint8 none : {0, 4, 255}) {
            for (int i = 1; i <= 3; ++i)
                liste.SpaltenAusrichtung(i) = none;
            computeWidths();
            QCOMPARE(liste.SpaltenAlign(1), u"left"_s);
            QCOMPARE(liste.SpaltenAlign(2), u"right"_s);
            QCOMPARE(liste.SpaltenAlign(3), u"center"_s);
        }
    }

    void townAndTeamDoNotCountWhenAskedButGetAWidth() {
        auto& liste = Liste();
        liste.Seite.TabellenBreite = 100;
        defineWeights({5, 10, 20, 5});
        liste.SpaltenKey(2) = u"ORT"_s;
        liste.SpaltenKey(3) = u"Mannschaft"_s;
        computeWidths();
        QCOMPARE(widths(), QList<int>({10, 20, 40, 10}));
        liste.OhneOrt = true;
        computeWidths();
        QCOMPARE(widths(), QList<int>({50, 100, 200, 50}));
    }
};

KOLIBRI_TEST_MAIN(ListColumnsTest)
#include "list_columns_test.moc"
