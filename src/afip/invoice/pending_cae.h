#pragma once

#include <QString>

#include <memory>

namespace vendrix {

class Context;

// An invoice request on its way to AFIP: what it asks to authorize.
struct SolicitudCae {
    QString referencia; // the sale's reference
    int tipo = 0;       // CbteTipo
    int punto_de_venta = 0;
    qint64 numero = 0;
    QString total; // ImpTotal as sent
    QString fecha; // CbteFch, yyyymmdd
};

// The shop's record of invoice requests in flight (`vendrix_cae_pendientes`),
// so that an authorization AFIP gave is never lost: a request is written
// before it is sent, its CAE as soon as it comes, and the record goes when
// the sale is stored (in the sale's own transaction). What is left at the
// next start, or before the next invoice, is settled with FECompConsultar.
class RegistroCaePendiente {
public:
    virtual ~RegistroCaePendiente() = default;
    // Before the request goes out; false when it couldn't be written, and
    // then the request must not be sent.
    virtual bool enviando(const SolicitudCae &solicitud) = 0;
    virtual void autorizado(const QString &referencia, const QString &cae, const QString &cae_vto) = 0;
    // AFIP refused the request: its number was not used.
    virtual void descartado(const QString &referencia) = 0;
};

// The record in the shop database.
std::unique_ptr<RegistroCaePendiente> registro_cae_de_la_tienda(Context &ctx);

} // namespace vendrix
