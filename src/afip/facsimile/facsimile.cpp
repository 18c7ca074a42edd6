#include "afip/facsimile/facsimile.h"

#include "afip/facsimile/cae_barcode.h"
#include "afip/facsimile/facsimile_blocks.h"
#include "afip/facsimile/facsimile_file_name.h"
#include "afip/facsimile/facsimile_pdf.h"
#include "afip/invoice/invoice_codes.h"
#include "afip/invoice/stored_voucher.h"
#include "afip/qr/qr_payload.h"
#include "afip/qr/qr_picture.h"
#include "afip/transport/afip_hosts.h"
#include "core/context.h"
#include "core/desktop.h"
#include "core/numeric.h"
#include "online/html_entities.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QUrl>

namespace vendrix {

namespace {

const QString kTitulo = QStringLiteral("Error al generar la factura");
const QString kTienda = QStringLiteral("Internal");

void log_info(Context &ctx, const QString &texto)
{
    ctx.escribir_log(QStringLiteral("imprimir_facsimil_FE - ") + texto, QStringLiteral("I"));
}

Facsimil fallar(Context &ctx, const QString &descripcion)
{
    ctx.escribir_log(QStringLiteral("imprimir_facsimil_FE - ") + descripcion, QStringLiteral("E"));
    ctx.op().error(kTitulo, descripcion);
    ctx.estado().actualizar_indicador(QStringLiteral("impresora_on"));
    return {};
}

QString importe(const QString &valor)
{
    return formatear(valor_texto(valor), u"####0.00");
}

// "I - IVA RESPONSABLE INSCRIPTO" without its letter and dash.
QString condicion_sin_letra(const QString &cliente)
{
    const qsizetype guion = cliente.indexOf(QLatin1Char('-'));
    return (guion < 0 ? cliente : cliente.mid(guion + 1)).trimmed();
}

// The stored lines as the cart would give them: the unit price with IVA.
// A factura A keeps its unit price without IVA; the others their line's
// amount. A credit note's negative amounts show as positive.
std::vector<LineaFacsimil> lineas_guardadas(Context &ctx, qint64 id_factura, const QString &letra)
{
    const bool discrimina = letra == QLatin1String("A");
    const Matrix m = ctx.db().execQ_matriz(
        QStringLiteral("SELECT cantidad, Descripcion_nueva, %1, iva, Codigo FROM vendrix_Factura_items "
                       "WHERE Factura_ID = ? ORDER BY OFFSET")
            .arg(discrimina ? QStringLiteral("venta_siva") : QStringLiteral("precio_final")),
        kTienda, {id_factura});
    const bool por_codigo = ctx.leer_parametro(QStringLiteral("IF_desc_art")) == QStringLiteral("Código");
    std::vector<LineaFacsimil> lineas;
    for (int fila = 0; fila < m.filas(); ++fila) {
        LineaFacsimil l;
        l.cantidad = qAbs(valor_texto(m.at(0, fila)));
        l.descripcion = m.at(1, fila);
        if (por_codigo && !m.at(4, fila).trimmed().isEmpty())
            l.descripcion = m.at(4, fila);
        l.iva = valor_texto(m.at(3, fila));
        const double precio = qAbs(valor_texto(m.at(2, fila)));
        if (discrimina)
            l.precio = precio * (1 + l.iva / 100);
        else
            l.precio = l.cantidad == 0 ? 0 : precio / l.cantidad;
        lineas.push_back(l);
    }
    return lineas;
}

// Writes a picture beside the page and gives the element that shows it,
// or "" when there is none.
QString imagen_junto(Context &ctx, const QImage &imagen, const QString &carpeta, const QString &archivo,
                     int ancho, int alto)
{
    if (imagen.isNull())
        return {};
    if (!imagen.save(carpeta + QLatin1Char('/') + archivo, "PNG")) {
        ctx.escribir_log(QStringLiteral("imprimir_facsimil_FE - No se pudo guardar la imagen ") + archivo,
                         QStringLiteral("E"));
        return {};
    }
    return QStringLiteral("<img src=\"%1\" width=\"%2\" height=\"%3\" alt=\"\">")
        .arg(archivo.toHtmlEscaped())
        .arg(ancho)
        .arg(alto);
}

bool escribir_texto(const QString &ruta, const QString &texto)
{
    QSaveFile f(ruta);
    if (!f.open(QIODevice::WriteOnly))
        return false;
    f.write(texto.toUtf8());
    return f.commit();
}

} // namespace

Facsimil imprimir_facsimil_FE(Context &ctx, Escritorio &escritorio, qint64 id_factura,
                              const OpcionesFacsimil &opciones)
{
    log_info(ctx, QStringLiteral("Inicializo la funcion"));
    const QString ruta_plantilla = ctx.ruta(QStringLiteral("factura.html"));
    QString html;
    if (QFile f(ruta_plantilla); f.open(QIODevice::ReadOnly))
        html = QString::fromUtf8(f.readAll());
    if (html.isEmpty()) {
        ctx.escribir_log(QStringLiteral("imprimir_facsimil_FE - NO SE ENCONTRO EL TEMPLATE DE LA FACTURA"),
                         QStringLiteral("E"));
        ctx.op().error(kTitulo,
                       QStringLiteral("Vendrix no puede encontrar el archivo de template de factura. El "
                                      "archivo no se encuentra en la ruta esperada: ") +
                           QDir::toNativeSeparators(ruta_plantilla) +
                           QStringLiteral(". Por favor pongase en contacto con Vendrix para ayudarlo."));
        return {};
    }

    const Matrix m = leer_comprobante_por_id(ctx, id_factura);
    if (m.vacia())
        return fallar(ctx, QStringLiteral("No se encontro el comprobante ") + QString::number(id_factura) +
                               QStringLiteral(" en la base de datos."));
    const auto campo = [&m](ColumnaComprobante c) { return m.at(c, 0); };
    const QString letra = campo(kCompLetra);
    const bool es_a = letra == QLatin1String("A");
    const bool angosto = ctx.leer_parametro(QStringLiteral("IF_COMANDERA")).toUpper() == QLatin1String("SI");
    const auto poner = [&html](const QString &marca, const QString &valor) { html.replace(marca, valor); };

    // Only a factura A discriminates its IVA; the others leave no trace of it.
    poner(QStringLiteral("%SUBTOTAL_DISCRIMINANDO_IVA%"),
          es_a ? bloque_iva_discriminado(angosto) : QString());

    // The header and the buyer.
    const QString tipo = campo(kCompTipo);
    QString tipo_doc = campo(kCompTipoDoc);
    if (tipo_doc.isEmpty())
        tipo_doc = opciones.tipo_doc_defecto;
    const QString punto_venta = ctx.leer_parametro(QStringLiteral("IF_PuntoDeVenta"));
    const QString timestamp = campo(kCompTimestamp);
    poner(QStringLiteral("%T_FAC%"), letra);
    poner(QStringLiteral("%C_FAC%"), tipo_comprobante_AFIP(letra, tipo));
    poner(QStringLiteral("%T_DOC%"),
          texto_a_html(tipo) + (es_produccion(ctx) ? QString() : QStringLiteral(" SIN VALOR FISCAL")));
    poner(QStringLiteral("%NRO_FACTURA%"), formatear(valor_texto(campo(kCompNumero)), u"00000000"));
    poner(QStringLiteral("%NRO_PTO_VENTA%"), formatear(valor_texto(punto_venta), u"00000"));
    poner(QStringLiteral("%DD%"), timestamp.mid(6, 2));
    poner(QStringLiteral("%MM%"), timestamp.mid(4, 2));
    poner(QStringLiteral("%YYYY%"), timestamp.left(4));
    poner(QStringLiteral("%NRO_CUIT%"), ctx.leer_parametro(QStringLiteral("IF_CUIT")));
    poner(QStringLiteral("%COMP_RS%"), texto_a_html(campo(kCompRazonSocial)));
    poner(QStringLiteral("%COMP_DOM%"), texto_a_html(campo(kCompDomicilio)));
    poner(QStringLiteral("%COMP_LOC%"), texto_a_html(campo(kCompProvincia)));
    poner(QStringLiteral("%COMP_T_IVA%"), texto_a_html(condicion_sin_letra(campo(kCompCliente))));
    poner(QStringLiteral("%COMP_CUIT%"), campo(kCompCuit));
    poner(QStringLiteral("%VTA_COND%"), texto_a_html(campo(kCompFormaDePago)));

    // The figures and the authorisation.
    const QString neto = importe(campo(kCompNeto));
    const QString total = importe(campo(kCompTotal));
    poner(QStringLiteral("%VTA_STOT1%"), neto);
    poner(QStringLiteral("%VTA_STOT2%"), neto);
    poner(QStringLiteral("%VTA_IBR%"), QStringLiteral("0.00"));
    // Before the transparency block takes the other %VTA_TOTAL%.
    poner(QStringLiteral("Total: $ %VTA_TOTAL%"), QStringLiteral("Total: ") + total);
    const QString cae = campo(kCompCae);
    const QString barra = numero_barra_CAE(ctx.op(), ctx.leer_parametro(QStringLiteral("IF_CUIT")), tipo,
                                           punto_venta, cae, campo(kCompCaeVencimiento), letra);
    poner(QStringLiteral("%VTA_CAE%"), cae);
    poner(QStringLiteral("%VTA_CAE_CONFECHAYCUIT_ESPACIO%"), barra);
    poner(QStringLiteral("%VTA_CAE_FV%"), campo(kCompCaeVencimiento));
    poner(QStringLiteral("%COMP_T_IVA COMP_IVA%"), QStringLiteral("21%"));
    poner(QStringLiteral("%COMP_T_DOC%"), tipo_doc);
    poner(QStringLiteral("%ID_DOC_ORIG%"), opciones.id_doc_origen);
    poner(QStringLiteral("%SUJETO_A_RETENCION%"),
          es_a ? QStringLiteral("Operaci&oacute;n Sujeta a Retenci&oacute;n") : QString());
    const QString json = armar_QR_AFIP(ctx, m);
    const QString json_base64 = codificar_base64(json);
    poner(QStringLiteral("%JSON%"), json);
    poner(QStringLiteral("%JSON_ENCODED%"), json_base64);

    // The items and their IVA.
    const double factor = 1 - opciones.descuento_pct / 100;
    const std::vector<LineaFacsimil> lineas =
        opciones.lineas_carrito ? *opciones.lineas_carrito : lineas_guardadas(ctx, id_factura, letra);
    QString tabla = encabezado_articulos(angosto);
    tabla += opciones.resumido
                 ? fila_resumida(valor_texto(es_a ? campo(kCompNeto) : campo(kCompTotal)), angosto)
                 : filas_articulos(lineas, letra, factor, angosto);
    const IvaFacsimil iva = iva_de_lineas(lineas, factor);
    poner(QStringLiteral("%VTA_IVA21%"), formatear(iva.iva21, u"####0.00"));
    poner(QStringLiteral("%VTA_IVA105%"), formatear(iva.iva105, u"####0.00"));
    poner(QStringLiteral("%VTA_IVA%"), formatear(iva.total(), u"####0.00"));
    if (es_a && condicion_iva_emisor(ctx) == QLatin1String("M"))
        tabla += fila_leyenda_monotributo();
    if (!es_a)
        poner_transparencia_fiscal(html, angosto, formatear(iva.total(), u"####0.00"));
    poner(QStringLiteral("%VTA_IVA%"), importe(campo(kCompIva)));
    poner(QStringLiteral("%FORMA_DE_PAGO%"), texto_a_html(campo(kCompFormaDePago)));
    poner(QStringLiteral("%VTA_TOTAL%"), total);
    poner(QStringLiteral("%TABLA_ARTICULOS%"), tabla);

    // The file and its pictures, beside the executable.
    const QString carpeta = ctx.ruta(QStringLiteral("Facturas"));
    if (!QDir().mkpath(carpeta))
        return fallar(ctx,
                      QStringLiteral("No se pudo crear la carpeta ") + QDir::toNativeSeparators(carpeta));
    const QString archivo = archivo_facsimil(id_factura, campo(kCompNumero), campo(kCompRazonSocial));
    const QString base = QFileInfo(archivo).completeBaseName();
    poner(QStringLiteral("%QR_IMG%"),
          imagen_junto(ctx, QR_raster(QLatin1String(kPaginaQrAfip) + json_base64), carpeta,
                       base + QStringLiteral("_qr.png"), angosto ? 150 : 130, angosto ? 150 : 130));
    poner(QStringLiteral("%CAE_BARRAS_IMG%"),
          imagen_junto(ctx, barras_I2de5(barra), carpeta, base + QStringLiteral("_barras.png"),
                       angosto ? 270 : 340, angosto ? 40 : 45));

    // The authority's new name over the old one.
    poner(QStringLiteral("Administración Federal"), QStringLiteral("Agencia"));
    poner(QStringLiteral("Administraci&oacute;n Federal"), QStringLiteral("Agencia"));
    const QString logo_oculto = QStringLiteral("ARCA<img id=\"logo\" style=\"width: 0px;\"");
    poner(QStringLiteral("<img id=\"logo\" style=\"width: 80px;\""), logo_oculto);
    poner(QStringLiteral("<img id=\"logo\" style=\"width: 140px;\""), logo_oculto);

    Facsimil hecho;
    hecho.html = carpeta + QLatin1Char('/') + archivo;
    if (!escribir_texto(hecho.html, html))
        return fallar(ctx, QStringLiteral("No se pudo guardar el archivo ") +
                               QDir::toNativeSeparators(hecho.html));
    log_info(ctx, QStringLiteral("se salvo a factura: ") + QDir::toNativeSeparators(hecho.html));

    const QString pdf = carpeta + QLatin1Char('/') + base + QStringLiteral(".pdf");
    if (escribir_pdf_facsimil(html, carpeta, pdf, angosto)) {
        hecho.pdf = pdf;
        log_info(ctx, QStringLiteral("se salvo el PDF: ") + QDir::toNativeSeparators(pdf));
    } else {
        // The page is there and can be printed from the browser.
        fallar(ctx, QStringLiteral("No se pudo guardar el archivo ") + QDir::toNativeSeparators(pdf));
    }

    if (opciones.mostrar) {
        log_info(ctx, QStringLiteral("Abro el internet explorer o el chrome."));
        escritorio.abrir(QUrl::fromLocalFile(hecho.html));
    }
    return hecho;
}

} // namespace vendrix
