#pragma once

#include "core/office_settings.h"

#include <QStringList>

#include <array>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QWidget;

namespace kolibri {

class EntryBox;

/// The controls of the settings dialog that stand for rows of the table Einstellungen, in their frames. The
/// form that holds the frames owns them.
class EinstellungenFelder {
public:
    EinstellungenFelder();

    QWidget* rahmenListen();
    QWidget* rahmenTagesplan();
    QWidget* rahmenNamen();
    QWidget* rahmenBeiträge();
    QWidget* rahmenZusatz();
    QWidget* rahmenKontakte();
    QWidget* rahmenKategorie();
    QWidget* rahmenApostroph();

    /// Contact field and category of a line, one after the other with the tab key.
    void setTabOrder();
    /// Fills every category box with these names, and chooses in each the category of its contact field.
    void setKategorien(const QStringList& names, const OfficeSettings& settings);
    void show(const OfficeSettings& settings);
    OfficeSettings collect() const;

private:
    void schriftZeile(QGridLayout& grid, std::size_t i, const QString& label, const QString& frame);
    QWidget* rahmenSchrift(const QString& caption, std::size_t first, const QStringList& labels);
    void keepInMemory();

    std::array<QComboBox*, kFontSettings> cmbSchrift;
    std::array<QCheckBox*, kFontSettings> chkFett;
    std::array<QCheckBox*, kFontSettings> chkKursiv;
    std::array<QComboBox*, kNameFormats> cmbName;
    std::array<QComboBox*, kNameFormats> cmbNameZuerst;
    std::array<EntryBox*, kBeitraege> txtBeitrag;
    std::array<QCheckBox*, kBeitraege> chkBeitrag;
    QCheckBox* chkSchwimmer;
    QCheckBox* chkBaustein;
    QCheckBox* chkKennung;
    std::array<EntryBox*, kContactFields> txtKontakt;
    std::array<QComboBox*, kContactFields> cmbKategorie;
    QCheckBox* chkApostroph;
};

} // namespace kolibri
