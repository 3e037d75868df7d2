#include "core/stop_request.h"

namespace quilla {
namespace {

const volatile std::sig_atomic_t kNeverStopped = 0;

} // namespace

const volatile std::sig_atomic_t* stopFlag = &kNeverStopped;

} // namespace quilla
