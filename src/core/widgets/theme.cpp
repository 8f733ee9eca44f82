#include "core/widgets/theme.h"

#include <QApplication>
#include <QComboBox>
#include <QStyle>
#include <QVariant>
#include <QWidget>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr QRgb kAccentOnLight = 0xff2c4f93;
constexpr QRgb kAccentOnDark = 0xff9db9f2;
constexpr QRgb kSkyOnLight = 0xff9cc8f2;
constexpr QRgb kSkyOnDark = 0xff3f68b0;
constexpr QRgb kNotice = 0xfff2a93b;
/// Text on the light ground of a marked input, also where the desktop is dark.
constexpr QRgb kInk = 0xff1b1b1b;

/// A combo box is drawn like a button, in a paler shade than it is told; from this one comes the error
/// colour.
constexpr QRgb kErrorButton = 0xffffc890;

constexpr char kOwnToolTip[] = "kolibri_ToolTip";
constexpr char kOwnDescription[] = "kolibri_Beschreibung";

qreal luminance(const QColor& colour) {
    const auto linear = [](qreal part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
           + 0.0722 * linear(colour.blueF());
}

/// "windows" is what Qt draws where no desktop says how; it is grey and hard to read at larger scales.
bool desktopBringsNoStyle() {
    if (qEnvironmentVariableIsSet("QT_STYLE_OVERRIDE"))
        return false;
    const QString platform = QGuiApplication::platformName();
    return platform == u"offscreen"_s || platform == u"minimal"_s
           || QApplication::style()->name().compare(u"windows"_s, Qt::CaseInsensitive) == 0;
}

void setInUse(QPalette& palette, QPalette::ColorRole role, const QColor& colour) {
    palette.setColor(QPalette::Active, role, colour);
    palette.setColor(QPalette::Inactive, role, colour);
}

void colourGround(QWidget* input, const QColor& ground, const QColor& asButton) {
    const QColor ink = QColor::fromRgb(kInk);
    QPalette palette = input->palette();
    setInUse(palette, QPalette::Base, ground);
    setInUse(palette, QPalette::Text, ink);
    if (qobject_cast<QComboBox*>(input)) {
        setInUse(palette, QPalette::Button, asButton);
        setInUse(palette, QPalette::ButtonText, ink);
        input->setBackgroundRole(QPalette::Base);
    }
    input->setPalette(palette);
}

/// The tool tip and description that the input had before it was marked.
void keepOwnWords(QWidget* input) {
    if (input->property(kOwnToolTip).isValid())
        return;
    input->setProperty(kOwnToolTip, input->toolTip());
    input->setProperty(kOwnDescription, input->accessibleDescription());
}

void bringOwnWordsBack(QWidget* input) {
    if (!input->property(kOwnToolTip).isValid())
        return;
    input->setToolTip(input->property(kOwnToolTip).toString());
    input->setAccessibleDescription(input->property(kOwnDescription).toString());
    input->setProperty(kOwnToolTip, {});
    input->setProperty(kOwnDescription, {});
}

} // namespace

void applyTheme() {
    if (desktopBringsNoStyle() && QApplication::style()->name() != u"fusion"_s)
        QApplication::setStyle(u"fusion"_s);
    QPalette palette = QApplication::palette();
    const QColor accent = accentColour(palette);
    if (palette.color(QPalette::Link) == accent)
        return;
    palette.setColor(QPalette::Link, accent);
    palette.setColor(QPalette::LinkVisited, accent);
    // A desktop with a style of its own has a colour of its own for what is selected.
    if (QApplication::style()->name() == u"fusion"_s) {
        setInUse(palette, QPalette::Highlight, accent);
        setInUse(palette, QPalette::HighlightedText, isDark(palette) ? QColor::fromRgb(kInk) : Qt::white);
        // What cannot be changed must still be read: it is what the office is about to delete.
        constexpr qreal kFaded = 0.4;
        palette.setColor(QPalette::Disabled, QPalette::Text,
                         blended(palette.color(QPalette::Active, QPalette::Text),
                                 palette.color(QPalette::Active, QPalette::Window), kFaded));
    }
    QApplication::setPalette(palette);
}

bool isDark(const QPalette& palette) {
    return luminance(palette.color(QPalette::Window)) < luminance(palette.color(QPalette::WindowText));
}

QColor accentColour(const QPalette& palette) {
    return QColor::fromRgb(isDark(palette) ? kAccentOnDark : kAccentOnLight);
}

QColor noticeColour(const QPalette& palette) {
    constexpr qreal kShare = 0.2;
    return blended(palette.color(QPalette::Window), QColor::fromRgb(kNotice), kShare);
}

QColor skyColour(const QPalette& palette) {
    const QColor window = palette.color(QPalette::Window);
    return isDark(palette) ? blended(window, QColor::fromRgb(kSkyOnDark), 0.3)
                           : blended(window, QColor::fromRgb(kSkyOnLight), 0.4);
}

QColor blended(const QColor& ground, const QColor& over, qreal share) {
    const auto mix = [&](qreal a, qreal b) { return static_cast<float>(a + (b - a) * share); };
    return QColor::fromRgbF(mix(ground.redF(), over.redF()), mix(ground.greenF(), over.greenF()),
                            mix(ground.blueF(), over.blueF()));
}

qreal contrast(const QColor& a, const QColor& b) {
    constexpr qreal kFlare = 0.05;
    const qreal la = luminance(a) + kFlare;
    const qreal lb = luminance(b) + kFlare;
    return la > lb ? la / lb : lb / la;
}

QFont scaledFont(QFont font, qreal factor, QFont::Weight weight) {
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * factor);
    else
        font.setPixelSize(qRound(font.pixelSize() * factor));
    font.setWeight(weight);
    return font;
}

void setErrorColour(QWidget* input, bool error, const QString& reason) {
    if (!error) {
        // White among the dark fields of a dark desktop would look like a mark itself.
        if (isDark(QApplication::palette()))
            input->setPalette({});
        else
            colourGround(input, QColor::fromRgb(kPassedGround), QColor::fromRgb(kPassedGround));
        bringOwnWordsBack(input);
        return;
    }
    colourGround(input, QColor::fromRgb(kErrorGround), QColor::fromRgb(kErrorButton));
    keepOwnWords(input);
    const QString words = reason.isEmpty() ? u"Diese Eingabe bitte prüfen."_s : reason;
    input->setToolTip(words);
    input->setAccessibleDescription(words);
}

} // namespace kolibri
