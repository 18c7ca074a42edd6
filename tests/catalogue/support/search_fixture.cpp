#include "catalogue/support/search_fixture.h"

#include "catalogue/pricelist/build/price_file_builder.h"
#include "core/migrations.h"
#include "support/price_file.h"

#include <gtest/gtest.h>

namespace vendrix::test {

CarpetaBusqueda::CarpetaBusqueda(const std::vector<SupplierList> &listas)
{
    const BuildResult built = construir_lista({app.ruta(QLatin1String(Database::kPriceFile)),
                                               QStringLiteral("Demo"),
                                               QStringLiteral("1.0.0"),
                                               QStringLiteral("2026-11-23"),
                                               {},
                                               {}},
                                              listas);
    EXPECT_TRUE(built.ok()) << built.error.toStdString();
    app.copy_seed(QStringLiteral("clientes.install"), QLatin1String(Database::kShopFile));
    const ResultadoMigraciones migrated = ejecutar_migraciones(app.ctx());
    EXPECT_TRUE(migrated.fallidas.isEmpty());
}

void CarpetaBusqueda::marcar(const QString &tipo, const QString &proveedor, const QString &codigo,
                             const QString &descripcion)
{
    EXPECT_TRUE(
        app.db().execNQ(QStringLiteral("INSERT INTO vendrix_articulos_testigo (Proveedor, Codigo, Tipo, "
                                       "Descripcion) VALUES (?, ?, ?, ?)"),
                        QStringLiteral("internal"), {proveedor, codigo, tipo, descripcion}));
}

void CarpetaBusqueda::pedir(const QString &descripcion, const QString &grupo, const QString &estado)
{
    EXPECT_TRUE(app.db().execNQ(
        QStringLiteral("INSERT INTO vendrix_pedidos (Descripcion, Grupo, Estado) VALUES (?, ?, ?)"),
        QStringLiteral("internal"), {descripcion, grupo, estado}));
}

void CarpetaBusqueda::en_precios(const QStringList &statements)
{
    app.db().cerrar();
    ejecutar_en_archivo(app.ruta(QLatin1String(Database::kPriceFile)), statements);
}

} // namespace vendrix::test
