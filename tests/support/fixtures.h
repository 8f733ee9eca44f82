#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

namespace kolibri::test {

/// Content of a data file such as "jet/alt/KOLIBRI_Daten.mdb": from the folder that KOLIBRI_FIXTURES names,
/// from
/// ../shared/fixtures beside the checkout, or from the copy in tests/maintenance/fixtures.
QByteArray fixture(const QString& name);
/// The same as the object of a JSON file.
QJsonObject jsonFixture(const QString& name);
/// Writes bytes into a file; a test without its input must not go on.
void writeFile(const QString& path, const QByteArray& content);
/// Content of a file; a text that no file holds when it cannot be read.
QByteArray fileContent(const QString& path);

} // namespace kolibri::test
