#include "maintenance/safety_net.h"

#include "core/doors.h"
#include "core/store/connection.h"
#include "core/store/office_error.h"
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
    const QString note = u"Der Stand vor diesem Vorgang liegt in der Sicherheitskopie %1."_s.arg(
        QDir::toNativeSeparators(copy));
    Transaction transaction(conn);
    try {
        work();
    } catch (OfficeError& error) {
        commitWhatIsDone(transaction);
        error.addNote(note);
        throw;
    }
    transaction.Commit();
}

} // namespace kolibri
