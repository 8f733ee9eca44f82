#pragma once

#include "core/doors.h"

#include <QByteArray>
#include <QPageLayout>
#include <QString>

namespace kolibri {

/// A page as it goes to paper: the date at the foot of every sheet, the body as wide as the sheet. The page
/// file itself knows nothing of it.
QByteArray printCopy(const QByteArray& page, const QString& footer);

/// The sheet for a page: half an inch of margin on every side. The footer lies within the lower margin, so
/// that is what the engine is told to leave free below it.
QPageLayout printSheet(const QPageSize& size, QPageLayout::Orientation orientation);
QPageLayout::Orientation layoutOrientation(PaperOrientation orientation);

/// The heading of a page, as plain text.
QString pageTitle(const QByteArray& page);
/// What a list's file may be called: heading and date, without what no file name may hold.
QString suggestedFileName(const QByteArray& page, const QDate& day);

} // namespace kolibri
