#pragma once

#include <QByteArray>
#include <QString>

namespace vendrix {

// A pseudo-terminal in raw mode: the emulator works the master side, a
// driver opens the slave's path as its serial port. The emulator keeps the
// slave open too, so the master doesn't fail while no driver holds it.
class PtyPair {
public:
    // Throws std::runtime_error when the system gives no pseudo-terminal.
    PtyPair();
    ~PtyPair();
    PtyPair(const PtyPair &) = delete;
    PtyPair &operator=(const PtyPair &) = delete;

    const QString &ruta_esclavo() const { return ruta_; }

    // The bytes the driver wrote, waiting up to `timeout_ms` for the first.
    QByteArray leer(int timeout_ms);
    void escribir(const QByteArray &bytes);

private:
    int maestro_ = -1;
    int esclavo_ = -1;
    QString ruta_;
};

} // namespace vendrix
