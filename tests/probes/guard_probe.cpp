// A second workstation for the test of the edit guard: opens and frees records at the word of its standard
// input, with a clock that stands where it is told.
//
//   guard_probe <folder of the database> <name of the workstation>
//   time 2026-11-20T09:30:00   answers "ready"
//   claim 7                    answers "ours", or "held by <workstation>"
//   release                    answers "done"

#include "core/doors.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "students/edit_guard.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

class SetClock final : public ClockDoor {
public:
    explicit SetClock(const QDateTime& now) : m_now(now) {}
    QDateTime now() const override { return m_now; }

private:
    QDateTime m_now;
};

QString answer(const QStringList& words) {
    const QString command = words.value(0);
    if (command == u"time"_s) {
        doors().clock = std::make_unique<SetClock>(QDateTime::fromString(words.value(1), Qt::ISODate));
        return u"ready"_s;
    }
    const DbSession session(u"Probe"_s);
    if (command == u"claim"_s) {
        const auto holder = DatensatzBeanspruchen(words.value(1).toShort());
        return holder ? u"held by "_s + *holder : u"ours"_s;
    }
    StempelFreigeben();
    return u"done"_s;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    Global().DB_Pfad = application.arguments().value(1);
    Global().ComputerName = application.arguments().value(2);
    doors().clock = std::make_unique<SystemClock>();
    QTextStream in(stdin);
    QTextStream out(stdout);
    for (QString line; in.readLineInto(&line);) {
        try {
            out << answer(line.split(u' ')) << Qt::endl;
        } catch (const StoreError& error) {
            out << u"error "_s << error.message() << Qt::endl;
        }
    }
    return 0;
}
