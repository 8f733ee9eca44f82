// The lists read offerings, notes and ends of teaching once for a page. The simple way asks the store for
// each pupil and each cell instead; here it is written down beside the program, and both must come out the
// same.

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "lists/care/mensa_pupils.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "support/driving.h"
#include "support/list_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

/// All letters and grades, and the simple way still done in seconds.
constexpr int kPupils = 120;

Recordset select(const QString& statement, const QVariantList& values = {}) {
    return Global().Conn.Open(statement, values);
}

/// The rows of a list as the simple way finds them, each "code: cell | cell | ...".
class Rows {
public:
    explicit Rows(int columns) : m_columns(columns) {}
    void add(const QString& code, const QStringList& cells = {}) {
        QStringList row = cells;
        while (row.size() < m_columns)
            row << QString();
        m_rows << code + u": "_s + row.join(u" | "_s);
    }
    const QStringList& all() const { return m_rows; }

private:
    int m_columns;
    QStringList m_rows;
};

QString firstAndFamily(const Recordset& pupil) {
    return pupil.Text(u"SCH_Vorname") + u' ' + pupil.Text(u"SCH_Name");
}

struct Plan {
    QString letter;
    QString days;
    bool twoDays;
    QString grade;
};

/// A cell of the Tagesplan, with a statement for each thing that it needs.
QString simpleCell(const Recordset& pupil, const QString& day, const QString& unit, const QString& end,
                   bool twoDays) {
    QString cell;
    for (int group = 1; group <= 7; ++group) {
        const QString gr = u"GR%1"_s.arg(group);
        Recordset offers = select(u"SELECT * FROM %1 WHERE Tag = ? ORDER BY UE_Zeit"_s.arg(gr), {day});
        for (; !offers.Eof(); offers.MoveNext()) {
            const QString offered = offers.Text(u"UE_Zeit");
            const QString key = offers.Text(u"Zeit_K_Name");
            if (offered.isEmpty())
                continue;
            if (offered != unit) {
                if (group == 1 && !(unit.right(5) > end))
                    cell = u"U"_s;
            } else if (pupil.Text(gr + u'_' + day) == key) {
                cell = offers.Text(u"K_Name");
            } else if (twoDays) {
                Recordset notes =
                    select(u"SELECT * FROM SCH_Notiz WHERE SCH_ID = ? ORDER BY ID"_s, {pupil.Value(u"ID")});
                for (; !notes.Eof(); notes.MoveNext())
                    if (notes.Text(u"Tag") == day && notes.Text(u"GR") == gr
                        && notes.Text(u"Zeit_K_Name") == key)
                        cell = notes.Text(u"Notiz");
            }
        }
    }
    if (twoDays)
        return cell;
    const Recordset note = select(u"SELECT * FROM WP_Notiz WHERE SCH_ID = ? AND Tag = ? AND UE = ?"_s,
                                  {pupil.Value(u"ID"), day, unit});
    return cell + u" <br &> "_s + (note.Eof() ? QString() : note.Text(u"Notiz"));
}

QStringList simplePlan(const Plan& plan) {
    const DbSession session(u"Vergleich"_s);
    QStringList units;
    for (Recordset rs = select(u"SELECT * FROM Unterrichtseinheiten ORDER BY Zeit"_s); !rs.Eof();
         rs.MoveNext())
        units << rs.Text(u"Zeit");
    const qint64 highest = select(u"SELECT MAX(Schulstufe) FROM Stammdaten"_s).Value(0).toLongLong();
    const bool all = plan.grade == u"Alle";
    Recordset pupils =
        select(u"SELECT * FROM Stammdaten WHERE aktiv = true%1 AND KL_Nr = ? AND Schulstufe %2 ORDER BY "
               "Schulstufe, SCH_Name"_s.arg(plan.twoDays ? QString() : u" AND NichtOG = false"_s,
                                            all ? u"> 0"_s : u"= "_s + plan.grade),
               {plan.letter});
    Rows rows(2 + static_cast<int>(units.size()) * (plan.twoDays ? 2 : 1));
    QStringList ends{{}, {}};
    QString classAbove;
    for (bool first = true; !pupils.Eof(); pupils.MoveNext(), first = false) {
        const QString klasse = pupils.Text(u"Klasse");
        if (!first && klasse != classAbove) {
            rows.add(u"29"_s);
            rows.add(pupils.Number(u"Schulstufe") < highest || !all ? u"21"_s : u"23"_s);
        }
        classAbove = klasse;
        QStringList cells{plan.twoDays ? pupils.Text(u"SCH_Name") + u' ' + pupils.Text(u"SCH_Vorname")
                                       : firstAndFamily(pupils),
                          klasse};
        const QStringList days = plan.days.split(u'/');
        for (qsizetype day = 0; day < days.size(); ++day) {
            const Recordset end =
                select(u"SELECT * FROM Klassen WHERE Klasse = ? AND Tag = ?"_s, {klasse, days[day]});
            if (!end.Eof() && !end.Text(u"Unterrichtsende").left(5).isEmpty())
                ends[day] = end.Text(u"Unterrichtsende").left(5);
            for (const auto& unit : units)
                cells << simpleCell(pupils, days[day], unit, ends[day], plan.twoDays);
        }
        rows.add(u"1"_s, cells);
    }
    rows.add(u"29"_s);
    return rows.all();
}

/// The table of an offering of the Mensa or the Lernzeit for one class.
QStringList simpleCareList(const QString& gr, const CareOptions& options, bool friday) {
    const DbSession session(u"Vergleich"_s);
    const QStringList days{u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s};
    std::vector<QStringList> table;
    QStringList sums(10);
    for (qsizetype day = 0; day < (friday ? 5 : 4); ++day) {
        Recordset pupils =
            select(u"SELECT * FROM Stammdaten WHERE %1_%2 = ? AND Klasse = ? AND aktiv = true ORDER BY "
                   "Schulstufe, SCH_Vorname"_s.arg(gr, days[day]),
                   {options.txtZeit_K_Name, options.cmbKlasse});
        std::size_t row = 0;
        for (; !pupils.Eof(); pupils.MoveNext(), ++row) {
            if (row == table.size())
                table.push_back(QStringList(10));
            table[row][2 * day] = firstAndFamily(pupils);
            const Recordset note = select(
                u"SELECT * FROM SCH_Notiz WHERE SCH_ID = ? AND GR = ? AND Tag = ? AND Zeit_K_Name = ? ORDER BY ID"_s,
                {pupils.Value(u"ID"), gr, days[day], options.txtZeit_K_Name});
            if (!note.Eof())
                table[row][2 * day + 1] = note.Text(u"Notiz");
        }
        sums[2 * day] = QString::number(row);
    }
    const int columns = friday ? 10 : 8;
    Rows rows(columns);
    rows.add(u"21"_s, {options.txtZeit + u" - "_s + options.cmbME_LZ});
    for (const auto& cells : table)
        rows.add(u"1"_s, cells.first(columns));
    rows.add(u"22"_s, sums.first(columns));
    rows.add(u"29"_s);
    return rows.all();
}

QStringList simpleGroupList(const GroupOptions& options) {
    const DbSession session(u"Vergleich"_s);
    Rows rows(8);
    rows.add(u"21"_s, {u" "_s});
    Recordset pupils =
        select(u"SELECT * FROM Stammdaten WHERE aktiv = true ORDER BY SCH_Name, SCH_Vorname"_s);
    for (; !pupils.Eof(); pupils.MoveNext()) {
        bool takesPart = false;
        for (int slot = 3; slot <= 7; ++slot)
            takesPart |= pupils.Text(u"GR%1_%2"_s.arg(slot).arg(options.txtTag)) == options.txtZeit_K_Name;
        if (!takesPart)
            continue;
        QString name = firstAndFamily(pupils);
        const Recordset note = select(
            u"SELECT * FROM SCH_Notiz WHERE SCH_ID = ? AND L_Name = ? AND Tag = ? AND Zeit = ? ORDER BY ID"_s,
            {pupils.Value(u"ID"), options.cmbAG, options.txtTag, options.txtZeit});
        if (!note.Eof())
            name += u"<br /><i>"_s + note.Text(u"Notiz") + u"</i>"_s;
        QStringList cells{name, pupils.Text(u"Klasse")};
        for (const auto& away : options.lstNichtTeilnehmen)
            cells << (away.first(std::min<qsizetype>(away.size(), 16)).contains(pupils.Text(u"Klasse"))
                          ? u"------"_s
                          : QString());
        rows.add(u"1"_s, cells);
    }
    rows.add(u"29"_s);
    return rows.all();
}

QStringList simpleMensaList(const QStringList& classes, bool friday) {
    const DbSession session(u"Vergleich"_s);
    const QStringList days{u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s};
    const qsizetype shownDays = friday ? 5 : 4;
    Rows rows(1 + static_cast<int>(shownDays));
    for (const auto& klasse : classes) {
        rows.add(u"21"_s, {klasse});
        Recordset pupils =
            select(u"SELECT * FROM Stammdaten WHERE Klasse = ? ORDER BY SCH_Vorname"_s, {klasse});
        for (; !pupils.Eof(); pupils.MoveNext()) {
            QStringList cells{firstAndFamily(pupils)};
            bool any = false;
            for (const auto& day : days) {
                const QString value = pupils.Text(u"GR1_"_s + day);
                any |= !value.isEmpty();
                const Recordset mensa = select(u"SELECT * FROM GR1 WHERE Zeit_K_Name = ?"_s, {value});
                cells << (mensa.Eof() ? QString() : mensa.Text(u"K_Name"));
            }
            if (any)
                rows.add(u"1"_s, cells.first(1 + shownDays));
        }
        rows.add({});
    }
    return rows.all();
}

} // namespace

class SimpleWayTest : public TestBase {
    Q_OBJECT

private:
    void useSchool() {
        useSampleSchool(kPupils);
        Global().NameKurz.fill(u"Ungekürzt"_s);
        Global().NameZuerst.fill(u"Vorname Nachname"_s);
        const DbSession session(u"Test"_s);
        KlassenListenLaden();
        addNotes();
    }

    /// More notes than a school has: on offerings that are taken and on others, several on one, and for
    /// units.
    static void addNotes() {
        constexpr int kPupilsWithNotes = 60;
        auto& conn = Global().Conn;
        Transaction transaction(conn);
        for (int pupil = 1; pupil <= kPupilsWithNotes; ++pupil) {
            const QString gr = u"GR%1"_s.arg(1 + pupil % 4);
            Recordset offers = select(u"SELECT * FROM %1"_s.arg(gr));
            for (int i = 0; !offers.Eof(); offers.MoveNext(), ++i)
                if (i % 3 != 0)
                    conn.AddNew(u"SCH_Notiz"_s)
                        .Set(u"SCH_ID"_s, pupil)
                        .Set(u"GR"_s, gr)
                        .Set(u"Tag"_s, offers.Text(u"Tag"))
                        .Set(u"L_Name"_s, offers.Text(u"L_Name"))
                        .Set(u"Zeit"_s, offers.Text(u"Zeit"))
                        .Set(u"Zeit_K_Name"_s, offers.Text(u"Zeit_K_Name"))
                        .Set(u"Notiz"_s, u"Notiz %1 von %2"_s.arg(i).arg(pupil))
                        .Update();
            Recordset units = select(u"SELECT * FROM Unterrichtseinheiten"_s);
            for (; !units.Eof(); units.MoveNext())
                conn.AddNew(u"WP_Notiz"_s)
                    .Set(u"SCH_ID"_s, pupil)
                    .Set(u"Tag"_s, TagCode(pupil % kSchoolDays))
                    .Set(u"UE"_s, units.Text(u"Zeit"))
                    .Set(u"Notiz"_s, u"Einheit von %1"_s.arg(pupil))
                    .Update();
        }
        transaction.Commit();
    }

    /// Statements that a list takes.
    static qint64 statementsOf(quint8 listenArt) {
        const qint64 before = Global().Conn.StatementCount();
        prepareList(listenArt);
        return Global().Conn.StatementCount() - before;
    }

private Q_SLOTS:
    void theTagesplan_data() {
        QTest::addColumn<QString>("days");
        QTest::addColumn<bool>("twoDays");
        QTest::addColumn<QString>("grade");
        const auto row = [](const QString& days, bool twoDays, const QString& grade) {
            QTest::newRow(qPrintable(days + (twoDays ? u" two days "_s : u" one day "_s) + grade))
                << days << twoDays << grade;
        };
        for (const auto& day : {u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s})
            row(day, false, u"Alle"_s);
        row(u"DI"_s, false, u"2"_s);
        for (const auto& days : {u"MO/DI"_s, u"MI/DO"_s, u"FR"_s})
            row(days, true, u"Alle"_s);
        row(u"MI/DO"_s, true, u"3"_s);
    }
    void theTagesplan() {
        QFETCH(QString, days);
        QFETCH(bool, twoDays);
        QFETCH(QString, grade);
        useSchool();
        int pupils = 0;
        int notes = 0;
        for (const auto& letter : Global().KlassenNRListe) {
            Liste().Wochenplan = {letter, days, twoDays, grade};
            const QStringList simple = simplePlan({letter, days, twoDays, grade});
            QCOMPARE(gathered(kTagesplan), simple);
            pupils += static_cast<int>(simple.filter(u"1: "_s).size());
            notes += static_cast<int>(simple.filter(twoDays ? u"Notiz "_s : u"<br &> Einheit von "_s).size());
        }
        QVERIFY(pupils > (grade == u"Alle"_s ? 50 : 10));
        QVERIFY(notes > 0);
    }

    void theListsOfMensaAndLernzeit_data() {
        QTest::addColumn<int>("listenArt");
        QTest::newRow("mensa") << int(kListeMensa);
        QTest::newRow("lernzeit") << int(kListeLernzeit);
    }
    void theListsOfMensaAndLernzeit() {
        QFETCH(int, listenArt);
        useSchool();
        const auto art = static_cast<quint8>(listenArt);
        Global().ListenUnterArt = kEineKlasse;
        std::vector<CareOffering> offerings;
        {
            const DbSession session(u"Test"_s);
            offerings = careOfferings(art);
        }
        bool anyNote = false;
        for (const auto& offering : offerings)
            for (const auto& klasse : Global().KlassenListe) {
                CareOptions& options = Liste().MensaLernzeit;
                options.cmbKlasse = klasse;
                options.cmbME_LZ = offering.langname;
                options.txtZeit = offering.zeit;
                options.txtZeit_K_Name = offering.zeitKName;
                const QStringList rows = gathered(art);
                QCOMPARE(rows, simpleCareList(careGroup(art), options, Liste().FreitagBelegt));
                for (int row = 1; row <= Liste().ZeilenAnzahl; ++row)
                    anyNote |= Liste().ZeilenCode(row) == u"1" && !Liste().Daten(2, row).isEmpty();
            }
        QVERIFY(!offerings.empty());
        QVERIFY2(anyNote, "the sample school has no note that would be compared");
    }

    void theArbeitsgruppen() {
        useSchool();
        std::vector<GroupEntry> groups;
        {
            const DbSession session(u"Test"_s);
            groups = groupEntries();
        }
        bool anyNote = false;
        for (const auto& group : groups) {
            GroupOptions& options = Liste().Arbeitsgruppe;
            {
                const DbSession session(u"Test"_s);
                readGroup(group, options);
            }
            options.lstNichtTeilnehmen[1] = Global().KlassenListe.first(3);
            options.lstNichtTeilnehmen[4] = Global().KlassenListe;
            QCOMPARE(gathered(kListeArbeitsgruppe), simpleGroupList(options));
            anyNote |= !listRows().filter(u"<br /><i>"_s).isEmpty();
        }
        QVERIFY2(anyNote, "the sample school has no note that would be compared");
    }

    void theMensaByPupil() {
        useSchool();
        Liste().MensaSchueler.lstKlassen = Global().KlassenListe;
        Liste().FreitagBelegt = true;
        prepareList(kMensaJeSchueler);
        {
            const DbSession session(u"Test"_s);
            findList(kMensaJeSchueler).gather();
        }
        QCOMPARE(listRows(), simpleMensaList(Global().KlassenListe, true));
    }

    // Each of these would grow with the pupils if something were read once for each.
    void theNumberOfStatementsDoesNotGrowWithThePupils() {
        const auto count = [this](int pupils) {
            useSampleSchool(pupils);
            std::vector<qint64> counts;
            for (const auto& [days, two] : {std::pair{u"MO"_s, false}, std::pair{u"MO/DI"_s, true}}) {
                Liste().Wochenplan = {u"a"_s, days, two, u"Alle"_s};
                counts.push_back(statementsOf(kTagesplan));
            }
            const DbSession session(u"Test"_s);
            Global().ListenUnterArt = kKlassenGruppiert;
            CareOptions& care = Liste().MensaLernzeit;
            care.cmbKlasse = u"a"_s;
            care.cmbME_LZ = careOfferings(kListeMensa).front().langname;
            readCareOffering(kListeMensa, care);
            readGroup(groupEntries().front(), Liste().Arbeitsgruppe);
            counts.push_back(statementsOf(kListeMensa));
            counts.push_back(statementsOf(kListeArbeitsgruppe));
            return counts;
        };
        const auto few = count(40);
        QVERIFY(QFile::remove(DatenbankDatei(home())));
        QCOMPARE(count(320), few);
    }
};

KOLIBRI_TEST_MAIN(SimpleWayTest)
#include "simple_way_test.moc"
