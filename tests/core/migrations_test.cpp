#include "core/migrations.h"
#include "core/update_script.h"

#include "db_helpers.h"

#include <QFile>

#include <sqlite3.h>

namespace vendrix::test {
namespace {

// The log of a first run on the seed: "LVL|message".
const QStringList kPrimeraVez = {
    "INF|Verifica de la existencia de la tabla de pedidos.",
    "ACT|Se creó la tabla de [vendrix_pedidos] .",
    "ACT|Tabla de pedidos creada.",
    "ACT|Se creó agrego un campo a la tabla de [vendrix_descuentos] .",
    "ACT|Campo de articulos agregado a la tabla Vendrix_Descuentos.",
    "INF|Verifica de la existencia de la tabla de unidades por articulo.",
    "ACT|Se creó la tabla de [vendrix_unidades_articulo] .",
    "ACT|Tabla de unidades por articulo creada.",
    "INF|Verifica de la existencia de la tabla de articulos testigo.",
    "ACT|Se creó la tabla de [vendrix_articulos_testigo] .",
    "ACT|Tabla de articulos testigo creada.",
    "INF|Verifica de la existencia de la tabla de articulos viejos testigo.",
    "INF|Verifica de la existencia del campo descripcion en la tabla vendrix_articulos_testigo.",
    "ACT|Campo de 'descripcion' agregado a la tabla Vendrix_articulos_testigo.",
    "ACT|Se creó agrego el campo TIPO a la tabla de [vendrix_clientes] .",
    "ACT|Campo de 'Tipo' agregado a la tabla Vendrix_clientes.",
    "INF|Verifica de la existencia de la tabla vendrix_listas_custom.",
    "ACT|Se creó la tabla de [vendrix_listas_custom] .",
    "ACT|Tabla vendrix_listas_custom creada.",
    "INF|Verifica de la existencia del archivo update.bat.",
    "ACT|Archivo \"update.bat\" creado.",
    "INF|Verifica de la existencia del campo nro_referencia en la tabla vendrix_facturas.",
    "ACT|Campo de 'nro_referencia' agregado a la tabla vendrix_facturas.",
    "INF|Verifica de la existencia del campo Provincia en la tabla vendrix_facturas.",
    "ACT|Campo de 'Provincia' agregado a la tabla vendrix_facturas.",
    "INF|Verifica de la existencia del campo FE_CAE_numero en la tabla vendrix_facturas.",
    "ACT|se agregaron los campos necesarios para la factura electrónica en la tabla vendrix_facturas.",
    "INF|Verifica de la existencia de la tabla DUAL.",
    "ACT|Se creó la tabla de [DUAL] .",
    "ACT|Tabla DUAL creada.",
    "INF|Verifica de la existencia del campo TIPO_DOC en la tabla vendrix_facturas.",
    "ACT|se agrego el campo TIPO_DOC en la tabla vendrix_facturas..",
    "INF|Verifica de la existencia del campo TIPO_DOC en la tabla vendrix_clientes.",
    "ACT|se agrego el campo TIPO_DOC en la tabla vendrix_clientes..",
    "INF|Verifica de la existencia del campo TIPO_RECORD en la tabla vendrix_clientes.",
    "ACT|se agrego el campo TIPO_RECORD en la tabla vendrix_clientes..",
    "INF|Verifica de la existencia del campo EMAIL en la tabla vendrix_clientes.",
    "ACT|se agrego el campo EMAIL en la tabla vendrix_clientes..",
    "INF|Verifica de la existencia del campo BORRABLE en la tabla vendrix_clientes.",
    "ACT|se agrego el campo BORRABLE en la tabla vendrix_clientes..",
    "INF|Verifica de la existencia del campo TELEFONO en la tabla vendrix_clientes.",
    "ACT|se agrego el campo TELEFONO en la tabla vendrix_clientes..",
    "INF|Verifica de la existencia de la tabla Vendrix_FormasDePago.",
    "ACT|Se creó la tabla de [Vendrix_FormasDePago] y se insertaron 4 valores de formas de pago .",
    "ACT|se agrego la tabla Vendrix_FormasDePago..",
    "INF|Verifica de la existencia del campo NOTAS en la tabla vendrix_facturas.",
    "ACT|se agrego el campo NOTAS en la tabla vendrix_facturas..",
    "INF|Verifica de la existencia del campo FDP_CC en la tabla vendrix_facturas.",
    "ACT|se agrego el campo FDP_CC en la tabla vendrix_facturas..",
    "INF|Verifica de la existencia de la tabla Vendrix_DestinosDePago.",
    "ACT|Se creó la tabla de [Vendrix_DestinosDePago] y se inserto 2 valores de destino de pago .",
    "ACT|se agrego la tabla Vendrix_DestinosDePago..",
    "INF|Verifica de la existencia de la tabla Vendrix_Pagos.",
    "ACT|Se creó la tabla de [Vendrix_Pagos]..",
    "ACT|se agrego la tabla Vendrix_Pagos.."};

const QStringList kFormas = {"1|Efectivo|Efectivo|1|0|1|Cobro y Pago",
                             "2|Tarjeta de Débito|Tarjeta de Débito|1|0|1|Cobro y Pago",
                             "3|Tarjeta de Crédito|Tarjeta de Crédito|1|0|1|Cobro y Pago",
                             "4|MercadoPago|MercadoPago|1|0|0|Cobro y Pago",
                             "5|Cheques y valores|Cheques, pagarés, etc.|1|0|0|Cobro y Pago",
                             "6|Banco|Transferencias bancarias|1|0|0|Cobro y Pago",
                             "7|Ajustes|Ajustes de saldos en Vendrix|1|0|1|Solo Pago"};

const QStringList kDestinos = {"1|Compra de mercadería|Compra de mercadería|Si|1",
                               "2|Gastos Varios|Extraccion para gastos varios|No|0",
                               "3|Retiro de utilidades|Retiro de utilidades|No|0",
                               "4|Honorarios|Honorarios profesionales|Si|0",
                               "5|Sueldos y Jornales|Sueldo y adelantos del personal|No|0",
                               "6|Alquileres|Alquileres|No|0",
                               "7|Servicios|Luz, Gas, Teléfono, Internet|No|0",
                               "8|Impuestos varios|IIBB, Monotributo, IVA, etc.|No|0",
                               "9|Otros|Destino de pago no categorizado|No|0"};

// Today's shape of the shop database: each table and its columns in order.
const char *const kEsquema[] = {
    "vendrix_clientes: ID NOMBRE DIRECCION CUIT PROVINCIA DESCUENTO tipo TIPO_DOC TIPO_RECORD EMAIL BORRABLE "
    "TELEFONO",
    "vendrix_descuentos: Proveedor Grupo Descuento Ganancia borrable Articulo",
    "vendrix_facturas: ID nro_ticket fecha letra Puntoventa tipo cliente codigo cuit razon_social Domicilio "
    "Total_facturado Descuentos Iva Total Descuento_habitual total_neto Total_iva forma_de_pago carro "
    "maquina "
    "insert_timestamp nro_referencia Provincia FE_CAE_numero FE_CAE_fechaEmision FE_CAE_fechaVencimiento "
    "FE_CAE_ID TIPO_DOC NOTAS FDP_CC",
    "vendrix_factura_items: Factura_Id Offset Proveedor Codigo Descripcion Costo_siva venta_siva cantidad "
    "iva "
    "Precio_final descripcion_nueva ganancia descuento",
    "vendrix_pedidos: ID Codigo Marca Descripcion Grupo Precio Proveedor Fecha Estado Descuento Cantidad "
    "unidaddemedida",
    "vendrix_unidades_articulo: ID Codigo Proveedor Unidades",
    "vendrix_articulos_testigo: ID Codigo Proveedor Tipo ID_Testigo Descripcion",
    "vendrix_listas_custom: ID Proveedor FechaLista Grupo Codigo Descripcion Marca UnidaddeMedida Precio "
    "Moneda Observaciones",
    "dual: ID dummy",
    "Vendrix_FormasDePago: ID Forma_de_Pago Descripcion cantidad_cuotas Recargo ReadOnly Tipo",
    "Vendrix_DestinosDePago: ID Destino_de_Pago Descripcion Requiere_proveedor ReadOnly",
    "Vendrix_Pagos: ID TIPO Proveedor Medio_de_pago Destino_de_pago Pagado Notas Total_Pago ID_Factura_pagos "
    "Fecha Factura_neto Factura_iva Factura_Descuentos Factura_otrosImpuestos factura_letra Factura_sucursal "
    "factura_numero proximo_vencimiento Medio_de_pago_origen"};

// "LVL|message" of each log line.
QStringList log_de(const TestApp &app)
{
    QStringList out;
    for (const QString &line : app.log_lines())
        out << line.mid(line.indexOf("] [") + 3, 3) + '|' + line.mid(line.indexOf("] - ") + 4);
    return out;
}

// With `in_order` false, columns may come in another order: an update that
// failed once adds its column after those of the updates that followed it.
void espera_esquema_de_hoy(TestApp &app, bool in_order = true)
{
    for (const char *line : kEsquema) {
        const QString table = QString::fromLatin1(line).section(':', 0, 0);
        QStringList expected = QString::fromLatin1(line).section(": ", 1).split(' ');
        QStringList found = filas(app.db(), "SELECT name FROM pragma_table_info(?)", "internal", {table});
        if (!in_order) {
            found.sort(Qt::CaseInsensitive);
            expected.sort(Qt::CaseInsensitive);
        }
        EXPECT_EQ(found, expected) << line;
    }
    EXPECT_EQ(filas(app.db(), "SELECT * FROM Vendrix_FormasDePago ORDER BY ID"), kFormas);
    EXPECT_EQ(filas(app.db(), "SELECT * FROM Vendrix_DestinosDePago ORDER BY ID"), kDestinos);
    EXPECT_EQ(filas(app.db(), "SELECT dummy FROM dual"), QStringList{"0"});
    EXPECT_EQ(app.read_file(kUpdateScript), texto_update_bat());
}

// Each update of several steps is whole or absent.
void espera_nada_a_medias(TestApp &app)
{
    Database &db = app.db();
    for (const char *whole : {"Vendrix_FormasDePago|7", "Vendrix_DestinosDePago|9", "dual|1"}) {
        const QString count =
            db.execQ1("SELECT count(*) FROM " + QString(whole).section('|', 0, 0), "internal");
        EXPECT_TRUE(count.isEmpty() || count == QString(whole).section('|', 1)) << whole;
    }
    int fe = 0;
    for (const char *c : {"FE_CAE_numero", "FE_CAE_fechaEmision", "FE_CAE_fechaVencimiento", "FE_CAE_ID"})
        fe += db.existe_campo("vendrix_facturas", c);
    EXPECT_TRUE(fe == 0 || fe == 4) << fe;
    // Columns that arrive with a fill never show their old rows empty.
    EXPECT_EQ(db.execQ1("SELECT count(*) FROM vendrix_clientes WHERE tipo IS NULL", "internal"),
              db.existe_campo("vendrix_clientes", "tipo") ? "0" : "");
    EXPECT_EQ(db.execQ1("SELECT Articulo FROM vendrix_descuentos WHERE Grupo = 'G'", "internal"),
              db.existe_campo("vendrix_descuentos", "Articulo") ? "Todos los articulos del grupo" : "");
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
    EXPECT_EQ(log(), kPrimeraVez);
    EXPECT_EQ(first.aplicadas.size(), 23);
    EXPECT_TRUE(first.fallidas.isEmpty());
    espera_esquema_de_hoy(app);
    // The old-prices table is the price file's; it is never made in the shop.
    EXPECT_FALSE(db().existe_tabla("xls_listas_viejos", "internal"));
    EXPECT_EQ(app.read_file("Vendrix.vdrxdb"), prices);
    EXPECT_TRUE(app.op.empty());

    borrar_log();
    const ResultadoMigraciones second = ejecutar_migraciones(app.ctx());
    EXPECT_EQ(log(), kPrimeraVez.filter("INF|"));
    EXPECT_TRUE(second.aplicadas.isEmpty());
    espera_esquema_de_hoy(app);
}

TEST_F(MigrationsTest, OldRowsAreFilledWhenTheirColumnsArrive)
{
    ejecutar_en_archivo(app.ruta("clientes.vdrx"),
                        {"INSERT INTO vendrix_clientes (NOMBRE) VALUES ('Juan')",
                         "INSERT INTO vendrix_facturas (tipo) VALUES ('Factura')",
                         "INSERT INTO vendrix_descuentos (Proveedor, Grupo, Descuento) VALUES "
                         "('ACME', 'General para la lista', '10'), ('ACME', 'Tornillos', '5+2')"});
    ejecutar_migraciones(app.ctx());
    EXPECT_EQ(filas("SELECT NOMBRE, tipo, TIPO_DOC, TIPO_RECORD, EMAIL FROM vendrix_clientes"),
              QStringList{"Juan|F - CONSUMIDOR FINAL|CUIT|Cliente|"});
    EXPECT_EQ(filas("SELECT tipo, TIPO_DOC, NOTAS FROM vendrix_facturas"), QStringList{"Factura|CUIT|"});
    EXPECT_EQ(filas("SELECT Grupo, Articulo, Descuento FROM vendrix_descuentos ORDER BY Grupo"),
              QStringList({"General para la lista||10", "Tornillos|Todos los articulos del grupo|5+2"}));
}

TEST_F(MigrationsTest, DroppedTablesComeBackWithTheirRows)
{
    ejecutar_migraciones(app.ctx());
    ASSERT_TRUE(nq("INSERT INTO Vendrix_Pagos (TIPO) VALUES ('Pago')"));
    ASSERT_TRUE(nq("DROP TABLE Vendrix_Pagos"));
    ASSERT_TRUE(nq("DELETE FROM Vendrix_FormasDePago WHERE ID > 2"));
    ASSERT_TRUE(nq("DROP TABLE vendrix_formasdepago"));
    borrar_log();

    const ResultadoMigraciones result = ejecutar_migraciones(app.ctx());
    EXPECT_EQ(result.aplicadas,
              QStringList({"se agrego la tabla Vendrix_FormasDePago.", "se agrego la tabla Vendrix_Pagos."}));
    EXPECT_EQ(q1("SELECT count(*) FROM Vendrix_Pagos"), "0");
    EXPECT_EQ(filas("SELECT * FROM Vendrix_FormasDePago ORDER BY ID"), kFormas);
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

// A run whose Nth statement fails, for every N of a full run: each update of
// several steps is whole or absent, and the next run completes the shape.
TEST(FailingMigrations, AFailureAtAnyStatementLeavesNothingHalfMadeAndTheNextRunCompletes)
{
    const QStringList old_rows = {"INSERT INTO vendrix_clientes (NOMBRE) VALUES ('Juan')",
                                  "INSERT INTO vendrix_descuentos (Proveedor, Grupo) VALUES ('ACME', 'G')"};
    int total = 0;
    {
        TestApp counter(true);
        counter.copy_seed("clientes.install", "clientes.vdrx");
        sin_esperar_al_disco(counter);
        ejecutar_migraciones(counter.ctx());
        total = counter.failing_db().statements_seen();
    }
    ASSERT_GT(total, 50);
    for (int n = 1; n <= total; ++n) {
        SCOPED_TRACE(n);
        TestApp app(true);
        app.copy_seed("clientes.install", "clientes.vdrx");
        ejecutar_en_archivo(app.ruta("clientes.vdrx"), old_rows);
        sin_esperar_al_disco(app);
        app.failing_db().fail_nth(n);
        ejecutar_migraciones(app.ctx());
        app.failing_db().heal();
        espera_nada_a_medias(app);
        EXPECT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
        espera_esquema_de_hoy(app, false);
        EXPECT_EQ(filas(app.db(), "SELECT NOMBRE, tipo, TIPO_DOC, TIPO_RECORD FROM vendrix_clientes"),
                  QStringList{"Juan|F - CONSUMIDOR FINAL|CUIT|Cliente"});
        if (HasFailure())
            break;
    }
}

} // namespace
} // namespace vendrix::test
