#pragma once

#include "core/windows1252.h"
#include "support/fixtures.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QMap>
#include <QStringList>

/// What must come out of the files of the first data version, computed from what is known to be in them, rule
/// by rule, without the program's help.
namespace kolibri::test {

using namespace Qt::StringLiterals;

using Row = QMap<QString, QString>;
using Rows = QList<Row>;

inline const QStringList kDays{u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s};
inline const QString kKey = u"Zeit_K_Name"_s;

/// A cell of the old file as text: days in German, times of day as hh:mm, nothing for a null.
inline QString cellText(const QJsonValue& value) {
    if (value.isBool())
        return value.toBool() ? u"Wahr"_s : u"Falsch"_s;
    if (value.isDouble())
        return QString::number(value.toDouble());
    const QString text = value.toString();
    if (text.startsWith(u"1899-12-30T"_s))
        return text.mid(11, 5);
    if (text.endsWith(u"T00:00:00"_s))
        return text.mid(8, 2) + u'.' + text.mid(5, 2) + u'.' + text.left(4);
    return text;
}

/// Whole euros of a fee, a half to the even one.
inline qint64 wholeEuros(const QString& fee) {
    const qint64 cents = qRound64(fee.toDouble() * 100);
    const qint64 whole = cents / 100;
    const qint64 rest = cents % 100;
    return cents <= 0 ? 0 : whole + (rest > 50 || (rest == 50 && whole % 2 == 1) ? 1 : 0);
}

/// The content of an old file, and what the rules make of it.
class OldSchool {
public:
    explicit OldSchool(const QString& name)
        : m_json(jsonFixture(u"jet/%1/expected.json"_s.arg(name))), m_repaired(name == u"uralt"_s) {
        for (const auto& table : m_json.keys())
            for (const auto& value : m_json[table].toArray()) {
                Row row;
                const QJsonObject object = value.toObject();
                for (auto cell = object.begin(); cell != object.end(); ++cell)
                    row.insert(cell.key(), cellText(cell.value()));
                m_tables[table] << row;
            }
        if (m_repaired)
            repair();
    }

    const Rows& table(const QString& name) const {
        static const Rows none;
        const auto found = m_tables.find(name);
        return found == m_tables.end() ? none : *found;
    }

    /// The first row that agrees in these fields.
    Row first(const QString& name, const Row& fields) const {
        for (const auto& row : table(name)) {
            bool agrees = true;
            for (auto field = fields.begin(); field != fields.end(); ++field)
                agrees = agrees && row.value(field.key()) == field.value();
            if (agrees)
                return row;
        }
        return {};
    }

private:
    /// Before version 1.1.1 a cell and a note named the time only.
    void repair() {
        for (const auto& table : {u"GR1"_s, u"GR2"_s}) {
            for (auto& row : m_tables[table])
                row[kKey] = row[u"Zeit"_s] + u' ' + row[u"K_Name"_s];
            for (auto& pupil : m_tables[u"Stammdaten"_s])
                for (const auto& day : kDays) {
                    QString& cell = pupil[table + u'_' + day];
                    const Row offering = first(table, {{u"Tag"_s, day}, {u"Zeit"_s, cell}});
                    cell = offering.value(kKey, cell);
                }
        }
        QString key;
        for (auto& note : m_tables[u"SCH_Notiz"_s]) {
            const Row offering = first(
                note[u"GR"_s],
                {{u"L_Name"_s, note[u"L_Name"_s]}, {u"Tag"_s, note[u"Tag"_s]}, {u"Zeit"_s, note[u"Zeit"_s]}});
            if (!offering.isEmpty())
                key = note[u"Zeit"_s] + u' ' + offering[u"K_Name"_s];
            note[kKey] = key;
        }
    }

    QJsonObject m_json;
    bool m_repaired;
    QMap<QString, Rows> m_tables;
};

/// What becomes of the notes.
struct SplitNotes {
    QStringList kept;
    QStringList stale;
    QStringList tagesplan;
    QStringList tagesplanRows;

    explicit SplitNotes(const OldSchool& school) {
        for (const auto& note : school.table(u"SCH_Notiz"_s)) {
            const Row pupil = school.first(u"Stammdaten"_s, {{u"ID"_s, note[u"SCH_ID"_s]}});
            const QString cell = pupil[note[u"GR"_s] + u'_' + note[u"Tag"_s]];
            QStringList values;
            for (const auto& field :
                 {u"SCH_ID"_s, u"GR"_s, u"L_Name"_s, u"Tag"_s, u"Tag_Zahl"_s, u"Zeit"_s, kKey, u"Notiz"_s})
                values << note[field];
            const QString line = note[u"ID"_s] + u';' + values.join(u',');
            (cell.isEmpty() ? tagesplan : cell == note[kKey] ? kept : stale) << line;
            // No offering has a teaching unit yet, so the new notes have none either.
            if (cell.isEmpty())
                tagesplanRows << u"ID=%1; SCH_ID=%2; UE=; Tag=%3; Tag_Zahl=%4; Notiz=%5"_s.arg(
                    QString::number(tagesplanRows.size() + 1), note[u"SCH_ID"_s], note[u"Tag"_s],
                    note[u"Tag_Zahl"_s], note[u"Notiz"_s]);
        }
    }
};

/// The protocol with these notes.
inline QByteArray logOf(const QStringList& lines) {
    QStringList all{u"ID, SCH_ID, GR, L_Name, Tag, Tag_Zahl, Zeit, Zeit_K_Name, Notiz"_s};
    return toTextFile((all + lines).join(u"\r\n"_s) + u"\r\n"_s);
}

/// The rows of the settings after the conversions, sorted.
inline QStringList settingsRows() {
    const auto row = [](const QString& feld, const QString& rest) { return feld + u'|' + rest; };
    QStringList rows{row(u"TabelleKopfZeile"_s, u"10|Wahr|Falsch|||||||"_s),
                     row(u"TabelleZeile"_s, u"9|Falsch|Falsch|||||||"_s),
                     row(u"TabelleSummenZeile"_s, u"9|Wahr|Wahr|||||||"_s),
                     row(u"WochenPlanKopfZeile"_s, u"10|Wahr|Falsch|||||||"_s),
                     row(u"WochenPlanZeile"_s, u"8|Falsch|Falsch|||||||"_s),
                     row(u"Ü-Zeitüberschneidung"_s, u"1|Falsch|Falsch|||||||"_s),
                     row(u"Name_Liste_ME_LZ"_s, u"|Falsch|Falsch|Nachname gekürzt|Vorname Nachname|||||"_s),
                     row(u"Name_Liste_AG"_s, u"|Falsch|Falsch|Ungekürzt|Vorname Nachname|||||"_s),
                     row(u"Name_Wochenplan"_s, u"|Falsch|Falsch|Ungekürzt|Vorname Nachname|||||"_s),
                     row(u"Beitrag_0"_s, u"|Falsch|Falsch|||1|Mitgliedsbeitrag|||"_s),
                     row(u"Beitrag_1"_s, u"|Falsch|Falsch|||1|Betreuungsbeitrag|||"_s)};
    for (int fee = 2; fee <= 6; ++fee)
        rows << row(u"Beitrag_%1"_s.arg(fee), u"|Falsch|Falsch|||0||||"_s);
    for (const auto& field : {u"Schwimmer"_s, u"Baustein"_s, u"Kennung"_s})
        rows << row(field, u"|Falsch|Falsch|||||0||"_s);
    const QStringList labels{u"Nachname"_s,    u"Vorname"_s, u"Strasse"_s,     u"PLZ"_s,    u"Ort"_s,
                             u"Tel. Privat"_s, u"Mobil"_s,   u"Tel. Arbeit"_s, u"E-Mail"_s, u"Verw. Verh."_s};
    const QStringList categories{u"Name"_s,    u"Name"_s,    u"Adresse"_s, u"Adresse"_s, u"Adresse"_s,
                                 u"Telefon"_s, u"Telefon"_s, u"Telefon"_s, u"E-Mail"_s,  u"Sonstiges"_s};
    for (const auto& key : {u"GV1"_s, u"GV2"_s, u"GV3"_s, u"Kontakt"_s})
        for (int number = 0; number < labels.size(); ++number)
            rows << row(key, u"|Falsch|Falsch||||||%1|%2"_s.arg(labels.at(number)).arg(number))
                        + (key == u"Kontakt"_s ? u'|' + categories.at(number) : u"|"_s);
    for (auto& text : rows)
        if (text.count(u'|') < 11)
            text += u'|';
    rows.sort();
    return rows;
}

} // namespace kolibri::test
