#include "calendar/offering_check.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/time_check.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

void markFaulty(OfferingCheck& check, OfferingBox box) {
    check.marks[box] = BoxMark::Faulty;
    check.fehler = true;
}

/// Colours the empty ones of the boxes that must be filled. False when there is one.
bool mandatoryBoxesFilled(OfferingCheck& check, const OfferingMode& mode, const Offering& offering) {
    for (const OfferingBox box : {kBoxKName, kBoxLName, kBoxTag, kBoxVon, kBoxBis}) {
        // For a new offering the weekdays are chosen in the list.
        if (box == kBoxTag && mode.action == OfferingAction::Neu)
            continue;
        if (offering[box].isEmpty())
            markFaulty(check, box);
        else
            check.marks[box] = BoxMark::Passed;
    }
    if (check.fehler)
        check.meldungen << u"Bitte die gekennzeichneten Felder füllen!"_s;
    return !check.fehler;
}

void checkDays(OfferingCheck& check, OfferingKind kind, const Offering& offering) {
    if (offering.tage.isEmpty()) {
        check.meldungen << u"Es wurde kein Tag ausgewählt. Korrigieren Sie Ihre Eingabe"_s;
        check.fehler = true;
    }
    const DbSession session(u"Vorhandene Tage prüfen"_s);
    QString days;
    for (const auto& day : vorhandeneTage(kind, offering))
        days += day + u" + "_s;
    if (days.isEmpty())
        return;
    check.meldungen << u"Eintrag für folgende Tage * "_s + days
                           + u" * bereits vorhanden. Überprüfen Sie Ihre Eingabe"_s;
    check.fehler = true;
}

} // namespace

// A correction is not stopped by a row with the same short name, time and day: that is the row itself where
// nothing but its teaching unit changes, and that must go through.
OfferingCheck Eingaben_ME_LZ_AG_überprüfen(const OfferingMode& mode, const Offering& offering) {
    // The weekend passes although no pupil can be assigned to it.
    static const QStringList kDays{u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s, u"SA"_s, u"SO"_s};
    OfferingCheck check;
    const bool isNew = mode.action == OfferingAction::Neu;
    if (!mandatoryBoxesFilled(check, mode, offering))
        return check;
    if (isNew)
        checkDays(check, mode.kind, offering);
    if (offering[kBoxKName].size() > kLongestKName)
        markFaulty(check, kBoxKName);
    if (!isNew && !kDays.contains(offering[kBoxTag]))
        markFaulty(check, kBoxTag);
    for (const OfferingBox box : {kBoxVon, kBoxBis})
        if (!ZeitGueltig(offering[box]))
            markFaulty(check, box);
    return check;
}

QStringList vorhandeneTage(OfferingKind kind, const Offering& offering) {
    QStringList days;
    const auto von = ZeitAlsMinuten(offering[kBoxVon]);
    const auto bis = ZeitAlsMinuten(offering[kBoxBis]);
    for (const auto& table : tablesOf(kind)) {
        Recordset rs = Global().Conn.Open(u"SELECT * FROM %1 WHERE K_Name = ? AND L_Name = ?"_s.arg(table),
                                          {offering[kBoxKName], offering[kBoxLName]});
        for (; !rs.Eof(); rs.MoveNext()) {
            const QString day = rs.Text(u"Tag");
            const bool sameTimes = von && bis && ZeitAlsMinuten(rs.Text(u"Zeit_von")) == von
                                   && ZeitAlsMinuten(rs.Text(u"Zeit_bis")) == bis;
            if (sameTimes && offering.tage.contains(day) && !days.contains(day))
                days << day;
        }
    }
    return days;
}

} // namespace kolibri
