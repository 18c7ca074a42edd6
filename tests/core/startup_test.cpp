#include "core/startup_files.h"
#include "core/startup_version.h"

#include "startup_fixture.h"
#include "support/qt_print.h"

#include <QFile>
#include <QLockFile>

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

const QString kCrLf = QStringLiteral("\r\n");

// True when `expected` appears in `lines` in this order, other lines between.
bool en_orden(const QStringList &lines, const QStringList &expected)
{
    qsizetype at = 0;
    for (const QString &line : lines) {
        if (at < expected.size() && line == expected.at(at))
            ++at;
    }
    return at == expected.size();
}

TEST(Startup, FirstRunWithOnlyTheSeedsPreparesTheFolderAndReachesTheMainWindow)
{
    Arranque run;
    run.instalar();

    const ResultadoArranque result = run.ejecutar();

    EXPECT_TRUE(result.continuar);
    EXPECT_EQ(result.titulo, QStringLiteral("Vendrix - Ferretería Sur"));
    EXPECT_TRUE(run.app.op.empty()) << run.app.op.lines().join('\n').toStdString();
    for (const char *file :
         {"Vendrix.vdrxdb", "clientes.vdrx", "factura.html", "Config.vdrx", "update.bat", "wefe_dummy.xml",
          "wsaa_cae.xml", "wsfe_cae_fact_request.xml", "wsaa_token.xml", "wsaa_token_pers.xml"})
        EXPECT_TRUE(QFile::exists(run.app.ruta(QString::fromUtf8(file)))) << file;
    EXPECT_EQ(run.app.read_file(QStringLiteral("factura.html")), "<html>factura</html>");
    EXPECT_TRUE(run.app.read_file(QStringLiteral("Config.vdrx")).contains("[PARAMETROS]"));
    EXPECT_TRUE(
        run.app.db().existe_tabla(QStringLiteral("vendrix_listas_custom"), QStringLiteral("internal")));

    EXPECT_EQ(run.splash.version, QStringLiteral("Versión: 2.9.9"));
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
    const QString dashes = QStringLiteral("---------------------------------.");
    ASSERT_GE(log.size(), 16);
    // A fresh log doesn't hold the "Inicio" line: the header marks the run.
    EXPECT_EQ(
        log.mid(0, 16),
        QStringList({dashes, "Version: 2.9.9.", "Carpeta: " + run.app.carpeta() + ".",
                     "Usuario: cajero (NO ADMINISTRADOR).", "OS     : Debian GNU/Linux 12 (bookworm).",
                     dashes, "Validación OCX: ssTab  presente y registrada.",
                     "Validación OCX: RMChartX presente y registrada.",
                     "Validación OCX: Inet presente y registrada.",
                     "Validación OCX: CommonDialog presente y registrada.",
                     "Validación OCX: WebBrowser presente y registrada.",
                     "Validación OCX: PrinterFiscal_Epson presente y registrada.",
                     "Validación OCX:  presente y registrada.", dashes, "Verifica otras instancias abiertas.",
                     "Verifico si se necesita improtar archivo."}));
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
    EXPECT_EQ(log.last(), QStringLiteral("Abriendo programa principal."));
    EXPECT_FALSE(run.app.read_file(QStringLiteral("vendrix.log")).contains("[ERR]"));
}

TEST(Startup, TemplatesAreWrittenWithCrLfLinesAndKeptWhenPresent)
{
    const QByteArray token = texto_plantilla_fe(QStringLiteral("wsaa_token.xml"));
    EXPECT_EQ(token, "\r\n<loginTicketRequest>\r\n  <header>\r\n    <uniqueId>%UID%</uniqueId>\r\n"
                     "    <generationTime>%GENERATION%</generationTime>\r\n"
                     "    <expirationTime>%EXPIRATION%</expirationTime>\r\n  </header>\r\n"
                     "  <service>wsfe</service>\r\n</loginTicketRequest>");
    EXPECT_TRUE(texto_plantilla_fe(QStringLiteral("wsaa_token_pers.xml"))
                    .contains("\r\n  <service>ws_sr_padron_a13</service>\r\n"));
    // A missing invoice request is written as the delivered one, with every
    // mark the invoice fills in.
    const QByteArray cae = texto_plantilla_fe(QStringLiteral("wsaa_cae.xml"));
    QFile delivered(QStringLiteral(VENDRIX_TEST_DATA "/../../data/wsaa_cae.xml"));
    ASSERT_TRUE(delivered.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(cae).remove(QLatin1Char('\r')),
              QString::fromUtf8(delivered.readAll()).remove(QLatin1Char('\r')).trimmed());
    for (const char *mark :
         {"<FECAESolicitar>", "%TOKEN%", "%SIGN%", "%CUIT%", "%PUNTO_DE_VENTA%", "%TIPO_COMPROBANTE%",
          "%TIPOYNUMERODEDOCUMENTODELCOMPRADOR%", "%NUMERO_COMPROBANTE%", "%FECHA_EMISION%",
          "%IMPORTE_TOTAL%", "%IMPORTE_NETO%", "%IMPORTE_IVA%",
          "<CondicionIVAReceptorId>%CONDICIONIVARECEPTOR%</CondicionIVAReceptorId>", "%IVA21%", "%IVA105%",
          "<MonId>PES</MonId>"})
        EXPECT_TRUE(cae.contains(mark)) << mark;
    EXPECT_TRUE(texto_plantilla_fe(QStringLiteral("wefe_dummy.xml")).contains("\r\n <ar:FEDummy/>\r\n"));
    for (const char *name : kPlantillasFe) {
        const QByteArray text = texto_plantilla_fe(QString::fromUtf8(name));
        EXPECT_FALSE(text.isEmpty()) << name;
        EXPECT_EQ(text.count('\n'), text.count("\r\n")) << name;
    }
    EXPECT_TRUE(texto_plantilla_fe(QStringLiteral("otro.xml")).isEmpty());

    TestApp app;
    app.write_file(QStringLiteral("wsaa_cae.xml"), "plantilla propia");
    asegurar_plantillas_fe(app.ctx());
    EXPECT_EQ(app.read_file(QStringLiteral("wsaa_cae.xml")), "plantilla propia");
    EXPECT_EQ(app.read_file(QStringLiteral("wsaa_token.xml")), token);
    EXPECT_FALSE(app.log_messages().contains(
        QStringLiteral("Archivo wsaa_cae.xml no encontrado;; se creo uno nuevo.")));
    EXPECT_EQ(app.log_messages().size(), 9); // five checks, four written
}

struct ArchivoFaltante {
    const char *quitar;  // the seed left out
    const char *caption; // the last step reached
    QString mensaje;     // after the folder
    const char *log;
};

class StartupMissingFile : public ::testing::TestWithParam<ArchivoFaltante> {};

TEST_P(StartupMissingFile, EndsTheRunWithTheMessage)
{
    const ArchivoFaltante &c = GetParam();
    Arranque run;
    run.instalar();
    QFile::remove(run.app.ruta(QString::fromUtf8(c.quitar)));

    EXPECT_FALSE(run.ejecutar().continuar);

    QString text = c.mensaje;
    text.replace(QStringLiteral("%CARPETA%"), run.app.carpeta());
    EXPECT_EQ(run.app.op.lines(), QStringList{"error|Vendrix|" + text});
    EXPECT_EQ(run.splash.captions.last(), QString::fromUtf8(c.caption));
    EXPECT_TRUE(run.app.log_lines().last().endsWith(QStringLiteral("[ERR] - ") + QString::fromUtf8(c.log)));
}

INSTANTIATE_TEST_SUITE_P(
    Seeds, StartupMissingFile,
    ::testing::Values(
        ArchivoFaltante{
            "Vendrix.install", "Validando Existencia Listas",
            "El archivo que contiene las Listas de precios no existe.\r\nPor Favor copie el archivo "
            "Vendrix.vdrxdb en el directorio %CARPETA%.\r\nLa aplicación se cerrará.",
            "El archivo de las listas no existe."},
        ArchivoFaltante{
            "clientes.install", "Validando Existencia archivo cliente",
            "El archivo que contiene los datos del cliente no existe.\r\nPor Favor instale Vendrix "
            "nuevamente..\r\nLa aplicación se cerrará.",
            "El archivo con datos del cliente no existe."},
        ArchivoFaltante{
            "factura.install", "Validando Existencia Facturas",
            "El archivo que contiene el html de la factura no existe.\r\nPor Favor copie el archivo "
            "Vendrix.vdrxdb en el directorio %CARPETA%.\r\nLa aplicación se cerrará.",
            "El archivo de las listas no existe."}));

TEST(Startup, APriceFileThatDoesNotOpenEndsTheRun)
{
    Arranque run;
    run.instalar();
    run.app.write_file(QStringLiteral("Vendrix.vdrxdb"), "esto no es una base de datos");

    EXPECT_FALSE(run.ejecutar().continuar);

    const QString sentence =
        QStringLiteral("Vendrix no puede conectarse a la base de datos. Esto puede deberse a "
                       "que no existe un driver compatible instalado en Debian GNU/Linux 12 "
                       "(bookworm).");
    ASSERT_FALSE(run.app.op.shown.empty());
    EXPECT_EQ(run.app.op.lines().last(),
              "error|Vendrix|" + sentence +
                  "\r\nPor favor pongase en contacton con nosotros para solucionar el problema.\r\n"
                  "La aplicación se cerrará.");
    EXPECT_TRUE(run.app.log_lines().last().endsWith(QStringLiteral("[ERR] - ") + sentence + "."));
    EXPECT_FALSE(QFile::exists(run.app.ruta(QStringLiteral("factura.html"))));
}

struct VersionDeLista {
    VersionPrograma program;
    const char *db_version;
    bool continua;
    QString mensaje;
    const char *log;
};

class StartupListVersion : public ::testing::TestWithParam<VersionDeLista> {};

TEST_P(StartupListVersion, IsComparedWithTheRunningProgram)
{
    const VersionDeLista &c = GetParam();
    Arranque run;
    run.options.version = c.program;
    run.instalar(QStringLiteral("Ferretería Sur"), QString::fromUtf8(c.db_version));

    EXPECT_EQ(run.ejecutar().continuar, c.continua);

    EXPECT_EQ(run.app.op.lines(), QStringList{c.mensaje});
    EXPECT_TRUE(run.app.log_messages().contains(QString::fromUtf8(c.log)));
    EXPECT_EQ(run.splash.captions.last(), c.continua ? QStringLiteral("Abriendo el Programa")
                                                     : QStringLiteral("Validando Versión de la DB"));
}

const QString kDescarga = QStringLiteral(
    "\r\nPuede descargar la última versión de Vendrix desde https://www.vendrix.com.ar/descargas");

INSTANTIATE_TEST_SUITE_P(
    Versions, StartupListVersion,
    ::testing::Values(
        // A newer major ends the run.
        VersionDeLista{{2, 9, 9},
                       "3.0.0",
                       false,
                       "error|Nueva Version del programa|Existe una version más reciente del programa.\r\n"
                       "Dado que los cambios incluyen novedades importantes, nuevas funcionalidades y nuevos "
                       "datos, para continuar deberá descargar la última versión: 3.0.0." +
                           kDescarga,
                       "Versión del DB muy Antigua - No compatible con el programa."},
        // A newer minor is a notice, even under an older major.
        VersionDeLista{
            {3, 0, 0},
            "2.10.0",
            true,
            "inform|Nueva Version del programa|Existe una version más reciente del programa.\r\n"
            "Le recomendamos actualizar Vendrix a la nueva version (2.10.0) ya que contiene nuevos "
            "datos y nuevas funcionalidades que le permitirán realizar todas las operaciones de una "
            "forma mas cómoda y eficiente." +
                kDescarga,
            "Existe una versión de la Base de Datos más actualizada."}));

TEST(Startup, ASecondProgramInTheSameFolderIsRefused)
{
    Arranque run;
    run.instalar();
    QLockFile other(run.app.ruta(QString::fromLatin1(InstanciaUnica::kArchivo)));
    ASSERT_TRUE(other.tryLock(0));

    EXPECT_FALSE(run.ejecutar().continuar);

    EXPECT_EQ(run.app.op.lines(), QStringList{"warn|Vendrix|La aplicación Vendrix esta ya abierta."});
    EXPECT_TRUE(run.app.log_lines().last().endsWith(
        "[ACT] - la aplicación ya esta abierta (hay más de una instancia en ejecución)."));
    EXPECT_FALSE(QFile::exists(run.app.ruta(QStringLiteral("Config.vdrx"))));

    // Once the other program has ended, the next start goes through.
    other.unlock();
    run.app.op.clear();
    EXPECT_TRUE(run.ejecutar().continuar);
    EXPECT_TRUE(run.app.op.empty());
}

TEST(Startup, AFailureInsideTheSequenceIsShownAndTheMainWindowStillOpens)
{
    Arranque run;
    run.instalar();
    run.splash.romper_en = QStringLiteral("Validando Existencia Listas");

    const ResultadoArranque result = run.ejecutar();

    EXPECT_TRUE(result.continuar);
    EXPECT_EQ(
        run.app.op.lines(),
        QStringList{"error|Error al intentar cargar las Grillas.|ER SPLASH: Se produjo un error al intenar "
                    "abrir vendrix (probablemente por falta de registración de DLL u OCxs). Vea el log para "
                    "mas detalle. 1 - falla simulada"});
    const QString last = run.app.log_lines().last();
    EXPECT_TRUE(last.contains(QStringLiteral("[ERR] - ER GR001 - 1 falla simulada "))) << last.toStdString();
    EXPECT_TRUE(last.endsWith(QStringLiteral(" frmSplash.")));
    EXPECT_EQ(run.app.status.busy_changes, std::vector<bool>{false});
    EXPECT_TRUE(run.app.status.keywords.contains(QStringLiteral("bug_on")));
    EXPECT_FALSE(QFile::exists(run.app.ruta(QStringLiteral("Vendrix.vdrxdb"))));
}

TEST(Startup, TheUpdateSearchSaysWhyItDidNotLook)
{
    Arranque run;
    run.instalar();
    run.app.write_file(QStringLiteral("Config.vdrx"), "[PARAMETROS]\r\nactualizar_online=0\r\n");
    ASSERT_TRUE(run.ejecutar().continuar);
    EXPECT_TRUE(run.app.log_messages().contains(
        QStringLiteral("No busco actualizaciones porque no esta configurado para eso.")));
    EXPECT_FALSE(
        run.app.log_messages().contains(QStringLiteral("Archivo INI no encontrado;; se creo uno nuevo.")));
}

} // namespace
} // namespace vendrix::test
