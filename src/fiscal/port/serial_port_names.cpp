#include "fiscal/port/serial_port_names.h"

#include <QRegularExpression>
#include <QSerialPortInfo>

namespace vendrix {

QString ruta_puerto(const QString &puerto)
{
    static const QRegularExpression com(QStringLiteral("^COM([1-9])$"),
                                        QRegularExpression::CaseInsensitiveOption);
    const QString name = puerto.trimmed();
    if (const QRegularExpressionMatch m = com.match(name); m.hasMatch())
        return QStringLiteral("/dev/ttyS%1").arg(m.captured(1).toInt() - 1);
    if (name.startsWith(QLatin1Char('/')) || name.isEmpty())
        return name;
    return QStringLiteral("/dev/") + name;
}

QStringList puertos_disponibles()
{
    QStringList ports;
    for (int n = 1; n <= 7; ++n)
        ports << QStringLiteral("COM%1").arg(n);
    for (const QSerialPortInfo &info : QSerialPortInfo::availablePorts()) {
        // The first platform ports are already offered as COMn.
        static const QRegularExpression platform(QStringLiteral("^ttyS[0-6]$"));
        if (!platform.match(info.portName()).hasMatch() && !ports.contains(info.portName()))
            ports << info.portName();
    }
    return ports;
}

} // namespace vendrix
