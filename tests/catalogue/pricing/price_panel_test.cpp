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
    return {QString::fromUtf8(iva),
            QString::fromUtf8(dolar),
            QString::fromUtf8(recargo),
            {QString::fromUtf8(decimales), QString::fromUtf8(redondeo), QStringLiteral("De 10 en 10"),
             QString()}};
}

PricedArticle articulo(const char *precio, const char *moneda = "1")
{
    return {7,
            QStringLiteral("Acme"),
            QStringLiteral("Tornillos"),
            QStringLiteral("T1"),
            QStringLiteral("Tornillo"),
            QString::fromUtf8(precio),
            QString::fromUtf8(moneda)};
}

RuleTable reglas(const char *descuento, const char *ganancia)
{
    return RuleTable({{QStringLiteral("Acme"), QStringLiteral("General para la lista"),
                         QStringLiteral("Todos los articulos del grupo"), QString::fromUtf8(descuento),
                         QString::fromUtf8(ganancia)}});
}

// "name=text|tag" of every control, in the panel's order.
QStringList controles(const PricePanel &panel)
{
    QStringList out;
    for (int i = 0; i < kCamposPanel; ++i) {
        const auto campo = static_cast<PanelField>(i);
        out << PricePanel::nombre(campo) + QLatin1Char('=') + panel[campo].text + QLatin1Char('|') +
                   panel[campo].tag;
    }
    return out;
}

QStringList titulos(const PricePanel &panel)
{
    QStringList out;
    for (const Mensaje &m : panel.mensajes)
        out << m.titulo;
    return out;
}

const QString kAviso = QStringLiteral("Controlar Ganancia y Descuentos");

TEST(PricePanel, TheWorkedExampleToTheLastDigit)
{
    const PricePanel p = cargar_panel(articulo("1000"), std::nullopt, reglas("10+5", "30"), ajustes());
    EXPECT_EQ(controles(p), (QStringList{
                                "Label50=(IVA 21%)|",
                                "articulo_label=Precio de Venta con IVA (21%)|",
                                "TextBox_PLista=1000|1000",
                                "TextBox_PLista_original=1344,915|",
                                "TextBox_PLista_grilla=1000|",
                                "TextBox_PLista_grilla_unidad=1000|",
                                "Label_PListacustomBig=|",
                                "Label_PListacustom=|",
                                "TextBox_Ganancia=30|",
                                "TextBox_Descuento=10+5|",
                                "Textbox_desusr=0|",
                                "TextBox_Costo=855|855",
                                "TextBox_PTotal=1111,5|1111,5",
                                "TextBox_PTotal_civa=1344,92|1344,915",
                                "lPrecioSolo=1344,92|1344,915",
                                "lPrecioSolotarjeta=1479,41|1479,4065",
                            }));
    EXPECT_TRUE(p.mensajes.empty());
    EXPECT_TRUE(p.errores.empty());
    EXPECT_EQ(p.iva, 21.0);
}

TEST(PricePanel, FiguresByCase)
{
    const struct {
        const char *nombre;
        const char *precio;
        const char *moneda;
        const char *descuento;
        const char *ganancia;
        PriceSettings a;
        const char *costo;
        const char *civa;
        const char *neto;
        const char *tarjeta;
        QStringList titulos;
    } casos[] = {
        {"no rules: every formula 0", "1000", "1", "", "", ajustes(), "1000", "1210,00", "1000", "1331", {}},
        {"a typed '-5' discount is valid and worth 0",
         "1000",
         "1",
         "-5",
         "0",
         ajustes(),
         "1000",
         "1210,00",
         "1000",
         "1331",
         {}},
        {"discount 100 gives 0 and no warning",
         "1000",
         "1",
         "100",
         "30",
         ajustes(),
         "0",
         "0,00",
         "0",
         "0",
         {}},
        {"discount 101: range message, then below cost",
         "1000",
         "1",
         "101",
         "30",
         ajustes(),
         "-10",
         "-15,73",
         "-13",
         "-17,3",
         {QStringLiteral("Error en el valor total del descuento"), kAviso}},
        {"negative margin",
         "1000",
         "1",
         "0",
         "5-10",
         ajustes(),
         "1000",
         "1143,45",
         "945",
         "1257,8",
         {QStringLiteral("Error en la Formula de la Ganancia"), kAviso}},
        {"wrong margin formula counts as 0",
         "1000",
         "1",
         "0",
         "abc",
         ajustes(),
         "1000",
         "1210,00",
         "1000",
         "1331",
         {QStringLiteral("Error en la ganancia")}},
        {"dollar price times Valor_Dolar",
         "10",
         "2",
         "0",
         "0",
         ajustes("21", "0", "2", "1", "350,5"),
         "3505",
         "4241,05",
         "3505",
         "4241,05",
         {}},
        {"Valor_Dolar not a number: list price 0",
         "10",
         "102",
         "0",
         "0",
         ajustes("21", "0", "2", "1", "abc"),
         "0",
         "0,00",
         "0",
         "0",
         {}},
        {"reduced rate for 101", "1000", "101", "0", "0", ajustes(), "1000", "1105,00", "1000", "1215,5", {}},
        {"a shop rate of 10,5 acts as 10",
         "1000",
         "1",
         "0",
         "0",
         ajustes("10,5"),
         "1000",
         "1100,00",
         "1000",
         "1210",
         {}},
        {"rounding up to tens",
         "1000",
         "1",
         "0",
         "0",
         ajustes("21", "0", "-1"),
         "1000",
         "1210",
         "1000",
         "1210",
         {}},
        {"missing mode rounds up",
         "1000,004",
         "1",
         "0",
         "0",
         ajustes("0", "0", "2", ""),
         "1000",
         "1000,01",
         "1000,01",
         "1000",
         {}},
    };
    for (const auto &c : casos) {
        SCOPED_TRACE(c.nombre);
        const PricePanel p =
            cargar_panel(articulo(c.precio, c.moneda), std::nullopt, reglas(c.descuento, c.ganancia), c.a);
        EXPECT_EQ(p[C::TextBox_Costo].text, QString::fromUtf8(c.costo));
        EXPECT_EQ(p[C::TextBox_PTotal_civa].text, QString::fromUtf8(c.civa));
        EXPECT_EQ(p[C::lPrecioSolo].text, QString::fromUtf8(c.civa));
        EXPECT_EQ(p[C::TextBox_PTotal].text, QString::fromUtf8(c.neto));
        EXPECT_EQ(p[C::lPrecioSolotarjeta].text, QString::fromUtf8(c.tarjeta));
        EXPECT_EQ(titulos(p), c.titulos);
        EXPECT_TRUE(p.errores.empty());
    }
}

TEST(PricePanel, MessagesInTheOrderTheOperatorSeesThem)
{
    PricePanel p = cargar_panel(articulo("1000"), std::nullopt, reglas("200", "x"), ajustes());
    p[C::Textbox_desusr].text = QStringLiteral("k");
    calcular_precio_detalle(p, ajustes());
    ASSERT_EQ(p.mensajes.size(), 3u);
    EXPECT_EQ(
        p.mensajes[0],
        (Mensaje{Mensaje::Icono::Critico, QStringLiteral("Error en la ganancia"),
                 QStringLiteral("La formula ingresada para la ganancia no es correcta. Por favor corríjala e "
                                "intente nuevamente.")}));
    EXPECT_EQ(
        p.mensajes[1],
        (Mensaje{Mensaje::Icono::Critico, QStringLiteral("Error en el descuento cliente"),
                 QStringLiteral("La formula ingresada para el descuento cliente no es correcta. Por favor "
                                "corríjala e intente nuevamente.")}));
    EXPECT_EQ(
        p.mensajes[2],
        (Mensaje{Mensaje::Icono::Exclamacion, QStringLiteral("Error en el valor total del descuento"),
                 QStringLiteral("El valor del descuento debe estar entre 0 y 100.  Por favor modifique el "
                                "descuento y vuelva a intentarlo.")}));
}

TEST(PricePanel, CustomerDiscountAboveTheMarginWarns)
{
    PricePanel p = cargar_panel(articulo("1000"), std::nullopt, reglas("0", "0"), ajustes());
    p[C::Textbox_desusr].text = QStringLiteral("10");
    calcular_precio_detalle(p, ajustes());
    EXPECT_EQ(p[C::TextBox_PTotal].text, QStringLiteral("900"));
    ASSERT_EQ(p.mensajes.size(), 1u);
    EXPECT_EQ(
        p.mensajes[0],
        (Mensaje{Mensaje::Icono::Exclamacion, kAviso,
                 QStringLiteral("Atención: El precio final sin IVA es menor al costo del artículo. Por favor "
                                "verifique los datos ingresados.")}));
    // A customer discount out of range; a recalculation drops the old messages.
    p[C::Textbox_desusr].text = QStringLiteral("150");
    calcular_precio_detalle(p, ajustes());
    EXPECT_EQ(titulos(p),
              (QStringList{QStringLiteral("Error en el valor total del descuento cliente"), kAviso}));
    // A customer formula starting with "-" is valid and worth 0.
    p[C::Textbox_desusr].text = QStringLiteral("-5+200");
    calcular_precio_detalle(p, ajustes());
    EXPECT_TRUE(p.mensajes.empty());
    EXPECT_EQ(p[C::TextBox_PTotal].text, QStringLiteral("1000"));
}

TEST(PricePanel, EmptyFormulaBoxesShowNoMessageAndCountAsZero)
{
    PricePanel p = cargar_panel(articulo("1000"), std::nullopt, reglas("10", "20"), ajustes());
    for (PanelField campo : {C::TextBox_Ganancia, C::TextBox_Descuento, C::Textbox_desusr})
        p[campo].text.clear();
    calcular_precio_detalle(p, ajustes());
    EXPECT_TRUE(p.mensajes.empty());
    EXPECT_EQ(p[C::TextBox_Costo].text, QStringLiteral("1000"));
    EXPECT_EQ(p[C::TextBox_PTotal_civa].text, QStringLiteral("1210,00"));
}

TEST(PricePanel, UnitsDivideTheListPrice)
{
    const PricePanel p = cargar_panel(articulo("1200"), 12.0, reglas("10", "0"), ajustes("0", "0"));
    EXPECT_EQ(p[C::TextBox_PLista].text, QStringLiteral("100"));
    EXPECT_EQ(p[C::TextBox_PLista].tag, QStringLiteral("100,00"));
    EXPECT_EQ(p[C::TextBox_PLista_grilla].text, QStringLiteral("1200"));
    EXPECT_EQ(p[C::TextBox_PLista_grilla_unidad].text, QStringLiteral("100"));
    EXPECT_EQ(p[C::Label_PListacustomBig].text, QStringLiteral("Precio unitario en base a 12 unidades"));
    EXPECT_EQ(p[C::Label_PListacustom].text, QStringLiteral("(Por 12 unidades)"));
    EXPECT_EQ(p[C::TextBox_Costo].text, QStringLiteral("90"));
    EXPECT_EQ(p[C::TextBox_PTotal_civa].text, QStringLiteral("90,00"));
    EXPECT_EQ(p[C::TextBox_PLista_original].text, QStringLiteral("1080")); // the whole pack

    const PricePanel uno = cargar_panel(articulo("1200"), 1.0, reglas("0", "0"), ajustes());
    EXPECT_EQ(uno[C::Label_PListacustomBig].text, QStringLiteral("(Precio unitario en base a 1 unidad)"));
    EXPECT_EQ(uno[C::Label_PListacustom].text, QStringLiteral("(Por 1 unidad)"));

    const PricePanel medio = cargar_panel(articulo("10"), 2.5, reglas("0", "0"), ajustes());
    EXPECT_EQ(medio[C::TextBox_PLista_grilla_unidad].text, QStringLiteral("4"));
    EXPECT_EQ(medio[C::Label_PListacustom].text, QStringLiteral("(Por 2,5 unidades)"));
}

TEST(PricePanel, ReducedRateLabels)
{
    const PricePanel p = cargar_panel(articulo("1000", "101"), std::nullopt, reglas("0", "0"), ajustes());
    EXPECT_EQ(p[C::Label50].text, QStringLiteral("(IVA 10,5%)"));
    EXPECT_EQ(p[C::articulo_label].text, QStringLiteral("Precio de Venta con IVA (10,5%)"));
    EXPECT_EQ(p.iva, 10.5);
}

TEST(PricePanel, AListPriceThatIsNoNumberStopsTheCalculation)
{
    const PricePanel p = cargar_panel(articulo(""), std::nullopt, reglas("10+5", "30"), ajustes());
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
    EXPECT_EQ(p[C::TextBox_PTotal_civa].tag, QStringLiteral("0"));
    EXPECT_EQ(p[C::lPrecioSolo].text, QString());
    EXPECT_EQ(p[C::TextBox_PLista_original].text, QString());
}

TEST(PricePanel, OverflowAndDivisionByZeroStopTheCalculation)
{
    const PricePanel inf = cargar_panel(articulo("1000"), std::nullopt, reglas("0", "1/0"), ajustes());
    ASSERT_FALSE(inf.errores.isEmpty());
    EXPECT_EQ(inf.errores.first(), QStringLiteral("ER CALC0001 - 6 Desbordamiento 0 Vendrix"));
    EXPECT_EQ(inf[C::TextBox_Costo].text, QStringLiteral("1000"));

    const PricePanel cero = cargar_panel(articulo("1000"), std::nullopt, reglas("0", "0"), ajustes("-100"));
    ASSERT_FALSE(cero.errores.isEmpty());
    EXPECT_EQ(cero.errores.first(), QStringLiteral("ER CALC0001 - 11 División por cero 0 Vendrix"));
    EXPECT_EQ(cero[C::TextBox_PTotal_civa].text, QStringLiteral("0,00"));
}

TEST(PricePanel, ThroughTheContextShowsMessagesLogsAndIsBusyMeanwhile)
{
    test::TestApp app;
    app.ctx().escribir_parametro(QStringLiteral("iva"), QStringLiteral("21"));
    app.ctx().escribir_parametro(QStringLiteral("recargo_tarjeta"), QStringLiteral("10"));
    app.ctx().escribir_parametro(QStringLiteral("decimales"), QStringLiteral("2"));
    app.ctx().escribir_parametro(QStringLiteral("redondeo"), QStringLiteral("1"));
    PricePanel p = cargar_detalle_precio(app.ctx(), articulo("1000"), std::nullopt, reglas("10+5", "30"));
    EXPECT_EQ(p[C::lPrecioSolotarjeta].text, QStringLiteral("1479,41"));
    EXPECT_TRUE(app.op.empty());
    EXPECT_EQ(app.status.busy_changes, (std::vector<bool>{true, false}));

    // A message first, then the failure in the log.
    p[C::TextBox_Ganancia].text = QStringLiteral("x");
    p[C::TextBox_PLista].text = QStringLiteral("abc");
    calcular_precio_detalle(app.ctx(), p);
    EXPECT_EQ(app.op.lines(),
              (QStringList{QStringLiteral("error|Error en la ganancia|La formula ingresada para la "
                                          "ganancia no es correcta. Por favor corríjala e intente "
                                          "nuevamente.")}));
    QStringList esperado = p.errores;
    for (QString &linea : esperado)
        linea += QLatin1Char('.');
    EXPECT_EQ(app.log_messages(), esperado);
    EXPECT_EQ(esperado.first(), QStringLiteral("ER CALC0001 - 13 No coinciden los tipos 0 Vendrix."));
    EXPECT_TRUE(app.status.keywords.contains(QStringLiteral("bug_on")));
    EXPECT_EQ(app.status.busy_changes, (std::vector<bool>{true, false, true, false}));
}

} // namespace
} // namespace vendrix
