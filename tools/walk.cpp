#include "walk.h"

#include "core/frmStart.h"
#include "core/widgets/forms.h"
#include "lists/frmAnzeige_WEB_Browser.h"
#include "lists/pdf_file.h"
#include "walk_controls.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QImage>
#include <QSet>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

void waitFor(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// What a window checks again and again by itself, such as the lamps of a week, has been checked once more.
void waitForTicks(const QWidget& window) {
    constexpr int kLongest = 5000;
    const auto* timer = window.findChild<QTimer*>(u"Timer1"_s);
    if (!timer || !timer->isActive())
        return;
    QEventLoop loop;
    QTimer::singleShot(kLongest, &loop, &QEventLoop::quit);
    QObject::connect(timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    loop.exec();
}

bool isBlank(const QImage& image) {
    QImage blank(image.size(), image.format());
    blank.setDevicePixelRatio(image.devicePixelRatio());
    blank.fill(image.pixel(0, 0));
    return image == blank;
}

/// A page is drawn some moments after it is loaded: until it looks the same for a while, and neither blank
/// nor as it did before.
void waitUntilDrawn(frmAnzeige_WEB_Browser& window, const QImage& before) {
    constexpr int kLongest = 15000, kWhile = 150;
    auto* view = window.findChild<QWidget*>(u"WebBrowser1"_s);
    QElapsedTimer waiting;
    waiting.start();
    QImage last;
    for (;;) {
        const QImage now = view->grab().toImage();
        if (now == last && !isBlank(now) && now != before)
            return;
        if (waiting.elapsed() > kLongest)
            throw WalkStopped(u"the page is not drawn"_s);
        last = now;
        waitFor(kWhile);
    }
}

/// The window that the user works in. On a screen without a window manager it has the keyboard some moments
/// after it is there.
QWidget& openWindow(const Station& station) {
    constexpr int kLongest = 2000, kWhile = 10;
    QWidget* window = QApplication::activeModalWidget();
    if (!window)
        throw WalkStopped(u"%1 opens no window"_s.arg(station.entry));
    QElapsedTimer waiting;
    waiting.start();
    while (!window->isActiveWindow() && waiting.elapsed() < kLongest)
        waitFor(kWhile);
    return *window;
}

/// A picture for a document: no wider than that, and with few colours, which makes small files of windows.
QImage forDocuments(QImage image, int widest) {
    constexpr int kPalette = 256;
    if (image.width() > widest)
        image = image.scaledToWidth(widest, Qt::SmoothTransformation);
    // Four bits for each of red, green and blue; white stays white.
    image = image.convertToFormat(QImage::Format_RGB444).convertToFormat(QImage::Format_RGB32);
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            colours.insert(image.pixel(x, y));
    return colours.size() > kPalette ? image
                                     : image.convertToFormat(QImage::Format_Indexed8, Qt::AvoidDither);
}

} // namespace

QString Walk::newFile(const QString& name) const {
    const QString file = m_folder.filePath(name);
    QFile::remove(file);
    return file;
}

void Walk::picture(QWidget& window, const QString& name) {
    QCoreApplication::processEvents();
    waitForTicks(window);
    QImage image = window.grab().toImage();
    if (m_widest > 0)
        image = forDocuments(image, m_widest);
    constexpr int kSmallestFile = 0;
    if (const QString file = newFile(name + u".png"_s); !image.save(file, "PNG", kSmallestFile))
        throw WalkStopped(u"the picture %1 cannot be written"_s.arg(file));
    ++m_pictures;
}

void Walk::visit(frmStart& start, const Station& station) {
    auto* entry = start.findChild<QAction*>(station.entry);
    if (!entry)
        throw WalkStopped(u"the menu has no entry %1"_s.arg(station.entry));
    m_awaited = station.list;
    // Some entries rest unseen in the menu; an entry that is not seen cannot be triggered.
    const bool seen = entry->isVisible();
    entry->setVisible(true);
    entry->trigger();
    entry->setVisible(seen);
    for (const auto& filling : station.fillings)
        fill(openWindow(station), filling);
    if (!station.picture.isEmpty())
        picture(openWindow(station), station.picture);
    if (station.leaving == Leaving::Confirmed || !m_awaited.isEmpty())
        fill(openWindow(station), {u"cmdOK"_s});
    while (auto* form = dynamic_cast<FormWindow*>(QApplication::activeModalWidget()))
        form->reject();
    if (!m_awaited.isEmpty())
        throw WalkStopped(u"%1 does not lead to %2"_s.arg(station.entry, m_awaited));
}

void Walk::page() {
    const QString name = std::exchange(m_awaited, {});
    if (name.isEmpty())
        throw WalkStopped(u"a list opens that nobody asked for"_s);
    auto& window = Form<frmAnzeige_WEB_Browser>();
    window.ShowPage(QApplication::activeModalWidget());
    waitUntilDrawn(window, {});
    savePage(window, name);
    auto* drawing = window.findChild<QAction*>(u"mnuGrafik"_s);
    if (drawing->isVisible()) {
        const QImage before = window.findChild<QWidget*>(u"WebBrowser1"_s)->grab().toImage();
        drawing->trigger();
        waitUntilDrawn(window, before);
        savePage(window, name + u"-grafik"_s);
    }
    window.hide();
}

void Walk::savePage(frmAnzeige_WEB_Browser& window, const QString& name) {
    picture(window, name);
    const QString file = newFile(name + u".pdf"_s);
    savePdf(file, window.Pdf());
    if (!QFile::exists(file))
        throw WalkStopped(u"the list %1 cannot be written"_s.arg(file));
    ++m_lists;
}

} // namespace kolibri
