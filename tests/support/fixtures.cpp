#include "support/fixtures.h"

#include <QFile>
#include <QJsonDocument>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kolibri::test {
namespace {

const QString kSource = QStringLiteral(KOLIBRI_SOURCE_DIR);

} // namespace

QByteArray fixture(const QString& name) {
    const QString folder = qEnvironmentVariable("KOLIBRI_FIXTURES", kSource + u"/../shared/fixtures"_s);
    QFile original(folder + u'/' + name);
    if (original.open(QIODevice::ReadOnly))
        return original.readAll();
    QFile copy(kSource + u"/tests/maintenance/fixtures/"_s + QString(name).replace(u'/', u'_') + u".z"_s);
    if (!copy.open(QIODevice::ReadOnly))
        qFatal("no fixture %s", qPrintable(name));
    return qUncompress(copy.readAll());
}

QJsonObject jsonFixture(const QString& name) {
    return QJsonDocument::fromJson(fixture(name)).object();
}

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

QByteArray fileContent(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<nicht lesbar>");
}

} // namespace kolibri::test
