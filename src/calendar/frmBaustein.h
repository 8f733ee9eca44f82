#pragma once

#include "core/widgets/forms.h"

#include <optional>

class QPushButton;

namespace kolibri {

class EntryBox;
class ListView;

/// The care modules, in one of the modes "Neu", "Korrektur" and "Löschen".
class frmBaustein : public FormWindow {
public:
    frmBaustein();

protected:
    void Prepare() override;

private:
    QWidget* buildFields();
    /// Shows all modules; the database is open.
    void Bausteine_DatenAnzeigen();
    void zeileGewählt(const QString& itemText);
    /// Writes what the mode asks for. False when the user thought better of it.
    bool schreiben();
    void eingabefeldLöschen();
    void ok();

    ListView* lvwBausteine;
    EntryBox* txtBaustein;
    QPushButton* cmdOK;
    /// The clicked row, and its text when it was clicked.
    std::optional<int> m_id;
    QString Baustein_alt;
};

} // namespace kolibri
