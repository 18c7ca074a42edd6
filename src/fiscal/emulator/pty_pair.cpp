#include "fiscal/emulator/pty_pair.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <termios.h>
#include <unistd.h>

namespace vendrix {

PtyPair::PtyPair()
{
    maestro_ = posix_openpt(O_RDWR | O_NOCTTY);
    if (maestro_ < 0 || grantpt(maestro_) != 0 || unlockpt(maestro_) != 0) {
        const std::string why = std::strerror(errno);
        if (maestro_ >= 0)
            ::close(maestro_);
        throw std::runtime_error("no pseudo-terminal: " + why);
    }
    ruta_ = QString::fromLocal8Bit(ptsname(maestro_));
    esclavo_ = ::open(ptsname(maestro_), O_RDWR | O_NOCTTY);
    termios tio{};
    if (esclavo_ < 0 || tcgetattr(esclavo_, &tio) != 0) {
        ::close(maestro_);
        throw std::runtime_error("the pseudo-terminal's slave can't be opened");
    }
    // Raw: no echo, no line editing, no translation of line ends.
    cfmakeraw(&tio);
    tcsetattr(esclavo_, TCSANOW, &tio);
}

PtyPair::~PtyPair()
{
    ::close(esclavo_);
    ::close(maestro_);
}

QByteArray PtyPair::leer(int timeout_ms)
{
    pollfd pfd{maestro_, POLLIN, 0};
    if (::poll(&pfd, 1, timeout_ms) <= 0 || !(pfd.revents & POLLIN))
        return {};
    char buffer[512];
    const ssize_t n = ::read(maestro_, buffer, sizeof buffer);
    return n > 0 ? QByteArray(buffer, n) : QByteArray();
}

void PtyPair::escribir(const QByteArray &bytes)
{
    qsizetype hecho = 0;
    while (hecho < bytes.size()) {
        const ssize_t n = ::write(maestro_, bytes.constData() + hecho, size_t(bytes.size() - hecho));
        if (n < 0 && errno != EINTR && errno != EAGAIN)
            return;
        if (n > 0)
            hecho += n;
    }
}

} // namespace vendrix
