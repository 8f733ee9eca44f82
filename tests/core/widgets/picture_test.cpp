#include "core/widgets/application.h"
#include "core/widgets/picture.h"
#include "support/test_base.h"

#include <QSvgRenderer>

using namespace Qt::StringLiterals;
using namespace kolibri;

class PictureTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void everyDrawingOfTheProgramIsUnderstood() {
        for (QDirIterator file(u":/kolibri"_s, {u"*.svg"_s}, QDir::Files, QDirIterator::Subdirectories);
             file.hasNext();) {
            const QSvgRenderer drawing(file.next());
            QVERIFY2(drawing.isValid() && !drawing.defaultSize().isEmpty(), qPrintable(file.filePath()));
        }
        QVERIFY(QFile::exists(u":/kolibri/kolibri.svg"_s));
    }

    void theMainPictureStandsOnItsLowerEdgeWithNothingBehindIt() {
        Picture picture(u":/kolibri/startbild.svg"_s, 10);
        // Twice as high as the drawing needs: the upper half stays empty.
        picture.resize(picture.sizeHint().width(), 2 * picture.sizeHint().height());
        QImage image(picture.size(), QImage::Format_ARGB32);
        image.fill(Qt::magenta);
        picture.render(&image, {}, {}, QWidget::RenderFlags());
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(image.pixelColor(x, image.height() / 4), QColor(Qt::magenta));
        QVERIFY(image.pixelColor(image.width() / 2, image.height() - 2) != QColor(Qt::magenta));
    }

    void itsSizeFollowsTheFontAndItsProportions() {
        Picture picture(u":/kolibri/startbild.svg"_s, 10);
        const int line = picture.fontMetrics().height();
        QCOMPARE(picture.sizeHint(), QSize(10 * line * 400 / 240, 10 * line));
        picture.setLines(6);
        QCOMPARE(picture.lines(), 6);
        QCOMPARE(picture.sizeHint().height(), 6 * line);
        QCOMPARE(picture.linesForWidth(picture.sizeHint().width() + 1), 6);
    }
};

KOLIBRI_TEST_MAIN(PictureTest)
#include "picture_test.moc"
