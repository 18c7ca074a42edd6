// The process the kill tests stop with SIGKILL at random moments, working in
// the application folder given on the command line.
// "carrito": names cart 2 and fills it, then changes the first line's quantity
// again and again, telling each one once it is stored.
// "ventas": records sales of three lines without end. Sales of the same second
// share their reference, so each of them also replaces the one before.
#include "core/context.h"
#include "fiscal/front/fiscal_front.h"
#include "sales/cart_store.h"
#include "sales/operar_carrito.h"
#include "sales/recording/sale_recording.h"
#include "support/scripted_operator.h"

#include <cstdio>

using namespace vendrix;

int main(int argc, char **argv)
{
    if (argc < 3)
        return 2;
    test::ScriptedOperator op;
    test::RecordingStatus status;
    const SystemClock clock;
    Context ctx(QString::fromLocal8Bit(argv[1]), op, status, clock);
    Carritos carritos;
    if (QByteArray(argv[2]) == "ventas") {
        FiscalFront front(ctx);
        SeguimientoVenta nada;
        for (;;) {
            Carrito &c = carritos.carrito(1);
            c.agregar_linea({"2", "Tornillo 1/4", "300", "600", "21", "1", "30", "10+5", "0", "100", "T1",
                             "Tornillos", "Acme"});
            c.agregar_linea({"1", "Clavos", "400", "400", "10,5", "0", "0", "0", "0", "0", "", "", ""});
            c.agregar_linea({"3", "Arandelas", "10", "30", "21", "0", "0", "0", "0", "0", "", "", ""});
            Checkout checkout(ctx, carritos, 1);
            imprimir_y_guardar(ctx, front, checkout, carritos, opciones_de(PasoVenta::guardar), nada);
            op.clear();
        }
    }
    CartStore copias(ctx);
    copias.escuchar(carritos);
    Carrito &carrito = carritos.carrito(2);
    renombrar_carrito(ctx, carrito, QStringLiteral("Mostrador"));
    for (int fila = 0; fila < 3; ++fila) {
        operar_carrito(ctx, carrito, VerboCarrito::agregar, false);
        editar_celda_carrito(ctx, carrito, fila, kColPrecioUnitario, QString::number(100 * (fila + 1)));
    }
    carrito.set_marca_guardado(kPrefijoCarritoGuardado + QStringLiteral("261123-103000"));
    for (int cantidad = 2; cantidad < 5000; ++cantidad) {
        editar_celda_carrito(ctx, carrito, 0, kColCantidad, QString::number(cantidad));
        std::printf("%d\n", cantidad);
        std::fflush(stdout);
    }
}
