#include "lists/dayplan/class_text.h"

#include "core/mdlGlobal.h"
#include "core/rich_text.h"
#include "lists/list_texts.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kTable = u"WochenplanTexte"_s;
const QString kOfClass = u"Klasse = ?"_s;
const QString kMarkupBegin = u"{\\rtf1"_s;
const QString kLetterSize = u"\\fs"_s;

Recordset openText(const QString& klasse) {
    return Global().Conn.Open(u"SELECT Klasse, TextVorher FROM WochenplanTexte WHERE Klasse = ?"_s, {klasse});
}

qint64 nextTextId() {
    const Recordset rs = Global().Conn.Open(u"SELECT MAX(ID) FROM WochenplanTexte"_s);
    return rs.Value(0).isNull() ? 1 : rs.Value(0).toLongLong() + 1;
}

} // namespace

QString readClassText(const QString& klasse) {
    const Recordset rs = openText(klasse);
    return rs.Eof() ? QString() : rs.Text(u"TextVorher");
}

void Text_WP_Speichern(const QString& klasse, const QString& text) {
    if (klasse.isEmpty())
        return;
    auto& conn = Global().Conn;
    if (text.isEmpty()) {
        conn.Delete(kTable, kOfClass, {klasse});
        return;
    }
    const Recordset rs = openText(klasse);
    if (rs.Eof())
        conn.AddNew(kTable)
            .Set(u"ID"_s, nextTextId())
            .Set(u"Klasse"_s, klasse)
            .Set(u"TextVorher"_s, text)
            .Update();
    else if (richTextFrom(rs.Text(u"TextVorher")) != richTextFrom(text))
        conn.Change(kTable, {{u"TextVorher"_s, text}}, kOfClass, {klasse});
}

QString storedClassText(const RichText& text) {
    if (text.isEmpty())
        return {};
    // The blank behind the first control word only ends it; the one behind the letter size takes its place.
    QString content = toRtf(text).sliced(kMarkupBegin.size());
    if (content.startsWith(u' '))
        content.remove(0, 1);
    return kMarkupBegin + kLetterSize + u"17 "_s + content;
}

QString classTextOnPage(const QString& stored) {
    constexpr int kLetterSizeLength = 6;
    const qsizetype size = stored.indexOf(kLetterSize);
    if (size < 0)
        return pageText(stored);
    return pageText(readRtf(kMarkupBegin + u' ' + stored.mid(size + kLetterSizeLength)));
}

} // namespace kolibri
