// A long day in the office: three programs work on one database at once, with random actions, and each keeps
// a journal of what it has written. At the end every record must stand as its writer left it. Run by hand:
//
//   office_soak [minutes] [rounds]

#include "calendar/offering_cascades.h"
#include "calendar/offering_writes.h"
#include "core/doors.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/store/office_error.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "maintenance/backup.h"
#include "maintenance/sample_school.h"
#include "students/edit_guard.h"
#include "students/pupil_record.h"
#include "students/student_store.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

constexpr int kPrograms = 3;
constexpr int kActionsOfARound = 4;
constexpr int kMondayLunch = 0;

/// Boxes that tell of something; in this office none is expected.
class CountedMessages final : public MessageDoor {
public:
    explicit CountedMessages(QStringList& boxes) : m_boxes(boxes) {}
    MessageAnswer show(const MessageBox& box) override {
        m_boxes << box.text;
        return kAnswerOk;
    }

private:
    QStringList& m_boxes;
};

/// One program: its own pupils and its own lunch, whose state it knows at any moment.
class Workstation {
public:
    Workstation(int number, const QString& folder)
        : m_name(u"Platz%1"_s.arg(number)), m_random(static_cast<quint32>(4711 + number)) {
        Global().DB_Pfad = folder;
        Global().ComputerName = m_name;
        doors().messages = std::make_unique<CountedMessages>(m_boxes);
        doors().clock = std::make_unique<SystemClock>();
    }

    void round() {
        for (int i = 0; i < kActionsOfARound; ++i) {
            try {
                switch (m_random.bounded(8)) {
                case 0:
                    return newPupil();
                case 1:
                case 2:
                case 3:
                    changePupil();
                    break;
                case 4:
                    lookAtSomebody();
                    break;
                case 5:
                    lunch();
                    break;
                case 6:
                    printList();
                    break;
                default:
                    backup();
                    break;
                }
            } catch (const OfficeError& error) {
                CloseDB();
                m_boxes << error.message() + u' ' + error.details();
            }
        }
    }

    /// What must be found in the database, and what was said on the way.
    QJsonObject journal() const {
        QJsonObject pupils;
        for (auto pupil = m_pupils.begin(); pupil != m_pupils.end(); ++pupil)
            pupils[pupil.key()] = QJsonObject{{u"Kennung"_s, pupil->kennung}, {u"lunch"_s, pupil->hasLunch}};
        return {{u"name"_s, m_name},     {u"pupils"_s, pupils},
                {u"lunch"_s, m_key},     {u"boxes"_s, m_boxes.join(u'\n')},
                {u"writes"_s, m_writes}, {u"held"_s, m_held}};
    }

private:
    struct Pupil {
        qint16 id = 0;
        QString kennung;
        bool hasLunch = false;
    };

    void newPupil() {
        const QString family = m_name + u'-' + QString::number(m_pupils.size());
        SchuelerDatensatz record;
        record.SCH = {family, u"Kind"_s, u"01.02.2017"_s, u"1a"_s};
        record.Kennung = u"neu"_s;
        const DbSession session(u"Neues Kind"_s);
        SchuelerNeuSchreiben(record);
        const Recordset rs = Global().Conn.Open(u"SELECT ID FROM Stammdaten WHERE SCH_Name = ?"_s, {family});
        m_pupils.insert(family, {static_cast<qint16>(rs.Number(u"ID")), record.Kennung, false});
        ++m_writes;
    }

    /// Opens a record as a click on its row does. False when another workstation holds it.
    bool claim(qint16 id) {
        if (!DatensatzBeanspruchen(id))
            return true;
        ++m_held;
        return false;
    }

    void changePupil() {
        if (m_pupils.isEmpty())
            return newPupil();
        auto pupil = m_pupils.begin();
        std::advance(pupil, m_random.bounded(static_cast<int>(m_pupils.size())));
        const DbSession session(u"Kind ändern"_s);
        if (!claim(pupil->id))
            return;
        auto record = SchuelerLesen(pupil->id);
        if (!record)
            return;
        record->Kennung = QString::number(m_random.generate());
        const bool lunch = !m_key.isEmpty() && m_random.bounded(2) == 1;
        record->GR[kMondayLunch][0] = lunch ? m_key : QString();
        SchuelerAendern(*record);
        pupil->kennung = record->Kennung;
        pupil->hasLunch = lunch;
        ++m_writes;
    }

    void lookAtSomebody() {
        const DbSession session(u"Nachsehen"_s);
        Recordset rs = Global().Conn.Open(u"SELECT ID FROM Stammdaten ORDER BY ID"_s);
        for (int steps = m_random.bounded(rs.RecordCount()); steps > 0; --steps)
            rs.MoveNext();
        if (claim(static_cast<qint16>(rs.Number(u"ID"))))
            StempelFreigeben();
        Global().AktuelleSchuelerID = 0;
    }

    Offering lunchAt(int hour) const {
        Offering offering;
        offering[kBoxKName] = u'P' + m_name.right(1);
        offering[kBoxLName] = u"Essen "_s + m_name;
        offering[kBoxTag] = u"MO"_s;
        offering[kBoxVon] = u"%1:00"_s.arg(hour);
        offering[kBoxBis] = u"%1:30"_s.arg(hour);
        offering.tage = QStringList{u"MO"_s};
        return offering;
    }

    /// Enters the lunch, moves it, or deletes it.
    void lunch() {
        const DbSession session(u"Essen"_s);
        if (m_key.isEmpty()) {
            m_hour = 11;
            m_lunchId = static_cast<int>(ME_LZ_AG_Daten_NEU(OfferingKind::Mensa, lunchAt(m_hour)));
            m_key = lunchAt(m_hour).Zeit_K_Name();
        } else {
            const Offering old = lunchAt(m_hour);
            const ClickedOffering clicked{m_lunchId, old.Zeit(), u"MO"_s, m_key};
            if (m_random.bounded(6) == 0) {
                ME_Daten_LÖSCHEN(old, clicked);
                m_key.clear();
                for (auto& pupil : m_pupils)
                    pupil.hasLunch = false;
            } else {
                m_hour = m_hour == 18 ? 11 : m_hour + 1;
                ME_Daten_KORREKTUR(lunchAt(m_hour), clicked);
                m_key = lunchAt(m_hour).Zeit_K_Name();
            }
        }
        ++m_writes;
    }

    void printList() {
        Liste().Dialog.chkKlasse = true;
        prepareList(kErweiterteListe);
        producePage();
    }

    void backup() {
        const DbSession session(u"Sicherung"_s);
        if (backupText(Global().Conn).isEmpty())
            m_boxes << u"leere Sicherung"_s;
    }

    QString m_name;
    QRandomGenerator m_random;
    QMap<QString, Pupil> m_pupils;
    QString m_key;
    int m_lunchId = 0;
    int m_hour = 0;
    QStringList m_boxes;
    int m_writes = 0;
    int m_held = 0;
};

int work(int number, const QString& folder, int rounds, int pause) {
    Workstation workstation(number, folder);
    for (int i = 0; i < rounds; ++i) {
        workstation.round();
        QThread::msleep(static_cast<unsigned long>(pause));
    }
    QTextStream(stdout) << QJsonDocument(workstation.journal()).toJson(QJsonDocument::Compact) << '\n';
    return EXIT_SUCCESS;
}

/// What stands differently from the journal of its writer.
QStringList differences(const QJsonObject& journal) {
    QStringList found;
    const QString key = journal.value(u"lunch"_s).toString();
    const QJsonObject pupils = journal.value(u"pupils"_s).toObject();
    for (auto pupil = pupils.begin(); pupil != pupils.end(); ++pupil) {
        const Recordset rs = Global().Conn.Open(
            u"SELECT Kennung, GR1_MO FROM Stammdaten WHERE SCH_Name = ? AND aktiv = true"_s, {pupil.key()});
        const QJsonObject wanted = pupil.value().toObject();
        if (rs.RecordCount() != 1)
            found << u"%1: %2 Datensätze"_s.arg(pupil.key()).arg(rs.RecordCount());
        else if (rs.Text(u"Kennung") != wanted.value(u"Kennung"_s).toString())
            found << u"%1: Kennung %2"_s.arg(pupil.key(), rs.Text(u"Kennung"));
        else if (rs.Text(u"GR1_MO") != (wanted.value(u"lunch"_s).toBool() ? key : QString()))
            found << u"%1: Montag %2"_s.arg(pupil.key(), rs.Text(u"GR1_MO"));
    }
    const Recordset lunch = Global().Conn.Open(u"SELECT Zeit_K_Name FROM GR1 WHERE L_Name = ?"_s,
                                               {u"Essen "_s + journal.value(u"name"_s).toString()});
    if ((lunch.Eof() ? QString() : lunch.Text(0)) != key)
        found << u"Essen: %1"_s.arg(lunch.Eof() ? QString() : lunch.Text(0));
    return found;
}

int soak(int minutes, int rounds) {
    constexpr int kMsOfAMinute = 60000;
    QTextStream out(stdout);
    const QTemporaryDir folder;
    createSampleSchool(folder.path(), {});
    std::vector<std::unique_ptr<QProcess>> programs;
    for (int number = 1; number <= kPrograms; ++number) {
        auto& program = programs.emplace_back(std::make_unique<QProcess>());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        const QString home = folder.filePath(u"platz%1"_s.arg(number));
        QDir().mkpath(home + u"/ProgramData"_s);
        environment.insert(u"KOLIBRI_HOME"_s, home);
        program->setProcessEnvironment(environment);
        program->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program->start(QCoreApplication::applicationFilePath(),
                       {u"--platz"_s, QString::number(number), folder.path(), QString::number(rounds),
                        QString::number(minutes * kMsOfAMinute / rounds)});
    }
    QStringList faults;
    int writes = 0;
    int held = 0;
    Global().DB_Pfad = folder.path();
    for (const auto& program : programs) {
        program->waitForFinished(-1);
        const QJsonObject journal = QJsonDocument::fromJson(program->readAllStandardOutput()).object();
        if (program->exitCode() != 0 || journal.isEmpty())
            faults << u"Ein Programm endete vorzeitig."_s;
        if (const QString boxes = journal.value(u"boxes"_s).toString(); !boxes.isEmpty())
            faults << boxes;
        writes += journal.value(u"writes"_s).toInt();
        held += journal.value(u"held"_s).toInt();
        const DbSession session(u"Vergleich"_s);
        faults << differences(journal);
    }
    {
        const DbSession session(u"Prüfung"_s);
        const QString integrity = Global().Conn.Open(u"PRAGMA integrity_check"_s).Text(0);
        if (integrity != u"ok")
            faults << integrity;
    }
    out << kPrograms << " programs, " << rounds << " rounds each, " << minutes << " minutes: " << writes
        << " records written, " << held << " refused because another workstation held them, " << faults.size()
        << " faults\n";
    for (const auto& fault : std::as_const(faults))
        out << fault << '\n';
    return faults.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList words = application.arguments();
    if (words.value(1) == u"--platz")
        return work(words.value(2).toInt(), words.value(3), words.value(4).toInt(), words.value(5).toInt());
    constexpr int kMinutes = 10;
    constexpr int kRounds = 200;
    return soak(words.size() > 1 ? words.at(1).toInt() : kMinutes,
                words.size() > 2 ? words.at(2).toInt() : kRounds);
}
