#pragma once

#include "core/widgets/find_bar.h"
#include "core/widgets/forms.h"

#include <QPageLayout>

class QAction;
class QVBoxLayout;

namespace kolibri {

class PageView;

/// The window in which every list is seen, printed, saved as PDF and handed to the spreadsheet program.
class frmAnzeige_WEB_Browser : public FormWindow {
public:
    frmAnzeige_WEB_Browser();
    ~frmAnzeige_WEB_Browser() override;

    /// Writes the page of the list in production and shows it over `opener`. An error leaves the window
    /// closed. @throws RuntimeError, StoreError, PageError
    void ShowPage(QWidget* opener);
    /// Shows a page file in the window as it stands; what is printed and saved from now on is that file.
    /// @throws PageError
    void ShowFile(const QString& file);

    /// The shown page as PDF, on A4 as the list lies. @throws RuntimeError, PageError
    QByteArray Pdf();
    /// What the entries of the menu do.
    void Drucken();
    void AlsPdfSpeichern();
    /// Shows the picture of an occupancy plan in the place of its page, and the page again.
    void GrafikUmschalten();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildMenu(QVBoxLayout& column);
    void buildShortcuts();
    PageView& view();
    /// Gives the window the size for the sheet that is chosen; without a choice it keeps its size.
    void followFormat();
    /// Zooms by a factor, within what can still be read; 0 goes back to the true size.
    void zoom(double factor);
    QByteArray pageBytes() const;
    QByteArray pdf(const QByteArray& page, const QPageLayout& sheet);

    std::unique_ptr<PageView> m_view;
    QVBoxLayout* m_place;
    QAction* mnuGrafik = nullptr;
    FindBar* m_findBar;
    QString m_file;
    double m_zoom = 1;
    /// Where the last PDF was saved.
    QString m_folder;
};

/// Puts the real doors for pages in: the page window, and the default printer of the machine.
void openPageDoors();

} // namespace kolibri
