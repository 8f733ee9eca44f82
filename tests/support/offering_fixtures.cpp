#include "support/offering_fixtures.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;

namespace kolibri::test {

void addOffering(const QString& gr, const QString& langname, const QString& kurzname, const QString& tag,
                 const QString& zeit, const QString& einheit, const FieldValues& values) {
    FieldValues all{{u"L_Name"_s, langname},
                    {u"K_Name"_s, kurzname},
                    {u"Tag"_s, tag},
                    {u"Zeit"_s, zeit},
                    {u"Zeit_K_Name"_s, zeit + u' ' + kurzname},
                    {u"UE_Zeit"_s, einheit}};
    all.insert(all.end(), values.begin(), values.end());
    addRow(gr, all);
}

void addGroup(const QString& langname, const QString& kurzname, const QString& tag, const QString& zeit,
              const QString& einheit, const FieldValues& values) {
    for (const auto& gr : {u"GR3"_s, u"GR4"_s, u"GR5"_s, u"GR6"_s, u"GR7"_s})
        addOffering(gr, langname, kurzname, tag, zeit, einheit, values);
}

void addAssignmentNote(qint64 pupil, const QString& gr, const QString& tag, const QString& langname,
                       const QString& zeit, const QString& kurzname, const QString& text) {
    addRow(u"SCH_Notiz"_s, {{u"SCH_ID"_s, pupil},
                            {u"GR"_s, gr},
                            {u"Tag"_s, tag},
                            {u"Tag_Zahl"_s, TagZahl(tag)},
                            {u"L_Name"_s, langname},
                            {u"Zeit"_s, zeit},
                            {u"Zeit_K_Name"_s, zeit + u' ' + kurzname},
                            {u"Notiz"_s, text}});
}

void addDayPlanNote(qint64 pupil, const QString& einheit, const QString& tag, const QString& text) {
    addRow(u"WP_Notiz"_s, {{u"ID"_s, pupil},
                           {u"SCH_ID"_s, pupil},
                           {u"UE"_s, einheit},
                           {u"Tag"_s, tag},
                           {u"Tag_Zahl"_s, TagZahl(tag)},
                           {u"Notiz"_s, text}});
}

void addUnits(const QStringList& zeiten) {
    int id = 0;
    for (const auto& zeit : zeiten)
        addRow(u"Unterrichtseinheiten"_s, {{u"ID"_s, ++id}, {u"Zeit"_s, zeit}});
}

void addTeaching(const QString& klasse, const QString& tag, const QVariant& ende) {
    addRow(u"Klassen"_s, {{u"Klasse"_s, klasse},
                          {u"Tag"_s, tag},
                          {u"Tag_Zahl"_s, TagZahl(tag)},
                          {u"Unterrichtsende"_s, ende}});
}

} // namespace kolibri::test
