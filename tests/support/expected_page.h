#pragma once

#include <QByteArray>
#include <QString>

namespace kolibri::test {

/// Fails the test unless the bytes are those of a file in tests/lists/expected, and says in which line they
/// differ first. The folder of the running program is written as PROGRAMMORDNER in those files. With
/// KOLIBRI_UPDATE_EXPECTED in the environment the file is written instead, to be read before it is kept.
void compareWithExpected(const QByteArray& actual, const QString& file);

/// The page file as it stands; empty when there is none.
QByteArray pageBytes();
/// Its part from "<BODY>" on, as text without the line ends, for checks of single lines.
QStringList bodyLines();

} // namespace kolibri::test
