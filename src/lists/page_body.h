#pragma once

#include <QString>

#include <vector>

namespace kolibri {

class PageWriter;

/// What stands behind the heading of a page.
enum class TitleEnd { Plain, LineBreak };

/// "<BODY>".
void beginBody(PageWriter& page);
/// The school's address; an empty block when the school has no name, even if street and town are known.
void writeAddress(PageWriter& page);
/// The heading, as it is given.
void writeTitle(PageWriter& page, QStringView title, TitleEnd end);
/// "<div id='box_table'>", which holds the tables.
void beginBoxTable(PageWriter& page);
/// Closes box_table, body and page.
void endBody(PageWriter& page);

/// A block of text of this class: "<div class='...'>", the text, "</div>".
void writeTextBlock(PageWriter& page, QStringView divClass, QStringView text);

void beginTable(PageWriter& page, QStringView tableClass);
void endTable(PageWriter& page);

/// The beginning of a cell with its width and alignment: "<TD WIDTH=120pt ALIGN=left>".
QString cellStart(int column);
/// The same with an alignment of its own.
QString cellStart(int column, QStringView align);

/// Writes rows of a list in a shape that is worked out once: what stands before and behind each cell.
class RowWriter {
public:
    enum class Cells { WithWidth, Plain };

    RowWriter(PageWriter& page, Cells cells);

    /// Headings of the columns in a row of this class.
    void writeHeader(QStringView rowClass);
    /// A row of Daten.
    void writeRow(QStringView rowClass, int row);

private:
    PageWriter& m_page;
    std::vector<QString> m_starts;
};

/// "<TR class=...>" and "</TR>".
void beginRow(PageWriter& page, QStringView rowClass);
void endRow(PageWriter& page);

/// The shade of the rows: off for the first, then turn by turn.
class Stripe {
public:
    /// Goes on to the next shade. Returns true for the shaded one.
    bool next() {
        m_on = m_begun && !m_on;
        m_begun = true;
        return m_on;
    }
    bool on() const { return m_on; }

private:
    bool m_on = false;
    bool m_begun = false;
};

} // namespace kolibri
