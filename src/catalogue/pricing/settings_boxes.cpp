#include "catalogue/pricing/settings_boxes.h"

#include "core/context.h"
#include "core/numeric.h"

#include <array>

namespace vendrix {

namespace {

struct ComboOption {
    const char *item;
    const char *valor;
};

constexpr std::array<ComboOption, 6> kDigitos{{{"Todos", "3"},
                                          {"Dos decimales", "2"},
                                          {"Un decimal", "1"},
                                          {"Sin decimales", "0"},
                                          {"Decenas", "-1"},
                                          {"Centenas", "-2"}}};
constexpr std::array<ComboOption, 3> kModos{{{"Abajo", "0"}, {"Standard", "1"}, {"Arriba", "2"}}};

const QString kDiezEnDiez = QStringLiteral("De 10 en 10");
const QString kCincoEnCinco = QStringLiteral("De 5 en 5");
const QString kClaveDecimales = QStringLiteral("decimales");
const QString kClaveRedondeo = QStringLiteral("redondeo");
const QString kClaveTipo = QStringLiteral("redondeo_tipo");

template <size_t N>
QString item_de(const std::array<ComboOption, N> &opciones, const QString &valor, const char *por_defecto)
{
    for (const ComboOption &o : opciones) {
        if (valor == QLatin1String(o.valor))
            return QString::fromUtf8(o.item);
    }
    return QString::fromUtf8(por_defecto);
}

template <size_t N> const char *valor_de(const std::array<ComboOption, N> &opciones, const QString &item)
{
    for (const ComboOption &o : opciones) {
        if (item == QLatin1String(o.item))
            return o.valor;
    }
    return nullptr;
}

template <size_t N> QStringList items(const std::array<ComboOption, N> &opciones)
{
    QStringList out;
    for (const ComboOption &o : opciones)
        out << QString::fromUtf8(o.item);
    return out;
}

// With decimals the mode applies and the step doesn't; at 0 decimals and
// above it is the other way round.
bool con_decimales(const QString &digitos)
{
    return digitos == QLatin1String("Todos") || digitos == QLatin1String("Dos decimales") ||
           digitos == QLatin1String("Un decimal");
}

RoundingState estado(const Context &ctx)
{
    RoundingState e;
    e.digitos = item_de(kDigitos, ctx.leer_parametro(kClaveDecimales), "Todos");
    e.modo = item_de(kModos, ctx.leer_parametro(kClaveRedondeo), "Standard");
    e.tipo = ctx.leer_parametro(kClaveTipo) == kCincoEnCinco ? kCincoEnCinco : kDiezEnDiez;
    e.modo_habilitado = con_decimales(e.digitos);
    e.tipo_habilitado = !e.modo_habilitado;
    e.icono_digitos = e.digitos != QLatin1String("Todos");
    e.icono_modo = e.modo != QLatin1String("Standard");
    return e;
}

} // namespace

QString cambiar_caja_ajuste(const Context &ctx, const QString &clave, const QString &texto)
{
    const QString valor = texto.isEmpty() ? QStringLiteral("0") : texto;
    ctx.escribir_parametro(clave, valor);
    return valor;
}

QString leyenda_tarjeta(const QString &recargo)
{
    if (recargo == QLatin1String("0"))
        return QStringLiteral("Pago con tarjeta");
    return QStringLiteral("Pago con tarjeta (+") + recargo + QStringLiteral("%)");
}

bool salir_recargo_tarjeta(Context &ctx, const QString &recargo)
{
    const QString nivel = QStringLiteral("A");
    ctx.escribir_log(QStringLiteral("se procede a modificar el recargo de la tarjeta a: ") + recargo, nivel);
    const bool ok = ctx.db().execNQ(
        QStringLiteral(
            "UPDATE Vendrix_FormasDePago SET Recargo = ? WHERE Forma_de_Pago = 'Tarjeta de Crédito'"),
        QStringLiteral("internal"), {valor_texto(recargo)});
    if (ok)
        ctx.escribir_log(QStringLiteral("se modificar el recargo de la tarjeta a: ") + recargo, nivel);
    return ok;
}

QStringList items_digitos_significativos()
{
    return items(kDigitos);
}

QStringList items_modo_redondeo()
{
    return items(kModos);
}

QStringList items_tipo_redondeo()
{
    return {kDiezEnDiez, kCincoEnCinco};
}

RoundingState cargar_combos_redondeo(const Context &ctx)
{
    if (ctx.leer_parametro(kClaveRedondeo).isEmpty())
        ctx.escribir_parametro(kClaveRedondeo, QStringLiteral("1"));
    if (ctx.leer_parametro(kClaveTipo).isEmpty())
        ctx.escribir_parametro(kClaveTipo, kDiezEnDiez);
    return estado(ctx);
}

RoundingState elegir_digitos(const Context &ctx, const QString &item)
{
    const char *valor = valor_de(kDigitos, item);
    if (!valor)
        return estado(ctx);
    ctx.escribir_parametro(kClaveDecimales, QLatin1String(valor));
    ctx.escribir_parametro(kClaveTipo, kDiezEnDiez);
    if (!con_decimales(item))
        ctx.escribir_parametro(kClaveRedondeo, QStringLiteral("1"));
    return estado(ctx);
}

RoundingState elegir_modo(const Context &ctx, const QString &item)
{
    if (const char *valor = valor_de(kModos, item))
        ctx.escribir_parametro(kClaveRedondeo, QLatin1String(valor));
    return estado(ctx);
}

RoundingState elegir_tipo(const Context &ctx, const QString &item)
{
    if (item == kDiezEnDiez || item == kCincoEnCinco)
        ctx.escribir_parametro(kClaveTipo, item);
    return estado(ctx);
}

} // namespace vendrix
