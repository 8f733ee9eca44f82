#pragma once

#include "core/doors.h"

#include <QDate>
#include <QString>

#include <functional>

namespace kolibri {

/// Name of the database file in the folder DB_Pfad.
inline const QString kDatabaseName = QStringLiteral("KOLIBRI_Daten.mdb");
/// Title of a box that names no other.
inline const QString kProgramTitle = QStringLiteral("Kolibri");
/// Number of school days of a week.
inline constexpr int kSchoolDays = 5;

/// The database file in a folder; an empty folder means the root of the drive.
QString DatenbankDatei(const QString& folder);

/// Opens Conn on the database in DB_Pfad; an open one is closed first, so calling it twice is harmless.
/// @throws StoreError when the file is missing, foreign, damaged or locked
void OpenDB();
/// Closes Conn; nothing happens when it is closed already.
void CloseDB() noexcept;

/// OpenDB for the length of a block, with what the block is about ("Klassenlisten laden") for the error box.
/// CloseDB runs however the block is left.
class DbSession {
public:
    explicit DbSession(const QString& purpose);
    ~DbSession();
    DbSession(const DbSession&) = delete;
    DbSession& operator=(const DbSession&) = delete;
};

/// A box with a text, a button code and a title. Returns the pressed button.
MessageAnswer MsgBox(const QString& text, int code = 0, const QString& title = kProgramTitle);
/// Shows the box of MsgBoxKnoepfe, MsgBoxTitel and MsgBoxText, and leaves the pressed button in
/// MsgBoxAntwort.
void MsgBoxZeigen();

/// Takes back every mode of the forms and the chosen list, before a form is opened in a new mode.
void ModiZuruecksetzen();
/// Adds to ModiZuruecksetzen what another part of the program takes back; made once, as a constant of a file.
class ResetHook {
public:
    explicit ResetHook(std::function<void()> reset);
};

/// Weekday code of a day number: 0 "MO" to 4 "FR"; empty for any other number.
QString TagCode(int index);
/// Day number of a weekday code; 0 for what is no school day, as it always was.
int TagZahl(QStringView code);
/// What the offerings of a table are: "GR1" "MENSA", "GR2" "LERNZEIT", "GR3" to "GR7" "ARBEITSGRUPPE", else
/// empty.
QString Typwort(QStringView gr);

/// Minutes since midnight of the first time in a text such as "08:15 - 09:45" or "8:15".
/// @throws RuntimeError 13 when no time stands there, or its hours or minutes are no numbers
int ZeitVonMinuten(const QString& text);
/// Minutes since midnight of the last time in a text; its hours are the two characters before the last ":".
/// @throws RuntimeError 13 as above, so for "8:05", where the character before the hour is missing
int ZeitBisMinuten(const QString& text);

/// A date as the German short form writes it, one or two digits for day and month, two or four for the year;
/// an invalid one for a text that is none.
QDate DeutschesDatum(const QString& text);
/// True for a date of the calendar written exactly in the format ("dd.mm.yyyy"). A date in another form and a
/// text that is no date are told in a box each, if asked for.
bool DatumPruefen(const QString& text, const QString& format, bool zeigen);

/// A class of a pupil: "1a" to "9z", "1a" to "99z" with two digits ("01a" too).
bool KlasseGueltig(const QString& text);
/// A class of a school starter: empty, "a" to "z", "0a" to "0z"; "0" alone is none.
bool KlasseSchulanfaengerGueltig(const QString& text);

/// Puts German letters in the place of their rich-text escapes ("'e4" becomes "ä"); the backslash in front
/// stays.
QString RtfUmlaute(const QString& text);

/// True if the path names something that exists.
bool DateiVorhanden(const QString& pfad);

/// Fills KlassenListe, SchulstufenListe and KlassenNRListe from the open database.
void KlassenListenLaden();

} // namespace kolibri
