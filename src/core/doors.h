#pragma once

#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>

namespace kolibri {

/// A message box. `code` is the sum that the office's boxes have always been told by: buttons (0 OK,
/// 1 OK and Abbrechen, 4 Ja and Nein), icon (16 stop, 32 question, 48 exclamation, 64 information) and
/// default (256 the second button).
struct MessageBox {
    QString text;
    int code = 0;
    QString title;
    /// Shown on request behind "Details", for whoever helps the office.
    QString details = {};
};

/// The pressed button of a message box.
enum MessageAnswer : quint8 { kAnswerOk = 1, kAnswerCancel = 2, kAnswerYes = 6, kAnswerNo = 7 };

/// Message boxes and questions.
class MessageDoor {
public:
    virtual ~MessageDoor() = default;
    virtual MessageAnswer show(const MessageBox& box) = 0;
};

/// Asks for one line of text; no value when the user gave up.
class InputDoor {
public:
    virtual ~InputDoor() = default;
    virtual std::optional<QString> ask(const QString& title, const QString& text, const QString& preset) = 0;
};

/// File and folder dialogs; an empty path when the user gave up.
class FileDoor {
public:
    virtual ~FileDoor() = default;
    virtual QString chooseFolder(const QString& title, const QString& start) = 0;
    virtual QString chooseFile(const QString& title, const QString& start, const QString& filter) = 0;
    /// A file to be written; `start` holds the suggested name. Whether a file that is there may be replaced
    /// is for the caller to ask.
    virtual QString chooseSaveFile(const QString& title, const QString& start, const QString& filter) = 0;
};

/// Date and time of now.
class ClockDoor {
public:
    virtual ~ClockDoor() = default;
    virtual QDateTime now() const = 0;
};

/// Shows how far long work has come: the wait cursor at once, a window after half a second.
class ProgressDoor {
public:
    virtual ~ProgressDoor() = default;
    /// Long work of so many steps begins; `text` says what it is.
    virtual void begin(const QString& text, int steps) = 0;
    virtual void step(int done) = 0;
    virtual void end() = 0;
};

/// How a sheet of paper lies; the numbers are those of a printer's settings.
enum class PaperOrientation : quint8 { Upright = 1, Across = 2 };

/// Measures of a printed sheet as it lies, in points (1/72 inch).
struct PaperMeasures {
    double physicalWidth = 0;
    /// The strip at the left that the printer cannot reach.
    double leftOffset = 0;
    double printableWidth = 0;
};

/// The default printer, as far as a page on the screen asks for it.
class PrinterDoor {
public:
    virtual ~PrinterDoor() = default;
    virtual void setOrientation(PaperOrientation orientation) = 0;
    virtual PaperOrientation orientation() const = 0;
    /// Measures in the present orientation; those of A4 when there is no printer.
    virtual PaperMeasures measures() const = 0;
};

/// A sheet of A4 with a narrow margin, in the place of a printer where the machine has none.
class A4Paper : public PrinterDoor {
public:
    void setOrientation(PaperOrientation orientation) override { m_orientation = orientation; }
    PaperOrientation orientation() const override { return m_orientation; }
    PaperMeasures measures() const override;

private:
    PaperOrientation m_orientation = PaperOrientation::Upright;
};

/// The window that shows the page of the list in production.
class PageDoor {
public:
    virtual ~PageDoor() = default;
    /// Writes the page anew and shows it; returns when the user has closed the window.
    virtual void show() = 0;
};

/// The desktop, which opens a file with whatever program the office uses for its kind.
class DesktopDoor {
public:
    virtual ~DesktopDoor() = default;
    /// False when the desktop knows no program for this file.
    virtual bool open(const QString& file) = 0;
};

/// What reaches outside the program. The real doors are put in at start; a test puts in its own.
struct Doors {
    std::unique_ptr<MessageDoor> messages;
    std::unique_ptr<InputDoor> input;
    std::unique_ptr<FileDoor> files;
    std::unique_ptr<ClockDoor> clock;
    std::unique_ptr<ProgressDoor> progress;
    std::unique_ptr<PrinterDoor> printer = std::make_unique<A4Paper>();
    std::unique_ptr<PageDoor> page;
    std::unique_ptr<DesktopDoor> desktop;
};

/// The doors in use.
Doors& doors();

/// The clock of the machine.
class SystemClock final : public ClockDoor {
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
};

} // namespace kolibri
