#pragma once

#include <QWidget>

#include <functional>

class QLabel;
class QLineEdit;

namespace kolibri {

/// A line for searching in what a window shows. Enter and F3 go on, with Shift back; Esc closes it.
class FindBar : public QWidget {
public:
    /// Looks for a text and reports the number of places with `setPlaces`; an empty text ends the search.
    using Search = std::function<void(const QString& text, bool backward)>;

    explicit FindBar(Search search);

    /// Shows the line with its text selected.
    void open();
    void close();
    void next(bool backward);
    void setPlaces(int places);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    Search m_search;
    QLineEdit* m_text;
    QLabel* m_places;
};

} // namespace kolibri
