#include "lists/page_style.h"

#include "lists/page_writer.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

void writeBlock(PageWriter& page, QStringView medium, bool onScreen, const PageValues& values) {
    page.line({u"@media ", medium, u" {"});
    for (const auto& rule : styleRules())
        if (onScreen || !rule.screenOnly)
            page.line(styleLine(rule, values));
    page.line(u"}");
}

} // namespace

QString styleLine(const StyleRule& rule, const PageValues& values) {
    QString line = rule.text.toString();
    line.replace(u"{W}"_s, QString::number(values.TabellenBreite));
    line.replace(u"{S}"_s, QString::number(values.FontGroesse[rule.group]));
    line.replace(u"{B}"_s, values.FontGewicht[rule.group]);
    line.replace(u"{I}"_s, values.FontStil[rule.group]);
    return line;
}

void writeHead(PageWriter& page, const PageValues& values) {
    page.line(uR"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.0 Transitional//EN">)");
    page.line(u"<HTML>");
    page.line(u"<HEAD>");
    page.line(uR"(<meta http-equiv="Content-Type" content="text/html; charset=iso-8859-1">)");
    page.line(u"<META content=4.20 name=Generator>");
    page.line(uR"(<style type="text/css">)");
    writeBlock(page, u"screen", true, values);
    writeBlock(page, u"print", false, values);
    page.line(u"</style>");
    page.line(u"<title>Kolibri</title>");
    page.line(u"</HEAD>");
}

} // namespace kolibri
