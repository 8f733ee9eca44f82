#include "students/pupil_mode.h"

#include "core/mdlGlobal.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

struct ModeRow {
    bool mdlGlobal::*flag;
    SchuelerModus modus;
};

const std::array<ModeRow, 7>& modes() {
    using enum SchuelerAktion;
    constexpr auto pupil = SchuelerArt::Schueler;
    constexpr auto starter = SchuelerArt::Schulanfaenger;
    constexpr auto active = SchuelerMenge::Aktive;
    constexpr auto inactive = SchuelerMenge::Deaktivierte;
    constexpr auto starters = SchuelerMenge::Schulanfaenger;
    static const std::array<ModeRow, 7> rows{{
        {&mdlGlobal::ModusSchuelerNeu, {Neu, pupil, active, true}},
        {&mdlGlobal::ModusSchuelerKorrektur, {Korrektur, pupil, active, true}},
        {&mdlGlobal::ModusSchuelerLoeschen, {Loeschen, pupil, active, false}},
        {&mdlGlobal::ModusSchuelerAktivieren, {Aktivieren, pupil, inactive, false}},
        {&mdlGlobal::ModusSchulanfaengerNeu, {Neu, starter, starters, true}},
        {&mdlGlobal::ModusSchulanfaengerKorrektur, {Korrektur, starter, starters, true}},
        {&mdlGlobal::ModusSchulanfaengerLoeschen, {Loeschen, starter, starters, false}},
    }};
    return rows;
}

} // namespace

SchuelerModus AktuellerSchuelerModus() {
    for (const auto& [flag, modus] : modes())
        if (Global().*flag)
            return modus;
    return {};
}

QString OkBeschriftung(SchuelerAktion aktion) {
    switch (aktion) {
    case SchuelerAktion::Neu:
        return u"NEU"_s;
    case SchuelerAktion::Korrektur:
        return u"KORREKTUR"_s;
    case SchuelerAktion::Loeschen:
        return u"LÖSCHEN"_s;
    case SchuelerAktion::Aktivieren:
        return u"AKTIVIEREN"_s;
    case SchuelerAktion::Keine:
        break;
    }
    return {};
}

} // namespace kolibri
