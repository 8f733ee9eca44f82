#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <vector>

namespace kolibri {

struct SampleTown {
    QString plz;
    QString name;
};

/// How a contact person who is no parent is related to the pupil.
struct SampleRelation {
    QString word;
    bool female = false;
};

/// A care module with its fee a month and the least number of days a week that such a pupil stays.
struct SampleModule {
    QString name;
    int cents = 0;
    int days = 0;
};

struct SampleListText {
    QString before;
    QString after;
};

/// Names, texts and the plan of the week from which the sample school is made: the file beispielschule.json.
struct SampleMaterial {
    QStringList girls;
    QStringList boys;
    QStringList surnames;
    QStringList streets;
    std::vector<SampleTown> towns;
    std::vector<SampleRelation> relations;
    std::vector<SampleModule> modules;
    QStringList marks;
    QStringList remarks;
    QStringList notes;
    QString longNote;
    QStringList dayPlanNotes;
    QStringList subjects;
    std::vector<SampleListText> listTexts;
    QStringList classTexts;
    /// Teaching units, teaching times and offerings, read by makeSampleCalendar.
    QJsonObject plan;
};

/// The material, read once.
const SampleMaterial& sampleMaterial();

/// A text as files that have been in use for years hold it: markup of a text box, German letters behind a
/// backslash. Takes line breaks (CR LF), but beyond ASCII only the letters that German has.
QString sampleRichText(const QString& text);

} // namespace kolibri
