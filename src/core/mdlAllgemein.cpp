#include "core/mdlAllgemein.h"

#include "core/mdlGlobal.h"
#include "core/runtime_error.h"

#include <QDate>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const std::array<QString, kSchoolDays> kDayCodes{u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s};

bool isLetter(QChar c) {
    return c >= u'a' && c <= u'z';
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// Hours and minutes from two pieces of a text, as minutes since midnight.
int minutesOf(QStringView hours, QStringView minutes) {
    bool hoursOk = false;
    bool minutesOk = false;
    const int h = hours.toInt(&hoursOk);
    const int m = minutes.toInt(&minutesOk);
    if (!hoursOk || !minutesOk)
        throw RuntimeError::typeMismatch(u"Uhrzeit: %1:%2"_s.arg(hours, minutes));
    return h * 60 + m;
}

std::vector<std::function<void()>>& resetHooks() {
    static std::vector<std::function<void()>> hooks;
    return hooks;
}

QStringList distinctValues(const QString& column) {
    QStringList values;
    Recordset rs = Global().Conn.Open(u"SELECT DISTINCT %1 FROM Klassen ORDER BY %1"_s.arg(column));
    for (; !rs.Eof(); rs.MoveNext())
        if (const QString value = rs.Text(0); !value.isEmpty())
            values << value;
    return values;
}

} // namespace

QString DatenbankDatei(const QString& folder) {
    return folder + u'/' + kDatabaseName;
}

void OpenDB() {
    auto& global = Global();
    global.ConnString = DatenbankDatei(global.DB_Pfad);
    global.Conn.OpenFile(global.ConnString);
}

void CloseDB() noexcept {
    Global().Conn.Close();
}

DbSession::DbSession(const QString& purpose) {
    Global().Conn.SetPurpose(purpose);
    OpenDB();
}

DbSession::~DbSession() {
    CloseDB();
    Global().Conn.SetPurpose({});
}

MessageAnswer MsgBox(const QString& text, int code, const QString& title) {
    return doors().messages->show({text, code, title});
}

void MsgBoxZeigen() {
    auto& global = Global();
    global.MsgBoxAntwort = MsgBox(global.MsgBoxText, global.MsgBoxKnoepfe.toInt(), global.MsgBoxTitel);
}

void ModiZuruecksetzen() {
    auto& global = Global();
    for (bool* flag :
         {&global.ModusSchuelerNeu, &global.ModusSchuelerKorrektur, &global.ModusSchuelerLoeschen,
          &global.ModusSchuelerAktivieren, &global.ModusSchulanfaenger, &global.ModusSchulanfaengerNeu,
          &global.ModusSchulanfaengerKorrektur, &global.ModusSchulanfaengerLoeschen, &global.ModusUE_Neu,
          &global.ModusUE_Korrektur, &global.ModusUE_Loeschen, &global.ModusTagesplanA,
          &global.ModusTagesplanB, &global.ListeMensa, &global.ListeLernzeit})
        *flag = false;
    global.ListenArt = 0;
    global.ListenUnterArt = 0;
    for (const auto& reset : resetHooks())
        reset();
}

ResetHook::ResetHook(std::function<void()> reset) {
    resetHooks().push_back(std::move(reset));
}

QString TagCode(int index) {
    return index >= 0 && index < kSchoolDays ? kDayCodes[static_cast<std::size_t>(index)] : QString();
}

int TagZahl(QStringView code) {
    const auto found = std::find(kDayCodes.begin(), kDayCodes.end(), code);
    return found == kDayCodes.end() ? 0 : static_cast<int>(found - kDayCodes.begin());
}

QString Typwort(QStringView gr) {
    if (gr.size() != 3 || !gr.startsWith(u"GR"))
        return {};
    const QChar slot = gr.back();
    if (slot == u'1')
        return u"MENSA"_s;
    if (slot == u'2')
        return u"LERNZEIT"_s;
    return slot >= u'3' && slot <= u'7' ? u"ARBEITSGRUPPE"_s : QString();
}

int ZeitVonMinuten(const QString& text) {
    const QStringView view(text);
    const qsizetype colon = view.indexOf(u':');
    if (colon < 0)
        throw RuntimeError::typeMismatch(u"Uhrzeit: %1"_s.arg(text));
    return minutesOf(view.first(colon),
                     view.sliced(colon + 1, std::min<qsizetype>(2, view.size() - colon - 1)));
}

int ZeitBisMinuten(const QString& text) {
    const QStringView view(text);
    const qsizetype colon = view.lastIndexOf(u':');
    if (colon < 2 || !isDigit(view.at(colon - 2)))
        throw RuntimeError::typeMismatch(u"Uhrzeit: %1"_s.arg(text));
    return minutesOf(view.sliced(colon - 2, 2),
                     view.sliced(colon + 1, std::min<qsizetype>(2, view.size() - colon - 1)));
}

QDate DeutschesDatum(const QString& text) {
    static const QRegularExpression form(u"^\\s*(\\d{1,2})\\.(\\d{1,2})\\.(\\d{2}|\\d{4})\\s*$"_s);
    const auto match = form.match(text);
    if (!match.hasMatch())
        return {};
    int year = match.captured(3).toInt();
    constexpr int kFirstYearOfLastCentury = 30;
    if (match.capturedLength(3) == 2)
        year += year < kFirstYearOfLastCentury ? 2000 : 1900;
    constexpr int kFirstYear = 100;
    return year < kFirstYear ? QDate() : QDate(year, match.captured(2).toInt(), match.captured(1).toInt());
}

bool DatumPruefen(const QString& text, const QString& format, bool zeigen) {
    constexpr int kExclamation = 48;
    const QDate date = DeutschesDatum(text);
    const bool matches = date.isValid() && date.toString(QString(format).replace(u'm', u'M')) == text;
    if (!matches && zeigen)
        MsgBox(date.isValid() ? u"Datum entspricht nicht dem Format '"_s + format + u"'."_s
                              : u"Es liegt kein gültiges Datum vor."_s,
               kExclamation, u"Datumsformat"_s);
    return matches;
}

bool KlasseGueltig(const QString& text) {
    if (text.size() == 2)
        return text.at(0) >= u'1' && text.at(0) <= u'9' && isLetter(text.at(1));
    return text.size() == 3 && isDigit(text.at(0)) && isDigit(text.at(1)) && text.first(2).toInt() >= 1
           && isLetter(text.at(2));
}

bool KlasseSchulanfaengerGueltig(const QString& text) {
    if (text.size() == 2)
        return text.at(0) == u'0' && isLetter(text.at(1));
    return text.isEmpty() || (text.size() == 1 && isLetter(text.at(0)));
}

QString RtfUmlaute(const QString& text) {
    static const std::array<std::pair<QString, QString>, 8> kEscapes{{{u"'c4"_s, u"Ä"_s},
                                                                      {u"'e4"_s, u"ä"_s},
                                                                      {u"'dc"_s, u"Ü"_s},
                                                                      {u"'fc"_s, u"ü"_s},
                                                                      {u"'d6"_s, u"Ö"_s},
                                                                      {u"'f6"_s, u"ö"_s},
                                                                      {u"'df"_s, u"ß"_s},
                                                                      {u"'a7"_s, u"§"_s}}};
    QString result = text;
    for (const auto& [escape, letter] : kEscapes)
        result.replace(escape, letter);
    return result;
}

bool DateiVorhanden(const QString& pfad) {
    return !pfad.isEmpty() && QFileInfo::exists(pfad);
}

void KlassenListenLaden() {
    auto& global = Global();
    global.KlassenListe = distinctValues(u"Klasse"_s);
    global.SchulstufenListe = distinctValues(u"Schulstufe"_s);
    global.KlassenNRListe = distinctValues(u"KlassenNR"_s);
}

} // namespace kolibri
