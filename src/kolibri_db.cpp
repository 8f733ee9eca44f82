// The command line tool beside the program: makes and repairs databases without opening a window.

#include "core/doors.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/platform/places.h"
#include "core/store/connection.h"
#include "maintenance/jet_process.h"
#include "maintenance/jet_takeover.h"
#include "maintenance/mdlVers111.h"
#include "maintenance/new_database.h"
#include "maintenance/sample_school.h"
#include "maintenance/spreadsheet.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

#include <limits>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

enum ExitCode { kDone = 0, kFailed = 1, kWrongUsage = 2 };

const QString kPupils = u"schueler"_s;
const QString kSeed = u"keim"_s;
const QString kHelp = u"hilfe"_s;
const QString kVersion = u"version"_s;

/// A call that cannot be understood; its words go to whoever made it.
struct WrongUsage {
    QString words;
};

/// What stands behind a verb on the command line.
struct Request {
    QStringList places;
    const QCommandLineParser& options;

    /// A file or folder, absolute.
    QString path(int place) const { return QDir(places.at(place)).absolutePath(); }
    /// A whole number given with an option.
    qint64 number(const QString& option, qint64 least, qint64 most) const {
        bool ok = false;
        const QString text = options.value(option);
        const qint64 result = text.toLongLong(&ok);
        if (!ok || result < least || result > most)
            throw WrongUsage{
                u"--%1: \"%2\" ist keine Zahl von %3 bis %4."_s.arg(option, text).arg(least).arg(most)};
        return result;
    }
};

/// Something that the tool can do.
struct Verb {
    QString name;
    /// What must stand behind it, each as the help names it.
    QStringList places;
    /// Options that it knows, by name.
    QStringList options;
    /// What the help says; empty for a verb that programs use among themselves.
    QString purpose;
    /// Does it and tells what was made. @throws WrongUsage, OfficeError
    QString (*run)(const Request& request);
};

QString shown(const QString& file) {
    return QDir::toNativeSeparators(file);
}

QString makeNew(const Request& request) {
    return u"Leere Datenbank angelegt: %1"_s.arg(shown(createDatabase(request.path(0))));
}

/// Pupils, classes and offerings of a database as it stands in the file.
QString contentOf(const QString& file) {
    Connection conn;
    conn.OpenFile(file);
    const auto count = [&](const QString& select) {
        return conn.Open(u"SELECT COUNT(*) AS Anzahl FROM "_s + select).Number(u"Anzahl");
    };
    return u"%1 Schülerinnen und Schüler in %2 Klassen, %3 Schulanfänger, %4 Deaktivierte"_s
        .arg(count(u"Stammdaten WHERE aktiv AND Schulstufe > 0"_s))
        .arg(count(u"Klassen WHERE Tag_Zahl = 0"_s))
        .arg(count(u"Stammdaten WHERE aktiv AND Schulstufe = 0"_s))
        .arg(count(u"Stammdaten WHERE NOT aktiv"_s));
}

QString makeSample(const Request& request) {
    SampleSchoolOptions options;
    options.pupils = static_cast<int>(request.number(kPupils, kFewestSamplePupils, kMostSamplePupils));
    options.seed = static_cast<quint32>(request.number(kSeed, 0, std::numeric_limits<quint32>::max()));
    const QString file = createSampleSchool(request.path(0), options);
    return u"Beispielschule angelegt: %1\n%2"_s.arg(shown(file), contentOf(file));
}

/// Where the program has never been set up, the protocol of a repair goes beside the database.
QString protocolFolder(const QString& databaseFolder) {
    const QString base = baseFolder();
    return QDir(base).exists() ? base : databaseFolder;
}

QString takeOverFile(const Request& request) {
    const QString folder = request.path(1);
    const QString file = takeOver(request.path(0), folder, {.protocolFolder = protocolFolder(folder)});
    return u"Datenbank übernommen: %1\n%2"_s.arg(shown(file), contentOf(file));
}

QString repair(const Request& request) {
    const QString folder = request.path(0);
    const QString protocols = protocolFolder(folder);
    Global().DB_Pfad = folder;
    const QString copy = repairDatabase(protocols);
    return u"Datenbank repariert: %1\nProtokoll: %2\nStand davor: %3"_s.arg(
        shown(DatenbankDatei(folder)), shown(protocols + u'/' + kRepairProtocol), shown(copy));
}

QString readJet(const Request& request) {
    serveJetReading(request.path(0), request.path(1));
    return {};
}

QString readTable(const Request& request) {
    serveSpreadsheetReading(request.path(0));
    return {};
}

const std::vector<Verb>& verbs() {
    static const std::vector<Verb> table{
        {u"neu"_s, {u"ORDNER"_s}, {}, u"legt eine leere Datenbank an"_s, makeNew},
        {u"beispiel"_s,
         {u"ORDNER"_s},
         {kPupils, kSeed},
         u"legt eine Datenbank mit einer erfundenen Schule an"_s,
         makeSample},
        {u"uebernehmen"_s,
         {u"DATEI"_s, u"ORDNER"_s},
         {},
         u"übernimmt die Datenbank einer älteren Programmversion"_s,
         takeOverFile},
        {u"reparieren"_s,
         {u"ORDNER"_s},
         {},
         u"berichtigt Notizen und Zuweisungen aus der Zeit vor Version 1.1.1"_s,
         repair},
        {kReadJetVerb, {u"DATEI"_s, u"NEUE_DATEI"_s}, {}, {}, readJet},
        {kReadSpreadsheetVerb, {u"DATEI"_s}, {}, {}, readTable}};
    return table;
}

QList<QCommandLineOption> options() {
    const SampleSchoolOptions standard;
    return {{kPupils,
             u"Zahl der Schülerinnen und Schüler, %1 bis %2; ohne Angabe %3"_s.arg(kFewestSamplePupils)
                 .arg(kMostSamplePupils)
                 .arg(standard.pupils),
             u"N"_s, QString::number(standard.pupils)},
            {kSeed, u"gleiche Zahl, gleiche Schule; ohne Angabe %1"_s.arg(standard.seed), u"N"_s,
             QString::number(standard.seed)},
            {{kHelp, u"h"_s, u"help"_s}, u"zeigt diese Hilfe"_s},
            {kVersion, u"zeigt die Version"_s}};
}

/// "--schueler N"
QString usageOf(const QCommandLineOption& option) {
    return (u"--"_s + option.names().first() + u' ' + option.valueName()).trimmed();
}

QString helpText() {
    const auto known = options();
    QString text = u"Aufruf: kolibri-db BEFEHL [DATEI] ORDNER [Optionen]\n\nBefehle:\n"_s;
    for (const auto& verb : verbs()) {
        if (verb.purpose.isEmpty())
            continue;
        text += u"  "_s + verb.name + u' ' + verb.places.join(u' ');
        for (const auto& option : known)
            if (verb.options.contains(option.names().first()))
                text += u" ["_s + usageOf(option) + u']';
        text += u"\n      "_s + verb.purpose + u'\n';
    }
    text += u"\nOptionen:\n"_s;
    for (const auto& option : known)
        text += u"  "_s + usageOf(option) + u"\n      "_s + option.description() + u'\n';
    return text
           + u"\nDie Datenbank heißt %1. Eine vorhandene Datei wird nie überschrieben.\n"_s.arg(
               kDatabaseName);
}

const Verb& findVerb(const QString& name) {
    for (const auto& verb : verbs())
        if (verb.name == name)
            return verb;
    throw WrongUsage{u"Den Befehl \"%1\" gibt es nicht."_s.arg(name)};
}

void checkUsage(const Verb& verb, const QStringList& places, const QCommandLineParser& parser) {
    if (places.size() < verb.places.size())
        throw WrongUsage{
            u"Beim Befehl %1 fehlt: %2"_s.arg(verb.name, verb.places.sliced(places.size()).join(u' '))};
    if (places.size() > verb.places.size())
        throw WrongUsage{
            u"Beim Befehl %1 ist \"%2\" zu viel."_s.arg(verb.name, places.at(verb.places.size()))};
    const QStringList given = parser.optionNames();
    for (const auto& option : given)
        if (!verb.options.contains(option))
            throw WrongUsage{u"Der Befehl %1 kennt die Option --%2 nicht."_s.arg(verb.name, option)};
}

/// Carries out the command line and returns what is to be told.
QString carryOut(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.addOptions(options());
    if (!parser.parse(arguments)) {
        const QStringList unknown = parser.unknownOptionNames();
        throw WrongUsage{unknown.isEmpty() ? u"Hinter einer Option fehlt ihr Wert, oder er ist zu viel."_s
                                           : u"Die Option --%1 gibt es nicht."_s.arg(unknown.first())};
    }
    if (parser.isSet(kHelp))
        return helpText().trimmed();
    if (parser.isSet(kVersion))
        return u"kolibri-db "_s + QCoreApplication::applicationVersion();
    QStringList places = parser.positionalArguments();
    if (places.isEmpty())
        throw WrongUsage{u"Es fehlt der Befehl."_s};
    const Verb& verb = findVerb(places.takeFirst());
    checkUsage(verb, places, parser);
    return verb.run({places, parser});
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(KOLIBRI_VERSION));
    doors().clock = std::make_unique<SystemClock>();
    QTextStream out(stdout);
    QTextStream err(stderr);
    try {
        out << carryOut(QCoreApplication::arguments()) << Qt::endl;
        return kDone;
    } catch (const WrongUsage& error) {
        err << error.words << "\n\n" << helpText() << Qt::flush;
        return kWrongUsage;
    } catch (const OfficeError& error) {
        err << error.message() << Qt::endl;
        for (const auto& more : {error.note(), error.details()})
            if (!more.isEmpty())
                err << more << Qt::endl;
    } catch (const std::exception& error) {
        err << u"Unerwarteter Fehler: "_s << error.what() << Qt::endl;
    }
    return kFailed;
}
