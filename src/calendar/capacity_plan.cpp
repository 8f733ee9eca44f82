#include "calendar/capacity_plan.h"

#include "core/mdlGlobal.h"
#include "core/runtime_error.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kTable = u"Parameter"_s;

/// Column of the places of a class letter, 0 for A.
QString placesField(int letter) {
    constexpr int kFieldOfA = 4;
    return u"Feld%1"_s.arg(kFieldOfA + letter);
}

/// A number in the bounds of its type, which the office's files have always kept.
template <typename T> T within(double number, const QString& details) {
    if (number < std::numeric_limits<T>::min() || number > std::numeric_limits<T>::max())
        throw RuntimeError::overflow(details);
    return static_cast<T>(number);
}

/// The number in a box, halves to the even one; no value for a text that is none.
std::optional<double> placesIn(const QString& box) {
    const auto number = germanNumber(box.trimmed());
    return number ? std::optional(std::nearbyint(*number)) : std::nullopt;
}

Recordset openPlaces(const QString& kName) {
    return Global().Conn.Open(u"SELECT * FROM Parameter WHERE Bezeichnung = ?"_s, {kName});
}

FieldValues lineValues(const CapacityLine& line) {
    FieldValues values{{u"Feld2"_s, line.Zeit}, {u"Feld3"_s, line.Zeit_K_Name}};
    for (int letter = 0; letter < kCapacityLetters; ++letter)
        values.push_back({placesField(letter), line.Plätze[static_cast<std::size_t>(letter)]});
    values.push_back({u"Feld8"_s, line.Gesamt});
    return values;
}

void addLine(const QString& kind, const CapacityLine& line, quint8 id) {
    NewRow row = Global().Conn.AddNew(kTable);
    row.Set(u"ID"_s, id).Set(u"Bezeichnung"_s, line.K_Name).Set(u"Feld1"_s, kind);
    for (const auto& [field, value] : lineValues(line))
        row.Set(field, value);
    row.Update();
}

} // namespace

std::vector<CapacityLine> Belegungsplan_lesen(OfferingKind kind) {
    std::vector<CapacityLine> lines;
    Recordset rs = Global().Conn.Open(
        u"SELECT DISTINCT K_Name, L_Name, Zeit, Zeit_K_Name FROM %1 ORDER BY L_Name ASC"_s.arg(
            listTableOf(kind)));
    for (; !rs.Eof(); rs.MoveNext()) {
        CapacityLine line{
            rs.Text(u"L_Name"), rs.Text(u"Zeit"), rs.Text(u"K_Name"), rs.Text(u"Zeit_K_Name"), {}, {}};
        if (const Recordset stored = openPlaces(line.K_Name); !stored.Eof()) {
            for (int letter = 0; letter < kCapacityLetters; ++letter)
                line.Plätze[static_cast<std::size_t>(letter)] = stored.Text(placesField(letter));
            line.Gesamt = stored.Text(u"Feld8");
        }
        lines.push_back(line);
    }
    return lines;
}

PlacesFaults Plätze_prüfen(const Places& plätze) {
    PlacesFaults faults{};
    for (std::size_t letter = 0; letter < plätze.size(); ++letter)
        faults[letter] = !plätze[letter].isEmpty() && !placesIn(plätze[letter]);
    return faults;
}

std::optional<int> Plätze_zählen(const Places& plätze) {
    if (Plätze_prüfen(plätze) != PlacesFaults{})
        return std::nullopt;
    qint16 sum = 0;
    for (const auto& box : plätze)
        if (!box.isEmpty())
            sum = within<qint16>(sum + within<qint16>(*placesIn(box), box), box);
    return sum;
}

QString Gesamt_anzeigen(const QString& gespeichert, const Places& plätze) {
    if (gespeichert.isEmpty())
        return {};
    const int sum = Plätze_zählen(plätze).value_or(0);
    return sum < 1 ? QString() : QString::number(sum);
}

void Belegungsplan_speichern(OfferingKind kind, const std::vector<CapacityLine>& lines) {
    auto& conn = Global().Conn;
    const QString word = kind == OfferingKind::Mensa ? u"ME"_s : u"LZ"_s;
    const auto key = [](qint64 id) { return within<quint8>(static_cast<double>(id), u"ID %1"_s.arg(id)); };
    Transaction transaction(conn);
    const QVariant largest = conn.Open(u"SELECT MAX(ID) FROM Parameter"_s).Value(0);
    quint8 next = key(largest.toLongLong() + 1);
    for (const auto& line : lines) {
        if (!openPlaces(line.K_Name).Eof()) {
            conn.Change(kTable, lineValues(line), u"Bezeichnung = ?"_s, {line.K_Name});
            continue;
        }
        addLine(word, line, next);
        next = key(next + 1);
    }
    transaction.Commit();
}

} // namespace kolibri
