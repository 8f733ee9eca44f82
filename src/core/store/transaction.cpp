#include "core/store/transaction.h"

#include "core/store/connection.h"
#include "core/store/engine.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace kolibri {

Transaction::Transaction(Connection& connection) : m_connection(connection) {
    if (m_connection.m_transactionDepth == 0)
        m_connection.Write(m_connection.m_engine.beginWriting(), {}, {});
    ++m_connection.m_transactionDepth;
}

Transaction::~Transaction() {
    // Closing the connection has ended every transaction already.
    if (m_done || m_connection.m_transactionDepth == 0)
        return;
    const bool outermost = --m_connection.m_transactionDepth == 0;
    if (!outermost) {
        if (m_connection.m_transactionFate == Connection::Fate::Open)
            m_connection.m_transactionFate = Connection::Fate::GivenUp;
        return;
    }
    const auto fate = std::exchange(m_connection.m_transactionFate, Connection::Fate::Open);
    m_connection.ForgetCatalogue();
    try {
        if (fate != Connection::Fate::TakenBack)
            m_connection.Write(u"ROLLBACK"_s, {}, {});
    } catch (const StoreError&) {
        // Nothing of it may stay; closing takes back whatever the engine still holds.
        m_connection.Close();
    }
}

void Transaction::Commit() {
    if (m_connection.m_transactionDepth == 0 || m_connection.m_transactionFate != Connection::Fate::Open)
        m_connection.FailTakenBack();
    if (m_connection.m_transactionDepth == 1)
        m_connection.Write(u"COMMIT"_s, {}, {});
    --m_connection.m_transactionDepth;
    m_done = true;
}

} // namespace kolibri
