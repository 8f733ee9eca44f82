#pragma once

#include "core/widgets/forms.h"

class QLabel;

namespace kolibri {

/// The window of a help text: read-only, closed with Enter or Esc.
class frmMsgBox : public FormWindow {
public:
    frmMsgBox();

    /// Shows a text. The form that asks for it is not prepared anew when the window goes away: a help text
    /// changes nothing, and what was typed stays.
    void zeigen(const QString& titel, const QString& text);

private:
    QLabel* m_text;
};

} // namespace kolibri
