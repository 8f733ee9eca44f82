#pragma once

#include "calendar/timetable.h"
#include "core/widgets/forms.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace kolibri {

/// A class's timetable: a line for each teaching unit, a text for each weekday.
class frmStundenplan : public FormWindow {
public:
    frmStundenplan();

protected:
    void Prepare() override;

private:
    struct Line {
        QLabel* unit;
        std::array<QLineEdit*, kSchoolDays> days;
    };

    QWidget* buildGrid();
    Line buildLine(QGridLayout& grid, int index);
    void klasseGewählt();
    /// Shows a line for each unit, with empty boxes.
    void Form_formatieren();
    /// What the user should know about the lines: units that have no room, or that there are none.
    QString hinweis() const;
    /// Fills the lines with what is stored for the class; the database is open.
    void stundenplanAnzeigen();
    void ok();

    QComboBox* cmbKlasse;
    QLabel* lblHinweis;
    /// Line i is that of index i + 1.
    std::vector<Line> m_lines;
    QStringList m_units;
};

} // namespace kolibri
