#include "students/frmSchuelerIn_anmerkung.h"

#include "core/mdlAllgemein.h"
#include "core/widgets/rich_text_box.h"
#include "core/widgets/theme.h"
#include "students/frmSchuelerIn_felder.h"
#include "students/remark_text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {

SchuelerAnmerkung::SchuelerAnmerkung()
    : rtfAnmerkung(new RichTextBox(u"rtfAnmerkung"_s)), lblZeichen(new QLabel) {
    lblZeichen->setObjectName(u"lblAnmerkungZeichen"_s);
    lblZeichen->setToolTip(u"Zeichen mit Auszeichnungen / höchstens möglich"_s);
    auto* column = new QVBoxLayout(this);
    auto* head = new QHBoxLayout;
    head->addWidget(captionOf(u"An&merkung:"_s, rtfAnmerkung));
    head->addWidget(formatButtons(*rtfAnmerkung));
    head->addStretch();
    head->addWidget(lblZeichen);
    column->addLayout(head);
    column->addWidget(rtfAnmerkung, 1);
    connect(rtfAnmerkung, &QTextEdit::textChanged, this, [this] { zaehlen(); });
    zaehlen();
}

void SchuelerAnmerkung::leeren() {
    zeigen({});
}

void SchuelerAnmerkung::zeigen(const QString& speicherform) {
    rtfAnmerkung->setRichText(richTextFrom(speicherform));
    zaehlen();
}

QString SchuelerAnmerkung::speicherform() const {
    return AnmerkungSpeicherform(rtfAnmerkung->richText());
}

bool SchuelerAnmerkung::pruefen() {
    const QString form = speicherform();
    if (AnmerkungPasst(form))
        return true;
    rtfAnmerkung->setFocus();
    MsgBox(AnmerkungZuLang(form));
    return false;
}

void SchuelerAnmerkung::zaehlen() {
    const QString form = speicherform();
    lblZeichen->setText(AnmerkungZaehler(form));
    setErrorColour(rtfAnmerkung, !AnmerkungPasst(form), AnmerkungZuLang(form));
}

} // namespace kolibri
