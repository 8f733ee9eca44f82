// A workstation that dies while it corrects or deletes an offering: stops in front of a statement, says so,
// and waits to be killed.
//
//   cascade_probe <folder of the database> <mode> <ID of the offering> <number of the statement> [box=text
//   ...]
//
// Answers with the statement in front of which it stopped, or "done" when there are fewer.

#include "calendar/offering_cascades.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"

#include <QCoreApplication>
#include <QSqlDriver>

#include <iostream>
#include <sqlite3.h>
#include <string>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

/// How many statements may still begin.
int g_statementsLeft = 0;

int beforeStatement(unsigned, void*, void*, void* text) {
    if (--g_statementsLeft > 0)
        return 0;
    std::cout << static_cast<const char*>(text) << std::endl;
    std::string line;
    std::getline(std::cin, line);
    return 0;
}

sqlite3* engineOfOpenConnection() {
    for (const auto& name : QSqlDatabase::connectionNames())
        if (const QSqlDatabase database = QSqlDatabase::database(name, false); database.isOpen())
            return *static_cast<sqlite3* const*>(database.driver()->handle().constData());
    return nullptr;
}

void run(const QStringList& arguments) {
    const OfferingMode mode = offeringMode(arguments.value(2));
    const int id = arguments.value(3).toInt();
    const DbSession session(u"Probe"_s);
    // With hardly any memory for pages the engine must write into the file long before the end.
    Global().Conn.Execute(u"PRAGMA cache_size = 3"_s);
    Offering offering = ME_LZ_AG_DatensatzLesen(mode.kind, id);
    const ClickedOffering clicked{id, offering.Zeit(), offering[kBoxTag], offering.Zeit_K_Name()};
    for (const auto& typed : arguments.sliced(5))
        offering.boxes.at(typed.section(u'=', 0, 0).toUInt()) = typed.section(u'=', 1);
    g_statementsLeft = arguments.value(4).toInt();
    sqlite3_trace_v2(engineOfOpenConnection(), SQLITE_TRACE_STMT, beforeStatement, nullptr);
    ME_LZ_AG_Daten_ÄNDERN(mode, offering, clicked);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 5)
        return 2;
    Global().DB_Pfad = arguments.at(1);
    try {
        run(arguments);
    } catch (const StoreError& error) {
        std::cout << "error " << error.message().toStdString() << std::endl;
        return 1;
    }
    std::cout << "done" << std::endl;
    return 0;
}
