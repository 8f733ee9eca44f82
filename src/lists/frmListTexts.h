#pragma once

#include "lists/list_texts.h"

#include <QWidget>

namespace kolibri {

class RichTextBox;

/// The texts before and after the table of a list, as two boxes of an option form.
class ListTextBoxes : public QWidget {
public:
    ListTextBoxes();

    void setTexts(const ListTexts& texts);
    /// The texts as the store keeps them.
    ListTexts texts() const;

private:
    RichTextBox* rtfVorher;
    RichTextBox* rtfNachher;
};

} // namespace kolibri
