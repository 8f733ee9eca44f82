#include "lists/frmAnzeige_WEB_Browser.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/page_module.h"
#include "core/runtime_error.h"
#include "core/widgets/wait_cursor.h"
#include "lists/excel_export.h"
#include "lists/list_state.h"
#include "lists/page_production.h"
#include "lists/pdf_file.h"
#include "lists/print_copy.h"
#include "lists/reports/occupancy_picture.h"

#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QStandardPaths>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kExclamation = 48;

struct MenuEntry {
    QString name;
    QString caption;
    QKeySequence shortcut;
    std::function<void(frmAnzeige_WEB_Browser&)> action;
};

const std::vector<MenuEntry>& menuEntries() {
    using Window = frmAnzeige_WEB_Browser;
    static const std::vector<MenuEntry> entries{
        {u"mnuFensterSchliessen"_s, u"&Fenster schliessen"_s, {}, [](Window& window) { window.reject(); }},
        {u"mnuDrucken"_s, u"&Drucken"_s, QKeySequence::Print, [](Window& window) { window.Drucken(); }},
        {u"mnuGrafik"_s, u"&Grafik"_s, {}, [](Window& window) { window.GrafikUmschalten(); }},
        {u"mnuPDF"_s, u"Als PDF speichern"_s, QKeySequence::Save,
         [](Window& window) { window.AlsPdfSpeichern(); }},
        {u"mnuExcelExport"_s,
         u"Export -> Excel"_s,
         {},
         [](Window&) { exportToSpreadsheet(SheetRows::OneRowEach); }},
        {u"mnuExcelExportAlle"_s,
         u"Export -> Excel, alle Zeilen"_s,
         {},
         [](Window&) { exportToSpreadsheet(SheetRows::All); }},
    };
    return entries;
}

/// First size of the window for a sheet, in twentieths of a point.
QSize windowSize(PaperOrientation format) {
    constexpr int kTwipsToPixel = 15;
    return (format == PaperOrientation::Upright ? QSize(13020, 10395) : QSize(17020, 10395)) / kTwipsToPixel;
}

} // namespace

frmAnzeige_WEB_Browser::frmAnzeige_WEB_Browser()
    : FormWindow(u"frmAnzeige_WEB_Browser"_s),
      m_place(new QVBoxLayout),
      m_findBar(new FindBar([this](const QString& text, bool backward) {
          view().find(text, backward, [this](int places) { m_findBar->setPlaces(places); });
      })),
      m_folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)) {
    setWindowTitle(u"Auswertung"_s);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    buildMenu(*column);
    column->addLayout(m_place, 1);
    column->addWidget(m_findBar);
    buildShortcuts();
    resize(windowSize(PaperOrientation::Upright));
}

frmAnzeige_WEB_Browser::~frmAnzeige_WEB_Browser() = default;

void frmAnzeige_WEB_Browser::buildMenu(QVBoxLayout& column) {
    auto* bar = new QMenuBar;
    auto* menu = bar->addMenu(u"&Datei"_s);
    menu->setObjectName(u"mnuDatei"_s);
    for (const auto& entry : menuEntries()) {
        auto* action =
            menu->addAction(entry.caption, entry.shortcut, this, [this, run = entry.action] { run(*this); });
        action->setObjectName(entry.name);
    }
    mnuGrafik = menu->findChild<QAction*>(u"mnuGrafik"_s);
    mnuGrafik->setCheckable(true);
    column.setMenuBar(bar);
}

void frmAnzeige_WEB_Browser::buildShortcuts() {
    constexpr double kStep = 1.1;
    const auto shortcut = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    shortcut(QKeySequence::Find, [this] { m_findBar->open(); });
    shortcut(QKeySequence::FindNext, [this] { m_findBar->next(false); });
    shortcut(QKeySequence::FindPrevious, [this] { m_findBar->next(true); });
    shortcut(QKeySequence::ZoomIn, [this] { zoom(kStep); });
    // The key of "+" where it needs no Shift on other keyboards.
    shortcut(Qt::CTRL | Qt::Key_Equal, [this] { zoom(kStep); });
    shortcut(QKeySequence::ZoomOut, [this] { zoom(1 / kStep); });
    shortcut(Qt::CTRL | Qt::Key_0, [this] { zoom(0); });
    shortcut(Qt::Key_Escape, [this] {
        if (m_findBar->isVisible())
            m_findBar->close();
        else
            reject();
    });
}

void frmAnzeige_WEB_Browser::ShowPage(QWidget* opener) {
    {
        const WaitCursor wait;
        producePage();
        followFormat();
        mnuGrafik->setVisible(hasOccupancyPicture(Global().ListenArt));
        mnuGrafik->setChecked(false);
        // A view keeps its last picture until it has drawn the next page; nobody shall see the list of
        // before.
        m_view.reset();
        ShowFile(pageFile());
    }
    ShowOver(opener);
    view().widget()->setFocus();
}

void frmAnzeige_WEB_Browser::ShowFile(const QString& file) {
    const WaitCursor wait;
    m_findBar->hide();
    if (!view().load(file))
        throw PageError(u"Die Seite %1 kann nicht angezeigt werden."_s.arg(QDir::toNativeSeparators(file)));
    m_file = file;
}

void frmAnzeige_WEB_Browser::GrafikUmschalten() {
    try {
        ShowFile(mnuGrafik->isChecked() ? writeOccupancyPicture() : pageFile());
    } catch (...) {
        mnuGrafik->setChecked(m_file == occupancyPictureFile());
        throw;
    }
}

PageView& frmAnzeige_WEB_Browser::view() {
    if (!m_view) {
        m_view = pageModule().createView(this);
        m_view->widget()->setObjectName(u"WebBrowser1"_s);
        m_view->widget()->setAccessibleName(u"Liste"_s);
        m_place->addWidget(m_view->widget());
        m_view->setZoom(m_zoom);
    }
    return *m_view;
}

void frmAnzeige_WEB_Browser::followFormat() {
    const auto format = Liste().Dialog.optFormat;
    if (format && !isMaximized())
        resize(windowSize(*format).boundedTo(screen()->availableSize()));
}

void frmAnzeige_WEB_Browser::zoom(double factor) {
    constexpr double kSmallest = 0.25;
    constexpr double kLargest = 5;
    m_zoom = factor == 0 ? 1 : std::clamp(view().zoom() * factor, kSmallest, kLargest);
    view().setZoom(m_zoom);
}

QByteArray frmAnzeige_WEB_Browser::pageBytes() const {
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError::fileAccess(u"%1: %2"_s.arg(QDir::toNativeSeparators(m_file), file.errorString()));
    return file.readAll();
}

QByteArray frmAnzeige_WEB_Browser::pdf(const QByteArray& page, const QPageLayout& sheet) {
    const WaitCursor wait;
    const QString today = doors().clock->now().toString(u"dd.MM.yyyy"_s);
    const QByteArray bytes = view().toPdf(printCopy(page, today), sheet);
    if (bytes.isEmpty())
        throw PageError(u"Die Liste kann nicht auf Papier gebracht werden."_s,
                        u"Die Anzeige hat keine Druckseiten geliefert."_s);
    return bytes;
}

void frmAnzeige_WEB_Browser::Drucken() {
    PageModule& module = pageModule();
    if (!module.hasPrinter()) {
        MsgBox(u"Auf diesem Rechner ist kein Drucker eingerichtet. Die Liste kann als PDF gespeichert "
               "werden."_s,
               kExclamation);
        return;
    }
    const auto job = module.choosePrinter(this, doors().printer->orientation());
    if (!job)
        return;
    const QByteArray page = pageBytes();
    const QByteArray sheets = pdf(page, printSheet(job->sheet().pageSize(), job->sheet().orientation()));
    const WaitCursor wait;
    if (const QString problem = job->print(sheets, pageTitle(page)); !problem.isEmpty())
        throw PageError(u"Die Liste wurde nicht gedruckt."_s, problem);
}

void frmAnzeige_WEB_Browser::AlsPdfSpeichern() {
    const QString name = suggestedFileName(pageBytes(), doors().clock->now().date());
    const QString file = choosePdfFile(QDir(m_folder).filePath(name));
    if (file.isEmpty())
        return;
    m_folder = QFileInfo(file).path();
    savePdf(file, Pdf());
}

QByteArray frmAnzeige_WEB_Browser::Pdf() {
    const auto orientation = layoutOrientation(doors().printer->orientation());
    return pdf(pageBytes(), printSheet(QPageSize(QPageSize::A4), orientation));
}

void frmAnzeige_WEB_Browser::keyPressEvent(QKeyEvent* event) {
    // Enter belongs to no button here, and Esc has its own shortcut.
    event->ignore();
}

namespace {

class PageWindow final : public PageDoor {
public:
    void show() override {
        auto& window = Form<frmAnzeige_WEB_Browser>();
        window.ShowPage(QApplication::activeWindow());
        window.exec();
    }
};

} // namespace

void openPageDoors() {
    doors().page = std::make_unique<PageWindow>();
    doors().printer = std::make_unique<DefaultPrinter>();
}

} // namespace kolibri
