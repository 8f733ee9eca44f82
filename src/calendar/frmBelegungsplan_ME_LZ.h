#pragma once

#include "calendar/capacity_plan.h"
#include "core/widgets/forms.h"

class QGridLayout;
class QLabel;
class QScrollArea;

namespace kolibri {

class EntryBox;

/// The most places of each Mensa ("BelegungME") or Lernzeit ("BelegungLZ"), a line for each of its times.
class frmBelegungsplan_ME_LZ : public FormWindow {
public:
    frmBelegungsplan_ME_LZ();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void Prepare() override;

private:
    /// The controls of an offering. Lines are made when they are first needed and kept.
    struct Line {
        QLabel* lblME_LZ;
        QLabel* lblZeit;
        /// Not seen; they carry the keys of the offering.
        QLabel* lblK_Name;
        QLabel* lblZeit_K_Name;
        std::array<EntryBox*, kCapacityLetters> txtPlätze;
        EntryBox* txtPlätze_G;
        /// What stood in the boxes when the user was told that it is too large.
        std::optional<Places> zuGroß = std::nullopt;
    };

    QWidget* buildPlan();
    void buildHeadings();
    void addLine();
    /// Shows as many lines as there are offerings, and the form as high as they need.
    void zeilenAnzeigen(const std::vector<CapacityLine>& lines);
    void formHöheAnpassen();
    void zeileFüllen(Line& line, const CapacityLine& content);
    static Places plätze(const Line& line);
    /// Colours the boxes of a line that hold no number. The first of them; null when there is none.
    static EntryBox* zeilePrüfen(const Line& line);
    /// Shows the total of a line that the user has left.
    /// @throws RuntimeError 6 for a number that is too large, once for each text
    void zeileVerlassen(Line& line);
    /// The line whose box this is; null for any other control.
    Line* zeileVon(const QObject* box);
    /// Says below the plan what a colour or an empty plan means.
    void hinweisZeigen();
    QString hinweis() const;
    std::vector<CapacityLine> eingaben() const;
    void ok();

    OfferingKind m_kind = OfferingKind::Mensa;
    QLabel* m_heading = nullptr;
    QGridLayout* m_grid = nullptr;
    QScrollArea* m_scroll = nullptr;
    QLabel* lblHinweis;
    std::vector<Line> m_lines;
    /// How many of the lines are in use.
    std::size_t m_used = 0;
};

} // namespace kolibri
