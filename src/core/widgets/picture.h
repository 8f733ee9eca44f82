#pragma once

#include <QSvgRenderer>
#include <QWidget>

namespace kolibri {

/// A drawing that stands on the lower edge of its place and fills it as far as its proportions allow, sharp
/// at any size. Its height is told in lines of text.
class Picture : public QWidget {
public:
    Picture(const QString& file, int lines, QWidget* parent = nullptr);

    int lines() const { return m_lines; }
    void setLines(int lines);
    /// The greatest height in lines with which the drawing is not wider than so many points.
    int linesForWidth(int width) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSvgRenderer m_renderer;
    int m_lines;
};

} // namespace kolibri
