#include "catalogue/pricing/price_panel.h"

#include "catalogue/pricing/rules.h"
#include "support/qt_print.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using C = PanelField;

PriceSettings ajustes(const char *iva = "21", const char *recargo = "10", const char *decimales = "2",
                      const char *redondeo = "1", const char *dolar = "1")
{
    return {iva, dolar, recargo, {decimales, redondeo, QStringLiteral("De 10 en 10"), QString()}};
}

PricePanel cargar(const char *precio, const char *descuento, const char *ganancia,
                  const PriceSettings &a = ajustes(), const char *moneda = "1",
                  std::optional<double> unidades = std::nullopt)
{
    return cargar_panel(PricedArticle{7, "Acme", "Tornillos", "T1", "Tornillo", precio, moneda}, unidades,
                        ArticleRules{descuento, ganancia}, a);
}

// The titles of the messages, joined by "|".
QString titulos(const PricePanel &panel)
{
    QStringList out;
    for (const Mensaje &m : panel.mensajes)
        out << m.titulo;
    return out.join(u'|');
}

TEST(PricePanel, FiguresByCase)
{
    const PriceSettings base = ajustes(), dolar = ajustes("21", "0", "2", "1", "350,5"),
                        sin_dolar = ajustes("21", "0", "2", "1", "abc"), iva_10_5 = ajustes("10,5"),
                        decenas = ajustes("21", "0", "-1"), sin_modo = ajustes("0", "0", "2", "");
    const struct {
        const char *precio, *moneda, *descuento, *ganancia;
        const PriceSettings &a;
        const char *costo, *civa, *neto, *tarjeta, *titulos;
    } casos[] = {
        {"1000", "1", "", "", base, "1000", "1210,00", "1000", "1331", ""},    // no rules: 0
        {"1000", "1", "-5", "0", base, "1000", "1210,00", "1000", "1331", ""}, // valid, worth 0
        {"1000", "1", "100", "30", base, "0", "0,00", "0", "0", ""},           // 0 isn't below 0
        {"1000", "1", "0", "5-10", base, "1000", "1143,45", "945", "1257,8",
         "Error en la Formula de la Ganancia|Controlar Ganancia y Descuentos"},
        {"10", "2", "0", "0", dolar, "3505", "4241,05", "3505", "4241,05", ""},   // times Valor_Dolar
        {"10", "102", "0", "0", sin_dolar, "0", "0,00", "0", "0", ""},            // no number: 0
        {"1000", "101", "0", "0", base, "1000", "1105,00", "1000", "1215,5", ""}, // reduced rate
        {"1000", "1", "0", "0", iva_10_5, "1000", "1100,00", "1000", "1210", ""}, // 10,5 acts as 10
        {"1000", "1", "0", "0", decenas, "1000", "1210", "1000", "1210", ""},
        {"1000,004", "1", "0", "0", sin_modo, "1000", "1000,01", "1000,01", "1000", ""}, // rounds up
    };
    for (const auto &c : casos) {
        SCOPED_TRACE(std::string(c.precio) + " " + c.moneda + " D=" + c.descuento + " G=" + c.ganancia);
        const PricePanel p = cargar(c.precio, c.descuento, c.ganancia, c.a, c.moneda);
        EXPECT_EQ(p[C::TextBox_Costo].text, QString::fromUtf8(c.costo));
        EXPECT_EQ(p[C::TextBox_PTotal_civa].text, QString::fromUtf8(c.civa));
        EXPECT_EQ(p[C::TextBox_PTotal].text, QString::fromUtf8(c.neto));
        EXPECT_EQ(p[C::lPrecioSolotarjeta].text, QString::fromUtf8(c.tarjeta));
        EXPECT_EQ(titulos(p), QString::fromUtf8(c.titulos));
        EXPECT_TRUE(p.errores.empty());
    }
}

TEST(PricePanel, MessagesInTheOrderTheOperatorSeesThemAndARecalculationDropsTheOld)
{
    PricePanel p = cargar("1000", "200", "x");
    p[C::Textbox_desusr].text = QStringLiteral("k");
    calcular_precio_detalle(p, ajustes());
    EXPECT_EQ(titulos(p),
              QStringLiteral("Error en la ganancia|Error en el descuento cliente|Error en el valor "
                             "total del descuento"));
    EXPECT_EQ(p.mensajes[0].texto, QStringLiteral("La formula ingresada para la ganancia no es correcta. Por "
                                                  "favor corríjala e intente nuevamente."));
    EXPECT_EQ(p.mensajes[0].icono, Mensaje::Icono::Critico);
    EXPECT_EQ(p.mensajes[2].icono, Mensaje::Icono::Exclamacion);

    // A customer discount above the margin warns that the price is below cost.
    p = cargar("1000", "0", "0");
    p[C::Textbox_desusr].text = QStringLiteral("10");
    calcular_precio_detalle(p, ajustes());
    EXPECT_EQ(p[C::TextBox_PTotal].text, QStringLiteral("900"));
    EXPECT_EQ(titulos(p), QStringLiteral("Controlar Ganancia y Descuentos"));
    p[C::Textbox_desusr].text = QStringLiteral("150");
    calcular_precio_detalle(p, ajustes());
    EXPECT_EQ(
        titulos(p),
        QStringLiteral("Error en el valor total del descuento cliente|Controlar Ganancia y Descuentos"));
    // Empty boxes and a formula starting with "-" are valid and worth 0.
    p[C::Textbox_desusr].text = QStringLiteral("-5+200");
    p[C::TextBox_Ganancia].text.clear();
    p[C::TextBox_Descuento].text.clear();
    calcular_precio_detalle(p, ajustes());
    EXPECT_TRUE(p.mensajes.empty());
    EXPECT_EQ(p[C::TextBox_PTotal_civa].text, QStringLiteral("1210,00"));
}

TEST(PricePanel, UnitsDivideTheListPrice)
{
    const PricePanel p = cargar("1200", "10", "0", ajustes("0", "0"), "1", 12.0);
    EXPECT_EQ(p[C::TextBox_PLista].text + "|" + p[C::TextBox_PLista].tag, QStringLiteral("100|100,00"));
    EXPECT_EQ(p[C::TextBox_PLista_grilla].text, QStringLiteral("1200"));
    EXPECT_EQ(p[C::TextBox_PLista_grilla_unidad].text, QStringLiteral("100"));
    EXPECT_EQ(p[C::Label_PListacustomBig].text, QStringLiteral("Precio unitario en base a 12 unidades"));
    EXPECT_EQ(p[C::Label_PListacustom].text, QStringLiteral("(Por 12 unidades)"));
    EXPECT_EQ(p[C::TextBox_Costo].text, QStringLiteral("90"));
    EXPECT_EQ(p[C::TextBox_PLista_original].text, QStringLiteral("1080")); // the whole pack

    const PricePanel uno = cargar("1200", "0", "0", ajustes(), "1", 1.0);
    EXPECT_EQ(uno[C::Label_PListacustomBig].text, QStringLiteral("(Precio unitario en base a 1 unidad)"));
    EXPECT_EQ(uno[C::Label_PListacustom].text, QStringLiteral("(Por 1 unidad)"));
    const PricePanel medio = cargar("10", "0", "0", ajustes(), "1", 2.5);
    EXPECT_EQ(medio[C::TextBox_PLista_grilla_unidad].text, QStringLiteral("4"));
    EXPECT_EQ(medio[C::Label_PListacustom].text, QStringLiteral("(Por 2,5 unidades)"));
}

TEST(PricePanel, AFailureStopsTheCalculationWithItsLogLines)
{
    const PricePanel p = cargar("", "10+5", "30");
    EXPECT_EQ(p.errores, (QStringList{
                             "ER CALC0001 - 13 No coinciden los tipos 0 Vendrix",
                             "ER CALC0001 - Los valores de calculo son: ",
                             "ER CALC0001 -      Ganancia:    30 - es valor numerico: Verdadero",
                             "ER CALC0001 -      Descuento:   10+5 - es valor numerico: Falso",
                             "ER CALC0001 -      Desc. Cli:   0 - es valor numerico: Verdadero",
                             "ER CALC0001 -      Precio Lista: - es valor numerico: Falso",
                             "ER CALC0001 -      IVA:         21 - es valor numerico: Verdadero",
                             "ER CALC0001 -      Recargo Tarj:    10 - es valor numerico: Verdadero",
                         }));
    // The panel stands as it was when the calculation stopped.
    EXPECT_EQ(p[C::TextBox_Costo].text, QStringLiteral("0"));
    EXPECT_EQ(p[C::lPrecioSolo].text, QString());

    const PricePanel inf = cargar("1000", "0", "1/0");
    EXPECT_EQ(inf.errores.value(0), QStringLiteral("ER CALC0001 - 6 Desbordamiento 0 Vendrix"));
    EXPECT_EQ(inf[C::TextBox_Costo].text, QStringLiteral("1000"));
    const PricePanel cero = cargar("1000", "0", "0", ajustes("-100"));
    EXPECT_EQ(cero.errores.value(0), QStringLiteral("ER CALC0001 - 11 División por cero 0 Vendrix"));
    EXPECT_EQ(cero[C::TextBox_PTotal_civa].text, QStringLiteral("0,00"));
}

TEST(PricePanel, ThroughTheContextReadsTheSettingsShowsLogsAndIsBusyMeanwhile)
{
    test::TestApp app;
    for (const auto &[clave, valor] :
         {std::pair{"iva", "21"}, {"recargo_tarjeta", "10"}, {"decimales", "2"}, {"redondeo", "1"}})
        app.ctx().escribir_parametro(QString::fromUtf8(clave), QString::fromUtf8(valor));
    PricePanel p = cargar("1000", "10+5", "30", ajustes("0", "0", "", ""));
    p[C::TextBox_Ganancia].text = QStringLiteral("x");
    calcular_precio_detalle(app.ctx(), p);
    EXPECT_EQ(p[C::lPrecioSolotarjeta].text, QStringLiteral("940,5")); // the panel's own rate, 0
    EXPECT_EQ(p[C::TextBox_PTotal_civa].text, QStringLiteral("855,00"));
    EXPECT_EQ(app.op.lines().value(0).section(u'|', 0, 1), QStringLiteral("error|Error en la ganancia"));
    EXPECT_EQ(app.status.busy_changes, (std::vector<bool>{true, false}));

    // A failure goes to the log after the messages.
    p[C::TextBox_PLista].text = QStringLiteral("abc");
    calcular_precio_detalle(app.ctx(), p);
    EXPECT_EQ(app.log_messages().value(0),
              QStringLiteral("ER CALC0001 - 13 No coinciden los tipos 0 Vendrix."));
    EXPECT_EQ(app.log_messages().size(), p.errores.size());
    EXPECT_TRUE(app.status.keywords.contains(QStringLiteral("bug_on")));
}

} // namespace
} // namespace vendrix
