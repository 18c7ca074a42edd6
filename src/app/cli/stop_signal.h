#pragma once

#include <atomic>

namespace vendrix::cli {

// A flag that Ctrl-C (SIGINT) or SIGTERM raises, for the commands that serve
// until they are stopped; the handlers are installed on the first call.
const std::atomic<bool> &detener_con_senal();

} // namespace vendrix::cli
