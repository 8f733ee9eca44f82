#include "core/frmEinstellungen_felder.h"

#include "core/mdlGlobal.h"
#include "core/widgets/entry_box.h"
#include "core/widgets/form_layout.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kLabelCharacters = 16;

/// A box in which one of its entries is chosen, or none.
QComboBox* choice(const QString& name, std::size_t index, const QStringList& entries) {
    auto* box = new QComboBox;
    box->setObjectName(indexedName(name, static_cast<int>(index)));
    box->addItems(entries);
    box->setCurrentIndex(-1);
    return box;
}

QCheckBox* check(const QString& name, const QString& caption, const QString& accessibleName = {}) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    return box;
}

EntryBox* labelBox(const QString& name, std::size_t index, const QString& accessibleName) {
    auto* box = new EntryBox(indexedName(name, static_cast<int>(index)));
    box->setWantedCharacters(kLabelCharacters);
    box->setAccessibleName(accessibleName);
    return box;
}

QStringList fontSizes() {
    QStringList sizes;
    for (int points = kSmallestFont; points <= kLargestFont; ++points)
        sizes << QString::number(points);
    return sizes;
}

void choose(QComboBox& box, const QString& entry) {
    box.setCurrentIndex(box.findText(entry, Qt::MatchFixedString | Qt::MatchCaseSensitive));
}

template <class Array, class Make> void fill(Array& controls, Make make) {
    for (std::size_t i = 0; i < controls.size(); ++i)
        controls[i] = make(i);
}

/// A frame of as many lines as there are contact fields. Two of them side by side have their lines in line,
/// whatever stands in them.
template <class Controls> QWidget* kontaktRahmen(const QString& caption, const Controls& controls, int line) {
    auto* frame = new QGroupBox(caption);
    auto* grid = new QGridLayout(frame);
    for (int i = 0; i < kContactFields; ++i) {
        grid->addWidget(controls[static_cast<std::size_t>(i)], i, 0);
        grid->setRowMinimumHeight(i, line);
    }
    grid->setRowStretch(kContactFields, 1);
    return frame;
}

} // namespace

EinstellungenFelder::EinstellungenFelder()
    : chkSchwimmer(check(u"chkSchwimmer"_s, u"&Schwimmer"_s)),
      chkBaustein(check(u"chkBaustein"_s, u"&Baustein"_s)),
      chkKennung(check(u"chkKennung"_s, u"&Kennung"_s)),
      chkApostroph(check(u"chkApostroph"_s, u"&Apostroph in Texten zulassen"_s)) {
    const auto numbered = [](const QString& words, std::size_t i) { return words.arg(i + 1); };
    fill(cmbSchrift, [](std::size_t i) { return choice(u"cmbSchrift"_s, i, fontSizes()); });
    fill(cmbName, [](std::size_t i) { return choice(u"cmbName"_s, i, NameKurzListe()); });
    fill(cmbNameZuerst, [](std::size_t i) { return choice(u"cmbNameZuerst"_s, i, NameZuerstListe()); });
    fill(txtBeitrag, [&](std::size_t i) {
        return labelBox(u"txtBeitrag"_s, i, numbered(u"Bezeichnung des Beitrags %1"_s, i));
    });
    fill(chkBeitrag, [&](std::size_t i) {
        return check(indexedName(u"chkBeitrag"_s, static_cast<int>(i)), {},
                     numbered(u"Beitrag %1 aktiv"_s, i));
    });
    fill(txtKontakt, [&](std::size_t i) {
        return labelBox(u"txtKontakt"_s, i, numbered(u"Bezeichnung des Kontaktfelds %1"_s, i));
    });
    fill(cmbKategorie, [&](std::size_t i) {
        QComboBox* box = choice(u"cmbKategorie"_s, i, {});
        box->setAccessibleName(numbered(u"Kategorie des Kontaktfelds %1"_s, i));
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(kLabelCharacters);
        return box;
    });
    keepInMemory();
}

void EinstellungenFelder::keepInMemory() {
    // The other forms and the lists follow these controls at once, saved or not: they are the switches.
    for (const auto& [box, state] : {std::pair(chkSchwimmer, &mdlGlobal::ZusatzSchwimmer),
                                     std::pair(chkBaustein, &mdlGlobal::ZusatzBaustein),
                                     std::pair(chkKennung, &mdlGlobal::ZusatzKennung)})
        QObject::connect(box, &QCheckBox::toggled, box, [state](bool on) { Global().*state = on; });
    for (std::size_t i = 0; i < txtKontakt.size(); ++i)
        QObject::connect(txtKontakt[i], &EntryBox::textChanged, txtKontakt[i],
                         [i](const QString& text) { Global().KontaktBezeichnung[i] = text; });
}

void EinstellungenFelder::schriftZeile(QGridLayout& grid, std::size_t i, const QString& label,
                                       const QString& frame) {
    const int line = grid.rowCount();
    const int index = static_cast<int>(i);
    const QString words = frame + u' ' + label;
    auto* caption = new QLabel(label);
    caption->setBuddy(cmbSchrift[i]);
    cmbSchrift[i]->setAccessibleName(words + u" Schriftgröße"_s);
    chkFett[i] = check(indexedName(u"chkFett"_s, index), u"Fett"_s, words + u" fett"_s);
    chkKursiv[i] = check(indexedName(u"chkKursiv"_s, index), u"Kursiv"_s, words + u" kursiv"_s);
    grid.addWidget(caption, line, 0);
    grid.addWidget(cmbSchrift[i], line, 1);
    grid.addWidget(chkFett[i], line, 2);
    grid.addWidget(chkKursiv[i], line, 3);
}

QWidget* EinstellungenFelder::rahmenSchrift(const QString& caption, std::size_t first,
                                            const QStringList& labels) {
    auto* frame = new QGroupBox(caption);
    auto* grid = new QGridLayout(frame);
    grid->setColumnStretch(0, 1);
    for (const auto& label : labels)
        schriftZeile(*grid, first++, label, caption);
    return frame;
}

QWidget* EinstellungenFelder::rahmenListen() {
    return rahmenSchrift(u"FORMAT LISTEN/BERICHTE"_s, 0,
                         {u"&Kopfzeile:"_s, u"&Zeilen:"_s, u"&Summenzeile:"_s});
}

QWidget* EinstellungenFelder::rahmenTagesplan() {
    constexpr std::size_t kFirst = 3;
    return rahmenSchrift(u"FORMAT TAGESPLAN"_s, kFirst, {u"Kopfzeile:"_s, u"Zeilen:"_s});
}

QWidget* EinstellungenFelder::rahmenNamen() {
    const QString title = u"FORMAT VORNAME/NACHNAME"_s;
    auto* frame = new QGroupBox(title);
    auto* grid = new QGridLayout(frame);
    const std::array<QString, kNameFormats> labels{u"Liste ME/LZ:"_s, u"Liste AG:"_s, u"Liste Tagesplan:"_s};
    for (std::size_t i = 0; i < labels.size(); ++i) {
        const int line = static_cast<int>(i);
        auto* caption = new QLabel(labels[i]);
        caption->setBuddy(cmbName[i]);
        cmbName[i]->setAccessibleName(title + u' ' + labels[i] + u" Kürzung"_s);
        cmbNameZuerst[i]->setAccessibleName(title + u' ' + labels[i] + u" Reihenfolge"_s);
        grid->addWidget(caption, line, 0);
        grid->addWidget(cmbName[i], line, 1);
        grid->addWidget(cmbNameZuerst[i], line, 2);
    }
    return frame;
}

QWidget* EinstellungenFelder::rahmenBeiträge() {
    auto* frame = new QGroupBox(u"BEITRÄGE"_s);
    auto* grid = new QGridLayout(frame);
    grid->addWidget(new QLabel(u"BEZEICHNUNG"_s), 0, 0);
    grid->addWidget(new QLabel(u"AKTIV"_s), 0, 1);
    for (std::size_t i = 0; i < txtBeitrag.size(); ++i) {
        const int line = static_cast<int>(i) + 1;
        grid->addWidget(txtBeitrag[i], line, 0);
        grid->addWidget(chkBeitrag[i], line, 1, Qt::AlignHCenter);
    }
    return frame;
}

QWidget* EinstellungenFelder::rahmenZusatz() {
    auto* frame = new QGroupBox(u"SCHÜLER ZUSATZ"_s);
    auto* line = new QHBoxLayout(frame);
    for (auto* box : {chkSchwimmer, chkBaustein, chkKennung})
        line->addWidget(box);
    line->addStretch();
    return frame;
}

QWidget* EinstellungenFelder::rahmenKontakte() {
    return kontaktRahmen(u"KONTAKT BEZEICHNUNG"_s, txtKontakt, cmbKategorie.front()->sizeHint().height());
}

QWidget* EinstellungenFelder::rahmenKategorie() {
    return kontaktRahmen(u"KATEGORIE"_s, cmbKategorie, cmbKategorie.front()->sizeHint().height());
}

QWidget* EinstellungenFelder::rahmenApostroph() {
    auto* frame = new QGroupBox(u"APOSTROPH"_s);
    (new QHBoxLayout(frame))->addWidget(chkApostroph);
    chkApostroph->setToolTip(u"Namen wie O'Neill können dann überall gespeichert werden."_s);
    return frame;
}

void EinstellungenFelder::setTabOrder() {
    QWidget* before = txtKontakt.front();
    for (std::size_t i = 0; i < txtKontakt.size(); ++i) {
        if (i > 0)
            QWidget::setTabOrder(before, txtKontakt[i]);
        QWidget::setTabOrder(txtKontakt[i], cmbKategorie[i]);
        before = cmbKategorie[i];
    }
}

void EinstellungenFelder::setKategorien(const QStringList& names, const OfficeSettings& settings) {
    for (std::size_t i = 0; i < cmbKategorie.size(); ++i) {
        cmbKategorie[i]->clear();
        cmbKategorie[i]->addItems(names);
        choose(*cmbKategorie[i], settings.Kontakte[i].Kategorie);
    }
}

void EinstellungenFelder::show(const OfficeSettings& settings) {
    for (std::size_t i = 0; i < cmbSchrift.size(); ++i) {
        choose(*cmbSchrift[i], settings.Schriften[i].Grösse);
        chkFett[i]->setChecked(settings.Schriften[i].Fett);
        chkKursiv[i]->setChecked(settings.Schriften[i].Kursiv);
    }
    for (std::size_t i = 0; i < cmbName.size(); ++i) {
        choose(*cmbName[i], settings.Namen[i].NameKurz);
        choose(*cmbNameZuerst[i], settings.Namen[i].NameZuerst);
    }
    for (std::size_t i = 0; i < txtBeitrag.size(); ++i) {
        txtBeitrag[i]->setText(settings.Beiträge[i].Bezeichnung);
        chkBeitrag[i]->setChecked(settings.Beiträge[i].Aktiv);
    }
    chkSchwimmer->setChecked(settings.Schwimmer);
    chkBaustein->setChecked(settings.Baustein);
    chkKennung->setChecked(settings.Kennung);
    for (std::size_t i = 0; i < txtKontakt.size(); ++i)
        txtKontakt[i]->setText(settings.Kontakte[i].Bezeichnung);
    chkApostroph->setChecked(settings.Apostroph);
}

OfficeSettings EinstellungenFelder::collect() const {
    OfficeSettings settings;
    for (std::size_t i = 0; i < cmbSchrift.size(); ++i)
        settings.Schriften[i] = {cmbSchrift[i]->currentText(), chkFett[i]->isChecked(),
                                 chkKursiv[i]->isChecked()};
    for (std::size_t i = 0; i < cmbName.size(); ++i)
        settings.Namen[i] = {cmbName[i]->currentText(), cmbNameZuerst[i]->currentText()};
    for (std::size_t i = 0; i < txtBeitrag.size(); ++i)
        settings.Beiträge[i] = {txtBeitrag[i]->text(), chkBeitrag[i]->isChecked()};
    settings.Schwimmer = chkSchwimmer->isChecked();
    settings.Baustein = chkBaustein->isChecked();
    settings.Kennung = chkKennung->isChecked();
    for (std::size_t i = 0; i < txtKontakt.size(); ++i)
        settings.Kontakte[i] = {txtKontakt[i]->text(), cmbKategorie[i]->currentText()};
    settings.Apostroph = chkApostroph->isChecked();
    return settings;
}

} // namespace kolibri
