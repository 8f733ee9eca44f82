#pragma once

#include <QWidget>

class QLabel;

namespace kolibri {

class RichTextBox;

/// The remark of the pupil form: formatted text, with what it takes of the column beside it.
class SchuelerAnmerkung : public QWidget {
public:
    SchuelerAnmerkung();

    void leeren();
    /// Shows a stored remark.
    void zeigen(const QString& speicherform);
    /// The remark as the column keeps it.
    QString speicherform() const;
    /// Says so if the column does not take the remark. False then.
    bool pruefen();

private:
    void zaehlen();

    RichTextBox* rtfAnmerkung;
    QLabel* lblZeichen;
};

} // namespace kolibri
