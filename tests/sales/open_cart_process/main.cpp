// Fills cart 2 of the shop in the folder given, then changes the first
// line's quantity again and again, telling each one once it is stored; then
// waits. A test kills it at any moment.
#include "core/context.h"
#include "sales/cart_store.h"
#include "sales/operar_carrito.h"
#include "support/scripted_operator.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    using namespace vendrix;
    QCoreApplication app(argc, argv);
    test::ScriptedOperator op;
    test::RecordingStatus status;
    const SystemClock clock;
    Context ctx(app.arguments().value(1), op, status, clock);
    Carritos carritos;
    CartStore copias(ctx);
    copias.escuchar(carritos);
    Carrito &carrito = carritos.carrito(2);
    for (int fila = 0; fila < 3; ++fila) {
        operar_carrito(ctx, carrito, VerboCarrito::agregar, false);
        editar_celda_carrito(ctx, carrito, fila, kColPrecioUnitario, QString::number(100 * (fila + 1)));
    }
    for (int cantidad = 2; cantidad < 5000; ++cantidad) {
        editar_celda_carrito(ctx, carrito, 0, kColCantidad, QString::number(cantidad));
        std::printf("%d\n", cantidad);
        std::fflush(stdout);
    }
    while (std::getchar() != EOF) {
    }
}
