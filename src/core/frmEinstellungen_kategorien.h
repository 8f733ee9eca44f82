#pragma once

#include <QGroupBox>

#include <functional>

class QListWidget;

namespace kolibri {

class EntryBox;

/// The frame in which the contact categories are edited. What it does goes into the database at once.
class KategorienRahmen : public QGroupBox {
public:
    /// `refill` fills the category boxes beside the contact fields anew; the database is open then.
    explicit KategorienRahmen(std::function<void()> refill);

    /// Shows all categories; the database is open.
    void anzeigen();

private:
    void neu();
    void korrektur();
    void löschen();

    QListWidget* lstKategorienBearbeiten;
    EntryBox* txtKategorie;
    std::function<void()> m_refill;
};

} // namespace kolibri
