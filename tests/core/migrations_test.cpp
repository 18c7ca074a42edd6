#include "core/migrations.h"
#include "core/update_script.h"

#include "db_helpers.h"

#include <QFile>

#include <sqlite3.h>

namespace vendrix::test {
namespace {

// The rows later screens read by content; the others are counted.
const QStringList kFormas = {"1|Efectivo|Efectivo|1|0|1|Cobro y Pago",
                             "4|MercadoPago|MercadoPago|1|0|0|Cobro y Pago",
                             "7|Ajustes|Ajustes de saldos en Vendrix|1|0|1|Solo Pago"};
const QStringList kDestinos = {"1|Compra de mercadería|Compra de mercadería|Si|1",
                               "4|Honorarios|Honorarios profesionales|Si|0",
                               "9|Otros|Destino de pago no categorizado|No|0"};

// Today's shape of the shop database: each table and its number of columns.
const char *const kEsquema =
    "vendrix_clientes:12 vendrix_descuentos:6 vendrix_facturas:31 vendrix_pedidos:12 "
    "vendrix_unidades_articulo:4 vendrix_articulos_testigo:6 vendrix_listas_custom:11 "
    "dual:2 Vendrix_FormasDePago:7 Vendrix_DestinosDePago:5 Vendrix_Pagos:19 vendrix_carritos_abiertos:19 "
    "vendrix_cae_pendientes:10";

// "LVL|message" of each log line.
QStringList log_de(const TestApp &app)
{
    QStringList out;
    for (const QString &line : app.log_lines())
        out << line.mid(line.indexOf("] [") + 3, 3) + '|' + line.mid(line.indexOf("] - ") + 4);
    return out;
}

void espera_esquema_de_hoy(TestApp &app)
{
    Database &db = app.db();
    QStringList found;
    for (const QString &table : QString(kEsquema).split(' '))
        found << table.section(':', 0, 0) + ':' +
                     db.execQ1("SELECT count(*) FROM pragma_table_info(?)", "internal",
                               {table.section(':', 0, 0)});
    EXPECT_EQ(found.join(' '), kEsquema);
    EXPECT_EQ(db.execQ1("SELECT count(*) || '/' || (SELECT count(*) FROM Vendrix_DestinosDePago) FROM "
                        "Vendrix_FormasDePago",
                        "internal"),
              "7/9");
    EXPECT_EQ(filas(db, "SELECT * FROM Vendrix_FormasDePago WHERE ID IN (1, 4, 7) ORDER BY ID"), kFormas);
    EXPECT_EQ(filas(db, "SELECT * FROM Vendrix_DestinosDePago WHERE ID IN (1, 4, 9) ORDER BY ID"), kDestinos);
    EXPECT_EQ(filas(db, "SELECT dummy FROM dual"), QStringList{"0"});
    EXPECT_EQ(app.read_file(kUpdateScript), texto_update_bat());
}

class MigrationsTest : public ShopTest {
protected:
    QStringList log() const { return log_de(app); }
    void borrar_log() const { QFile::remove(app.ruta("vendrix.log")); }
};

TEST_F(MigrationsTest, SeedReachesTodaysShapeAndTheSecondRunOnlyVerifies)
{
    // The price file is neither needed nor touched.
    crear_archivo_de_precios(app.ruta("Vendrix.vdrxdb"));
    const QByteArray prices = app.read_file("Vendrix.vdrxdb");
    const ResultadoMigraciones first = ejecutar_migraciones(app.ctx());
    // One line of each kind: a probe with its two lines, an update without
    // a probe, a probe whose update never runs, a single line, the counts
    // that don't match the rows, and the last.
    const QStringList log1 = log();
    EXPECT_EQ(log1.size(), 63);
    EXPECT_EQ(log1.mid(0, 5),
              QStringList({"INF|Verifica de la existencia de la tabla de pedidos.",
                           "ACT|Se creó la tabla de [vendrix_pedidos] .", "ACT|Tabla de pedidos creada.",
                           "ACT|Se creó agrego un campo a la tabla de [vendrix_descuentos] .",
                           "ACT|Campo de articulos agregado a la tabla Vendrix_Descuentos."}));
    EXPECT_EQ(log1.mid(11, 3),
              QStringList({"INF|Verifica de la existencia de la tabla de articulos viejos testigo.",
                           "INF|Verifica de la existencia del campo descripcion en la tabla "
                           "vendrix_articulos_testigo.",
                           "ACT|Campo de 'descripcion' agregado a la tabla Vendrix_articulos_testigo."}));
    EXPECT_EQ(log1.at(20), "ACT|Archivo \"update.bat\" creado.");
    EXPECT_EQ(log1.mid(43, 2),
              QStringList({"ACT|Se creó la tabla de [Vendrix_FormasDePago] y se insertaron 4 valores de "
                           "formas de pago .",
                           "ACT|se agrego la tabla Vendrix_FormasDePago.."}));
    EXPECT_EQ(log1.at(50),
              "ACT|Se creó la tabla de [Vendrix_DestinosDePago] y se inserto 2 valores de destino de pago .");
    EXPECT_EQ(
        log1.mid(52),
        QStringList({"INF|Verifica de la existencia de la tabla Vendrix_Pagos.",
                     "ACT|Se creó la tabla de [Vendrix_Pagos]..", "ACT|se agrego la tabla Vendrix_Pagos..",
                     "INF|Verifica de la existencia de la tabla vendrix_carritos_abiertos.",
                     "ACT|Se creó la tabla de [vendrix_carritos_abiertos]..",
                     "ACT|se agrego la tabla vendrix_carritos_abiertos..",
                     "INF|Verifica de la existencia de la tabla vendrix_cae_pendientes.",
                     "ACT|Se creó la tabla de [vendrix_cae_pendientes]..",
                     "ACT|se agrego la tabla vendrix_cae_pendientes..",
                     "INF|Verifica de la existencia de los indices de la tabla Vendrix_Pagos.",
                     "ACT|Se crearon los indices de la tabla [Vendrix_Pagos]."}));
    EXPECT_EQ(first.aplicadas.size(), 26);
    EXPECT_TRUE(first.fallidas.isEmpty());
    espera_esquema_de_hoy(app);
    // The old-prices table is the price file's; it is never made in the shop.
    EXPECT_FALSE(db().existe_tabla("xls_listas_viejos", "internal"));
    EXPECT_EQ(app.read_file("Vendrix.vdrxdb"), prices);
    EXPECT_TRUE(app.op.empty());

    borrar_log();
    const ResultadoMigraciones second = ejecutar_migraciones(app.ctx());
    EXPECT_EQ(log(), log1.filter("INF|"));
    EXPECT_TRUE(second.aplicadas.isEmpty());
    espera_esquema_de_hoy(app);
}

TEST_F(MigrationsTest, UpdateScriptTextAndAnExistingOneIsLeftAlone)
{
    EXPECT_EQ(texto_update_bat(), QByteArray("@ECHO OFF\r\nping 1.0.0.0 -n 1 -w 500 >NUL\r\ngoto :foo2\r\n"
                                             ": foo\r\n    ping 1.0.0.0 -n 1 -w 100 >NUL\r\n: foo2\r\n"
                                             "del Vendrixv2.exe > NUL\r\nif exist Vendrixv2.exe (\r\n"
                                             "     goto :foo\r\n) else (\r\n"
                                             "    rename prg_download.tmp Vendrixv2.exe\r\n) \r\n"
                                             "Vendrixv2.exe\r\nexit 0\r\n"));
    app.write_file("update.bat", "echo propio\r\n");
    ejecutar_migraciones(app.ctx());
    EXPECT_EQ(app.read_file("update.bat"), "echo propio\r\n");
    EXPECT_FALSE(log().contains("ACT|Archivo \"update.bat\" creado."));
}

// Many runs: the commits needn't wait for the disk here (the program's
// durable settings are tested with the database layer).
void sin_esperar_al_disco(TestApp &app)
{
    ASSERT_EQ(
        sqlite3_exec(app.db().conexion("internal"), "PRAGMA synchronous=OFF", nullptr, nullptr, nullptr),
        SQLITE_OK);
}

// A run whose Nth statement fails, for every N of a full run: the next run
// completes the shape, which it could not do over an update left half made
// (its probe would find the part that was made and skip the rest).
TEST(FailingMigrations, AFailureAtAnyStatementLeavesNothingHalfMadeAndTheNextRunCompletes)
{
    // Old rows get their new columns filled, but for the rule of a whole list.
    const QStringList old_rows = {
        "INSERT INTO vendrix_clientes (NOMBRE) VALUES ('Juan')",
        "INSERT INTO vendrix_facturas (tipo) VALUES ('Factura')",
        "INSERT INTO vendrix_descuentos (Grupo) VALUES ('General para la lista'), ('T')"};
    int total = 0;
    {
        TestApp counter(true);
        counter.copy_seed("clientes.install", "clientes.vdrx");
        sin_esperar_al_disco(counter);
        ejecutar_migraciones(counter.ctx());
        total = counter.failing_db().statements_seen();
    }
    ASSERT_GT(total, 50);
    for (int n = 0; n <= total; ++n) { // 0: nothing fails
        SCOPED_TRACE(n);
        TestApp app(true);
        app.copy_seed("clientes.install", "clientes.vdrx");
        ejecutar_en_archivo(app.ruta("clientes.vdrx"), old_rows);
        sin_esperar_al_disco(app);
        app.failing_db().fail_nth(n);
        ejecutar_migraciones(app.ctx());
        app.failing_db().heal();
        EXPECT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
        espera_esquema_de_hoy(app);
        EXPECT_EQ(filas(app.db(), "SELECT NOMBRE, tipo, TIPO_DOC, TIPO_RECORD FROM vendrix_clientes"),
                  QStringList{"Juan|F - CONSUMIDOR FINAL|CUIT|Cliente"});
        EXPECT_EQ(filas(app.db(), "SELECT tipo, TIPO_DOC FROM vendrix_facturas"),
                  QStringList{"Factura|CUIT"});
        EXPECT_EQ(filas(app.db(), "SELECT Grupo, Articulo FROM vendrix_descuentos ORDER BY Grupo"),
                  QStringList({"General para la lista|", "T|Todos los articulos del grupo"}));
        if (HasFailure())
            break;
    }
}

} // namespace
} // namespace vendrix::test
