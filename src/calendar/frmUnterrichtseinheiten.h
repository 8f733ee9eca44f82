#pragma once

#include "core/widgets/forms.h"

#include <optional>

class QLabel;
class QPushButton;

namespace kolibri {

class EntryBox;
class ListView;

/// The teaching units of the school day, in one of the three modes that the flags ModusUE_... tell.
class frmUnterrichtseinheiten : public FormWindow {
public:
    frmUnterrichtseinheiten();

protected:
    void Prepare() override;
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* buildFields();
    /// Shows all units; the database is open.
    void Unterrichtseinheiten_DatenAnzeigen();
    void zeileGewählt(const QString& itemText);
    void eingabefelderLöschen();
    /// Marks the boxes that are empty or hold no time and says what is wrong. False when something is.
    bool eingabenGültig();
    /// Asks whether the unit is really to go. False when the user thought better of it.
    bool löschenBestätigt();
    /// Writes what the mode asks for and numbers the units anew; the database is open.
    void schreiben();
    void ok();

    ListView* lvwUE;
    EntryBox* txtZeitVon;
    EntryBox* txtZeitBis;
    QLabel* lblText1;
    QPushButton* cmdOK;
    /// The clicked row, and its time when it was clicked.
    std::optional<int> m_id;
    QString Zeit_alt;
};

} // namespace kolibri
