#include "core/mdlAllgemein.h"
#include "core/widgets/application.h"
#include "core/widgets/qt_doors.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

QString plain(QString caption) {
    return caption.remove(u'&');
}

/// What the user sees of a message box.
struct Seen {
    QString title;
    QString text;
    Qt::TextFormat format = Qt::AutoText;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QStringList buttons;
    QString standard;
    QString details;
};

Seen look(const QMessageBox& box) {
    Seen seen{box.windowTitle(), box.text(), box.textFormat(), box.icon(), {}, {}, box.detailedText()};
    for (const auto* button : box.findChildren<QAbstractButton*>())
        if (button->isVisible())
            seen.buttons << plain(button->text());
    if (box.defaultButton())
        seen.standard = plain(box.defaultButton()->text());
    return seen;
}

template <class Dialog> Dialog& dialogOnScreen() {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    if (!dialog)
        qFatal("no such dialog on the screen");
    return *dialog;
}

} // namespace

class QtDoorsTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    /// Shows the box, looks at it, and then does what the user does.
    template <class Act> Seen showBox(const MessageBox& content, Act act, MessageAnswer& answer) {
        Seen seen;
        QTimer::singleShot(0, this, [&] {
            auto& box = dialogOnScreen<QMessageBox>();
            seen = look(box);
            act(box);
        });
        answer = doors().messages->show(content);
        return seen;
    }

    MessageAnswer answerTo(int code, Qt::Key key) {
        MessageAnswer answer{};
        showBox(
            {u"Frage"_s, code, {}}, [key](QMessageBox& box) { QTest::keyClick(&box, key); }, answer);
        return answer;
    }

    static QAbstractButton* buttonNamed(const QWidget& dialog, const QString& caption) {
        for (auto* button : dialog.findChildren<QAbstractButton*>())
            if (plain(button->text()) == caption)
                return button;
        qFatal("no button %s", qPrintable(caption));
    }

private Q_SLOTS:
    void aBoxHasTheTitleTextButtonsIconAndDefaultOfItsCode_data() {
        QTest::addColumn<int>("code");
        QTest::addColumn<QStringList>("buttons");
        QTest::addColumn<QString>("standard");
        QTest::addColumn<QMessageBox::Icon>("icon");
        const QStringList ok{u"OK"_s};
        const QStringList yesNo{u"Ja"_s, u"Nein"_s};
        QTest::newRow("0") << 0 << ok << u"OK"_s << QMessageBox::NoIcon;
        QTest::newRow("1") << 1 << QStringList{u"OK"_s, u"Abbrechen"_s} << u"OK"_s << QMessageBox::NoIcon;
        QTest::newRow("16") << 16 << ok << u"OK"_s << QMessageBox::Critical;
        QTest::newRow("20") << 20 << yesNo << u"Ja"_s << QMessageBox::Critical;
        QTest::newRow("36") << 36 << yesNo << u"Ja"_s << QMessageBox::Question;
        QTest::newRow("48") << 48 << ok << u"OK"_s << QMessageBox::Warning;
        QTest::newRow("64") << 64 << ok << u"OK"_s << QMessageBox::Information;
        QTest::newRow("257") << 257 << QStringList{u"OK"_s, u"Abbrechen"_s} << u"Abbrechen"_s
                             << QMessageBox::NoIcon;
        QTest::newRow("292") << 292 << yesNo << u"Nein"_s << QMessageBox::Question;
    }

    void aBoxHasTheTitleTextButtonsIconAndDefaultOfItsCode() {
        QFETCH(const int, code);
        openQtDoors();
        MessageAnswer answer{};
        const Seen seen = showBox(
            {u"Wirklich\nlöschen?"_s, code, u"Schüler löschen"_s},
            [](QMessageBox& box) { box.defaultButton()->click(); }, answer);
        QCOMPARE(seen.title, u"Schüler löschen"_s);
        QCOMPARE(seen.text, u"Wirklich\nlöschen?"_s);
        QCOMPARE(seen.details, QString());
        QTEST(seen.buttons, "buttons");
        QTEST(seen.standard, "standard");
        QTEST(seen.icon, "icon");
    }

    void aBoxWithoutATitleBearsTheProgramsName() {
        openQtDoors();
        MessageAnswer answer{};
        const Seen seen = showBox(
            {u"Fertig"_s, 0, {}}, [](QMessageBox& box) { box.defaultButton()->click(); }, answer);
        QCOMPARE(seen.title, u"Kolibri"_s);
        QCOMPARE(answer, kAnswerOk);
    }

    void markupInANameIsShownAndNotObeyed() {
        openQtDoors();
        MessageAnswer answer{};
        const QString name = u"<b>Anna</b> <img src=x> &amp; ist bereits vorhanden!"_s;
        QString shown;
        const Seen seen = showBox(
            {name, 48, {}},
            [&](QMessageBox& box) {
                auto* label = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
                QCOMPARE(label->textFormat(), Qt::PlainText);
                shown = label->text();
                box.close();
            },
            answer);
        QCOMPARE(seen.text, name);
        QCOMPARE(seen.format, Qt::PlainText);
        QCOMPARE(shown, name);
    }

    void enterGivesTheDefaultAndEscapeNo() {
        openQtDoors();
        for (const int code : {4, 20, 36}) {
            QCOMPARE(answerTo(code, Qt::Key_Return), kAnswerYes);
            QCOMPARE(answerTo(code, Qt::Key_Escape), kAnswerNo);
        }
        QCOMPARE(answerTo(292, Qt::Key_Return), kAnswerNo);
        QCOMPARE(answerTo(292, Qt::Key_Escape), kAnswerNo);
        QCOMPARE(answerTo(1, Qt::Key_Return), kAnswerOk);
        QCOMPARE(answerTo(1, Qt::Key_Escape), kAnswerCancel);
        QCOMPARE(answerTo(257, Qt::Key_Return), kAnswerCancel);
        QCOMPARE(answerTo(48, Qt::Key_Escape), kAnswerOk);
    }

    void theFirstLettersAnswerAQuestion() {
        openQtDoors();
        QCOMPARE(answerTo(292, Qt::Key_J), kAnswerYes);
        QCOMPARE(answerTo(36, Qt::Key_N), kAnswerNo);
    }

    void closingAQuestionMeansNo() {
        openQtDoors();
        MessageAnswer answer{};
        showBox(
            {u"Speichern?"_s, 36, {}}, [](QMessageBox& box) { box.close(); }, answer);
        QCOMPARE(answer, kAnswerNo);
    }

    void detailsOpenAndCloseUnderOneGermanWord() {
        openQtDoors();
        MessageAnswer answer{};
        const MessageBox content{u"Fehler"_s, 16, u"Kolibri"_s, u"Tabelle: Klassen"_s};
        bool before = true;
        bool opened = false;
        bool closedAgain = false;
        QString wordWhenOpen;
        const Seen seen = showBox(
            content,
            [&](QMessageBox& box) {
                auto* text = box.findChild<QTextEdit*>();
                auto* details = buttonNamed(box, u"Details"_s);
                before = text->isVisible();
                details->click();
                QCoreApplication::processEvents();
                opened = text->isVisible() && text->toPlainText() == u"Tabelle: Klassen"_s;
                wordWhenOpen = details->text();
                details->click();
                QCoreApplication::processEvents();
                closedAgain = !text->isVisible() && details->text() == u"Details"_s;
                box.defaultButton()->click();
            },
            answer);
        QCOMPARE(seen.details, u"Tabelle: Klassen"_s);
        QCOMPARE(seen.standard, u"OK"_s);
        QVERIFY(seen.buttons.contains(u"OK"_s) && seen.buttons.contains(u"Details"_s));
        QVERIFY(!before);
        QVERIFY(opened);
        QCOMPARE(wordWhenOpen, u"Details"_s);
        QVERIFY(closedAgain);
        QCOMPARE(answer, kAnswerOk);
    }

    void anInputBoxAsksForOneLine() {
        openQtDoors();
        QString title;
        QString label;
        QString preset;
        QTimer::singleShot(0, this, [&] {
            auto& dialog = dialogOnScreen<QInputDialog>();
            title = dialog.windowTitle();
            label = dialog.labelText();
            preset = dialog.textValue();
            dialog.findChild<QLineEdit*>()->setText(u"2027"_s);
            buttonNamed(dialog, u"OK"_s)->click();
        });
        QCOMPARE(doors().input->ask(u"Wechsel"_s, u"Neues Schuljahr:"_s, u"2026"_s), u"2027"_s);
        QCOMPARE(title, u"Wechsel"_s);
        QCOMPARE(label, u"Neues Schuljahr:"_s);
        QCOMPARE(preset, u"2026"_s);
    }

    void anInputBoxGivenUpGivesNoValue() {
        openQtDoors();
        QTimer::singleShot(0, this,
                           [&] { buttonNamed(dialogOnScreen<QInputDialog>(), u"Abbrechen"_s)->click(); });
        QVERIFY(!doors().input->ask(u"Wechsel"_s, u"Neues Schuljahr:"_s, u"2026"_s));
        QTimer::singleShot(0, this, [&] { buttonNamed(dialogOnScreen<QInputDialog>(), u"OK"_s)->click(); });
        QCOMPARE(doors().input->ask(u"Wechsel"_s, u"Name:"_s, {}), QString());
    }

    void aFolderDialogGivesTheChosenFolder() {
        openQtDoors();
        QString title;
        QStringList words;
        QTimer::singleShot(0, this, [&] {
            auto& dialog = dialogOnScreen<QFileDialog>();
            title = dialog.windowTitle();
            QCOMPARE(dialog.fileMode(), QFileDialog::Directory);
            words << dialog.labelText(QFileDialog::LookIn) << dialog.labelText(QFileDialog::FileName);
            words << plain(buttonNamed(dialog, u"OK"_s)->text())
                  << plain(buttonNamed(dialog, u"Abbrechen"_s)->text());
            buttonNamed(dialog, u"OK"_s)->click();
        });
        QCOMPARE(doors().files->chooseFolder(u"Bitte wählen Sie einen Ordner aus..."_s, scratch()),
                 scratch());
        QCOMPARE(title, u"Bitte wählen Sie einen Ordner aus..."_s);
        QCOMPARE(words, QStringList({u"Suchen in:"_s, u"Ordner:"_s, u"OK"_s, u"Abbrechen"_s}));
    }

    void aFileDialogOffersTheFilesOfItsFilter() {
        openQtDoors();
        QFile file(scratch() + u"/Schüler.xls"_s);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QString title;
        QStringList filters;
        QString okWord;
        QTimer::singleShot(0, this, [&] {
            auto& dialog = dialogOnScreen<QFileDialog>();
            title = dialog.windowTitle();
            filters = dialog.nameFilters();
            dialog.selectFile(file.fileName());
            auto* ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
            okWord = plain(ok->text());
            ok->click();
        });
        QCOMPARE(doors().files->chooseFile(u"Datei öffnen"_s, scratch(), u"Excel-Dateien (*.xls)"_s),
                 file.fileName());
        QCOMPARE(title, u"Datei öffnen"_s);
        QCOMPARE(filters, QStringList(u"Excel-Dateien (*.xls)"_s));
        QCOMPARE(okWord, u"OK"_s);
    }

    void aFileDialogGivenUpGivesAnEmptyPath() {
        openQtDoors();
        QTimer::singleShot(0, this,
                           [&] { buttonNamed(dialogOnScreen<QFileDialog>(), u"Abbrechen"_s)->click(); });
        QCOMPARE(doors().files->chooseFile(u"Datei öffnen"_s, scratch(), u"Alle (*)"_s), QString());
        QTimer::singleShot(0, this,
                           [&] { buttonNamed(dialogOnScreen<QFileDialog>(), u"Abbrechen"_s)->click(); });
        QCOMPARE(doors().files->chooseFolder(u"Ordner"_s, scratch()), QString());
    }

    void theClockIsThatOfTheMachine() {
        openQtDoors();
        const auto before = QDateTime::currentDateTime();
        const auto now = doors().clock->now();
        QVERIFY(before <= now && now <= QDateTime::currentDateTime());
    }
};

KOLIBRI_TEST_MAIN(QtDoorsTest)
#include "qt_doors_test.moc"
