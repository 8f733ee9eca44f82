#pragma once

#include "core/sort_text.h"
#include "students/student_cache.h"

namespace kolibri {

/// A column of the pupil list.
struct ListenSpalte {
    QString kopf;
    /// How a click on its heading sorts the list.
    SortKind sortierung;
};
/// The 44 columns, in the order of the cache.
const std::vector<ListenSpalte>& SchuelerListenSpalten();

/// A row of the list: the key under which the list knows it, and the visible text of each column.
struct ListenZeile {
    QString schluessel;
    QStringList texte;
};
/// The rows of the list for what the cache holds.
std::vector<ListenZeile> SchuelerListenZeilen(const SchuelerSpeicher& speicher);
/// The one cell of the list when there is nobody to show.
QString KeineSchuelerText();

// Searches over the visible texts of a list, without regard to case. Rows are counted from 1; the answer 0
// means that there is none from `start` on.

/// The first row that shows the text in any column.
int lvw_Search_NN(const std::vector<QStringList>& liste, const QString& text, int start);
/// The same, but a find behind the first column does not end the search: the last such row counts, unless the
/// first column of a row ends it.
int lvw_Search(const std::vector<QStringList>& liste, const QString& text, int start);
/// The first row that shows text1 and, in the same column or behind it, text2. A find of text1 in the first
/// column is enough.
int lvw_Search_NN_VN(const std::vector<QStringList>& liste, const QString& text1, const QString& text2,
                     int start);

} // namespace kolibri
