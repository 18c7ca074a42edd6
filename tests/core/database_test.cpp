// Queries on both files, transactions, and files that are not databases or
// no longer whole ones.
#include "db_helpers.h"
#include "rows.h"

#include "core/sqlite_values.h"

#include <QFile>

#include <sqlite3.h>

namespace vendrix::test {
namespace {

const QString kDbError = "error|Error al acceder a la base de datos|Se produjo un error al intentar ejecutar "
                         "una query en la base de datos (no un Select)";

// The shop and a price list, each with a table `marca` telling which file answered.
class DatabaseTest : public ShopTest {
protected:
    void SetUp() override
    {
        crear_archivo_de_precios(app.ruta("Vendrix.vdrxdb"),
                                 {"INSERT INTO xls_listas (Proveedor, Codigo, Descripcion, Precio) VALUES "
                                  "('ACME', 'T1', 'Tornillo', '10.5'), ('ACME', 'T2', 'Tuerca', '3'), "
                                  "('BETA', 'C1', 'Clavo', '1')",
                                  "INSERT INTO xls_parametros VALUES ('CLIENTE', 'Ferretería Sur')",
                                  "CREATE TABLE marca (v TEXT)", "INSERT INTO marca VALUES ('listas')"});
        ASSERT_TRUE(nq("CREATE TABLE marca (v TEXT)"));
        ASSERT_TRUE(nq("INSERT INTO marca VALUES ('tienda')"));
    }
};

TEST_F(DatabaseTest, OnlyTheExactWordExternalSelectsThePriceDatabaseAndProbesQuoteNames)
{
    EXPECT_EQ(q1("SELECT v FROM marca", "external"), "listas");
    for (const char *word : {"External", "EXTERNAL", "internal", "Internal", "clientes", ""})
        EXPECT_EQ(q1("SELECT v FROM marca", word), "tienda") << word;
    EXPECT_TRUE(db().existe_tabla("xls_parametros", "external"));
    EXPECT_FALSE(db().existe_tabla("vendrix_clientes", "external"));
    EXPECT_TRUE(db().existe_campo("VENDRIX_CLIENTES", "Cuit"));
    EXPECT_FALSE(db().existe_campo("vendrix_clientes", "telefono"));
    EXPECT_FALSE(db().existe_campo("xls_listas", "Codigo"));
    EXPECT_FALSE(db().existe_tabla("marca\" WHERE 0=1 --", "internal"));
    EXPECT_TRUE(db().existe_tabla("MARCA", "internal"));
    EXPECT_TRUE(app.log_lines().isEmpty());
}

TEST_F(DatabaseTest, MatrixCursorAndParametersReadValuesAsText)
{
    EXPECT_EQ(q1("SELECT max(ID) FROM vendrix_clientes"), "");
    EXPECT_TRUE(db().execQ_matriz("SELECT max(ID), 'x' FROM vendrix_clientes", "internal").vacia());
    EXPECT_EQ(filas("SELECT 1, NULL UNION ALL SELECT NULL, NULL"), QStringList({"1|", "|"}));
    // A matrix is indexed (column, row); a cursor walks the rows.
    const Matrix m =
        db().execQ_matriz("SELECT Codigo, Descripcion, Precio FROM xls_listas ORDER BY ID", "external");
    EXPECT_EQ(m.at(1, 0) + m.at(0, 2) + m.at(3, 0) + m.at(0, 3), "TornilloC1");
    auto cursor = db().execQ("SELECT Codigo, NULL AS nada FROM xls_listas ORDER BY ID", "external");
    ASSERT_NE(cursor, nullptr);
    EXPECT_EQ(cursor->nombre_columna(1), "nada");
    QStringList codes;
    for (; !cursor->eof(); cursor->siguiente())
        codes << cursor->texto(0) + cursor->texto(1) + QString::number(cursor->es_nulo(1));
    EXPECT_EQ(codes, QStringList({"T11", "T21", "C11"}));
    const Rows<const char *, const char *> cases = {
        {"3.0", "3"}, {"0.1 + 0.2", "0.30000000000000004"}, {"-0.0", "0"},     {"1e20", "1E+20"},
        {"NULL", ""}, {"123456789012", "123456789012"},     {"x'4142'", "AB"}, {"'Año ñandú'", "Año ñandú"}};
    for (const auto &[expr, text] : cases)
        EXPECT_EQ(q1(QString("SELECT ") + expr), text) << expr;
    EXPECT_EQ(filas("SELECT typeof(?), ?, ?, ?, ?, ?, length(?), ?",
                    {QVariant(), 7, qint64(1) << 40, 2.25, true, "ñ", QByteArray("\x01\x02", 2),
                     QDate(2026, 11, 23)}),
              QStringList{"null|7|1099511627776|2.25|1|ñ|2|2026-11-23"});
    EXPECT_TRUE(app.log_lines().isEmpty());
}

TEST_F(DatabaseTest, OneQueryJoinsBothDatabases)
{
    ASSERT_TRUE(nq("CREATE TABLE vendrix_articulos_testigo (Codigo TEXT, Proveedor TEXT, Tipo TEXT)"));
    ASSERT_TRUE(nq("INSERT INTO vendrix_articulos_testigo VALUES ('T2', 'ACME', 'F')"));
    EXPECT_EQ(q1("SELECT l.Descripcion FROM xls_listas AS l INNER JOIN " + db().tabla_testigo_attach() +
                     " AS t ON (l.Proveedor = t.Proveedor AND l.Codigo = t.Codigo AND t.Tipo = 'F')",
                 "external"),
              "Tuerca");
    EXPECT_EQ(q1("SELECT count(*) FROM " + db().tabla_listas_attach() + " WHERE Proveedor = ?", "internal",
                 {"ACME"}),
              "2");
    // The price connection may write the shop's tables (new suppliers of a list).
    EXPECT_TRUE(nq("INSERT INTO " + db().tabla_clientes_attach() +
                       " (NOMBRE) SELECT DISTINCT Proveedor FROM xls_listas",
                   "external"));
    EXPECT_EQ(q1("SELECT count(*) FROM vendrix_clientes"), "2");
}

TEST_F(DatabaseTest, PriceDatabaseIsReadOnlyUntilOpenedForImport)
{
    const QString insert = "INSERT INTO xls_parametros VALUES ('FECHA', '2026')";
    EXPECT_FALSE(nq(insert, "external"));
    EXPECT_FALSE(nq("INSERT INTO listas.xls_parametros VALUES ('FECHA', '2026')"));
    EXPECT_EQ(app.op.lines(), QStringList({kDbError, kDbError}));

    ASSERT_TRUE(db().abrir_listas_escritura());
    EXPECT_TRUE(nq(insert, "external"));
    EXPECT_TRUE(nq("INSERT INTO " + db().tabla_listas_attach() + " (Proveedor, Codigo) VALUES ('P', 'X1')",
                   "Internal"));
    db().cerrar();
    EXPECT_FALSE(nq(insert, "external"));
    EXPECT_EQ(q1("SELECT count(*) FROM xls_parametros", "external"), "2");
    EXPECT_EQ(q1("SELECT count(*) FROM xls_listas", "external"), "4");
}

// A connection of its own for a search thread: both files readable, neither
// writable, and its statements outside the layer's connections.
TEST_F(DatabaseTest, AReadingConnectionOfItsOwnSeesBothFilesAndWritesNeither)
{
    SqlError error;
    ConexionPropia own = db().abrir_precios_lectura(error);
    ASSERT_NE(own, nullptr) << error.texto().toStdString();
    auto uno = [&](const char *sql) {
        sqlite3_stmt *stmt = nullptr;
        QString value = "ERROR";
        if (sqlite3_prepare_v2(own.get(), sql, -1, &stmt, nullptr) == SQLITE_OK &&
            sqlite3_step(stmt) == SQLITE_ROW)
            value = QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(stmt, 0)));
        sqlite3_finalize(stmt);
        return value;
    };
    EXPECT_EQ(uno("SELECT v FROM marca"), "listas");
    EXPECT_EQ(uno("SELECT v FROM clientes.marca"), "tienda");
    EXPECT_EQ(sqlite3_exec(own.get(), "INSERT INTO marca VALUES ('x')", nullptr, nullptr, nullptr),
              SQLITE_READONLY);
    EXPECT_EQ(sqlite3_exec(own.get(), "INSERT INTO clientes.marca VALUES ('x')", nullptr, nullptr, nullptr),
              SQLITE_READONLY);
    // The layer's own connections still write the shop and see a change.
    ASSERT_TRUE(nq("UPDATE marca SET v = 'tienda 2'"));
    EXPECT_EQ(uno("SELECT v FROM clientes.marca"), "tienda 2");
    EXPECT_TRUE(app.log_lines().isEmpty());
}

TEST(DatabaseFiles, NoReadingConnectionWithoutThePriceFile)
{
    TestApp app;
    app.copy_seed("clientes.install", "clientes.vdrx");
    SqlError error;
    EXPECT_EQ(app.db().abrir_precios_lectura(error), nullptr);
    EXPECT_TRUE(error.texto().startsWith("14 No existe el archivo ")) << error.texto().toStdString();
}

TEST(DatabaseFiles, MissingPriceFileLeavesTheShopWorkingAndIsAttachedWhenItArrives)
{
    TestApp app;
    app.copy_seed("clientes.install", "clientes.vdrx");
    EXPECT_EQ(app.db().execQ1("SELECT count(*) FROM xls_listas", "external"), "");
    EXPECT_EQ(app.db().execQ1("SELECT count(*) FROM vendrix_clientes", "internal"), "0");
    EXPECT_FALSE(QFile::exists(app.ruta("Vendrix.vdrxdb")));
    ASSERT_EQ(app.log_messages().size(), 1);
    EXPECT_TRUE(app.log_messages().at(0).startsWith("ER EXECQ1 - 14 No existe el archivo "));

    crear_archivo_de_precios(app.ruta("Vendrix.vdrxdb"));
    EXPECT_EQ(app.db().execQ1("SELECT count(*) FROM listas.xls_listas", "internal"), "0");
    EXPECT_EQ(app.db().verificar_driver_db(), "OK");
}

TEST(DatabaseFiles, MissingShopFileIsNotCreatedAndAnotherListIsReadByItsPath)
{
    TestApp app;
    EXPECT_FALSE(app.db().execNQ("CREATE TABLE t (x)", "internal"));
    EXPECT_FALSE(QFile::exists(app.ruta("clientes.vdrx")));
    app.write_file("clientes.vdrx", QByteArray()); // an empty file is an empty database
    EXPECT_FALSE(app.db().existe_tabla("vendrix_clientes", "internal"));
    const QString other = app.ruta("nueva lista #2.vdrxdb");
    crear_archivo_de_precios(other, {"INSERT INTO xls_parametros VALUES ('FECHA', '01/11/2026')"});
    EXPECT_EQ(
        app.db().execQext1("SELECT VALOR FROM xls_parametros WHERE CLAVE = ?", other, "Kum4rt", {"FECHA"}),
        "01/11/2026");
}

// An empty query opens nothing and logs nothing.
TEST_F(DatabaseTest, FailuresLogTheirWordAndOnlyCommandsShowAMessage)
{
    EXPECT_EQ(q1(QString()) + q1(QString(), "external"), "");
    EXPECT_EQ(db().execQ(QString(), "external"), nullptr);
    EXPECT_EQ(q1("SELECT x FROM no_hay_tabla"), "");
    EXPECT_TRUE(db().execQ_matriz("SELECT x FROM no_hay_tabla", "internal").vacia());
    EXPECT_EQ(db().execQ("SELECT x FROM no_hay_tabla", "internal"), nullptr);
    EXPECT_EQ(db().execQext1("SELECT 1", "no_existe.vdrxdb"), "");
    EXPECT_TRUE(app.op.empty());
    EXPECT_EQ(app.status.busy_changes, (std::vector<bool>{false, false, false}));
    EXPECT_FALSE(nq("UPDATE no_hay_tabla SET x = 1"));
    EXPECT_EQ(app.op.lines(), QStringList{kDbError});
    const QStringList messages = app.log_messages();
    ASSERT_EQ(messages.size(), 5);
    EXPECT_EQ(messages.mid(0, 3), QStringList({"ER EXECQ1 - 1 no such table: no_hay_tabla 0 execQ1.",
                                               "ER EXECQ1 - 1 no such table: no_hay_tabla 0 execQ_matriz.",
                                               "ER EXECQ - 1 no such table: no_hay_tabla 0 execQ."}));
    EXPECT_TRUE(messages[3].startsWith("ER EXECQEXT1 - 14 unable to open database file"));
    EXPECT_EQ(messages[4], "ER EXECNQ - 1 no such table: no_hay_tabla 0 execNQ.");
    EXPECT_TRUE(app.status.keywords.contains("bug_on"));
}

TEST_F(DatabaseTest, RejectsSecondStatementsAndWrongParameterCounts)
{
    EXPECT_FALSE(nq("DELETE FROM marca; DROP TABLE vendrix_clientes"));
    EXPECT_FALSE(nq("INSERT INTO marca VALUES (?)", "internal", {1, 2}));
    EXPECT_FALSE(nq("INSERT INTO marca VALUES (?)"));
    EXPECT_TRUE(db().existe_tabla("vendrix_clientes", "internal"));
    EXPECT_EQ(q1("SELECT count(*) FROM marca"), "1");
    EXPECT_EQ(app.op.lines().size(), 3);
    EXPECT_TRUE(nq("DELETE FROM marca;  ")); // a trailing semicolon is no second statement
}

TEST_F(DatabaseTest, HighDetailLogsEachStatementAndItsTime)
{
    app.log().set_detalle("High");
    q1("SELECT v FROM marca");
    nq("DELETE FROM marca");
    db().existe_tabla("marca", "internal");
    EXPECT_EQ(app.log_messages(), QStringList({"SELECT v FROM marca.", "Tiempo de ejecución de la query: 0.",
                                               "DELETE FROM marca.", "Tiempo de ejecución de la query: 0."}));
    EXPECT_TRUE(app.log_lines().at(0).contains("[SQL] - "));
}

TEST_F(DatabaseTest, LastInsertIdIsTheNewRowAndShopFileIsDurable)
{
    ASSERT_TRUE(nq("INSERT INTO vendrix_clientes (NOMBRE) VALUES ('a'), ('b')"));
    ASSERT_TRUE(nq("INSERT INTO marca VALUES ('c')"));
    ASSERT_TRUE(nq("INSERT INTO vendrix_clientes (NOMBRE) VALUES ('d')"));
    EXPECT_EQ(db().ultimo_id("clientes"), 3);
    // Every commit to the shop file is on disk before it returns, and the file
    // alone holds all committed data (no write-ahead log beside it).
    EXPECT_EQ(q1("PRAGMA main.journal_mode") + q1("PRAGMA main.synchronous"), "delete3");
    EXPECT_EQ(q1("PRAGMA clientes.journal_mode", "external") + q1("PRAGMA clientes.synchronous", "external"),
              "delete3");
}

class TransactionTest : public ShopTest {
protected:
    TransactionTest() : ShopTest(true) {}
    bool insertar(const QString &name)
    {
        return nq("INSERT INTO vendrix_clientes (NOMBRE) VALUES (?)", "internal", {name});
    }
    QStringList nombres() { return filas("SELECT NOMBRE FROM vendrix_clientes ORDER BY ID"); }
};

TEST_F(TransactionTest, LeavingTheScopeUndoesOnlyItsOwnPartAndCommitsSurviveReopening)
{
    {
        Transaction tx(db(), "internal");
        ASSERT_TRUE(insertar("uno"));
    }
    EXPECT_TRUE(nombres().isEmpty());
    {
        Transaction outer(db(), "internal");
        ASSERT_TRUE(insertar("fuera"));
        {
            Transaction inner(db(), "internal");
            ASSERT_TRUE(inner.activa());
            ASSERT_TRUE(insertar("dentro"));
        }
        Transaction inner(db(), "internal");
        ASSERT_TRUE(insertar("guardado"));
        ASSERT_TRUE(inner.commit());
        EXPECT_FALSE(inner.commit());
        ASSERT_TRUE(outer.commit());
    }
    db().cerrar();
    EXPECT_EQ(nombres(), QStringList({"fuera", "guardado"}));
    EXPECT_TRUE(app.op.empty());
    EXPECT_TRUE(app.log_lines().isEmpty());
}

TEST_F(TransactionTest, FailingCommitRollsBackAndFailingBeginLeavesItInactive)
{
    {
        Transaction tx(db(), "internal");
        ASSERT_TRUE(insertar("uno"));
        app.failing_db().fail_nth(1);
        EXPECT_FALSE(tx.commit());
    }
    EXPECT_TRUE(nombres().isEmpty());
    EXPECT_EQ(app.op.shown.size(), 1u);
    ASSERT_EQ(app.log_messages().size(), 1);
    EXPECT_TRUE(app.log_messages().at(0).startsWith("ER EXECNQ - 1 "));

    app.failing_db().fail_nth(1);
    Transaction tx(db(), "internal");
    EXPECT_FALSE(tx.activa());
    EXPECT_FALSE(tx.commit());
}

const QByteArray kNoEsBase = QByteArray("Esto no es una base de datos de Vendrix.\r\n").repeated(200);

// A shop file that is not SQLite, or one of many pages cut short: every
// operation fails and logs, and the file is left as it was to be recovered.
TEST(DatabaseFiles, ShopFileThatIsNotWholeFailsEveryOperation)
{
    QByteArray whole;
    {
        TestApp app;
        app.copy_seed("clientes.install", "clientes.vdrx");
        ejecutar_en_archivo(app.ruta("clientes.vdrx"),
                            {"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000) "
                             "INSERT INTO vendrix_clientes (NOMBRE) SELECT printf('%0200d', i) FROM n",
                             "CREATE TABLE ultima (x)"});
        whole = app.read_file("clientes.vdrx");
    }
    for (const QByteArray &bytes : {kNoEsBase, whole.left(50), whole.left(4096), whole.left(200000)}) {
        SCOPED_TRACE(bytes.size());
        TestApp app;
        app.write_file("clientes.vdrx", bytes);
        Database &db = app.db();
        EXPECT_EQ(db.execQ1("SELECT count(*) FROM vendrix_clientes", "internal"), "");
        EXPECT_EQ(db.execQ("SELECT * FROM vendrix_clientes", "internal"), nullptr);
        EXPECT_FALSE(db.execNQ("DELETE FROM vendrix_clientes", "internal"));
        EXPECT_FALSE(db.existe_campo("vendrix_clientes", "NOMBRE"));
        EXPECT_FALSE(Transaction(db, "internal").activa());
        const QStringList messages = app.log_messages();
        ASSERT_GE(messages.size(), 3);
        EXPECT_TRUE(bytes != kNoEsBase || messages[0].startsWith("ER EXECQ1 - 26 file is not a database"));
        EXPECT_TRUE(app.status.keywords.contains("bug_on"));
        EXPECT_EQ(app.read_file("clientes.vdrx"), bytes);
    }
}

TEST(DatabaseFiles, PriceFileThatIsNotSqliteStopsNeitherTheShopNorTheProgram)
{
    TestApp app;
    app.copy_seed("clientes.install", "clientes.vdrx");
    app.write_file("Vendrix.vdrxdb", kNoEsBase);
    app.write_file("otro.vdrxdb", kNoEsBase);
    EXPECT_NE(app.db().verificar_driver_db(), "OK");
    EXPECT_EQ(app.db().execQ1("SELECT count(*) FROM vendrix_clientes", "internal"), "0");
    EXPECT_EQ(app.db().execQext1("SELECT VALOR FROM xls_parametros", "otro.vdrxdb"), "");
    const QStringList messages = app.log_messages();
    ASSERT_EQ(messages.size(), 2);
    EXPECT_EQ(messages[0], "ER DBCONN001 - No se puede encontrar un controlador/driver para conectarse a la "
                           "base de datos.26 file is not a database verificar_driver_dblos driver instalados "
                           "de 32 bit son: SQLite " +
                               QString::fromLatin1(sqlite3_libversion()) + " -- instalado.");
    EXPECT_TRUE(messages[1].startsWith("ER EXECQEXT1 - 26 file is not a database"));
}

} // namespace
} // namespace vendrix::test
