#include "core/frmStart.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
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
        const QList<std::pair<QString, QString>> units{
            {u"Neu"_s, u"Neueingabe"_s}, {u"Korrektur"_s, u"Korrigieren"_s}, {u"Löschen"_s, u"Löschen"_s}};
        for (const auto& [action, word] : units)
            row(u"mnuUnterrichtsEinheiten_"_s + action, u"frmUnterrichtseinheiten"_s, action,
                u"Unterrichtseinheit "_s + word);
        for (const auto& action : {u"Neu"_s, u"Korrektur"_s, u"Löschen"_s}) {
            row(u"mnuBaustein"_s + action, u"frmBaustein"_s, action, u"BAUSTEIN"_s);
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
};

KOLIBRI_TEST_MAIN(FrmStartTargetsTest)
#include "frmStart_targets_test.moc"
