#include "lists/page_geometry.h"

#include "core/runtime_error.h"

#include <cmath>
#include <limits>

namespace kolibri {
namespace {

/// The tables leave a tenth of the sheet free.
constexpr double kShareOfSheet = 0.9;

} // namespace

int wholeNumber(double value) {
    double whole = std::floor(value);
    const double rest = value - whole;
    constexpr double kHalf = 0.5;
    if (rest > kHalf || (rest == kHalf && std::fmod(whole, 2.0) != 0.0))
        whole += 1.0;
    if (!(whole >= std::numeric_limits<qint16>::min() && whole <= std::numeric_limits<qint16>::max()))
        throw RuntimeError::overflow();
    return static_cast<int>(whole);
}

int computeTabellenBreite(std::optional<PaperOrientation> format) {
    PrinterDoor& printer = *doors().printer;
    if (format)
        printer.setOrientation(*format);
    const PaperMeasures sheet = printer.measures();
    const double rightOffset = sheet.physicalWidth - sheet.leftOffset - sheet.printableWidth;
    return wholeNumber(kShareOfSheet * (sheet.physicalWidth - sheet.leftOffset - rightOffset));
}

} // namespace kolibri
