#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "lists/list_numbers.h"
#include "lists/module_list.h"
#include "support/list_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

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
};

KOLIBRI_TEST_MAIN(ModuleListTest)
#include "module_list_test.moc"
