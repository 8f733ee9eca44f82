#include "students/form_settings.h"

#include "core/mdlGlobal.h"

using namespace Qt::StringLiterals;

namespace kolibri {

BeitragEinstellungen BeitragEinstellungenLesen() {
    BeitragEinstellungen einstellungen;
    Recordset rs = Global().Conn.Open(u"SELECT Feld, BeitragAktiv, BeitragBezeichnung FROM Einstellungen"_s);
    for (; !rs.Eof(); rs.MoveNext())
        for (std::size_t i = 0; i < einstellungen.size(); ++i)
            if (rs.Text(u"Feld").compare(u"Beitrag_%1"_s.arg(i), Qt::CaseInsensitive) == 0)
                einstellungen[i] = {rs.Number(u"BeitragAktiv") == 1, rs.Text(u"BeitragBezeichnung")};
    return einstellungen;
}

void ZeitpruefungSchalten(bool an) {
    Global().Conn.Change(u"Einstellungen"_s, {{u"Grösse"_s, an ? 1 : 0}}, u"Feld = ?"_s,
                         {u"Ü-Zeitüberschneidung"_s});
    Global().UeberschneidungPruefen = an;
}

} // namespace kolibri
