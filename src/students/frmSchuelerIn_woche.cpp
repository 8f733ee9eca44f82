#include "students/frmSchuelerIn_woche.h"

#include "students/frmSchuelerIn_felder.h"

#include <QStackedWidget>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Why a box that bears a note cannot be changed.
QString guardMessage(int gruppe) {
    static const std::array<QString, 3> kinds{u"MENSA"_s, u"LERNZEITEN"_s, u"ARBEITSGRUPPEN"_s};
    return u"Die %1-Zeit kann erst nach Löschen der Notiz geändert werden. Klicken Sie zum Löschen der Notiz "
           "auf den grünen Haken!"_s.arg(kinds.at(static_cast<std::size_t>(std::min(gruppe, 2))));
}

/// Runs over all group boxes.
template <class Do> void forEachCell(const Do& work) {
    for (int gruppe = 0; gruppe < kGruppen; ++gruppe)
        for (int tag = 0; tag < kSchoolDays; ++tag)
            work(gruppe, tag);
}

template <class Week> auto& at(Week& week, int gruppe, int tag) {
    return week[static_cast<std::size_t>(gruppe)][static_cast<std::size_t>(tag)];
}

} // namespace

SchuelerWoche::Zelle& SchuelerWoche::zelle(int gruppe, int tag) {
    return at(m_zellen, gruppe, tag);
}

void SchuelerWoche::eintraegeSetzen(const GruppenListen& listen) {
    forEachCell([&](int gruppe, int tag) { zelle(gruppe, tag).cmbGR->setEntries(at(listen, gruppe, tag)); });
    uebernehmen();
}

void SchuelerWoche::eintraegeEntfernen() {
    eintraegeSetzen({});
}

void SchuelerWoche::leeren() {
    zeigen({});
    for (const auto& tag : m_unterricht) {
        tag.txtU_Beginn->clear();
        tag.txtU_Ende->clear();
    }
}

void SchuelerWoche::zeigen(const WochenTexte& texte) {
    forEachCell([&](int gruppe, int tag) { zelle(gruppe, tag).cmbGR->selectText(at(texte, gruppe, tag)); });
    uebernehmen();
}

WochenTexte SchuelerWoche::texte() const {
    WochenTexte texte;
    forEachCell([&](int gruppe, int tag) { at(texte, gruppe, tag) = text(gruppe, tag); });
    return texte;
}

QString SchuelerWoche::text(int gruppe, int tag) const {
    return at(m_zellen, gruppe, tag).cmbGR->currentText();
}

void SchuelerWoche::unterrichtZeigen(const std::vector<UnterrichtTag>& tage) {
    for (std::size_t d = 0; d < tage.size(); ++d) {
        m_unterricht[d].txtU_Beginn->setText(tage[d].Zeit_Unterrichtsbeginn);
        m_unterricht[d].txtU_BeginnNM->setText(tage[d].Zeit_UnterrichtsbeginnNM);
        m_unterricht[d].txtU_EndeNM->setText(tage[d].Zeit_UnterrichtsendeNM);
    }
    Zeit_UnterrichtsendeZeigen(tage);
}

void SchuelerWoche::Zeit_UnterrichtsendeZeigen(const std::vector<UnterrichtTag>& tage) {
    for (std::size_t d = 0; d < tage.size(); ++d)
        m_unterricht[d].txtU_Ende->setText(tage[d].Zeit_Unterrichtsende);
}

PruefWoche SchuelerWoche::pruefWoche() const {
    PruefWoche woche;
    for (std::size_t d = 0; d < woche.size(); ++d) {
        for (std::size_t n = 0; n < m_zellen.size(); ++n)
            woche[d].GR[n] = m_zellen[n][d].cmbGR->currentText();
        woche[d].U_Beginn = m_unterricht[d].txtU_Beginn->text();
        woche[d].U_Ende = m_unterricht[d].txtU_Ende->text();
        woche[d].U_BeginnNM = m_unterricht[d].txtU_BeginnNM->text();
        woche[d].U_EndeNM = m_unterricht[d].txtU_EndeNM->text();
    }
    return woche;
}

void SchuelerWoche::mensaUndLernzeitFreigeben(bool frei) {
    m_frames[0]->setEnabled(frei);
    m_frames[1]->setEnabled(frei);
}

void SchuelerWoche::mensaUndLernzeitLeeren() {
    for (int gruppe = 0; gruppe < 2; ++gruppe)
        for (int tag = 0; tag < kSchoolDays; ++tag)
            zelle(gruppe, tag).cmbGR->selectText({});
    uebernehmen();
}

void SchuelerWoche::uebernehmen() {
    forEachCell([&](int gruppe, int tag) {
        Zelle& cell = zelle(gruppe, tag);
        cell.LetzterIndexGR = cell.cmbGR->currentIndex();
    });
    bilderZeigen();
}

void SchuelerWoche::gewaehlt(int gruppe, int tag) {
    Zelle& cell = zelle(gruppe, tag);
    const int chosen = cell.cmbGR->currentIndex();
    const bool guarded = bildFuer(gruppe, tag, cell.cmbGR->itemText(cell.LetzterIndexGR)) == NotizBild::Haken;
    if (guarded && chosen != cell.LetzterIndexGR && !(m_guardRests && m_guardRests())) {
        cell.cmbGR->setCurrentIndex(cell.LetzterIndexGR);
        MsgBox(guardMessage(gruppe));
        return;
    }
    cell.LetzterIndexGR = chosen;
    bildZeigen(gruppe, tag);
}

void SchuelerWoche::notizenZeigen(const SchuelerNotizen& notizen) {
    m_notizen = notizen;
    bilderZeigen();
}

void SchuelerWoche::ImgAlleNotizenAusblenden() {
    m_notizen.reset();
    bilderZeigen();
}

NotizBild SchuelerWoche::bildFuer(int gruppe, int tag, const QString& text) const {
    return m_notizen ? m_notizen->bild(gruppe, tag, text) : NotizBild::Keins;
}

void SchuelerWoche::bildZeigen(int gruppe, int tag) {
    const Zelle& cell = zelle(gruppe, tag);
    cell.bilder->setCurrentIndex(static_cast<int>(bildFuer(gruppe, tag, cell.cmbGR->currentText())));
}

void SchuelerWoche::bilderZeigen() {
    forEachCell([this](int gruppe, int tag) { bildZeigen(gruppe, tag); });
}

} // namespace kolibri
