#pragma once

namespace vendrix {

// True when a network interface other than the loopback is up and running
// with an address: the machine is on a network, which is as much as the
// program can tell without asking a server.
bool hay_internet();

} // namespace vendrix
