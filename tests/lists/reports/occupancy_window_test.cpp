// The picture of an occupancy plan in the window that shows its page.

#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "lists/frmAnzeige_WEB_Browser.h"
#include "lists/list_numbers.h"
#include "lists/list_table.h"
#include "lists/reports/occupancy_picture.h"
#include "support/expected_page.h"
#include "support/paper.h"
#include "support/test_base.h"

#include <QAction>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

frmAnzeige_WEB_Browser& window() {
    return Form<frmAnzeige_WEB_Browser>();
}

QAction& mnuGrafik() {
    auto* action = window().findChild<QAction*>(u"mnuGrafik"_s);
    if (!action)
        qFatal("no entry");
    return *action;
}

void open(quint8 listenArt) {
    prepareList(listenArt);
    window().ShowPage(nullptr);
}

} // namespace

class OccupancyWindowTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void onlyTheOccupancyPlansOfferThePicture() {
        useSampleSchool();
        for (const quint8 listenArt :
             {kMensaBelegung, kArbeitsgruppenGesamt, kLernzeitBelegung, kBausteine}) {
            open(listenArt);
            QCOMPARE(mnuGrafik().isVisible(), hasOccupancyPicture(listenArt));
        }
        QCOMPARE(mnuGrafik().text().remove(u'&'), u"Grafik"_s);
    }

    void theEntryShowsThePictureAndThenThePlanAgain() {
        useSampleSchool();
        open(kMensaBelegung);
        const QByteArray plan = window().Pdf();
        const QByteArray page = pageBytes();
        QVERIFY(!QFile::exists(occupancyPictureFile()));
        mnuGrafik().trigger();
        QVERIFY(mnuGrafik().isChecked());
        QVERIFY(QFile::exists(occupancyPictureFile()));
        // The same window prints and saves what it shows.
        const QByteArray picture = window().Pdf();
        QVERIFY(picture.startsWith("%PDF"));
        QVERIFY(sheetTexts(picture).join(u' ').contains(u"BELEGUNG ALS GRAFIK"));
        QVERIFY(sheetTexts(plan).join(u' ').contains(u"BELEGUNGSPLAN"));
        QCOMPARE(pageBytes(), page);
        mnuGrafik().trigger();
        QVERIFY(!mnuGrafik().isChecked());
        QCOMPARE(sheetTexts(window().Pdf()), sheetTexts(plan));
    }

    void theNextPlanBeginsWithItsPage() {
        useSampleSchool();
        open(kMensaBelegung);
        mnuGrafik().trigger();
        open(kLernzeitBelegung);
        QVERIFY(!mnuGrafik().isChecked());
    }
};

KOLIBRI_TEST_MAIN(OccupancyWindowTest)
#include "occupancy_window_test.moc"
