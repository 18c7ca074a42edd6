#include "afip/facsimile/cae_barcode.h"

#include "afip/invoice/invoice_codes.h"
#include "core/operator.h"
#include "core/text_helpers.h"

#include <algorithm>

namespace vendrix {

namespace {

const QString kTitulo = QStringLiteral("Error al generar la factura");

bool solo_digitos(const QString &texto, qsizetype minimo, qsizetype maximo)
{
    return texto.size() >= minimo && texto.size() <= maximo && vendrix::solo_digitos(texto);
}

// Each digit's five elements, 'N' narrow and 'W' wide.
constexpr const char *kPatrones[10] = {"NNWWN", "WNNNW", "NWNNW", "WWNNN", "NNWNW",
                                       "WNWNN", "NWWNN", "NNNWW", "WNNWN", "NWNWN"};

} // namespace

int digito_verificador_CAE(const QString &digitos)
{
    int suma = 0;
    for (qsizetype i = 0; i < digitos.size(); ++i) {
        const int d = digitos.at(i).digitValue();
        // Position i + 1: odd positions weigh three.
        suma += (i % 2 == 0) ? 3 * d : d;
    }
    return (10 - suma % 10) % 10;
}

QString numero_barra_CAE(Operator &op, const QString &cuit, const QString &tipo, const QString &punto_venta,
                         const QString &cae, const QString &vencimiento, const QString &letra)
{
    const auto rechazo = [&op](const QString &texto) {
        op.error(kTitulo, texto);
        return QString();
    };
    const QString cuit_limpio = QString(cuit).remove(QLatin1Char('-')).trimmed();
    if (!solo_digitos(cuit_limpio, 11, 11))
        return rechazo(QStringLiteral("El cuit ingresado como parámetro a la funcion (") + cuit +
                       QStringLiteral(") no es correcto."));
    const QString clase = tipo_comprobante_AFIP(letra, tipo);
    if (!solo_digitos(clase, 3, 3))
        return rechazo(QStringLiteral("El tipo de comprobante ingresado como parámetro a la funcion (") +
                       tipo + QStringLiteral(") no es correcto o no pudo ser mapeado a un valor numerico (") +
                       clase + QStringLiteral(") que tenga 3 caracteres numericos."));
    const QString punto = punto_venta.trimmed();
    if (!solo_digitos(punto, 1, 5))
        return rechazo(QStringLiteral("El punto de venta ingresado como parámetro a la funcion (") +
                       punto_venta + QStringLiteral(") no es correcto."));
    if (!solo_digitos(cae.trimmed(), 14, 14))
        return rechazo(QStringLiteral("El tipo CAE ingresado como parámetro a la funcion (") + cae +
                       QStringLiteral(") no es correcto o no es un valor numerico de 14 digitos."));
    const QString fecha = QString(vencimiento).remove(QLatin1Char('/')).trimmed();
    if (!solo_digitos(fecha, 8, 8))
        return rechazo(
            QStringLiteral("La fecha de vencimiento del CAE ingresado como parámetro a la funcion (") +
            vencimiento + QStringLiteral(") no es correcto o no es un valor numerico de 14 digitos."));
    const QString numero =
        cuit_limpio + clase + punto.rightJustified(5, QLatin1Char('0')) + cae.trimmed() + fecha;
    return numero + QString::number(digito_verificador_CAE(numero));
}

QImage barras_I2de5(const QString &digitos, int modulo, int alto)
{
    if (digitos.size() % 2 != 0 || !vendrix::solo_digitos(digitos))
        return {};
    // The widths in narrow modules, alternating bar and space, bar first.
    QList<int> anchos{1, 1, 1, 1};
    for (qsizetype i = 0; i < digitos.size(); i += 2) {
        const char *barras = kPatrones[digitos.at(i).digitValue()];
        const char *espacios = kPatrones[digitos.at(i + 1).digitValue()];
        for (int k = 0; k < 5; ++k) {
            anchos << (barras[k] == 'W' ? 3 : 1);
            anchos << (espacios[k] == 'W' ? 3 : 1);
        }
    }
    anchos << 3 << 1 << 1;
    const int margen = 10;
    int total = 2 * margen;
    for (const int a : anchos)
        total += a;

    // One row drawn, then copied down: the bars run the whole height.
    QImage imagen(total * modulo, alto, QImage::Format_Grayscale8);
    imagen.fill(255);
    uchar *fila = imagen.scanLine(0);
    int x = margen;
    bool barra = true;
    for (const int a : anchos) {
        if (barra)
            std::fill(fila + x * modulo, fila + (x + a) * modulo, uchar(0));
        x += a;
        barra = !barra;
    }
    for (int y = 1; y < alto; ++y)
        std::copy(fila, fila + imagen.width(), imagen.scanLine(y));
    return imagen;
}

} // namespace vendrix
