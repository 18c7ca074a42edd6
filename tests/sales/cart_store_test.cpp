// The copies of the open carts: what a new start brings back, what
// emptying clears, a failed save, and a process killed while it keeps one.
#include "core/numeric.h"
#include "sales/agregar_articulo.h"
#include "sales/cart_store.h"
#include "sales/operar_carrito.h"
#include "tienda.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

namespace vendrix {
namespace {

class Copias : public test::Tienda {
protected:
    explicit Copias(bool failing = false) : Tienda(failing) {}
    void SetUp() override
    {
        Tienda::SetUp();
        copias = std::make_unique<CartStore>(app.ctx());
        copias->escuchar(carritos);
    }

    // What a new start over the same folder brings back.
    int restaurar(Carritos &en)
    {
        Context otro(app.carpeta(), app.op, app.status, app.clock);
        return CartStore(otro).restaurar(en);
    }
    // "Fila|Cantidad|Importe" of the copy's lines of cart 1.
    QStringList copia()
    {
        const Matrix m =
            app.db().execQ_matriz("SELECT Fila, Cantidad, Importe FROM vendrix_carritos_abiertos "
                                  "WHERE Carrito = 1 ORDER BY Fila",
                                  "internal");
        QStringList out;
        for (int fila = 0; fila < m.filas(); ++fila)
            out << m.fila(fila).join('|');
        return out;
    }
    bool editar(Carrito &c, int fila, int col, const QString &valor)
    {
        return editar_celda_carrito(app.ctx(), c, fila, col, valor);
    }

    Carritos carritos;
    std::unique_ptr<CartStore> copias;
};

TEST_F(Copias, LinesNameAndCaptionsComeBackAndEmptyingClearsOnlyThatCart)
{
    Carrito &dos = carritos.carrito(2);
    ASSERT_TRUE(renombrar_carrito(app.ctx(), dos, "Mostrador"));
    ASSERT_TRUE(agregar_con_figuras_del_panel(app.ctx(), carritos, 2, tornillo()).agregado);
    operar_carrito(app.ctx(), dos, VerboCarrito::agregar, false);
    ASSERT_TRUE(editar(dos, 1, kColPrecioUnitario, "2,5"));
    dos.set_marca_guardado(kPrefijoCarritoGuardado + "261123-103000");
    operar_carrito(app.ctx(), carritos.carrito(3), VerboCarrito::agregar, false);
    ajuste("nombre_carrito_2", ""); // a new Config.vdrx

    Carritos vueltos;
    EXPECT_EQ(restaurar(vueltos), 2);
    const Carrito &vuelto = vueltos.carrito(2);
    EXPECT_EQ(vuelto.lineas(), dos.lineas());
    EXPECT_EQ(QStringList({vuelto.marca_guardado(), vuelto.texto_total(), nombre_carrito(app.ctx(), 2)}),
              QStringList({"Carrito guardado: 261123-103000", "602,5", "Mostrador"}));
    EXPECT_TRUE(log_de("INF").contains("Carrito - se recuperó el carrito Mostrador con 2 artículos que "
                                       "quedaron abiertos"));

    operar_carrito(app.ctx(), dos, VerboCarrito::vaciar, false);
    Carritos otra_vez;
    EXPECT_EQ(restaurar(otra_vez), 1);
    EXPECT_EQ(otra_vez.carrito(3).filas(), 1);
}

class CopiaFallida : public Copias {
protected:
    CopiaFallida() : Copias(true) {}
};

// A save of two lines is begin, delete, two inserts and commit: whichever
// fails, the copy stays as it was and the cart keeps the change.
TEST_F(CopiaFallida, AFailureAtAnyStatementKeepsThePreviousCopyAndTheCart)
{
    Carrito &uno = carritos.carrito(1);
    operar_carrito(app.ctx(), uno, VerboCarrito::agregar, false);
    operar_carrito(app.ctx(), uno, VerboCarrito::agregar, false);
    ASSERT_EQ(copia(), QStringList({"0|1|0", "1|1|0"}));
    for (int n = 1; n <= 5; ++n) {
        SCOPED_TRACE(n);
        app.failing_db().fail_nth(n);
        EXPECT_TRUE(editar(uno, 1, kColCantidad, QString::number(n + 1)));
        app.failing_db().heal();
        EXPECT_EQ(copia(), QStringList({"0|1|0", "1|1|0"}));
        EXPECT_EQ(uno.celda(1, kColCantidad), QString::number(n + 1));
    }
    EXPECT_EQ(log_de("ERR").count("Carrito - no se pudo guardar la copia del carrito Carrito 1"), 5);
    EXPECT_TRUE(editar(uno, 0, kColCantidad, "7"));
    EXPECT_EQ(copia(), QStringList({"0|7|0", "1|6|0"}));
}

TEST_F(Copias, OpenCartsComeBackAfterAKill)
{
    QProcess proceso;
    proceso.start(VENDRIX_OPEN_CART_PROCESS, {app.carpeta()});
    // It tells each quantity once stored: a few and it is caught writing.
    int guardada = 0;
    while (guardada < 5 && proceso.waitForReadyRead(30000)) {
        while (proceso.canReadLine())
            guardada = proceso.readLine().trimmed().toInt();
    }
    // Anywhere in its work, not only right after it has told a save.
    QThread::usleep(QRandomGenerator::global()->bounded(100000));
    proceso.kill();
    proceso.waitForFinished();
    ASSERT_GE(guardada, 5);

    Carritos vueltos;
    ASSERT_EQ(restaurar(vueltos), 1);
    const Carrito &c = vueltos.carrito(2);
    ASSERT_EQ(c.filas(), 3);
    // A whole change: the amount and the total go with the quantity.
    const double cantidad = valor_texto(c.celda(0, kColCantidad));
    EXPECT_GE(cantidad, guardada);
    EXPECT_EQ(QStringList({c.celda(0, kColImporte), c.texto_total()}),
              QStringList({texto_numero(cantidad * 100), texto_numero(cantidad * 100 + 500)}));
    EXPECT_EQ(app.db().execQ1("PRAGMA integrity_check", "internal"), "ok");
}

} // namespace
} // namespace vendrix
