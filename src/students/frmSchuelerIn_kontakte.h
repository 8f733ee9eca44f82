#pragma once

#include "students/pupil_record.h"

#include <QWidget>

class QLabel;

namespace kolibri {

class RecordBox;

/// The three contact persons and the emergency number of the pupil form.
class SchuelerKontakte : public QWidget {
public:
    SchuelerKontakte();

    void leeren();
    void zeigen(const SchuelerDatensatz& datensatz);
    void einsammeln(SchuelerDatensatz& datensatz) const;
    /// Labels the fields as the school calls them.
    void bezeichnungenZeigen();

private:
    std::array<QLabel*, kContactFields> lblGV1;
    std::array<std::array<RecordBox*, kContactFields>, kKontakte> txtGV;
    RecordBox* txtNotfallRN;
};

} // namespace kolibri
