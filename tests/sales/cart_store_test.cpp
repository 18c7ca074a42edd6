// The copies of the open carts: a process killed while it keeps one, a
// failed save, emptying.
#include "core/numeric.h"
#include "sales/cart_store.h"
#include "sales/operar_carrito.h"
#include "tienda.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

namespace vendrix {
namespace {

// A database that fails on demand, and works like the real one until then.
class Copias : public test::Tienda {
protected:
    Copias() : Tienda(true) {}
    Carritos carritos;
    CartStore copias{app.ctx()};
};

TEST_F(Copias, OpenCartsComeBackAfterAKillWithTheirNamesAndCaptions)
{
    QProcess proceso;
    proceso.start(VENDRIX_KILLED_PROCESS, {app.carpeta(), "carrito"});
    // It tells each quantity once stored, and is killed a little later,
    // anywhere in its work.
    int guardada = 0;
    while (guardada < 5 && proceso.waitForReadyRead(30000)) {
        while (proceso.canReadLine())
            guardada = proceso.readLine().trimmed().toInt();
    }
    QThread::usleep(QRandomGenerator::global()->bounded(100000));
    proceso.kill();
    proceso.waitForFinished();
    ASSERT_GE(guardada, 5);

    ajuste("nombre_carrito_2", ""); // a new Config.vdrx
    Context nuevo(app.carpeta(), app.op, app.status, app.clock);
    ASSERT_EQ(CartStore(nuevo).restaurar(carritos), 1);
    const Carrito &c = carritos.carrito(2);
    // One whole change: the amount and the total go with the quantity.
    const double cantidad = valor_texto(c.celda(0, kColCantidad));
    EXPECT_GE(cantidad, guardada);
    EXPECT_EQ(QStringList({QString::number(c.filas()), c.celda(0, kColImporte), c.texto_total(),
                           c.marca_guardado(), nombre_carrito(nuevo, 2)}),
              QStringList({"3", texto_numero(cantidad * 100), texto_numero(cantidad * 100 + 500),
                           "Carrito guardado: 261123-103000", "Mostrador"}));
    EXPECT_TRUE(log_de("INF").contains("Carrito - se recuperó el carrito Mostrador con 3 artículos que "
                                       "quedaron abiertos"));
    EXPECT_EQ(app.db().execQ1("PRAGMA integrity_check", "internal"), "ok");
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
