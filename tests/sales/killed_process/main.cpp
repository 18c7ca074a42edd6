// The process the kill test stops with SIGKILL at random moments, working in
// the application folder given on the command line: it records sales of three
// lines without end. Sales of the same second share their
// reference, so each of them also replaces the one before.
#include "core/context.h"
#include "fiscal/front/fiscal_front.h"
#include "sales/carritos.h"
#include "sales/recording/sale_recording.h"
#include "support/scripted_operator.h"

using namespace vendrix;

int main(int argc, char **argv)
{
    if (argc < 2)
        return 2;
    test::ScriptedOperator op;
    test::RecordingStatus status;
    const SystemClock clock;
    Context ctx(QString::fromLocal8Bit(argv[1]), op, status, clock);
    Carritos carritos;
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
