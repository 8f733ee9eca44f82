#pragma once

#include "walk_stations.h"

#include <QDir>

class QWidget;

namespace kolibri {

class frmAnzeige_WEB_Browser;
class frmStart;

/// A walk through the windows of the program. Whatever cannot be opened, filled, pictured or brought to paper
/// ends it with a WalkStopped.
class Walk {
public:
    /// @param folder where the pictures and the lists go
    /// @param widest width that no picture exceeds, for pictures in a document; 0 for pictures as the windows
    /// are
    Walk(const QDir& folder, int widest) : m_folder(folder), m_widest(widest) {}

    /// Saves a picture of a window as it stands.
    void picture(QWidget& window, const QString& name);
    /// Opens a window from the menu, fills it, saves its picture and the list behind it, and leaves it.
    void visit(frmStart& start, const Station& station);
    /// Saves the page in production as a picture of its window and as PDF; what the page door does in a walk.
    void page();

    int pictures() const { return m_pictures; }
    int lists() const { return m_lists; }

private:
    void savePage(frmAnzeige_WEB_Browser& window, const QString& name);
    QString newFile(const QString& name) const;

    QDir m_folder;
    int m_widest;
    int m_pictures = 0;
    int m_lists = 0;
    /// The list that the station on the way leads to; empty when it is there.
    QString m_awaited;
};

} // namespace kolibri
