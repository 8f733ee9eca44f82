#include "lists/dialog_options.h"

#include "lists/list_state.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// A word that a pupil list can be sorted by.
struct SortWord {
    QString word;
    QString column;
    /// The check box that offers the word; null for those that are always offered.
    bool DialogOptions::*option;
};

const std::vector<SortWord>& sortWords() {
    constexpr bool DialogOptions::*kAlways = nullptr;
    constexpr auto kContacts = &DialogOptions::chkKontakteNeu;
    constexpr auto kFees = &DialogOptions::chkBeiträge;
    static const std::vector<SortWord> words{
        {u"Nachname"_s, u"SCH_Name"_s, kAlways},
        {u"Vorname"_s, u"SCH_Vorname"_s, kAlways},
        {u"Geburtsdatum"_s, u"SCH_Geb"_s, &DialogOptions::chkGebDatum},
        {u"Klasse"_s, u"Klasse"_s, &DialogOptions::chkKlasse},
        {u"Gesetzlicher Vertreter"_s, u"GV_Name"_s, kContacts},
        {u"Strasse"_s, u"Strasse"_s, kContacts},
        {u"PLZ"_s, u"PLZ"_s, kContacts},
        {u"Ort"_s, u"Ort"_s, kContacts},
        {u"Tel. Privat"_s, u"Tel_privat"_s, kContacts},
        {u"Mutter Dienst"_s, u"Tel_dienst_Mutter"_s, kContacts},
        {u"Vater Dienst"_s, u"Tel_dienst_Vater"_s, kContacts},
        {u"Mutter Handy"_s, u"Handy_Mutter"_s, kContacts},
        {u"Vater Handy"_s, u"Handy_Vater"_s, kContacts},
        {u"Mitglieds Beitrag"_s, u"MI_Beitrag"_s, kFees},
        {u"Betreuungs Beitrag"_s, u"BT_Beitrag"_s, kFees},
    };
    return words;
}

} // namespace

void DialogOptions::clearCheckBoxes() {
    for (bool DialogOptions::*box :
         {&DialogOptions::chkKontakteNeu, &DialogOptions::chkBaustein, &DialogOptions::chkSchwimmer,
          &DialogOptions::chkKennung, &DialogOptions::chkKlasse, &DialogOptions::chkGebDatum,
          &DialogOptions::chkBeiträge})
        this->*box = false;
}

QString sortColumn(QStringView word) {
    for (const auto& entry : sortWords())
        if (entry.word == word)
            return entry.column;
    return {};
}

QString Sortierfeld(int ebene) {
    return sortColumn(Liste().Dialog.cmbSortieren.at(static_cast<std::size_t>(ebene)));
}

QStringList SortierKriterien(const DialogOptions& options) {
    QStringList words;
    for (const auto& entry : sortWords())
        if (entry.option == nullptr || options.*entry.option)
            words << entry.word;
    return words;
}

} // namespace kolibri
