#pragma once

#include <QString>

namespace kolibri {

/// True for the lists that can be shown as a picture besides: the occupancy plans.
bool hasOccupancyPicture(quint8 listenArt);

/// The file of the picture, beside that of the page.
QString occupancyPictureFile();

/// Writes the plan in production as a picture of its own: for each weekday and offering a bar of the places
/// there, filled as far as they are taken, and hatched where more pupils come. Returns the file.
/// @throws RuntimeError 75 when it cannot be written
QString writeOccupancyPicture();

} // namespace kolibri
