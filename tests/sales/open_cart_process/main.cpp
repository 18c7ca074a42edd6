// Names cart 2 of the shop in the folder given and fills it, then changes
// the first line's quantity again and again, telling each one once it is
// stored. A test kills it at any moment.
#include "core/context.h"
#include "sales/cart_store.h"
#include "sales/operar_carrito.h"
#include "support/scripted_operator.h"

#include <cstdio>

int main(int, char **argv)
{
    using namespace vendrix;
    test::ScriptedOperator op;
    test::RecordingStatus status;
    const SystemClock clock;
    Context ctx(QString::fromLocal8Bit(argv[1]), op, status, clock);
    Carritos carritos;
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
