#pragma once

#include "core/widgets/forms.h"
#include "students/pupil_mode.h"
#include "students/pupil_record.h"

#include <functional>
#include <optional>

class QLabel;
class QPushButton;
class QTabWidget;
class QTimer;
class QToolButton;

namespace kolibri {

class ListView;
class SchuelerAmpel;
class SchuelerAnmerkung;
class SchuelerBeitraege;
class SchuelerKontakte;
class SchuelerStamm;
class SchuelerWoche;

/// What the pupil form opens beyond its own part of the program. Set where all forms are known; without one
/// nothing opens.
struct SchuelerFormZiele {
    /// Shows the record of the pupil AktuelleSchuelerID on a page, for printing, until the page is closed.
    std::function<void()> drucken;
};
SchuelerFormZiele& schuelerFormZiele();

/// The window in which the office spends its day: the list of pupils, and the record of the one selected, to
/// be created, corrected, deleted or activated as the mode says.
class frmSchülerIn : public FormWindow {
public:
    frmSchülerIn();
    ~frmSchülerIn() override;

    /// Frees the record on every way out.
    void reject() override;
    void Unload() override;

    /// The week in the boxes has overlapping times; set by the last check.
    bool ZeitKonflikt = false;

protected:
    void Prepare() override;

private:
    void buildHead();
    void buildTabs();
    QWidget* buildButtons();

    void modusZeigen();
    void einstellungenZeigen();
    /// Reads the list and the boxes of the mode; the database is open.
    void listenLaden();
    void ListeFuellen();
    void ListeLeerFuellen();

    void Eingabefelder_Löschen();
    void ImgAlleNotizenAusblenden();
    /// Reads the record of the marked row, unless another workstation holds it.
    void ListViewStammdaten_Click();
    void datensatzLesen(qint16 id);
    /// Puts the images beside the boxes as the notes of the pupil say; the database is open.
    void NotizVorhanden_JaNein();
    void klasseVerlassen();
    void nichtOG(bool gesetzt);
    void notiz(int gruppe, int tag, bool bearbeiten);
    /// Keeps the row of the record shown, to be marked again when this form comes back.
    void zeileMerken();
    void Search_Nachname_Schüler();
    void drucken();
    void StempelLoesen();

    void Check_ZeitÜberschneidungen_Vor_Datenübernahme();
    void zeitpruefungSchalten(bool an);
    void uhrStellen();

    void ok();
    /// The checks in front of every write. False when the user was told of a fault.
    bool pruefen();
    SchuelerDatensatz einsammeln() const;
    void nachSchreiben(const SchuelerDatensatz& datensatz);

    SchuelerModus m_modus;
    SchuelerSpeicher m_speicher;
    /// The texts of the list in the order in which it was filled, for the search.
    std::vector<QStringList> m_zeilen;
    bool FormWirdVorbereitet = false;
    bool DatensatzWirdGeladen = false;
    bool OK_Laeuft = false;
    /// Row of the list from which the record shown came.
    int ListenIndex = 0;
    /// The workstation that holds the record, after a refused selection.
    std::optional<QString> m_belegtVon;
    /// The list shows the placeholder in one column.
    bool m_platzhalter = false;
    bool m_spaltenDa = false;
    /// The row from which another window was opened: where it stands may have changed when that is closed.
    QString m_gemerkteZeile;

    ListView* lvwStammdaten;
    QLabel* lblModus;
    SchuelerStamm* m_stamm;
    SchuelerAmpel* m_ampel;
    QTabWidget* SSTab1;
    SchuelerWoche* m_woche;
    SchuelerKontakte* m_kontakte;
    SchuelerBeitraege* m_beitraege;
    SchuelerAnmerkung* m_anmerkung;
    QToolButton* imgPrinter;
    QPushButton* cmdOK;
    QPushButton* cmdBeenden;
    QTimer* Timer1;
};

} // namespace kolibri
