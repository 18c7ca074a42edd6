#include "stop_signal.h"

#include <csignal>

namespace vendrix::cli {

namespace {

std::atomic<bool> g_detener{false};

void al_interrumpir(int)
{
    g_detener = true;
}

} // namespace

const std::atomic<bool> &detener_con_senal()
{
    std::signal(SIGINT, al_interrumpir);
    std::signal(SIGTERM, al_interrumpir);
    return g_detener;
}

} // namespace vendrix::cli
