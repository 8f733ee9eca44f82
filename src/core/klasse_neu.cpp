#include "core/klasse_neu.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"

using namespace Qt::StringLiterals;

namespace kolibri {

KlassenTeile KlasseTeilen(const QString& klasse) {
    constexpr int kShortest = 2, kLongest = 3;
    if (klasse.size() < kShortest || klasse.size() > kLongest)
        return {};
    return {klasse.chopped(1), klasse.last(1)};
}

KlasseErgebnis KlasseAnlegen(const QString& klasse) {
    if (klasse.isEmpty())
        return KlasseErgebnis::Leer;
    auto& conn = Global().Conn;
    Transaction transaction(conn);
    if (conn.Open(u"SELECT Klasse FROM Klassen WHERE Klasse = ?"_s, {klasse}).RecordCount() > 0) {
        transaction.Commit();
        return KlasseErgebnis::Vorhanden;
    }
    const KlassenTeile teile = KlasseTeilen(klasse);
    for (int tag = 0; tag < kSchoolDays; ++tag)
        conn.AddNew(u"Klassen"_s)
            .Set(u"Klasse"_s, klasse)
            .Set(u"Tag"_s, TagCode(tag))
            .Set(u"Tag_Zahl"_s, tag)
            .Set(u"Schulstufe"_s, teile.Schulstufe)
            .Set(u"KlassenNR"_s, teile.KlassenNR)
            .Update();
    transaction.Commit();
    return KlasseErgebnis::Erstellt;
}

void KlasseMelden(KlasseErgebnis ergebnis, const QString& klasse) {
    switch (ergebnis) {
    case KlasseErgebnis::Leer:
        MsgBox(u"Das Feld 'Klasse' darf nicht leer sein."_s);
        break;
    case KlasseErgebnis::Vorhanden:
        MsgBox(u"Klasse "_s + klasse + u" ist bereits vorhanden!"_s);
        break;
    case KlasseErgebnis::Erstellt:
        MsgBox(u"Die Klasse "_s + klasse + u" wurde erstellt!"_s);
        break;
    }
    KlassenListenLaden();
}

void Klasse_Neu(QString& klasse) {
    KlasseMelden(KlasseAnlegen(klasse), klasse);
    klasse.clear();
}

} // namespace kolibri
