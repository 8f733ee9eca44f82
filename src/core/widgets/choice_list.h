#pragma once

#include <QListWidget>

class QCheckBox;
class QComboBox;
class QToolButton;

namespace kolibri {

/// A list of which any number of entries can be chosen, each with a click or the space bar.
class ChoiceList : public QListWidget {
public:
    ChoiceList(const QString& objectName, const QString& accessibleName);

    /// Puts these entries in the place of those there are. What was chosen and is still there stays chosen.
    void setEntries(const QStringList& entries);
    /// The chosen entries in the order of the list.
    QStringList chosen() const;
    /// Chooses exactly these entries.
    void choose(const QStringList& entries);
    /// Chooses every entry, or none.
    void chooseAll(bool all);

    /// Some lines high, and as wide as its entries.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
};

/// A check box that chooses every entry of a list when it is set, and none when it is cleared.
QCheckBox* chooseAllBox(const QString& objectName, const QString& caption, ChoiceList& list);
/// A small picture that can be clicked, or pressed with the keyboard; the tip says what it does.
QToolButton* imageButton(const QString& objectName, const QString& text, const QString& tip);
/// Puts these entries into a box without running its handlers, and selects one of them: that with a
/// remembered index from 1 on, else the first.
void fillBox(QComboBox& box, const QStringList& entries, int rememberedIndex);

} // namespace kolibri
