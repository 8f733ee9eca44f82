#include "lists/list_helpers.h"

#include "core/mdlAllgemein.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/page_writer.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Column of Stammdaten whose Fridays matter for the list; empty when none does.
QString fridayColumn(quint8 listenArt) {
    switch (listenArt) {
    case kListeMensa:
    case kMensaGesamt:
    case kMensaJeKlasse:
        return u"GR1_FR"_s;
    case kListeLernzeit:
    case kLernzeitGesamt:
    case kLernzeitJeKlasse:
        return u"GR2_FR"_s;
    default:
        return {};
    }
}

void readFriday(const QString& column) {
    // Length rather than comparison with '': every comparison of texts asks the German rules.
    const Recordset rs =
        Global().Conn.Open(u"SELECT ID FROM Stammdaten WHERE LENGTH(%1) > 0 LIMIT 1"_s.arg(column));
    Liste().FreitagBelegt = !rs.Eof();
}

} // namespace

QString shortenedName(const QString& name) {
    const qsizetype blank = name.indexOf(u' ');
    const QString first = name.left(1) + u'.';
    return blank < 0 ? first : first + u' ' + name.mid(blank + 1, 1) + u'.';
}

void Name_Formatieren(const QString& vorname, const QString& nachname, int spalte, NameFormat format) {
    const QString& shortening = Global().NameKurz.at(format);
    QString first = vorname;
    QString family = nachname;
    if (shortening == u"Vorname gekürzt")
        first = shortenedName(first);
    else if (shortening == u"Nachname gekürzt")
        family = shortenedName(family);
    else if (shortening != u"Ungekürzt")
        return;
    const bool firstNameFirst = Global().NameZuerst.at(format) == u"Vorname Nachname";
    auto& liste = Liste();
    liste.Daten(spalte, liste.ZeilenNr) = firstNameFirst ? first + u' ' + family : family + u' ' + first;
}

QStringList namesInCapitals(const QStringList& names) {
    QStringList capitals;
    for (const auto& name : names)
        capitals << inCapitals(name);
    capitals.removeDuplicates();
    return capitals;
}

void settingMissing(const QString& what) {
    throw StoreError(StoreError::Kind::Programming, u"In den Einstellungen fehlt %1."_s.arg(what),
                     u"Einstellungen"_s);
}

int pupilCount() {
    return static_cast<int>(Global().Conn.Open(u"SELECT COUNT(*) FROM Stammdaten"_s).Value(0).toLongLong());
}

void FreitagBelegt_Pruefen() {
    const quint8 listenArt = Global().ListenArt;
    const QString column = listenArt == kMensaJeSchueler ? u"GR1_FR"_s : fridayColumn(listenArt);
    if (column.isEmpty())
        return;
    const DbSession session(u"Freitag prüfen"_s);
    readFriday(column);
}

void FreitagBelegt_Pruefen_Offen() {
    if (const QString column = fridayColumn(Global().ListenArt); !column.isEmpty())
        readFriday(column);
}

} // namespace kolibri
