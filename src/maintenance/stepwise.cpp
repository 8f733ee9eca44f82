#include "maintenance/stepwise.h"

#include "core/store/connection.h"

namespace kolibri {

void runKeepingWhatIsDone(Connection& conn, void (*step)(Connection&)) {
    Transaction transaction(conn);
    try {
        step(conn);
    } catch (const OfficeError&) {
        transaction.Commit();
        throw;
    }
    transaction.Commit();
}

} // namespace kolibri
