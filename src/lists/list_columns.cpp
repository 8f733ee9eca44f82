#include "lists/list_columns.h"

#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "lists/column_builder.h"
#include "lists/dayplan/day_plan.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/page_geometry.h"
#include "lists/program_picture.h"
#include "lists/pupil_list_columns.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr bool kOnlyWithFriday = true;

/// A column that a list always has, or has if anybody is there on Fridays.
struct FixedColumn {
    QString text;
    qint16 weight;
    Ausrichtung alignment;
    /// What the column is, where that is not its text.
    QString key = {};
    bool onlyWithFriday = false;
};
using FixedColumns = std::vector<FixedColumn>;

/// Lists with the same columns.
struct ColumnSet {
    std::vector<quint8> lists;
    FixedColumns columns;
    /// Builds the columns instead, where they depend on more than that.
    void (*build)(ColumnBuilder&) = nullptr;
};

/// The same columns once more under each of these texts.
FixedColumns each(const QStringList& texts, qint16 weight) {
    FixedColumns columns;
    for (const auto& text : texts)
        columns.push_back({text, weight, kMitte});
    return columns;
}

FixedColumns joined(std::initializer_list<FixedColumns> parts) {
    FixedColumns columns;
    for (const auto& part : parts)
        columns.insert(columns.end(), part.begin(), part.end());
    return columns;
}

/// A column for the names and one for the notes of each day. The folder of the picture is known only when
/// the program runs.
void buildNamePairs(ColumnBuilder& builder) {
    const int days = Liste().FreitagBelegt ? 5 : 4;
    const QString picture = uR"(<img src="%1">)"_s.arg(programPicture(u"Notiz20.jpg"_s));
    for (int day = 0; day < days; ++day) {
        builder.add(u"NAME"_s, 10, kLinks);
        builder.add(picture, 7, kLinks, u"NOTIZ"_s);
    }
}

FixedColumns attendance() {
    FixedColumns columns{{u"NAME"_s, 10, kLinks}, {u"KLASSE"_s, 5, kLinks}};
    constexpr int kMeetings = 6;
    for (int i = 0; i < kMeetings; ++i)
        columns.push_back({u"AN"_s, 2, kLinks, u"ANWESENHEIT"_s});
    return columns;
}

/// Places of an offering by class letter.
FixedColumns occupancy(const QString& offering) {
    return joined({{{offering, 20, kMitte}, {u"ZEIT"_s, 20, kMitte, u"A"_s}},
                   each({u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"GES"_s}, 10)});
}

std::vector<ColumnSet> makeColumnSets() {
    const QStringList toThursday{u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s};
    const QStringList week = toThursday + QStringList{u"FR"_s};
    const QStringList groups{u"ME"_s, u"LZ"_s, u"AG1"_s, u"AG2"_s, u"AG3"_s, u"AG4"_s, u"AG5"_s};
    return {
        {{kUnterrichtszeiten}, joined({{{u"KLASSE"_s, 15, kMitte}}, each(week, 10)})},
        {{kListeMensa, kListeLernzeit}, {}, buildNamePairs},
        {{kListeArbeitsgruppe}, attendance()},
        {{kZeitueberschneidungen},
         joined({{{u"NAME"_s, 9, kLinks},
                  {u"KL"_s, 3, kMitte},
                  {u"TAG"_s, 3, kMitte},
                  {u"U-ENDE"_s, 9, kMitte, u"U"_s}},
                 each(groups, 9)})},
        {{kTagesplan}, {}, buildDayPlanColumns},
        // The Lernzeit reports have the Mensa's word, too: their writers put their own over the column.
        {{kMensaGesamt, kMensaJeKlasse, kLernzeitGesamt, kLernzeitJeKlasse},
         joined({{{u"MENSA-ZEIT"_s, 30, kMitte}},
                 each(toThursday, 10),
                 {{u"FR"_s, 10, kMitte, {}, kOnlyWithFriday}}})},
        {{kMensaBelegung}, occupancy(u"MENSA"_s)},
        {{kLernzeitBelegung}, occupancy(u"LERNZEIT"_s)},
        {{kMensaJeSchueler},
         joined({{{u"NAME"_s, 18, kLinks}},
                 each(toThursday, 12),
                 {{u"FR"_s, 12, kMitte, {}, kOnlyWithFriday}}})},
        {{kMensaWoche},
         joined({{{u"NAME"_s, 22, kLinks}, {u"KLASSE"_s, 7, kLinks}, {u"NOTIZ"_s, 14, kLinks}},
                 each(week, 10)})},
        {{kMensaTag},
         {{u"NAME"_s, 20, kLinks}, {u"KL"_s, 7, kLinks}, {u"NOTIZ"_s, 25, kLinks}, {u"MENSA"_s, 20, kMitte}}},
        {{kArbeitsgruppenGesamt},
         {{u"ARBEITSGRUPPE"_s, 20, kLinks},
          {u"TAG"_s, 10, kMitte},
          {u"ZEIT"_s, 10, kMitte},
          {u"SUMME"_s, 10, kMitte}}},
        {{kNotizenZuweisungen},
         {{u"NAME"_s, 15, kLinks},
          {u"KLASSE"_s, 3, kMitte},
          {u"TAG"_s, 3, kMitte},
          {u"L_NAME"_s, 13, kMitte},
          {u"ZEIT"_s, 13, kMitte},
          {u"NOTIZ"_s, 20, kLinks}}},
        {{kNotizenTagesplan},
         {{u"NAME"_s, 15, kLinks},
          {u"KLASSE"_s, 5, kMitte},
          {u"TAG"_s, 5, kMitte},
          {u"UE"_s, 10, kMitte},
          {u"NOTIZ"_s, 25, kLinks}}},
        {{kStammdatenBlatt}, {{u"ART"_s, 15, kLinks}, {u"BEZEICHNUNG"_s, 45, kLinks}}},
        {{kBausteine}, {{u"NR"_s, 8, kMitte}, {u"BAUSTEIN"_s, 45, kLinks}}},
        {{kSchulanfaenger, kNamensliste, kNeueSchueler, kNichtOgSchueler, kErweiterteListe},
         {},
         buildPupilColumns},
    };
}

const ColumnSet* columnSet(quint8 listenArt) {
    static const std::vector<ColumnSet> sets = makeColumnSets();
    for (const auto& set : sets)
        if (std::find(set.lists.begin(), set.lists.end(), listenArt) != set.lists.end())
            return &set;
    return nullptr;
}

bool countsInWidth(const ListState& liste, int column) {
    const QString& key = liste.SpaltenKey(column);
    return !liste.OhneOrt || (key != u"ORT" && key != u"Mannschaft");
}

QStringView alignmentWord(quint8 alignment) {
    switch (alignment) {
    case kLinks:
        return u"left";
    case kRechts:
        return u"right";
    case kMitte:
        return u"center";
    default:
        return {};
    }
}

} // namespace

void defineColumns() {
    auto& liste = Liste();
    ColumnBuilder builder(liste);
    if (const ColumnSet* set = columnSet(Global().ListenArt)) {
        for (const auto& column : set->columns)
            if (!column.onlyWithFriday || liste.FreitagBelegt)
                builder.add(column.text, column.weight, column.alignment, column.key);
        if (set->build)
            set->build(builder);
    }
    liste.SpaltenAnzahl = builder.count();
}

void computeWidths() {
    auto& liste = Liste();
    int weights = 0;
    for (int i = 1; i <= liste.SpaltenAnzahl; ++i)
        if (countsInWidth(liste, i))
            weights += liste.SpaltenGewicht(i);
    if (weights == 0)
        throw RuntimeError(11, u"Division durch Null"_s, u"Spaltenbreiten"_s);
    const int faktor = wholeNumber(static_cast<double>(liste.Seite.TabellenBreite) / weights);
    for (int i = 1; i <= liste.SpaltenAnzahl; ++i) {
        liste.SpaltenBreitePt(i) = static_cast<qint16>(wholeNumber(liste.SpaltenGewicht(i) * faktor));
        const QStringView word = alignmentWord(liste.SpaltenAusrichtung(i));
        if (!word.isEmpty())
            liste.SpaltenAlign(i) = word.toString();
    }
}

} // namespace kolibri
