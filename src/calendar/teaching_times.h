#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

namespace kolibri {

/// The four teaching times of a class on a day, in the order of kTeachingTimes: "hh:mm", empty when not set.
inline constexpr int kTeachingTimesOfDay = 4;
using TeachingTimes = std::array<QString, kTeachingTimesOfDay>;
/// Their columns in the table Klassen: morning begin and end, afternoon begin and end.
extern const std::array<QString, kTeachingTimesOfDay> kTeachingTimes;

/// A class on a weekday.
struct ClassDay {
    qint64 ID = 0;
    QString Klasse;
    QString Tag;
    TeachingTimes Zeiten;
};

/// All classes with their days, by class and weekday. The database is open.
std::vector<ClassDay> Unterrichtsende_DatenEinlesen();
/// One of them by its key; without a class when it is no longer there. The database is open.
ClassDay Unterrichtsende_DatensatzLesen(int id);
/// Writes the four times of a class on a weekday. A time that is not set is kept as "00:00", so midnight is
/// no teaching time. The database is open.
void UnterrichtsBeginnEnde_Daten_Übergeben(const QString& klasse, const QString& tag,
                                           const TeachingTimes& zeiten);
/// What the office is told about the times: when which of the four is needed.
QString Unterrichtszeiten_Erläuterung();

} // namespace kolibri
