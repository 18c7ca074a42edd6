#include "core/migrations.h"
#include "core/update_script.h"

#include "support/price_file.h"
#include "support/qt_print.h"
#include "support/test_context.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace vendrix::test {
namespace {

const QString kShop = QStringLiteral("internal");

// Every "Verifica" line of a run, in order.
const QStringList kVerifica = {
    "Verifica de la existencia de la tabla de pedidos.",
    "Verifica de la existencia de la tabla de unidades por articulo.",
    "Verifica de la existencia de la tabla de articulos testigo.",
    "Verifica de la existencia de la tabla de articulos viejos testigo.",
    "Verifica de la existencia del campo descripcion en la tabla vendrix_articulos_testigo.",
    "Verifica de la existencia de la tabla vendrix_listas_custom.",
    "Verifica de la existencia del archivo update.bat.",
    "Verifica de la existencia del campo nro_referencia en la tabla vendrix_facturas.",
    "Verifica de la existencia del campo Provincia en la tabla vendrix_facturas.",
    "Verifica de la existencia del campo FE_CAE_numero en la tabla vendrix_facturas.",
    "Verifica de la existencia de la tabla DUAL.",
    "Verifica de la existencia del campo TIPO_DOC en la tabla vendrix_facturas.",
    "Verifica de la existencia del campo TIPO_DOC en la tabla vendrix_clientes.",
    "Verifica de la existencia del campo TIPO_RECORD en la tabla vendrix_clientes.",
    "Verifica de la existencia del campo EMAIL en la tabla vendrix_clientes.",
    "Verifica de la existencia del campo BORRABLE en la tabla vendrix_clientes.",
    "Verifica de la existencia del campo TELEFONO en la tabla vendrix_clientes.",
    "Verifica de la existencia de la tabla Vendrix_FormasDePago.",
    "Verifica de la existencia del campo NOTAS en la tabla vendrix_facturas.",
    "Verifica de la existencia del campo FDP_CC en la tabla vendrix_facturas.",
    "Verifica de la existencia de la tabla Vendrix_DestinosDePago.",
    "Verifica de la existencia de la tabla Vendrix_Pagos.",
};

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
    "ACT|se agrego la tabla Vendrix_Pagos..",
};

// Today's shape of the shop database: each table with its columns in order.
const std::vector<std::pair<QString, QStringList>> kEsquema = {
    {"vendrix_clientes",
     {"ID", "NOMBRE", "DIRECCION", "CUIT", "PROVINCIA", "DESCUENTO", "tipo", "TIPO_DOC", "TIPO_RECORD",
      "EMAIL", "BORRABLE", "TELEFONO"}},
    {"vendrix_descuentos", {"Proveedor", "Grupo", "Descuento", "Ganancia", "borrable", "Articulo"}},
    {"vendrix_facturas",
     {"ID",
      "nro_ticket",
      "fecha",
      "letra",
      "Puntoventa",
      "tipo",
      "cliente",
      "codigo",
      "cuit",
      "razon_social",
      "Domicilio",
      "Total_facturado",
      "Descuentos",
      "Iva",
      "Total",
      "Descuento_habitual",
      "total_neto",
      "Total_iva",
      "forma_de_pago",
      "carro",
      "maquina",
      "insert_timestamp",
      "nro_referencia",
      "Provincia",
      "FE_CAE_numero",
      "FE_CAE_fechaEmision",
      "FE_CAE_fechaVencimiento",
      "FE_CAE_ID",
      "TIPO_DOC",
      "NOTAS",
      "FDP_CC"}},
    {"vendrix_factura_items",
     {"Factura_Id", "Offset", "Proveedor", "Codigo", "Descripcion", "Costo_siva", "venta_siva", "cantidad",
      "iva", "Precio_final", "descripcion_nueva", "ganancia", "descuento"}},
    {"vendrix_pedidos",
     {"ID", "Codigo", "Marca", "Descripcion", "Grupo", "Precio", "Proveedor", "Fecha", "Estado", "Descuento",
      "Cantidad", "unidaddemedida"}},
    {"vendrix_unidades_articulo", {"ID", "Codigo", "Proveedor", "Unidades"}},
    {"vendrix_articulos_testigo", {"ID", "Codigo", "Proveedor", "Tipo", "ID_Testigo", "Descripcion"}},
    {"vendrix_listas_custom",
     {"ID", "Proveedor", "FechaLista", "Grupo", "Codigo", "Descripcion", "Marca", "UnidaddeMedida", "Precio",
      "Moneda", "Observaciones"}},
    {"dual", {"ID", "dummy"}},
    {"Vendrix_FormasDePago",
     {"ID", "Forma_de_Pago", "Descripcion", "cantidad_cuotas", "Recargo", "ReadOnly", "Tipo"}},
    {"Vendrix_DestinosDePago", {"ID", "Destino_de_Pago", "Descripcion", "Requiere_proveedor", "ReadOnly"}},
    {"Vendrix_Pagos",
     {"ID", "TIPO", "Proveedor", "Medio_de_pago", "Destino_de_pago", "Pagado", "Notas", "Total_Pago",
      "ID_Factura_pagos", "Fecha", "Factura_neto", "Factura_iva", "Factura_Descuentos",
      "Factura_otrosImpuestos", "factura_letra", "Factura_sucursal", "factura_numero", "proximo_vencimiento",
      "Medio_de_pago_origen"}},
};

const QStringList kFormas = {
    "1|Efectivo|Efectivo|1|0|1|Cobro y Pago",
    "2|Tarjeta de Débito|Tarjeta de Débito|1|0|1|Cobro y Pago",
    "3|Tarjeta de Crédito|Tarjeta de Crédito|1|0|1|Cobro y Pago",
    "4|MercadoPago|MercadoPago|1|0|0|Cobro y Pago",
    "5|Cheques y valores|Cheques, pagarés, etc.|1|0|0|Cobro y Pago",
    "6|Banco|Transferencias bancarias|1|0|0|Cobro y Pago",
    "7|Ajustes|Ajustes de saldos en Vendrix|1|0|1|Solo Pago",
};

const QStringList kDestinos = {
    "1|Compra de mercadería|Compra de mercadería|Si|1",
    "2|Gastos Varios|Extraccion para gastos varios|No|0",
    "3|Retiro de utilidades|Retiro de utilidades|No|0",
    "4|Honorarios|Honorarios profesionales|Si|0",
    "5|Sueldos y Jornales|Sueldo y adelantos del personal|No|0",
    "6|Alquileres|Alquileres|No|0",
    "7|Servicios|Luz, Gas, Teléfono, Internet|No|0",
    "8|Impuestos varios|IIBB, Monotributo, IVA, etc.|No|0",
    "9|Otros|Destino de pago no categorizado|No|0",
};

// "LVL|message" of each log line.
QStringList log_de(const TestApp &app)
{
    QStringList out;
    for (const QString &line : app.log_lines()) {
        const int open = line.indexOf(QLatin1String("] ["));
        out << line.mid(open + 3, 3) + QLatin1Char('|') + line.mid(line.indexOf(QLatin1String("] - ")) + 4);
    }
    return out;
}

QStringList filas(TestApp &app, const QString &sql, const SqlParams &params = {})
{
    QStringList out;
    const Matrix m = app.db().execQ_matriz(sql, kShop, params);
    for (int r = 0; r < m.filas(); ++r)
        out << m.fila(r).join(QLatin1Char('|'));
    return out;
}

// With `in_order` false, columns may come in another order: an update that
// failed once adds its column after those of the updates that followed it.
void espera_esquema_de_hoy(TestApp &app, bool in_order = true)
{
    for (const auto &[table, cols] : kEsquema) {
        QStringList found = filas(app, QStringLiteral("SELECT name FROM pragma_table_info(?)"), {table});
        QStringList expected = cols;
        if (!in_order) {
            found.sort(Qt::CaseInsensitive);
            expected.sort(Qt::CaseInsensitive);
        }
        EXPECT_EQ(found, expected) << table.toStdString();
    }
    EXPECT_EQ(filas(app, QStringLiteral("SELECT * FROM Vendrix_FormasDePago ORDER BY ID")), kFormas);
    EXPECT_EQ(filas(app, QStringLiteral("SELECT * FROM Vendrix_DestinosDePago ORDER BY ID")), kDestinos);
    EXPECT_EQ(filas(app, QStringLiteral("SELECT dummy FROM dual")), QStringList{"0"});
    EXPECT_EQ(app.read_file(QString::fromLatin1(kUpdateScript)), texto_update_bat());
}

// Each update of several steps is whole or absent.
void espera_nada_a_medias(TestApp &app)
{
    Database &db = app.db();
    const QString formas = db.execQ1(QStringLiteral("SELECT count(*) FROM Vendrix_FormasDePago"), kShop);
    EXPECT_TRUE(formas.isEmpty() || formas == "7") << formas.toStdString();
    const QString destinos = db.execQ1(QStringLiteral("SELECT count(*) FROM Vendrix_DestinosDePago"), kShop);
    EXPECT_TRUE(destinos.isEmpty() || destinos == "9") << destinos.toStdString();
    const QString dual = db.execQ1(QStringLiteral("SELECT count(*) FROM dual"), kShop);
    EXPECT_TRUE(dual.isEmpty() || dual == "1");
    int fe = 0;
    for (const char *c : {"FE_CAE_numero", "FE_CAE_fechaEmision", "FE_CAE_fechaVencimiento", "FE_CAE_ID"})
        fe += db.existe_campo(QStringLiteral("vendrix_facturas"), QString::fromLatin1(c));
    EXPECT_TRUE(fe == 0 || fe == 4) << fe;
    if (db.existe_campo(QStringLiteral("vendrix_clientes"), QStringLiteral("tipo"))) {
        EXPECT_EQ(
            db.execQ1(QStringLiteral("SELECT count(*) FROM vendrix_clientes WHERE tipo IS NULL"), kShop),
            "0");
    }
    if (db.existe_campo(QStringLiteral("vendrix_descuentos"), QStringLiteral("Articulo"))) {
        EXPECT_EQ(
            db.execQ1(QStringLiteral("SELECT Articulo FROM vendrix_descuentos WHERE Grupo = 'G'"), kShop),
            "Todos los articulos del grupo");
    }
}

class MigrationsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        app.copy_seed(QStringLiteral("clientes.install"), QStringLiteral("clientes.vdrx"));
    }

    QStringList log() const { return log_de(app); }
    void borrar_log() const { QFile::remove(app.ruta(QStringLiteral("vendrix.log"))); }
    QStringList filas(const QString &sql) { return test::filas(app, sql); }
    void espera_esquema_de_hoy() { test::espera_esquema_de_hoy(app); }

    TestApp app;
};

TEST_F(MigrationsTest, SeedReachesTodaysShapeAndTheSecondRunOnlyVerifies)
{
    const ResultadoMigraciones first = ejecutar_migraciones(app.ctx());
    EXPECT_EQ(log(), kPrimeraVez);
    EXPECT_EQ(first.aplicadas.size(), 23);
    EXPECT_TRUE(first.fallidas.isEmpty());
    espera_esquema_de_hoy();
    // The old-prices table is the price file's; it is never made in the shop.
    EXPECT_FALSE(app.db().existe_tabla(QStringLiteral("xls_listas_viejos"), kShop));
    EXPECT_TRUE(app.op.empty());

    borrar_log();
    const ResultadoMigraciones second = ejecutar_migraciones(app.ctx());
    QStringList expected;
    for (const QString &line : kVerifica)
        expected << QStringLiteral("INF|") + line;
    EXPECT_EQ(log(), expected);
    EXPECT_TRUE(second.aplicadas.isEmpty());
    espera_esquema_de_hoy();
}

TEST_F(MigrationsTest, OldRowsAreFilledWhenTheirColumnsArrive)
{
    const QString shop = app.ruta(QStringLiteral("clientes.vdrx"));
    ejecutar_en_archivo(shop, {
                                  "INSERT INTO vendrix_clientes (NOMBRE) VALUES ('Juan')",
                                  "INSERT INTO vendrix_facturas (tipo) VALUES ('Factura')",
                                  "INSERT INTO vendrix_descuentos (Proveedor, Grupo, Descuento) VALUES "
                                  "('ACME', 'General para la lista', '10'), ('ACME', 'Tornillos', '5+2')",
                              });
    ejecutar_migraciones(app.ctx());
    EXPECT_EQ(
        filas(QStringLiteral("SELECT NOMBRE, tipo, TIPO_DOC, TIPO_RECORD, EMAIL FROM vendrix_clientes")),
        QStringList{"Juan|F - CONSUMIDOR FINAL|CUIT|Cliente|"});
    EXPECT_EQ(filas(QStringLiteral("SELECT tipo, TIPO_DOC, NOTAS FROM vendrix_facturas")),
              QStringList{"Factura|CUIT|"});
    EXPECT_EQ(
        filas(QStringLiteral("SELECT Grupo, Articulo, Descuento FROM vendrix_descuentos ORDER BY Grupo")),
        QStringList({"General para la lista||10", "Tornillos|Todos los articulos del grupo|5+2"}));
    EXPECT_EQ(app.db().execQ1(QStringLiteral("SELECT Articulo FROM vendrix_descuentos WHERE Grupo = ?"),
                              kShop, {QStringLiteral("General para la lista")}),
              "");
}

TEST_F(MigrationsTest, DroppedTablesComeBackWithTheirRows)
{
    ejecutar_migraciones(app.ctx());
    ASSERT_TRUE(app.db().execNQ(QStringLiteral("INSERT INTO Vendrix_Pagos (TIPO) VALUES ('Pago')"), kShop));
    ASSERT_TRUE(app.db().execNQ(QStringLiteral("DROP TABLE Vendrix_Pagos"), kShop));
    ASSERT_TRUE(app.db().execNQ(QStringLiteral("DELETE FROM Vendrix_FormasDePago WHERE ID > 2"), kShop));
    ASSERT_TRUE(app.db().execNQ(QStringLiteral("DROP TABLE vendrix_formasdepago"), kShop));
    borrar_log();

    const ResultadoMigraciones result = ejecutar_migraciones(app.ctx());
    EXPECT_EQ(result.aplicadas, QStringList({"se agrego la tabla Vendrix_FormasDePago.", "se agrego la tabla "
                                                                                         "Vendrix_Pagos."}));
    EXPECT_EQ(app.db().execQ1(QStringLiteral("SELECT count(*) FROM Vendrix_Pagos"), kShop), "0");
    EXPECT_EQ(filas(QStringLiteral("SELECT * FROM Vendrix_FormasDePago ORDER BY ID")), kFormas);
    EXPECT_TRUE(log().contains(
        "ACT|Se creó la tabla de [Vendrix_FormasDePago] y se insertaron 4 valores de formas de pago ."));
}

TEST_F(MigrationsTest, AnExistingUpdateScriptIsLeftAlone)
{
    app.write_file(QStringLiteral("update.bat"), "echo propio\r\n");
    ejecutar_migraciones(app.ctx());
    EXPECT_EQ(app.read_file(QStringLiteral("update.bat")), "echo propio\r\n");
    EXPECT_FALSE(log().contains("ACT|Archivo \"update.bat\" creado."));
}

TEST_F(MigrationsTest, UpdateScriptText)
{
    EXPECT_EQ(texto_update_bat(), QByteArray("@ECHO OFF\r\n"
                                             "ping 1.0.0.0 -n 1 -w 500 >NUL\r\n"
                                             "goto :foo2\r\n"
                                             ": foo\r\n"
                                             "    ping 1.0.0.0 -n 1 -w 100 >NUL\r\n"
                                             ": foo2\r\n"
                                             "del Vendrixv2.exe > NUL\r\n"
                                             "if exist Vendrixv2.exe (\r\n"
                                             "     goto :foo\r\n"
                                             ") else (\r\n"
                                             "    rename prg_download.tmp Vendrixv2.exe\r\n"
                                             ") \r\n"
                                             "Vendrixv2.exe\r\n"
                                             "exit 0\r\n"));
}

TEST_F(MigrationsTest, PriceFileIsNeitherNeededNorTouched)
{
    crear_archivo_de_precios(app.ruta(QStringLiteral("Vendrix.vdrxdb")));
    const QByteArray before = app.read_file(QStringLiteral("Vendrix.vdrxdb"));
    ejecutar_migraciones(app.ctx());
    espera_esquema_de_hoy();
    EXPECT_EQ(app.read_file(QStringLiteral("Vendrix.vdrxdb")), before);
    EXPECT_TRUE(app.op.empty());
}

// Many runs: the commits needn't wait for the disk here (the program's
// durable settings are tested with the database layer).
void sin_esperar_al_disco(TestApp &app)
{
    ASSERT_EQ(sqlite3_exec(app.db().conexion(kShop), "PRAGMA synchronous=OFF", nullptr, nullptr, nullptr),
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
        counter.copy_seed(QStringLiteral("clientes.install"), QStringLiteral("clientes.vdrx"));
        sin_esperar_al_disco(counter);
        ejecutar_migraciones(counter.ctx());
        total = counter.failing_db().statements_seen();
    }
    ASSERT_GT(total, 50);
    for (int n = 1; n <= total; ++n) {
        SCOPED_TRACE(n);
        TestApp app(true);
        app.copy_seed(QStringLiteral("clientes.install"), QStringLiteral("clientes.vdrx"));
        ejecutar_en_archivo(app.ruta(QStringLiteral("clientes.vdrx")), old_rows);
        sin_esperar_al_disco(app);
        app.failing_db().fail_nth(n);
        ejecutar_migraciones(app.ctx());
        app.failing_db().heal();
        espera_nada_a_medias(app);
        const ResultadoMigraciones healed = ejecutar_migraciones(app.ctx());
        EXPECT_TRUE(healed.fallidas.isEmpty());
        espera_esquema_de_hoy(app, false);
        EXPECT_EQ(
            filas(app, QStringLiteral("SELECT NOMBRE, tipo, TIPO_DOC, TIPO_RECORD FROM vendrix_clientes")),
            QStringList{"Juan|F - CONSUMIDOR FINAL|CUIT|Cliente"});
        if (HasFailure())
            break;
    }
}

} // namespace
} // namespace vendrix::test
