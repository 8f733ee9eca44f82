#include "core/doors.h"

namespace kolibri {

Doors& doors() {
    static Doors instance;
    return instance;
}

} // namespace kolibri
