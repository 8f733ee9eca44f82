#include "maintenance/new_database.h"

#include "core/mdlAllgemein.h"
#include "core/store/schema.h"
#include "maintenance/settings_rows.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

void createTables(Connection& conn) {
    for (const auto& table : schema())
        conn.CreateTable(table.name, table.columnInfos());
}

void createRows(Connection& conn) {
    const QString settings = u"Einstellungen"_s;
    for (const auto* rows : {&baseSettingsRows(), &nameFormatRows(), &tagesplanFontRows(), &overlapRows(),
                             &feeRows(), &additionalFieldRows(), &contactLabelRows()})
        addRows(conn, settings, *rows);
    addRows(conn, settings, contactRows(contactLabels()));
    for (int id = 0; id < contactCategories().size(); ++id)
        addRows(conn, u"KategorieKontakte"_s, {{{u"ID"_s, id}, {u"Name"_s, contactCategories().at(id)}}});
}

} // namespace

QString createDatabase(const QString& folder, const std::function<void(Connection&)>& fill) {
    if (!QDir(folder).exists())
        throw StoreError(StoreError::Kind::Missing,
                         u"Den Ordner %1 gibt es nicht."_s.arg(QDir::toNativeSeparators(folder)));
    const QString file = DatenbankDatei(folder);
    Connection conn;
    conn.SetPurpose(u"Neue Datenbank anlegen"_s);
    conn.CreateFile(file);
    try {
        Transaction transaction(conn);
        createTables(conn);
        createRows(conn);
        if (fill)
            fill(conn);
        transaction.Commit();
    } catch (...) {
        conn.Close();
        QFile::remove(file);
        throw;
    }
    return file;
}

} // namespace kolibri
