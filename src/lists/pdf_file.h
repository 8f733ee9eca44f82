#pragma once

#include <QString>

namespace kolibri {

/// Asks where a list is to be saved as PDF, and whether a file that is there already may go. Empty when the
/// user gave up. @param suggestion path and name that the dialog starts with
QString choosePdfFile(const QString& suggestion);

/// Writes a PDF; a file of before stands until the new one is whole. A box says so when it cannot be written.
void savePdf(const QString& file, const QByteArray& pdf);

} // namespace kolibri
