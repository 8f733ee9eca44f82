#include "core/frmEinstellungen.h"

#include "core/contact_categories.h"
#include "core/frmEinstellungen_kategorien.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/settings_file.h"
#include "core/widgets/entry_box.h"
#include "core/widgets/form_layout.h"

#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// True if both are there and one: a folder can be written in several ways.
bool isSameFile(const QString& one, const QString& other) {
    const QString place = QFileInfo(one).canonicalFilePath();
    return !place.isEmpty() && place == QFileInfo(other).canonicalFilePath();
}

/// Not in use any more; what it once switched stands on the pupil form.
QWidget* rahmenÜberschneidung() {
    auto* frame = new QGroupBox(u"ZEITÜBERSCHNEIDUNG"_s);
    auto* box = new QCheckBox(u"Überprüfen"_s);
    box->setObjectName(u"chkZÜ_ALT"_s);
    box->setEnabled(false);
    auto* line = new QHBoxLayout(frame);
    line->addWidget(box);
    line->addWidget(new QLabel(u"(Schalter im Fenster SchülerIn)"_s));
    line->addStretch();
    return frame;
}

} // namespace

frmEinstellungen::frmEinstellungen()
    : FormWindow(u"frmEinstellungen"_s),
      m_kategorien(new KategorienRahmen([this] { setKategorien(EinstellungenLesen(Global().Conn)); })),
      txtDatenbankpfad(new EntryBox(u"txtDatenbankpfad"_s)) {
    setWindowTitle(u"Einstellungen"_s);
    auto* column = new QVBoxLayout(this);
    column->addWidget(fieldArea(buildGroups()), 1);
    QPushButton* ok = formButton(u"cmdOK"_s, u"O K"_s);
    ok->setDefault(true);
    addButtonLine(*column, {ok, leaveButton(*this, u"cmdAbbrechen"_s, u"BEENDEN"_s)});
    connect(ok, &QPushButton::clicked, this, [this] { this->ok(); });
    m_felder.setTabOrder();
    resize(sizeHint().boundedTo(screen()->availableSize()));
    load();
}

QWidget* frmEinstellungen::buildGroups() {
    auto* formats =
        fieldColumn({m_felder.rahmenListen(), m_felder.rahmenTagesplan(), m_felder.rahmenNamen(),
                     m_felder.rahmenZusatz(), rahmenÜberschneidung(), m_felder.rahmenApostroph()});
    auto* fees = new QWidget;
    auto* feeColumn = new QVBoxLayout(fees);
    feeColumn->setContentsMargins({});
    feeColumn->addWidget(m_felder.rahmenBeiträge());
    feeColumn->addWidget(m_kategorien, 1);
    auto* groups = new QWidget;
    auto* all = new QVBoxLayout(groups);
    all->setContentsMargins({});
    auto* columns = new QHBoxLayout;
    columns->addWidget(formats, 1);
    columns->addWidget(fees, 1);
    columns->addWidget(m_felder.rahmenKontakte(), 1);
    columns->addWidget(m_felder.rahmenKategorie(), 1);
    all->addLayout(columns, 1);
    all->addWidget(rahmenDatenbank());
    return groups;
}

QWidget* frmEinstellungen::rahmenDatenbank() {
    auto* frame = new QGroupBox(u"DATENBANK"_s);
    auto* caption = new QLabel(u"&Pfad der Datenbank KOLIBRI_Daten.mdb"_s);
    caption->setBuddy(txtDatenbankpfad);
    txtDatenbankpfad->setAccessibleName(u"Pfad der Datenbank KOLIBRI_Daten.mdb"_s);
    auto* folder = new QToolButton;
    folder->setObjectName(u"imgDatenbankpfad"_s);
    folder->setIcon(style()->standardIcon(QStyle::SP_DirOpenIcon));
    folder->setToolTip(u"Ordner wählen"_s);
    folder->setAccessibleName(u"Ordner der Datenbank wählen"_s);
    folder->setFocusPolicy(Qt::StrongFocus);
    connect(folder, &QToolButton::clicked, this, [this] { ordnerWählen(); });
    auto* line = new QHBoxLayout(frame);
    line->addWidget(caption);
    line->addWidget(txtDatenbankpfad, 1);
    line->addWidget(folder);
    return frame;
}

void frmEinstellungen::Prepare() {
    // The main window can have made a database elsewhere meanwhile.
    if (m_pfad == Global().DB_Pfad)
        return;
    m_pfad = Global().DB_Pfad;
    txtDatenbankpfad->setText(m_pfad);
}

void frmEinstellungen::load() {
    const auto& global = Global();
    m_pfad = global.DB_Pfad;
    txtDatenbankpfad->setText(m_pfad);
    const QString file = DatenbankDatei(global.DB_Pfad);
    // A start that ended without a database stays without one, also where a file lies there that it could
    // not use.
    if (global.StartLaeuft || !DateiVorhanden(file))
        return;
    const DbSession session(u"Einstellungen lesen"_s);
    const OfficeSettings settings = EinstellungenLesen(Global().Conn);
    m_felder.show(settings);
    m_kategorien->anzeigen();
    setKategorien(settings);
    m_datei = file;
}

void frmEinstellungen::setKategorien(const OfficeSettings& settings) {
    m_felder.setKategorien(Kategorien_DatenEinlesen().mid(0, kMostCategories), settings);
}

void frmEinstellungen::ordnerWählen() {
    const QString folder =
        doors().files->chooseFolder(u"Bitte wählen Sie einen Ordner aus..."_s, txtDatenbankpfad->text());
    if (!folder.isEmpty())
        txtDatenbankpfad->setText(QDir::toNativeSeparators(folder));
}

void frmEinstellungen::ok() {
    auto& global = Global();
    const OfficeSettings settings = m_felder.collect();
    // Into the database that they were read from: another one has settings of its own, which would be lost.
    if (isSameFile(m_datei, DatenbankDatei(global.DB_Pfad))) {
        const DbSession session(u"Einstellungen speichern"_s);
        EinstellungenSchreiben(global.Conn, settings);
    }
    for (std::size_t i = 0; i < settings.Namen.size(); ++i) {
        global.NameKurz[i] = settings.Namen[i].NameKurz;
        global.NameZuerst[i] = settings.Namen[i].NameZuerst;
    }
    writeDatabaseFolder(settingsFile(), txtDatenbankpfad->text());
    global.DB_Pfad = m_pfad = txtDatenbankpfad->text();
    MsgBox(u"Zur Übernahme der Daten bitte das Programm neu starten!"_s);
    hide();
}

} // namespace kolibri
