#include "core/mdlAllgemein.h"
#include "core/row_id.h"
#include "core/widgets/list_view.h"
#include "students/edit_guard.h"
#include "students/frmSCH_Notiz.h"
#include "students/frmSchuelerIn.h"
#include "students/frmSchuelerIn_ampel.h"
#include "students/frmSchuelerIn_anmerkung.h"
#include "students/frmSchuelerIn_beitraege.h"
#include "students/frmSchuelerIn_felder.h"
#include "students/frmSchuelerIn_kontakte.h"
#include "students/frmSchuelerIn_stamm.h"
#include "students/frmSchuelerIn_woche.h"

#include <QCheckBox>
#include <QScopeGuard>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace kolibri {

void frmSchülerIn::Eingabefelder_Löschen() {
    m_stamm->leeren();
    m_kontakte->leeren();
    m_beitraege->leeren();
    m_anmerkung->leeren();
    ImgAlleNotizenAusblenden();
    m_woche->leeren();
    m_woche->mensaUndLernzeitFreigeben(true);
    m_ampel->leeren();
}

void frmSchülerIn::ImgAlleNotizenAusblenden() {
    m_woche->ImgAlleNotizenAusblenden();
}

void frmSchülerIn::ListViewStammdaten_Click() {
    QTreeWidgetItem* item = lvwStammdaten->selectedItems().value(0);
    if (!item)
        return;
    const qint16 id = RowIdOf(item->text(0));
    ListenIndex = lvwStammdaten->indexOfTopLevelItem(item) + 1;
    DatensatzWirdGeladen = true;
    Eingabefelder_Löschen();
    {
        const DbSession session(u"Schülerdaten lesen"_s);
        m_belegtVon = DatensatzBeanspruchen(id);
        // A record that is ours can be worked on, even if not all of it can be read.
        DatensatzWirdGeladen = m_belegtVon.has_value();
        if (!m_belegtVon)
            datensatzLesen(id);
    }
    if (m_belegtVon) {
        MsgBox(BelegtMeldung(*m_belegtVon));
        return;
    }
    uhrStellen();
}

void frmSchülerIn::datensatzLesen(qint16 id) {
    const auto datensatz = SchuelerLesen(id);
    if (!datensatz)
        return;
    m_stamm->zeigen(*datensatz);
    m_kontakte->zeigen(*datensatz);
    m_beitraege->zeigen(*datensatz);
    m_anmerkung->zeigen(datensatz->Anmerkung);
    m_woche->zeigen(datensatz->GR);
    m_woche->mensaUndLernzeitFreigeben(!datensatz->NichtOG);
    if (!datensatz->SCH[kFeldName].isEmpty())
        NotizVorhanden_JaNein();
    m_woche->unterrichtZeigen(UnterrichtszeitenLesen(datensatz->SCH[kFeldKlasse]));
}

void frmSchülerIn::NotizVorhanden_JaNein() {
    m_woche->notizenZeigen(NotizenLesen());
}

void frmSchülerIn::klasseVerlassen() {
    const QString klasse = m_stamm->txtSCH[kFeldKlasse]->text();
    if (!KlasseGueltig(klasse))
        return;
    const DbSession session(u"Unterrichtszeiten lesen"_s);
    m_woche->Zeit_UnterrichtsendeZeigen(UnterrichtszeitenLesen(klasse));
}

void frmSchülerIn::nichtOG(bool gesetzt) {
    constexpr int kYesNoQuestion = 36;
    if (DatensatzWirdGeladen)
        return;
    if (!gesetzt) {
        m_woche->mensaUndLernzeitFreigeben(true);
        return;
    }
    if (!Global().ModusSchuelerNeu
        && MsgBox(u"Wenn Sie den Status auf nicht OG-Schüler ändern, werden sämtliche ME- und LZ-Daten "
                  "gelöscht. Änderung durchführen?"_s,
                  kYesNoQuestion, u"Ändern auf Nicht OG-Schüler"_s)
               == kAnswerNo) {
        m_stamm->chkNichtOG->setChecked(false);
        return;
    }
    m_woche->mensaUndLernzeitFreigeben(false);
    m_woche->mensaUndLernzeitLeeren();
}

void frmSchülerIn::notiz(int gruppe, int tag, bool bearbeiten) {
    auto& global = Global();
    global.NotizBearbeiten = bearbeiten;
    global.NotizTag = TagCode(tag);
    zeileMerken();
    auto& form = Form<frmSCH_Notiz>();
    form.Tag = u"GR%1"_s.arg(gruppe + 1);
    form.setZuweisung(m_woche->text(gruppe, tag),
                      m_stamm->txtSCH[kFeldName]->text() + u' ' + m_stamm->txtSCH[kFeldVorname]->text());
    form.ShowOver(this);
}

void frmSchülerIn::zeileMerken() {
    Global().MarkierteZeile = RowId(ListenIndex);
    m_gemerkteZeile = lvwStammdaten->key(ListenIndex);
}

void frmSchülerIn::Search_Nachname_Schüler() {
    const int row = lvw_Search_NN(*lvwStammdaten, m_stamm->txtSCH[kFeldName]->text(), 1);
    Global().MarkierteZeile = RowId(row);
    if (row > 0)
        Eintrag_MARKIEREN(*lvwStammdaten, row);
}

void frmSchülerIn::drucken() {
    if (m_stamm->txtSCH[kFeldName]->text().isEmpty()) {
        MsgBox(u"Es wurde kein Schüler, keine Schülerin ausgewählt!"_s);
        return;
    }
    if (!schuelerFormZiele().drucken)
        return;
    zeileMerken();
    schuelerFormZiele().drucken();
}

void frmSchülerIn::Check_ZeitÜberschneidungen_Vor_Datenübernahme() {
    PruefWoche woche = m_woche->pruefWoche();
    m_ampel->einsammeln(woche);
    try {
        const PruefErgebnis ergebnis = kolibri::Check_ZeitÜberschneidungen_Vor_Datenübernahme(woche);
        m_ampel->zeigen(ergebnis);
        ZeitKonflikt = ergebnis.ZeitKonflikt;
    } catch (...) {
        // Told once, not twice a second; the next record is checked again.
        Timer1->stop();
        throw;
    }
}

void frmSchülerIn::zeitpruefungSchalten(bool an) {
    if (Global().StartLaeuft)
        return;
    // Whether the store takes it or not, the switch shows what holds.
    const auto show = qScopeGuard([this] {
        m_ampel->schalterZeigen(Global().UeberschneidungPruefen);
        uhrStellen();
    });
    const DbSession session(u"Zeitprüfung schalten"_s);
    ZeitpruefungSchalten(an);
}

} // namespace kolibri
