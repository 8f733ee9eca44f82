#pragma once

#include "calendar/teaching_times.h"
#include "core/widgets/forms.h"

namespace kolibri {

class EntryBox;
class ListView;

/// The four teaching times of each class and weekday, entered one day at a time.
class frmUnterrichtszeiten : public FormWindow {
public:
    frmUnterrichtszeiten();

protected:
    void Prepare() override;

private:
    QWidget* buildFields();
    void buildHelp();
    /// Shows all classes and days; the database is open.
    void Unterrichtsende_DatenAnzeigen();
    void zeileGewählt(const QString& itemText);
    void eingabefelderLöschen();
    /// Marks the boxes that hold no time. False when there is one.
    bool zeitenGültig();
    void ok();

    ListView* lvwKlasse;
    EntryBox* txtKlasse;
    EntryBox* txtTag;
    /// Morning begin and end, afternoon begin and end.
    std::array<EntryBox*, kTeachingTimesOfDay> m_times;
    /// The row whose times stand in the boxes.
    QString m_key;
};

} // namespace kolibri
