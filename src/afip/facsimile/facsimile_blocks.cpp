#include "afip/facsimile/facsimile_blocks.h"

#include "core/numeric.h"
#include "online/html_entities.h"

namespace vendrix {

namespace {

const QString kMonoespaciado = QStringLiteral("font-family: monospace; font-size: 15px;");
const QString kLeyTransparencia =
    QStringLiteral("R&eacute;gimen de Transparencia Fiscal al Consumidor (Ley 27.743)");

QString importe(double valor)
{
    return formatear(valor, u"####0.00");
}

bool es_tasa_plena(double tasa)
{
    return qAbs(tasa - 21) < 1e-9;
}

QString celda(const QString &ancho, const QString &texto, bool derecha = false)
{
    return QStringLiteral("<td style=\"width: %1;%2\">%3</td>")
        .arg(ancho, derecha ? QStringLiteral(" text-align: right;") : QString(), texto);
}

// A line without a description still says what it is.
QString descripcion(const LineaFacsimil &l)
{
    return texto_a_html(l.descripcion.trimmed().isEmpty() ? QStringLiteral("Art. S/D") : l.descripcion);
}

QString con_tasa(const LineaFacsimil &l)
{
    return descripcion(l) + QStringLiteral("  (IVA ") + texto_numero(l.iva) + QStringLiteral("%)");
}

} // namespace

QString bloque_iva_discriminado(bool angosto)
{
    if (angosto)
        return QStringLiteral("<hr><p style=\"") + kMonoespaciado +
               QStringLiteral("\">SubTotal (I): %VTA_STOT1%</br>Impuesto (II): %VTA_IBR%</br>"
                              "Subtotal (I+II): %VTA_STOT2%<br>IVA 10,5%: %VTA_IVA105%</br>"
                              "IVA 21,0: %VTA_IVA21%</br>IVA Total:%VTA_IVA%</p>");
    return QStringLiteral("<table class=\"iva\" width=\"1000\" style=\"width: 1000px;\" cellpadding=\"4\">"
                          "<tr><th>SubTotal (I)</th><th>Impuesto (II)</th><th>Subtotal (I+II)</th>"
                          "<th> IVA 10,5% </th><th> IVA 21,0% </th><th>IVA Total</th></tr>"
                          "<tr><td>%VTA_STOT1%</td><td>%VTA_IBR%</td><td>%VTA_STOT2%</td>"
                          "<td>%VTA_IVA105%</td><td>%VTA_IVA21%</td><td>%VTA_IVA%</td></tr></table>");
}

QString encabezado_articulos(bool angosto)
{
    if (angosto)
        return QStringLiteral("<tr><th align=\"left\">Detalle</th><th align=\"right\">Importe</th></tr>");
    return QStringLiteral("<tr><th align=\"left\" width=\"10%\">Cant.</th><th align=\"left\" "
                          "width=\"60%\">Descripci&oacute;n</th><th align=\"right\" width=\"15%\">P. "
                          "unitario</th><th align=\"right\" width=\"15%\">Importe</th></tr>");
}

IvaFacsimil iva_de_lineas(const std::vector<LineaFacsimil> &lineas, double factor)
{
    double neto21 = 0;
    double neto105 = 0;
    for (const LineaFacsimil &l : lineas) {
        const double bruto = l.cantidad * l.precio * factor;
        if (es_tasa_plena(l.iva))
            neto21 += bruto / 1.21;
        else
            neto105 += bruto / 1.105;
    }
    return {redondear(neto21 * 0.21, 2), redondear(neto105 * 0.105, 2)};
}

QString filas_articulos(const std::vector<LineaFacsimil> &lineas, const QString &letra, double factor,
                        bool angosto)
{
    const bool discrimina = letra == QLatin1String("A");
    QString filas;
    for (const LineaFacsimil &l : lineas) {
        const double precio = (discrimina ? l.precio / (1 + l.iva / 100) : l.precio) * factor;
        const QString cantidad = texto_numero(l.cantidad);
        if (angosto) {
            filas += QStringLiteral("<tr><td style=\"%1\">%2 x %3<br>%4</td><td style=\"%1 text-align: "
                                    "right;\">%5</td></tr>")
                         .arg(kMonoespaciado, cantidad, importe(precio),
                              discrimina ? descripcion(l) : con_tasa(l), importe(l.cantidad * precio));
        } else {
            filas += QStringLiteral("<tr>") + celda(QStringLiteral("79px"), cantidad) +
                     celda(QStringLiteral("490px"), con_tasa(l)) +
                     celda(QStringLiteral("114px"), importe(precio), true) +
                     celda(QStringLiteral("109px"), importe(l.cantidad * precio), true) +
                     QStringLiteral("</tr>");
        }
    }
    return filas;
}

QString fila_resumida(double total, bool angosto)
{
    if (angosto)
        return QStringLiteral("<tr><td style=\"%1\">1 x %2<br>Varios</td><td style=\"%1 text-align: "
                              "right;\">%2</td></tr>")
            .arg(kMonoespaciado, importe(total));
    return QStringLiteral("<tr>") + celda(QStringLiteral("79px"), QStringLiteral("1")) +
           celda(QStringLiteral("490px"), QStringLiteral("Varios")) +
           celda(QStringLiteral("114px"), importe(total), true) +
           celda(QStringLiteral("109px"), importe(total), true) + QStringLiteral("</tr>");
}

QString fila_leyenda_monotributo()
{
    return QStringLiteral(
        "<tr><td colspan=\"4\">El cr&eacute;dito fiscal discriminado en el presente comprobante, "
        "s&oacute;lo podr&aacute; ser computado a efectos del R&eacute;gimen de Sostenimiento e "
        "Inclusi&oacute;n Fiscal para Peque&ntilde;os Contribuyentes de la Ley Nro. 27.618.</td></tr>");
}

void poner_transparencia_fiscal(QString &html, bool angosto, const QString &iva_contenido)
{
    if (angosto) {
        const QString marca = QStringLiteral("<!-- CAE -->");
        html.replace(marca, QStringLiteral("<hr><p>") + kLeyTransparencia +
                                QStringLiteral("<br>&nbsp;&nbsp;&nbsp;IVA Contenido: ") + iva_contenido +
                                QStringLiteral("</p>") + marca);
        return;
    }
    html.replace(QStringLiteral("Recibi(mos) la suma de:"), kLeyTransparencia);
    html.replace(QStringLiteral("%FORMA_DE_PAGO%"), QStringLiteral("IVA Contenido"));
    html.replace(QStringLiteral("%VTA_TOTAL%"), iva_contenido);
}

} // namespace vendrix
