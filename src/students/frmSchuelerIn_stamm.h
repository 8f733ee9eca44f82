#pragma once

#include "students/pupil_record.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QToolButton;

namespace kolibri {

class RecordBox;
class RecordChoice;

/// The master data of the pupil form: name, date of birth, class, marks, module.
class SchuelerStamm : public QWidget {
public:
    SchuelerStamm();

    void leeren();
    void zeigen(const SchuelerDatensatz& datensatz);
    void einsammeln(SchuelerDatensatz& datensatz) const;
    /// Colours the boxes in error and puts the focus where the check wants it.
    void fehlerZeigen(const EingabePruefung& pruefung);
    /// Entries of the module box.
    void bausteineSetzen(const QStringList& bausteine);
    /// Rests the additional fields that the school does not use.
    void zusatzfelderFreigeben();

    std::array<RecordBox*, kSchuelerFelder> txtSCH;
    QToolButton* Image1;
    QCheckBox* chkNeu;
    QCheckBox* chkNichtOG;
    QCheckBox* chkSchwimmer;
    RecordChoice* cmbBaustein;
    RecordBox* txtKennung;

private:
    QLabel* lblSchwimmer;
    QLabel* lblBaustein;
    QLabel* lblKennung;
};

} // namespace kolibri
