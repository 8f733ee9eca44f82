#pragma once

#include <QPushButton>

namespace kolibri {

/// A large button with a drawing before its caption, in the colours of the desktop. Enter presses it as the
/// space bar does.
class CardButton : public QPushButton {
public:
    /// `symbol` names a drawing of data/symbole.
    CardButton(const QString& caption, const QString& symbol, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int symbolSize() const;
    int margin() const;

    QString m_symbol;
};

} // namespace kolibri
