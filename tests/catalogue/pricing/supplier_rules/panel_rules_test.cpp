// Storing the formulas typed in the price panel as rules, and the notice of
// rules that no list uses.
#include "catalogue/pricing/supplier_rules/panel_rules.h"
#include "catalogue/pricing/supplier_rules/unused_rules.h"
#include "catalogue/support/shop_fixture.h"

namespace vendrix {
namespace {

using test::kDAngelo;

const QString kTitulo = QStringLiteral("Valores de Ganancia y Descuento modificados");

PanelRule panel(const char *proveedor, const char *grupo, const char *codigo, const char *descripcion,
                const char *ganancia, const char *descuento, const char *g0 = "0", const char *d0 = "0")
{
    return {proveedor, grupo, codigo, descripcion, ganancia, descuento, g0, d0};
}

TEST(RuleAction, ChosenByWhatChangedTheCodeAndTheGroupRule)
{
    const RuleTable reglas({{"Acme", "General para la lista", "Todos los articulos del grupo", "10", "30"},
                            {"Acme", "Tuercas", "Todos los articulos del grupo", "5", "20"}});
    const struct {
        PanelRule panel;
        RuleAction accion;
    } casos[] = {
        {panel("Acme", "Tornillos", "T1", "Tornillo", "30", "10", "30", "10"), RuleAction::NoHacerNada},
        // Typed back to what the rules give now: nothing to store.
        {panel("Acme", "Tornillos", "T1", "Tornillo", "30", "10", "35", "10"), RuleAction::NoHacerNada},
        // Rules changed under a panel left as loaded: nothing typed.
        {panel("Acme", "Tornillos", "T1", "Tornillo", "25", "10", "25", "10"), RuleAction::NoHacerNada},
        {panel("Acme", "Tornillos", "T1", "Tornillo", "40+", "10", "30", "10"), RuleAction::NoHacerNada},
        {panel("Acme", "Tornillos", "", "Tornillo", "40", "10", "30", "10"), RuleAction::ModificarSoloGrupo},
        {panel("Acme", "Tuercas", "R1", "Tuerca", "40", "5", "20", "5"), RuleAction::ModificarSoloArticulo},
        {panel("Acme", "Tornillos", "T1", "Tornillo", "30", "12", "30", "10"),
         RuleAction::ModificarArticuloYGrupo},
    };
    for (const auto &c : casos)
        EXPECT_EQ(accion_regla(c.panel, reglas), c.accion) << c.panel.ganancia.toStdString();
}

class ReglaDesdeDetalle : public test::TiendaConLista {
protected:
    void SetUp() override
    {
        TiendaConLista::SetUp();
        llenar();
        app.op.clear();
    }
};

TEST_F(ReglaDesdeDetalle, AnArticleWithoutCodeOffersItsGroupWithTheArticleCount)
{
    app.op.answer(true);
    EXPECT_TRUE(guardar_regla_desde_detalle(app.ctx(), reglas,
                                            panel("Acme", "Tuercas", "", "Tuerca suelta", "35", "0")));
    EXPECT_EQ(
        app.op.lines(),
        (QStringList{"ask|" + kTitulo +
                     "|Usted modificó el valor de la ganancia (35) configurada para el artículo 'Tuerca "
                     "suelta'.\r\n3 articulos forman parte del grupo 'Tuercas'. Todos ellos se verán "
                     "afectados por este cambio (excepto aquellos que tuvieran una configuración "
                     "partiuclar). Desea guardar estos datos en la configuración de \"todos\" los artículos "
                     "del grupo 'Tuercas'?"}));
    EXPECT_EQ(tabla_reglas().last(), QStringLiteral("Acme|Tuercas|Todos los articulos del grupo|0|35|true"));
    // Once the group has its row, a second change updates it.
    app.op.clear();
    app.op.answer(true);
    EXPECT_TRUE(guardar_regla_desde_detalle(
        app.ctx(), reglas, panel("Acme", "Tuercas", "", "Tuerca suelta", "35", "8", "35", "0")));
    EXPECT_TRUE(app.op.texts()[0].startsWith("Usted modificó el valor de descuento (8) configurado para el "
                                             "artículo 'Tuerca suelta'.\r\n"));
    EXPECT_EQ(tabla_reglas().last(), QStringLiteral("Acme|Tuercas|Todos los articulos del grupo|8|35|true"));
    EXPECT_EQ(
        nuevos_logs().last(),
        QStringLiteral("Se modifico el porcentaje de ganancia/descuento del grupo'Tuercas' para todos los "
                       "artículos."));
}

TEST_F(ReglaDesdeDetalle, BothChangedAskForTheArticleThenForTheGroup)
{
    app.op.answers_in_order({true, true});
    EXPECT_TRUE(guardar_regla_desde_detalle(
        app.ctx(), reglas, panel("D'Angelo", "Caños", "C'1", "Caño 1/2' cobre", "40", "10")));
    EXPECT_EQ(
        app.op.lines(),
        (QStringList{"ask|" + kTitulo +
                         "|Usted modificó el valor de descuento (10) y ganancia (40) configurada para el "
                         "artículo 'C'1 - Caño 1/2' cobre'.\r\n2 articulos forman parte del grupo 'Caños'. "
                         "Todos ellos se verán afectados por este cambio (excepto aquellos que tuvieran una "
                         "configuración partiuclar). Desea guardar estos datos en la configuración del "
                         "artículo?",
                     "ask|" + kTitulo +
                         "|Desea que esta configuración se convierta en \"general\" para todo el grupo "
                         "'Caños'?"}));
    EXPECT_EQ(tabla_reglas().mid(3),
              (QStringList{"D'Angelo|Caños|C'1 - Caño 1/2' cobre|10|40|true",
                           "D'Angelo|Caños|Todos los articulos del grupo|10|40|true"}));
    EXPECT_EQ(nuevos_logs().mid(3),
              (QStringList{
                  "Se inserto un nuevo porcentaje de ganancia/descuento del grupo'Caños' y Artículo 'C'1 - "
                  "Caño 1/2' cobre",
                  "Se inserto un nuevo porcentaje de ganancia/descuento del grupo'Caños' para todos los "
                  "artículos."}));
}

TEST_F(ReglaDesdeDetalle, ANoStoresNothingAndAsksNoMore)
{
    const PanelRule p = panel("Otro", "Varios", "X1", "Varios", "40", "0");
    app.op.answer(false);
    EXPECT_FALSE(guardar_regla_desde_detalle(app.ctx(), reglas, p));
    ASSERT_EQ(app.op.shown.size(), 1u); // a no asks no more
    EXPECT_TRUE(app.op.texts()[0].contains("\r\n1 articulo forma parte del grupo 'Varios'. Desea guardar"));
    EXPECT_EQ(tabla_reglas().size(), 3);
    // Yes to the article, no to the group: the article only.
    app.op.answers_in_order({true, false});
    EXPECT_TRUE(guardar_regla_desde_detalle(app.ctx(), reglas, p));
    EXPECT_EQ(tabla_reglas().mid(3), QStringList{"Otro|Varios|X1 - Varios|0|40|true"});
}

TEST_F(ReglaDesdeDetalle, AGroupWithItsOwnRuleGetsAnArticleException)
{
    regla("Acme", "Tornillos", "Todos los articulos del grupo", "0", "30");
    regla("Acme", "Tornillos", "T1 - Tornillo 1/4", "0", "35");
    llenar();
    app.op.answer(true);
    EXPECT_TRUE(guardar_regla_desde_detalle(
        app.ctx(), reglas, panel("Acme", "Tornillos", "T1", "Tornillo 1/4", "50", "0", "35", "0")));
    EXPECT_EQ(
        app.op.lines(),
        (QStringList{"ask|" + kTitulo +
                     "|Usted modificó el valor de la ganancia (50) configurada para el artículo 'T1 - "
                     "Tornillo 1/4'.\r\n Desea guardar estos datos en la configuración del artículo?"}));
    EXPECT_EQ(tabla_reglas().mid(3), (QStringList{"Acme|Tornillos|Todos los articulos del grupo|0|30|true",
                                                  "Acme|Tornillos|T1 - Tornillo 1/4|0|50|true"}));
    EXPECT_EQ(nuevos_logs().last(),
              QStringLiteral("Se modifico el porcentaje de ganancia/descuento de del grupo "
                             "'Tornillos' y Artículo 'T1 - Tornillo 1/4"));
}

class ReglasSinUso : public test::TiendaConLista {};

TEST_F(ReglasSinUso, GroupsWithoutArticlesAreReportedWhenTheSettingAsks)
{
    regla("Acme", "Tornillos", "Todos los articulos del grupo", "1", "1");
    regla("Acme", "Clavos", "Todos los articulos del grupo", "1", "1");
    regla("Acme", "Clavos", "C9 - Clavo", "1", "1");
    regla(kDAngelo, "Caños de plomo", "Todos los articulos del grupo", "1", "1");
    regla("Viejo", "Gone", "Todos los articulos del grupo", "1", "1"); // not in the list: not told
    llenar();
    app.op.clear();

    advertir_reglas_sin_uso(app.ctx());
    EXPECT_TRUE(app.op.empty());

    ajuste("advertencia_descuentos_no_utilizados", "1");
    advertir_reglas_sin_uso(app.ctx());
    EXPECT_EQ(app.op.lines(),
              (QStringList{
                  "warn|Descuentos y ganancias sin uso|Hay descuentos y ganancias configurados para grupos "
                  "que ya no tienen artículos en las listas de precios:\r\n\r\n  Proveedor 'Acme', grupo "
                  "'Clavos'.\r\n  Proveedor 'D'Angelo', grupo 'Caños de plomo'.\r\n\r\nEstos valores no "
                  "se aplican a ningún artículo. Puede revisarlos o borrarlos en la grilla de descuentos y "
                  "ganancias de la solapa \"Configuración\"."}));
    EXPECT_EQ(nuevos_logs().last(),
              QStringLiteral("Configuración - hay 2 grupos con descuentos y ganancias sin uso"));
}

} // namespace
} // namespace vendrix
