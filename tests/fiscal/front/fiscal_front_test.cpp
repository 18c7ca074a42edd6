// The fiscal front over a scripted driver: what reaches the operator, the
// log and the status bar when a printer fails, and the models that have no
// driver.
#include "fiscal/front/fake_device.h"
#include "fiscal/front/fiscal_commands.h"
#include "fiscal/front/fiscal_front.h"

#include "support/qt_print.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

#include <map>

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

// Runs an operation or a button by name, with the arguments whose values
// the tables expect in the log.
bool operar(Banco &t, const QString &op)
{
    FiscalFront &f = t.front;
    Context &ctx = t.app.ctx();
    DocumentoFiscal doc{"A", "Juan", "", "CUIT", "20-1", "I", "I", false, "", ""};
    ItemFiscal item{"Tornillo", "2", "", "F", 10.5};
    CierreFiscal cierre{"B", "", "X", false, 0, 150.5};
    f.set_solicitud("<xml/>");
    const std::map<QString, std::function<bool()>> ops = {
        {"IF_Test", [&] { return f.IF_Test(); }},
        {"IF_Conectar", [&] { return f.IF_Conectar(); }},
        {"IF_Open", [&] { return f.IF_Open(doc); }},
        {"IF_Add_Element", [&] { return f.IF_Add_Element(item); }},
        {"IF_Close", [&] { return f.IF_Close(cierre); }},
        {"IF_CierreX", [&] { return f.IF_CierreX(); }},
        {"IF_CierreZ", [&] { return f.IF_CierreZ(); }},
        {"IF_Generar_Reportes_Fiscales", [&] { return f.IF_Generar_Reportes_Fiscales(); }},
        {"reporte", [&] { return reporte_impresora(ctx, f); }},
        {"cierre_x", [&] { return cierre_x(ctx, f); }},
        {"cierre_z", [&] { return cierre_z(ctx, f); }},
        {"probar", [&] { return probar_impresora(ctx, f); }}};
    return ops.at(op)();
}

struct Caso {
    const char *operacion;
    const char *modelo;
    const char *falla;
    QString caja;       // the fixed text of the box
    const char *codigo; // the code of the error line
    QStringList extras; // the values the operation adds to the block
    QStringList llamadas;
};

TEST_F(Front, AFailingDriverShowsTheOperationsBoxLogsItsValuesAndLeavesThePrinterOn)
{
    const QString conn = "Se produjo un error de conexión. Intente nuevamente.";
    // clang-format off
    const std::vector<Caso> casos = {
        {"IF_Test", "Hasar", "probar", "ERR TEST001: " + conn + " ", "ERR TEST001", {}, {"probar"}},
        {"IF_Conectar", "Hasar", "conectar", "ERR CONN001: " + conn, "ERR CONN001", {}, {"conectar"}},
        {"IF_Open", "Hasar", "abrir", "ERR OPE001: " + conn, "ERR OPE001",
         {"    Tipo factura a usar: 48.", "    Letra factura      : A.", "    Nota de Credito    : Falso.",
          "    CUIT               : 20-1.", "    Nombre comprador   : Juan.", "    Direccion 1        : .",
          "    Direccion 2        : ."}, {"abrir"}},
        {"IF_Add_Element", "Hasar", "agregar", "ERR ADD001: Se produjo un error. Intente nuevamente.", "ERR ADD001",
         {"    Descripcion        : Tornillo.", "    Cantidad           : 2.", "    Precio             : 0.",
          "    IVA comprador      : F.", "    Tasa IVA           : 10.5."}, {"agregar"}},
        {"IF_Close", "Hasar", "cerrar", "ERR CLO001: " + conn, "ERR CLO001",
         {"    id Modificador     : X.", "    pago T. Credito    : 0.", "    pago T. Debito     : 150.5.",
          "    XML     : <xml/>."}, {"cerrar"}},
        {"IF_CierreZ", "Hasar", "cierre_z", "ERR CLO00Z: " + conn, "ERR CLO00Z", {}, {"cierre_z"}},
        // A library printer connects first, and is released after the failure.
        {"IF_CierreX", "Epson TM-T900FA", "cierre_x", "ERR CLO00X: " + conn, "ERR CLO00X", {},
         {"conectar", "cierre_x", "desconectar"}},
        // The report's box has its own code; its log line keeps the close's.
        {"IF_Generar_Reportes_Fiscales", "Epson TM-T900FA", "conectar", "ERR REPO01: " + conn, "ERR CLO001", {},
         {"conectar", "desconectar"}},
    };
    // clang-format on
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.operacion);
        Banco t;
        t.set("IF_Modelo", c.modelo);
        t.falla = c.falla;
        EXPECT_FALSE(operar(t, c.operacion));
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
        log << bloque(c.modelo, QString(c.operacion) == "IF_CierreX" ? "Si" : "No") << c.extras;
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
        set("IF_Modelo", modelo);
        for (const char *op : {"IF_Test", "IF_Conectar", "IF_Open", "IF_Add_Element", "IF_Close",
                               "IF_CierreX", "IF_CierreZ", "IF_Generar_Reportes_Fiscales"})
            EXPECT_TRUE(operar(*this, op)) << modelo << " " << op;
        EXPECT_TRUE(front.IF_Desconectar() && front.IF_Configurar());
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
}

TEST_F(Front, TheElectronicTestIsTheHookAndTouchesNoDevice)
{
    set("IF_Modelo", "Factura Electronica A.F.I.P.");
    bool resultado = false;
    front.set_prueba_electronica([&resultado] { return resultado; });
    EXPECT_FALSE(front.IF_Test());
    resultado = true;
    EXPECT_TRUE(front.IF_Test());
    EXPECT_EQ(creados, 0);
}

TEST_F(Front, DisconnectingAnswersTrueEvenWhenThePrinterRefuses)
{
    set("IF_Modelo", "Epson TM-U220AFII");
    ASSERT_TRUE(front.IF_Conectar());
    falla = "desconectar";
    EXPECT_TRUE(front.IF_Desconectar());
    EXPECT_EQ(front.conectado(), "No");
    EXPECT_EQ(app.log_messages(),
              QStringList({"Procedo a desconectar la impresora fiscal.",
                           "Vendrix no pudo desconectarse de la impresora fiscal correctamente."}));
}

TEST_F(Front, TheAuthorisationIsHandedOutOnlyWhileHeldAndNotIntoTheNextDocument)
{
    QString cae = "x", nro = "y", vto = "z";
    front.recibir_cae("7123", "00001-00000042", "20261203");
    EXPECT_TRUE(front.IF_Obtener_CAE(cae, nro, vto));
    EXPECT_EQ(QStringList({cae, nro, vto}), QStringList({"7123", "00001-00000042", "20261203"}));
    front.IF_Conectar();
    EXPECT_FALSE(front.IF_Obtener_CAE(cae = "x", nro, vto));
    EXPECT_EQ(cae, "x");
}

// The buttons of the configuration tab and the printer screen.
TEST_F(Front, ButtonsTellTheOperatorByModel)
{
    struct Fila {
        const char *modelo;
        const char *boton;
        QString caja;
        QStringList log;
    };
    // clang-format off
    const std::vector<Fila> filas = {
        {"Hasar", "reporte", "inform|No hay reportes para descargar|Las impresoras Fiscales de primera "
         "generación no disponen de reportes para descargar",
         {"Se intento generar un reporte con una impresora fiscal de primera generación: Hasar."}},
        {"Epson TM-U220AFII", "reporte", "inform|Reportes no disponibles|Vendrix no dispone al momento los "
         "reportes de la impresora Epson TM-U220AFII.", {}},
        {"Hasar", "cierre_z", "inform|Cierre Z|Cierre Z (Diario) Realizado con éxito.", {}},
        {"Factura Electronica A.F.I.P.", "cierre_x", "inform|Cierre X|Cierre X (Turno) Realizado con éxito.",
         {"FACTURA - Cierre X efectuado con éxito."}},
        {"Hasar", "probar", "inform|Conexión Exitosa.|Los parámetros de configuración son correctos.\r\nVendrix "
         "se pudo comunicar con la impresora '8', modelo 'P-320F' en el puerto 'COM2' con velocidad '9600'",
         {"Conexión con la impresora 'Hasar' en el puerto 'COM2' con velocidad '9600' dio resultado = '3'."}},
    };
    // clang-format on
    for (const Fila &f : filas) {
        SCOPED_TRACE(f.boton);
        Banco t;
        t.set("IF_Modelo", f.modelo);
        EXPECT_TRUE(operar(t, f.boton));
        EXPECT_EQ(t.app.op.lines(), QStringList{f.caja});
        EXPECT_EQ(t.app.log_messages(), f.log);
    }
    // A failure: the front's box, then the button's.
    for (const auto &[boton, caja] :
         {std::pair{"cierre_x", "error|Cierre X|Error al realizar el cierre X"},
          std::pair{"probar",
                    "error|Error de conexión con la Impresora.|No se puede conectar con la impresora. "
                    "Por favor compruebe que la impresora esta conectada y encendida y que el modelo, "
                    "puerto y velocidad sean correctos."}}) {
        Banco t;
        t.set("IF_Modelo", "Hasar");
        t.falla = boton; // the button's step of the driver
        EXPECT_FALSE(operar(t, boton));
        EXPECT_EQ(t.app.op.lines().size(), 2);
        EXPECT_EQ(t.app.op.lines().last(), caja);
    }
}

} // namespace
} // namespace vendrix::test
