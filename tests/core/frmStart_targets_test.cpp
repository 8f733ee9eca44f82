#include "core/frmStart.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "students/frmSchuelerIn.h"
#include "support/driving.h"
#include "support/expected_page.h"
#include "support/test_base.h"

#include <QAbstractButton>
#include <QAction>
#include <QGuiApplication>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

/// What the menu opens, and in which mode.
class FrmStartTargetsTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void anEntryOpensItsFormInItsMode_data() {
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("tag");
        QTest::addColumn<QString>("caption");
        const auto row = [](const QString& entry, const QString& form, const QString& tag,
                            const QString& caption) {
            QTest::newRow(qPrintable(entry)) << form << tag << caption;
        };
        row(u"mnuKlasseNeuLöschen"_s, u"frmKlassenNeuLöschen"_s, {}, u"Klassen Neu/Löschen"_s);
        row(u"mnuUnterrichtBeginnEnde"_s, u"frmUnterrichtszeiten"_s, {}, u"Unterrichtszeiten"_s);
        row(u"mnuStundenplan"_s, u"frmStundenplan"_s, {}, u"Stundenplan"_s);
        row(u"mnuListen_ME_LZ_AG"_s, u"frmListeNotizen"_s, u"ME_LZ_AG"_s, u"LISTE NOTIZEN"_s);
        row(u"mnuNotizenTP"_s, u"frmListeNotizen"_s, u"TP"_s, u"LISTE NOTIZEN"_s);
        row(u"mnuBelegungplanME"_s, u"frmBelegungsplan_ME_LZ"_s, u"BelegungME"_s, u"Belegungsplan"_s);
        row(u"mnuBelegungsplanLZ"_s, u"frmBelegungsplan_ME_LZ"_s, u"BelegungLZ"_s, u"Belegungsplan"_s);
        const QList<std::pair<QString, QString>> assignments{
            {u"mnuZuweisungMensa"_s, u"Mensa"_s},
            {u"mnuZuweisungLernzeiten"_s, u"Lernzeit"_s},
            {u"mnuZuweisungArbeitsgruppen"_s, u"Arbeitsgruppe"_s}};
        for (const auto& [entry, kind] : assignments) {
            row(entry, u"frmKlassenZuweisung"_s, kind, u"Klassen-Zuweisung "_s + kind.toUpper());
            // These entries are not seen, but they open their form.
            row(u"mnuListentext"_s + kind, u"frmListentext"_s, kind, u"Listentexte"_s);
        }
        row(u"mnuListeMensaKlasse"_s, u"frmME_LZ_Anzeigen"_s, {}, u"LISTE MENSA"_s);
        row(u"mnuListeMensaEinheit"_s, u"frmME_LZ_Anzeigen"_s, {}, u"LISTE MENSA"_s);
        row(u"mnuListeLernzeitKlassenGruppiert"_s, u"frmME_LZ_Anzeigen"_s, {}, u"LISTE LERNZEIT"_s);
        row(u"mnuListeMensaNachKlasse"_s, u"frmME_jeSchüler"_s, {}, u"MENSA je Schüler"_s);
        row(u"mnuMensaIndividuell"_s, u"frmME_Individuell"_s, {}, u"MENSA INDIVIDUELL"_s);
        row(u"mnuListeArbeitsgruppen"_s, u"frmAG_Anzeigen"_s, {}, u"LISTE ARBEITSGRUPPE"_s);
        row(u"mnuTagesplan"_s, u"frmWochenplan"_s, {}, u"Tagesplan"_s);
        const QList<std::pair<QString, QString>> units{
            {u"Neu"_s, u"Neueingabe"_s}, {u"Korrektur"_s, u"Korrigieren"_s}, {u"Löschen"_s, u"Löschen"_s}};
        for (const auto& [action, word] : units)
            row(u"mnuUnterrichtsEinheiten_"_s + action, u"frmUnterrichtseinheiten"_s, action,
                u"Unterrichtseinheit "_s + word);
        for (const auto& action : {u"Neu"_s, u"Korrektur"_s, u"Löschen"_s}) {
            row(u"mnuBaustein"_s + action, u"frmBaustein"_s, action, u"BAUSTEIN"_s);
            row(u"mnuWP_Notizen_"_s + action, u"frmWP_Notizen"_s, action, u"Tagesplan Notizen"_s);
            const auto offering = [&](const QString& entry, const QString& kind) {
                row(entry + action, u"frmME_LZ_AG"_s, kind + action,
                    kind.toUpper() + u' ' + action.toUpper());
            };
            offering(u"mnuMensa"_s, u"Mensa"_s);
            offering(u"mnuLernzeit"_s, u"Lernzeit"_s);
            offering(u"mnuArbeitsgruppen"_s, u"Arbeitsgruppe"_s);
        }
    }

    void anEntryOpensItsFormInItsMode() {
        QFETCH(QString, form);
        QFETCH(QString, tag);
        QFETCH(QString, caption);
        useEmptyDatabase();
        auto& start = Form<frmStart>();
        start.setState(StartState::Ready);
        start.findChild<QAction*>(QString::fromUtf8(QTest::currentDataTag()))->trigger();
        auto* opened = dynamic_cast<FormWindow*>(QApplication::activeModalWidget());
        QVERIFY(opened);
        QCOMPARE(opened->objectName(), form);
        QCOMPARE(opened->Tag, tag);
        QCOMPARE(opened->windowTitle(), caption);
        QVERIFY(opened->isModal());
    }

    void anEntryShowsItsReport_data() {
        QTest::addColumn<int>("listenArt");
        QTest::addColumn<QStringList>("boxes");
        const QString question =
            u"Soll die Ausgabe mit eventuell vorhandenen Schulanfängern\n(Klasse = 0) erfolgen?"_s;
        const QString fourClasses = u"Es werden nur die Klassen 'A bis D' dargestellt!"_s;
        const auto row = [](const QString& entry, int listenArt, const QStringList& boxes) {
            QTest::newRow(qPrintable(entry)) << listenArt << boxes;
        };
        row(u"mnuBerichtMensaGesamt"_s, 11, {question});
        row(u"mnuBerichtMensaAnzahlJeKlasse"_s, 12, {question});
        row(u"mnuBerichtLernzeitGesamt"_s, 21, {question});
        row(u"mnuBerichtLernzeitNachKlassen"_s, 22, {question});
        row(u"mnuBelegungME"_s, 13, {fourClasses});
        row(u"mnuBelegungLZ"_s, 23, {fourClasses});
        row(u"mnuBerichtArbeitsgruppenGesamt"_s, 31, {});
        row(u"mnuZeitüberschneidungen"_s, 7, {});
    }

    void anEntryShowsItsReport() {
        QFETCH(const int, listenArt);
        QFETCH(const QStringList, boxes);
        useSampleSchool();
        auto& start = Form<frmStart>();
        start.setState(StartState::Ready);
        for (const auto& box : boxes)
            doorsOfTest.expect(box, kAnswerYes);
        start.findChild<QAction*>(QString::fromUtf8(QTest::currentDataTag()))->trigger();
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>({static_cast<quint8>(listenArt)}));
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void theLargeButtonsShowTheOccupancyPlans() {
        useSampleSchool();
        auto& start = Form<frmStart>();
        start.setState(StartState::Ready);
        for (const auto& name : {u"Belegug_Mensa"_s, u"Belegug_Lernzeit"_s}) {
            doorsOfTest.expect(u"Es werden nur die Klassen 'A bis D' dargestellt!"_s);
            start.findChild<QAbstractButton*>(name)->click();
        }
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>({13, 23}));
    }

    void aListWithoutOptionsIsShownAtOnce_data() {
        QTest::addColumn<int>("list");
        QTest::newRow("mnuListeNeueSchüler") << int{kNeueSchueler};
        QTest::newRow("mnuListeNicht_OG_Schüler") << int{kNichtOgSchueler};
        QTest::newRow("mnuListeUnterrichtszeiten") << int{kUnterrichtszeiten};
        QTest::newRow("mnuListeBausteine") << int{kBausteine};
    }

    void aListWithoutOptionsIsShownAtOnce() {
        QFETCH(int, list);
        useSampleSchool();
        auto& start = Form<frmStart>();
        start.setState(StartState::Ready);
        start.findChild<QAction*>(QString::fromUtf8(QTest::currentDataTag()))->trigger();
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>{static_cast<quint8>(list)});
        QVERIFY(Liste().ZeilenAnzahl > 0);
    }

    void aListWithOptionsAsksForThemFirst_data() {
        QTest::addColumn<int>("list");
        QTest::newRow("mnuListeSchülerErweiterteListe") << int{kErweiterteListe};
        QTest::newRow("mnuListeSchülerNamensliste") << int{kNamensliste};
        QTest::newRow("mnuSchulanfänger_Liste") << int{kSchulanfaenger};
    }

    void aListWithOptionsAsksForThemFirst() {
        QFETCH(int, list);
        useEmptyDatabase();
        auto& start = Form<frmStart>();
        start.setState(StartState::Ready);
        start.findChild<QAction*>(QString::fromUtf8(QTest::currentDataTag()))->trigger();
        QVERIFY(QApplication::activeModalWidget());
        QCOMPARE(QApplication::activeModalWidget()->objectName(), u"frmDialog"_s);
        QCOMPARE(int{Global().ListenArt}, list);
        QVERIFY(doorsOfTest.pages().empty());
    }

    void thePrinterOfThePupilFormShowsTheSheetOfThePupil() {
        useSampleSchool();
        auto& start = Form<frmStart>();
        start.setState(StartState::Ready);
        start.findChild<QAction*>(u"mnuSchülerIn_Korrektur"_s)->trigger();
        auto& form = Form<frmSchülerIn>();
        QVERIFY(form.isVisible());
        test::clickRow(test::control<ListView>(form, u"lvwStammdaten"_s), 3);
        const QString name = test::textOf(form, u"txtSCH(0)"_s);
        test::press(form, u"imgPrinter"_s);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>{51});
        QCOMPARE(Liste().BlattSchuelerID, Global().AktuelleSchuelerID);
        QVERIFY(QString::fromLatin1(test::pageBytes()).contains(name));
        QCOMPARE(test::textOf(form, u"txtSCH(0)"_s), name);
    }
};

KOLIBRI_TEST_MAIN(FrmStartTargetsTest)
#include "frmStart_targets_test.moc"
