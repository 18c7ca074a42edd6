#include "afip/facsimile/facsimile_file_name.h"

#include "core/numeric.h"

namespace vendrix {

QString limpiar_nombre_archivo(const QString &texto)
{
    static const QString kProhibidos = QStringLiteral("<>:\"/\\|?*");
    QString resultado = texto;
    for (QChar &c : resultado)
        if (kProhibidos.contains(c) || c.unicode() < 32 || c.unicode() >= 128)
            c = QLatin1Char('_');
    return resultado;
}

QString nombre_para_archivo(const QString &razon_social)
{
    QString nombre = razon_social;
    for (const char *quitar : {"\"", "/", "\\", "#", "'"})
        nombre.remove(QLatin1String(quitar));
    static const QString kConMarca = QStringLiteral("ñÑáéíóúÁÉÍÓÚüÜ");
    static const QString kSinMarca = QStringLiteral("nNaeiouAEIOUuU");
    for (QChar &c : nombre) {
        if (const qsizetype i = kConMarca.indexOf(c); i >= 0)
            c = kSinMarca.at(i);
        else if (c == QLatin1Char(' ') || c == QLatin1Char('-') || c == QLatin1Char(':'))
            c = QLatin1Char('_');
    }
    return limpiar_nombre_archivo(nombre);
}

QString archivo_facsimil(qint64 id_factura, const QString &numero_cae, const QString &razon_social)
{
    return QStringLiteral("Factura_Electronica_") + QString::number(id_factura) + QLatin1Char('_') +
           formatear(valor_texto(numero_cae), u"0000000") + QLatin1Char('_') +
           nombre_para_archivo(razon_social) + QStringLiteral(".html");
}

} // namespace vendrix
