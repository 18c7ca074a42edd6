// PROVISIONAL
// Stands in for the facsimile until it is merged: a bare page and an empty
// PDF under Facturas/, opened when asked, so the sale's follow-up runs.
#include "afip/facsimile/facsimile.h"

#include "core/context.h"
#include "core/desktop.h"

#include <QDir>
#include <QFile>
#include <QUrl>

namespace vendrix {

Facsimil imprimir_facsimil_FE(Context &ctx, Escritorio &escritorio, qint64 id_factura,
                              const OpcionesFacsimil &opciones)
{
    QDir().mkpath(ctx.ruta(QStringLiteral("Facturas")));
    const QString base = ctx.ruta(QStringLiteral("Facturas/Factura_Electronica_%1").arg(id_factura));
    Facsimil f{base + QStringLiteral(".html"), base + QStringLiteral(".pdf")};
    for (const QString &ruta : {f.html, f.pdf}) {
        QFile archivo(ruta);
        if (!archivo.open(QIODevice::WriteOnly))
            return {};
        archivo.write("<html><body>Factura</body></html>");
    }
    if (opciones.mostrar)
        escritorio.abrir(QUrl::fromLocalFile(f.html));
    return f;
}

} // namespace vendrix
