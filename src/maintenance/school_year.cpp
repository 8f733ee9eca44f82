#include "maintenance/school_year.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/progress.h"
#include "core/runtime_error.h"
#include "maintenance/safety_net.h"

#include <QRegularExpression>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kPupils = u"Stammdaten"_s;
const QString kOfGrade = u"Schulstufe = ?"_s;

/// Half to even, as the old program rounded.
double roundHalfEven(double number) {
    const double whole = std::floor(number);
    const double rest = number - whole;
    if (rest == 0.5)
        return std::fmod(whole, 2.0) == 0.0 ? whole : whole + 1.0;
    return std::floor(number + 0.5);
}

/// The notes of the plan of the day stay; nobody sees them without their pupil.
void deleteNotesOfGrade(Connection& conn, int grade) {
    for (Recordset rs = conn.Open(u"SELECT ID, Schulstufe FROM Stammdaten WHERE "_s + kOfGrade, {grade});
         !rs.Eof(); rs.MoveNext())
        conn.Delete(u"SCH_Notiz"_s, u"SCH_ID = ?"_s, {rs.Value(u"ID")});
}

void deletePupilsOfGrade(Connection& conn, int grade) {
    if (!conn.Open(u"SELECT Schulstufe FROM Stammdaten WHERE "_s + kOfGrade, {grade}).Eof())
        conn.Delete(kPupils, kOfGrade, {grade});
}

/// Downwards, so that nobody is raised twice.
void raiseGrades(Connection& conn, int highest) {
    for (int grade = highest; grade >= 1; --grade)
        conn.Change(kPupils, {{u"Schulstufe"_s, grade}}, kOfGrade, {grade - 1});
}

/// The letters of the classes that remain. A school starter's class may be "0" or empty, which is no letter,
/// so it stays as it is.
QStringList classLetters(Connection& conn) {
    QStringList letters;
    for (Recordset rs = conn.Open(u"SELECT Kl_Nr FROM Stammdaten"_s); !rs.Eof(); rs.MoveNext()) {
        const QString letter = rs.Text(u"Kl_Nr");
        const QChar small = letter.size() == 1 ? letter.front().toLower() : QChar();
        if (small >= u'a' && small <= u'z' && !letters.contains(letter, Qt::CaseInsensitive))
            letters << letter;
    }
    return letters;
}

void renameClasses(Connection& conn, int highest) {
    const QStringList letters = classLetters(conn);
    const auto name = [](int grade, const QString& letter) { return QString::number(grade) + letter; };
    for (int grade = highest; grade >= 1; --grade)
        for (const auto& letter : letters)
            conn.Change(kPupils, {{u"Klasse"_s, name(grade, letter)}}, u"Klasse = ?"_s,
                        {name(grade - 1, letter)});
}

} // namespace

int HoechsteSchulstufeAusText(const QString& text) {
    static const QRegularExpression number(u"^\\s*([+-]?\\d*(?:\\.\\d*)?)"_s);
    const double grade = roundHalfEven(number.match(text).captured(1).toDouble());
    if (grade < 0 || grade > std::numeric_limits<quint8>::max())
        throw RuntimeError::overflow(u"Schulstufe: %1"_s.arg(text));
    return static_cast<int>(grade);
}

bool changeSchoolYear(Connection& conn, int hoechsteSchulstufe) {
    deleteNotesOfGrade(conn, hoechsteSchulstufe);
    try {
        deletePupilsOfGrade(conn, hoechsteSchulstufe);
        // The school starters are left out: they arrive in the first grade still marked as new.
        conn.Change(kPupils, {{u"Neu"_s, false}}, u"Schulstufe > 0"_s);
        raiseGrades(conn, hoechsteSchulstufe);
        renameClasses(conn, hoechsteSchulstufe);
    } catch (const StoreError&) {
        return false;
    }
    return true;
}

void WechselSchuljahr() {
    const auto answer = doors().input->ask(kProgramTitle,
                                           u"Geben Sie die höchste Schulstufe ein. Die Schüler dieser "
                                           "Schulstufe scheiden mit dem Wechsel Schuljahr aus!"_s,
                                           {});
    const int HoechsteSchulstufe = HoechsteSchulstufeAusText(answer.value_or(QString()));
    if (HoechsteSchulstufe == 0)
        return;
    auto& global = Global();
    global.MsgBoxKnoepfe = u"20"_s;
    global.MsgBoxTitel = u"Wechsel Schuljahr"_s;
    global.MsgBoxText =
        u"Wechsel Schuljahr wirklich durchführen? Es werden alle Schüler/Schülerinnen der %1. Klasse "
        "gelöscht. Bei allen anderen Schüler/Schülerinnen wird die Schulstufe um 1 erhöht. Die Änderung kann "
        "nicht mehr rückgängi gemacht werden!"_s.arg(HoechsteSchulstufe);
    MsgBoxZeigen();
    if (global.MsgBoxAntwort == kAnswerNo)
        return;
    bool done = false;
    {
        const Progress progress(u"Das Schuljahr wird gewechselt..."_s, 1);
        const DbSession session(u"Wechsel Schuljahr"_s);
        withSafetyCopy(global.Conn, [&] { done = changeSchoolYear(global.Conn, HoechsteSchulstufe); });
    }
    MsgBox(done ? u"Die Änderung wurde durchgeführt!"_s
                : u"Fehler beim Ändern der Daten in der Datenbank!"_s);
}

} // namespace kolibri
