// Files that are not databases, or no longer whole ones.
#include "support/price_file.h"
#include "support/qt_print.h"
#include "support/test_context.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace vendrix::test {
namespace {

QByteArray no_es_base()
{
    return QByteArray("Esto no es una base de datos de Vendrix.\r\n").repeated(200);
}

// A shop database of many pages, cut to `bytes`.
QByteArray cortada(TestApp &app, qint64 bytes)
{
    app.copy_seed(QStringLiteral("clientes.install"), QStringLiteral("clientes.vdrx"));
    ejecutar_en_archivo(
        app.ruta(QStringLiteral("clientes.vdrx")),
        {QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
                        "2000) INSERT INTO vendrix_clientes (NOMBRE) SELECT printf('%0200d', i) "
                        "FROM n"),
         QStringLiteral("CREATE TABLE ultima (x)")});
    return app.read_file(QStringLiteral("clientes.vdrx")).left(bytes);
}

void espera_falla_de_tienda(TestApp &app)
{
    Database &db = app.db();
    const QString shop = QStringLiteral("internal");
    EXPECT_EQ(db.execQ1(QStringLiteral("SELECT count(*) FROM vendrix_clientes"), shop), "");
    EXPECT_TRUE(db.execQ_matriz(QStringLiteral("SELECT * FROM vendrix_clientes"), shop).vacia());
    EXPECT_EQ(db.execQ(QStringLiteral("SELECT * FROM vendrix_clientes"), shop), nullptr);
    EXPECT_FALSE(db.execNQ(QStringLiteral("DELETE FROM vendrix_clientes"), shop));
    EXPECT_FALSE(db.existe_tabla(QStringLiteral("vendrix_clientes"), shop));
    EXPECT_FALSE(db.existe_campo(QStringLiteral("vendrix_clientes"), QStringLiteral("NOMBRE")));
    EXPECT_FALSE(db.error_apertura(shop).isEmpty());
    {
        Transaction tx(db, shop);
        EXPECT_FALSE(tx.activa());
    }
    const QStringList messages = app.log_messages();
    ASSERT_GE(messages.size(), 4);
    EXPECT_TRUE(messages[0].startsWith(QStringLiteral("ER EXECQ1 - "))) << messages[0].toStdString();
    EXPECT_TRUE(messages[1].startsWith(QStringLiteral("ER EXECQ1 - ")));
    EXPECT_TRUE(messages[2].startsWith(QStringLiteral("ER EXECQ - ")));
    EXPECT_TRUE(messages[3].startsWith(QStringLiteral("ER EXECNQ - ")));
    EXPECT_TRUE(app.status.keywords.contains(QStringLiteral("bug_on")));
}

TEST(DatabaseFiles, ShopFileThatIsNotSqlite)
{
    TestApp app;
    app.write_file(QStringLiteral("clientes.vdrx"), no_es_base());
    espera_falla_de_tienda(app);
    EXPECT_TRUE(app.log_messages().at(0).startsWith(QStringLiteral("ER EXECQ1 - 26 file is not a database")));
    // The file is left as it was for the operator to recover.
    EXPECT_EQ(app.read_file(QStringLiteral("clientes.vdrx")), no_es_base());
}

TEST(DatabaseFiles, EmptyShopFileIsAnEmptyDatabase)
{
    TestApp app;
    app.write_file(QStringLiteral("clientes.vdrx"), QByteArray());
    EXPECT_FALSE(app.db().existe_tabla(QStringLiteral("vendrix_clientes"), QStringLiteral("internal")));
    EXPECT_EQ(
        app.db().execQ1(QStringLiteral("SELECT count(*) FROM vendrix_clientes"), QStringLiteral("internal")),
        "");
}

TEST(DatabaseFiles, TruncatedShopFile)
{
    for (qint64 bytes : {50, 150, 4096, 200000}) {
        TestApp app;
        const QByteArray cut = cortada(app, bytes);
        app.write_file(QStringLiteral("clientes.vdrx"), cut);
        espera_falla_de_tienda(app);
        EXPECT_EQ(app.read_file(QStringLiteral("clientes.vdrx")).size(), bytes);
    }
}

TEST(DatabaseFiles, PriceFileThatIsNotSqliteStopsNeitherTheShopNorTheProgram)
{
    TestApp app;
    app.copy_seed(QStringLiteral("clientes.install"), QStringLiteral("clientes.vdrx"));
    app.write_file(QStringLiteral("Vendrix.vdrxdb"), no_es_base());
    EXPECT_NE(app.db().verificar_driver_db(), "OK");
    EXPECT_EQ(app.db().execQ1(QStringLiteral("SELECT count(*) FROM xls_listas"), QStringLiteral("external")),
              "");
    EXPECT_EQ(
        app.db().execQ1(QStringLiteral("SELECT count(*) FROM vendrix_clientes"), QStringLiteral("internal")),
        "0");
    const QStringList messages = app.log_messages();
    ASSERT_EQ(messages.size(), 2);
    EXPECT_EQ(messages[0],
              "ER DBCONN001 - No se puede encontrar un controlador/driver para conectarse a la base de "
              "datos.26 file is not a database verificar_driver_dblos driver instalados de 32 bit son: "
              "SQLite " +
                  QString::fromLatin1(sqlite3_libversion()) + " -- instalado.");
    EXPECT_TRUE(messages[1].startsWith(QStringLiteral("ER EXECQ1 - 26 file is not a database")));
}

TEST(DatabaseFiles, QueryOnAnotherFileThatIsNotSqlite)
{
    TestApp app;
    app.write_file(QStringLiteral("otro.vdrxdb"), no_es_base());
    EXPECT_EQ(
        app.db().execQext1(QStringLiteral("SELECT VALOR FROM xls_parametros"), QStringLiteral("otro.vdrxdb")),
        "");
    ASSERT_EQ(app.log_messages().size(), 1);
    EXPECT_TRUE(
        app.log_messages().at(0).startsWith(QStringLiteral("ER EXECQEXT1 - 26 file is not a database")));
}

} // namespace
} // namespace vendrix::test
