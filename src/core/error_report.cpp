#include "core/error_report.h"

#include "core/mdlAllgemein.h"
#include "core/runtime_error.h"
#include "core/store/store_error.h"

using namespace Qt::StringLiterals;

namespace kolibri {

void reportError(std::exception_ptr error) {
    constexpr int kStopSign = 16;
    CloseDB();
    MessageBox box{{}, kStopSign, kProgramTitle};
    try {
        std::rethrow_exception(error);
    } catch (const StoreError& e) {
        box.text = e.message();
        box.details = e.details();
    } catch (const RuntimeError& e) {
        box.text = e.message();
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
