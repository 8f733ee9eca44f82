#include "walk_doors.h"

#include "core/doors.h"
#include "core/mdlGlobal.h"
#include "core/widgets/qt_doors.h"
#include "lists/frmAnzeige_WEB_Browser.h"

#include <QTextStream>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

int g_trouble = 0;

/// A walk stops for nothing. What tells of an error or warns goes to the terminal; the rest is the program's
/// everyday talk.
class WalkMessages final : public MessageDoor {
public:
    MessageAnswer show(const MessageBox& box) override {
        constexpr int kButtons = 0x0f, kYesNo = 4, kIcon = 0xf0, kStopSign = 16, kExclamation = 48;
        const bool question = (box.code & kButtons) == kYesNo;
        const int icon = box.code & kIcon;
        if (!question && (icon == kStopSign || icon == kExclamation)) {
            ++g_trouble;
            QTextStream(stderr) << box.text << '\n' << box.details << '\n';
        }
        return question ? kAnswerNo : kAnswerOk;
    }
};

class WalkClock final : public ClockDoor {
public:
    QDateTime now() const override { return {QDate(2026, 9, 14), QTime(9, 0)}; }
};

class WalkPages final : public PageDoor {
public:
    explicit WalkPages(std::function<void()> page) : m_page(std::move(page)) {}
    void show() override { m_page(); }

private:
    std::function<void()> m_page;
};

} // namespace

void openWalkDoors(const std::function<void()>& page) {
    openQtDoors();
    openPageDoors();
    doors().messages = std::make_unique<WalkMessages>();
    doors().clock = std::make_unique<WalkClock>();
    doors().page = std::make_unique<WalkPages>(page);
}

int boxesOfTrouble() {
    return g_trouble;
}

void inventAddress() {
    auto& global = Global();
    global.SchuleOrganisation = u"Grundschule am Sonnenhang"_s;
    global.SchuleStrasse = u"Amselweg 12"_s;
    global.SchulePLZOrt = u"12345 Musterstadt"_s;
}

} // namespace kolibri
