#include "calendar/offering_texts.h"

#include "core/mdlGlobal.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

QStringList longNames(const QString& select) {
    QStringList names;
    for (Recordset rs = Global().Conn.Open(select); !rs.Eof(); rs.MoveNext())
        names << rs.Text(u"L_Name");
    return names;
}

ListTextRows rowsOf(const TextOffering& offering) {
    const QString typ = offeringTyp(offering.kind);
    if (offering.kind == OfferingKind::Arbeitsgruppe)
        return {u"Typ = ? AND L_Name = ?"_s, {typ, offering.L_Name}};
    return {u"Typ = ? AND Klasse = ? AND Zeit_K_Name = ?"_s, {typ, offering.Klasse, offering.Zeit_K_Name}};
}

FieldValues newRow(const TextOffering& offering) {
    FieldValues values{{u"Typ"_s, offeringTyp(offering.kind)},
                       {u"L_Name"_s, offering.L_Name},
                       {u"K_Name"_s, offering.K_Name},
                       {u"Zeit"_s, offering.Zeit},
                       {u"Zeit_K_Name"_s, offering.Zeit_K_Name}};
    if (offering.kind == OfferingKind::Arbeitsgruppe)
        values.insert(
            values.end(),
            {{u"Tag"_s, offering.Tag}, {u"Betreuer"_s, offering.Betreuer}, {u"Ort"_s, offering.Ort}});
    else
        values.push_back({u"Klasse"_s, offering.Klasse});
    return values;
}

} // namespace

QString offeringTyp(OfferingKind kind) {
    switch (kind) {
    case OfferingKind::Mensa:
        return u"Mensa"_s;
    case OfferingKind::Lernzeit:
        return u"Lernzeit"_s;
    case OfferingKind::Arbeitsgruppe:
        break;
    }
    return u"Arbeitsgruppe"_s;
}

const QStringList& Klassen_einlesen() {
    static const QStringList letters{u"A"_s, u"B"_s, u"C"_s, u"D"_s};
    return letters;
}

QStringList Zeiten_Einlesen(OfferingKind kind) {
    return longNames(u"SELECT DISTINCT Zeit, L_Name FROM %1 ORDER BY Zeit"_s.arg(listTableOf(kind)));
}

QStringList AGs_Einlesen() {
    return longNames(u"SELECT * FROM GR3 ORDER BY L_Name"_s);
}

TextOffering Angebot_Einlesen(OfferingKind kind, const QString& L_Name) {
    TextOffering offering;
    offering.kind = kind;
    offering.L_Name = L_Name;
    const Recordset rs = Global().Conn.Open(
        u"SELECT * FROM %1 WHERE L_Name = ? ORDER BY ID"_s.arg(listTableOf(kind)), {L_Name});
    if (rs.Eof())
        return offering;
    offering.K_Name = rs.Text(u"K_Name");
    offering.Zeit = rs.Text(u"Zeit");
    offering.Zeit_K_Name = rs.Text(u"Zeit_K_Name");
    if (kind == OfferingKind::Arbeitsgruppe) {
        offering.Tag = rs.Text(u"Tag");
        offering.Betreuer = rs.Text(u"Betreuer");
        offering.Ort = rs.Text(u"Ort");
    }
    return offering;
}

ListTexts Text_Einlesen(const TextOffering& offering) {
    return readListTexts(rowsOf(offering));
}

void Text_Speichern(const TextOffering& offering, const ListTexts& texts) {
    writeListTexts(rowsOf(offering), newRow(offering), texts);
}

} // namespace kolibri
