#pragma once

#include "core/widgets/forms.h"
#include "students/assignment_notes.h"

#include <array>

class QCheckBox;
class QLabel;
class QPushButton;
class QTextEdit;

namespace kolibri {

class EntryBox;

/// The note on one assignment of the pupil selected on the pupil form. Tag is the group, "GR1" to "GR7"; the
/// day and whether the note exists already are in the shared state.
class frmSCH_Notiz : public FormWindow {
public:
    frmSCH_Notiz();

    /// What the pupil form shows: the text of the group box, and the name of the pupil.
    void setZuweisung(const QString& schluessel, const QString& schuelerName);

protected:
    void Prepare() override;

private:
    QWidget* buildHeading();
    QWidget* buildButtons();
    void artZeigen();
    void notizZeigen();
    QString text() const;
    void ok();
    void löschen();

    NotizOrt m_ort;
    QString m_schluessel;
    QString m_schuelerName;
    NotizArt m_art = NotizArt::Zuweisung;
    QString Langname;

    std::array<QLabel*, 2> imgNotiz{};
    QLabel* lblÜ1;
    EntryBox* txtSchülerIn;
    QTextEdit* rtfNotiz;
    QCheckBox* chkKeineTeilnahme;
    QPushButton* cmdOK;
    QPushButton* cmdLöschen;
};

} // namespace kolibri
