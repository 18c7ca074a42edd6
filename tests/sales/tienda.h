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

#include <initializer_list>

namespace vendrix::test {

class Tienda : public ::testing::Test {
protected:
    explicit Tienda(bool failing = false) : app(failing) {}

    // Articles of the list, as "ID, 'Proveedor', 'Grupo', 'Codigo', 'Descripcion', 'Precio', 'Moneda'".
    virtual QStringList articulos() const
    {
        return {QStringLiteral("(1, 'Acme', 'Tornillos', 'T1', 'Tornillo 1/4', '600', '1')"),
                QStringLiteral("(2, 'Acme', 'Tornillos', 'T2', 'Tornillo 3/8', '1000', '1')")};
    }

    void SetUp() override
    {
        app.copy_seed(QStringLiteral("clientes.install"), QStringLiteral("clientes.vdrx"));
        ASSERT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
        crear_archivo_de_precios(
            app.ruta(QStringLiteral("Vendrix.vdrxdb")),
            {QStringLiteral("INSERT INTO xls_listas (ID, Proveedor, Grupo, Codigo, Descripcion, "
                            "Precio, Moneda) VALUES ") +
             articulos().join(QStringLiteral(", "))});
        ajuste("iva", "0");
        ajuste("decimales", "2");
        ajuste("redondeo", "1");
        ajuste("Valor_Dolar", "1000");
        ajuste("IF_desc_art", "Descripción");
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
        ASSERT_TRUE(
            app.db().execNQ(QStringLiteral("INSERT INTO vendrix_descuentos (Proveedor, Grupo, Articulo, "
                                           "Descuento, Ganancia, borrable) VALUES (?, ?, ?, ?, ?, 'true')"),
                            QStringLiteral("cliente"),
                            {QString::fromUtf8(proveedor), QStringLiteral("General para la lista"),
                             QStringLiteral("Todos los articulos del grupo"), QString::fromUtf8(descuento),
                             QString::fromUtf8(ganancia)}));
    }

    // The log messages written at one level ("ACT", "INF", "ERR"), without
    // the date and the closing point.
    QStringList log_de(const char *nivel) const
    {
        const QString marca = QStringLiteral("] [") + QString::fromUtf8(nivel) + QStringLiteral("] - ");
        QStringList out;
        for (const QString &line : app.log_lines()) {
            const qsizetype at = line.indexOf(marca);
            if (at >= 0)
                out << line.mid(at + marca.size()).chopped(1);
        }
        return out;
    }

    // Article 1 of the list as the dialogs take it: a pack of the given
    // price with the panel's figures.
    static ArticuloParaCarrito tornillo(const char *precio = "600")
    {
        ArticuloParaCarrito a;
        a.id = 1;
        a.grupo = QStringLiteral("Tornillos");
        a.proveedor = QStringLiteral("Acme");
        a.codigo = QStringLiteral("T1");
        a.descripcion = QStringLiteral("Tornillo 1/4");
        a.marca = QStringLiteral("Fixa");
        a.unidad = QStringLiteral("Caja");
        a.moneda = QStringLiteral("1");
        a.precio_lista = QString::fromUtf8(precio);
        a.ganancia = QStringLiteral("30");
        a.descuento = QStringLiteral("10+5");
        a.descuento_cliente = QStringLiteral("0");
        a.costo = QStringLiteral("384,62");
        a.iva = 21;
        return a;
    }

    // The rows of the units memory, as "supplier|code|units".
    QStringList unidades_guardadas()
    {
        const Matrix m = app.db().execQ_matriz(QStringLiteral("SELECT Proveedor, Codigo, Unidades FROM "
                                                              "vendrix_unidades_articulo"),
                                               QStringLiteral("cliente"));
        QStringList out;
        for (int fila = 0; fila < m.filas(); ++fila)
            out << m.fila(fila).join(QLatin1Char('|'));
        return out;
    }

    // A cart line from its thirteen cells.
    static LineaCarrito linea(std::initializer_list<const char *> celdas)
    {
        LineaCarrito l;
        size_t i = 0;
        for (const char *c : celdas)
            l[i++] = QString::fromUtf8(c);
        return l;
    }

    static QStringList celdas(const Carrito &carrito, int fila)
    {
        QStringList out;
        for (const QString &c : carrito.linea(fila))
            out << c;
        return out;
    }

    TestApp app;
};

} // namespace vendrix::test
