#pragma once

// A shop for the cart tests: the shop fixture of the catalogue with its list
// replaced by a small one of Acme's, IVA at 0 so that a final price is the
// list price.
#include "catalogue/support/shop_fixture.h"
#include "core/db_helpers.h"
#include "sales/articulo_carrito.h"
#include "sales/carrito.h"

#include <QFile>

namespace vendrix::test {

class Tienda : public TiendaConLista {
protected:
    using TiendaConLista::TiendaConLista;

    // Articles of the list, as "ID, 'Proveedor', 'Grupo', 'Codigo', 'Descripcion', 'Precio', 'Moneda'".
    virtual QStringList articulos() const
    {
        return {"(1, 'Acme', 'Tornillos', 'T1', 'Tornillo 1/4', '600', '1')",
                "(2, 'Acme', 'Tornillos', 'T2', 'Tornillo 3/8', '1000', '1')"};
    }

    void SetUp() override
    {
        TiendaConLista::SetUp();
        ejecutar_en_archivo(app.ruta(QStringLiteral("Vendrix.vdrxdb")),
                            {"DELETE FROM xls_listas", "DELETE FROM xls_listas_viejos",
                             "DELETE FROM xls_proveedores WHERE Proveedor <> 'Acme'",
                             "INSERT INTO xls_listas (ID, Proveedor, Grupo, Codigo, Descripcion, Precio, "
                             "Moneda) VALUES " +
                                 articulos().join(QStringLiteral(", "))});
        ajuste("iva", "0");
        ajuste("Valor_Dolar", "1000");
        ajuste("IF_desc_art", "Descripción");
        // The tests read only what the operations log.
        QFile::remove(app.ruta(QStringLiteral("vendrix.log")));
    }

    void regla(const char *proveedor, const char *descuento, const char *ganancia)
    {
        TiendaConLista::regla(proveedor, "General para la lista", "Todos los articulos del grupo", descuento,
                              ganancia);
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
        return filas(app.db(), "SELECT Proveedor, Codigo, Unidades FROM vendrix_unidades_articulo",
                     "cliente");
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
};

} // namespace vendrix::test
