#include "lists/list_table.h"

#include "core/doors.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "lists/list_columns.h"
#include "lists/list_state.h"

using namespace Qt::StringLiterals;

namespace kolibri {

const std::vector<ListEntry>& listTable() {
    static const std::vector<ListEntry> table{};
    return table;
}

const ListEntry& findList(quint8 listenArt) {
    for (const auto& entry : listTable())
        if (entry.listenArt == listenArt)
            return entry;
    throw RuntimeError(5, u"Ungültiger Prozeduraufruf oder ungültiges Argument"_s,
                       u"Eine Liste mit der Nummer %1 gibt es nicht."_s.arg(listenArt));
}

void prepareList(quint8 listenArt) {
    const ListEntry& entry = findList(listenArt);
    auto& liste = Liste();
    Global().ListenArt = listenArt;
    liste.ListenDatum = doors().clock->now().date();
    liste.BeitragSummen.fill(0);
    defineColumns();
    if (entry.moment != ListMoment::InPage)
        entry.gather();
}

} // namespace kolibri
