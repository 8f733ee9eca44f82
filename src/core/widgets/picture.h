#pragma once

#include <QSvgRenderer>
#include <QWidget>

namespace kolibri {

/// A drawing that fills its place as far as its proportions allow, sharp at any size.
class Picture : public QWidget {
public:
    explicit Picture(const QString& file, QWidget* parent = nullptr);

    QSize sizeHint() const override { return m_renderer.defaultSize(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSvgRenderer m_renderer;
};

} // namespace kolibri
