// Re-pricing a cart from the current price list: every kind of line, the
// 0.01 % threshold, the operator's say on falls, the closing count, failure.
#include "sales/recalcular_carrito.h"
#include "tienda.h"

namespace vendrix {
namespace {

class Recalcular : public test::Tienda {
protected:
    explicit Recalcular(bool failing = false) : Tienda(failing) {}

    QStringList articulos() const override
    {
        // Two prices just below 1000, one of 0, a code twice and another supplier.
        return {
            R"((1,'Acme','Tornillos','T1','Tornillo','1000','1'), (2,'Acme','Tornillos','T2','Tuerca','999.9','1'),
(3,'Acme','Tornillos','T3','Arandela','999.91','1'), (4,'Acme','Tornillos','T4','Clavo','0','1'),
(5,'Acme','Tornillos','T5','Perno','50','1'), (6,'Acme','Tornillos','T5','Perno largo','60','1'),
(7,'Otro','Tacos','X1','Taco','100','1'))"};
    }

    // A line of an article of the list, as the add dialog leaves it.
    void linea_de(const char *cantidad, const char *descripcion, const char *precio, const char *id,
                  const char *codigo, const char *proveedor = "Acme")
    {
        carrito.agregar_linea(linea(QStringList{cantidad, descripcion, precio, "", "0", id, "0", "0", "0",
                                                "0", codigo, "Tornillos", proveedor}
                                        .join(QLatin1Char('|'))));
    }

    QString precios() const
    {
        QStringList out;
        for (int fila = 0; fila < carrito.filas(); ++fila)
            out << carrito.celda(fila, kColPrecioUnitario);
        return out.join(QLatin1Char(' '));
    }

    Carrito carrito{2};
};

TEST_F(Recalcular, OnlyArticlesFoundOnceWithAPriceAreRepriced)
{
    EXPECT_EQ(recalcular_carrito(app.ctx(), carrito), -1);
    for (const char *codigo : {"0", "X", ""})
        linea_de("1", "A mano", "5", codigo, "");
    linea_de("1", "Fuera de lista", "10", "99", "NO");
    linea_de("1", "Perno", "50", "5", "T5");
    linea_de("1", "Clavo", "30", "4", "T4");
    linea_de("2", "Tornillo", "900", "1", "T1"); // a rise is taken without asking
    EXPECT_EQ(recalcular_carrito(app.ctx(), carrito), 1);
    EXPECT_EQ(precios() + " " + carrito.celda(6, kColImporte) + " " + carrito.texto_total(),
              "5 5 5 10 50 30 1000,00 2000 2105");
    EXPECT_EQ(
        app.op.lines().join('\n'),
        R"(warn|No se puede recalcular el precio del carrito|El carrito no puede estar vacío para recalcular su precio.
warn|Artículo argegado no en lista|El Artículo 'A mano' fue agregado a mano y no se pudo actualizar.
warn|Artículo argegado no en lista|El Artículo 'A mano' fue agregado a mano y no se pudo actualizar.
warn|Artículo argegado no en lista|El Artículo 'A mano' fue agregado a mano y no se pudo actualizar.
warn|Vendrix|El Artículo 'Fuera de lista' No se encuentra disponible en la lista actual. Se mantendrá el precio original.
warn|Vendrix|El Artículo 'Perno' no tiene código o el código esta repetido y no se pudo actualizar.
warn|Artículo encontrado con precio cero|Se encontró el artículo: 'Clavo', pero su precio actual es cero. Se dejará el precio original.
inform|Operación Exitosa|Se realizó una actualización de precio al recalcular el carrito. El carrito contiene ya los precios más recientes.)");
    const QStringList log = log_de("INF");
    EXPECT_EQ(
        log.filter("No se encontro el código del artículo guardado en el carrito con descripción: A mano. "
                   "No se puede recalcular su precio.")
            .size(),
        3);
    EXPECT_TRUE(log.contains("Se encontraron 2 para el código del artículo guardado en el carrito con "
                             "descripción: Perno. No se puede recalcular su precio."));
}

TEST_F(Recalcular, AFallOfAHundredthAsksLessIsOnlyLoggedAndNoKeepsThePrice)
{
    linea_de("1", "Tuerca", "1000", "2", "T2");   // -0.01 %
    linea_de("1", "Arandela", "1000", "3", "T3"); // -0.009 %
    linea_de("1", "Tornillo", "1200", "1", "T1");
    app.op.answers_in_order({true, false});
    EXPECT_EQ(recalcular_carrito(app.ctx(), carrito), 1);
    EXPECT_EQ(precios(), "999,90 1000 1200");
    ASSERT_EQ(app.op.shown.size(), 3u);
    const QString pregunta = app.op.lines().front();
    EXPECT_TRUE(pregunta.startsWith("ask|Question|Se encontró el artículo: 'Tuerca', con un precio final de "
                                    "$999,90 (diferencia de -0,01"));
    EXPECT_TRUE(pregunta.endsWith("% respecto al precio original). ¿Desea utilizar el precio nuevo?"));
    const QStringList menos =
        log_de("INF").filter("se encontro un precio para el código del artículo: 3;; pero visto "
                             "que la diferencia con el precio del carrito es de -0;;009");
    EXPECT_TRUE(menos.size() == 1 && menos.front().endsWith(" (menos del 0.01 %) no fue actualizado."));
    // Again, refused: nothing changes.
    app.op.answer(false);
    EXPECT_EQ(recalcular_carrito(app.ctx(), carrito), 0);
    EXPECT_EQ(app.op.lines().last(),
              "inform|Operación Exitosa|Se terminó de recalcular el carrito. El carrito "
              "contiene yá los precios más recientes.");
}

TEST_F(Recalcular, AnUpdatedLineTakesTheListAndTheRulesAfterTheButtonAsks)
{
    regla("Otro", "10+5", "30");
    linea_de("3", "Taco", "100", "7", "X1", "Otro");
    linea_de("1", "Tornillo", "900", "1", "T1");
    app.op.answers_in_order({false, true});
    EXPECT_FALSE(confirmar_recalcular_carrito(app.ctx(), carrito));
    EXPECT_TRUE(confirmar_recalcular_carrito(app.ctx(), carrito));
    EXPECT_EQ(app.status.busy_changes, (std::vector<bool>{true, false}));
    // 100 less 14.5 % plus 30 %; the discount is kept as a margin would be.
    EXPECT_EQ(celdas(carrito, 0), "3|Taco|111,15|333,45|0|7|30|15,5|0|0|X1|Tacos|Otro");
    EXPECT_EQ(carrito.texto_total(), "1333,45");
    EXPECT_EQ(
        app.op.lines().join('\n'),
        R"(ask|¿Recalcular precios carrito?|¿Está seguro que desea recalcular el precio del carrito? Se sobreescribirán todos los precios
ask|¿Recalcular precios carrito?|¿Está seguro que desea recalcular el precio del carrito? Se sobreescribirán todos los precios
inform|Operación Exitosa|Se realizarón 2 actualizaciones de precios al recalcular el carrito. El carrito contiene ya los precios más recientes.)");
}

class RecalcularFallido : public Recalcular {
protected:
    RecalcularFallido() : Recalcular(true) {}
};

TEST_F(RecalcularFallido, ADatabaseFailureStopsTheRun)
{
    linea_de("1", "A mano", "5", "0", "");
    linea_de("1", "Tornillo", "900", "1", "T1");
    app.failing_db().fail_matching("count(*)");
    EXPECT_EQ(recalcular_carrito(app.ctx(), carrito), -1);
    EXPECT_EQ(precios(), "5 900");
    EXPECT_EQ(app.op.lines().last(),
              "error|Error al recalcular un carrito.|ER RECA001: Se produjo un error al "
              "intentar recalcular el Carrito. Cierre Vendrix e intente nuevamente.");
    EXPECT_TRUE(log_de("ERR").contains("ER RECA001 - 1 No se pudo consultar la lista de precios Vendrix"));
    EXPECT_FALSE(app.status.busy_changes.back());
}

} // namespace
} // namespace vendrix
