#pragma once

#include <QString>
#include <QStringList>

namespace vendrix {

// The device a port setting names: "COM1".."COM7" are the platform's first
// serial ports (/dev/ttyS0..), a bare name the system reports ("ttyUSB0")
// lives under /dev, and an absolute path (an emulator's pseudo-terminal)
// stands as it is.
QString ruta_puerto(const QString &puerto);

// The choices of the port combo: "COM1".."COM7", then the ports the system
// reports (USB adapters and the like) by name, each once.
QStringList puertos_disponibles();

} // namespace vendrix
