// Walks through the windows of the program on the sample school and leaves a picture of each in a folder.

#include "core/error_report.h"
#include "core/frmStart.h"
#include "core/frmStart_targets.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "core/widgets/qt_doors.h"
#include "lists/frmAnzeige_WEB_Browser.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/pdf_file.h"

#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QTextStream>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

/// A walk stops for nothing: what the program would say in a box goes to the terminal, and No is the answer.
class SpokenMessages final : public MessageDoor {
public:
    MessageAnswer show(const MessageBox& box) override {
        QTextStream(stderr) << box.title << ": " << box.text << '\n' << box.details << '\n';
        return (box.code & 0x0f) == 4 ? kAnswerNo : kAnswerOk;
    }
};

class Walk {
public:
    explicit Walk(const QString& folder) : m_folder(folder) {}

    /// Saves a picture of a window as it stands. False when the file cannot be written.
    bool picture(QWidget& window, const QString& name) {
        QCoreApplication::processEvents();
        const QString file = m_folder.filePath(name + u".png"_s);
        m_pictures += window.grab().save(file) ? 1 : 0;
        return QFile::exists(file);
    }

    /// Shows a list with these options, saves a picture of its window and the list as PDF.
    bool list(quint8 listenArt, const QString& name, const DialogOptions& options = {}) {
        Liste().Dialog = options;
        prepareList(listenArt);
        auto& window = Form<frmAnzeige_WEB_Browser>();
        window.ShowPage(nullptr);
        waitUntilPainted(*window.findChild<QWidget*>(u"WebBrowser1"_s));
        const bool saved = picture(window, name);
        const QString file = m_folder.filePath(name + u".pdf"_s);
        savePdf(file, window.Pdf());
        window.hide();
        return saved && QFile::exists(file);
    }

    int pictures() const { return m_pictures; }

private:
    /// A page is drawn some moments after its window is there.
    static void waitUntilPainted(QWidget& view) {
        constexpr int kLongest = 5000;
        QElapsedTimer waiting;
        waiting.start();
        while (waiting.elapsed() < kLongest && isBlank(view.grab().toImage()))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    static bool isBlank(const QImage& image) {
        QImage blank(image.size(), image.format());
        blank.setDevicePixelRatio(image.devicePixelRatio());
        blank.fill(image.pixel(0, 0));
        return image == blank;
    }

    QDir m_folder;
    int m_pictures = 0;
};

DialogOptions everyOption() {
    DialogOptions options;
    options.chkKontakteNeu = options.chkBaustein = options.chkSchwimmer = options.chkKennung = true;
    options.chkKlasse = options.chkGebDatum = options.chkBeiträge = true;
    options.cmbKontakte = {u"Name"_s, u"Telefon"_s, QString()};
    options.optFormat = PaperOrientation::Across;
    return options;
}

int walk(const QString& folder) {
    QTextStream out(stdout);
    Walk road(folder);
    auto& start = Form<frmStart>();
    start.setState(startUp(QCoreApplication::applicationDirPath(), startSteps()));
    start.show();
    if (!road.picture(start, u"01-hauptfenster"_s))
        return EXIT_FAILURE;
    if (!road.list(kErweiterteListe, u"20-erweiterte-liste"_s, everyOption())
        || !road.list(kUnterrichtszeiten, u"21-unterrichtszeiten"_s))
        return EXIT_FAILURE;
    out << "Beispielschule: " << Global().ConnString << '\n';
    out << "Bilder der Fenster: " << road.pictures() << " in " << QDir(folder).absolutePath() << '\n';
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    openQtDoors();
    openPageDoors();
    doors().messages = std::make_unique<SpokenMessages>();
    const QString folder = application.arguments().value(1, u"out"_s);
    if (!QDir().mkpath(folder))
        return EXIT_FAILURE;
    int result = EXIT_FAILURE;
    try {
        result = walk(folder);
    } catch (...) {
        reportError(std::current_exception());
    }
    unloadForms();
    return result;
}
