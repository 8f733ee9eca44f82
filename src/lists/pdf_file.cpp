#include "lists/pdf_file.h"

#include "core/mdlAllgemein.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kYesNoPresetNo = 292;
constexpr int kExclamation = 48;

} // namespace

QString choosePdfFile(const QString& suggestion) {
    QString start = suggestion;
    for (;;) {
        QString file = doors().files->chooseSaveFile(u"Als PDF speichern"_s, start, u"PDF-Datei (*.pdf)"_s);
        if (file.isEmpty())
            return {};
        if (!file.endsWith(u".pdf"_s, Qt::CaseInsensitive))
            file += u".pdf"_s;
        if (!QFileInfo::exists(file)
            || MsgBox(u"Die Datei %1 gibt es schon. Soll sie ersetzt werden?"_s.arg(
                          QDir::toNativeSeparators(file)),
                      kYesNoPresetNo)
                   == kAnswerYes)
            return file;
        start = file;
    }
}

void savePdf(const QString& file, const QByteArray& pdf) {
    QSaveFile out(file);
    if (out.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && out.write(pdf) == pdf.size()
        && out.commit())
        return;
    MsgBox(u"Die Datei %1 kann nicht geschrieben werden.\n\n%2"_s.arg(QDir::toNativeSeparators(file),
                                                                      out.errorString()),
           kExclamation);
}

} // namespace kolibri
