#pragma once

#include "core/doors.h"
#include "core/store/connection.h"

#include <QObject>
#include <QStringList>
#include <QTemporaryDir>

#include <deque>
#include <memory>
#include <optional>
#include <vector>

namespace kolibri::test {

/// What the doors were asked, and what they answer. A box that no test announced gets its default button and
/// is a failure at the end of the test.
class RecordedDoors {
public:
    /// The next box must have this text and is answered so.
    void expect(const QString& text, MessageAnswer answer = kAnswerOk);
    /// The next box must begin with this text.
    void expectBeginning(const QString& text, MessageAnswer answer = kAnswerOk);
    /// Queue an answer of the other doors; without one they answer as if the user had given up.
    void answerInput(const QString& text) { m_inputs.push_back(text); }
    void answerPath(const QString& path) { m_paths.push_back(path); }
    void setNow(const QDateTime& now) { m_now = now; }
    /// The default printer has this paper, however it lies; without it the sheet is A4.
    void setPaper(const PaperMeasures& paper) { m_paper = paper; }

    /// Every box shown since the test began, in order.
    const std::vector<MessageBox>& boxes() const { return m_boxes; }
    /// Titles of the input, file and folder dialogs asked for.
    const QStringList& dialogs() const { return m_dialogs; }
    /// Names that were suggested for files to be written, in order.
    const QStringList& suggestions() const { return m_suggestions; }
    /// Orientations that the printer was told, in order.
    const std::vector<PaperOrientation>& orientations() const { return m_orientations; }
    /// Numbers of the lists whose page was shown, in order. A shown page is written as the window does it.
    const std::vector<quint8>& pages() const { return m_pages; }
    /// Files that were to be opened by the desktop, in order; it knows a program for them unless told not to.
    const QStringList& openedFiles() const { return m_openedFiles; }
    void setDesktopOpens(bool opens) { m_desktopOpens = opens; }
    /// What was expected and did not happen, and what happened unexpectedly; empty when all went as
    /// announced.
    QStringList complaints() const;

    /// Puts doors in that report to this object.
    void install();

private:
    friend class TestMessages;
    friend class TestInput;
    friend class TestFiles;
    friend class TestClock;
    friend class TestPrinter;
    friend class TestPage;
    friend class TestDesktop;

    struct Expectation {
        QString text;
        bool wholeText;
        MessageAnswer answer;
    };

    std::deque<Expectation> m_expected;
    std::vector<MessageBox> m_boxes;
    std::deque<QString> m_inputs;
    std::deque<QString> m_paths;
    QStringList m_dialogs;
    QStringList m_suggestions;
    QStringList m_unexpected;
    std::optional<PaperMeasures> m_paper;
    std::vector<PaperOrientation> m_orientations;
    std::vector<quint8> m_pages;
    QStringList m_openedFiles;
    bool m_desktopOpens = true;
    QDateTime m_now = QDateTime(QDate(2026, 11, 20), QTime(9, 30));
};

/// Base of every test object: before each test function a new shared state, a new empty base folder and doors
/// that record; after it, failure for a box nobody announced, a warning of Qt, or a connection left open.
class TestBase : public QObject {
    Q_OBJECT

public:
    TestBase();

protected:
    /// The base folder of the program in this test, with its ProgramData.
    QString home() const { return m_home->path(); }
    /// A folder of the test's own beside it.
    QString scratch() const;
    /// Puts an empty database into the base folder, where DB_Pfad points; made once per test program and
    /// copied.
    void useEmptyDatabase();
    /// Makes the sample school there; made once per test program and copied.
    void useSampleSchool(int pupils = 320);

    RecordedDoors doorsOfTest;

protected Q_SLOTS:
    void init();
    void cleanup();

private:
    std::unique_ptr<QTemporaryDir> m_home;
};

/// All rows of a table as texts, "Feld=Wert" joined with "; ", in the store's order.
QStringList tableRows(Connection& conn, const QString& table);
/// All tables of the database in DB_Pfad: name to rows. For comparing before and after.
QMap<QString, QStringList> wholeDatabase();

} // namespace kolibri::test

/// Main function of a test program that may show widgets.
#define KOLIBRI_TEST_MAIN(TestClass)                                                                         \
    int main(int argc, char** argv) {                                                                        \
        kolibri::Application application(argc, argv);                                                        \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
