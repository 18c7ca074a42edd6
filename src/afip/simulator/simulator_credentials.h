#pragma once

#include "afip/crypto/test_authority.h"

#include <QDateTime>
#include <QString>

namespace vendrix {

// The files the simulator and a shop trying it need, in one folder: the
// test authority, the server's TLS certificate, and the shop's signing
// certificate and unencrypted key ("Vendrix Homologacion", two years), or
// an expired one. Files already there are reused, so a shop configured
// once keeps working across runs of the simulator.
struct CredencialesSimulador {
    QString carpeta;
    QString autoridad_certificado; // what the shop trusts (FE_CA_pruebas)
    QString autoridad_llave;
    QString servidor_certificado;
    QString servidor_llave;
    QString tienda_certificado; // IF_FE_Certificado
    QString tienda_llave;       // IF_FE_Password: the key's path, as the program keeps it

    CertificadoPem autoridad() const;
    CertificadoPem servidor() const;

    // Creates what is missing in `carpeta` (made if needed). With `vencido`
    // the shop's files are an expired certificate, ended yesterday. False
    // with the reason in `error` when a file can't be written or read.
    static bool preparar(const QString &carpeta, const QDateTime &ahora, bool vencido,
                         CredencialesSimulador &salida, QString *error = nullptr);
};

} // namespace vendrix
