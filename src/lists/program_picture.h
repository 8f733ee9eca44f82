#pragma once

class QString;

namespace kolibri {

/// Path of a picture that lies beside the program, as the pages name it: with a backslash before the file.
/// An installed program keeps its pictures in its data folder.
QString programPicture(const QString& file);

} // namespace kolibri
