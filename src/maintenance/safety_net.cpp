#include "maintenance/safety_net.h"

#include "core/doors.h"
#include "core/runtime_error.h"
#include "core/store/connection.h"
#include "core/store/safety_copy.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

void commitWhatIsDone(Transaction& transaction) {
    try {
        transaction.Commit();
    } catch (const StoreError&) {
        // A full disk, say, takes everything back. The error that stopped the work is the one to show.
    }
}

} // namespace

void withSafetyCopy(Connection& conn, const std::function<void()>& work) {
    const QString copy = makeSafetyCopy(conn, doors().clock->now());
    const QString hint = u"Der Stand vor diesem Vorgang liegt in der Sicherheitskopie %1."_s.arg(
        QDir::toNativeSeparators(copy));
    Transaction transaction(conn);
    try {
        work();
    } catch (StoreError& error) {
        commitWhatIsDone(transaction);
        error.setHint(hint);
        throw;
    } catch (RuntimeError& error) {
        commitWhatIsDone(transaction);
        error.setHint(hint);
        throw;
    }
    transaction.Commit();
}

} // namespace kolibri
