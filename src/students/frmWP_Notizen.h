#pragma once

#include "core/widgets/forms.h"
#include "students/dayplan_notes.h"

class QPlainTextEdit;
class QPushButton;

namespace kolibri {

class EntryBox;
class ListView;
class RecordChoice;

/// Notes of a pupil in the Tagesplan with no offering behind them, in one of the modes "Neu", "Korrektur" and
/// "Löschen".
class frmWP_Notizen : public FormWindow {
public:
    frmWP_Notizen();

protected:
    void Prepare() override;

private:
    QWidget* buildFields();
    /// The pupils by their surname, as they are now; the database is open. School starters have no Tagesplan.
    void StammdatenAnzeigen_lvwStammdaten_WP_Notiz();
    void felderLeeren();
    void zeileGewählt(const QString& itemText);
    /// Shows the pupil just claimed; the database is open.
    void schuelerZeigen();
    void ortGewählt();
    TagesplanOrt ort() const;
    /// The first thing that is missing before a note can be written; empty when nothing is.
    QString fehlendes() const;
    void ok();
    /// Writes what the mode asks for, and returns what the user is told then.
    QStringList schreiben();

    ListView* lvwStammdaten;
    EntryBox* txtSchüler;
    RecordChoice* cmbUE;
    RecordChoice* cmbTag;
    QPlainTextEdit* txtNotiz;
    QPushButton* cmdOK;
};

} // namespace kolibri
