#include "core/error_report.h"

#include "core/mdlAllgemein.h"
#include "core/store/office_error.h"

using namespace Qt::StringLiterals;

namespace kolibri {

void reportError(std::exception_ptr error) {
    constexpr int kStopSign = 16;
    CloseDB();
    MessageBox box{{}, kStopSign, kProgramTitle};
    try {
        std::rethrow_exception(error);
    } catch (const OfficeError& e) {
        box.text = e.note().isEmpty() ? e.message() : e.message() + u"\n\n"_s + e.note();
        box.details = e.details();
    } catch (const std::exception& e) {
        box.text = u"Unerwarteter Fehler. Der Vorgang wurde abgebrochen."_s;
        box.details = QString::fromUtf8(e.what());
    } catch (...) {
        box.text = u"Unerwarteter Fehler. Der Vorgang wurde abgebrochen."_s;
    }
    doors().messages->show(box);
}

} // namespace kolibri
