#include "core/mdlGlobal.h"

#include <memory>

namespace kolibri {
namespace {

std::unique_ptr<mdlGlobal>& instance() {
    static std::unique_ptr<mdlGlobal> state = std::make_unique<mdlGlobal>();
    return state;
}

} // namespace

mdlGlobal& Global() {
    return *instance();
}

void GlobalNeu() {
    instance() = std::make_unique<mdlGlobal>();
}

} // namespace kolibri
