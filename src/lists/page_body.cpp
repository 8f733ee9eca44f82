#include "lists/page_body.h"

#include "core/mdlGlobal.h"
#include "lists/list_state.h"
#include "lists/page_writer.h"

using namespace Qt::StringLiterals;

namespace kolibri {

void beginBody(PageWriter& page) {
    page.line(u"<BODY>");
}

void writeAddress(PageWriter& page) {
    const auto& global = Global();
    page.line(uR"(<div id="kopf_anschrift">)");
    if (!global.SchuleOrganisation.isEmpty())
        page.line({global.SchuleOrganisation, u"<br />", global.SchuleStrasse, u", ", global.SchulePLZOrt});
    page.line(u"</div>");
}

void writeTitle(PageWriter& page, QStringView title, TitleEnd end) {
    page.line(uR"(<div id="kopf_mitte">)");
    page.line({u"<h1>", title, end == TitleEnd::LineBreak ? u"</h1><BR>" : u"</h1>"});
    page.line(u"</div>");
}

void beginBoxTable(PageWriter& page) {
    page.line(u"<div id='box_table'>");
}

void endBody(PageWriter& page) {
    page.line(u"</div>");
    page.line(u"</BODY>");
    page.line(u"</HTML>");
}

void writeTextBlock(PageWriter& page, QStringView divClass, QStringView text) {
    page.line({u"<div class='", divClass, u"'>"});
    page.line(text);
    page.line(u"</div>");
}

void beginTable(PageWriter& page, QStringView tableClass) {
    page.line({uR"(<TABLE class=")", tableClass, uR"(">)"});
}

void endTable(PageWriter& page) {
    page.line(u"</TABLE>");
}

QString cellStart(int column) {
    return cellStart(column, Liste().SpaltenAlign(column));
}

QString cellStart(int column, QStringView align) {
    return u"<TD WIDTH=%1pt ALIGN=%2>"_s.arg(Liste().SpaltenBreitePt(column)).arg(align);
}

RowWriter::RowWriter(PageWriter& page, Cells cells) : m_page(page) {
    for (int column = 1; column <= Liste().SpaltenAnzahl; ++column)
        m_starts.push_back(cells == Cells::WithWidth ? cellStart(column) : u"<TD>"_s);
}

void RowWriter::writeHeader(QStringView rowClass) {
    const auto& liste = Liste();
    beginRow(m_page, rowClass);
    for (int column = 1; column <= liste.SpaltenAnzahl; ++column)
        m_page.line({m_starts[static_cast<std::size_t>(column - 1)], liste.SpaltenText(column), u"</TD>"});
    endRow(m_page);
}

void RowWriter::writeRow(QStringView rowClass, int row) {
    const auto& liste = Liste();
    beginRow(m_page, rowClass);
    for (int column = 1; column <= liste.SpaltenAnzahl; ++column)
        m_page.line({m_starts[static_cast<std::size_t>(column - 1)], liste.Daten(column, row), u"</TD>"});
    endRow(m_page);
}

void beginRow(PageWriter& page, QStringView rowClass) {
    page.line({uR"(<TR class=")", rowClass, uR"(">)"});
}

void endRow(PageWriter& page) {
    page.line(u"</TR>");
}

} // namespace kolibri
