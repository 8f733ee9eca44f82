#pragma once

#include <QString>

#include <vector>

class QTextCursor;
class QTextDocument;

namespace kolibri {

/// The marks a text of the office can bear.
struct TextStyle {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool operator==(const TextStyle&) const = default;
};

/// A stretch of text in one style.
struct TextRun {
    QString text;
    TextStyle style;
    bool operator==(const TextRun&) const = default;
};

/// A text with bold, italic and underlined stretches. A paragraph ends in "\n", a line break inside a
/// paragraph is U+2028.
class RichText {
public:
    RichText() = default;
    /// A text without marks; line ends of any kind are paragraphs.
    explicit RichText(const QString& plain) { append(plain, {}); }

    /// Adds text at the end. Paragraph ends at its beginning take the style in front of them (none in
    /// front of everything), for their own cannot be seen. Characters that no document can hold are left out
    /// or become U+FFFD.
    void append(const QString& text, TextStyle style);
    /// Takes one paragraph end off the end.
    void dropLastParagraphEnd();

    const std::vector<TextRun>& runs() const { return m_runs; }
    bool isEmpty() const { return m_runs.empty(); }
    /// True if any stretch is marked.
    bool hasMarks() const;
    /// The text alone, every break as "\n".
    QString plain() const;

    bool operator==(const RichText&) const = default;

private:
    void add(const QString& text, TextStyle style);

    std::vector<TextRun> m_runs;
};

/// True if a stored text is rich-text markup.
bool isRtf(QStringView stored);
/// The text of a stored value: markup is read, anything else is taken as it is. Never fails; markup that is
/// cut off or broken gives what can be read of it.
RichText richTextFrom(const QString& stored);

/// Reads rich-text markup: bold, italic, underline, breaks, tabs, escapes of the Windows code page and of
/// Unicode. Tables of fonts and colours, pictures and unknown destinations are passed over.
RichText readRtf(QStringView markup);
/// The shortest markup that says the same: no fonts, no sizes. Letters beyond ASCII stand as \uN escapes, so
/// the markup brings in no apostrophe of its own.
QString toRtf(const RichText& text);
/// The text for a page: <b>, <i>, <u> and <br />, everything else escaped.
QString toHtml(const RichText& text);

/// Puts the text in the place of what is selected.
void insertRichText(QTextCursor& cursor, const RichText& text);
/// Puts the text into the document of a text box, and takes it from there.
void fillDocument(QTextDocument& document, const RichText& text);
RichText richTextFrom(const QTextDocument& document);

} // namespace kolibri
