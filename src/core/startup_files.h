#pragma once

#include <QByteArray>
#include <QString>

namespace vendrix {

class Context;

// The electronic-invoice templates kept beside the program, in the order the
// start-up checks them. A missing one is written with the delivered file of
// data/ (compiled in), the invoice request `wsaa_cae.xml` included, so a
// folder that lost a template can still invoice.
inline constexpr const char *kPlantillasFe[] = {
    "wefe_dummy.xml", "wsaa_cae.xml", "wsfe_cae_fact_request.xml", "wsaa_token.xml", "wsaa_token_pers.xml",
};

// The text a missing template is written with: the delivered file's lines
// joined with CR LF, UTF-8. Empty for an unknown name.
QByteArray texto_plantilla_fe(const QString &name);

// Logs the check of each template and writes the missing ones.
void asegurar_plantillas_fe(Context &ctx);

// The data files of the folder. Each one copies its seed when the file is
// missing; with neither, it tells the operator that the program will close,
// logs it and gives false.
bool validar_listas(Context &ctx);
bool validar_clientes(Context &ctx);
bool validar_factura(Context &ctx);

// With the shop database there, the price database must open. False (after
// the message and the log line) when it doesn't.
bool validar_driver(Context &ctx, const QString &sistema);

} // namespace vendrix
