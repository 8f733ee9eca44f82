#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "students/student_cache.h"
#include "students/student_list.h"
#include "support/test_base.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

struct Cell {
    QString field;
    QVariant value;
};

void addPupil(const QString& name, bool aktiv, int schulstufe, const std::vector<Cell>& cells = {}) {
    NewRow row = Global().Conn.AddNew(u"Stammdaten"_s);
    row.Set(u"SCH_Name"_s, name).Set(u"aktiv"_s, aktiv).Set(u"Schulstufe"_s, schulstufe);
    for (const auto& [field, value] : cells)
        row.Set(field, value);
    row.Update();
}

void addOffering(const QString& table, const QString& tag, const QString& von, const QString& key) {
    Global()
        .Conn.AddNew(table)
        .Set(u"NR"_s, 7)
        .Set(u"K_Name"_s, key.section(u' ', -1))
        .Set(u"L_Name"_s, u"Lang"_s)
        .Set(u"Tag"_s, tag)
        .Set(u"Zeit_von"_s, von)
        .Set(u"Zeit_bis"_s, u"15:00"_s)
        .Set(u"Zeit"_s, von + u" - 15:00"_s)
        .Set(u"Zeit_K_Name"_s, key)
        .Update();
}

QStringList names(const SchuelerSpeicher& speicher) {
    QStringList result;
    for (const auto& row : speicher.SchuelerDaten)
        result << row[1];
    return result;
}

} // namespace

class StudentCacheTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        TestBase::init();
        useEmptyDatabase();
    }

    void eachSetHasItsPupilsByTheirSurname() {
        const DbSession session(u"Test"_s);
        addPupil(u"Zöbl"_s, true, 3);
        addPupil(u"Arzt"_s, true, 1);
        addPupil(u"ärger"_s, true, 2);
        addPupil(u"Ehemals"_s, false, 4);
        addPupil(u"Klein"_s, true, 0);
        addPupil(u"Nirgends"_s, false, 0);
        SchuelerSpeicher speicher;
        SchuelerLaden(speicher, SchuelerMenge::Aktive);
        QCOMPARE(names(speicher), (QStringList{u"ärger"_s, u"Arzt"_s, u"Zöbl"_s}));
        QCOMPARE(speicher.SchuelerAnzahl(), 3);
        SchuelerLaden(speicher, SchuelerMenge::Deaktivierte);
        QCOMPARE(names(speicher), QStringList{u"Ehemals"_s});
        SchuelerLaden(speicher, SchuelerMenge::Schulanfaenger);
        QCOMPARE(names(speicher), QStringList{u"Klein"_s});
    }

    void anEmptyTableGivesAnEmptyCacheAndNoRows() {
        const DbSession session(u"Test"_s);
        SchuelerSpeicher speicher;
        speicher.SchuelerDaten.resize(3);
        SchuelerLaden(speicher, SchuelerMenge::Aktive);
        QCOMPARE(speicher.SchuelerAnzahl(), 0);
        QVERIFY(SchuelerListenZeilen(speicher).empty());
    }

    void theCellsOfAPupil() {
        const DbSession session(u"Test"_s);
        addPupil(u"Müller"_s, true, 3,
                 {{u"ID"_s, 17},
                  {u"SCH_Vorname"_s, u"Zoë"_s},
                  {u"SCH_Geb"_s, u" 01.02.2015 "_s},
                  {u"Klasse"_s, u"3a"_s},
                  {u"PLZ"_s, u" 01234 "_s},
                  {u"Ort"_s, u" Wien "_s},
                  {u"MI_Beitrag"_s, u"12,5"_s},
                  {u"Neu"_s, true},
                  {u"GR1_MO"_s, u"13:00 - 13:45 ME1"_s},
                  {u"GR5_FR"_s, u"15:00 - 16:00 Chor"_s},
                  {u"GR6_MO"_s, u"nicht in der Liste"_s}});
        SchuelerSpeicher speicher;
        SchuelerLaden(speicher, SchuelerMenge::Aktive);
        const auto& row = speicher.SchuelerDaten.at(0);
        QCOMPARE(row[0], u"17"_s);
        QCOMPARE(row[3], u"01.02.2015"_s);
        QCOMPARE(row[8], u"01234"_s);
        QCOMPARE(row[9], u" Wien "_s);
        QCOMPARE(row[15], u"12,50"_s);
        QCOMPARE(row[16], QString());
        QCOMPARE(row[17], u"Wahr"_s);
        QCOMPARE(row[18], u"Falsch"_s);
        QCOMPARE(row[19], u"13:00 - 13:45 ME1"_s);
        QCOMPARE(row[43], u"15:00 - 16:00 Chor"_s);

        const ListenZeile zeile = SchuelerListenZeilen(speicher).at(0);
        QCOMPARE(zeile.schluessel, u"A00017"_s);
        QCOMPARE(zeile.texte.size(), kListenSpalten);
        QCOMPARE(zeile.texte.at(0), u"0017"_s);
        QCOMPARE(zeile.texte.at(1), u"Müller"_s);
        QCOMPARE(zeile.texte.at(17), u"1"_s);
        QCOMPARE(zeile.texte.at(18), QString());
        QCOMPARE(zeile.texte.at(43), u"15:00 - 16:00 Chor"_s);
        QVERIFY(!zeile.texte.contains(u"nicht in der Liste"_s));
    }

    void aLargeIdKeepsAllItsDigits() {
        SchuelerSpeicher speicher;
        speicher.SchuelerDaten.resize(1);
        speicher.SchuelerDaten[0][0] = u"123456"_s;
        QCOMPARE(SchuelerListenZeilen(speicher).at(0).schluessel, u"A123456"_s);
        QCOMPARE(SchuelerListenZeilen(speicher).at(0).texte.at(0), u"123456"_s);
    }

    void aColumnThatTheFileLacksLeavesItsCellEmpty() {
        const DbSession session(u"Test"_s);
        addPupil(u"Alt"_s, true, 3, {{u"GR5_DI"_s, u"14:00 - 15:00 Chor"_s}});
        Global().Conn.Execute(u"ALTER TABLE Stammdaten DROP COLUMN NichtOG"_s);
        Global().Conn.Execute(u"ALTER TABLE Stammdaten DROP COLUMN GR5_MO"_s);
        SchuelerSpeicher speicher;
        SchuelerLaden(speicher, SchuelerMenge::Aktive);
        QCOMPARE(speicher.SchuelerDaten.at(0)[18], QString());
        QCOMPARE(speicher.SchuelerDaten.at(0)[39], QString());
        QCOMPARE(speicher.SchuelerDaten.at(0)[40], u"14:00 - 15:00 Chor"_s);
    }

    void offeringsAreReadIntoTheColumnsOneToSeven() {
        const DbSession session(u"Test"_s);
        addOffering(u"GR1"_s, u"MO"_s, u"13:00"_s, u"13:00 - 15:00 ME1"_s);
        addOffering(u"GR2"_s, u"DI"_s, u"14:00"_s, u"14:00 - 15:00 LZ1"_s);
        addOffering(u"GR2"_s, u"MI"_s, u"14:00"_s, u"14:00 - 15:00 LZ1"_s);
        SchuelerSpeicher speicher;
        MensaLaden(speicher);
        LernzeitLaden(speicher);
        QCOMPARE(speicher.MensaAnzahl(), 1);
        QCOMPARE(speicher.LernzeitAnzahl(), 2);
        QCOMPARE(speicher.MensaDaten.at(0), (AngebotZeile{QString(), u"7"_s, u"ME1"_s, u"Lang"_s, u"MO"_s,
                                                          u"13:00"_s, u"15:00"_s, u"13:00 - 15:00"_s}));
    }

    void theGroupBoxesListTheOfferingsOfTheirDayByTheirBegin() {
        const DbSession session(u"Test"_s);
        addOffering(u"GR3"_s, u"DI"_s, u"14:00"_s, u"14:00 - 15:00 Chor"_s);
        addOffering(u"GR3"_s, u"DI"_s, u"12:00"_s, u"12:00 - 15:00 Judo"_s);
        addOffering(u"GR3"_s, u"DI"_s, u"14:00"_s, u"14:00 - 15:00 Bau"_s);
        addOffering(u"GR3"_s, u"mi"_s, u"08:00"_s, u"08:00 - 15:00 Früh"_s);
        addOffering(u"GR7"_s, u"FR"_s, u"13:00"_s, u"13:00 - 15:00 Kunst"_s);
        const GruppenListen listen = GruppenListenLaden();
        QCOMPARE(listen[2][1], (QStringList{QString(), u"12:00 - 15:00 Judo"_s, u"14:00 - 15:00 Chor"_s,
                                            u"14:00 - 15:00 Bau"_s}));
        QCOMPARE(listen[2][2], (QStringList{QString(), u"08:00 - 15:00 Früh"_s}));
        QCOMPARE(listen[6][4], (QStringList{QString(), u"13:00 - 15:00 Kunst"_s}));
        QCOMPARE(listen[0][0], QStringList{QString()});
    }

    void theModulesStandBehindTheEmptyTextInTheirOrder() {
        const DbSession session(u"Test"_s);
        auto& conn = Global().Conn;
        conn.AddNew(u"Bausteine"_s).Set(u"ID"_s, 2).Set(u"Bausteine"_s, u"Kurz"_s).Update();
        conn.AddNew(u"Bausteine"_s).Set(u"ID"_s, 0).Set(u"Bausteine"_s, u"Lang"_s).Update();
        QCOMPARE(BausteineLaden(), (QStringList{QString(), u"Lang"_s, u"Kurz"_s}));
    }

    void theHeadings() {
        QStringList heads;
        for (const auto& spalte : SchuelerListenSpalten())
            heads << spalte.kopf;
        QCOMPARE(heads.size(), kListenSpalten);
        QCOMPARE(heads.mid(0, 5),
                 (QStringList{u"ID"_s, u"Schüler NN"_s, u"Schüler VN"_s, u"Geb. Datum"_s, u"KL"_s}));
        QCOMPARE(heads.mid(15, 6), (QStringList{u"Mitgl.Beitr. €"_s, u"Betr.Beitr. €"_s, u"Neu"_s,
                                                u"NichtOG"_s, u"ME-MO"_s, u"ME-DI"_s}));
        QCOMPARE(heads.mid(38, 6), (QStringList{u"2.AG-FR"_s, u"3.AG-MO"_s, u"3.AG-DI"_s, u"3.AG-MI"_s,
                                                u"3.AG-DO"_s, u"3.AG-FR"_s}));
    }

    void whatAHeadingSorts() {
        using enum SortKind;
        const QMap<QString, SortKind> expected{
            {u"ID"_s, Number},       {u"PLZ"_s, Number},   {u"Geb. Datum"_s, Date},     {u"Neu"_s, None},
            {u"NichtOG"_s, None},    {u"3.AG-MO"_s, None}, {u"3.AG-FR"_s, None},        {u"2.AG-DI"_s, Text},
            {u"Schüler NN"_s, Text}, {u"ME-MO"_s, Text},   {u"Mitgl.Beitr. €"_s, Text}, {u"KL"_s, Text}};
        int seen = 0;
        for (const auto& [kopf, sortierung] : SchuelerListenSpalten()) {
            if (!expected.contains(kopf))
                continue;
            QCOMPARE(sortierung, expected[kopf]);
            ++seen;
        }
        QCOMPARE(seen, static_cast<int>(expected.size()));
    }

    void searchLooksAtAllColumns() {
        const std::vector<QStringList> liste{{u"0001"_s, u"Adler"_s, u"Berta"_s, u"Müllerweg 3"_s},
                                             {u"0002"_s, u"Müller"_s, u"Anna"_s, u"Hof 1"_s}};
        QCOMPARE(lvw_Search_NN(liste, u"müller"_s, 1), 1);
        QCOMPARE(lvw_Search_NN(liste, u"MÜLLER"_s, 2), 2);
        QCOMPARE(lvw_Search_NN(liste, u"0002"_s, 1), 2);
        QCOMPARE(lvw_Search_NN(liste, u"Zorn"_s, 1), 0);
        QCOMPARE(lvw_Search_NN(liste, u"adler"_s, 2), 0);
        QCOMPARE(lvw_Search_NN(liste, QString(), 1), 1);
        QCOMPARE(lvw_Search_NN({}, u"x"_s, 1), 0);
    }

    void theOtherSearchGoesOnBehindASubItem() {
        const std::vector<QStringList> liste{
            {u"0001"_s, u"Adler"_s}, {u"0002"_s, u"Adler"_s}, {u"0013"_s, u"x"_s}};
        QCOMPARE(lvw_Search(liste, u"adler"_s, 1), 2);
        QCOMPARE(lvw_Search(liste, u"0001"_s, 1), 1);
        QCOMPARE(lvw_Search(liste, u"zorn"_s, 1), 0);
    }

    void theSearchForANameNeedsTheFirstNameInTheSameColumnOrBehind() {
        const std::vector<QStringList> liste{{u"0001"_s, u"Müller"_s, u"Berta"_s, QString()},
                                             {u"0002"_s, u"Anna"_s, u"Müller"_s, QString()},
                                             {u"0003"_s, u"Müller"_s, u"Anna"_s, QString()},
                                             {u"0004"_s, u"Annamüller"_s, u"x"_s, QString()}};
        QCOMPARE(lvw_Search_NN_VN(liste, u"müller"_s, u"anna"_s, 1), 3);
        QCOMPARE(lvw_Search_NN_VN(liste, u"müller"_s, u"anna"_s, 4), 4);
        QCOMPARE(lvw_Search_NN_VN(liste, u"müller"_s, u"carl"_s, 1), 0);
        // A find in the first column is enough, whatever the second text.
        QCOMPARE(lvw_Search_NN_VN(liste, u"0002"_s, u"carl"_s, 1), 2);
    }
};

KOLIBRI_TEST_MAIN(StudentCacheTest)
#include "student_cache_test.moc"
