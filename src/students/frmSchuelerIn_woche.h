#pragma once

#include "students/class_times.h"
#include "students/note_images.h"
#include "students/overlap_check.h"
#include "students/student_cache.h"

#include <QWidget>

#include <functional>
#include <optional>

class QGridLayout;
class QStackedWidget;

namespace kolibri {

class EntryBox;
class RecordChoice;

/// The week of the pupil form: the class's teaching times above, the seven groups below, one column for each
/// day; beside each group box the image that leads to its note.
class SchuelerWoche : public QWidget {
public:
    SchuelerWoche();

    /// Entries of the 35 boxes; each goes to its first, the empty one.
    void eintraegeSetzen(const GruppenListen& listen);
    /// Takes all entries away, where the mode needs none.
    void eintraegeEntfernen();

    /// Empties the group boxes and the morning's teaching times. The afternoon's stay until the next record
    /// is read.
    void leeren();
    /// Selects the assignments. One that is no longer offered shows empty.
    void zeigen(const WochenTexte& texte);
    WochenTexte texte() const;
    /// What the box of a group (0 stands for GR1) and day shows.
    QString text(int gruppe, int tag) const;

    void unterrichtZeigen(const std::vector<UnterrichtTag>& tage);
    /// The ends of the morning's teaching alone, for a class that was typed.
    void Zeit_UnterrichtsendeZeigen(const std::vector<UnterrichtTag>& tage);
    /// What the overlap check needs, but for the waivers.
    PruefWoche pruefWoche() const;

    /// A pupil who takes no part in the all-day care has no Mensa and no Lernzeit.
    void mensaUndLernzeitFreigeben(bool frei);
    void mensaUndLernzeitLeeren();

    /// Shows the note images of a record.
    void notizenZeigen(const SchuelerNotizen& notizen);
    void ImgAlleNotizenAusblenden();

    /// Asked before a choice of the user counts: while the form is busy by itself the notes guard nothing.
    void onGuardAsked(std::function<bool()> resting) { m_guardRests = std::move(resting); }
    /// Runs when an image is clicked; `edit` is true for the tick of a note that exists.
    void onNoteClicked(std::function<void(int gruppe, int tag, bool edit)> handler) {
        m_noteClicked = std::move(handler);
    }

private:
    /// A group box with its images.
    struct Zelle {
        RecordChoice* cmbGR = nullptr;
        QStackedWidget* bilder = nullptr;
        /// The entry that was last loaded or accepted.
        int LetzterIndexGR = 0;
    };
    /// The four boxes of a day's teaching.
    struct Unterricht {
        EntryBox* txtU_Beginn = nullptr;
        EntryBox* txtU_Ende = nullptr;
        EntryBox* txtU_BeginnNM = nullptr;
        EntryBox* txtU_EndeNM = nullptr;
    };

    QWidget* buildHeadings();
    QWidget* buildTeaching(const QString& caption, const QString& suffix, EntryBox* Unterricht::*beginn,
                           EntryBox* Unterricht::*ende);
    QWidget* buildGroup(int gruppe);
    QWidget* buildCell(int gruppe, int tag);
    int captionWidth() const;

    Zelle& zelle(int gruppe, int tag);
    /// The user has chosen an entry.
    void gewaehlt(int gruppe, int tag);
    /// Takes over what the boxes show after they were filled by the form.
    void uebernehmen();
    NotizBild bildFuer(int gruppe, int tag, const QString& text) const;
    void bildZeigen(int gruppe, int tag);
    void bilderZeigen();

    std::array<std::array<Zelle, kSchoolDays>, kGruppen> m_zellen;
    std::array<Unterricht, kSchoolDays> m_unterricht;
    std::array<QWidget*, kGruppen> m_frames{};
    /// The notes of the record shown; no value when none is.
    std::optional<SchuelerNotizen> m_notizen;
    std::function<bool()> m_guardRests;
    std::function<void(int, int, bool)> m_noteClicked;
};

} // namespace kolibri
