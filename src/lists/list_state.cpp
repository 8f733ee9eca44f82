#include "lists/list_state.h"

#include "core/mdlAllgemein.h"
#include "core/runtime_error.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

std::unique_ptr<ListState>& instance() {
    static std::unique_ptr<ListState> state = std::make_unique<ListState>();
    return state;
}

/// Cells and row codes of the list before must not show up in the one that a form is opened for.
const ResetHook eraseArrays([] {
    Liste().Daten.erase();
    Liste().ZeilenCode.clear();
});

} // namespace

void ListState::naechsteZeile() {
    if (ZeilenNr >= kMaxZeilenNr)
        throw RuntimeError::overflow(u"ZeilenNr"_s);
    ++ZeilenNr;
}

void ListState::dimensionieren(int spalten, int zeilen, int zeilenCodes) {
    Daten.redimension(spalten, zeilen);
    BelegungMark.redimension(spalten, zeilen);
    ZeilenCode.redimension(zeilenCodes);
}

ListState& Liste() {
    return *instance();
}

void ListeNeu() {
    instance() = std::make_unique<ListState>();
}

} // namespace kolibri
