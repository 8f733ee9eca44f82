#pragma once

#include <QString>

#include <stdexcept>

class QWidget;

namespace kolibri {

struct Filling;

/// The walk cannot go on as it is laid out; its words go to the terminal.
class WalkStopped : public std::runtime_error {
public:
    explicit WalkStopped(const QString& words) : std::runtime_error(words.toStdString()) {}
};

/// Does in a window what the office does there with one control: types into a box, chooses an entry or a row
/// that shows the value, ticks a box, turns to a page, presses a button. @throws WalkStopped
void fill(QWidget& window, const Filling& filling);

} // namespace kolibri
