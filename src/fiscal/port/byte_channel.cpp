#include "fiscal/port/byte_channel.h"

#include <QDeadlineTimer>
#include <QSerialPort>

namespace vendrix {

SerialChannel::SerialChannel() : port_(std::make_unique<QSerialPort>())
{
}

SerialChannel::~SerialChannel() = default;

std::unique_ptr<SerialChannel> SerialChannel::abrir(const QString &ruta, int velocidad, QString &error)
{
    std::unique_ptr<SerialChannel> channel(new SerialChannel());
    QSerialPort &port = *channel->port_;
    port.setPortName(ruta);
    if (!port.open(QIODevice::ReadWrite)) {
        error = port.errorString();
        return nullptr;
    }
    if (!port.setBaudRate(velocidad) || !port.setDataBits(QSerialPort::Data8) ||
        !port.setParity(QSerialPort::NoParity) || !port.setStopBits(QSerialPort::OneStop) ||
        !port.setFlowControl(QSerialPort::NoFlowControl)) {
        error = port.errorString();
        return nullptr;
    }
    return channel;
}

bool SerialChannel::escribir(const QByteArray &bytes)
{
    if (port_->write(bytes) != bytes.size())
        return false;
    while (port_->bytesToWrite() > 0) {
        if (!port_->waitForBytesWritten(1000))
            return false;
    }
    return true;
}

std::optional<char> SerialChannel::leer_byte(int timeout_ms)
{
    const QDeadlineTimer deadline(timeout_ms);
    while (pendientes_.isEmpty()) {
        pendientes_ = port_->readAll();
        if (!pendientes_.isEmpty())
            break;
        const qint64 left = deadline.remainingTime();
        if (left <= 0 || !port_->waitForReadyRead(int(left)))
            return std::nullopt;
    }
    const char byte = pendientes_.at(0);
    pendientes_.remove(0, 1);
    return byte;
}

void SerialChannel::descartar_entrada()
{
    pendientes_.clear();
    port_->clear(QSerialPort::Input);
    port_->readAll();
}

} // namespace vendrix
