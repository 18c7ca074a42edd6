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

// The index rows of the three articles below.
const QStringList kTextos{QStringLiteral("1|ÑANDÚ GRUPO  TUBERÍA DE COBRE MARCA A1 "),
                          QStringLiteral("2|ÑANDÚ GRUPO OFERTA LLAVE 100% MARCA A2 "),
                          QStringLiteral("3|ÑANDÚ GRUPO  PINGÜINO MARCA A3 ")};

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

TEST_F(IndiceBusquedaTest, FollowsArticlesAddedAndRemovedAfterTheBuild)
{
    ASSERT_TRUE(
        db_->ejecutar("INSERT INTO xls_listas (Proveedor, Grupo, Codigo, Descripcion, Marca, Precio, Moneda) "
                      "VALUES ('Mi Comercio', 'PROPIOS', 'X1', 'Artículo propio', NULL, '5', '1');"
                      "DELETE FROM xls_listas WHERE ID = 2"));
    ASSERT_TRUE(asegurar_indice_busqueda(db_->db()));
    ASSERT_TRUE(asegurar_indice_busqueda(db_->db())); // nothing left to do
    db_->cerrar();
    EXPECT_EQ(
        filas(path_, "SELECT rowid, texto FROM xls_busqueda ORDER BY rowid"),
        (QStringList{kTextos[0], kTextos[2], QStringLiteral("4|MI COMERCIO PROPIOS  ARTÍCULO PROPIO  X1 ")}));
}

TEST_F(IndiceBusquedaTest, RemakesTheIndexOfAnOlderFormat)
{
    // A file of format 1: accents folded away, no blank at the end, no lookup
    // index, no format key.
    ASSERT_TRUE(
        db_->ejecutar("DELETE FROM xls_busqueda; DROP INDEX xls_listas_proveedor_codigo;"
                      "INSERT INTO xls_busqueda (rowid, texto) VALUES (1, 'ÑANDU GRUPO  TUBERIA DE COBRE'),"
                      " (2, 'ÑANDU GRUPO OFERTA LLAVE 100% MARCA A2'), (3, 'ÑANDU GRUPO  PINGÜINO MARCA A3');"
                      "PRAGMA user_version = 1; DELETE FROM xls_parametros WHERE CLAVE = 'FORMATO'"));
    EXPECT_FALSE(indice_busqueda_al_dia(db_->db()));
    ASSERT_TRUE(asegurar_indice_busqueda(db_->db()));
    EXPECT_TRUE(indice_busqueda_al_dia(db_->db()));
    db_->cerrar();
    EXPECT_EQ(filas(path_, "SELECT rowid, texto FROM xls_busqueda ORDER BY rowid"), kTextos);
    EXPECT_EQ(valor(path_, "PRAGMA user_version"), QStringLiteral("2"));
    EXPECT_EQ(valor(path_, "SELECT VALOR FROM xls_parametros WHERE CLAVE = 'FORMATO'"), QStringLiteral("2"));
    EXPECT_EQ(valor(path_, "SELECT count(*) FROM sqlite_master WHERE name = 'xls_listas_proveedor_codigo'"),
              QStringLiteral("1"));
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
