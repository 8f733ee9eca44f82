#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/store/schema.h"
#include "core/widgets/application.h"
#include "maintenance/new_database.h"
#include "support/test_base.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

/// What a call throws: its kind and message; no value when it throws nothing.
template <typename Call> std::optional<std::pair<StoreError::Kind, QString>> errorOf(const Call& call) {
    try {
        call();
    } catch (const StoreError& error) {
        return std::pair(error.kind(), error.message());
    }
    return std::nullopt;
}

QByteArray contentOf(const QString& file) {
    QFile handle(file);
    return handle.open(QIODevice::ReadOnly) ? handle.readAll() : QByteArray("not readable");
}

/// Every file of a folder, journals included.
QStringList filesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
}

/// A row of Einstellungen as one line: the columns in their order with "|" between them, nothing for a null.
QStringList settingsLines(Connection& conn) {
    QStringList lines;
    for (Recordset rs = conn.Open(u"SELECT * FROM Einstellungen"_s); !rs.Eof(); rs.MoveNext()) {
        QStringList cells;
        for (int field = 0; field < rs.FieldCount(); ++field)
            cells << rs.Text(field);
        lines << cells.join(u'|');
    }
    return lines;
}

/// Feld, Grösse, Fett, Kursiv, NameKurz, NameZuerst, BeitragAktiv, BeitragBezeichnung, SchülerZusatz,
/// Bezeichnung, Nummer, KategorieKontakte.
QStringList expectedSettings() {
    QStringList lines{u"TabelleKopfZeile|11|Wahr|Falsch||||||||"_s,
                      u"TabelleZeile|10|Falsch|Falsch||||||||"_s,
                      u"TabelleSummenZeile|10|Wahr|Falsch||||||||"_s,
                      u"Name_Liste_ME_LZ||Falsch|Falsch|Nachname gekürzt|Vorname Nachname||||||"_s,
                      u"Name_Liste_AG||Falsch|Falsch|Ungekürzt|Vorname Nachname||||||"_s,
                      u"Name_Wochenplan||Falsch|Falsch|Ungekürzt|Vorname Nachname||||||"_s,
                      u"WochenPlanKopfZeile|10|Wahr|Falsch||||||||"_s,
                      u"WochenPlanZeile|8|Falsch|Falsch||||||||"_s,
                      u"Ü-Zeitüberschneidung|1|Falsch|Falsch||||||||"_s,
                      u"Beitrag_0||Falsch|Falsch|||1|Mitgliedsbeitrag||||"_s,
                      u"Beitrag_1||Falsch|Falsch|||1|Betreuungsbeitrag||||"_s,
                      u"Beitrag_2||Falsch|Falsch|||0|||||"_s,
                      u"Beitrag_3||Falsch|Falsch|||0|||||"_s,
                      u"Beitrag_4||Falsch|Falsch|||0|||||"_s,
                      u"Beitrag_5||Falsch|Falsch|||0|||||"_s,
                      u"Beitrag_6||Falsch|Falsch|||0|||||"_s,
                      u"Schwimmer||Falsch|Falsch|||||0|||"_s,
                      u"Baustein||Falsch|Falsch|||||0|||"_s,
                      u"Kennung||Falsch|Falsch|||||0|||"_s};
    const QStringList labels{u"Nachname"_s,    u"Vorname"_s, u"Strasse"_s,     u"PLZ"_s,    u"Ort"_s,
                             u"Tel. Privat"_s, u"Mobil"_s,   u"Tel. Arbeit"_s, u"E-Mail"_s, u"Verw. Verh."_s};
    const QStringList categories{u"Name"_s,    u"Name"_s,    u"Adresse"_s, u"Adresse"_s, u"Adresse"_s,
                                 u"Telefon"_s, u"Telefon"_s, u"Telefon"_s, u"E-Mail"_s,  u"Sonstiges"_s};
    for (const auto& key : {u"GV1"_s, u"GV2"_s, u"GV3"_s, u"Kontakt"_s})
        for (int number = 0; number < labels.size(); ++number)
            lines << u"%1||Falsch|Falsch||||||%2|%3|%4"_s.arg(key, labels.at(number), QString::number(number),
                                                              key == u"Kontakt"_s ? categories.at(number)
                                                                                  : QString());
    return lines;
}

} // namespace

class NewDatabaseTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void allTablesAreThereWithTheirColumns_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<int>("columns");
        const std::vector<std::pair<QString, int>> tables{{u"Stammdaten"_s, 102},
                                                          {u"GR1"_s, 14},
                                                          {u"GR2"_s, 14},
                                                          {u"GR3"_s, 15},
                                                          {u"GR4"_s, 14},
                                                          {u"GR5"_s, 14},
                                                          {u"Klassen"_s, 10},
                                                          {u"Einstellungen"_s, 12},
                                                          {u"SCH_Notiz"_s, 10},
                                                          {u"ME_LZ_AG_Notizen"_s, 12},
                                                          {u"Temp_Zeiten"_s, 4},
                                                          {u"WP_Notiz"_s, 6},
                                                          {u"Unterrichtseinheiten"_s, 3},
                                                          {u"Stundenplan"_s, 8},
                                                          {u"GR6"_s, 14},
                                                          {u"GR7"_s, 14},
                                                          {u"Liste_AG"_s, 8},
                                                          {u"Parameter"_s, 12},
                                                          {u"WochenplanTexte"_s, 3},
                                                          {u"Bausteine"_s, 2},
                                                          {u"KategorieKontakte"_s, 2}};
        for (const auto& [table, columns] : tables)
            QTest::newRow(qPrintable(table)) << table << columns;
    }

    void allTablesAreThereWithTheirColumns() {
        QFETCH(QString, table);
        QFETCH(int, columns);
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        QCOMPARE(int(Global().Conn.Columns(table).size()), columns);
    }

    void theFileHasExactlyTheTablesAndColumnsOfTheSchema() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        QStringList names;
        for (const auto& table : schema()) {
            names << table.name;
            const auto expected = table.columnInfos();
            const auto& found = Global().Conn.Columns(table.name);
            QCOMPARE(found.size(), expected.size());
            for (std::size_t i = 0; i < expected.size(); ++i) {
                QCOMPARE(found[i].name, expected[i].name);
                QVERIFY2(found[i].kind == expected[i].kind, qPrintable(table.name + u'.' + found[i].name));
            }
        }
        QCOMPARE(names.size(), 21);
        QCOMPARE(Global().Conn.Tables(), names);
    }

    void everySettingsRowHasItsValues() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        QStringList found = settingsLines(Global().Conn);
        QStringList expected = expectedSettings();
        QCOMPARE(found.size(), 59);
        found.sort();
        expected.sort();
        QCOMPARE(found, expected);
    }

    void aSettingsKeyInAnotherSpellingIsTheSameRow() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        for (const auto& key :
             {u"WochenplanKopfZeile"_s, u"WochenPlanKopfZeile"_s, u"wochenplankopfzeile"_s}) {
            Recordset rs = Global().Conn.Open(u"SELECT Grösse FROM Einstellungen WHERE Feld = ?"_s, {key});
            QCOMPARE(rs.RecordCount(), 1);
            QCOMPARE(rs.Number(u"Grösse"), 10);
        }
    }

    void theContactCategoriesAreNumberedFromZero() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        const QStringList expected{u"ID=0; Name=Name"_s, u"ID=1; Name=Adresse"_s, u"ID=2; Name=Telefon"_s,
                                   u"ID=3; Name=E-Mail"_s, u"ID=4; Name=Sonstiges"_s};
        QCOMPARE(test::tableRows(Global().Conn, u"KategorieKontakte"_s), expected);
    }

    void allOtherTablesAreEmptyAndTheFileIsSound() {
        useEmptyDatabase();
        const auto tables = test::wholeDatabase();
        for (auto it = tables.begin(); it != tables.end(); ++it)
            if (it.key() != u"Einstellungen"_s && it.key() != u"KategorieKontakte"_s)
                QVERIFY2(it->isEmpty(), qPrintable(it.key()));
        const DbSession session(u"Test"_s);
        QCOMPARE(Global().Conn.IntegrityProblems(), QStringList());
    }

    void anExistingFileStaysByteForByte_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("foreign") << QByteArray("Liste der Handwerker\r\n\0\x01 bitte nicht anfassen", 44);
    }

    void anExistingFileStaysByteForByte() {
        QFETCH(QByteArray, content);
        const QString file = DatenbankDatei(scratch());
        QFile handle(file);
        QVERIFY(handle.open(QIODevice::WriteOnly));
        handle.write(content);
        handle.close();
        const auto error = errorOf([&] { createDatabase(scratch()); });
        QVERIFY(error);
        QVERIFY(error->first == StoreError::Kind::KeyTaken);
        QVERIFY2(error->second.contains(file) && error->second.contains(u"gibt es bereits"_s),
                 qPrintable(error->second));
        QCOMPARE(contentOf(file), content);
        QCOMPARE(filesIn(scratch()), QStringList{kDatabaseName});
    }

    void anExistingDatabaseStaysByteForByte() {
        const QString file = createDatabase(scratch());
        const QByteArray before = contentOf(file);
        QVERIFY(before.size() > 10'000);
        QVERIFY(errorOf([&] { createDatabase(scratch()); }));
        QCOMPARE(contentOf(file), before);
    }

    void aFolderUnderTheNameOfTheDatabaseStaysToo() {
        QVERIFY(QDir(scratch()).mkdir(kDatabaseName));
        QVERIFY(errorOf([&] { createDatabase(scratch()); }));
        QVERIFY(QFileInfo(DatenbankDatei(scratch())).isDir());
    }

    void aMissingFolderIsToldAndNotMade() {
        const QString folder = scratch() + u"/gibt es nicht"_s;
        const auto error = errorOf([&] { createDatabase(folder); });
        QVERIFY(error);
        QVERIFY(error->first == StoreError::Kind::Missing);
        QVERIFY2(error->second.contains(QDir::toNativeSeparators(folder)), qPrintable(error->second));
        QVERIFY(!QFileInfo::exists(folder));
    }

    void aFolderBelowAFileIsRefused() {
        QFile file(scratch() + u"/datei"_s);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        for (const auto& folder : {file.fileName(), file.fileName() + u"/ordner"_s}) {
            const auto error = errorOf([&] { createDatabase(folder); });
            QVERIFY(error);
            QVERIFY(error->first == StoreError::Kind::Missing);
        }
        QCOMPARE(filesIn(scratch()), QStringList{u"datei"_s});
    }

    void aFolderThatTakesNoFilesIsTold() {
        // The one folder in which no user can make a file, the administrator neither.
        const QString folder = u"/proc"_s;
        if (!QDir(folder).exists())
            QSKIP("no such folder on this system");
        const auto error = errorOf([&] { createDatabase(folder); });
        QVERIFY(error);
        QVERIFY(error->first == StoreError::Kind::ReadOnly);
        QVERIFY2(error->second.contains(u"kann nicht angelegt werden"_s), qPrintable(error->second));
    }

    void aFailureHalfWayLeavesNoFile() {
        const auto fill = [](Connection& conn) {
            for (int i = 0; i < 1000; ++i)
                conn.AddNew(u"Bausteine"_s).Set(u"ID"_s, i).Set(u"Bausteine"_s, u"Baustein"_s).Update();
            conn.AddNew(u"Bausteine"_s).Set(u"ID"_s, u"keine Zahl"_s).Update();
        };
        const auto error = errorOf([&] { createDatabase(scratch(), fill); });
        QVERIFY(error);
        QVERIFY(error->first == StoreError::Kind::Value);
        QCOMPARE(filesIn(scratch()), QStringList());
        // The folder is free for the next attempt.
        QVERIFY(!errorOf([&] { createDatabase(scratch()); }));
    }

    void anyOtherFailureLeavesNoFileEither() {
        const auto fill = [](Connection&) { throw std::runtime_error("no memory"); };
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, createDatabase(scratch(), fill));
        QCOMPARE(filesIn(scratch()), QStringList());
    }

    void whatTheCallerFillsInIsThere() {
        const QString file = createDatabase(home(), [](Connection& conn) {
            conn.AddNew(u"Bausteine"_s).Set(u"ID"_s, 7).Set(u"Bausteine"_s, u"Frühstück"_s).Update();
        });
        QCOMPARE(file, DatenbankDatei(home()));
        QCOMPARE(test::wholeDatabase().value(u"Bausteine"_s), QStringList{u"ID=7; Bausteine=Frühstück"_s});
    }
};

KOLIBRI_TEST_MAIN(NewDatabaseTest)
#include "new_database_test.moc"
