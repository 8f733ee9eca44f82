#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString kSource = QStringLiteral(KOLIBRI_SOURCE_DIR) + u"/src/"_s;

bool isForm(const QString& path) {
    static const QRegularExpression form(u"(^|/)frm[^/]*$|^core/widgets/"_s);
    return form.match(path).hasMatch();
}

/// Folder of the house in which a file lies: "store", "core", "students", ...; empty for the mains.
QString roomOf(const QString& path) {
    if (path.startsWith(u"core/store/"_s))
        return u"store"_s;
    return path.contains(u'/') ? path.section(u'/', 0, 0) : QString();
}

/// Which rooms a room may use besides itself.
const QHash<QString, QStringList>& doorsOfTheHouse() {
    static const QHash<QString, QStringList> allowed{
        {u"store"_s, {}},
        {u"core"_s, {u"store"_s}},
        {u"students"_s, {u"store"_s, u"core"_s}},
        {u"calendar"_s, {u"store"_s, u"core"_s}},
        {u"maintenance"_s, {u"store"_s, u"core"_s}},
        {u"lists"_s, {u"store"_s, u"core"_s, u"students"_s, u"calendar"_s}},
        {u"web"_s, {u"core"_s}},
    };
    return allowed;
}

/// Why a file may not include another one; empty when it may.
QString complaint(const QString& file, const QString& included) {
    // The table of menu targets is the one place that knows every form and action.
    if (file.startsWith(u"core/frmStart_targets"_s) || roomOf(file).isEmpty())
        return {};
    if (!isForm(file) && isForm(included))
        return u"%1 is no form and includes %2"_s.arg(file, included);
    const QString from = roomOf(file);
    const QString to = roomOf(included);
    if (from == to || doorsOfTheHouse().value(from).contains(to))
        return {};
    return u"%1 includes %2"_s.arg(file, included);
}

QStringList sourceFiles() {
    QStringList files;
    QDirIterator walk(kSource, {u"*.h"_s, u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext())
        files << walk.next().mid(kSource.size());
    files.sort();
    return files;
}

QString contentOf(const QString& path) {
    QFile file(kSource + path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList includesOf(const QString& path) {
    static const QRegularExpression line(u"^#include \"([^\"]+)\""_s, QRegularExpression::MultilineOption);
    QStringList result;
    for (auto matches = line.globalMatch(contentOf(path)); matches.hasNext();)
        result << matches.next().captured(1);
    return result;
}

} // namespace

/// The rules of the house that no compiler checks.
class DependenciesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theRuleRefusesWhatItShould() {
        QVERIFY(complaint(u"core/store/connection.cpp"_s, u"core/mdlGlobal.h"_s).size() > 0);
        QVERIFY(complaint(u"core/startup.cpp"_s, u"maintenance/upgrade.h"_s).size() > 0);
        QVERIFY(complaint(u"students/cache.cpp"_s, u"lists/list_state.h"_s).size() > 0);
        QVERIFY(complaint(u"calendar/offerings.cpp"_s, u"calendar/frmBaustein.h"_s).size() > 0);
        QVERIFY(complaint(u"core/startup.cpp"_s, u"core/widgets/theme.h"_s).size() > 0);
        QVERIFY(complaint(u"lists/page.cpp"_s, u"maintenance/backup.h"_s).size() > 0);
        QCOMPARE(complaint(u"lists/page.cpp"_s, u"students/cache.h"_s), QString());
        QCOMPARE(complaint(u"calendar/frmBaustein.cpp"_s, u"calendar/modules.h"_s), QString());
    }

    void noIncludeBreaksTheRule() {
        const QStringList files = sourceFiles();
        QVERIFY(files.size() > 20);
        QStringList complaints;
        for (const auto& file : files)
            for (const auto& included : includesOf(file))
                if (const QString words = complaint(file, included); !words.isEmpty())
                    complaints << words;
        QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join(u'\n')));
    }

    void everyIncludeNamesItsFileFromTheRoot() {
        QStringList complaints;
        for (const auto& file : sourceFiles())
            for (const auto& included : includesOf(file))
                if (!QFile::exists(kSource + included))
                    complaints << file + u" includes "_s + included;
        QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join(u'\n')));
    }

    void onlyTheStoreKnowsADatabaseEngine() {
        static const QRegularExpression engine(u"#include <(QSql|sqlite3)"_s);
        QStringList complaints;
        for (const auto& file : sourceFiles())
            if (roomOf(file) != u"store"_s && !file.startsWith(u"precompiled"_s)
                && contentOf(file).contains(engine))
                complaints << file;
        QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join(u'\n')));
    }

    void everyFileIsFormatted() {
        const QString tool = QStandardPaths::findExecutable(u"clang-format"_s);
        if (tool.isEmpty())
            QSKIP("clang-format is not installed");
        QStringList files;
        for (const auto& folder : {u"src"_s, u"tests"_s, u"bench"_s, u"tools"_s}) {
            QDirIterator walk(QStringLiteral(KOLIBRI_SOURCE_DIR) + u'/' + folder, {u"*.h"_s, u"*.cpp"_s},
                              QDir::Files, QDirIterator::Subdirectories);
            while (walk.hasNext())
                files << walk.next();
        }
        QProcess process;
        process.start(tool, QStringList{u"--dry-run"_s, u"-Werror"_s} + files);
        QVERIFY(process.waitForFinished(120'000));
        QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());
    }
};

QTEST_GUILESS_MAIN(DependenciesTest)
#include "dependencies_test.moc"
