#include "core/widgets/qt_doors.h"

#include "core/doors.h"
#include "core/mdlAllgemein.h"

#include <QApplication>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kButtonMask = 0x0f;
constexpr int kIconMask = 0xf0;
constexpr int kDefaultMask = 0xf00;

struct BoxButton {
    QMessageBox::StandardButton button;
    QString text;
    MessageAnswer answer;
};

std::vector<BoxButton> buttonsOf(int code) {
    const BoxButton ok{QMessageBox::Ok, u"OK"_s, kAnswerOk};
    switch (code & kButtonMask) {
    case 1:
        return {ok, {QMessageBox::Cancel, u"Abbrechen"_s, kAnswerCancel}};
    case 4:
        return {{QMessageBox::Yes, u"&Ja"_s, kAnswerYes}, {QMessageBox::No, u"&Nein"_s, kAnswerNo}};
    default:
        return {ok};
    }
}

QMessageBox::Icon iconOf(int code) {
    switch (code & kIconMask) {
    case 16:
        return QMessageBox::Critical;
    case 32:
        return QMessageBox::Question;
    case 48:
        return QMessageBox::Warning;
    case 64:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

class QtMessages final : public MessageDoor {
public:
    MessageAnswer show(const MessageBox& content) override {
        QMessageBox box(QApplication::activeWindow());
        box.setIcon(iconOf(content.code));
        box.setWindowTitle(content.title.isEmpty() ? kProgramTitle : content.title);
        // The text may hold a name with markup in it, which must be read and not obeyed.
        box.setTextFormat(Qt::PlainText);
        box.setText(content.text);
        const auto buttons = buttonsOf(content.code);
        for (const auto& button : buttons)
            box.addButton(button.button)->setText(button.text);
        const bool second = (content.code & kDefaultMask) == 0x100 && buttons.size() > 1;
        box.setDefaultButton(buttons[second ? 1 : 0].button);
        box.setEscapeButton(buttons.back().button);
        if (!content.details.isEmpty())
            addDetails(box, content.details);
        const int pressed = box.exec();
        for (const auto& button : buttons)
            if (button.button == pressed)
                return button.answer;
        return buttons.back().answer;
    }

private:
    static void addDetails(QMessageBox& box, const QString& details) {
        box.setDetailedText(details);
        for (auto* button : box.buttons()) {
            if (box.buttonRole(button) != QMessageBox::ActionRole)
                continue;
            // Qt writes its own words back whenever the section opens or closes.
            const auto name = [button] { button->setText(u"Details"_s); };
            name();
            QObject::connect(button, &QAbstractButton::clicked, button, name, Qt::QueuedConnection);
        }
    }
};

class QtInput final : public InputDoor {
public:
    std::optional<QString> ask(const QString& title, const QString& text, const QString& preset) override {
        QInputDialog dialog(QApplication::activeWindow());
        dialog.setWindowTitle(title);
        dialog.setLabelText(text);
        dialog.setTextValue(preset);
        dialog.setOkButtonText(u"OK"_s);
        dialog.setCancelButtonText(u"Abbrechen"_s);
        if (dialog.exec() != QDialog::Accepted)
            return std::nullopt;
        return dialog.textValue();
    }
};

class QtFiles final : public FileDoor {
public:
    QString chooseFolder(const QString& title, const QString& start) override {
        QFileDialog dialog(QApplication::activeWindow(), title, start);
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly);
        dialog.setLabelText(QFileDialog::FileName, u"Ordner:"_s);
        return chosen(dialog);
    }

    QString chooseFile(const QString& title, const QString& start, const QString& filter) override {
        QFileDialog dialog(QApplication::activeWindow(), title, start, filter);
        dialog.setFileMode(QFileDialog::ExistingFile);
        dialog.setLabelText(QFileDialog::FileName, u"Dateiname:"_s);
        return chosen(dialog);
    }

    QString chooseSaveFile(const QString& title, const QString& start, const QString& filter) override {
        QFileDialog dialog(QApplication::activeWindow(), title, QFileInfo(start).path(), filter);
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
        dialog.selectFile(QFileInfo(start).fileName());
        dialog.setLabelText(QFileDialog::FileName, u"Dateiname:"_s);
        return chosen(dialog, u"Speichern"_s);
    }

private:
    static QString chosen(QFileDialog& dialog, const QString& accept = u"OK"_s) {
        // Qt's own translation may be missing on the machine; the office reads German all the same.
        dialog.setLabelText(QFileDialog::LookIn, u"Suchen in:"_s);
        dialog.setLabelText(QFileDialog::FileType, u"Dateityp:"_s);
        dialog.setLabelText(QFileDialog::Accept, accept);
        dialog.setLabelText(QFileDialog::Reject, u"Abbrechen"_s);
        return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
    }
};

/// Work that is over in a moment must not make a window flash up.
class QtProgress final : public ProgressDoor {
public:
    void begin(const QString& text, int steps) override {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        m_dialog = std::make_unique<QProgressDialog>(text, QString(), 0, steps, QApplication::activeWindow());
        m_dialog->setObjectName(u"Fortschritt"_s);
        m_dialog->setWindowTitle(kProgramTitle);
        m_dialog->setWindowModality(Qt::ApplicationModal);
        m_dialog->setAutoClose(false);
        m_dialog->setAutoReset(false);
        m_dialog->setMinimumDuration(std::numeric_limits<int>::max());
        m_running.start();
    }

    void step(int done) override {
        constexpr int kShownAfter = 500;
        if (m_dialog->isHidden() && m_running.elapsed() >= kShownAfter)
            m_dialog->show();
        m_dialog->setValue(done);
    }

    void end() override {
        m_dialog.reset();
        QApplication::restoreOverrideCursor();
    }

private:
    std::unique_ptr<QProgressDialog> m_dialog;
    QElapsedTimer m_running;
};

class QtDesktop final : public DesktopDoor {
public:
    bool open(const QString& file) override { return QDesktopServices::openUrl(QUrl::fromLocalFile(file)); }
};

} // namespace

void openQtDoors() {
    doors().messages = std::make_unique<QtMessages>();
    doors().input = std::make_unique<QtInput>();
    doors().files = std::make_unique<QtFiles>();
    doors().clock = std::make_unique<SystemClock>();
    doors().progress = std::make_unique<QtProgress>();
    doors().desktop = std::make_unique<QtDesktop>();
}

} // namespace kolibri
