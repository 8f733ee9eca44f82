#pragma once

#include <QByteArrayView>

namespace kolibri {

/// Order of two texts (UTF-8) by the rules of a German dictionary, without regard to case: Ärger, Arzt, Zöbl.
/// Less than, equal to or greater than 0. Equal are only texts that differ in nothing but case: "ß" and "ss"
/// stand side by side, but they are two names.
int germanOrder(QByteArrayView left, QByteArrayView right);

} // namespace kolibri
