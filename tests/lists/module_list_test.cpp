#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "lists/list_numbers.h"
#include "lists/list_table.h"
#include "lists/module_list.h"
#include "support/list_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

void addModules(int first, int last) {
    const DbSession session(u"Test"_s);
    Transaction transaction(Global().Conn);
    for (int id = first; id <= last; ++id)
        Global().Conn.AddNew(u"Bausteine"_s).Set(u"ID"_s, id).Set(u"Bausteine"_s, u"B"_s).Update();
    transaction.Commit();
}

} // namespace

class ModuleListTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void theWholePage() {
        useEmptyDatabase();
        Global().SchuleOrganisation = u"OGS"_s;
        {
            const DbSession session(u"Test"_s);
            for (const auto& [id, name] :
                 {std::pair{0, u"Frühdienst"_s}, {7, u"Spätdienst"_s}, {8, u"Ferien"_s}})
                Global().Conn.AddNew(u"Bausteine"_s).Set(u"ID"_s, id).Set(u"Bausteine"_s, name).Update();
        }
        const QStringList body = produced(kBausteine);
        QCOMPARE(listRows(),
                 QStringList({u"1: 0 | Frühdienst"_s, u"1: 7 | Spätdienst"_s, u"1: 8 | Ferien"_s}));
        QCOMPARE(body, QStringList({u"<BODY>"_s,
                                    u"<div id=\"kopf_anschrift\">"_s,
                                    u"OGS<br />, "_s,
                                    u"</div>"_s,
                                    u"<div id=\"kopf_mitte\">"_s,
                                    u"<h1>LISTE BAUSTEINE</h1>"_s,
                                    u"</div>"_s,
                                    u"<div id='box_table'>"_s,
                                    u"<TABLE class=\"Tpt\">"_s,
                                    u"<TR class=\"STD_KopfZeile\">"_s,
                                    u"<TD align='center'>NR</TD>"_s,
                                    u"<TD align='center'>BAUSTEIN</TD>"_s,
                                    u"</TR>"_s,
                                    u"<TR class=\"Stammdaten1\">"_s,
                                    u"<TD WIDTH=80pt ALIGN=center>0</TD>"_s,
                                    u"<TD WIDTH=450pt ALIGN=left>Frühdienst</TD>"_s,
                                    u"</TR>"_s,
                                    u"<TR class=\"Stammdaten2\">"_s,
                                    u"<TD WIDTH=80pt ALIGN=center>7</TD>"_s,
                                    u"<TD WIDTH=450pt ALIGN=left>Spätdienst</TD>"_s,
                                    u"</TR>"_s,
                                    u"<TR class=\"Stammdaten1\">"_s,
                                    u"<TD WIDTH=80pt ALIGN=center>8</TD>"_s,
                                    u"<TD WIDTH=450pt ALIGN=left>Ferien</TD>"_s,
                                    u"</TR>"_s,
                                    u"</TABLE>"_s,
                                    u"</div>"_s,
                                    u"</BODY>"_s,
                                    u"</HTML>"_s,
                                    QString()}));
    }

    void aThousandRowsAreARunTimeError() {
        useEmptyDatabase();
        addModules(1, 999);
        QCOMPARE(gathered(kBausteine).size(), 999);
        addModules(1000, 1000);
        try {
            prepareList(kBausteine);
            QFAIL("no error");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.message(), u"Laufzeitfehler '9': Index außerhalb des gültigen Bereichs"_s);
        }
        QVERIFY(!Global().Conn.IsOpen());
    }
};

KOLIBRI_TEST_MAIN(ModuleListTest)
#include "module_list_test.moc"
