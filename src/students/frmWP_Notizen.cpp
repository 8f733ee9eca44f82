#include "students/frmWP_Notizen.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/row_id.h"
#include "core/widgets/form_layout.h"
#include "core/widgets/list_view.h"
#include "core/widgets/wait_cursor.h"
#include "students/edit_guard.h"
#include "students/frmSchuelerIn_felder.h"
#include "students/pupil_record.h"
#include "students/student_list.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Of the pupil list: ID, name, first name, date of birth, class.
constexpr int kListColumns = 5;

} // namespace

frmWP_Notizen::frmWP_Notizen()
    : FormWindow(u"frmWP_Notizen"_s),
      lvwStammdaten(new ListView(u"lvwStammdaten"_s, u"Schüler und Schülerinnen"_s)),
      txtSchüler(displayBox(u"txtSchüler"_s)),
      cmbUE(new RecordChoice(u"cmbUE"_s)),
      cmbTag(new RecordChoice(u"cmbTag"_s)),
      txtNotiz(new QPlainTextEdit) {
    setWindowTitle(u"Tagesplan Notizen"_s);
    constexpr std::array<int, kListColumns> kWidths{kHiddenColumn, 18, 18, 11, 5};
    std::vector<ListColumn> columns;
    for (std::size_t i = 0; i < kWidths.size(); ++i) {
        const auto& [kopf, sortierung] = SchuelerListenSpalten()[i];
        columns.push_back({kopf, kWidths[i], sortierung});
    }
    lvwStammdaten->setColumns(columns);
    lvwStammdaten->onRowChosen([this](const QString& itemText) { zeileGewählt(itemText); });
    auto* column = new QVBoxLayout(this);
    column->addWidget(listBesideFields(lvwStammdaten, buildFields()), 1);
    cmdOK = addEditorButtons(*this, *column);
    connect(cmdOK, &QPushButton::clicked, this, [this] { ok(); });
    setFirstSize(*this, 38);
}

QWidget* frmWP_Notizen::buildFields() {
    constexpr int kCharacters = 32, kLines = 8, kTimeCharacters = 14;
    cmbUE->setMinimumContentsLength(kTimeCharacters);
    txtSchüler->setWantedCharacters(kCharacters);
    txtNotiz->setObjectName(u"txtNotiz"_s);
    txtNotiz->setTabChangesFocus(true);
    txtNotiz->setFixedHeight(fontMetrics().lineSpacing() * kLines);
    auto* frame = new FieldFrame({});
    frame->addLine(u"&Schüler/Schülerin:"_s, txtSchüler);
    frame->addLine(u"&Unterrichtseinheit:"_s, cmbUE);
    frame->addLine(u"&Tag:"_s, cmbTag);
    frame->addLine(u"&Notiz:"_s, txtNotiz);
    for (auto* choice : {cmbUE, cmbTag})
        connect(choice, &QComboBox::activated, this, [this] { ortGewählt(); });
    return fieldColumn({frame});
}

void frmWP_Notizen::Prepare() {
    cmdOK->setText(Tag == u"Korrektur"_s ? u"KORREKTUR"_s : Tag == u"Löschen"_s ? u"LÖSCHEN"_s : u"OK"_s);
    const WaitCursor wait;
    const DbSession session(u"Tagesplan-Notizen vorbereiten"_s);
    felderLeeren();
    StammdatenAnzeigen_lvwStammdaten_WP_Notiz();
    cmbUE->setEntries(QStringList{QString()} + UnterrichtseinheitenLesen());
    QStringList days{QString()};
    for (int tag = 0; tag < kSchoolDays; ++tag)
        days << TagCode(tag);
    cmbTag->setEntries(days);
    lvwStammdaten->setFocus();
}

void frmWP_Notizen::StammdatenAnzeigen_lvwStammdaten_WP_Notiz() {
    SchuelerSpeicher speicher;
    SchuelerLaden(speicher, SchuelerMenge::Aktive);
    std::vector<ListRow> rows;
    for (const auto& zeile : SchuelerListenZeilen(speicher))
        rows.push_back({zeile.schluessel, zeile.texte.first(kListColumns)});
    lvwStammdaten->setRows(rows);
}

void frmWP_Notizen::felderLeeren() {
    txtSchüler->clear();
    txtNotiz->clear();
    cmbUE->selectText({});
    cmbTag->selectText({});
}

void frmWP_Notizen::zeileGewählt(const QString& itemText) {
    const qint16 id = RowIdOf(itemText);
    // Before the guard: a pupil who is refused must not stand under the name of the one before.
    felderLeeren();
    std::optional<QString> belegtVon;
    {
        const DbSession session(u"Tagesplan-Notizen lesen"_s);
        belegtVon = DatensatzBeanspruchen(id);
        if (!belegtVon)
            schuelerZeigen();
    }
    if (belegtVon)
        MsgBox(BelegtMeldung(*belegtVon));
}

void frmWP_Notizen::schuelerZeigen() {
    const auto schueler = SchuelerLesen(Global().AktuelleSchuelerID);
    if (!schueler)
        return;
    txtSchüler->setText(schueler->SCH[kFeldName] + u' ' + schueler->SCH[kFeldVorname]);
    if (const auto notiz = ErsteTagesplanNotizLesen()) {
        txtNotiz->setPlainText(notiz->Notiz);
        cmbUE->selectText(notiz->ort.UE);
        cmbTag->selectText(notiz->ort.Tag);
    }
}

void frmWP_Notizen::ortGewählt() {
    // Without a pupil there is no note to show; AktuelleSchuelerID may still be one of the pupil form.
    if (txtSchüler->text().isEmpty())
        return;
    const DbSession session(u"Tagesplan-Notiz lesen"_s);
    txtNotiz->setPlainText(TagesplanNotizLesen(ort()));
}

TagesplanOrt frmWP_Notizen::ort() const {
    return {cmbUE->currentText(), cmbTag->currentText()};
}

QString frmWP_Notizen::fehlendes() const {
    if (txtSchüler->text().isEmpty())
        return u"Kein Schüler/Schülerin ausgewählt!"_s;
    if (cmbUE->currentText().isEmpty())
        return u"Keine Unterrichtseinheit ausgewählt!"_s;
    return cmbTag->currentText().isEmpty() ? u"Kein Tag ausgewählt!"_s : QString();
}

void frmWP_Notizen::ok() {
    if (const QString meldung = fehlendes(); !meldung.isEmpty()) {
        MsgBox(meldung);
        return;
    }
    for (const QString& meldung : schreiben())
        MsgBox(meldung);
}

QStringList frmWP_Notizen::schreiben() {
    const TagesplanNotiz notiz{ort(), txtNotiz->toPlainText()};
    const DbSession session(u"Tagesplan-Notiz speichern"_s);
    if (Tag == u"Korrektur"_s)
        return {NotizKorrigieren(notiz) ? u"Korrektur durchgeführt!"_s
                                        : u"Kein Datensatz zur Korrektur vorhanden!"_s};
    if (Tag == u"Löschen"_s) {
        NotizLoeschen(notiz.ort);
        txtNotiz->clear();
        return {u"Notiz erfolgreich gelöscht!"_s};
    }
    QStringList meldungen;
    if (!NotizEinfuegen(notiz))
        meldungen
            << u"Notiz bereits vorhanden! Wollen Sie diese korrigieren, wählen sie den Menüpunkt KORREKTUR."_s;
    // Said after a refusal too, as the office has always known it.
    return meldungen << u"Die Daten wurden gespeichert!"_s;
}

} // namespace kolibri
