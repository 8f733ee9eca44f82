#pragma once

#include "students/assignments.h"

#include <set>

namespace kolibri {

/// The image beside a group box.
enum class NotizBild {
    Keins, ///< the box is empty
    Ohne,  ///< the assignment has no note: the grey image
    Haken  ///< the assignment has a note: the green tick
};

/// The notes of a pupil, each by its place and the assignment it was written for.
class SchuelerNotizen {
public:
    /// A note on a group (0 stands for GR1) and day. Notes on another place are passed over.
    void add(int gruppe, int tag, const QString& zeit_K_Name);
    /// The image of a box that shows this text.
    NotizBild bild(int gruppe, int tag, const QString& text) const;

private:
    std::array<std::array<std::set<QString>, kSchoolDays>, kGruppen> m_notes;
};

/// The notes of the pupil AktuelleSchuelerID in the open database.
SchuelerNotizen NotizenLesen();

} // namespace kolibri
