#pragma once

#include <QString>

namespace kolibri {

class RichText;

/// The additional text of a class for the Tagesplan as the open store keeps it; empty when it has none.
QString readClassText(const QString& klasse);
/// Keeps the text of a class; an empty one takes its row away. Nothing happens without a class.
/// @throws StoreError for a text with an apostrophe that is to replace another
void Text_WP_Speichern(const QString& klasse, const QString& text);

/// What the store keeps of the text box: markup with a letter size in front of the text, where the Tagesplan
/// begins to read. Nothing when the box is empty.
QString storedClassText(const RichText& text);
/// The text as the Tagesplan shows it: everything up to the sixth character of the first letter size ("\fs17
/// ") is left out, and of the rest the control words. A text without a letter size is shown whole.
QString classTextOnPage(const QString& stored);

} // namespace kolibri
