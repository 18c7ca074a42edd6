#include "support/price_file.h"
#include "support/qt_print.h"
#include "support/test_context.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

const QString kDbError = QStringLiteral(
    "error|Error al acceder a la base de datos|Se produjo un error al intentar ejecutar una query en la base "
    "de datos (no un Select)");

class DatabaseTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        app.copy_seed(QStringLiteral("clientes.install"), QStringLiteral("clientes.vdrx"));
        crear_archivo_de_precios(
            app.ruta(QStringLiteral("Vendrix.vdrxdb")),
            {QStringLiteral("INSERT INTO xls_listas (Proveedor, Codigo, Descripcion, Precio) VALUES "
                            "('ACME', 'T1', 'Tornillo', '10.5'), ('ACME', 'T2', 'Tuerca', '3'), "
                            "('BETA', 'C1', 'Clavo', '1')"),
             QStringLiteral("INSERT INTO xls_parametros VALUES ('CLIENTE', 'Ferretería Sur')"),
             QStringLiteral("CREATE TABLE marca (v TEXT)"),
             QStringLiteral("INSERT INTO marca VALUES ('listas')")});
        ASSERT_TRUE(db().execNQ(QStringLiteral("CREATE TABLE marca (v TEXT)"), QStringLiteral("internal")));
        ASSERT_TRUE(
            db().execNQ(QStringLiteral("INSERT INTO marca VALUES ('tienda')"), QStringLiteral("internal")));
    }

    Database &db() { return app.db(); }
    QString q1(const QString &sql, const QString &target = QStringLiteral("internal"),
               const SqlParams &p = {})
    {
        return db().execQ1(sql, target, p);
    }

    TestApp app;
};

TEST_F(DatabaseTest, OnlyTheExactWordExternalSelectsThePriceDatabase)
{
    const QString sql = QStringLiteral("SELECT v FROM marca");
    EXPECT_EQ(q1(sql, QStringLiteral("external")), "listas");
    for (const char *word : {"External", "EXTERNAL", "internal", "Internal", "clientes", "cliente", ""})
        EXPECT_EQ(q1(sql, QString::fromLatin1(word)), "tienda") << word;

    EXPECT_TRUE(db().existe_tabla(QStringLiteral("xls_parametros"), QStringLiteral("external")));
    EXPECT_FALSE(db().existe_tabla(QStringLiteral("xls_parametros"), QStringLiteral("External")));
    EXPECT_FALSE(db().existe_tabla(QStringLiteral("xls_parametros"), QStringLiteral("internal")));
    EXPECT_TRUE(db().existe_tabla(QStringLiteral("vendrix_clientes"), QStringLiteral("External")));
    EXPECT_FALSE(db().existe_tabla(QStringLiteral("vendrix_clientes"), QStringLiteral("external")));
}

TEST(DatabaseEmpty, EmptyQueryReturnsEmptyWithoutOpeningAnything)
{
    TestApp app(true);
    EXPECT_EQ(app.db().execQ1(QString(), QStringLiteral("external")), "");
    EXPECT_TRUE(app.db().execQ_matriz(QString(), QStringLiteral("external")).vacia());
    EXPECT_EQ(app.db().execQ(QString(), QStringLiteral("external")), nullptr);
    EXPECT_EQ(app.failing_db().statements_seen(), 0);
    EXPECT_FALSE(QFile::exists(app.ruta(QStringLiteral("Vendrix.vdrxdb"))));
    EXPECT_FALSE(QFile::exists(app.ruta(QStringLiteral("vendrix.log"))));
    EXPECT_TRUE(app.op.empty());
}

TEST_F(DatabaseTest, ApostropheRoundTripsThroughParametersAndEscaping)
{
    const QString name = QStringLiteral("D'Angelo");
    ASSERT_TRUE(db().execNQ(QStringLiteral("INSERT INTO vendrix_clientes (NOMBRE) VALUES (?)"),
                            QStringLiteral("internal"), {name}));
    EXPECT_EQ(q1(QStringLiteral("SELECT NOMBRE FROM vendrix_clientes WHERE NOMBRE = ?"),
                 QStringLiteral("internal"), {name}),
              name);
    EXPECT_EQ(Database::escapar_comillas(name), "D''Angelo");
    EXPECT_EQ(Database::escapar_comillas(QStringLiteral("''")), "''''");
    EXPECT_EQ(q1(QStringLiteral("SELECT NOMBRE FROM vendrix_clientes WHERE NOMBRE = '") +
                 Database::escapar_comillas(name) + QStringLiteral("'")),
              name);
}

TEST_F(DatabaseTest, MaxOfAnEmptyTableReadsAsNoRows)
{
    EXPECT_EQ(q1(QStringLiteral("SELECT max(ID) FROM vendrix_clientes")), "");
    EXPECT_TRUE(db().execQ_matriz(QStringLiteral("SELECT max(ID), 'x' FROM vendrix_clientes"),
                                  QStringLiteral("internal"))
                    .vacia());
    const Matrix count = db().execQ_matriz(QStringLiteral("SELECT count(*) FROM vendrix_clientes"),
                                           QStringLiteral("internal"));
    ASSERT_EQ(count.filas(), 1);
    EXPECT_EQ(count.at(0, 0), "0");
    // Two rows whose first field is NULL are rows.
    EXPECT_EQ(
        db().execQ_matriz(QStringLiteral("SELECT NULL UNION ALL SELECT NULL"), QStringLiteral("internal"))
            .filas(),
        2);
    EXPECT_TRUE(app.op.empty());
    EXPECT_TRUE(app.log_lines().isEmpty());
}

TEST_F(DatabaseTest, MatrixIsIndexedColumnThenRow)
{
    const Matrix m =
        db().execQ_matriz(QStringLiteral("SELECT Codigo, Descripcion, Precio FROM xls_listas ORDER BY ID"),
                          QStringLiteral("external"));
    ASSERT_EQ(m.filas(), 3);
    ASSERT_EQ(m.columnas(), 3);
    EXPECT_EQ(m.at(0, 0), "T1");
    EXPECT_EQ(m.at(1, 0), "Tornillo");
    EXPECT_EQ(m.at(0, 2), "C1");
    EXPECT_EQ(m.at(2, 1), "3");
    EXPECT_EQ(m.at(3, 0), "");
    EXPECT_EQ(m.at(0, 3), "");
    EXPECT_EQ(m.fila(1), QStringList({"T2", "Tuerca", "3"}));
}

TEST_F(DatabaseTest, ValuesReadAsText)
{
    const struct {
        const char *expr;
        const char *text;
    } cases[] = {
        {"3.0", "3"},
        {"12.5", "12.5"},
        {"0.1", "0.1"},
        {"0.1 + 0.2", "0.30000000000000004"},
        {"1e6", "1000000"},
        {"-2.5", "-2.5"},
        {"-0.0", "0"},
        {"1e20", "1E+20"},
        {"123456789012", "123456789012"},
        {"-7", "-7"},
        {"NULL", ""},
        {"'texto'", "texto"},
        {"'Año ñandú'", "Año ñandú"},
        {"x'4142'", "AB"},
        {"1.5 * 2", "3"},
        {"10 / 4.0", "2.5"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(q1(QStringLiteral("SELECT ") + QString::fromUtf8(c.expr)), QString::fromUtf8(c.text))
            << c.expr;
}

TEST_F(DatabaseTest, ParametersKeepTheirTypes)
{
    const SqlParams params{
        QVariant(),         7, qint64(1) << 40, 2.25, true, QStringLiteral("ñ"), QByteArray("\x01\x02", 2),
        QDate(2026, 11, 23)};
    const Matrix m = db().execQ_matriz(
        QStringLiteral("SELECT typeof(?), ?, ?, ?, ?, ?, length(?), ?"), QStringLiteral("internal"),
        {params[0], params[1], params[2], params[3], params[4], params[5], params[6], params[7]});
    EXPECT_EQ(m.fila(0), QStringList({"null", "7", "1099511627776", "2.25", "1", "ñ", "2", "2026-11-23"}));
}

TEST_F(DatabaseTest, OneQueryJoinsBothDatabases)
{
    ASSERT_TRUE(
        db().execNQ(QStringLiteral("CREATE TABLE vendrix_articulos_testigo (Codigo TEXT, Proveedor TEXT, "
                                   "Tipo TEXT)"),
                    QStringLiteral("internal")));
    ASSERT_TRUE(db().execNQ(QStringLiteral("INSERT INTO vendrix_articulos_testigo VALUES (?, ?, 'F')"),
                            QStringLiteral("internal"), {QStringLiteral("T2"), QStringLiteral("ACME")}));
    EXPECT_EQ(db().tabla_testigo_attach(), "clientes.vendrix_articulos_testigo");
    EXPECT_EQ(db().tabla_listas_attach(), "listas.xls_listas");
    EXPECT_EQ(db().tabla_descuentos_attach(), "clientes.vendrix_descuentos");
    EXPECT_EQ(db().tabla_pedidos_attach(), "clientes.vendrix_pedidos");
    EXPECT_EQ(db().tabla_clientes_attach(), "clientes.vendrix_clientes");

    EXPECT_EQ(q1(QStringLiteral("SELECT l.Descripcion FROM xls_listas AS l INNER JOIN ") +
                     db().tabla_testigo_attach() +
                     QStringLiteral(
                         " AS t ON (l.Proveedor = t.Proveedor AND l.Codigo = t.Codigo AND t.Tipo = 'F')"),
                 QStringLiteral("external")),
              "Tuerca");
    EXPECT_EQ(q1(QStringLiteral("SELECT count(*) FROM ") + db().tabla_listas_attach() +
                     QStringLiteral(" WHERE Proveedor = ?"),
                 QStringLiteral("internal"), {QStringLiteral("ACME")}),
              "2");
    // The price connection may write the shop's tables (new suppliers of a list).
    EXPECT_TRUE(db().execNQ(QStringLiteral("INSERT INTO ") + db().tabla_clientes_attach() +
                                QStringLiteral(" (NOMBRE) SELECT DISTINCT Proveedor FROM xls_listas"),
                            QStringLiteral("external")));
    EXPECT_EQ(q1(QStringLiteral("SELECT count(*) FROM vendrix_clientes")), "2");
}

TEST_F(DatabaseTest, PriceDatabaseIsReadOnlyUntilOpenedForImport)
{
    const QString insert = QStringLiteral("INSERT INTO xls_parametros VALUES ('FECHA', '2026')");
    EXPECT_FALSE(db().execNQ(insert, QStringLiteral("external")));
    EXPECT_FALSE(db().execNQ(QStringLiteral("INSERT INTO listas.xls_parametros VALUES ('FECHA', '2026')"),
                             QStringLiteral("internal")));
    EXPECT_EQ(app.op.lines(), QStringList({kDbError, kDbError}));
    EXPECT_EQ(q1(QStringLiteral("SELECT count(*) FROM xls_parametros"), QStringLiteral("external")), "1");

    ASSERT_TRUE(db().abrir_listas_escritura());
    EXPECT_TRUE(db().execNQ(insert, QStringLiteral("external")));
    EXPECT_TRUE(db().execNQ(QStringLiteral("INSERT INTO ") + db().tabla_listas_attach() +
                                QStringLiteral(" (Proveedor, Codigo) VALUES ('PROPIO', 'X1')"),
                            QStringLiteral("Internal")));
    db().cerrar();
    EXPECT_FALSE(db().execNQ(insert, QStringLiteral("external")));
    EXPECT_EQ(q1(QStringLiteral("SELECT count(*) FROM xls_parametros"), QStringLiteral("external")), "2");
    EXPECT_EQ(q1(QStringLiteral("SELECT count(*) FROM xls_listas"), QStringLiteral("external")), "4");
}

TEST(DatabaseFiles, MissingPriceFileLeavesTheShopWorking)
{
    TestApp app;
    app.copy_seed(QStringLiteral("clientes.install"), QStringLiteral("clientes.vdrx"));
    EXPECT_EQ(
        app.db().execQ1(QStringLiteral("SELECT count(*) FROM vendrix_clientes"), QStringLiteral("internal")),
        "0");
    EXPECT_FALSE(app.db().existe_tabla(QStringLiteral("xls_listas"), QStringLiteral("external")));
    EXPECT_EQ(app.db().execQ1(QStringLiteral("SELECT count(*) FROM xls_listas"), QStringLiteral("external")),
              "");
    EXPECT_FALSE(QFile::exists(app.ruta(QStringLiteral("Vendrix.vdrxdb"))));
    ASSERT_EQ(app.log_messages().size(), 1);
    EXPECT_TRUE(app.log_messages().at(0).startsWith(QStringLiteral("ER EXECQ1 - 14 No existe el archivo ")));

    // A price file that arrives later is attached on the next use.
    crear_archivo_de_precios(app.ruta(QStringLiteral("Vendrix.vdrxdb")));
    EXPECT_EQ(
        app.db().execQ1(QStringLiteral("SELECT count(*) FROM listas.xls_listas"), QStringLiteral("internal")),
        "0");
    EXPECT_EQ(app.db().verificar_driver_db(), "OK");
}

TEST(DatabaseFiles, MissingShopFileIsNotCreated)
{
    TestApp app;
    EXPECT_FALSE(app.db().execNQ(QStringLiteral("CREATE TABLE t (x)"), QStringLiteral("internal")));
    EXPECT_FALSE(app.db().error_apertura(QStringLiteral("internal")).isEmpty());
    EXPECT_FALSE(QFile::exists(app.ruta(QStringLiteral("clientes.vdrx"))));
}

TEST_F(DatabaseTest, ProbesSeeOnlyTheirDatabaseAndQuoteNames)
{
    EXPECT_TRUE(db().existe_campo(QStringLiteral("vendrix_clientes"), QStringLiteral("nombre")));
    EXPECT_TRUE(db().existe_campo(QStringLiteral("VENDRIX_CLIENTES"), QStringLiteral("Cuit")));
    EXPECT_FALSE(db().existe_campo(QStringLiteral("vendrix_clientes"), QStringLiteral("telefono")));
    EXPECT_FALSE(db().existe_campo(QStringLiteral("no_hay_tabla"), QStringLiteral("nombre")));
    EXPECT_FALSE(db().existe_campo(QStringLiteral("xls_listas"), QStringLiteral("Codigo")));
    EXPECT_FALSE(
        db().existe_tabla(QStringLiteral("x` WHERE 1; DROP TABLE marca; --"), QStringLiteral("internal")));
    EXPECT_FALSE(db().existe_tabla(QStringLiteral("marca\" WHERE 0=1 --"), QStringLiteral("internal")));
    EXPECT_TRUE(db().existe_tabla(QStringLiteral("MARCA"), QStringLiteral("internal")));
    EXPECT_TRUE(app.log_lines().isEmpty());
}

TEST_F(DatabaseTest, FailedCommandShowsTheMessageAndLogs)
{
    EXPECT_FALSE(db().execNQ(QStringLiteral("UPDATE no_hay_tabla SET x = 1"), QStringLiteral("internal")));
    EXPECT_EQ(app.op.lines(), QStringList{kDbError});
    EXPECT_EQ(app.log_messages(), QStringList{"ER EXECNQ - 1 no such table: no_hay_tabla 0 execNQ."});
    EXPECT_TRUE(app.log_lines().at(0).contains(QStringLiteral("[ERR] - ")));
    EXPECT_TRUE(app.status.keywords.contains(QStringLiteral("bug_on")));
    EXPECT_TRUE(app.status.busy_changes.empty());
}

TEST_F(DatabaseTest, FailedQueriesLogTheirWordAndReleaseTheBusyState)
{
    EXPECT_EQ(q1(QStringLiteral("SELECT x FROM no_hay_tabla")), "");
    EXPECT_TRUE(
        db().execQ_matriz(QStringLiteral("SELECT x FROM no_hay_tabla"), QStringLiteral("internal")).vacia());
    EXPECT_EQ(db().execQ(QStringLiteral("SELECT x FROM no_hay_tabla"), QStringLiteral("internal")), nullptr);
    EXPECT_EQ(db().execQext1(QStringLiteral("SELECT 1"), QStringLiteral("no_existe.vdrxdb")), "");
    const QStringList messages = app.log_messages();
    ASSERT_EQ(messages.size(), 4);
    EXPECT_EQ(messages[0], "ER EXECQ1 - 1 no such table: no_hay_tabla 0 execQ1.");
    EXPECT_EQ(messages[1], "ER EXECQ1 - 1 no such table: no_hay_tabla 0 execQ_matriz.");
    EXPECT_EQ(messages[2], "ER EXECQ - 1 no such table: no_hay_tabla 0 execQ.");
    EXPECT_TRUE(messages[3].startsWith(QStringLiteral("ER EXECQEXT1 - 14 unable to open database file")));
    EXPECT_EQ(app.status.busy_changes, (std::vector<bool>{false, false, false}));
    EXPECT_TRUE(app.op.empty());
}

TEST_F(DatabaseTest, RejectsSecondStatementsAndWrongParameterCounts)
{
    EXPECT_FALSE(db().execNQ(QStringLiteral("DELETE FROM marca; DROP TABLE vendrix_clientes"),
                             QStringLiteral("internal")));
    EXPECT_FALSE(
        db().execNQ(QStringLiteral("INSERT INTO marca VALUES (?)"), QStringLiteral("internal"), {1, 2}));
    EXPECT_FALSE(db().execNQ(QStringLiteral("INSERT INTO marca VALUES (?)"), QStringLiteral("internal")));
    EXPECT_TRUE(db().existe_tabla(QStringLiteral("vendrix_clientes"), QStringLiteral("internal")));
    EXPECT_EQ(q1(QStringLiteral("SELECT count(*) FROM marca")), "1");
    EXPECT_EQ(app.op.lines().size(), 3);
    // A trailing semicolon is no second statement.
    EXPECT_TRUE(db().execNQ(QStringLiteral("DELETE FROM marca;  "), QStringLiteral("internal")));
}

TEST_F(DatabaseTest, CursorWalksTheRows)
{
    auto cursor =
        db().execQ(QStringLiteral("SELECT Codigo, Precio, NULL AS nada FROM xls_listas ORDER BY ID"),
                   QStringLiteral("external"));
    ASSERT_NE(cursor, nullptr);
    EXPECT_EQ(cursor->columnas(), 3);
    EXPECT_EQ(cursor->nombre_columna(2), "nada");
    QStringList codes;
    for (; !cursor->eof(); cursor->siguiente()) {
        codes << cursor->texto(0);
        EXPECT_TRUE(cursor->es_nulo(2));
        EXPECT_EQ(cursor->texto(2), "");
    }
    EXPECT_EQ(codes, QStringList({"T1", "T2", "C1"}));
    auto none = db().execQ(QStringLiteral("SELECT 1 FROM marca WHERE 0=1"), QStringLiteral("internal"));
    ASSERT_NE(none, nullptr);
    EXPECT_TRUE(none->eof());
}

TEST_F(DatabaseTest, HighDetailLogsEachStatementAndItsTime)
{
    app.log().set_detalle(QStringLiteral("High"));
    q1(QStringLiteral("SELECT v FROM marca"));
    db().execNQ(QStringLiteral("DELETE FROM marca"), QStringLiteral("internal"));
    db().existe_tabla(QStringLiteral("marca"), QStringLiteral("internal"));
    const QStringList lines = app.log_lines();
    ASSERT_EQ(lines.size(), 4);
    EXPECT_TRUE(lines[0].endsWith(QStringLiteral("[SQL] - SELECT v FROM marca.")));
    EXPECT_TRUE(lines[1].endsWith(QStringLiteral("[SQL] - Tiempo de ejecución de la query: 0.")));
    EXPECT_TRUE(lines[2].endsWith(QStringLiteral("[SQL] - DELETE FROM marca.")));
    EXPECT_TRUE(lines[3].endsWith(QStringLiteral("[SQL] - Tiempo de ejecución de la query: 0.")));
}

TEST_F(DatabaseTest, LastInsertIdIsTheNewRow)
{
    ASSERT_TRUE(db().execNQ(QStringLiteral("INSERT INTO vendrix_clientes (NOMBRE) VALUES ('a')"),
                            QStringLiteral("internal")));
    ASSERT_TRUE(db().execNQ(QStringLiteral("INSERT INTO vendrix_clientes (NOMBRE) VALUES ('b')"),
                            QStringLiteral("internal")));
    EXPECT_EQ(db().ultimo_id(QStringLiteral("internal")), 2);
    EXPECT_EQ(q1(QStringLiteral("SELECT NOMBRE FROM vendrix_clientes WHERE ID = ?"),
                 QStringLiteral("internal"), {db().ultimo_id(QStringLiteral("clientes"))}),
              "b");
}

// Every commit to the shop file is on disk before it returns, and the file
// alone holds all committed data (no write-ahead log beside it).
TEST_F(DatabaseTest, ShopFileIsDurableOnBothConnections)
{
    EXPECT_EQ(q1(QStringLiteral("PRAGMA main.journal_mode")), "delete");
    EXPECT_EQ(q1(QStringLiteral("PRAGMA main.synchronous")), "3");
    EXPECT_EQ(q1(QStringLiteral("PRAGMA clientes.journal_mode"), QStringLiteral("external")), "delete");
    EXPECT_EQ(q1(QStringLiteral("PRAGMA clientes.synchronous"), QStringLiteral("external")), "3");
}

TEST_F(DatabaseTest, QueryOnAnotherFile)
{
    const QString other = app.ruta(QStringLiteral("nueva lista #2.vdrxdb"));
    crear_archivo_de_precios(other,
                             {QStringLiteral("INSERT INTO xls_parametros VALUES ('FECHA', '01/11/2026')")});
    EXPECT_EQ(db().execQext1(QStringLiteral("SELECT VALOR FROM xls_parametros WHERE CLAVE = ?"), other,
                             QStringLiteral("Kum4rt"), {QStringLiteral("FECHA")}),
              "01/11/2026");
    EXPECT_EQ(
        db().execQext1(QStringLiteral("SELECT VALOR FROM xls_parametros WHERE CLAVE = 'CLIENTE'"), other),
        "");
    EXPECT_TRUE(app.log_lines().isEmpty());
}

} // namespace
} // namespace vendrix::test
