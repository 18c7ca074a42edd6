// The fiscal front over a scripted driver: what reaches the operator, the
// log and the status bar when a printer fails, and the models that have no
// driver.
#include "fiscal/front/fake_device.h"
#include "fiscal/front/fiscal_commands.h"
#include "fiscal/front/fiscal_front.h"

#include "support/qt_print.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

// A front over a fresh folder, port COM2 at 9600, whose drivers record
// their calls and fail at the step named in `falla`.
struct Banco {
    Banco()
    {
        set("IF_Port", "COM2");
        set("IF_velocidad", "9600");
    }
    void set(const char *clave, const QString &valor)
    {
        app.ctx().escribir_parametro(QString::fromLatin1(clave), valor);
    }

    TestApp app;
    QStringList llamadas;
    QString falla;
    int creados = 0;
    FiscalFront front{app.ctx(), [this](FamiliaFiscal, Context &) {
                          ++creados;
                          return std::make_unique<FakeDevice>(llamadas, falla);
                      }};
};

class Front : public ::testing::Test, public Banco {};

// The values every failure logs, after its error line.
QStringList bloque(const QString &modelo, const QString &conectado)
{
    return {"    Modelo Impresora   : " + modelo + ".",
            "    Puerta             : COM2.",
            "    Velocidad          : 9600.",
            "    Conectado          : " + conectado + ".",
            "    Ticket abierto     : No.",
            "    Codigo de error    : 7.",
            "    Mensaje de error   : Sin papel."};
}

struct Caso {
    const char *nombre;
    const char *modelo;
    const char *falla;
    std::function<bool(FiscalFront &)> operacion;
    const char *caja;   // the fixed text of the box
    const char *codigo; // the code of the error line
    QStringList extras; // the values the operation adds to the block
    QStringList llamadas;
};

TEST_F(Front, AFailingDriverShowsTheOperationsBoxLogsItsValuesAndLeavesThePrinterOn)
{
    const QString conn = "Se produjo un error de conexión. Intente nuevamente.";
    const std::vector<Caso> casos = {
        {"IF_Test",
         "Hasar",
         "probar",
         [](FiscalFront &f) { return f.IF_Test(); },
         "ERR TEST001: Se produjo un error de conexión. Intente nuevamente. ",
         "ERR TEST001",
         {},
         {"probar"}},
        {"IF_Conectar",
         "Hasar",
         "conectar",
         [](FiscalFront &f) { return f.IF_Conectar(); },
         "ERR CONN001: Se produjo un error de conexión. Intente nuevamente.",
         "ERR CONN001",
         {},
         {"conectar"}},
        {"IF_Open",
         "Hasar",
         "abrir",
         [](FiscalFront &f) {
             DocumentoFiscal doc{"A", "Juan", "", "CUIT", "20-1", "I", "I", false, ""};
             return f.IF_Open(doc);
         },
         "ERR OPE001: Se produjo un error de conexión. Intente nuevamente.",
         "ERR OPE001",
         {"    Tipo factura a usar: 48.", "    Letra factura      : A.", "    Nota de Credito    : Falso.",
          "    CUIT               : 20-1.", "    Nombre comprador   : Juan.", "    Direccion 1        : .",
          "    Direccion 2        : ."},
         {"abrir"}},
        {"IF_Add_Element",
         "Hasar",
         "agregar",
         [](FiscalFront &f) {
             ItemFiscal item{"Tornillo", "2", "", "F", 10.5};
             return f.IF_Add_Element(item);
         },
         "ERR ADD001: Se produjo un error. Intente nuevamente.",
         "ERR ADD001",
         {"    Descripcion        : Tornillo.", "    Cantidad           : 2.", "    Precio             : 0.",
          "    IVA comprador      : F.", "    Tasa IVA           : 10.5."},
         {"agregar"}},
        {"IF_Close",
         "Hasar",
         "cerrar",
         [](FiscalFront &f) {
             f.set_solicitud("<xml/>");
             CierreFiscal cierre{"B", "", "X", false, 0, 150.5};
             return f.IF_Close(cierre);
         },
         "ERR CLO001: Se produjo un error de conexión. Intente nuevamente.",
         "ERR CLO001",
         {"    id Modificador     : X.", "    pago T. Credito    : 0.", "    pago T. Debito     : 150.5.",
          "    XML     : <xml/>."},
         {"cerrar"}},
        {"IF_CierreZ",
         "Hasar",
         "cierre_z",
         [](FiscalFront &f) { return f.IF_CierreZ(); },
         "ERR CLO00Z: Se produjo un error de conexión. Intente nuevamente.",
         "ERR CLO00Z",
         {},
         {"cierre_z"}},
        // A library printer connects first, and is released after the failure.
        {"IF_CierreX",
         "Epson TM-T900FA",
         "cierre_x",
         [](FiscalFront &f) { return f.IF_CierreX(); },
         "ERR CLO00X: Se produjo un error de conexión. Intente nuevamente.",
         "ERR CLO00X",
         {},
         {"conectar", "cierre_x", "desconectar"}},
        // The report's box has its own code; its log line keeps the close's.
        {"IF_Generar_Reportes_Fiscales",
         "Epson TM-T900FA",
         "conectar",
         [](FiscalFront &f) { return f.IF_Generar_Reportes_Fiscales(); },
         "ERR REPO01: Se produjo un error de conexión. Intente nuevamente.",
         "ERR CLO001",
         {},
         {"conectar", "desconectar"}},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nombre);
        Banco t;
        t.set("IF_Modelo", c.modelo);
        t.falla = c.falla;
        EXPECT_FALSE(c.operacion(t.front));
        EXPECT_EQ(t.app.op.lines(),
                  QStringList{QStringLiteral("error|Error en la conexión con la Impresora Fiscal|") + c.caja +
                              "\r\n7 - Sin papel"});
        const bool dll = QString(c.modelo).startsWith("Epson TM");
        QStringList log{QString(c.codigo) + " - 7 DRV Sin papel paso1."};
        if (dll)
            log << QString(c.modelo) +
                       " - Descripción del error de la impresora en el puerto 'COM2' con velocidad '9600': "
                       "Sin papel.";
        // Only the close had connected the library printer before failing.
        log << bloque(c.modelo, QString(c.nombre) == "IF_CierreX" ? "Si" : "No") << c.extras;
        EXPECT_EQ(t.app.log_messages(), log);
        EXPECT_EQ(t.llamadas, c.llamadas);
        EXPECT_EQ(t.front.conectado(), "No");
        EXPECT_EQ(t.app.status.keywords.first(), "impresora_ocupada");
        EXPECT_EQ(t.app.status.keywords.last(), "impresora_on");
    }
}

TEST_F(Front, ModelsWithoutCodeSucceedWithoutADevice)
{
    for (const char *modelo : {"Sin impresora", "NCR", "Olivetti", "epson"}) {
        SCOPED_TRACE(modelo);
        set("IF_Modelo", modelo);
        DocumentoFiscal doc;
        ItemFiscal item;
        CierreFiscal cierre;
        EXPECT_TRUE(front.IF_Test() && front.IF_Conectar() && front.IF_Open(doc) &&
                    front.IF_Add_Element(item) && front.IF_Close(cierre) && front.IF_CierreX() &&
                    front.IF_CierreZ() && front.IF_Desconectar() && front.IF_Configurar() &&
                    front.IF_Generar_Reportes_Fiscales());
    }
    EXPECT_EQ(creados, 0);
    EXPECT_TRUE(app.op.empty());
    EXPECT_EQ(app.status.keywords.last(), "impresora_on");
}

TEST_F(Front, TheModelIsReadAtEachCallAndEachFamilyKeepsItsDriver)
{
    set("IF_Modelo", "Hasar");
    EXPECT_TRUE(front.IF_Conectar());
    EXPECT_TRUE(front.IF_Conectar());
    set("IF_Modelo", "Epson TM-T900FA");
    EXPECT_TRUE(front.IF_Conectar());
    EXPECT_EQ(front.conectado(), "Si");
    set("IF_Modelo", "Hasar");
    EXPECT_TRUE(front.IF_Test());
    EXPECT_EQ(creados, 2);
    EXPECT_EQ(llamadas, QStringList({"conectar", "conectar", "conectar", "probar"}));
    EXPECT_EQ(
        app.log_messages().last(),
        "Conexión con la impresora 'Hasar' en el puerto 'COM2' con velocidad '9600' dio resultado = '3'.");
}

TEST_F(Front, DisconnectingAnswersTrueEvenWhenThePrinterRefuses)
{
    set("IF_Modelo", "Epson TM-U220AFII");
    ASSERT_TRUE(front.IF_Conectar());
    falla = "desconectar";
    // The driver was made before the failure was scripted: make a new front.
    FiscalFront otro(app.ctx(), [this](FamiliaFiscal, Context &) {
        return std::make_unique<FakeDevice>(llamadas, falla);
    });
    EXPECT_TRUE(otro.IF_Desconectar());
    EXPECT_EQ(otro.conectado(), "No");
    EXPECT_EQ(app.log_messages(),
              QStringList({"Procedo a desconectar la impresora fiscal.",
                           "Vendrix no pudo desconectarse de la impresora fiscal correctamente."}));
    EXPECT_TRUE(app.op.empty());
}

TEST_F(Front, TheAuthorisationIsHandedOutOnlyWhileHeld)
{
    QString cae = "x", nro = "y", vto = "z";
    EXPECT_FALSE(front.IF_Obtener_CAE(cae, nro, vto));
    EXPECT_EQ(QStringList({cae, nro, vto}), QStringList({"x", "y", "z"}));
    front.recibir_cae("7123", "00001-00000042", "20261203");
    EXPECT_TRUE(front.IF_Obtener_CAE(cae, nro, vto));
    EXPECT_EQ(QStringList({cae, nro, vto}), QStringList({"7123", "00001-00000042", "20261203"}));
    // The next document starts without it.
    front.IF_Conectar();
    EXPECT_FALSE(front.IF_Obtener_CAE(cae, nro, vto));
}

TEST_F(Front, ReportsAndClosesByModel)
{
    struct Fila {
        const char *modelo;
        std::function<bool(Context &, FiscalFront &)> boton;
        QStringList cajas;
        QStringList log;
    };
    const auto reporte = [](Context &c, FiscalFront &f) { return reporte_impresora(c, f); };
    const std::vector<Fila> filas = {
        {"Hasar",
         reporte,
         {"inform|No hay reportes para descargar|Las impresoras Fiscales de primera generación no disponen "
          "de "
          "reportes para descargar"},
         {"Se intento generar un reporte con una impresora fiscal de primera generación: Hasar."}},
        {"Epson TM-U220AFII",
         reporte,
         {"inform|Reportes no disponibles|Vendrix no dispone al momento los reportes de la impresora Epson "
          "TM-U220AFII."},
         {}},
        {"Factura Electronica A.F.I.P.", reporte, {}, {}},
        {"Hasar",
         [](Context &c, FiscalFront &f) { return cierre_z(c, f); },
         {"inform|Cierre Z|Cierre Z (Diario) Realizado con éxito."},
         {}},
        {"Factura Electronica A.F.I.P.",
         [](Context &c, FiscalFront &f) { return cierre_x(c, f); },
         {"inform|Cierre X|Cierre X (Turno) Realizado con éxito."},
         {"FACTURA - Cierre X efectuado con éxito."}},
    };
    for (const Fila &f : filas) {
        SCOPED_TRACE(f.modelo);
        Banco t;
        t.set("IF_Modelo", f.modelo);
        f.boton(t.app.ctx(), t.front);
        EXPECT_EQ(t.app.op.lines(), f.cajas);
        EXPECT_EQ(t.app.log_messages(), f.log);
    }
}

TEST_F(Front, AFailedCloseSaysSoAfterTheHandlersBox)
{
    set("IF_Modelo", "Hasar");
    falla = "cierre_x";
    EXPECT_FALSE(cierre_x(app.ctx(), front));
    ASSERT_EQ(app.op.shown.size(), 2u);
    EXPECT_EQ(app.op.lines().last(), "error|Cierre X|Error al realizar el cierre X");
}

TEST_F(Front, TheConnectionTestTellsTheHasarModelOrWhyItFailed)
{
    set("IF_Modelo", "Hasar");
    EXPECT_TRUE(probar_impresora(app.ctx(), front));
    EXPECT_EQ(app.op.lines().last(),
              "inform|Conexión Exitosa.|Los parámetros de configuración son correctos.\r\nVendrix se pudo "
              "comunicar con la impresora '8', modelo 'P-320F' en el puerto 'COM2' con velocidad '9600'");
    set("IF_Modelo", "Epson");
    EXPECT_TRUE(probar_impresora(app.ctx(), front));
    EXPECT_TRUE(app.op.lines().last().endsWith("comunicar con la impresora 'Epson' en el puerto 'COM2' con "
                                               "velocidad '9600'"));
    set("IF_Modelo", "Epson TM-T900FA");
    falla = "probar";
    app.op.clear();
    FiscalFront fallido(app.ctx(), [this](FamiliaFiscal, Context &) {
        return std::make_unique<FakeDevice>(llamadas, falla);
    });
    EXPECT_FALSE(probar_impresora(app.ctx(), fallido));
    EXPECT_EQ(
        app.op.lines().last(),
        "error|Error de conexión con la Impresora.|No se puede conectar con la impresora. Por favor "
        "compruebe que la impresora esta conectada y encendida y que el modelo, puerto y velocidad sean "
        "correctos.");
}

} // namespace
} // namespace vendrix::test
