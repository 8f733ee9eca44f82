#include "maintenance/spreadsheet.h"

#include "core/store/store_error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <freexl.h>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr QByteArrayView kCompoundFile("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1", 8);
constexpr QByteArrayView kZipFile("PK\x03\x04", 4);

[[noreturn]] void refuse(StoreError::Kind kind, const QString& file, const QString& words, int code = 0) {
    throw StoreError(kind, u"Die Datei %1 "_s.arg(QDir::toNativeSeparators(file)) + words, {},
                     code == 0 ? QString() : u"Fehler %1 beim Lesen der Tabelle"_s.arg(code));
}

/// What can be said of a file before the library looks at it. Returns its first bytes.
QByteArray checkFile(const QString& name) {
    using enum StoreError::Kind;
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        refuse(Missing, name, u"kann nicht gelesen werden. Ist sie noch in Excel geöffnet?"_s);
    const QByteArray head = file.read(kCompoundFile.size());
    if (head.isEmpty())
        refuse(Damaged, name, u"ist leer."_s);
    if (head.startsWith(kZipFile))
        refuse(Foreign, name,
               u"liegt in einem neueren Format vor. Bitte speichern Sie sie in Excel als \"Excel "
               "97-2003-Arbeitsmappe (*.xls)\" und lesen Sie diese ein."_s);
    return head;
}

/// An open workbook of the library.
class Workbook {
public:
    explicit Workbook(const QString& name) : m_name(name) {
        using enum StoreError::Kind;
        const QByteArray head = checkFile(name);
        const int code = freexl_open(QFile::encodeName(name).constData(), &m_handle);
        if (code == FREEXL_OK && info(FREEXL_BIFF_PASSWORD) == FREEXL_BIFF_OBFUSCATED) {
            freexl_close(m_handle);
            refuse(Foreign, name, u"ist mit einem Kennwort geschützt."_s);
        }
        if (code == FREEXL_OK)
            return;
        if (!head.startsWith(kCompoundFile))
            refuse(Foreign, name, u"ist keine Excel-Tabelle (Excel 97-2003)."_s, code);
        refuse(Damaged, name, u"ist beschädigt und kann nicht gelesen werden."_s, code);
    }
    ~Workbook() { freexl_close(m_handle); }
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    QString firstSheet() {
        const char* name = nullptr;
        check(freexl_get_worksheet_name(m_handle, 0, &name));
        check(freexl_select_active_worksheet(m_handle, 0));
        return QString::fromUtf8(name);
    }

    /// All rows of the chosen sheet, without the empty ones before the first and behind the last.
    std::vector<QStringList> rows() {
        unsigned int count = 0;
        unsigned short width = 0;
        check(freexl_worksheet_dimensions(m_handle, &count, &width));
        std::vector<QStringList> result;
        for (unsigned int row = 0; row < count; ++row) {
            QStringList cells;
            for (unsigned short column = 0; column < width; ++column)
                cells << cell(row, column);
            result.push_back(cells);
        }
        const auto isUsed = [](const QStringList& cells) {
            return std::any_of(cells.begin(), cells.end(),
                               [](const QString& text) { return !text.isNull(); });
        };
        result.erase(result.begin(), std::find_if(result.begin(), result.end(), isUsed));
        result.erase(std::find_if(result.rbegin(), result.rend(), isUsed).base(), result.end());
        return result;
    }

private:
    unsigned int info(unsigned short what) const {
        unsigned int value = 0;
        return freexl_get_info(m_handle, what, &value) == FREEXL_OK ? value : 0;
    }

    void check(int code) const {
        if (code != FREEXL_OK)
            refuse(StoreError::Kind::Damaged, m_name, u"ist beschädigt und kann nicht gelesen werden."_s,
                   code);
    }

    QString cell(unsigned int row, unsigned short column) const {
        FreeXL_CellValue value{};
        check(freexl_get_cell_value(m_handle, row, column, &value));
        switch (value.type) {
        case FREEXL_CELL_INT:
            return QString::number(value.value.int_value);
        case FREEXL_CELL_DOUBLE:
            return numberCell(value.value.double_value);
        case FREEXL_CELL_DATE:
        case FREEXL_CELL_DATETIME:
            return dateCell(QString::fromUtf8(value.value.text_value));
        case FREEXL_CELL_TEXT:
        case FREEXL_CELL_SST_TEXT:
        case FREEXL_CELL_TIME:
            return u""_s + QString::fromUtf8(value.value.text_value);
        default:
            return {};
        }
    }

    QString m_name;
    const void* m_handle = nullptr;
};

/// A column without a heading is named by its number, and a name that is taken gets a number behind it.
QStringList columnNames(const QStringList& heading) {
    QStringList names;
    for (qsizetype i = 0; i < heading.size(); ++i) {
        const QString text = heading.at(i).trimmed();
        const QString stem = text.isEmpty() ? u"F%1"_s.arg(i + 1) : text;
        QString name = stem;
        for (int number = 1; names.contains(name, Qt::CaseInsensitive); ++number)
            name = stem + QString::number(number);
        names << name;
    }
    return names;
}

} // namespace

QString numberCell(double number) {
    constexpr int kDigits = 15;
    return QString::number(number, 'g', kDigits).replace(u'.', u',');
}

QString dateCell(const QString& iso) {
    const QString day = iso.section(u' ', 0, 0);
    const QString time = iso.section(u' ', 1, 1);
    const QString german =
        day.section(u'-', 2, 2) + u'.' + day.section(u'-', 1, 1) + u'.' + day.section(u'-', 0, 0);
    return time.isEmpty() || time == u"00:00:00"_s ? german : german + u' ' + time;
}

Spreadsheet readSpreadsheet(const QString& file) {
    Workbook workbook(file);
    Spreadsheet sheet;
    sheet.name = workbook.firstSheet();
    sheet.rows = workbook.rows();
    constexpr std::size_t kHeadingAndOneRow = 2;
    if (sheet.rows.size() < kHeadingAndOneRow)
        refuse(StoreError::Kind::Damaged, file, u"enthält unter der Kopfzeile keine Zeilen."_s);
    sheet.columns = columnNames(sheet.rows.front());
    sheet.rows.erase(sheet.rows.begin());
    return sheet;
}

} // namespace kolibri
