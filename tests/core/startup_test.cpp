#include "core/startup_files.h"
#include "core/startup_version.h"

#include "startup_fixture.h"
#include "support/qt_print.h"

#include <QFile>
#include <QLockFile>

#include <functional>

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

// True when `expected` appears in `lines` in this order, other lines between.
bool en_orden(const QStringList &lines, const QStringList &expected)
{
    qsizetype at = 0;
    for (const QString &line : lines)
        at += at < expected.size() && line == expected.at(at);
    return at == expected.size();
}

TEST(Startup, FirstRunWithOnlyTheSeedsPreparesTheFolderAndReachesTheMainWindow)
{
    Arranque run;
    run.instalar();
    const ResultadoArranque result = run.ejecutar();

    EXPECT_TRUE(result.continuar);
    EXPECT_EQ(result.titulo, "Vendrix - Ferretería Sur");
    EXPECT_TRUE(run.app.op.empty()) << run.app.op.lines().join('\n').toStdString();
    for (const char *file :
         {"Vendrix.vdrxdb", "clientes.vdrx", "Config.vdrx", "update.bat", "wefe_dummy.xml", "wsaa_cae.xml",
          "wsfe_cae_fact_request.xml", "wsaa_token.xml", "wsaa_token_pers.xml"})
        EXPECT_TRUE(QFile::exists(run.app.ruta(file))) << file;
    EXPECT_EQ(run.app.read_file("factura.html"), "<html>factura</html>");
    EXPECT_TRUE(run.app.db().existe_tabla("vendrix_listas_custom", "internal"));

    EXPECT_EQ(run.splash.version, "Versión: 2.9.9");
    EXPECT_EQ(run.splash.logo, 0); // 23 November
    EXPECT_EQ(
        run.splash.captions,
        QStringList({"Verifica otras instancias de Vendrix", "Importando Archivo", "Validando Existencia INI",
                     "Validando Existencia Listas", "Validando Existencia archivo cliente",
                     "Validando Conectividad con la base de datos", "Validando Existencia de viejos Pedidos",
                     "Validando Versión de la DB", "Buscando Actualizaciones",
                     "Validando Existencia Facturas", "Abriendo el Programa"}));
    EXPECT_EQ(run.splash.pasos, 12);

    const QStringList log = run.app.log_messages();
    const QString dashes = "---------------------------------.";
    QStringList header = {dashes,
                          "Version: 2.9.9.",
                          "Carpeta: " + run.app.carpeta() + ".",
                          "Usuario: cajero (NO ADMINISTRADOR).",
                          "OS     : Debian GNU/Linux 12 (bookworm).",
                          dashes};
    for (const char *name :
         {"ssTab ", "RMChartX", "Inet", "CommonDialog", "WebBrowser", "PrinterFiscal_Epson", ""})
        header << "Validación OCX: " + QString(name) + " presente y registrada.";
    header << dashes << "Verifica otras instancias abiertas."
           << "Verifico si se necesita improtar archivo.";
    // A fresh log doesn't hold the "Inicio" line: the header marks the run.
    EXPECT_EQ(log.mid(0, header.size()), header);
    EXPECT_TRUE(en_orden(
        log, {"Archivo INI no encontrado;; se creo uno nuevo.",
              "Verifica de la existencia del archivo wefe_dummy.xml.",
              "Archivo wefe_dummy.xml no encontrado;; se creo uno nuevo.",
              "Verifica de la existencia del archivo wsaa_cae.xml.",
              "Verifica de la existencia del archivo wsfe_cae_fact_request.xml.",
              "Verifica de la existencia del archivo wsaa_token.xml.",
              "Verifica de la existencia del archivo wsaa_token_pers.xml.",
              "Archivo wsaa_token_pers.xml no encontrado;; se creo uno nuevo.",
              "Se copio el archivo Vendrix.install como Vendrix.vdrxdb.",
              "Se copio el archivo clientes.install como clientes.vdrx.",
              "Verifica de la existencia de la tabla de pedidos.", "Nombre Ciente: Ferretería Sur.",
              "Validando la versión del DB.", "No busco actualizaciones porque no hay internet.",
              "Se copio el archivo factura.install como factura.html.", "Abriendo programa principal."}))
        << log.join('\n').toStdString();
    EXPECT_EQ(log.last(), "Abriendo programa principal.");
    EXPECT_FALSE(run.app.read_file("vendrix.log").contains("[ERR]"));
}

TEST(Startup, TemplatesAreWrittenWithCrLfLinesAndKeptWhenPresent)
{
    const QByteArray token = texto_plantilla_fe("wsaa_token.xml");
    EXPECT_EQ(token, "\r\n<loginTicketRequest>\r\n  <header>\r\n    <uniqueId>%UID%</uniqueId>\r\n"
                     "    <generationTime>%GENERATION%</generationTime>\r\n"
                     "    <expirationTime>%EXPIRATION%</expirationTime>\r\n  </header>\r\n"
                     "  <service>wsfe</service>\r\n</loginTicketRequest>");
    EXPECT_TRUE(
        texto_plantilla_fe("wsaa_token_pers.xml").contains("\r\n  <service>ws_sr_padron_a13</service>\r\n"));
    EXPECT_TRUE(texto_plantilla_fe("wefe_dummy.xml").contains("\r\n <ar:FEDummy/>\r\n"));
    // What the start-up writes for a missing invoice request is the ticket
    // skeleton, with its soft hyphen inside "UTF-8".
    EXPECT_EQ(texto_plantilla_fe("wsaa_cae.xml"),
              "<?xml version=\"1.0\" encoding=\"UTF\xad"
              "8\"?>\r\n<loginTicketRequest version=\"1.0\">\r\n  <header>\r\n"
              "    <source>cn=%FE_CN%,ou=facturacion,o=%AFIP_USER%,c=ar,serialNumber=CUIT %CUIT%</source>\r\n"
              "    <destination>cn=wsaahomo,o=afip,c=ar,serialNumber=CUIT %CUIT%</destination>\r\n"
              "    <uniqueId>%ID%</uniqueId>\r\n    <generationTime>%NOW%</generationTime>\r\n"
              "    <expirationTime>%NOW+24h%</expirationTime>\r\n  </header>\r\n"
              "  <service>wsfe</service>\r\n</loginTicketRequest>");
    for (const char *name : kPlantillasFe) {
        const QByteArray text = texto_plantilla_fe(name);
        EXPECT_EQ(text.count('\n'), text.count("\r\n")) << name;
    }
    // The delivered request holds every mark the invoice fills in.
    QFile delivered(VENDRIX_TEST_DATA "/../../data/wsaa_cae.xml");
    ASSERT_TRUE(delivered.open(QIODevice::ReadOnly));
    const QByteArray cae = delivered.readAll();
    for (const char *mark :
         {"<FECAESolicitar>", "%TOKEN%", "%SIGN%", "%IMPORTE_TOTAL%", "%CONDICIONIVARECEPTOR%"})
        EXPECT_TRUE(cae.contains(mark)) << mark;

    TestApp app;
    app.write_file("wsaa_cae.xml", "plantilla propia");
    asegurar_plantillas_fe(app.ctx());
    EXPECT_EQ(app.read_file("wsaa_cae.xml"), "plantilla propia");
    EXPECT_EQ(app.read_file("wsaa_token.xml"), token);
    EXPECT_FALSE(app.log_messages().contains("Archivo wsaa_cae.xml no encontrado;; se creo uno nuevo."));
    EXPECT_EQ(app.log_messages().size(), 9); // five checks, four written
}

const QString kCierra = ".\r\nLa aplicación se cerrará.";
const QString kNuevaVersion = "|Nueva Version del programa|Existe una version más reciente del programa.\r\n";
const QString kDescarga =
    "\r\nPuede descargar la última versión de Vendrix desde https://www.vendrix.com.ar/descargas";
const QString kSinDriver =
    "Vendrix no puede conectarse a la base de datos. Esto puede deberse a que no existe un "
    "driver compatible instalado en Debian GNU/Linux 12 (bookworm).";

// A start after `preparar`: whether it goes on, the one message shown
// (%CARPETA% is the folder), the last caption and the last log line's end.
struct Caso {
    std::function<void(Arranque &)> preparar;
    bool continua;
    QString mensaje;
    const char *caption;
    QString log;
};

void PrintTo(const Caso &c, std::ostream *os)
{
    *os << c.log.toStdString();
}

class StartupCase : public ::testing::TestWithParam<Caso> {};

TEST_P(StartupCase, ShowsItsMessageAndLogsIt)
{
    const Caso &c = GetParam();
    Arranque run;
    run.instalar();
    c.preparar(run);
    EXPECT_EQ(run.ejecutar().continuar, c.continua);
    EXPECT_EQ(run.app.op.lines(), QStringList{QString(c.mensaje).replace("%CARPETA%", run.app.carpeta())});
    EXPECT_EQ(run.splash.captions.last(), c.caption);
    EXPECT_TRUE(run.app.log_messages().contains(c.log)) << c.log.toStdString();
    if (!c.continua) {
        EXPECT_TRUE(run.app.log_lines().last().endsWith("[ERR] - " + c.log));
        EXPECT_FALSE(QFile::exists(run.app.ruta("factura.html")));
    }
}

std::function<void(Arranque &)> quitar(const char *file)
{
    return [file](Arranque &run) { QFile::remove(run.app.ruta(file)); };
}

std::function<void(Arranque &)> lista_de_version(const char *version, VersionPrograma program)
{
    return [=](Arranque &run) {
        run.options.version = program;
        run.instalar("Ferretería Sur", version);
    };
}

INSTANTIATE_TEST_SUITE_P(
    Runs, StartupCase,
    ::testing::Values(
        Caso{quitar("Vendrix.install"), false,
             "error|Vendrix|El archivo que contiene las Listas de precios no existe.\r\nPor Favor copie el "
             "archivo Vendrix.vdrxdb en el directorio %CARPETA%" +
                 kCierra,
             "Validando Existencia Listas", "El archivo de las listas no existe."},
        Caso{quitar("clientes.install"), false,
             "error|Vendrix|El archivo que contiene los datos del cliente no existe.\r\nPor Favor instale "
             "Vendrix nuevamente." +
                 kCierra,
             "Validando Existencia archivo cliente", "El archivo con datos del cliente no existe."},
        Caso{quitar("factura.install"), false,
             "error|Vendrix|El archivo que contiene el html de la factura no existe.\r\nPor Favor copie el "
             "archivo Vendrix.vdrxdb en el directorio %CARPETA%" +
                 kCierra,
             "Validando Existencia Facturas", "El archivo de las listas no existe."},
        Caso{[](Arranque &run) { run.app.write_file("Vendrix.vdrxdb", "esto no es una base de datos"); },
             false,
             "error|Vendrix|" + kSinDriver +
                 "\r\nPor favor pongase en contacton con nosotros para solucionar el problema" + kCierra,
             "Validando Conectividad con la base de datos", kSinDriver + "."},
        // A newer major ends the run; a newer minor or revision is a notice,
        // even under an older major.
        Caso{
            lista_de_version("3.0.0", {2, 9, 9}), false,
            "error" + kNuevaVersion +
                "Dado que los cambios incluyen novedades importantes, nuevas funcionalidades y nuevos datos, "
                "para continuar deberá descargar la última versión: 3.0.0." +
                kDescarga,
            "Validando Versión de la DB", "Versión del DB muy Antigua - No compatible con el programa."},
        Caso{
            lista_de_version("2.10.0", {3, 0, 0}), true,
            "inform" + kNuevaVersion +
                "Le recomendamos actualizar Vendrix a la nueva version (2.10.0) ya que contiene nuevos datos "
                "y nuevas funcionalidades que le permitirán realizar todas las operaciones de una forma mas "
                "cómoda y eficiente." +
                kDescarga,
            "Abriendo el Programa", "Existe una versión de la Base de Datos más actualizada."},
        Caso{lista_de_version("2.9.10", {2, 9, 9}), true,
             "inform" + kNuevaVersion +
                 "Le recomendamos actualizar Vendrix a la nueva version (2.9.10) ya que contiene nuevas y "
                 "útiles funcionalidades." +
                 kDescarga,
             "Abriendo el Programa", "Existe una versión de la Base de Datos más actualizada."}));

TEST(StartupVersion, NumbersAreComparedOneByOneWithoutCarrying)
{
    const struct {
        const char *db;
        VersionPrograma program;
        AvisoVersion aviso;
    } casos[] = {{"0.9.9", {1, 0, 0}, AvisoVersion::menor},    {"1.0.0", {1, 0, 0}, AvisoVersion::ninguno},
                 {"0.0.9", {1, 2, 3}, AvisoVersion::revision}, {"2", {1, 5, 5}, AvisoVersion::mayor},
                 {"1.6", {1, 5, 5}, AvisoVersion::menor},      {"", {1, 0, 0}, AvisoVersion::ninguno},
                 {"nueva", {1, 0, 0}, AvisoVersion::ninguno},  {" 1. 10 .0", {1, 9, 0}, AvisoVersion::menor}};
    for (const auto &c : casos)
        EXPECT_EQ(comparar_version(c.db, c.program), c.aviso) << c.db;
}

TEST(Startup, AFailureInsideTheSequenceIsShownAndTheMainWindowStillOpens)
{
    Arranque run;
    run.instalar();
    run.splash.romper_en = "Validando Existencia Listas";
    EXPECT_TRUE(run.ejecutar().continuar);
    EXPECT_EQ(
        run.app.op.lines(),
        QStringList{"error|Error al intentar cargar las Grillas.|ER SPLASH: Se produjo un error al intenar "
                    "abrir vendrix (probablemente por falta de registración de DLL u OCxs). Vea el log para "
                    "mas detalle. 1 - falla simulada"});
    const QString last = run.app.log_lines().last();
    EXPECT_TRUE(last.contains("[ERR] - ER GR001 - 1 falla simulada ")) << last.toStdString();
    EXPECT_TRUE(last.endsWith(" frmSplash."));
    EXPECT_EQ(run.app.status.busy_changes, std::vector<bool>{false});
    EXPECT_FALSE(QFile::exists(run.app.ruta("Vendrix.vdrxdb")));
}

TEST(Startup, ASecondProgramInTheSameFolderIsRefused)
{
    Arranque run;
    run.instalar();
    QLockFile other(run.app.ruta(InstanciaUnica::kArchivo));
    ASSERT_TRUE(other.tryLock(0));
    EXPECT_FALSE(run.ejecutar().continuar);
    EXPECT_EQ(run.app.op.lines(), QStringList{"warn|Vendrix|La aplicación Vendrix esta ya abierta."});
    EXPECT_TRUE(run.app.log_lines().last().endsWith(
        "[ACT] - la aplicación ya esta abierta (hay más de una instancia en ejecución)."));
    EXPECT_FALSE(QFile::exists(run.app.ruta("Config.vdrx")));
    // Once the other program has ended, the next start goes through.
    other.unlock();
    run.app.op.clear();
    EXPECT_TRUE(run.ejecutar().continuar);
    EXPECT_TRUE(run.app.op.empty());
}

TEST(Startup, TheUpdateSearchSaysWhyItDidNotLook)
{
    Arranque run;
    run.instalar();
    run.app.write_file("Config.vdrx", "[PARAMETROS]\r\nactualizar_online=0\r\n");
    ASSERT_TRUE(run.ejecutar().continuar);
    EXPECT_TRUE(
        run.app.log_messages().contains("No busco actualizaciones porque no esta configurado para eso."));
}

} // namespace
} // namespace vendrix::test
