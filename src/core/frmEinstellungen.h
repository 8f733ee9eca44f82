#pragma once

#include "core/frmEinstellungen_felder.h"
#include "core/widgets/forms.h"

namespace kolibri {

class EntryBox;
class KategorienRahmen;

/// The settings of the school and the path of its database. Loaded at the start and kept: its controls hold
/// their state until they are changed, whether or not it was saved.
class frmEinstellungen : public FormWindow {
public:
    frmEinstellungen();

protected:
    void Prepare() override;

private:
    QWidget* buildGroups();
    QWidget* rahmenDatenbank();
    void load();
    void setKategorien(const OfficeSettings& settings);
    void ordnerWählen();
    void ok();

    EinstellungenFelder m_felder;
    KategorienRahmen* m_kategorien;
    EntryBox* txtDatenbankpfad;
    /// The folder that the path box stood for when it was last filled.
    QString m_pfad;
    /// The database whose settings the form shows; empty when it could read none.
    QString m_datei;
};

} // namespace kolibri
