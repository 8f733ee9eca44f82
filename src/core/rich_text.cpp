#include "core/rich_text.h"

#include <QFont>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr QChar kLineBreak = QChar::LineSeparator;

/// Line ends as "\n"; no control characters but tabs, no half of a surrogate pair.
QString clean(const QString& text) {
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool hasNext = i + 1 < text.size();
        if (c == u'\r' || c == QChar::ParagraphSeparator) {
            result += u'\n';
            if (c == u'\r' && hasNext && text.at(i + 1) == u'\n')
                ++i;
        } else if (c.isHighSurrogate() && hasNext && text.at(i + 1).isLowSurrogate()) {
            result += c;
            result += text.at(++i);
        } else if (c.isSurrogate()) {
            result += QChar(QChar::ReplacementCharacter);
        } else if (c == u'\n' || c == u'\t' || c >= u' ') {
            result += c;
        }
    }
    return result;
}

QString htmlOf(const QString& text) {
    QString html = text.toHtmlEscaped();
    html.replace(u'\n', u"<br />"_s);
    html.replace(kLineBreak, u"<br />"_s);
    return html;
}

} // namespace

void RichText::append(const QString& text, TextStyle style) {
    const QString added = clean(text);
    qsizetype breaks = 0;
    while (breaks < added.size() && added.at(breaks) == u'\n')
        ++breaks;
    add(added.first(breaks), m_runs.empty() ? TextStyle{} : m_runs.back().style);
    add(added.sliced(breaks), style);
}

void RichText::add(const QString& text, TextStyle style) {
    if (text.isEmpty())
        return;
    if (!m_runs.empty() && m_runs.back().style == style)
        m_runs.back().text += text;
    else
        m_runs.push_back({text, style});
}

void RichText::dropLastParagraphEnd() {
    if (m_runs.empty() || !m_runs.back().text.endsWith(u'\n'))
        return;
    m_runs.back().text.chop(1);
    if (m_runs.back().text.isEmpty())
        m_runs.pop_back();
}

bool RichText::hasMarks() const {
    return std::any_of(m_runs.begin(), m_runs.end(),
                       [](const TextRun& run) { return run.style != TextStyle{}; });
}

QString RichText::plain() const {
    QString text;
    for (const auto& run : m_runs)
        text += run.text;
    return text.replace(kLineBreak, u'\n');
}

bool isRtf(QStringView stored) {
    return stored.trimmed().startsWith(u"{\\rtf");
}

RichText richTextFrom(const QString& stored) {
    return isRtf(stored) ? readRtf(stored) : RichText(stored);
}

QString toHtml(const RichText& text) {
    QString html;
    for (const auto& [content, style] : text.runs()) {
        QString opening, closing;
        const auto tag = [&](bool wanted, const QString& name) {
            if (!wanted)
                return;
            opening += u'<' + name + u'>';
            closing.prepend(u"</"_s + name + u'>');
        };
        tag(style.bold, u"b"_s);
        tag(style.italic, u"i"_s);
        tag(style.underline, u"u"_s);
        html += opening + htmlOf(content) + closing;
    }
    return html;
}

void insertRichText(QTextCursor& cursor, const RichText& text) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    for (const auto& [content, style] : text.runs()) {
        QTextCharFormat format;
        format.setFontWeight(style.bold ? QFont::Bold : QFont::Normal);
        format.setFontItalic(style.italic);
        format.setFontUnderline(style.underline);
        cursor.insertText(content, format);
    }
    cursor.endEditBlock();
}

void fillDocument(QTextDocument& document, const RichText& text) {
    document.clear();
    QTextCursor cursor(&document);
    insertRichText(cursor, text);
    document.clearUndoRedoStacks();
}

RichText richTextFrom(const QTextDocument& document) {
    RichText text;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.blockNumber() > 0)
            text.append(u"\n"_s, {});
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            const QTextCharFormat format = fragment.charFormat();
            // A picture or table that was pasted in stands as this character.
            text.append(fragment.text().remove(QChar(QChar::ObjectReplacementCharacter)),
                        {format.fontWeight() > QFont::Medium, format.fontItalic(), format.fontUnderline()});
        }
    }
    return text;
}

} // namespace kolibri
