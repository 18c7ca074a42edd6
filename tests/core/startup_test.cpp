#include "core/seed_files.h"
#include "core/single_instance.h"
#include "core/startup.h"
#include "core/startup_files.h"
#include "core/startup_import.h"
#include "core/startup_version.h"
#include "rows.h"
#include "support/price_file.h"
#include "support/qt_print.h"
#include "support/test_context.h"
#include "vendrix_version.h"

#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QTemporaryDir>

#include <functional>
#include <stdexcept>

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

// A splash that records what the start-up showed on it, and can break at a
// chosen step the way a failing step would.
class SplashGrabado final : public ProgresoArranque {
public:
    void mostrar(int logo_index, const QString &version_label) override
    {
        logo = logo_index;
        version = version_label;
    }
    void avanzar() override { ++pasos; }
    void update_bar(const QString &step) override
    {
        ++pasos;
        captions << step;
        if (step == romper_en)
            throw std::runtime_error("falla simulada");
    }

    int logo = -1;
    QString version;
    int pasos = 0;
    QStringList captions;
    QString romper_en;
};

// A temporary application folder, its splash and its lock, ready to run the
// start-up.
struct Arranque {
    // With `failing`, the database layer fails on demand (TestApp(true)).
    explicit Arranque(bool failing = false) : app(failing), instancia(app.carpeta())
    {
        options.version = {2, 9, 9};
        options.sistema = {"cajero", false, "Debian GNU/Linux 12 (bookworm)"};
    }

    // The seeds an installation ships: a price list with the given
    // parameters, the empty shop database and the invoice page.
    void instalar(const QString &cliente = "Ferretería Sur", const QString &version = "2.9.9")
    {
        crear_archivo_de_precios(
            app.ruta("Vendrix.install"),
            {QString("INSERT INTO xls_parametros VALUES ('CLIENTE', '%1'), ('VERSION', '%2'), "
                     "('FECHA', '20/11/2026')")
                 .arg(cliente, version),
             "INSERT INTO xls_proveedores (Proveedor, Ult_Actualizacion) VALUES ('Acme', '20/11/2026')"});
        app.copy_seed("clientes.install", "clientes.install");
        app.write_file("factura.install", "<html>factura</html>");
    }

    ResultadoArranque ejecutar() { return ejecutar_arranque(app.ctx(), splash, instancia, options); }

    TestApp app;
    SplashGrabado splash;
    InstanciaUnica instancia;
    OpcionesArranque options;
};

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
    EXPECT_EQ(run.app.read_file("factura.html"), "<html>factura</html>");

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
    // One line of each kind, the component check by its first and last.
    EXPECT_EQ(log.mid(0, 7),
              QStringList({dashes, "Version: 2.9.9.", "Carpeta: " + run.app.carpeta() + ".",
                           "Usuario: cajero (NO ADMINISTRADOR).", "OS     : Debian GNU/Linux 12 (bookworm).",
                           dashes, "Validación OCX: ssTab  presente y registrada."}));
    EXPECT_EQ(log.mid(12, 4), QStringList({"Validación OCX:  presente y registrada.", dashes,
                                           "Verifica otras instancias abiertas.",
                                           "Verifico si se necesita improtar archivo."}));
    EXPECT_TRUE(
        en_orden(log, {"Archivo INI no encontrado;; se creo uno nuevo.",
                       "Verifica de la existencia del archivo wefe_dummy.xml.",
                       "Archivo wsaa_token_pers.xml no encontrado;; se creo uno nuevo.",
                       "Se copio el archivo Vendrix.install como Vendrix.vdrxdb.",
                       "Verifica de la existencia de la tabla de pedidos.", "Nombre Ciente: Ferretería Sur.",
                       "Validando la versión del DB.", "No busco actualizaciones porque no hay internet.",
                       "Se copio el archivo factura.install como factura.html."}))
        << log.join('\n').toStdString();
    EXPECT_EQ(log.last(), "Abriendo programa principal.");
    EXPECT_FALSE(run.app.read_file("vendrix.log").contains("[ERR]"));
}

TEST(Startup, TemplatesAreWrittenWithCrLfLinesAndKeptWhenPresent)
{
    EXPECT_TRUE(
        texto_plantilla_fe("wsaa_token_pers.xml").contains("\r\n  <service>ws_sr_padron_a13</service>\r\n"));
    for (const char *name : kPlantillasFe) {
        const QByteArray text = texto_plantilla_fe(name);
        EXPECT_EQ(text.count('\n'), text.count("\r\n")) << name;
    }
    TestApp app;
    app.write_file("wsaa_cae.xml", "plantilla propia");
    asegurar_plantillas_fe(app.ctx());
    EXPECT_EQ(app.read_file("wsaa_cae.xml"), "plantilla propia");
    EXPECT_EQ(app.read_file("wsaa_token.xml"), texto_plantilla_fe("wsaa_token.xml"));
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

TEST(Startup, EachFailedCheckOrNoticeShowsItsMessageAndLogsIt)
{
    const Caso casos[] = {
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
             "Abriendo el Programa", "Existe una versión de la Base de Datos más actualizada."},
        Caso{[](Arranque &run) {
                 run.app.write_file("Config.vdrx", "[PARAMETROS]\r\nactualizar_online=0\r\n");
             },
             true, "", "Abriendo el Programa",
             "No busco actualizaciones porque no esta configurado para eso."}};
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.log.toStdString());
        Arranque run;
        run.instalar();
        c.preparar(run);
        EXPECT_EQ(run.ejecutar().continuar, c.continua);
        EXPECT_EQ(run.app.op.lines().join('\n'), QString(c.mensaje).replace("%CARPETA%", run.app.carpeta()));
        EXPECT_EQ(run.splash.captions.last(), c.caption);
        EXPECT_TRUE(run.app.log_messages().contains(c.log));
        if (!c.continua) {
            EXPECT_TRUE(run.app.log_lines().last().endsWith("[ERR] - " + c.log));
            EXPECT_FALSE(QFile::exists(run.app.ruta("factura.html")));
        }
    }
}

TEST(StartupVersion, NumbersAreComparedOneByOneWithoutCarrying)
{
    const Rows<const char *, VersionPrograma, AvisoVersion> casos = {
        {"0.9.9", {1, 0, 0}, AvisoVersion::menor},    {"1.0.0", {1, 0, 0}, AvisoVersion::ninguno},
        {"0.0.9", {1, 2, 3}, AvisoVersion::revision}, {"2", {1, 5, 5}, AvisoVersion::mayor},
        {"1.6", {1, 5, 5}, AvisoVersion::menor},      {"", {1, 0, 0}, AvisoVersion::ninguno},
        {"nueva", {1, 0, 0}, AvisoVersion::ninguno},  {" 1. 10 .0", {1, 9, 0}, AvisoVersion::menor}};
    for (const auto &[db, program, aviso] : casos)
        EXPECT_EQ(comparar_version(db, program), aviso) << db;
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

// Present files left alone and the copy log line are pinned by the start-up tests.
TEST(SeedFiles, AReadOnlySeedGivesAWritableCopyAndANewConfigHasTheRunningVersion)
{
    TestApp app;
    app.write_file("Vendrix.install", "listas");
    QFile::setPermissions(app.ruta("Vendrix.install"), QFile::ReadOwner);
    EXPECT_EQ(asegurar_archivo(app.ctx(), kSemillaListas), EstadoArchivo::copiado);
    EXPECT_EQ(app.read_file("Vendrix.vdrxdb"), "listas");
    EXPECT_TRUE(QFile::permissions(app.ruta("Vendrix.vdrxdb")) & QFile::WriteOwner);
    EXPECT_EQ(asegurar_config(app.ctx()), EstadoArchivo::creado);
    EXPECT_TRUE(app.read_file("Config.vdrx").contains("version=" VENDRIX_VERSION "\r\n"));
}

TEST(ImportMode, TheLastDotOfTheCommandLineDecides)
{
    // The quoted path with two dots is the one the import tests hand over.
    for (const char *no : {"lista.vdrxdb.bak", "lista.VDRXDB", "lista.vdrxdb ", "vdrxdb"})
        EXPECT_FALSE(es_archivo_de_listas(no)) << no;
}

// A folder already in use, with its list of last month, and a new list in
// another folder as a double-click hands it over. The database layer fails
// on demand.
struct Importacion : ::testing::Test {
    Importacion() : run(true)
    {
        run.instalar("Viejo");
        EXPECT_TRUE(run.ejecutar().continuar);
        run.app.op.clear();
        crear_archivo_de_precios(
            nueva,
            {"INSERT INTO xls_parametros VALUES ('CLIENTE', 'Ferretería Sur'), ('FECHA', '20/11/2026'), "
             "('VERSION', '2.9.9')",
             "INSERT INTO xls_proveedores (Proveedor, Ult_Actualizacion) VALUES ('Acme', '20/11/2026'), "
             "('Bulonera', '20/11/2026')",
             "INSERT INTO xls_listas (Proveedor, Codigo, Descripcion, Precio) VALUES ('Acme', 'A1', "
             "'Martillo', '100')"});
        run.options.linea_de_comandos = '"' + nueva + '"';
        before = run.app.read_file("Vendrix.vdrxdb");
    }

    QString lista(const QString &sql) { return run.app.db().execQ1(sql, "external"); }
    QStringList shown() const { return run.app.op.lines(); }

    Arranque run;
    QTemporaryDir otra;
    QString nueva = QDir(otra.path()).filePath("lista.final.vdrxdb");
    QByteArray before;
};

const QString kPregunta =
    "ask|Importar Datos|Está intentando importar una base de datos preparada especialmente para 'Ferretería "
    "Sur' con fecha '20/11/2026'. ¿Está seguro que desea reemplazar los datos datos ya existentes?";

// Each refusal leaves the old list in place: the answer No, a file that is
// not a price list (the run goes on), a folder that cannot be written (the
// run ends; a folder in the probe file's place makes the probe fail for any
// user).
TEST_F(Importacion, RefusalsKeepTheOldList)
{
    run.app.op.answers_in_order({false, false});
    EXPECT_FALSE(run.ejecutar().continuar);
    EXPECT_EQ(run.splash.captions.last(), "Importando Archivo");
    EXPECT_TRUE(run.app.log_messages().contains(
        "Vendrix se abrio en modo importación. El archivo a importar es: \"" + nueva + "\"."));
    // A list without its date asks the general question.
    ejecutar_en_archivo(nueva, {"DELETE FROM xls_parametros WHERE CLAVE = 'FECHA'"});
    EXPECT_FALSE(run.ejecutar().continuar);
    EXPECT_EQ(shown(),
              QStringList({kPregunta, "ask|Importar Datos|Está intentando importar una nueva base de "
                                      "datos. ¿Está seguro que desea reemplazar los datos datos ya "
                                      "existentes?"}));

    run.app.op.clear();
    QFile bad(nueva);
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly | QIODevice::Truncate));
    bad.write("no es una lista");
    bad.close();
    EXPECT_TRUE(run.ejecutar().continuar);
    EXPECT_EQ(shown(), QStringList{"error|Error al Importar Datos|El archivo " + nueva +
                                   " no es una lista de precios de Vendrix o está dañado.\r\nSe conserva la "
                                   "lista de precios anterior."});

    run.app.op.clear();
    ASSERT_TRUE(QDir(run.app.carpeta()).mkdir("000.$000000000000000000000000000$"));
    EXPECT_FALSE(run.ejecutar().continuar);
    EXPECT_EQ(shown(),
              QStringList{"error|Error al Importar Datos|Vendrix no tiene permisos para importar la "
                          "nueva base de datos.\r\n Si usted no es un usuario administrador de su "
                          "computadora, por favor cambie el usuario o eleve los permisos e inténtelo "
                          "nuevamente.\r\n El programa se cerrará.."});
    EXPECT_TRUE(run.app.log_lines().last().endsWith(
        "[ERR] - Permisos insuficientes para improtar la base de datos."));
    EXPECT_EQ(run.app.read_file("Vendrix.vdrxdb"), before);
}

TEST_F(Importacion, YesReplacesTheListAndBringsOwnArticlesAndSuppliers)
{
    Database &db = run.app.db();
    ASSERT_TRUE(
        db.execNQ("INSERT INTO vendrix_listas_custom (Proveedor, Codigo, Descripcion, Precio, Moneda) "
                  "VALUES ('Propio', 'P1', 'Tornillo especial', '12.5', '$'), ('Propio', 'P2', "
                  "'Arandela', '3', '$')",
                  "internal"));
    ASSERT_TRUE(db.execNQ("INSERT INTO vendrix_clientes (NOMBRE, TIPO_RECORD) VALUES ('Acme', 'Proveedor "
                          "Mercadería'), (NULL, 'Cliente')",
                          "internal"));
    db.cerrar();
    run.app.op.answer(true);

    const ResultadoArranque result = run.ejecutar();

    EXPECT_TRUE(result.continuar);
    EXPECT_EQ(result.titulo, "Vendrix - Ferretería Sur");
    EXPECT_EQ(shown(), QStringList({kPregunta, "inform|Nueva Versión del programa|Se importaron los datos "
                                               "correctamente."}));
    EXPECT_EQ(lista("SELECT group_concat(Codigo || '=' || Descripcion || '=' || Precio, ';') FROM (SELECT * "
                    "FROM xls_listas ORDER BY Codigo)"),
              "A1=Martillo=100;P1=Tornillo especial=12.5;P2=Arandela=3");
    // Acme was already a supplier of the shop; Bulonera joins once.
    EXPECT_EQ(db.execQ1("SELECT group_concat(NOMBRE || '/' || BORRABLE || '/' || TIPO_RECORD, ';') FROM "
                        "vendrix_clientes WHERE BORRABLE IS NOT NULL",
                        "internal"),
              "Bulonera/N/Proveedor Mercadería");
    EXPECT_FALSE(db.execNQ("DELETE FROM xls_listas", "external")); // read-only again
    EXPECT_TRUE(QFile::exists(nueva));                             // the file handed over stays

    const QStringList log = run.app.log_messages();
    const qsizetype at =
        log.indexOf("Se importó correctamente la lista de precios " + nueva +
                    " preparada especialmente para 'Ferretería Sur' con fecha '20/11/2026'.");
    EXPECT_EQ(log.mid(at + 1, 3).join('\n'),
              "Se importaron 2 datos de la tabla Vendrix_listas_custom..\n"
              "Intento actualizar los proveedores de las listas en la tabla de "
              "clientes..\nSe actualizo los proveedores de las listas en la "
              "tabla de clientes..");
}

TEST_F(Importacion, OwnArticlesComeAllOrNone)
{
    ASSERT_TRUE(run.app.db().execNQ(
        "INSERT INTO vendrix_listas_custom (Proveedor, Codigo) VALUES ('Propio', 'P1'), ('Propio', 'P2')",
        "internal"));
    run.app.failing_db().fail_matching("COMMIT");
    run.app.op.answer(true);

    EXPECT_TRUE(run.ejecutar().continuar);

    run.app.failing_db().heal();
    EXPECT_EQ(lista("SELECT count(*) FROM xls_listas"), "1");
    EXPECT_TRUE(run.app.log_messages().contains("Se importaron 0 datos de la tabla Vendrix_listas_custom.."));
}

} // namespace
} // namespace vendrix::test
