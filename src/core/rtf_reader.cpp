#include "core/rich_text.h"
#include "core/windows1252.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// What a control word does.
enum class Word {
    Bold,
    Italic,
    Underline,
    NoUnderline,
    Plain,
    Text,         ///< stands for a text of its own
    Unicode,      ///< \uN and its fallback
    FallbackSize, ///< \ucN
    Binary,       ///< \binN and N raw characters
    Skip          ///< begins a destination without text for the reader
};

struct Meaning {
    Word word;
    QString text = {};
};

const QHash<QString, Meaning>& meanings() {
    static const QHash<QString, Meaning> table = [] {
        QHash<QString, Meaning> words{
            {u"b"_s, {Word::Bold}},
            {u"i"_s, {Word::Italic}},
            {u"ulnone"_s, {Word::NoUnderline}},
            {u"plain"_s, {Word::Plain}},
            {u"u"_s, {Word::Unicode}},
            {u"uc"_s, {Word::FallbackSize}},
            {u"bin"_s, {Word::Binary}},
            {u"par"_s, {Word::Text, u"\n"_s}},
            {u"sect"_s, {Word::Text, u"\n"_s}},
            {u"page"_s, {Word::Text, u"\n"_s}},
            {u"row"_s, {Word::Text, u"\n"_s}},
            {u"line"_s, {Word::Text, QString(QChar::LineSeparator)}},
            {u"tab"_s, {Word::Text, u"\t"_s}},
            {u"cell"_s, {Word::Text, u"\t"_s}},
            {u"emdash"_s, {Word::Text, u"—"_s}},
            {u"endash"_s, {Word::Text, u"–"_s}},
            {u"lquote"_s, {Word::Text, u"‘"_s}},
            {u"rquote"_s, {Word::Text, u"’"_s}},
            {u"ldblquote"_s, {Word::Text, u"“"_s}},
            {u"rdblquote"_s, {Word::Text, u"”"_s}},
            {u"bullet"_s, {Word::Text, u"•"_s}},
        };
        for (const auto& name : {u"ul"_s, u"uld"_s, u"uldash"_s, u"uldashd"_s, u"uldashdd"_s, u"uldb"_s,
                                 u"ulhwave"_s, u"ulldash"_s, u"ulth"_s, u"ulw"_s, u"ulwave"_s})
            words.insert(name, {Word::Underline});
        for (const auto& name : {u"fonttbl"_s,
                                 u"colortbl"_s,
                                 u"stylesheet"_s,
                                 u"info"_s,
                                 u"pict"_s,
                                 u"object"_s,
                                 u"header"_s,
                                 u"headerl"_s,
                                 u"headerr"_s,
                                 u"headerf"_s,
                                 u"footer"_s,
                                 u"footerl"_s,
                                 u"footerr"_s,
                                 u"footerf"_s,
                                 u"footnote"_s,
                                 u"listtable"_s,
                                 u"listoverridetable"_s,
                                 u"filetbl"_s,
                                 u"revtbl"_s,
                                 u"fldinst"_s,
                                 u"xe"_s,
                                 u"tc"_s,
                                 u"rxe"_s})
            words.insert(name, {Word::Skip});
        return words;
    }();
    return table;
}

bool isAsciiLetter(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool isAsciiDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

class RtfReader {
public:
    explicit RtfReader(QStringView markup) : m_markup(markup) {}

    RichText read() {
        while (m_at < m_markup.size() && !m_ended)
            step(m_markup.at(m_at++));
        flush();
        // The last paragraph needs no end: a text box that shows the text has one paragraph more than ends.
        m_text.dropLastParagraphEnd();
        return m_text;
    }

private:
    /// What a group keeps to itself.
    struct Group {
        TextStyle style;
        int fallbackSize = 1;
        bool skipped = false;
    };

    void step(QChar c) {
        if (c == u'{') {
            m_outer.push_back(m_group);
            m_fallback = 0;
        } else if (c == u'}') {
            endGroup();
        } else if (c == u'\\') {
            control();
        } else if (c != u'\r' && c != u'\n') {
            character(QString(c));
        }
    }

    void endGroup() {
        m_fallback = 0;
        if (!m_outer.empty()) {
            setStyle(m_outer.back().style);
            m_group = m_outer.back();
            m_outer.pop_back();
        }
        m_ended = m_outer.empty();
    }

    void control() {
        if (m_at >= m_markup.size())
            return;
        const QChar c = m_markup.at(m_at);
        if (isAsciiLetter(c)) {
            word();
            return;
        }
        ++m_at;
        if (c == u'\'')
            codePageEscape();
        else if (c == u'*')
            m_group.skipped = true;
        else if (c == u'\r' || c == u'\n')
            character(u"\n"_s);
        else if (c == u'~')
            character(QString(QChar::Nbsp));
        else if (c == u'_')
            character(QString(QChar(0x2011)));
        else if (c == u'\\' || c == u'{' || c == u'}' || c.unicode() > 0x7f)
            // A letter behind a backslash is what an escape became when its code was replaced by the letter
            // and the backslash was left: older files have their umlauts so.
            character(QString(c));
    }

    void word() {
        const qsizetype start = m_at;
        while (m_at < m_markup.size() && isAsciiLetter(m_markup.at(m_at)))
            ++m_at;
        const QString name = m_markup.sliced(start, m_at - start).toString();
        const std::optional<int> number = parameter();
        if (m_at < m_markup.size() && m_markup.at(m_at) == u' ')
            ++m_at;
        const auto known = meanings().constFind(name);
        if (known == meanings().constEnd())
            return;
        if (known->word != Word::FallbackSize)
            m_fallback = 0;
        apply(*known, number);
    }

    std::optional<int> parameter() {
        const qsizetype start = m_at;
        qsizetype end = start;
        if (end < m_markup.size() && m_markup.at(end) == u'-')
            ++end;
        const qsizetype firstDigit = end;
        while (end < m_markup.size() && isAsciiDigit(m_markup.at(end)))
            ++end;
        if (end == firstDigit)
            return std::nullopt;
        m_at = end;
        bool ok = false;
        const int number = m_markup.sliced(start, end - start).toInt(&ok);
        return ok ? std::optional(number) : std::nullopt;
    }

    void apply(const Meaning& meaning, std::optional<int> number) {
        TextStyle style = m_group.style;
        switch (meaning.word) {
        case Word::Bold:
            style.bold = number != 0;
            break;
        case Word::Italic:
            style.italic = number != 0;
            break;
        case Word::Underline:
            style.underline = number != 0;
            break;
        case Word::NoUnderline:
            style.underline = false;
            break;
        case Word::Plain:
            style = {};
            break;
        case Word::Text:
            character(meaning.text);
            break;
        case Word::Unicode:
            if (number)
                character(QString(QChar(static_cast<char16_t>(*number))));
            m_fallback = m_group.fallbackSize;
            break;
        case Word::FallbackSize:
            m_group.fallbackSize = std::max(0, number.value_or(1));
            break;
        case Word::Binary:
            m_at += std::clamp<qsizetype>(number.value_or(0), 0, m_markup.size() - m_at);
            break;
        case Word::Skip:
            m_group.skipped = true;
            break;
        }
        setStyle(style);
    }

    void codePageEscape() {
        bool ok = false;
        const int code = m_at + 2 <= m_markup.size() ? m_markup.sliced(m_at, 2).toInt(&ok, 16) : 0;
        if (!ok)
            return;
        m_at += 2;
        character(fromTextFile(QByteArray(1, static_cast<char>(code))));
    }

    /// One character of the text, or of the fallback behind a \uN, which readers without Unicode show.
    void character(const QString& c) {
        if (m_fallback > 0)
            --m_fallback;
        else if (!m_group.skipped)
            m_pending += c;
    }

    void setStyle(TextStyle style) {
        if (style != m_group.style)
            flush();
        m_group.style = style;
    }

    void flush() {
        m_text.append(m_pending, m_group.style);
        m_pending.clear();
    }

    QStringView m_markup;
    qsizetype m_at = 0;
    bool m_ended = false;
    Group m_group;
    std::vector<Group> m_outer;
    int m_fallback = 0;
    QString m_pending;
    RichText m_text;
};

} // namespace

RichText readRtf(QStringView markup) {
    return RtfReader(markup).read();
}

} // namespace kolibri
