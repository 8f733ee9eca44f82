#include "lists/pupil_list_gather.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "lists/list_helpers.h"
#include "lists/list_state.h"
#include "lists/pupil_list_rows.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Three contact persons and the emergency number.
constexpr int kRowsPerPupil = 4;

/// Which pupils a list is about.
struct PupilChoice {
    QString condition;
    QVariantList values;
};

const QString kByClassAndName = u"Klasse, SCH_Name, SCH_Vorname"_s;

/// The chosen sort keys as a list of columns; a second level without a key keeps the first.
QString sortOrder() {
    QStringList keys{Sortierfeld(0)};
    if (Liste().Dialog.optEbene == 2)
        keys << Sortierfeld(1);
    keys.removeAll(QString());
    return keys.join(u", "_s);
}

PupilChoice filteredPupils(const DialogOptions& options) {
    const QString text = options.cmbFiltern.at(static_cast<std::size_t>(options.optFiltern));
    if (text == kAllesAuswaehlen)
        return {u"aktiv = true AND Schulstufe > 0 AND NichtOG = false"_s, {}};
    // By grade or class letter the office also finds its school starters, by class it does not.
    switch (options.optFiltern) {
    case PupilFilter::Klasse:
        return {u"aktiv = true AND Schulstufe > 0 AND Klasse = ? AND NichtOG = false"_s, {text}};
    case PupilFilter::Schulstufe:
        return {u"aktiv = true AND Schulstufe = ? AND NichtOG = false"_s, {text}};
    case PupilFilter::KlassenNr:
        return {u"aktiv = true AND Kl_Nr = ? AND NichtOG = false"_s, {text}};
    }
    Q_UNREACHABLE();
}

void gather(const PupilChoice& choice, const QString& order) {
    auto& liste = Liste();
    const DbSession session(u"Schülerliste lesen"_s);
    const int rows = kRowsPerPupil * pupilCount();
    liste.dimensionieren(liste.SpaltenAnzahl, rows, rows);
    liste.ZeilenNr = 1;
    PupilRows pupilRows(liste);
    QString select = u"SELECT "_s + pupilRows.fields() + u" FROM Stammdaten WHERE "_s + choice.condition;
    if (!order.isEmpty())
        select += u" ORDER BY "_s + order;
    for (Recordset rs = Global().Conn.Open(select, choice.values); !rs.Eof(); rs.MoveNext())
        pupilRows.fill(rs);
    liste.ZeilenAnzahl = liste.ZeilenNr - 1;
}

} // namespace

void Namensliste_Sammeln() {
    gather(filteredPupils(Liste().Dialog), sortOrder());
}

void Schulanfaenger_Sammeln() {
    QString condition = u"aktiv = true AND Schulstufe = 0"_s;
    // Sorted by two levels the list leaves out those who take no part in the care, and only then: the office
    // prints the one form for the school, which takes in all of them, and the other for the care.
    if (Liste().Dialog.optEbene == 2)
        condition += u" AND NichtOG = false"_s;
    gather({condition, {}}, sortOrder());
}

void NeueSchueler_Sammeln() {
    gather({u"Neu = true AND Schulstufe > 0"_s, {}}, kByClassAndName);
}

void NichtOgSchueler_Sammeln() {
    gather({u"NichtOG = true AND Schulstufe > 0"_s, {}}, kByClassAndName);
}

} // namespace kolibri
