#include "core/rich_text.h"

#include <array>
#include <span>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

struct Mark {
    QStringView word;
    bool TextStyle::*flag;
};
constexpr std::array<Mark, 3> kMarks{
    {{u"b", &TextStyle::bold}, {u"i", &TextStyle::italic}, {u"ul", &TextStyle::underline}}};

class RtfWriter {
public:
    QString write(const RichText& text) {
        m_out = u"{"_s;
        word(u"rtf1");
        content(text.runs(), {}, true);
        // The reader takes one paragraph end off the end, so an empty last paragraph needs one more.
        if (!text.isEmpty() && text.runs().back().text.endsWith(u'\n'))
            word(u"par");
        return m_out + u'}';
    }

private:
    using Runs = std::span<const TextRun>;

    /// Writes runs that all bear the marks `active`. A stretch with more marks stands in a group of its own,
    /// the longest first, which is shorter than switching each mark on and off; at the very end of the text
    /// even the group is not needed.
    void content(Runs runs, TextStyle active, bool atEnd) {
        while (!runs.empty()) {
            if (runs.front().style == active) {
                characters(runs.front().text);
                runs = runs.subspan(1);
                continue;
            }
            TextStyle style = active;
            std::size_t length = 0;
            for (const auto& mark : kMarks)
                if (!(active.*mark.flag))
                    length = std::max(length, reach(runs, mark));
            const bool last = atEnd && length == runs.size();
            if (!last)
                symbol(u"{");
            for (const auto& mark : kMarks) {
                if (active.*mark.flag || reach(runs, mark) != length)
                    continue;
                style.*mark.flag = true;
                word(mark.word);
            }
            content(runs.first(length), style, last);
            if (!last)
                symbol(u"}");
            runs = runs.subspan(length);
        }
    }

    /// Number of runs from the first on that bear the mark.
    static std::size_t reach(Runs runs, const Mark& mark) {
        std::size_t length = 0;
        while (length < runs.size() && runs[length].style.*mark.flag)
            ++length;
        return length;
    }

    void characters(const QString& text) {
        for (const QChar c : text) {
            if (c == u'\n')
                word(u"par");
            else if (c == u'\t')
                word(u"tab");
            else if (c == QChar::LineSeparator)
                word(u"line");
            else if (c == QChar::Nbsp)
                symbol(u"\\~");
            else if (c == u'\\' || c == u'{' || c == u'}')
                symbol(u'\\' + QString(c));
            else if (c.unicode() > 0x7e)
                symbol(u"\\u%1?"_s.arg(static_cast<qint16>(c.unicode())));
            else
                letter(c);
        }
    }

    void word(QStringView name) {
        m_out += u'\\';
        m_out += name;
        m_wordOpen = true;
    }

    void symbol(QStringView symbol) {
        m_out += symbol;
        m_wordOpen = false;
    }

    /// A character that would be taken for a part of the control word in front is kept apart by a blank.
    void letter(QChar c) {
        if (m_wordOpen && (c.isLetterOrNumber() || c == u' ' || c == u'-'))
            m_out += u' ';
        symbol(QStringView(&c, 1));
    }

    QString m_out;
    bool m_wordOpen = false;
};

} // namespace

QString toRtf(const RichText& text) {
    return RtfWriter().write(text);
}

} // namespace kolibri
