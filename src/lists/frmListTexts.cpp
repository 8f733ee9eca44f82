#include "lists/frmListTexts.h"

#include "core/widgets/rich_text_box.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {

ListTextBoxes::ListTextBoxes()
    : rtfVorher(new RichTextBox(u"rtfVorher"_s)), rtfNachher(new RichTextBox(u"rtfNachher"_s)) {
    constexpr int kLines = 5;
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins({});
    line->addWidget(captioned(u"Text &vor Tabelle:"_s, *rtfVorher));
    line->addWidget(captioned(u"Text &nach Tabelle:"_s, *rtfNachher));
    for (auto* box : {rtfVorher, rtfNachher})
        box->setWantedLines(kLines);
}

void ListTextBoxes::setTexts(const ListTexts& texts) {
    rtfVorher->setRichText(richTextFrom(texts.vorher));
    rtfNachher->setRichText(richTextFrom(texts.nachher));
}

ListTexts ListTextBoxes::texts() const {
    return {storedText(rtfVorher->richText()), storedText(rtfNachher->richText())};
}

} // namespace kolibri
