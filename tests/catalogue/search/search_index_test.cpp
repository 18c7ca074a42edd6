#include "catalogue/pricelist/build/price_file_builder.h"
#include "catalogue/pricelist/price_file_connection.h"
#include "catalogue/search/search_index.h"
#include "catalogue/support/list_fixture.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::articulo;
using test::filas;
using test::valor;

// The articles whose indexed text holds a trigram, by ID.
QStringList con(const QString &path, const char *trigram)
{
    return filas(path, (QStringLiteral("SELECT rowid FROM xls_busqueda WHERE xls_busqueda MATCH '\"") +
                        QString::fromUtf8(trigram) + QStringLiteral("\"' ORDER BY rowid"))
                           .toUtf8()
                           .constData());
}

class IndiceBusquedaTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        SupplierList list{
            QStringLiteral("Ñandú"),
            QStringLiteral("2026-11-01"),
            {},
            {},
            {articulo(QStringLiteral("A1"), QStringLiteral("Tubería de cobre"), QStringLiteral("10")),
             articulo(QStringLiteral("A2"), QStringLiteral("Llave 100%"), QStringLiteral("20")),
             articulo(QStringLiteral("A3"), QStringLiteral("Pingüino"), QStringLiteral("30"))}};
        list.articulos[1].observaciones = QStringLiteral("oferta");
        ASSERT_TRUE(construir_lista({path_, {}, {}, QStringLiteral("2026-11-23"), {}, {}}, {list}).ok());
        QString error;
        db_ = PriceFileConnection::abrir(path_, PriceFileConnection::Mode::Crear, error);
        ASSERT_TRUE(db_) << error.toStdString();
    }

    QTemporaryDir dir_;
    QString path_ = dir_.filePath(QStringLiteral("Vendrix.vdrxdb"));
    std::unique_ptr<PriceFileConnection> db_;
};

TEST_F(IndiceBusquedaTest, AddsTheArticlesAfterTheLastOneIndexed)
{
    ASSERT_TRUE(
        db_->ejecutar("INSERT INTO xls_listas (Proveedor, Grupo, Codigo, Descripcion, Marca, Precio, Moneda) "
                      "VALUES ('Mi Comercio', 'PROPIOS', 'X1', 'Artículo propio', NULL, '5', '1');"
                      "DELETE FROM xls_listas WHERE ID = 2"));
    EXPECT_FALSE(indice_busqueda_al_dia(db_->db()));
    ASSERT_TRUE(asegurar_indice_busqueda(db_->db()));
    ASSERT_TRUE(asegurar_indice_busqueda(db_->db())); // nothing left to do
    EXPECT_TRUE(indice_busqueda_al_dia(db_->db()));
    db_->cerrar();
    // Folded, accents kept, each field ending in a blank.
    EXPECT_EQ(con(path_, "ÍCU"), QStringList{"4"});
    EXPECT_EQ(con(path_, "X1 "), QStringList{"4"});
    EXPECT_EQ(con(path_, "ÑAN"), (QStringList{"1", "2", "3"})); // 2 finds no article any more
    EXPECT_EQ(con(path_, "ERI"), QStringList{});
    EXPECT_EQ(valor(path_, "SELECT ultimo_id FROM xls_busqueda_estado"), QStringLiteral("4"));
}

TEST_F(IndiceBusquedaTest, RemakesTheIndexOfAnOlderFormat)
{
    // A file of format 2: the index kept a copy of the text, with positions.
    ASSERT_TRUE(db_->ejecutar(
        "DROP TABLE xls_busqueda; DROP TABLE xls_busqueda_estado; DROP INDEX xls_listas_codigo;"
        "CREATE VIRTUAL TABLE xls_busqueda USING fts5(texto, tokenize='trigram case_sensitive 1');"
        "INSERT INTO xls_busqueda (rowid, texto) VALUES (1, 'ÑANDU GRUPO  TUBERIA DE COBRE');"
        "CREATE INDEX xls_listas_proveedor_codigo ON xls_listas (Proveedor, Codigo);"
        "PRAGMA user_version = 2; DELETE FROM xls_parametros WHERE CLAVE = 'FORMATO'"));
    EXPECT_FALSE(indice_busqueda_al_dia(db_->db()));
    ASSERT_TRUE(asegurar_indice_busqueda(db_->db()));
    EXPECT_TRUE(indice_busqueda_al_dia(db_->db()));
    db_->cerrar();
    EXPECT_EQ(con(path_, "ERÍ"), QStringList{"1"});
    EXPECT_EQ(con(path_, "0% "), QStringList{"2"});
    EXPECT_EQ(valor(path_, "SELECT count(*) FROM sqlite_master WHERE name = 'xls_busqueda' AND "
                           "sql LIKE '%detail=none%'"),
              QStringLiteral("1"));
    EXPECT_EQ(valor(path_, "PRAGMA user_version"), QStringLiteral("3"));
    EXPECT_EQ(valor(path_, "SELECT VALOR FROM xls_parametros WHERE CLAVE = 'FORMATO'"), QStringLiteral("3"));
    // The lookup by code replaces the one by supplier and code.
    EXPECT_EQ(valor(path_, "SELECT group_concat(name) FROM sqlite_master WHERE tbl_name = 'xls_listas' AND "
                           "type = 'index'"),
              QStringLiteral("xls_listas_codigo"));
}

TEST_F(IndiceBusquedaTest, ChangesNothingWhenItFails)
{
    ASSERT_TRUE(db_->ejecutar("DROP TABLE xls_busqueda; BEGIN"));
    ASSERT_TRUE(asegurar_indice_busqueda(db_->db()));
    ASSERT_TRUE(db_->ejecutar("ROLLBACK")); // it joins the caller's transaction
    ASSERT_TRUE(db_->ejecutar("ALTER TABLE xls_listas RENAME TO otra"));
    EXPECT_FALSE(asegurar_indice_busqueda(db_->db()));
    db_->cerrar();
    EXPECT_EQ(valor(path_, "SELECT count(*) FROM sqlite_master WHERE name = 'xls_busqueda'"),
              QStringLiteral("0"));
    EXPECT_FALSE(indice_busqueda_al_dia(nullptr));
    EXPECT_FALSE(asegurar_indice_busqueda(nullptr));
}

} // namespace
} // namespace vendrix
