#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

namespace vendrix {

// A certificate and its private key, both PEM.
struct CertificadoPem {
    QByteArray certificado;
    QByteArray llave;
};

// A certification authority of our own, for the AFIP simulator and for
// trying electronic invoicing without AFIP: it issues the shop's signing
// certificate (what AFIP would issue for a CUIT) and the simulator's HTTPS
// certificate. Keys are RSA 2048, signatures SHA-256.
class AutoridadPrueba {
public:
    // A new authority, self-signed, valid ten years from `desde`.
    static AutoridadPrueba crear(const QString &nombre, const QDateTime &desde);
    // An authority from its PEM pair, as written by a former run.
    static AutoridadPrueba desde_pem(const CertificadoPem &pem) { return AutoridadPrueba(pem); }

    const CertificadoPem &pem() const { return pem_; }

    // A certificate for `nombre` (its CN) valid from `desde` to `hasta`;
    // `hosts` go in the subject alternative names (DNS or IP), for a server.
    CertificadoPem emitir(const QString &nombre, const QDateTime &desde, const QDateTime &hasta,
                          const QStringList &hosts = {}) const;

private:
    explicit AutoridadPrueba(CertificadoPem pem) : pem_(std::move(pem)) {}
    CertificadoPem pem_;
};

} // namespace vendrix
