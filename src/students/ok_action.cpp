#include "students/ok_action.h"

#include "students/edit_guard.h"
#include "students/student_store.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kYesNoQuestion = 36;

/// True if the record is held elsewhere; the user is told so again.
bool isHeld(const std::optional<QString>& belegtVon) {
    if (belegtVon)
        MsgBox(BelegtMeldung(*belegtVon));
    return belegtVon.has_value();
}

bool create(const SchuelerModus& modus, const SchuelerDatensatz& datensatz) {
    const QString known =
        NamensMeldung(Namensgleichheit_Überprüfen(datensatz.SCH[kFeldName], datensatz.SCH[kFeldVorname]));
    if (!known.isEmpty()) {
        MsgBox(known);
        return false;
    }
    if (modus.istSchulanfaenger())
        SchulanfaengerNeuSchreiben(datensatz);
    else
        SchuelerNeuSchreiben(datensatz);
    return true;
}

bool correct(const SchuelerModus& modus, SchuelerDatensatz& datensatz) {
    if (modus.istSchulanfaenger())
        SchulanfaengerAendern(datensatz);
    else
        SchuelerAendern(datensatz);
    return true;
}

bool mayDelete(const SchuelerModus& modus, const SchuelerDatensatz& datensatz) {
    const bool starter = modus.istSchulanfaenger();
    if (datensatz.SCH[kFeldName].isEmpty() || datensatz.SCH[kFeldVorname].isEmpty()) {
        MsgBox(starter ? u"Kein Schulanfänger ausgewählt!"_s : u"Kein Schüler bzw. Schülerin ausgewählt!"_s);
        return false;
    }
    return true;
}

bool remove(const SchuelerModus& modus) {
    const bool starter = modus.istSchulanfaenger();
    if (MsgBox(u"Wollen Sie die Daten wirklich löschen?"_s, kYesNoQuestion,
               starter ? u"Schulanfänger löschen"_s : u"Schüler löschen"_s)
        == kAnswerNo)
        return false;
    if (starter) {
        SchulanfaengerLoeschen();
        return true;
    }
    Transaction transaction(Global().Conn);
    SchuelerDeaktivieren();
    SchuelerNotizenLoeschen();
    transaction.Commit();
    return true;
}

} // namespace

bool SchuelerAktionAusfuehren(const SchuelerModus& modus, SchuelerDatensatz& datensatz,
                              const std::optional<QString>& belegtVon) {
    switch (modus.aktion) {
    case SchuelerAktion::Neu:
        return create(modus, datensatz);
    case SchuelerAktion::Korrektur:
        return !isHeld(belegtVon) && correct(modus, datensatz);
    case SchuelerAktion::Loeschen:
        return mayDelete(modus, datensatz) && !isHeld(belegtVon) && remove(modus);
    case SchuelerAktion::Aktivieren:
        if (isHeld(belegtVon))
            return false;
        SchuelerAktivieren();
        return true;
    case SchuelerAktion::Keine:
        break;
    }
    return false;
}

} // namespace kolibri
