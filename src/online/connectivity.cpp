#include "online/connectivity.h"

#include <QNetworkInterface>

namespace vendrix {

bool hay_internet()
{
    const auto interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface &i : interfaces) {
        const auto flags = i.flags();
        if (flags.testFlag(QNetworkInterface::IsLoopBack) || !flags.testFlag(QNetworkInterface::IsUp) ||
            !flags.testFlag(QNetworkInterface::IsRunning))
            continue;
        if (!i.addressEntries().isEmpty())
            return true;
    }
    return false;
}

} // namespace vendrix
