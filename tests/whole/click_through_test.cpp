// Opens everything that the menu and the large buttons offer and presses every button there, on a school and
// on an empty database. Looks for errors nobody expects, for windows that do not fit the screen, for widgets
// that are cut off or lie over each other, and for controls that the keyboard does not reach.

#include "core/frmStart.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/menu_table.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "core/widgets/list_view.h"
#include "support/driving.h"
#include "support/test_base.h"

#include <QAction>
#include <QButtonGroup>
#include <QComboBox>
#include <QGroupBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QScreen>
#include <QTabWidget>
#include <QTemporaryFile>
#include <QTextEdit>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

constexpr int kStopSign = 16;

/// Answers every question the same way and keeps the boxes that tell of an error.
class SteadyMessages final : public MessageDoor {
public:
    MessageAnswer show(const MessageBox& box) override {
        if (box.code == kStopSign)
            errors << box.text;
        return (box.code & 0x0f) == 4 ? (yes ? kAnswerYes : kAnswerNo) : kAnswerOk;
    }

    bool yes = false;
    QStringList errors;
};

bool isControl(const QWidget& widget) {
    return qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget)
           || qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QAbstractItemView*>(&widget)
           || qobject_cast<const QTextEdit*>(&widget);
}

/// Parts that a control is made of; only the whole is the form's.
bool isPart(const QWidget& widget) {
    for (const QWidget* above = widget.parentWidget(); above && !above->isWindow();
         above = above->parentWidget())
        if (isControl(*above) || above->inherits("QTabBar") || above->inherits("QMenuBar")
            || above->inherits("QStatusBar"))
            return true;
    return false;
}

QString nameOf(const QWidget& widget) {
    return widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className()) + u" \""_s
                                               + widget.property("text").toString() + u'"'
                                         : widget.objectName();
}

/// True for a control that Tab leads to, or an arrow key from the chosen one of its group. A box that only
/// shows something needs no keyboard.
bool isReached(const QWidget& control) {
    const auto* line = qobject_cast<const QLineEdit*>(&control);
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return (control.focusPolicy() & Qt::TabFocus) != 0 || (line && line->isReadOnly())
           || (button && button->group() && button->group()->exclusive());
}

/// What a user sees wrong with a window as it stands.
QStringList faultsOfLook(const QWidget& window) {
    QStringList faults;
    const QSize screen = window.screen()->availableSize();
    if (window.width() > screen.width() || window.height() > screen.height())
        faults << u"larger than the screen"_s;
    QList<const QWidget*> seen;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const bool isText = qobject_cast<const QLabel*>(widget) != nullptr;
        if (!widget->isVisible() || isPart(*widget) || (!isControl(*widget) && !isText))
            continue;
        seen << widget;
        const QSize least = widget->minimumSizeHint();
        if (least.isValid() && (widget->width() < least.width() || widget->height() < least.height()))
            faults << nameOf(*widget) + u" is cut off"_s;
        if (isControl(*widget) && widget->isEnabled() && !isReached(*widget))
            faults << nameOf(*widget) + u" is not reached by the keyboard"_s;
    }
    for (qsizetype i = 0; i < seen.size(); ++i)
        for (qsizetype k = i + 1; k < seen.size(); ++k)
            if (seen[i]->parentWidget() == seen[k]->parentWidget()
                && seen[i]->geometry().intersects(seen[k]->geometry()))
                faults << nameOf(*seen[i]) + u" lies over "_s + nameOf(*seen[k]);
    return faults;
}

} // namespace

class ClickThroughTest : public TestBase {
    Q_OBJECT

private:
    SteadyMessages* m_messages = nullptr;
    QStringList m_faults;
    int m_pressed = 0;

    void fresh(bool school) {
        unloadForms();
        QFile::remove(DatenbankDatei(home()));
        if (school)
            useSampleSchool(40);
        else
            useEmptyDatabase();
        QCOMPARE(startUp(QCoreApplication::applicationDirPath()), StartState::Ready);
        Form<frmStart>().setState(StartState::Ready);
        Form<frmStart>().show();
    }

    static FormWindow* openForm() { return dynamic_cast<FormWindow*>(QApplication::activeModalWidget()); }

    void note(const QString& where, const QStringList& faults) {
        for (const auto& fault : faults)
            if (const QString line = where + u": "_s + fault; !m_faults.contains(line))
                m_faults << line;
    }

    void noteErrors(const QString& where) {
        note(where, m_messages->errors);
        m_messages->errors.clear();
    }

    /// Closes what a form has opened.
    static void closeAbove(const FormWindow* form) {
        while (FormWindow* above = openForm()) {
            if (above == form)
                return;
            above->close();
            QCoreApplication::processEvents();
        }
    }

    void lookAtAllPages(FormWindow& form) {
        const QString name = form.objectName() + u' ' + form.Tag;
        const auto tabs = form.findChildren<QTabWidget*>();
        note(name, faultsOfLook(form));
        for (auto* tab : tabs)
            for (int page = 0; page < tab->count(); ++page) {
                tab->setCurrentIndex(page);
                QCoreApplication::processEvents();
                note(name + u" page "_s + tab->tabText(page), faultsOfLook(form));
            }
    }

    static void chooseFirstRows(FormWindow& form) {
        for (auto* list : form.findChildren<ListView*>())
            if (list->isVisible() && list->isEnabled() && list->rowCount() > 0)
                clickRow(*list, 1);
        for (auto* list : form.findChildren<QListWidget*>())
            if (list->isVisible() && list->isEnabled() && list->count() > 0)
                clickEntry(*list, list->item(0)->text());
    }

    void pressEveryButton(const QString& entry, const std::function<void()>& open, bool firstRow) {
        open();
        FormWindow* form = openForm();
        noteErrors(entry);
        if (!form)
            return;
        lookAtAllPages(*form);
        QStringList names;
        for (auto* button : form->findChildren<QAbstractButton*>())
            if (!button->objectName().isEmpty() && !isPart(*button))
                names << button->objectName();
        for (const auto& name : std::as_const(names)) {
            if (openForm() != form) {
                open();
                form = openForm();
                if (!form)
                    break;
            }
            if (firstRow)
                chooseFirstRows(*form);
            auto* button = form->findChild<QAbstractButton*>(name);
            if (!button || !button->isVisible() || !button->isEnabled())
                continue;
            QTest::mouseClick(button, Qt::LeftButton);
            ++m_pressed;
            QCoreApplication::processEvents();
            noteErrors(entry + u' ' + form->objectName() + u'.' + name);
            if (FormWindow* above = openForm(); above && above != form)
                lookAtAllPages(*above);
            closeAbove(form);
        }
        while (FormWindow* left = openForm()) {
            left->close();
            QCoreApplication::processEvents();
        }
        noteErrors(entry);
    }

private Q_SLOTS:
    void initTestCase() { QCOMPARE(QGuiApplication::primaryScreen()->size(), QSize(1366, 768)); }

    void everythingOpensAndEveryButtonCanBePressed_data() {
        QTest::addColumn<bool>("school");
        QTest::addColumn<bool>("yes");
        QTest::newRow("a school, No") << true << false;
        QTest::newRow("a school, Yes") << true << true;
        QTest::newRow("an empty database, No") << false << false;
        QTest::newRow("an empty database, Yes") << false << true;
    }

    void everythingOpensAndEveryButtonCanBePressed() {
        QFETCH(bool, school);
        QFETCH(bool, yes);
        auto messages = std::make_unique<SteadyMessages>();
        messages->yes = yes;
        m_messages = messages.get();
        doors().messages = std::move(messages);
        m_faults.clear();
        m_pressed = 0;
        for (const auto& entry : menuTable()) {
            if (entry.task.target.isEmpty() || entry.name == u"mnuBeenden")
                continue;
            for (const bool firstRow : {false, true}) {
                fresh(school);
                const auto open = [&] {
                    auto* action = Form<frmStart>().findChild<QAction*>(entry.name);
                    QVERIFY(action);
                    if (action->isEnabled())
                        action->trigger();
                    QCoreApplication::processEvents();
                };
                pressEveryButton(entry.name, open, firstRow);
            }
        }
        QVERIFY2(m_faults.isEmpty(), qPrintable(m_faults.join(u'\n')));
        // More than one for each entry, or the walk has not found the forms.
        QVERIFY2(m_pressed > 200, qPrintable(QString::number(m_pressed)));
    }

    void everyLargeButtonOpensWhatItsEntryOpens() {
        for (const auto& large : largeButtons()) {
            fresh(true);
            auto messages = std::make_unique<SteadyMessages>();
            m_messages = messages.get();
            doors().messages = std::move(messages);
            m_faults.clear();
            note(u"frmStart"_s, faultsOfLook(Form<frmStart>()));
            const std::size_t before = doorsOfTest.pages().size();
            press(Form<frmStart>(), large.name);
            QCoreApplication::processEvents();
            const FormWindow* byButton = openForm();
            QVERIFY2(byButton || doorsOfTest.pages().size() > before, qPrintable(large.name));
            noteErrors(large.name);
            QVERIFY2(m_faults.isEmpty(), qPrintable(m_faults.join(u'\n')));
            closeAbove(nullptr);
        }
    }
};

/// The screen of an office's computer: the platform without a screen has a smaller one otherwise.
int main(int argc, char** argv) {
    QTemporaryFile screen;
    if (!screen.open())
        return EXIT_FAILURE;
    const double scale = qEnvironmentVariable("QT_SCALE_FACTOR", u"1"_s).toDouble();
    const auto pixels = [scale](int points) { return points * scale; };
    const QJsonObject geometry{{u"name"_s, u"Office"_s},
                               {u"x"_s, 0},
                               {u"y"_s, 0},
                               {u"width"_s, pixels(1366)},
                               {u"height"_s, pixels(768)}};
    screen.write(QJsonDocument(QJsonObject{{u"screens"_s, QJsonArray{geometry}}}).toJson());
    screen.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toLocal8Bit());
    Application application(argc, argv);
    ClickThroughTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "click_through_test.moc"
