#pragma once

// A shop for the cart tests: the shop database brought up to date, a small
// price list, IVA at 0 so that a final price is the list price, and two
// decimals with standard rounding.
#include "core/migrations.h"
#include "sales/articulo_carrito.h"
#include "sales/carrito.h"
#include "support/price_file.h"
#include "support/qt_print.h"
#include "support/test_context.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vendrix::test {

class Tienda : public ::testing::Test {
protected:
    explicit Tienda(bool failing = false) : app(failing) {}

    // Articles of the list, as "ID, 'Proveedor', 'Grupo', 'Codigo', 'Descripcion', 'Precio', 'Moneda'".
    virtual QStringList articulos() const
    {
        return {"(1, 'Acme', 'Tornillos', 'T1', 'Tornillo 1/4', '600', '1')",
                "(2, 'Acme', 'Tornillos', 'T2', 'Tornillo 3/8', '1000', '1')"};
    }

    void SetUp() override
    {
        app.copy_seed(QStringLiteral("clientes.install"), QStringLiteral("clientes.vdrx"));
        ASSERT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
        crear_archivo_de_precios(
            app.ruta(QStringLiteral("Vendrix.vdrxdb")),
            {"INSERT INTO xls_listas (ID, Proveedor, Grupo, Codigo, Descripcion, Precio, "
             "Moneda) VALUES " +
             articulos().join(QStringLiteral(", "))});
        for (const QString &a :
             QStringLiteral("iva=0|decimales=2|redondeo=1|Valor_Dolar=1000|IF_desc_art=Descripción")
                 .split(QLatin1Char('|')))
            app.ctx().escribir_parametro(a.section(QLatin1Char('='), 0, 0), a.section(QLatin1Char('='), 1));
        // The tests read only what the operations log.
        QFile::remove(app.ruta(QStringLiteral("vendrix.log")));
        app.op.clear();
        app.status.busy_changes.clear();
    }

    void ajuste(const char *clave, const char *valor)
    {
        app.ctx().escribir_parametro(QString::fromUtf8(clave), QString::fromUtf8(valor));
    }

    void regla(const char *proveedor, const char *descuento, const char *ganancia)
    {
        ASSERT_TRUE(app.db().execNQ("INSERT INTO vendrix_descuentos (Proveedor, Grupo, Articulo, Descuento, "
                                    "Ganancia, borrable) VALUES (?, 'General para la lista', 'Todos los "
                                    "articulos del grupo', ?, ?, 'true')",
                                    QStringLiteral("cliente"), {proveedor, descuento, ganancia}));
    }

    // The log messages of one level ("ACT", "INF", "ERR"), without date and closing point.
    QStringList log_de(const char *nivel) const
    {
        const QString marca = "] [" + QString::fromUtf8(nivel) + "] - ";
        QStringList out;
        for (const QString &line : app.log_lines())
            if (const qsizetype at = line.indexOf(marca); at >= 0)
                out << line.mid(at + marca.size()).chopped(1);
        return out;
    }

    // Article 1 of the list as the dialogs take it, with the panel's figures.
    static ArticuloParaCarrito tornillo(const char *precio = "600")
    {
        // id, group, supplier, code, description, brand, unit, currency, price, margin,
        // discount, customer discount, cost, prices shown, IVA.
        return {1,      "Tornillos", "Acme", "T1", "Tornillo 1/4", "Fixa", "Caja", "1",
                precio, "30",        "10+5", "0",  "384,62",       {},     {},     21};
    }

    // The rows of the units memory, as "supplier|code|units".
    QStringList unidades_guardadas()
    {
        const Matrix m = app.db().execQ_matriz(
            "SELECT Proveedor, Codigo, Unidades FROM vendrix_unidades_articulo", QStringLiteral("cliente"));
        QStringList out;
        for (int fila = 0; fila < m.filas(); ++fila)
            out << m.fila(fila).join(QLatin1Char('|'));
        return out;
    }

    // A cart line from its thirteen cells, given as one text split at "|".
    static LineaCarrito linea(const QString &celdas)
    {
        LineaCarrito l;
        const QStringList partes = celdas.split(QLatin1Char('|'));
        std::copy(partes.begin(), partes.end(), l.begin());
        return l;
    }

    static QString celdas(const Carrito &carrito, int fila)
    {
        const LineaCarrito &l = carrito.linea(fila);
        return QStringList(l.begin(), l.end()).join(QLatin1Char('|'));
    }

    TestApp app;
};

} // namespace vendrix::test
