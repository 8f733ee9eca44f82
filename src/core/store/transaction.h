#pragma once

namespace kolibri {

class Connection;

/// All or nothing: what is written while it lives counts only after `Commit`. A transaction inside another
/// one takes part in it, and one that is given up takes the outer one with it.
class Transaction {
public:
    /// @throws StoreError (Busy) when another workstation is writing for longer than the wait
    explicit Transaction(Connection& connection);
    /// Takes everything back unless it was committed.
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// @throws StoreError when the changes cannot be kept, also because an inner transaction was given up
    void Commit();

private:
    Connection& m_connection;
    bool m_done = false;
};

} // namespace kolibri
