#include "maintenance/restore.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/progress.h"
#include "core/runtime_error.h"
#include "core/windows1252.h"
#include "maintenance/backup.h"
#include "maintenance/safety_net.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kTable = u"<tbl>"_s;
const QString kColumns = u"<col>"_s;
const QString kRow = u"<dat>"_s;
const QString kRowEnd = u"</dat>"_s;
constexpr qsizetype kTagLength = 5;
constexpr qsizetype kEndTagLength = 6;

/// A piece of a text by its length; a negative length is what a line that was cut off leaves.
QString piece(const QString& text, qsizetype from, qsizetype length) {
    if (length < 0)
        throw RuntimeError::invalidCall(u"Zeile der Sicherungsdatei: "_s + text.left(80));
    return text.mid(from, length);
}

QStringList fieldsOf(const QString& text) {
    return text.isEmpty() ? QStringList() : text.split(u'|');
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError::fileAccess(QDir::toNativeSeparators(path) + u'\n' + file.errorString());
    return file.readAll();
}

} // namespace

BackupReader::BackupReader(Connection& conn) : m_conn(conn), m_tables(conn.Tables()) {}

void BackupReader::TakeLine(const QString& line) {
    const bool begins = line.startsWith(kRow);
    const bool ends = line.endsWith(kRowEnd);
    if (line.startsWith(kTable)) {
        TakeTable(line);
    } else if (line.startsWith(kColumns)) {
        TakeColumns(line);
    } else if (begins && ends) {
        TakeRow(line.sliced(kTagLength).chopped(kEndTagLength));
    } else if (begins) {
        m_buffer = line.sliced(kTagLength) + u"\r\n"_s;
    } else if (ends) {
        m_buffer += line.chopped(kEndTagLength);
        TakeRow(std::exchange(m_buffer, {}));
    } else {
        m_buffer += line + u"\r\n"_s;
    }
}

void BackupReader::TakeTable(const QString& line) {
    AktuelleTabelle = piece(line, kTagLength, line.size() - kTagLength - kEndTagLength);
    TabelleBekannt = m_tables.contains(AktuelleTabelle);
    if (TabelleBekannt)
        m_conn.Delete(AktuelleTabelle);
}

void BackupReader::TakeColumns(const QString& line) {
    SpaltenNamen = line.split(u'|');
    if (SpaltenNamen.size() > kMostBackupColumns)
        throw RuntimeError::outOfRange(u"Spalten der Tabelle %1"_s.arg(AktuelleTabelle));
    SpaltenNamen.front().remove(0, kTagLength);
    // The only column of a table is cut at its head alone. No row of such a table is ever written, so nobody
    // sees the tag that stays behind its name.
    if (SpaltenNamen.size() > 1)
        SpaltenNamen.back() = piece(SpaltenNamen.back(), 0, SpaltenNamen.back().size() - kEndTagLength);
    Werte = QStringList(SpaltenNamen.size());
    m_columnExists.clear();
    for (const auto& name : SpaltenNamen)
        m_columnExists.push_back(TabelleBekannt && m_conn.HasColumn(AktuelleTabelle, name));
}

void BackupReader::TakeRow(const QString& text) {
    const QStringList fields = fieldsOf(text);
    if (fields.size() > Werte.size())
        throw RuntimeError::outOfRange(u"Tabelle %1: %2 Werte für %3 Spalten"_s.arg(AktuelleTabelle)
                                           .arg(fields.size())
                                           .arg(Werte.size()));
    // A row with fewer fields keeps the later ones of the row before it.
    std::copy(fields.begin(), fields.end(), Werte.begin());
    if (TabelleBekannt)
        DatenInDB_schreiben();
}

void BackupReader::DatenInDB_schreiben() {
    constexpr qsizetype kFewestColumns = 2;
    if (SpaltenNamen.size() < kFewestColumns)
        return;
    NewRow row = m_conn.AddNew(AktuelleTabelle);
    for (qsizetype i = 0; i < SpaltenNamen.size(); ++i) {
        const QString& name = SpaltenNamen.at(i);
        QString value = Werte.at(i);
        if (value.isEmpty() && name == u"Unterrichtsbeginn"_s)
            value = u"00:00:00"_s;
        else if (value == u"Falsch"_s)
            value = u"False"_s;
        else if (value == u"Wahr"_s)
            value = u"True"_s;
        // An empty value leaves the field at its default, which is null. It is written all the same where the
        // column exists: so every row of a table is the same statement, and the store prepares it once.
        if (!value.isEmpty())
            row.Set(name, value);
        else if (m_columnExists.at(static_cast<std::size_t>(i)))
            row.Set(name, QVariant());
    }
    row.Update();
}

void restoreText(Connection& conn, const QString& text, Progress& progress) {
    BackupReader reader(conn);
    for (qsizetype begin = 0; begin < text.size();) {
        const qsizetype found = text.indexOf(u'\r', begin);
        const qsizetype end = found < 0 ? text.size() : found;
        reader.TakeLine(text.sliced(begin, end - begin));
        begin = end + (text.mid(end, 2) == u"\r\n"_s ? 2 : 1);
        progress.Reach(begin);
    }
}

void DatenWiederherstellen() {
    MsgBox(u"Wählen Sie im nächsten Schritt die Sicherungsdatei aus!"_s);
    const QString path =
        doors().files->chooseFile(u"Textdatei öffnen"_s, Global().DB_Pfad, u"*.txt (Textdateien) (*.txt)"_s);
    if (path.isEmpty())
        return;
    const QString text = fromTextFile(contentOf(path));
    {
        Progress progress(u"Die Daten werden wiederhergestellt..."_s, text.size());
        const DbSession session(u"Daten wiederherstellen"_s);
        withSafetyCopy(Global().Conn, [&] { restoreText(Global().Conn, text, progress); });
    }
    MsgBox(u"Datenwiederherstellung wurde durchgeführt!"_s);
}

} // namespace kolibri
