// Transactions, and files that are not databases or no longer whole ones.
#include "db_helpers.h"

#include <sqlite3.h>

namespace vendrix::test {
namespace {

class TransactionTest : public ShopTest {
protected:
    TransactionTest() : ShopTest(true) {}
    bool insertar(const QString &name)
    {
        return nq("INSERT INTO vendrix_clientes (NOMBRE) VALUES (?)", "internal", {name});
    }
    QStringList nombres() { return filas("SELECT NOMBRE FROM vendrix_clientes ORDER BY ID"); }
};

TEST_F(TransactionTest, LeavingTheScopeWithoutCommitLeavesNothing)
{
    {
        Transaction tx(db(), "internal");
        ASSERT_TRUE(insertar("uno"));
        ASSERT_TRUE(insertar("dos"));
        EXPECT_EQ(nombres(), QStringList({"uno", "dos"})); // seen inside
    }
    EXPECT_TRUE(nombres().isEmpty());
    EXPECT_TRUE(app.op.empty());
    EXPECT_TRUE(app.log_lines().isEmpty());
}

TEST_F(TransactionTest, NestedTransactionUndoesOnlyItsOwnPartAndCommitsSurviveReopening)
{
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
        EXPECT_TRUE(messages[0].startsWith("ER EXECQ1 - ")) << messages[0].toStdString();
        EXPECT_TRUE(messages[1].startsWith("ER EXECQ - "));
        EXPECT_TRUE(messages[2].startsWith("ER EXECNQ - "));
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

TEST(DatabaseFiles, EmptyShopFileIsAnEmptyDatabase)
{
    TestApp app;
    app.write_file("clientes.vdrx", QByteArray());
    EXPECT_FALSE(app.db().existe_tabla("vendrix_clientes", "internal"));
}

} // namespace
} // namespace vendrix::test
