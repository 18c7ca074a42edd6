// Re-pricing a cart from the current price list: every kind of line, the
// 0.01 % threshold, the operator's say on falls, the closing count, failure.
#include "sales/recalcular_carrito.h"
#include "tienda.h"

namespace vendrix {
namespace {

using test::Tienda;

class Recalcular : public Tienda {
protected:
    explicit Recalcular(bool failing = false) : Tienda(failing) {}

    QStringList articulos() const override
    {
        return {QStringLiteral("(1, 'Acme', 'Tornillos', 'T1', 'Tornillo', '1000', '1')"),
                QStringLiteral("(2, 'Acme', 'Tornillos', 'T2', 'Tuerca', '999.9', '1')"),
                QStringLiteral("(3, 'Acme', 'Tornillos', 'T3', 'Arandela', '999.91', '1')"),
                QStringLiteral("(4, 'Acme', 'Tornillos', 'T4', 'Clavo', '0', '1')"),
                QStringLiteral("(5, 'Acme', 'Tornillos', 'T5', 'Perno', '50', '1')"),
                QStringLiteral("(6, 'Acme', 'Tornillos', 'T5', 'Perno largo', '60', '1')"),
                QStringLiteral("(7, 'Otro', 'Tacos', 'X1', 'Taco', '100', '1')")};
    }

    // A line of an article of the list, as the add dialog leaves it.
    void linea_de(const char *cantidad, const char *descripcion, const char *precio, const char *id,
                  const char *codigo, const char *proveedor = "Acme")
    {
        carrito.agregar_linea(linea({cantidad, descripcion, precio, "", "0", id, "0", "0", "0", "0", codigo,
                                     "Tornillos", proveedor}));
    }

    Carrito carrito{2};
};

TEST_F(Recalcular, HandLinesAreNeverRepricedAndTheRunGoesOn)
{
    for (const char *codigo : {"0", "X", ""})
        carrito.agregar_linea(linea({"1", "A mano", "5", "5", "0", codigo, "0", "0", "0", "", "", "", ""}));
    linea_de("2", "Tornillo", "900", "1", "T1");

    EXPECT_EQ(recalcular_carrito(app.ctx(), carrito), 1);
    const QString a_mano =
        QStringLiteral("warn|Artículo argegado no en lista|El Artículo 'A mano' fue agregado a "
                       "mano y no se pudo actualizar.");
    EXPECT_EQ(app.op.lines(),
              (QStringList{a_mano, a_mano, a_mano,
                           "inform|Operación Exitosa|Se realizó una actualización de precio al "
                           "recalcular el carrito. El carrito contiene ya los precios más recientes."}));
    for (int fila = 0; fila < 3; ++fila)
        EXPECT_EQ(carrito.celda(fila, kColPrecioUnitario), "5");
    // A rise is taken without asking.
    EXPECT_EQ(carrito.celda(3, kColPrecioUnitario), "1000,00");
    EXPECT_EQ(carrito.celda(3, kColImporte), "2000");
    EXPECT_EQ(carrito.texto_total(), "2015");

    const QString no_encontrado =
        QStringLiteral("No se encontro el código del artículo guardado en el carrito con "
                       "descripción: A mano. No se puede recalcular su precio.");
    EXPECT_EQ(
        log_de("INF"),
        (QStringList{
            "Se procede a recalcular los precios del carrito.", no_encontrado, no_encontrado, no_encontrado,
            "Se encontro un unico match para el articulo en la base actual y se recalculo su precio: "
            "$ 1000. Esta variable es ya de tipo double.",
            "Durante el procedimiento de recalcular el carrito;; se encontro un nuevo precio para el "
            "código del artículo: 1 y fue actualizado por el usuario."}));
}

TEST_F(Recalcular, AFallOfExactlyAHundredthAsksOneBelowIsOnlyLogged)
{
    linea_de("1", "Tuerca", "1000", "2", "T2");
    linea_de("1", "Arandela", "1000", "3", "T3");
    app.op.answer(true);

    EXPECT_EQ(recalcular_carrito(app.ctx(), carrito), 1);
    ASSERT_EQ(app.op.shown.size(), 2u);
    EXPECT_EQ(app.op.shown[0].kind, "ask");
    EXPECT_EQ(app.op.shown[0].title, "Question");
    EXPECT_TRUE(app.op.shown[0].text.startsWith(
        "Se encontró el artículo: 'Tuerca', con un precio final de $999,90 (diferencia de -0,01"))
        << app.op.shown[0].text.toStdString();
    EXPECT_TRUE(
        app.op.shown[0].text.endsWith("% respecto al precio original). ¿Desea utilizar el precio nuevo?"));
    EXPECT_EQ(carrito.celda(0, kColPrecioUnitario), "999,90");
    EXPECT_EQ(carrito.celda(1, kColPrecioUnitario), "1000");

    const QStringList log = log_de("INF");
    ASSERT_FALSE(log.isEmpty());
    EXPECT_TRUE(log.last().startsWith(
        "Durante el procedimiento de recalcular el carrito;; se encontro un precio para "
        "el código del artículo: 3;; pero visto que la diferencia con el precio del "
        "carrito es de -0;;009"))
        << log.last().toStdString();
    EXPECT_TRUE(log.last().endsWith(" (menos del 0.01 %) no fue actualizado."));
}

TEST_F(Recalcular, AFallTheOperatorRefusesKeepsThePrice)
{
    linea_de("1", "Tornillo", "1200", "1", "T1");
    // An unchanged price is no change at all.
    linea_de("1", "Tornillo", "1000", "1", "T1");
    app.op.answer(false);

    EXPECT_EQ(recalcular_carrito(app.ctx(), carrito), 0);
    EXPECT_EQ(carrito.celda(0, kColPrecioUnitario), "1200");
    EXPECT_EQ(app.op.shown.back().text,
              "Se terminó de recalcular el carrito. El carrito contiene yá los precios más "
              "recientes.");
    const QStringList log = log_de("INF");
    EXPECT_TRUE(
        log.contains("Durante el procedimiento de recalcular el carrito;; se encontro un nuevo precio para "
                     "el artículo: Tornillo pero el usuario prefirio no actualizarlo."));
    EXPECT_TRUE(
        log.last().contains("del artículo: 1;; pero visto que la diferencia con el precio del carrito es de "
                            "0 (menos del 0.01 %)"))
        << log.last().toStdString();
}

TEST_F(Recalcular, MissingRepeatedAndZeroPricedArticlesKeepTheirPrice)
{
    linea_de("1", "Fuera de lista", "10", "99", "NO", "Acme");
    linea_de("1", "Perno", "50", "5", "T5");
    linea_de("1", "Clavo", "30", "4", "T4");

    EXPECT_EQ(recalcular_carrito(app.ctx(), carrito), 0);
    EXPECT_EQ(app.op.lines(),
              (QStringList{
                  "warn|Vendrix|El Artículo 'Fuera de lista' No se encuentra disponible en la lista actual. "
                  "Se mantendrá el precio original.",
                  "warn|Vendrix|El Artículo 'Perno' no tiene código o el código esta repetido y no se pudo "
                  "actualizar.",
                  "warn|Artículo encontrado con precio cero|Se encontró el artículo: 'Clavo', pero su precio "
                  "actual es cero. Se dejará el precio original.",
                  "inform|Operación Exitosa|Se terminó de recalcular el carrito. El carrito contiene yá los "
                  "precios más recientes."}));
    EXPECT_EQ(carrito.celda(0, kColPrecioUnitario), "10");
    EXPECT_EQ(carrito.celda(1, kColPrecioUnitario), "50");
    EXPECT_EQ(carrito.celda(2, kColPrecioUnitario), "30");
    const QStringList log = log_de("INF");
    EXPECT_TRUE(
        log.contains("No se encontro el código del artículo guardado en el carrito con descripción: Fuera de "
                     "lista. No se puede recalcular su precio."));
    EXPECT_TRUE(
        log.contains("Se encontraron 2 para el código del artículo guardado en el carrito con descripción: "
                     "Perno. No se puede recalcular su precio."));
}

TEST_F(Recalcular, AnUpdatedLineTakesTheListAndTheRules)
{
    regla("Otro", "10+5", "30");
    linea_de("3", "Taco", "100", "7", "X1", "Otro");
    carrito.set_celda(0, kColGrupoProveedor, QStringLiteral("viejo"));
    linea_de("1", "Tornillo", "900", "1", "T1");

    EXPECT_EQ(recalcular_carrito(app.ctx(), carrito), 2);
    // 100 less 14.5 % plus 30 %; the discount is kept as a margin would be.
    EXPECT_EQ(celdas(carrito, 0), (QStringList{"3", "Taco", "111,15", "333,45", "0", "7", "30", "15,5", "0",
                                               "0", "X1", "Tacos", "Otro"}));
    EXPECT_EQ(carrito.texto_total(), "1333,45");
    EXPECT_EQ(app.op.shown.back().text,
              "Se realizarón 2 actualizaciones de precios al recalcular el carrito. El "
              "carrito contiene ya los precios más recientes.");
}

TEST_F(Recalcular, TheButtonRefusesAnEmptyCartAndAsksFirst)
{
    EXPECT_FALSE(confirmar_recalcular_carrito(app.ctx(), carrito));
    EXPECT_EQ(app.op.lines(),
              QStringList{"warn|Error al recalcular carrito|El carrito esta vacío. Agregue un "
                          "artículo e intente nuevamente"});

    linea_de("1", "Tornillo", "900", "1", "T1");
    app.op.clear();
    app.op.answer(false);
    EXPECT_FALSE(confirmar_recalcular_carrito(app.ctx(), carrito));
    EXPECT_EQ(app.op.lines(),
              QStringList{"ask|¿Recalcular precios carrito?|¿Está seguro que desea recalcular el "
                          "precio del carrito? Se sobreescribirán todos los precios"});
    EXPECT_EQ(carrito.celda(0, kColPrecioUnitario), "900");
    EXPECT_TRUE(app.status.busy_changes.empty());

    app.op.answer(true);
    EXPECT_TRUE(confirmar_recalcular_carrito(app.ctx(), carrito));
    EXPECT_EQ(carrito.celda(0, kColPrecioUnitario), "1000,00");
    ASSERT_FALSE(app.status.busy_changes.empty());
    EXPECT_TRUE(app.status.busy_changes.front());
    EXPECT_FALSE(app.status.busy_changes.back());
}

TEST_F(Recalcular, AnEmptyCartIsRefusedInside)
{
    EXPECT_EQ(recalcular_carrito(app.ctx(), carrito), -1);
    EXPECT_EQ(app.op.lines(),
              QStringList{"warn|No se puede recalcular el precio del carrito|El carrito no puede "
                          "estar vacío para recalcular su precio."});
}

class RecalcularFallido : public Recalcular {
protected:
    RecalcularFallido() : Recalcular(true) {}
};

TEST_F(RecalcularFallido, ADatabaseFailureStopsTheRun)
{
    carrito.agregar_linea(linea({"1", "A mano", "5", "5", "0", "0", "0", "0", "0", "", "", "", ""}));
    linea_de("1", "Tornillo", "900", "1", "T1");
    app.failing_db().fail_matching(QStringLiteral("count(*)"));

    EXPECT_EQ(recalcular_carrito(app.ctx(), carrito), -1);
    ASSERT_EQ(app.op.shown.size(), 2u);
    EXPECT_EQ(app.op.lines().last(),
              "error|Error al recalcular un carrito.|ER RECA001: Se produjo un error al "
              "intentar recalcular el Carrito. Cierre Vendrix e intente nuevamente.");
    EXPECT_EQ(carrito.celda(1, kColPrecioUnitario), "900");
    EXPECT_TRUE(log_de("ERR").contains("ER RECA001 - 1 No se pudo consultar la lista de precios Vendrix"));
    ASSERT_FALSE(app.status.busy_changes.empty());
    EXPECT_FALSE(app.status.busy_changes.back());
}

} // namespace
} // namespace vendrix
