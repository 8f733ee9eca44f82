#pragma once

#include "lists/page_values.h"

#include <QString>

#include <vector>

namespace kolibri {

class PageWriter;

/// A line of the page's style sheet. In its text {W} stands for the width of the tables in points, and {S},
/// {B} and {I} for size, weight and style of its font group.
struct StyleRule {
    QStringView text;
    FontGroup group = kFontZeile;
    /// The rule shapes the page on the screen; a printed sheet does without it.
    bool screenOnly = false;
};

/// The style sheet in its order.
const std::vector<StyleRule>& styleRules();
/// The rule with its marks replaced by the values of a page.
QString styleLine(const StyleRule& rule, const PageValues& values);

/// Writes everything in front of a page's body.
void writeHead(PageWriter& page, const PageValues& values);

} // namespace kolibri
