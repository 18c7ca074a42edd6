#pragma once

#include "catalogue/pricelist/price_file_format.h"
#include "catalogue/search/grid_rows.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

#include <QString>
#include <QStringList>

#include <vector>

namespace vendrix::test {

// A grid that keeps what the fillers put in it.
class GrillaRecogida final : public GridSink {
public:
    void limpiar() override
    {
        filas.clear();
        ++limpiezas;
    }
    void redibujar(bool on) override { redibujos.push_back(on); }
    void agregar(const ListGridRow &fila) override { filas.push_back(fila); }

    // "cell|cell|..." per row, or only cell `columna` of each row.
    QStringList celdas(int columna = -1) const
    {
        QStringList rows;
        for (const ListGridRow &f : filas)
            rows << (columna < 0 ? f.celdas.join(QLatin1Char('|')) : f.celdas.value(columna));
        return rows;
    }

    std::vector<ListGridRow> filas;
    int limpiezas = 0;
    std::vector<bool> redibujos;
};

// An application folder with a price file built from the given lists and
// the shop database at today's shape, for searching.
class CarpetaBusqueda {
public:
    explicit CarpetaBusqueda(const std::vector<SupplierList> &listas);

    Context &ctx() { return app.ctx(); }
    // A mark of `vendrix_articulos_testigo` ("F", "C", "T" or "U" with its comment).
    void marcar(const QString &tipo, const QString &proveedor, const QString &codigo,
                const QString &descripcion = {});
    void pedir(const QString &descripcion, const QString &grupo, const QString &estado);
    // Statements straight on the price file (closing the program's connections first).
    void en_precios(const QStringList &statements);
    void opcion(const char *key, const char *value)
    {
        EXPECT_TRUE(app.ctx().escribir_parametro(QLatin1String(key), QString::fromUtf8(value)));
    }

    TestApp app;
};

} // namespace vendrix::test
