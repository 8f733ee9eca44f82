#include "lists/page_production.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/platform/places.h"
#include "core/runtime_error.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_geometry.h"
#include "lists/page_style.h"
#include "lists/page_writer.h"

#include <QDir>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

[[noreturn]] void failed(const QSaveFile& file) {
    throw RuntimeError::fileAccess(
        u"%1: %2"_s.arg(QDir::toNativeSeparators(file.fileName()), file.errorString()));
}

void loadPageValues() {
    auto& liste = Liste();
    auto& values = liste.Seite;
    values.TabellenBreite = computeTabellenBreite(liste.Dialog.optFormat);
    loadFonts(values);
    setTagKopf(values, liste.Wochenplan.cmbTag);
    countTeachingUnits(values);
}

void writeBody(const ListEntry& list, PageWriter& page) {
    if (list.moment == ListMoment::BeforeWindow)
        return list.write(page);
    const DbSession session(u"Liste schreiben"_s);
    if (list.moment == ListMoment::InPage)
        list.gather();
    list.write(page);
}

} // namespace

QString pageFile() {
    return programDataFolder() + u"/mog.html"_s;
}

void producePage() {
    const ListEntry& list = findList(Global().ListenArt);
    QSaveFile file(pageFile());
    // Unbuffered, because a buffered file does not tell when a full disk takes only a part.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        failed(file);
    loadPageValues();
    PageWriter page(file);
    writeHead(page, Liste().Seite);
    writeBody(list, page);
    page.flush();
    if (!file.commit())
        failed(file);
}

} // namespace kolibri
