#include "calendar/modules.h"
#include "core/widgets/application.h"
#include "support/driving.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class ModulesTest : public TestBase {
    Q_OBJECT

private:
    static qint64 newModule(const QString& text) {
        const DbSession session(u"Test"_s);
        return Bausteine_Daten_Neu(text);
    }

    static void addPupil(const QString& baustein, bool aktiv) {
        addRow(u"Stammdaten"_s, {{u"SCH_Name"_s, u"Test"_s}, {u"Baustein"_s, baustein}, {u"aktiv"_s, aktiv}});
    }

private Q_SLOTS:
    void theFirstModuleGetsId0() {
        useEmptyDatabase();
        QCOMPARE(newModule(u"Lang"_s), 0);
        QCOMPARE(newModule(u"Kurz"_s), 1);
        QCOMPARE(rowsOf(u"Bausteine"_s), QStringList({u"ID=0; Bausteine=Lang"_s, u"ID=1; Bausteine=Kurz"_s}));
    }

    void theListKeepsTheOrderOfEntry() {
        useEmptyDatabase();
        newModule(u"Zeit"_s);
        newModule(u"Anfang"_s);
        const DbSession session(u"Test"_s);
        const auto modules = Bausteine_DatenEinlesen();
        QCOMPARE(modules.size(), std::size_t(2));
        QCOMPARE(modules[0].Bausteine, u"Zeit"_s);
        QCOMPARE(modules[1].Bausteine, u"Anfang"_s);
    }

    void renamingRenamesItOnEveryPupilAlsoADeactivatedOne() {
        useEmptyDatabase();
        newModule(u"Lang"_s);
        newModule(u"Kurz"_s);
        addPupil(u"Lang"_s, true);
        addPupil(u"Lang"_s, false);
        addPupil(u"Kurz"_s, true);
        const auto before = wholeDatabase();
        {
            const DbSession session(u"Test"_s);
            Bausteine_Daten_Korrektur(0, u"Langbaustein"_s, u"Lang"_s);
        }
        QCOMPARE(columnOf(u"Stammdaten"_s, u"Baustein"_s),
                 QStringList({u"Langbaustein"_s, u"Langbaustein"_s, u"Kurz"_s}));
        QCOMPARE(rowsOf(u"Bausteine"_s),
                 QStringList({u"ID=0; Bausteine=Langbaustein"_s, u"ID=1; Bausteine=Kurz"_s}));
        QCOMPARE(changedTables(before, wholeDatabase()), QStringList({u"Bausteine"_s, u"Stammdaten"_s}));
    }

    void deletingOneOfTwoWithOneTextEmptiesAllPupilsAndLeavesTheOtherRow() {
        useEmptyDatabase();
        newModule(u"Lang"_s);
        newModule(u"Lang"_s);
        addPupil(u"Lang"_s, true);
        addPupil(u"Lang"_s, false);
        addPupil(u"Kurz"_s, true);
        {
            const DbSession session(u"Test"_s);
            Bausteine_Daten_Löschen(0, u"Lang"_s);
        }
        QCOMPARE(rowsOf(u"Bausteine"_s), QStringList{u"ID=1; Bausteine=Lang"_s});
        QCOMPARE(columnOf(u"Stammdaten"_s, u"Baustein"_s), QStringList({u""_s, u""_s, u"Kurz"_s}));
    }

    void aModuleWithoutATextIsNotThatOfPupilsWithoutAModule() {
        useEmptyDatabase();
        addRow(u"Bausteine"_s, {{u"ID"_s, 0}});
        addPupil(u""_s, true);
        const DbSession session(u"Test"_s);
        Bausteine_Daten_Korrektur(0, u"Lang"_s, *Baustein_Text(0));
        QCOMPARE(columnOf(u"Bausteine"_s, u"Bausteine"_s), QStringList{u"Lang"_s});
        QCOMPARE(columnOf(u"Stammdaten"_s, u"Baustein"_s), QStringList{u""_s});
    }

    void aModuleThatIsGoneHasNoText() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        QCOMPARE(Baustein_Text(4), std::nullopt);
    }

    /// The office has always had to write such names without it; files of the office rely on none being
    /// there.
    void anApostropheBreaksTheStatement() {
        useEmptyDatabase();
        newModule(u"Lang"_s);
        addPupil(u"Lang"_s, true);
        const auto before = wholeDatabase();
        const DbSession session(u"Test"_s);
        QVERIFY_THROWS_EXCEPTION(StoreError, Bausteine_Daten_Korrektur(0, u"Oma's Baustein"_s, u"Lang"_s));
        QCOMPARE(wholeDatabase(), before);
    }

    void aNewModuleMayHoldAnApostrophe() {
        useEmptyDatabase();
        newModule(u"Oma's Baustein"_s);
        QCOMPARE(columnOf(u"Bausteine"_s, u"Bausteine"_s), QStringList{u"Oma's Baustein"_s});
    }
};

KOLIBRI_TEST_MAIN(ModulesTest)
#include "modules_test.moc"
