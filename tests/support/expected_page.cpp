#include "support/expected_page.h"

#include "core/windows1252.h"
#include "lists/page_production.h"

#include <QCoreApplication>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kolibri::test {
namespace {

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString firstDifference(const QByteArray& actual, const QByteArray& expected) {
    const auto is = actual.split('\n');
    const auto shouldBe = expected.split('\n');
    for (qsizetype i = 0; i < std::max(is.size(), shouldBe.size()); ++i)
        if (is.value(i) != shouldBe.value(i) || i >= is.size() || i >= shouldBe.size())
            return u"line %1 is\n%2\nbut should be\n%3"_s.arg(i + 1).arg(fromTextFile(is.value(i)),
                                                                         fromTextFile(shouldBe.value(i)));
    return {};
}

} // namespace

void compareWithExpected(const QByteArray& actual, const QString& file) {
    const QString path = QStringLiteral(KOLIBRI_SOURCE_DIR "/tests/lists/expected/") + file;
    const QByteArray folder = QCoreApplication::applicationDirPath().toUtf8();
    const QByteArray page = QByteArray(actual).replace(folder, "PROGRAMMORDNER");
    if (qEnvironmentVariableIsSet("KOLIBRI_UPDATE_EXPECTED")) {
        QFile out(path);
        QVERIFY(out.open(QIODevice::WriteOnly) && out.write(page) == page.size());
        return;
    }
    QVERIFY2(QFile::exists(path), qPrintable(path + u" is missing"_s));
    const QByteArray expected = contentOf(path);
    QVERIFY2(page == expected, qPrintable(file + u": "_s + firstDifference(page, expected)));
}

QByteArray pageBytes() {
    return contentOf(pageFile());
}

QStringList bodyLines() {
    const QByteArray page = pageBytes();
    const qsizetype begin = page.indexOf("<BODY>");
    return begin < 0 ? QStringList() : fromTextFile(page.sliced(begin)).split(u"\r\n"_s);
}

} // namespace kolibri::test
