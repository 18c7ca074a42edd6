#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

class QSerialPort;

namespace vendrix {

// A blocking byte link to a device: what a printer driver needs of a serial
// port, and no more, so that a test can put its own link in between.
class ByteChannel {
public:
    virtual ~ByteChannel() = default;

    // Writes every byte before returning; false when the port failed.
    virtual bool escribir(const QByteArray &bytes) = 0;
    // The next byte received within `timeout_ms`, or nothing.
    virtual std::optional<char> leer_byte(int timeout_ms) = 0;
    // Drops whatever arrived and was not read yet.
    virtual void descartar_entrada() = 0;
};

// A serial port opened at a speed, eight data bits, no parity, one stop bit,
// no flow control.
class SerialChannel : public ByteChannel {
public:
    ~SerialChannel() override;

    // Opens the device at `ruta`; on failure gives nothing and the reason.
    static std::unique_ptr<SerialChannel> abrir(const QString &ruta, int velocidad, QString &error);

    bool escribir(const QByteArray &bytes) override;
    std::optional<char> leer_byte(int timeout_ms) override;
    void descartar_entrada() override;

private:
    SerialChannel();

    std::unique_ptr<QSerialPort> port_;
    QByteArray pendientes_;
};

} // namespace vendrix
