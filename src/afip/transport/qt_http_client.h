#pragma once

#include "afip/transport/http_client.h"

#include <chrono>

class QSslConfiguration;
class QUrl;

namespace vendrix {

class Context;

// The program's HTTPS client for AFIP, over Qt Network. A post blocks the
// caller but runs a local event loop that leaves out user input: the
// screen keeps painting and a click can't start a second exchange. A post
// that takes longer than the time-out is abandoned with an error.
//
// Each post is sent exactly once, on a connection of its own that is
// closed after the answer, never through a proxy. A connection that closes
// before a whole answer is an error, never a reason to send again: AFIP may
// already have issued a CAE for that request, and a second one would spend
// another number. (QNetworkAccessManager re-sends in that case, which is why
// it is not used here.) Plain http:// is served too, for local servers.
//
// TLS: the certificates of the PEM file named by `FE_CA_pruebas` (the
// simulator's authority) are trusted besides the system's, read again on
// each post; AFIP's own hosts are reached at OpenSSL's security level 1,
// since its production WSFEv1 host offers a Diffie-Hellman key that the
// default level refuses ("dh key too small").
class ClienteHttpQt : public ClienteHttp {
public:
    explicit ClienteHttpQt(Context &ctx, std::chrono::milliseconds limite = std::chrono::seconds(60));

    RespuestaHttp post(const PeticionHttp &peticion) override;

private:
    // The TLS settings for `url`; false with `error` set when the extra
    // authority can't be read.
    bool configurar_tls(const QUrl &url, QSslConfiguration &tls, QString &error) const;

    Context &ctx_;
    std::chrono::milliseconds limite_;
};

// True for AFIP's hosts (afip.gov.ar and its subdomains).
bool es_host_afip(const QString &host);

} // namespace vendrix
