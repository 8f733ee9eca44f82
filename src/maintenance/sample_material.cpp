#include "maintenance/sample_material.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

QJsonObject readFile() {
    QFile file(u":/kolibri/beispielschule.json"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The names of the sample school are missing from the program.");
    return QJsonDocument::fromJson(file.readAll()).object();
}

QStringList texts(const QJsonObject& root, QLatin1StringView key) {
    QStringList result;
    const QJsonArray values = root[key].toArray();
    for (const auto& value : values)
        result << value.toString();
    return result;
}

template <typename Entry, typename Read>
std::vector<Entry> entries(const QJsonObject& root, QLatin1StringView key, const Read& read) {
    std::vector<Entry> result;
    const QJsonArray values = root[key].toArray();
    for (const auto& value : values)
        result.push_back(read(value.toObject()));
    return result;
}

SampleMaterial readMaterial() {
    const QJsonObject root = readFile();
    SampleMaterial material;
    material.girls = texts(root, "vornamenMaedchen"_L1);
    material.boys = texts(root, "vornamenJungen"_L1);
    material.surnames = texts(root, "nachnamen"_L1);
    material.streets = texts(root, "strassen"_L1);
    material.marks = texts(root, "kennungen"_L1);
    material.remarks = texts(root, "anmerkungen"_L1);
    material.notes = texts(root, "notizen"_L1);
    material.longNote = root["langeNotiz"_L1].toString();
    material.dayPlanNotes = texts(root, "tagesplanNotizen"_L1);
    material.subjects = texts(root, "faecher"_L1);
    material.classTexts = texts(root, "klassentexte"_L1);
    material.towns = entries<SampleTown>(root, "orte"_L1, [](const QJsonObject& entry) {
        return SampleTown{entry["plz"_L1].toString(), entry["ort"_L1].toString()};
    });
    material.relations = entries<SampleRelation>(root, "verwandtschaft"_L1, [](const QJsonObject& entry) {
        return SampleRelation{entry["wort"_L1].toString(), entry["weiblich"_L1].toBool()};
    });
    material.modules = entries<SampleModule>(root, "bausteine"_L1, [](const QJsonObject& entry) {
        return SampleModule{entry["name"_L1].toString(), entry["cent"_L1].toInt(), entry["tage"_L1].toInt()};
    });
    material.listTexts = entries<SampleListText>(root, "listentexte"_L1, [](const QJsonObject& entry) {
        return SampleListText{entry["vorher"_L1].toString(), entry["nachher"_L1].toString()};
    });
    material.plan = root["plan"_L1].toObject();
    return material;
}

} // namespace

const SampleMaterial& sampleMaterial() {
    static const SampleMaterial material = readMaterial();
    return material;
}

QString sampleRichText(const QString& text) {
    static const QString germanLetters = u"ÄäÖöÜüß§"_s;
    QString content;
    for (const QChar letter : text)
        content += germanLetters.contains(letter) ? u'\\' + QString(letter) : QString(letter);
    content.replace(u"\r\n"_s, u"\r\n\\par "_s);
    return u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1031{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}}\r\n"
           "\\viewkind4\\uc1\\pard\\f0\\fs20 "_s
           + content + u"\r\n\\par }\r\n"_s;
}

} // namespace kolibri
