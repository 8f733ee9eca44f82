#include "lists/list_texts.h"

#include "core/rich_text.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

QString withBreaks(QString text) {
    return text.replace(u'\n', u"<br />"_s).replace(QChar(QChar::LineSeparator), u"<br />"_s);
}

} // namespace

QString pageText(const RichText& text) {
    QString html;
    for (const auto& [content, style] : text.runs()) {
        QString opening;
        QString closing;
        const auto mark = [&](bool wanted, QChar tag) {
            if (!wanted)
                return;
            opening += u'<' + QString(tag) + u'>';
            closing.prepend(u"</"_s + tag + u'>');
        };
        mark(style.bold, u'b');
        mark(style.italic, u'i');
        mark(style.underline, u'u');
        html += opening + withBreaks(content) + closing;
    }
    return html;
}

QString pageText(const QString& stored) {
    return pageText(richTextFrom(stored));
}

} // namespace kolibri
