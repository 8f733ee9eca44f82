#include "lists/pupil_list_columns.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "lists/column_builder.h"
#include "lists/list_helpers.h"
#include "lists/list_numbers.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

void addNames(ColumnBuilder& builder, quint8 listenArt, const DialogOptions& options) {
    const bool extended = listenArt == kErweiterteListe;
    if (extended || (listenArt == kNamensliste && !options.chkKontakteNeu))
        builder.add(u"NR"_s, 5, kRechts);
    if (extended) {
        builder.add(u"NACHNAME"_s, 15, kLinks);
        builder.add(u"VORNAME"_s, 10, kLinks);
    } else {
        builder.add(u"NAME"_s, 15, kLinks);
    }
}

void addContacts(ColumnBuilder& builder, ListState& liste) {
    const DbSession session(u"Kontaktfelder lesen"_s);
    for (const auto& category : liste.Dialog.cmbKontakte) {
        if (category.isEmpty())
            continue;
        Recordset rs =
            Global().Conn.Open(u"SELECT Feld, Bezeichnung, Nummer, KategorieKontakte FROM Einstellungen"
                               u" WHERE Feld = 'Kontakt' AND KategorieKontakte = ? ORDER BY Nummer ASC"_s,
                               {category});
        for (; !rs.Eof(); rs.MoveNext()) {
            const QString heading = rs.Text(u"Bezeichnung");
            // Taken for 0, it would put the names of the parents under any heading.
            if (rs.IsNull(u"Nummer"))
                settingMissing(u"die Nummer des Kontaktfeldes \"%1\""_s.arg(heading));
            builder.add(heading, 15, kLinks, u"Kontakt"_s);
            liste.KontaktNummern.push_back(static_cast<int>(rs.Number(u"Nummer")));
        }
    }
    liste.KontaktSpalten = static_cast<int>(liste.KontaktNummern.size());
}

void addFees(ColumnBuilder& builder, ListState& liste) {
    const DbSession session(u"Beiträge lesen"_s);
    for (int fee = 0; fee < kBeitraege; ++fee) {
        const QString key = u"Beitrag_%1"_s.arg(fee);
        const Recordset rs = Global().Conn.Open(u"SELECT * FROM Einstellungen WHERE Feld = ?"_s, {key});
        // A list of fees that leaves one out unasked would be taken for complete.
        if (rs.Eof())
            settingMissing(u"die Zeile \"%1\""_s.arg(key));
        if (!rs.Bool(u"BeitragAktiv"))
            continue;
        builder.add(rs.Text(u"BeitragBezeichnung"), 7, kRechts);
        liste.BeitragNummern.push_back(fee);
    }
}

} // namespace

void buildPupilColumns(ColumnBuilder& builder) {
    auto& liste = Liste();
    const auto& options = liste.Dialog;
    const quint8 listenArt = Global().ListenArt;

    addNames(builder, listenArt, options);
    if (options.chkGebDatum)
        builder.add(u"GEB. DAT."_s, 15, kRechts, u"GEB. DATUM"_s);
    if (options.chkKlasse || listenArt == kNeueSchueler || listenArt == kNichtOgSchueler)
        builder.add(u"KL"_s, 3, kMitte);
    if (options.chkKontakteNeu)
        addContacts(builder, liste);
    if (options.chkSchwimmer)
        builder.add(u"SCHWIMMER"_s, 8, kMitte);
    if (options.chkKennung)
        builder.add(u"KENNUNG"_s, 12, kMitte);
    if (options.chkBaustein)
        builder.add(u"BAUSTEIN"_s, 12, kMitte);
    if (options.chkBeiträge)
        addFees(builder, liste);
}

} // namespace kolibri
