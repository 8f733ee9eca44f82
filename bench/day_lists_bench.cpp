// Time of the lists that hang in the corridor each day, from OK of their form to the written page: the
// Tagesplan of one class letter, and the lists of one offering.

#include "core/doors.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "maintenance/sample_school.h"
#include "support/measure.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <ctime>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::bench;

namespace {

constexpr int kRounds = 5;
/// Lists to a round, since a single one takes hardly longer than the clock of some machines ticks.
constexpr int kLists = 10;

/// Pupils of the school, and of its letter a.
struct School {
    int pupils;
    int ofLetter;
};

/// Gives the letter a exactly so many active pupils who take part in the care, from and to the other letters.
void setLetter(int wanted) {
    const DbSession session(u"Messung"_s);
    auto& conn = Global().Conn;
    Transaction transaction(conn);
    conn.Execute(u"UPDATE Stammdaten SET Kl_Nr = 'b', Klasse = Schulstufe || 'b' WHERE Kl_Nr = 'a'"_s);
    conn.Execute(
        u"UPDATE Stammdaten SET aktiv = true, NichtOG = false, Kl_Nr = 'a', Klasse = Schulstufe || 'a' "
        "WHERE ID IN (SELECT ID FROM Stammdaten WHERE Schulstufe > 0 ORDER BY ID LIMIT ?)"_s,
        {wanted});
    transaction.Commit();
}

void measure(Table& table, const QString& name, quint8 listenArt, int pupils) {
    const qint64 before = Global().Conn.StatementCount();
    const std::clock_t began = std::clock();
    const Timing time = timed(kRounds, [&] {
        for (int i = 0; i < kLists; ++i) {
            prepareList(listenArt);
            producePage();
        }
    });
    const double cpu = static_cast<double>(std::clock() - began) / CLOCKS_PER_SEC * 1000;
    table.add({name, QString::number(pupils), QString::number(Liste().ZeilenAnzahl),
               QString::number((Global().Conn.StatementCount() - before) / kRounds / kLists),
               figure(time.median / kLists, 1), figure(time.quickest / kLists, 1),
               figure(cpu / kRounds / kLists, 1)});
}

void askForDay(const QString& days, bool twoDays) {
    Liste().Wochenplan = {u"A"_s, days, twoDays, kAlleSchulstufen};
}

void askForOffering() {
    Global().ListenUnterArt = kEineKlasse;
    const DbSession session(u"Messung"_s);
    CareOptions& care = Liste().MensaLernzeit;
    care.cmbME_LZ = careOfferings(kListeMensa).front().langname;
    readCareOffering(kListeMensa, care);
    care.cmbKlasse = u"2a"_s;
    readGroup(groupEntries().front(), Liste().Arbeitsgruppe);
    Liste().MensaSchueler.lstKlassen = {u"2A"_s};
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    doors().clock = std::make_unique<SystemClock>();
    Table table(u"A list of the day, from OK to the written page (median and quickest of 5 rounds; targets: "
                u"Tagesplan "
                u"25 ms for 250 of 1,000 pupils and 100 ms for 990 of 4,000, Mensa list of a class 5 ms)"_s,
                {u"list"_s, u"school"_s, u"rows"_s, u"statements"_s, u"ms"_s, u"quickest"_s, u"cpu ms"_s});
    for (const auto& [pupils, ofLetter] : {School{1000, 250}, School{4000, 990}}) {
        const QTemporaryDir folder;
        qputenv("KOLIBRI_HOME", folder.path().toLocal8Bit());
        QDir(folder.path()).mkdir(u"ProgramData"_s);
        createSampleSchool(folder.path(), {.pupils = pupils});
        Global().DB_Pfad = folder.path();
        Global().NameKurz.fill(u"Ungekürzt"_s);
        Global().NameZuerst.fill(u"Vorname Nachname"_s);
        askForOffering();
        measure(table, u"Mensa, one class"_s, kListeMensa, pupils);
        measure(table, u"Arbeitsgruppe"_s, kListeArbeitsgruppe, pupils);
        measure(table, u"Mensa by pupil, one class"_s, kMensaJeSchueler, pupils);
        setLetter(ofLetter);
        askForDay(u"MO"_s, false);
        measure(table, u"Tagesplan, one day"_s, kTagesplan, pupils);
        askForDay(u"MO/DI"_s, true);
        measure(table, u"Tagesplan, two days"_s, kTagesplan, pupils);
    }
    table.print();
    return 0;
}
