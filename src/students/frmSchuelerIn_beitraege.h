#pragma once

#include "students/form_settings.h"
#include "students/pupil_record.h"

#include <QWidget>

class QFrame;
class QLabel;

namespace kolibri {

class RecordBox;

/// The fees of the pupil form and their sum.
class SchuelerBeitraege : public QWidget {
public:
    SchuelerBeitraege();

    void leeren();
    void zeigen(const SchuelerDatensatz& datensatz);
    void einsammeln(SchuelerDatensatz& datensatz) const;
    /// Shows the fees that the school uses, under their names.
    void einstellungenZeigen(const BeitragEinstellungen& einstellungen);

    /// Tells the user about every box that holds no fee, and puts the focus there. False when there is one.
    bool pruefen();

private:
    BeitragTexte texte() const;
    /// Rewrites the fees with two decimals, shows their sum, and has the boxes that hold none told of as soon
    /// as the click or key that left the box is done with.
    void verlassen();
    void melden(const std::vector<int>& ungueltig);

    std::array<RecordBox*, kBeitraege + 1> txtBeitrag;
    std::array<QLabel*, kBeitraege> lblBeitrag;
    /// A number for each telling that is waiting; a newer one makes it void.
    int m_telling = 0;
    bool m_tellingNow = false;
};

} // namespace kolibri
