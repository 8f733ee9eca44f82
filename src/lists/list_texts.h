#pragma once

#include "core/list_texts.h"

#include <QString>

namespace kolibri {

/// What a stored text looks like on a page: bold, italic and underlined stretches and line breaks, no control
/// words. Nothing is escaped, as nowhere on a page.
QString pageText(const RichText& text);
QString pageText(const QString& stored);

} // namespace kolibri
