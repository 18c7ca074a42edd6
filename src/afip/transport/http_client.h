#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <utility>

namespace vendrix {

struct PeticionHttp {
    QString url;
    QByteArray cuerpo;
    QList<std::pair<QByteArray, QByteArray>> cabeceras;
};

struct RespuestaHttp {
    bool ok = false; // an answer came, whatever its HTTP status
    int estado = 0;  // HTTP status
    QString texto;   // the body, UTF-8
    QString error;   // why no answer came, in Spanish (time-out, TLS, host)
    int codigo = 0;  // the transport's number for that failure (QNetworkReply's)
};

// One POST at a time, blocking for the caller. The program's client runs
// over Qt Network and keeps the screen painted while it waits; tests may
// pass one that fails on demand.
class ClienteHttp {
public:
    virtual ~ClienteHttp() = default;
    virtual RespuestaHttp post(const PeticionHttp &peticion) = 0;
};

} // namespace vendrix
