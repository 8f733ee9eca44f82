#pragma once

#include "core/widgets/forms.h"

class QListWidget;

namespace kolibri {

class EntryBox;

/// Makes and deletes classes.
class frmKlassenNeuLöschen : public FormWindow {
public:
    frmKlassenNeuLöschen();

protected:
    void Prepare() override;

private:
    QWidget* buildFields();
    void neu();
    void löschen();
    /// Fills the list from the shared class list, with a class selected if it is there.
    void lstKlassen_Füllen(const QString& selected = {});

    EntryBox* txtKlasse;
    QListWidget* lstKlassen;
};

} // namespace kolibri
