#include "catalogue/pricing/price_panel.h"

#include "catalogue/pricing/currency.h"
#include "catalogue/pricing/formula.h"
#include "catalogue/pricing/rules.h"
#include "core/context.h"
#include "core/numeric.h"

#include <cmath>

namespace vendrix {

namespace {

using C = PanelField;

// The value that an old formula routine gave for an error; the panel still
// checks for it.
constexpr double kErrorFormula = -9999.9876;

constexpr std::array<const char *, kCamposPanel> kNombres{
    "Label50",
    "articulo_label",
    "TextBox_PLista",
    "TextBox_PLista_original",
    "TextBox_PLista_grilla",
    "TextBox_PLista_grilla_unidad",
    "Label_PListacustomBig",
    "Label_PListacustom",
    "TextBox_Ganancia",
    "TextBox_Descuento",
    "Textbox_desusr",
    "TextBox_Costo",
    "TextBox_PTotal",
    "TextBox_PTotal_civa",
    "lPrecioSolo",
    "lPrecioSolotarjeta",
};

// A run-time error that stops the calculation, with the number and text the
// log has always shown for it.
struct FormulaFailure {
    int numero;
    const char *descripcion;
};
constexpr FormulaFailure kTiposNoCoinciden{13, "No coinciden los tipos"};
constexpr FormulaFailure kDesbordamiento{6, "Desbordamiento"};
constexpr FormulaFailure kDivisionPorCero{11, "División por cero"};

// A formula box, the messages of its checks and the kind of its percentage.
struct PanelFormula {
    PanelField campo;
    const char16_t *kind;
    const char *titulo_invalida;
    const char *texto_invalida;
    const char *titulo_error;
    const char *texto_error;
    const char *titulo_rango;
    const char *texto_rango;
    bool hasta_100; // a discount must stay within 0 and 100; a margin only >= 0
};

const std::array<PanelFormula, 3> kFormulas{{
    {C::TextBox_Ganancia, u"ganancia", "Error en la ganancia",
     "La formula ingresada para la ganancia no es correcta. Por favor corríjala e intente nuevamente.",
     "Error en la Formula de la Ganancia",
     "Hay un error en la fórmula de la Ganancia. Por favor modifíquela y vuelva a intentarlo.",
     "Error en la Formula de la Ganancia",
     "El valor de la ganancia debe mayor o igual a 0.  Por favor modifique la ganancia y vuelva a "
     "intentarlo.",
     false},
    {C::TextBox_Descuento, u"descuento", "Error en el descuento",
     "La formula ingresada para el descuento no es correcta. Por favor corríjala e intente nuevamente.",
     "Error en la Formula del Descuento",
     "Hay un error en la fórmula del Descuento. Por favor modifíquelo y vuelva a intentarlo.",
     "Error en el valor total del descuento",
     "El valor del descuento debe estar entre 0 y 100.  Por favor modifique el descuento y vuelva a "
     "intentarlo.",
     true},
    {C::Textbox_desusr, u"descuento", "Error en el descuento cliente",
     "La formula ingresada para el descuento cliente no es correcta. Por favor corríjala e intente "
     "nuevamente.",
     "Error en la Formula del Descuento Cliente",
     "Hay un error en la fórmula del Desc. Cliente. Por favor modifíquelo y vuelva a intentarlo.",
     "Error en el valor total del descuento cliente",
     "El valor del descuento cliente debe estar entre 0 y 100.  Por favor modifique el descuento y vuelva a "
     "intentarlo.",
     true},
}};

Mensaje mensaje(Mensaje::Icono icono, const char *titulo, const char *texto)
{
    return {icono, QString::fromUtf8(titulo), QString::fromUtf8(texto)};
}

QString si_no(bool valor)
{
    return valor ? QStringLiteral("Verdadero") : QStringLiteral("Falso");
}

// The log lines of a failed calculation: the error, then each input with
// whether it reads as a number.
QStringList lineas_fallo(const FormulaFailure &fallo, const PricePanel &panel, const PriceSettings &ajustes)
{
    const QString prefijo = QStringLiteral("ER CALC0001 - ");
    auto entrada = [&](const char *nombre, const QString &valor) {
        return prefijo + QString::fromUtf8(nombre) + valor + QStringLiteral(" - es valor numerico: ") +
               si_no(es_numerico(valor));
    };
    return {prefijo + QString::number(fallo.numero) + QLatin1Char(' ') +
                QString::fromUtf8(fallo.descripcion) + QStringLiteral(" 0 Vendrix"),
            prefijo + QStringLiteral("Los valores de calculo son: "),
            entrada("     Ganancia:    ", panel[C::TextBox_Ganancia].text),
            entrada("     Descuento:   ", panel[C::TextBox_Descuento].text),
            entrada("     Desc. Cli:   ", panel[C::Textbox_desusr].text),
            entrada("     Precio Lista:", panel[C::TextBox_PLista].text),
            entrada("     IVA:         ", texto_numero(panel.iva)),
            entrada("     Recargo Tarj:    ", ajustes.recargo_tarjeta)};
}

// The messages of a formula box's percentage: the old error value, or out
// of range.
void comprobar_porcentaje(const PanelFormula &f, double p, std::vector<Mensaje> &mensajes)
{
    if (p == kErrorFormula)
        mensajes.push_back(mensaje(Mensaje::Icono::Exclamacion, f.titulo_error, f.texto_error));
    else if (p < 0 || (f.hasta_100 && p > 100))
        mensajes.push_back(mensaje(Mensaje::Icono::Exclamacion, f.titulo_rango, f.texto_rango));
}

void poner(PanelControl &control, const QString &text, double tag)
{
    control.text = text;
    control.tag = texto_numero(tag);
}

// Steps of the calculation after the formulas; nullopt when it ran to the end.
std::optional<FormulaFailure> calcular_figuras(PricePanel &panel, const PriceSettings &ajustes,
                                               const Rounder &redondeo, double d, double g, double c)
{
    for (PanelField campo : {C::TextBox_Costo, C::TextBox_PTotal_civa, C::TextBox_PTotal})
        panel[campo] = {QStringLiteral("0"), QStringLiteral("0")};

    const double fD = 1 - d / 100;
    const double fG = 1 + g / 100;
    const double fC = 1 - c / 100;
    const QString &por_unidad = panel[C::TextBox_PLista_grilla_unidad].text;
    const double costo = es_numerico(por_unidad) ? valor_texto(por_unidad) * fD : 0.0;

    PanelControl &lista = panel[C::TextBox_PLista];
    lista.tag = lista.text;
    if (!es_numerico(lista.text))
        return kTiposNoCoinciden;
    lista.text = texto_numero(redondear(valor_texto(lista.text), 2));

    if (!std::isfinite(costo))
        return kDesbordamiento;
    poner(panel[C::TextBox_Costo], texto_numero(redondear(costo, 2)), costo);

    const double factor_iva = panel.iva / 100 + 1;
    const double neto = costo * fG * fC;
    const double bruto = factor_iva * neto;
    if (!std::isfinite(bruto))
        return kDesbordamiento;
    const QString precio = redondeo.aplicar(bruto);
    poner(panel[C::TextBox_PTotal_civa], precio, bruto);

    // The net shown is worked back from the rounded price, so that the two
    // shown figures agree.
    if (factor_iva == 0)
        return kDivisionPorCero;
    poner(panel[C::TextBox_PTotal], texto_numero(redondear(valor_texto(precio) / factor_iva, 2)), neto);
    poner(panel[C::lPrecioSolo], precio, bruto);

    // The card price starts from the unrounded price and has two decimals.
    const double tarjeta = (valor_texto(ajustes.recargo_tarjeta) / 100 + 1) * bruto;
    if (!std::isfinite(tarjeta))
        return kDesbordamiento;
    poner(panel[C::lPrecioSolotarjeta], texto_numero(redondear(tarjeta, 2)), tarjeta);

    const double paquete = valor_texto(panel[C::TextBox_PLista_grilla].text) * fD * fG * fC * factor_iva;
    if (!std::isfinite(paquete))
        return kDesbordamiento;
    panel[C::TextBox_PLista_original].text = texto_numero(paquete);

    if (valor_texto(panel[C::TextBox_PTotal].text) < valor_texto(panel[C::TextBox_Costo].text)) {
        panel.mensajes.push_back(mensaje(Mensaje::Icono::Exclamacion, "Controlar Ganancia y Descuentos",
                                         "Atención: El precio final sin IVA es menor al costo del artículo. "
                                         "Por favor verifique los datos ingresados."));
    }
    return std::nullopt;
}

// The calculation with the rounding already prepared: each formula is
// evaluated once, then the messages in the order the operator sees them
// (the three tests, then each percentage's range), then the figures.
void calcular(PricePanel &panel, const PriceSettings &ajustes, const Rounder &redondeo,
              bool avisar_invalidas = true)
{
    panel.mensajes.clear();
    panel.errores.clear();
    std::array<FormulaValue, 3> valores;
    for (size_t i = 0; i < valores.size(); ++i)
        valores[i] = evaluar_formula(panel[kFormulas[i].campo].text, kFormulas[i].kind);
    for (size_t i = 0; avisar_invalidas && i < valores.size(); ++i) {
        if (!valores[i].valida)
            panel.mensajes.push_back(
                mensaje(Mensaje::Icono::Critico, kFormulas[i].titulo_invalida, kFormulas[i].texto_invalida));
    }
    for (size_t i = 0; i < valores.size(); ++i)
        comprobar_porcentaje(kFormulas[i], valores[i].porcentaje, panel.mensajes);
    const double g = valores[0].porcentaje;
    const double d = valores[1].porcentaje;
    const double c = valores[2].porcentaje;
    if (const std::optional<FormulaFailure> fallo = calcular_figuras(panel, ajustes, redondeo, d, g, c))
        panel.errores = lineas_fallo(*fallo, panel, ajustes);
}

} // namespace

QString PricePanel::nombre(PanelField c)
{
    return QLatin1String(kNombres[static_cast<size_t>(c)]);
}

PricePanel cargar_panel(const PricedArticle &articulo, std::optional<double> unidades,
                        const RuleTable &reglas, const PriceSettings &ajustes)
{
    return cargar_panel(articulo, unidades,
                        reglas.reglas(articulo.proveedor, articulo.grupo, articulo.codigo), ajustes);
}

PricePanel cargar_panel(const PricedArticle &articulo, std::optional<double> unidades,
                        const ArticleRules &formulas, const PriceSettings &ajustes)
{
    const Rounder redondeo(ajustes.redondeo);
    PricePanel panel;
    panel.iva = tasa_iva(articulo.moneda, ajustes.iva);
    const QString tasa = texto_numero(panel.iva);
    panel[C::Label50].text = QStringLiteral("(IVA ") + tasa + QStringLiteral("%)");
    panel[C::articulo_label].text = QStringLiteral("Precio de Venta con IVA (") + tasa + QStringLiteral("%)");

    QString lista = articulo.precio;
    if (es_moneda_dolar(articulo.moneda))
        lista = texto_numero(valor_texto(articulo.precio) * cotizacion_dolar(ajustes.valor_dolar));
    for (PanelField campo : {C::TextBox_PLista, C::TextBox_PLista_original, C::TextBox_PLista_grilla_unidad,
                             C::TextBox_PLista_grilla})
        panel[campo].text = lista;

    if (unidades && *unidades > 0) {
        const double n = *unidades;
        const QString cantidad = texto_numero(n);
        panel[C::TextBox_PLista].text = redondeo.aplicar(valor_texto(lista) / n);
        panel[C::TextBox_PLista_grilla_unidad].text = texto_numero(valor_texto(lista) / n);
        if (n == 1) {
            panel[C::Label_PListacustomBig].text =
                QStringLiteral("(Precio unitario en base a ") + cantidad + QStringLiteral(" unidad)");
            panel[C::Label_PListacustom].text = QStringLiteral("(Por 1 unidad)");
        } else {
            panel[C::Label_PListacustomBig].text =
                QStringLiteral("Precio unitario en base a ") + cantidad + QStringLiteral(" unidades");
            panel[C::Label_PListacustom].text =
                QStringLiteral("(Por ") + cantidad + QStringLiteral(" unidades)");
        }
    }

    panel[C::TextBox_Ganancia].text = formulas.ganancia;
    panel[C::TextBox_Descuento].text = formulas.descuento;
    panel[C::Textbox_desusr].text = QStringLiteral("0");
    calcular(panel, ajustes, redondeo);
    return panel;
}

void calcular_precio_detalle(PricePanel &panel, const PriceSettings &ajustes, bool avisar_invalidas)
{
    calcular(panel, ajustes, Rounder(ajustes.redondeo), avisar_invalidas);
}

void calcular_precio_detalle(Context &ctx, PricePanel &panel)
{
    ctx.estado().marcar_ocupado(true);
    calcular_precio_detalle(panel, PriceSettings::leer(ctx));
    publicar_panel(ctx, panel);
    ctx.estado().marcar_ocupado(false);
}

void publicar_panel(Context &ctx, const PricePanel &panel)
{
    mostrar(ctx.op(), panel.mensajes);
    for (const QString &linea : panel.errores)
        ctx.escribir_log(linea, QStringLiteral("E"));
}

} // namespace vendrix
