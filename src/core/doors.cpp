#include "core/doors.h"

namespace kolibri {
namespace {

constexpr double kA4Short = 595;
constexpr double kA4Long = 842;
constexpr double kA4Margin = 12;

} // namespace

PaperMeasures A4Paper::measures() const {
    const double width = m_orientation == PaperOrientation::Upright ? kA4Short : kA4Long;
    return {width, kA4Margin, width - 2 * kA4Margin};
}

Doors& doors() {
    static Doors instance;
    return instance;
}

} // namespace kolibri
