// Time of what the office does all day on the pupil form: opening it, choosing a pupil, saving one. Run with
// QT_QPA_PLATFORM=offscreen.

#include "core/doors.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "core/widgets/list_view.h"
#include "maintenance/sample_school.h"
#include "students/frmSchuelerIn.h"
#include "support/measure.h"

#include <QPushButton>
#include <QTemporaryDir>
#include <QTextStream>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::bench;

namespace {

constexpr int kRounds = 15;

/// Counts the boxes; a save that is told a fault would be no save.
class CountedMessages final : public MessageDoor {
public:
    MessageAnswer show(const MessageBox& box) override {
        QTextStream(stderr) << box.text << ' ' << box.details << '\n';
        ++boxes;
        return kAnswerOk;
    }
    int boxes = 0;
};

/// Times of a piece of work, and its statements in one round.
struct Measured {
    Timing timing;
    qint64 statements;
};
Measured measured(const std::function<void()>& work) {
    const qint64 before = Global().Conn.StatementCount();
    const Timing timing = timed(kRounds, work);
    return {timing, (Global().Conn.StatementCount() - before) / kRounds};
}

void measureSchool(Table& table, int pupils) {
    QTemporaryDir folder;
    Global().DB_Pfad = folder.path();
    createSampleSchool(folder.path(), {.pupils = pupils});
    Global().ModusSchuelerKorrektur = true;
    auto& form = Form<frmSchülerIn>();
    auto* list = dynamic_cast<ListView*>(form.findChild<QTreeWidget*>(u"lvwStammdaten"_s));
    auto* ok = form.findChild<QPushButton*>(u"cmdOK"_s);
    int row = 0;
    const auto choose = [&] {
        list->showRow(row % list->rowCount() + 1);
        list->setCurrentItem(list->topLevelItem(row++ % list->rowCount()));
        list->choose();
        QCoreApplication::processEvents();
    };
    const auto add = [&](const QString& what, const Measured& figures) {
        table.add({QString::number(pupils), what, figure(figures.timing.median),
                   figure(figures.timing.quickest), QString::number(figures.statements)});
    };
    add(u"open: list and 35 boxes"_s, measured([&] {
            Global().MarkierteZeile = 0;
            form.hide();
            form.show();
            QCoreApplication::processEvents();
        }));
    add(u"choose a pupil"_s, measured(choose));
    add(u"save, with the list read again"_s, measured([&] {
            // The next save needs a record again; choosing it is part of the figure.
            ok->click();
            QCoreApplication::processEvents();
            choose();
        }));
    form.hide();
    ModiZuruecksetzen();
}

} // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    auto messages = std::make_unique<CountedMessages>();
    const CountedMessages& told = *messages;
    doors().messages = std::move(messages);
    doors().clock = std::make_unique<SystemClock>();
    Global().ComputerName = u"BENCH"_s;
    Table table(u"The pupil form, milliseconds"_s,
                {u"pupils"_s, u"action"_s, u"median"_s, u"quickest"_s, u"statements"_s});
    for (const int pupils : {300, 1000, 3000})
        measureSchool(table, pupils);
    table.print();
    QTextStream(stdout) << "boxes shown meanwhile: " << told.boxes << '\n';
    unloadForms();
    return 0;
}
