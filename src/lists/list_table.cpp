#include "lists/list_table.h"

#include "core/doors.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "lists/care/care_list.h"
#include "lists/care/mensa_pupils.h"
#include "lists/class_times_list.h"
#include "lists/dayplan/day_plan.h"
#include "lists/groups/group_list.h"
#include "lists/list_columns.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/master_data_sheet.h"
#include "lists/module_list.h"
#include "lists/notes/note_lists.h"
#include "lists/overlaps/overlap_report.h"
#include "lists/pupil_list_gather.h"
#include "lists/pupil_list_write.h"
#include "lists/reports/reports.h"

using namespace Qt::StringLiterals;

namespace kolibri {

const std::vector<ListEntry>& listTable() {
    using enum ListMoment;
    constexpr bool kClearsOptions = true;
    static const std::vector<ListEntry> table{
        {kUnterrichtszeiten, BeforeWindow, Unterrichtszeiten_Sammeln, Schuelerliste_Schreiben},
        {kListeMensa, BeforeWindow, MensaLernzeit_Sammeln, MensaLernzeit_Schreiben},
        {kListeLernzeit, BeforeWindow, MensaLernzeit_Sammeln, MensaLernzeit_Schreiben},
        {kListeArbeitsgruppe, BeforeWindow, Arbeitsgruppe_Sammeln, Arbeitsgruppe_Schreiben},
        {kZeitueberschneidungen, BeforeWindow, Zeitueberschneidungen_Sammeln,
         Zeitueberschneidungen_Schreiben},
        {kTagesplan, BeforeWindowStoreInPage, Tagesplan_Sammeln, Tagesplan_Schreiben},
        {kMensaGesamt, InPage, BerichtGesamt_Sammeln, Bericht_Schreiben},
        {kMensaJeKlasse, InPage, BerichtJeKlasse_Sammeln, Bericht_Schreiben},
        {kMensaBelegung, InPage, Belegung_Sammeln, Belegung_Schreiben},
        {kMensaJeSchueler, InPage, MensaJeSchueler_Sammeln, MensaSchueler_Schreiben},
        {kMensaWoche, InPage, MensaWoche_Sammeln, MensaSchueler_Schreiben},
        {kMensaTag, InPage, MensaTag_Sammeln, MensaSchueler_Schreiben},
        {kLernzeitGesamt, InPage, BerichtGesamt_Sammeln, Bericht_Schreiben},
        {kLernzeitJeKlasse, InPage, BerichtJeKlasse_Sammeln, Bericht_Schreiben},
        {kLernzeitBelegung, InPage, Belegung_Sammeln, Belegung_Schreiben},
        {kArbeitsgruppenGesamt, InPage, BerichtArbeitsgruppen_Sammeln, Bericht_Schreiben},
        {kNotizenZuweisungen, BeforeWindowStoreInPage, NotizenZuweisungen_Sammeln, Notizen_Schreiben},
        {kNotizenTagesplan, BeforeWindowStoreInPage, NotizenTagesplan_Sammeln, Notizen_Schreiben},
        {kStammdatenBlatt, BeforeWindow, StammdatenBlatt_Sammeln, StammdatenBlatt_Schreiben},
        {kBausteine, BeforeWindow, Bausteine_Sammeln, Bausteine_Schreiben},
        {kSchulanfaenger, BeforeWindow, Schulanfaenger_Sammeln, Schuelerliste_Schreiben},
        {kNamensliste, BeforeWindow, Namensliste_Sammeln, Schuelerliste_Schreiben},
        {kNeueSchueler, BeforeWindow, NeueSchueler_Sammeln, Schuelerliste_Schreiben, kClearsOptions},
        {kNichtOgSchueler, BeforeWindow, NichtOgSchueler_Sammeln, Schuelerliste_Schreiben, kClearsOptions},
        {kErweiterteListe, BeforeWindow, Namensliste_Sammeln, Schuelerliste_Schreiben},
    };
    return table;
}

const ListEntry& findList(quint8 listenArt) {
    for (const auto& entry : listTable())
        if (entry.listenArt == listenArt)
            return entry;
    throw RuntimeError(5, u"Ungültiger Prozeduraufruf oder ungültiges Argument"_s,
                       u"Eine Liste mit der Nummer %1 gibt es nicht."_s.arg(listenArt));
}

void prepareList(quint8 listenArt) {
    const ListEntry& entry = findList(listenArt);
    auto& liste = Liste();
    Global().ListenArt = listenArt;
    liste.ListenDatum = doors().clock->now().date();
    liste.BeitragSummen.fill(0);
    if (entry.clearsOptions)
        liste.Dialog.clearCheckBoxes();
    defineColumns();
    if (entry.moment != ListMoment::InPage)
        entry.gather();
}

void showList(quint8 listenArt) {
    prepareList(listenArt);
    doors().page->show();
}

} // namespace kolibri
