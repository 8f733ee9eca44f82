#include "core/widgets/application.h"
#include "core/widgets/theme.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

constexpr qreal kReadable = 4.5;
const QColor kError(0xFF, 0xE0, 0xC0);

QPalette darkPalette() {
    QPalette palette;
    const QColor text(0xEC, 0xEF, 0xF1);
    palette.setColor(QPalette::Window, QColor(0x20, 0x23, 0x26));
    palette.setColor(QPalette::Base, QColor(0x16, 0x18, 0x1A));
    palette.setColor(QPalette::Button, QColor(0x2C, 0x30, 0x34));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, text);
    return palette;
}

/// What the widget shows in its middle, where it holds no text.
QColor shownGround(QWidget& widget) {
    return widget.grab().toImage().pixelColor(widget.rect().center());
}

} // namespace

class ThemeTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    /// Another palette of the desktop for the length of a block.
    class Desktop {
    public:
        explicit Desktop(const QPalette& palette) {
            QApplication::setPalette(palette);
            QCoreApplication::processEvents();
        }
        ~Desktop() {
            QApplication::setPalette(m_before);
            QCoreApplication::processEvents();
        }

    private:
        QPalette m_before = QApplication::palette();
    };

    void verifyHouseColoursCanBeRead() {
        const QPalette palette = QApplication::palette();
        const QColor window = palette.color(QPalette::Window);
        const QColor text = palette.color(QPalette::WindowText);
        QCOMPARE(palette.color(QPalette::Link), accentColour(palette));
        QVERIFY(contrast(accentColour(palette), window) > kReadable);
        QVERIFY(contrast(accentColour(palette), skyColour(palette)) > kReadable);
        QVERIFY(contrast(text, skyColour(palette)) > kReadable);
        QVERIFY(contrast(text, noticeColour(palette)) > kReadable);
        QVERIFY(contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight))
                > kReadable);
        QVERIFY(contrast(palette.color(QPalette::Disabled, QPalette::Text),
                         palette.color(QPalette::Disabled, QPalette::Base))
                > kReadable);
    }

private Q_SLOTS:
    void withoutADesktopTheStyleIsFusion() { QCOMPARE(QApplication::style()->name(), u"fusion"_s); }

    void contrastIsThatOfTheRules() {
        QCOMPARE(contrast(Qt::black, Qt::white), 21.0);
        QCOMPARE(contrast(Qt::white, Qt::white), 1.0);
        QVERIFY(qAbs(contrast(QColor(0x77, 0x77, 0x77), Qt::white) - 4.48) < 0.01);
    }

    void theHousesColoursCanBeReadOnALightAndOnADarkDesktop() {
        QVERIFY(!isDark(QApplication::palette()));
        verifyHouseColoursCanBeRead();
        const Desktop dark(darkPalette());
        QVERIFY(isDark(QApplication::palette()));
        verifyHouseColoursCanBeRead();
    }

    void theColoursFollowTheDesktopBackToLight() {
        const QColor light = QApplication::palette().color(QPalette::Link);
        { const Desktop dark(darkPalette()); }
        QCOMPARE(QApplication::palette().color(QPalette::Link), light);
    }

    void aMarkedInputIsSeenAndItsReasonIsRead_data() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }

    void aMarkedInputIsSeenAndItsReasonIsRead() {
        QFETCH(const bool, dark);
        const Desktop desktop(dark ? darkPalette() : QApplication::palette());
        QLineEdit edit;
        QComboBox combo;
        QPlainTextEdit text;
        for (QWidget* input : std::initializer_list<QWidget*>{&edit, &combo, &text}) {
            input->resize(300, 60);
            input->setToolTip(u"Name der Klasse"_s);
            input->setAccessibleDescription(u"Klasse"_s);
            setErrorColour(input, true, u"Die Klasse fehlt."_s);
            QCOMPARE(input->palette().color(QPalette::Base), kError);
            if (input == &combo)
                QCOMPARE(input->palette().color(input->backgroundRole()), kError);
            QVERIFY(contrast(input->palette().color(QPalette::Text), kError) > kReadable);
            QCOMPARE(input->toolTip(), u"Die Klasse fehlt."_s);
            QCOMPARE(input->accessibleDescription(), u"Die Klasse fehlt."_s);
            setErrorColour(input, true);
            QCOMPARE(input->toolTip(), u"Diese Eingabe bitte prüfen."_s);
            setErrorColour(input, false);
            QCOMPARE(input->toolTip(), u"Name der Klasse"_s);
            QCOMPARE(input->accessibleDescription(), u"Klasse"_s);
            QCOMPARE(input->palette().color(QPalette::Base),
                     dark ? QApplication::palette().color(QPalette::Base) : QColor(Qt::white));
        }
    }

    void theMarkIsOnTheScreen() {
        QLineEdit edit;
        edit.resize(300, 60);
        setErrorColour(&edit, true);
        QCOMPARE(shownGround(edit), kError);
        setErrorColour(&edit, false);
        QCOMPARE(shownGround(edit), QColor(Qt::white));
        QComboBox combo;
        combo.resize(300, 60);
        const QColor before = shownGround(combo);
        setErrorColour(&combo, true);
        const QColor marked = shownGround(combo);
        QVERIFY(marked != before);
        // The style draws the combo box with a slight shade from light to dark.
        QVERIFY2(contrast(marked, kError) < 1.03, qPrintable(marked.name()));
    }

    void unmarkingWhatWasNeverMarkedKeepsItsToolTip() {
        QLineEdit edit;
        edit.setToolTip(u"Vorname"_s);
        setErrorColour(&edit, false);
        QCOMPARE(edit.toolTip(), u"Vorname"_s);
    }

    void aDisabledInputKeepsItsGreyText() {
        QLineEdit edit;
        const QColor grey = edit.palette().color(QPalette::Disabled, QPalette::Text);
        setErrorColour(&edit, true);
        QCOMPARE(edit.palette().color(QPalette::Disabled, QPalette::Text), grey);
    }

    void aScaledFontFollowsPointsAndPixels() {
        QFont points;
        points.setPointSizeF(10);
        QCOMPARE(scaledFont(points, 1.5).pointSizeF(), 15.0);
        QFont pixels;
        pixels.setPixelSize(20);
        QCOMPARE(scaledFont(pixels, 0.5, QFont::Bold).pixelSize(), 10);
        QVERIFY(scaledFont(pixels, 0.5, QFont::Bold).bold());
    }
};

KOLIBRI_TEST_MAIN(ThemeTest)
#include "theme_test.moc"
