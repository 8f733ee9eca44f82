#pragma once

#include <QByteArray>
#include <QString>

namespace kolibri::test {

/// A Jet 4 file with its pages encoded by a key, as the old engine's own tool does it.
QByteArray encrypted(QByteArray file, quint32 key);
/// A Jet 4 file that asks for a password.
QByteArray withPassword(QByteArray file, const QString& password);

} // namespace kolibri::test
