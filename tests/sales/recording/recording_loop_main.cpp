// Records sales of three lines, one after the other without end, in the
// application folder given on the command line: the process a test kills
// at random moments of a recording.
#include "core/context.h"
#include "fiscal/front/fiscal_front.h"
#include "sales/carritos.h"
#include "sales/recording/sale_recording.h"

using namespace vendrix;

namespace {

class Mudo final : public Operator {
public:
    void inform(const QString &, const QString &) override {}
    void warn(const QString &, const QString &) override {}
    void error(const QString &, const QString &) override {}
    bool ask(const QString &, const QString &) override { return false; }
};

// One second later at every reading, so that no sale takes another's reference.
class RelojQueAvanza final : public Clock {
public:
    QDateTime now() const override { return inicio_.addSecs(++pasos_); }

private:
    QDateTime inicio_ = QDateTime::currentDateTime();
    mutable qint64 pasos_ = 0;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc < 2)
        return 2;
    Mudo op;
    SilentStatus estado;
    RelojQueAvanza reloj;
    Context ctx(QString::fromLocal8Bit(argv[1]), op, estado, reloj);
    FiscalFront front(ctx);
    Carritos carritos;
    SeguimientoVenta nada;
    for (;;) {
        Carrito &c = carritos.carrito(1);
        c.agregar_linea({"2", "Tornillo 1/4", "300", "600", "21", "1", "30", "10+5", "0", "100", "T1",
                         "Tornillos", "Acme"});
        c.agregar_linea({"1", "Clavos", "400", "400", "10,5", "0", "0", "0", "0", "0", "", "", ""});
        c.agregar_linea({"3", "Arandelas", "10", "30", "21", "0", "0", "0", "0", "0", "", "", ""});
        Checkout checkout(ctx, carritos, 1);
        imprimir_y_guardar(ctx, front, checkout, carritos, opciones_de(PasoVenta::guardar), nada);
    }
}
