#include "support/test_base.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/forms.h"
#include "lists/list_state.h"
#include "lists/page_production.h"
#include "maintenance/new_database.h"
#include "maintenance/sample_school.h"

#include <QDir>
#include <QSettings>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kolibri::test {
namespace {

QStringList g_warnings;
QtMessageHandler g_previousHandler = nullptr;

void recordWarning(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    // The offscreen platform has no window manager and says so wherever a window asks for one.
    if (text.startsWith(u"This plugin does not support "_s))
        return;
    // The browser engine says so wherever pages are drawn without graphics hardware, as they are here.
    if (text.startsWith(u"No suitable graphics backend found"_s))
        return;
    if (type == QtWarningMsg || type == QtCriticalMsg)
        g_warnings << text;
    if (g_previousHandler)
        g_previousHandler(type, context, text);
}

} // namespace

class TestMessages final : public MessageDoor {
public:
    explicit TestMessages(RecordedDoors& record) : m_record(record) {}

    MessageAnswer show(const MessageBox& box) override {
        m_record.m_boxes.push_back(box);
        if (m_record.m_expected.empty()) {
            m_record.m_unexpected << u"unexpected box: "_s + box.text + u' ' + box.details;
            return standardAnswer(box.code);
        }
        const auto expected = m_record.m_expected.front();
        m_record.m_expected.pop_front();
        const bool fits = expected.wholeText ? box.text == expected.text : box.text.startsWith(expected.text);
        if (!fits)
            m_record.m_unexpected << u"expected \"%1\", but saw \"%2\""_s.arg(expected.text, box.text);
        return expected.answer;
    }

private:
    static MessageAnswer standardAnswer(int code) {
        if ((code & 0x0f) != 4)
            return kAnswerOk;
        return (code & 0x100) != 0 ? kAnswerNo : kAnswerYes;
    }

    RecordedDoors& m_record;
};

class TestInput final : public InputDoor {
public:
    explicit TestInput(RecordedDoors& record) : m_record(record) {}

    std::optional<QString> ask(const QString& title, const QString&, const QString&) override {
        m_record.m_dialogs << title;
        if (m_record.m_inputs.empty())
            return std::nullopt;
        const QString answer = m_record.m_inputs.front();
        m_record.m_inputs.pop_front();
        return answer;
    }

private:
    RecordedDoors& m_record;
};

class TestFiles final : public FileDoor {
public:
    explicit TestFiles(RecordedDoors& record) : m_record(record) {}

    QString chooseFolder(const QString& title, const QString&) override { return next(title); }
    QString chooseFile(const QString& title, const QString&, const QString&) override { return next(title); }
    QString chooseSaveFile(const QString& title, const QString& start, const QString&) override {
        m_record.m_suggestions << start;
        return next(title);
    }

private:
    QString next(const QString& title) {
        m_record.m_dialogs << title;
        if (m_record.m_paths.empty())
            return {};
        const QString path = m_record.m_paths.front();
        m_record.m_paths.pop_front();
        return path;
    }

    RecordedDoors& m_record;
};

class TestClock final : public ClockDoor {
public:
    explicit TestClock(RecordedDoors& record) : m_record(record) {}
    QDateTime now() const override { return m_record.m_now; }

private:
    RecordedDoors& m_record;
};

class TestPrinter final : public A4Paper {
public:
    explicit TestPrinter(RecordedDoors& record) : m_record(record) {}

    void setOrientation(PaperOrientation orientation) override {
        m_record.m_orientations.push_back(orientation);
        A4Paper::setOrientation(orientation);
    }
    PaperMeasures measures() const override {
        return m_record.m_paper ? *m_record.m_paper : A4Paper::measures();
    }

private:
    RecordedDoors& m_record;
};

class TestPage final : public PageDoor {
public:
    explicit TestPage(RecordedDoors& record) : m_record(record) {}

    void show() override {
        producePage();
        m_record.m_pages.push_back(Global().ListenArt);
    }

private:
    RecordedDoors& m_record;
};

class TestDesktop final : public DesktopDoor {
public:
    explicit TestDesktop(RecordedDoors& record) : m_record(record) {}

    bool open(const QString& file) override {
        m_record.m_openedFiles << file;
        return m_record.m_desktopOpens;
    }

private:
    RecordedDoors& m_record;
};

void RecordedDoors::expect(const QString& text, MessageAnswer answer) {
    m_expected.push_back({text, true, answer});
}

void RecordedDoors::expectBeginning(const QString& text, MessageAnswer answer) {
    m_expected.push_back({text, false, answer});
}

QStringList RecordedDoors::complaints() const {
    QStringList result = m_unexpected;
    for (const auto& missing : m_expected)
        result << u"box that did not come: "_s + missing.text;
    return result;
}

void RecordedDoors::install() {
    doors().messages = std::make_unique<TestMessages>(*this);
    doors().input = std::make_unique<TestInput>(*this);
    doors().files = std::make_unique<TestFiles>(*this);
    doors().clock = std::make_unique<TestClock>(*this);
    doors().printer = std::make_unique<TestPrinter>(*this);
    doors().page = std::make_unique<TestPage>(*this);
    doors().desktop = std::make_unique<TestDesktop>(*this);
}

TestBase::TestBase() {
    // The program finds its page module beside itself; a test program lies elsewhere.
    QCoreApplication::addLibraryPath(QStringLiteral(KOLIBRI_BIN_DIR));
}

QString TestBase::scratch() const {
    const QString folder = home() + u"/scratch"_s;
    QDir().mkpath(folder);
    return folder;
}

void TestBase::init() {
    g_warnings.clear();
    // Before each test, because Qt Test puts its own handler in when it begins.
    g_previousHandler = qInstallMessageHandler(recordWarning);
    m_home = std::make_unique<QTemporaryDir>();
    QVERIFY(m_home->isValid());
    qputenv("KOLIBRI_HOME", m_home->path().toLocal8Bit());
    qputenv("ComputerName", "TEST-PC");
    QVERIFY(QDir(home()).mkdir(u"ProgramData"_s));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, scratch());
    GlobalNeu();
    ListeNeu();
    Global().DB_Pfad = home();
    doorsOfTest = {};
    doorsOfTest.install();
}

void TestBase::cleanup() {
    unloadForms();
    const bool leftOpen = Global().Conn.IsOpen();
    CloseDB();
    qInstallMessageHandler(g_previousHandler);
    QVERIFY2(!leftOpen, "the connection was left open");
    const QStringList complaints = doorsOfTest.complaints();
    QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join(u'\n')));
    QVERIFY2(g_warnings.isEmpty(), qPrintable(g_warnings.join(u'\n')));
}

void TestBase::useEmptyDatabase() {
    static QTemporaryDir cache;
    if (!QFile::exists(DatenbankDatei(cache.path())))
        createDatabase(cache.path());
    QVERIFY(QFile::copy(DatenbankDatei(cache.path()), DatenbankDatei(home())));
}

void TestBase::useSampleSchool(int pupils) {
    static QTemporaryDir cache;
    const QString folder = cache.filePath(QString::number(pupils));
    if (!QDir(folder).exists()) {
        QVERIFY(QDir().mkpath(folder));
        createSampleSchool(folder, {.pupils = pupils});
    }
    QVERIFY(QFile::copy(DatenbankDatei(folder), DatenbankDatei(home())));
}

QStringList tableRows(Connection& conn, const QString& table) {
    QStringList rows;
    for (Recordset rs = conn.Open(u"SELECT * FROM \"%1\""_s.arg(table)); !rs.Eof(); rs.MoveNext()) {
        QStringList cells;
        for (int i = 0; i < rs.FieldCount(); ++i)
            cells << rs.FieldName(i) + u'=' + (rs.Value(i).isNull() ? u"<null>"_s : rs.Text(i));
        rows << cells.join(u"; "_s);
    }
    return rows;
}

QMap<QString, QStringList> wholeDatabase() {
    QMap<QString, QStringList> result;
    const DbSession session(u"Vergleich"_s);
    for (const auto& table : Global().Conn.Tables())
        result.insert(table, tableRows(Global().Conn, table));
    return result;
}

} // namespace kolibri::test
