// The copies of the open carts: back at the next start, a failed save,
// emptying.
#include "core/numeric.h"
#include "sales/cart_store.h"
#include "sales/operar_carrito.h"
#include "tienda.h"

namespace vendrix {
namespace {

// A database that fails on demand, and works like the real one until then.
class Copias : public test::Tienda {
protected:
    Copias() : Tienda(true) {}
    Carritos carritos;
    CartStore copias{app.ctx()};
};

// The copy is written in one transaction after every change (the failures
// below), so what a stopped program left is whole: it comes back at the
// next start, in a new context whose Config.vdrx lost the cart's name.
TEST_F(Copias, OpenCartsComeBackAtTheNextStartWithTheirNamesAndCaptions)
{
    copias.escuchar(carritos);
    Carrito &c = carritos.carrito(2);
    renombrar_carrito(app.ctx(), c, QStringLiteral("Mostrador"));
    for (const char *l : {"1|A|100|100|0", "1|B|200|200|0", "1|C|300|300|0"})
        c.agregar_linea(linea(l));
    c.set_marca_guardado(kPrefijoCarritoGuardado + QStringLiteral("261123-103000"));
    editar_celda_carrito(app.ctx(), c, 0, kColCantidad, QStringLiteral("7"));

    ajuste("nombre_carrito_2", "");
    Carritos nuevos;
    Context nuevo(app.carpeta(), app.op, app.status, app.clock);
    ASSERT_EQ(CartStore(nuevo).restaurar(nuevos), 1);
    const Carrito &r = nuevos.carrito(2);
    EXPECT_EQ(QStringList({QString::number(r.filas()), r.celda(0, kColImporte), r.texto_total(),
                           r.marca_guardado(), nombre_carrito(nuevo, 2)}),
              QStringList({"3", texto_numero(700), texto_numero(1200), "Carrito guardado: 261123-103000",
                           "Mostrador"}));
    EXPECT_TRUE(log_de("INF").contains("Carrito - se recuperó el carrito Mostrador con 3 artículos que "
                                       "quedaron abiertos"));
}

// A save of two lines is begin, delete, two inserts and commit: whichever
// fails, the copy stays as it was and the cart keeps the change.
TEST_F(Copias, AFailureAtAnyStatementKeepsThePreviousCopyAndEmptyingClearsOnlyThatCart)
{
    copias.escuchar(carritos);
    const auto copia = [this] {
        return app.db().execQ1("SELECT group_concat(c, ' ') FROM (SELECT Carrito || Fila || Cantidad AS c "
                               "FROM vendrix_carritos_abiertos ORDER BY Carrito, Fila)",
                               "internal");
    };
    Carrito &uno = carritos.carrito(1);
    for (Carrito *c : {&uno, &uno, &carritos.carrito(3)})
        operar_carrito(app.ctx(), *c, VerboCarrito::agregar, false);
    for (int n = 1; n <= 5; ++n) {
        app.failing_db().fail_nth(n);
        ASSERT_TRUE(editar_celda_carrito(app.ctx(), uno, 0, kColCantidad, QString::number(n + 1)));
        EXPECT_EQ(copia() + " " + uno.celda(0, kColCantidad), "101 111 301 " + QString::number(n + 1));
    }
    EXPECT_EQ(log_de("ERR").count("Carrito - no se pudo guardar la copia del carrito Carrito 1"), 5);
    operar_carrito(app.ctx(), uno, VerboCarrito::vaciar, false);
    EXPECT_EQ(copia(), "301");
}

} // namespace
} // namespace vendrix
