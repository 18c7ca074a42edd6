// One sale, the daily closes and the printer's faults through the fiscal
// front, against every driver that exists: the Hasar driver over an emulated
// printer on a pseudo-terminal, and the models that have no driver.
#include "fiscal/emulated_printer.h"
#include "fiscal/front/fiscal_front.h"
#include "support/qt_print.h"

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

// A counter whose front reaches the emulated printer.
struct Mostrador : ImpresoraEmulada {
    explicit Mostrador(const char *modelo) : ImpresoraEmulada(9, 'M')
    {
        app.ctx().escribir_parametro("IF_Modelo", QString::fromUtf8(modelo));
    }

    int creados = 0;
    FiscalFront front{app.ctx(),
                      [this](FamiliaFiscal familia, Context &ctx) -> std::unique_ptr<FiscalDevice> {
                          ++creados;
                          if (familia == FamiliaFiscal::Hasar)
                              return std::make_unique<HasarDevice>(ctx, kTiempos);
                          return nullptr;
                      }};
};

// The operations of a ticket, in the order a sale calls them; the name of
// the first that answers False, or "" when all go through.
QString vender(FiscalFront &f)
{
    // A final consumer who gave no data, as the sale hands it over.
    DocumentoFiscal doc{"C", "CONSUMIDOR FINAL", "", "CUIT", "0", "F", "M", false, "", ""};
    ItemFiscal yerba{"Yerba 1kg", "2", "1500.50", "F", 21};
    ItemFiscal pan{"Pan", "0.75", "1200", "F", 10.5};
    CierreFiscal cierre{"C", "GRACIAS POR SU COMPRA", "", false, 0, 0};
    const std::vector<std::pair<const char *, std::function<bool()>>> pasos = {
        {"IF_Conectar", [&] { return f.IF_Conectar(); }},
        {"IF_Open", [&] { return f.IF_Open(doc); }},
        {"IF_Add_Element", [&] { return f.IF_Add_Element(yerba); }},
        {"IF_Add_Element", [&] { return f.IF_Add_Element(pan); }},
        {"IF_Close", [&] { return f.IF_Close(cierre); }},
        {"IF_Desconectar", [&] { return f.IF_Desconectar(); }},
        {"IF_CierreX", [&] { return f.IF_CierreX(); }},
        {"IF_CierreZ", [&] { return f.IF_CierreZ(); }},
    };
    for (const auto &[nombre, paso] : pasos) {
        if (!paso())
            return QString::fromLatin1(nombre);
    }
    return {};
}

const QStringList kTicket = {"TIQUE FACTURA \"C\" Nro. 00000001",
                             "CONSUMIDOR FINAL",
                             "A CONSUMIDOR FINAL",
                             "Kiosco Doña Pepa",
                             "Av. Siempre Viva 742",
                             "2.000 x 1500.50",
                             "Yerba 1kg            (21.00)   $ 3001.00",
                             "0.750 x 1200.00",
                             "Pan                  (10.50)    $ 900.00",
                             "TOTAL                          $ 3901.00"};

TEST(FiscalContract, EveryDriverTakesTheSaleAndTheClosesWithoutAWord)
{
    for (const char *modelo : {"Hasar", "Sin impresora", "NCR 3140", "Factura Electronica A.F.I.P."}) {
        SCOPED_TRACE(modelo);
        Mostrador m(modelo);
        EXPECT_EQ(vender(m.front), "");
        EXPECT_TRUE(m.app.op.empty()) << m.app.op.lines().join('\n').toStdString();
        EXPECT_EQ(m.app.status.keywords.last(), "impresora_on");
        if (QString(modelo) == "Hasar") {
            const QStringList diario = m.emulador.diario();
            EXPECT_EQ(diario.mid(0, kTicket.size()), kTicket);
            EXPECT_TRUE(diario.contains("INFORME X Nro. 0001"));
            EXPECT_TRUE(diario.contains("CIERRE Z Nro. 0001"));
        } else {
            EXPECT_EQ(m.emulador.ejecutados(), 0);
        }
    }
}

struct Falla {
    const char *caso;
    FallaEmulada falla;
    const char *operacion; // "" when the sale goes through
    QString caja;          // the box's fixed text, then the driver's number and text
    const char *paso;      // the driver's step in the error line
};

// Each fault of the printer either ends the sale at its operation, with the
// operation's box, the error line and the block of values, or is recovered
// without printing anything twice. Waits are bounded, so none hangs.
TEST(FiscalContract, PrinterFaultsEndInTheOperationsBoxOrAreRecovered)
{
    const QByteArray item("\x42");
    const QString add = "ERR ADD001: Se produjo un error. Intente nuevamente.\r\n";
    const QString conn = "Se produjo un error de conexión. Intente nuevamente.\r\n";
    const Falla casos[] = {
        {"silent printer",
         {FallaHasar::SinRespuesta, -1, {}},
         "IF_Conectar",
         "ERR CONN001: " + conn +
             "1010 - La impresora fiscal no responde. Compruebe que esté encendida y "
             "conectada.",
         "iniciar"},
        {"one packet lost", {FallaHasar::SinRespuesta, 1, item}, "", "", ""},
        {"every packet refused",
         {FallaHasar::Nak, -1, item},
         "IF_Add_Element",
         add + "1011 - La impresora fiscal rechaza los comandos por errores de transmisión.",
         "imprimir_item"},
        {"one packet refused", {FallaHasar::Nak, 1, item}, "", "", ""},
        {"busy beyond the bound",
         {FallaHasar::EsperaLarga, 1, item, 0, 3000},
         "IF_Add_Element",
         add + "1012 - La impresora fiscal no terminó el comando en el tiempo esperado.",
         "imprimir_item"},
        {"busy for a while", {FallaHasar::EsperaLarga, 1, item, 0, 200}, "", "", ""},
        {"out of paper",
         {FallaHasar::SinPapel, 1, item},
         "IF_Add_Element",
         add + "1105 - Falta papel de tickets.",
         "imprimir_item"},
        {"every reply damaged",
         {FallaHasar::SumaErronea, -1, item},
         "IF_Add_Element",
         add + "1013 - Las respuestas de la impresora fiscal llegan con errores de transmisión.",
         "imprimir_item"},
        {"one reply damaged", {FallaHasar::SumaErronea, 1, item}, "", "", ""},
        {"reply lost after printing", {FallaHasar::RespuestaPerdida, 1, item}, "", "", ""},
        {"bad field",
         {FallaHasar::EstadoConError, 1, item, 1u << 4},
         "IF_Add_Element",
         add + "1204 - Datos no válidos en un campo del comando.",
         "imprimir_item"},
        {"document left open",
         {FallaHasar::ComprobanteAbierto, 1, {}},
         "IF_Open",
         "ERR OPE001: " + conn + "1213 - Hay un comprobante abierto en la impresora fiscal.",
         "datos_cliente"},
        {"shift close refused",
         {FallaHasar::EstadoConError, 1, "9", 1u << 5},
         "IF_CierreX",
         "ERR CLO00X: " + conn + "1205 - Comando no válido para el estado fiscal actual.",
         "reporte_x"},
    };
    for (const Falla &c : casos) {
        SCOPED_TRACE(c.caso);
        Mostrador m("Hasar");
        m.emulador.agregar_falla(c.falla);
        EXPECT_EQ(vender(m.front), c.operacion);
        EXPECT_EQ(m.app.status.keywords.last(), "impresora_on");
        if (QString(c.operacion).isEmpty()) {
            EXPECT_TRUE(m.app.op.empty());
            // Re-sends and repeated replies print nothing twice.
            EXPECT_EQ(m.emulador.diario().mid(0, kTicket.size()), kTicket);
            EXPECT_EQ(m.emulador.diario().count(kTicket.at(6)), 1);
            continue;
        }
        EXPECT_EQ(m.app.op.lines(),
                  QStringList{"error|Error en la conexión con la Impresora Fiscal|" + c.caja});
        const QStringList log = m.app.log_messages();
        const QString linea = c.caja.section(':', 0, 0) + " - " +
                              c.caja.section("\r\n", 1).section(" - ", 0, 0) + " Hasar " +
                              c.caja.section(" - ", 1) + " " + c.paso + ".";
        const qsizetype at = log.indexOf(linea);
        ASSERT_GE(at, 0) << linea.toStdString() << "\n" << log.join('\n').toStdString();
        EXPECT_EQ(log.value(at + 1), "    Modelo Impresora   : Hasar.");
        EXPECT_EQ(log.value(at + 2), "    Puerta             : " + m.emulador.ruta() + ".");
    }
}

} // namespace
} // namespace vendrix::test
