#include "lists/care/frmME_jeSchueler.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/choice_list.h"
#include "core/widgets/form_layout.h"
#include "lists/list_helpers.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"

#include <QCheckBox>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {

frmME_jeSchüler::frmME_jeSchüler()
    : FormWindow(u"frmME_jeSchüler"_s),
      lstKlassen(new ChoiceList(u"lstKlassen"_s, u"Klassen"_s)),
      chkMensaMitZeit(new QCheckBox(u"Mensa mit &Zeitangabe"_s)) {
    setWindowTitle(u"MENSA je Schüler"_s);
    auto* classes = new QGroupBox(u"KLASSEN AUSWÄHLEN"_s);
    auto* list = new QVBoxLayout(classes);
    list->addWidget(lstKlassen);
    chkMensaMitZeit->setObjectName(u"chkMensaMitZeit"_s);
    // The other Mensa lists by pupil follow this box as it stands, whether or not a list is made here.
    connect(chkMensaMitZeit, &QCheckBox::toggled, this,
            [](bool on) { Liste().MensaSchueler.chkMensaMitZeit = on; });
    auto* frame = new QGroupBox(u"AUSWAHL"_s);
    frame->setObjectName(u"frmAuswahl"_s);
    auto* options = new QVBoxLayout(frame);
    options->addWidget(chooseAllBox(u"chkKlassen_Y_N"_s, u"&Aktivieren/Deaktivieren"_s, *lstKlassen));
    options->addWidget(chkMensaMitZeit);
    options->addStretch();
    auto* line = new QHBoxLayout;
    line->addWidget(classes, 1);
    line->addWidget(frame);
    auto* column = new QVBoxLayout(this);
    column->addLayout(line, 1);
    connect(addEditorButtons(*this, *column), &QPushButton::clicked, this, [this] { ok(); });
    setFirstSize(*this, 26);
}

void frmME_jeSchüler::Prepare() {
    lstKlassen->setEntries(namesInCapitals(Global().KlassenListe));
    lstKlassen->setFocus();
}

void frmME_jeSchüler::ok() {
    const QStringList classes = lstKlassen->chosen();
    Global().ListenArt = kMensaJeSchueler;
    if (classes.isEmpty()) {
        MsgBox(u"Keine Klasse gewählt!"_s);
        return;
    }
    Liste().MensaSchueler.lstKlassen = classes;
    FreitagBelegt_Pruefen();
    showList(kMensaJeSchueler);
}

} // namespace kolibri
