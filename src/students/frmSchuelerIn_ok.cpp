#include "core/mdlAllgemein.h"
#include "core/row_id.h"
#include "core/widgets/list_view.h"
#include "core/widgets/wait_cursor.h"
#include "students/frmSchuelerIn.h"
#include "students/frmSchuelerIn_anmerkung.h"
#include "students/frmSchuelerIn_beitraege.h"
#include "students/frmSchuelerIn_felder.h"
#include "students/frmSchuelerIn_kontakte.h"
#include "students/frmSchuelerIn_stamm.h"
#include "students/frmSchuelerIn_woche.h"
#include "students/ok_action.h"
#include "students/student_list.h"

#include <QScopedValueRollback>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

enum Tab { kTabWoche, kTabKontakte, kTabBeitraege, kTabAnmerkung };

} // namespace

void frmSchülerIn::ok() {
    const QScopedValueRollback<bool> running(OK_Laeuft, true);
    // Enter presses the button without leaving the box.
    if (const auto* box = dynamic_cast<RecordBox*>(focusWidget()))
        box->leave();
    if (!pruefen())
        return;
    SchuelerDatensatz datensatz = einsammeln();
    {
        const DbSession session(u"Schülerdaten speichern"_s);
        if (!SchuelerAktionAusfuehren(m_modus, datensatz, m_belegtVon))
            return;
        const WaitCursor wait;
        nachSchreiben(datensatz);
    }
    const int row = lvw_Search_NN_VN(m_zeilen, datensatz.SCH[kFeldName], datensatz.SCH[kFeldVorname], 1);
    Global().MarkierteZeile = RowId(row);
    if (row > 0)
        Eintrag_MARKIEREN(*lvwStammdaten, row);
}

bool frmSchülerIn::pruefen() {
    const bool writesFields = m_modus.istNeu() || m_modus.aktion == SchuelerAktion::Korrektur;
    if (writesFields && !m_beitraege->pruefen()) {
        SSTab1->setCurrentIndex(kTabBeitraege);
        return false;
    }
    if (m_modus.prueftEingaben()) {
        const EingabePruefung pruefung = Eingaben_Überprüfen(einsammeln().SCH, m_modus.art);
        m_stamm->fehlerZeigen(pruefung);
        if (const QString meldung = EingabeMeldung(pruefung, m_modus.art); !meldung.isEmpty()) {
            MsgBox(meldung);
            return false;
        }
    }
    if (Global().UeberschneidungPruefen && m_modus.prueftZeiten()) {
        Check_ZeitÜberschneidungen_Vor_Datenübernahme();
        if (ZeitKonflikt) {
            MsgBox(u"Bei den Zeiten gibt es Überschneidungen."_s);
            SSTab1->setCurrentIndex(kTabWoche);
            return false;
        }
    }
    if (writesFields && !m_anmerkung->pruefen()) {
        SSTab1->setCurrentIndex(kTabAnmerkung);
        return false;
    }
    return true;
}

SchuelerDatensatz frmSchülerIn::einsammeln() const {
    SchuelerDatensatz datensatz;
    m_stamm->einsammeln(datensatz);
    m_kontakte->einsammeln(datensatz);
    m_beitraege->einsammeln(datensatz);
    datensatz.GR = m_woche->texte();
    datensatz.Anmerkung = m_anmerkung->speicherform();
    return datensatz;
}

void frmSchülerIn::nachSchreiben(const SchuelerDatensatz& datensatz) {
    const bool starter = m_modus.istSchulanfaenger();
    // The record of a school starter stays on the screen as it was saved.
    if (starter)
        m_stamm->txtSCH[kFeldKlasse]->setText(datensatz.SCH[kFeldKlasse]);
    else
        Eingabefelder_Löschen();
    SchuelerLaden(m_speicher, m_modus.menge);
    if (!starter) {
        MensaLaden(m_speicher);
        LernzeitLaden(m_speicher);
    }
    if (m_speicher.SchuelerAnzahl() == 0)
        ListeLeerFuellen();
    else
        ListeFuellen();
    m_woche->eintraegeSetzen(GruppenListenLaden());
    if (starter)
        m_woche->zeigen(datensatz.GR);
}

} // namespace kolibri
