// Time of one check of a full week: the pupil form runs it twice a second.

#include "students/overlap_check.h"

#include <QElapsedTimer>
#include <QTextStream>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

/// All 35 boxes filled, none overlapping, so that no comparison ends early.
PruefWoche fullWeek() {
    PruefWoche woche;
    for (auto& tag : woche) {
        for (int n = 0; n < kGruppen; ++n)
            tag.GR[static_cast<std::size_t>(n)] =
                u"%1:00 - %1:45 Angebot %2"_s.arg(12 + n, 2, 10, QChar(u'0')).arg(n);
        tag.U_Beginn = u"08:00"_s;
        tag.U_Ende = u"11:45"_s;
        tag.U_BeginnNM = u"19:00"_s;
        tag.U_EndeNM = u"20:00"_s;
    }
    return woche;
}

} // namespace

int main() {
    constexpr int kRounds = 200'000;
    constexpr int kRepeats = 5;
    const PruefWoche woche = fullWeek();
    QTextStream out(stdout);
    out << "overlap check of a full week, microseconds per check\n";
    for (int repeat = 0; repeat < kRepeats; ++repeat) {
        QElapsedTimer timer;
        timer.start();
        int conflicts = 0;
        for (int round = 0; round < kRounds; ++round)
            conflicts += Check_ZeitÜberschneidungen_Vor_Datenübernahme(woche).ZeitKonflikt ? 1 : 0;
        out << QString::number(static_cast<double>(timer.nsecsElapsed()) / 1000.0 / kRounds, 'f', 2)
            << " (conflicts " << conflicts << ")\n";
    }
    return 0;
}
