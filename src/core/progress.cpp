#include "core/progress.h"

#include "core/doors.h"

#include <algorithm>

namespace kolibri {
namespace {

constexpr int kSteps = 100;

} // namespace

Progress::Progress(const QString& text, qint64 total) : m_total(std::max<qint64>(total, 1)) {
    if (doors().progress)
        doors().progress->begin(text, kSteps);
}

Progress::~Progress() {
    if (doors().progress)
        doors().progress->end();
}

void Progress::Reach(qint64 done) {
    const int percent = static_cast<int>(std::clamp<qint64>(done, 0, m_total) * kSteps / m_total);
    if (percent == m_percent)
        return;
    m_percent = percent;
    if (doors().progress)
        doors().progress->step(percent);
}

} // namespace kolibri
