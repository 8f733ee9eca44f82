#include "core/menu_table.h"
#include "core/widgets/application.h"
#include "core/widgets/card_button.h"
#include "core/widgets/symbol.h"
#include "core/widgets/theme.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

/// Number of dots of a picture that have exactly this colour.
int dotsOf(const QImage& image, const QColor& colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == colour ? 1 : 0;
    return count;
}

QStringList symbols() {
    return QDir(u":/kolibri/symbole"_s).entryList({u"*.svg"_s});
}

} // namespace

class CardButtonTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void everySymbolIsDrawnInTheColourAskedFor() {
        for (const auto& large : largeButtons())
            QVERIFY2(symbols().contains(large.symbol + u".svg"_s), qPrintable(large.name));
        for (const auto& file : symbols()) {
            const QImage image = symbolPixmap(QFileInfo(file).baseName(), 48, Qt::red, 1).toImage();
            QCOMPARE(image.size(), QSize(48, 48));
            QVERIFY2(dotsOf(image, Qt::red) > 100, qPrintable(file));
            QVERIFY2(image.pixelColor(0, 0).alpha() == 0, qPrintable(file));
        }
    }

    void aSymbolIsSharpOnAFineScreen() {
        const QPixmap pixmap = symbolPixmap(u"liste_schueler"_s, 20, Qt::black, 1.5);
        QCOMPARE(pixmap.size(), QSize(30, 30));
        QCOMPARE(pixmap.devicePixelRatio(), 1.5);
    }

    void theCaptionFitsInTheSmallestSize() {
        for (const int points : {9, 14, 24}) {
            CardButton button(u"Liste &Arbeitsgruppe"_s, u"liste_arbeitsgruppe"_s);
            button.setFont(QFont(button.font().family(), points));
            const int words = button.fontMetrics().horizontalAdvance(u"Liste Arbeitsgruppe"_s);
            QVERIFY(button.minimumSizeHint().width() > words + button.fontMetrics().height());
            QVERIFY(button.minimumSizeHint().height() > button.fontMetrics().height());
            QVERIFY(button.sizeHint().width() >= button.minimumSizeHint().width());
            QVERIFY(button.sizeHint().height() >= button.minimumSizeHint().height());
        }
    }

    void symbolAndStateAreSeen() {
        CardButton button(u"Schüler &Neu"_s, u"schueler_neu"_s);
        button.resize(button.sizeHint() * 2);
        const QColor accent = accentColour(button.palette());
        const QImage resting = button.grab().toImage();
        QVERIFY(dotsOf(resting, accent) > 10);
        button.setEnabled(false);
        QCOMPARE(dotsOf(button.grab().toImage(), accent), 0);
        button.setEnabled(true);
        button.setDown(true);
        QVERIFY(button.grab().toImage() != resting);
    }
};

KOLIBRI_TEST_MAIN(CardButtonTest)
#include "card_button_test.moc"
