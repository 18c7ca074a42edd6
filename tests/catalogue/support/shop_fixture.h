#pragma once

// A shop with a small price list and an up-to-date shop database. Articles:
// 1-3 Acme Tornillos T1 (1000 pesos), T2 (1000, reduced rate), T3 (10 dollars);
// 4-6 Acme Tuercas without code (500), R1 twice (100, 120); 7-8 D'Angelo Caños
// C'1 and C2 at 0, only C'1 with a former price; 9 Otro Varios X1 (500 pesos).
#include "catalogue/pricing/supplier_rules/rule_store.h"
#include "core/migrations.h"
#include "support/price_file.h"
#include "support/qt_print.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

namespace vendrix::test {

inline const QString kDAngelo = QStringLiteral("D'Angelo");

inline QStringList articulos_tienda()
{
    return {
        QStringLiteral("INSERT INTO xls_proveedores (Proveedor, Ult_Actualizacion) VALUES "
                       "('Acme', '2026-11-02'), ('D''Angelo', '2026-11-02'), ('Otro', '2026-11-02')"),
        QStringLiteral(
            "INSERT INTO xls_listas (ID, Proveedor, Grupo, Codigo, Descripcion, Marca, UnidaddeMedida, "
            "Precio, Moneda, Observaciones) VALUES "
            "(1, 'Acme', 'Tornillos', 'T1', 'Tornillo 1/4', 'Fix', 'Unidad', '1000', '1', ''), "
            "(2, 'Acme', 'Tornillos', 'T2', 'Tornillo 3/8', 'Fix', 'Unidad', '1000', '101', ''), "
            "(3, 'Acme', 'Tornillos', 'T3', 'Tornillo 1/2', 'Fix', 'Unidad', '10', '2', ''), "
            "(4, 'Acme', 'Tuercas', '', 'Tuerca suelta', '', '', '500', '1', ''), "
            "(5, 'Acme', 'Tuercas', 'R1', 'Tuerca A', '', '', '100', '1', ''), "
            "(6, 'Acme', 'Tuercas', 'R1', 'Tuerca B', '', '', '120', '1', ''), "
            "(7, 'D''Angelo', 'Caños', 'C''1', 'Caño 1/2'' cobre', 'Sur', 'Metro', '0', '1', 'por metro'), "
            "(8, 'D''Angelo', 'Caños', 'C2', 'Caño 3/4', 'Sur', 'Metro', '0', '1', ''), "
            "(9, 'Otro', 'Varios', 'X1', 'Varios', '', '', '500', '1', '')"),
        QStringLiteral("UPDATE xls_listas SET FechaLista = '2026-11-02'"),
        QStringLiteral("INSERT INTO xls_listas_viejos (Proveedor, FechaLista, Grupo, Codigo, Descripcion, "
                       "Precio, Moneda) VALUES ('D''Angelo', '2026-10-01', 'Caños', 'C''1', "
                       "'Caño 1/2'' cobre', '2.5', '2')")};
}

class TiendaConLista : public ::testing::Test {
protected:
    explicit TiendaConLista(bool failing = false) : app(failing) {}

    void SetUp() override
    {
        app.copy_seed(QStringLiteral("clientes.install"), QStringLiteral("clientes.vdrx"));
        ASSERT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
        crear_archivo_de_precios(app.ruta(QStringLiteral("Vendrix.vdrxdb")), articulos_tienda());
        for (const QString &a :
             QStringList{"iva=21", "Valor_Dolar=100", "decimales=2", "redondeo=1", "recargo_tarjeta=10"})
            app.ctx().escribir_parametro(a.section(u'=', 0, 0), a.section(u'=', 1));
        app.op.clear();
        app.status.busy_changes.clear();
        logs_previos_ = app.log_messages().size();
    }

    // The log lines written since the set-up, without their closing full stop.
    QStringList nuevos_logs() const
    {
        QStringList out = app.log_messages().mid(logs_previos_);
        for (QString &linea : out)
            linea.chop(1);
        return out;
    }

    void ajuste(const char *clave, const QString &valor)
    {
        app.ctx().escribir_parametro(QString::fromUtf8(clave), valor);
    }

    void regla(const QString &proveedor, const QString &grupo, const QString &articulo,
               const QString &descuento, const QString &ganancia)
    {
        ASSERT_TRUE(
            app.db().execNQ(QStringLiteral("INSERT INTO vendrix_descuentos (Proveedor, Grupo, Articulo, "
                                           "Descuento, Ganancia, borrable) VALUES (?, ?, ?, ?, ?, 'true')"),
                            QStringLiteral("cliente"), {proveedor, grupo, articulo, descuento, ganancia}));
    }

    // `vendrix_descuentos` in the order written, "Proveedor|Grupo|Articulo|Descuento|Ganancia|borrable".
    QStringList tabla_reglas()
    {
        QStringList out;
        const Matrix m = app.db().execQ_matriz(
            QStringLiteral("SELECT Proveedor, Grupo, Articulo, Descuento, Ganancia, borrable FROM "
                           "vendrix_descuentos ORDER BY rowid"),
            QStringLiteral("cliente"));
        for (int r = 0; r < m.filas(); ++r)
            out << m.fila(r).join(QLatin1Char('|'));
        return out;
    }

    // The rows the grid shows, as "Proveedor|Grupo|Articulo|Descuento|Ganancia".
    static QStringList grilla(const std::vector<RuleRow> &filas)
    {
        QStringList out;
        for (const RuleRow &f : filas)
            out << QStringList{f.proveedor, f.grupo, f.articulo, f.descuento, f.ganancia}.join(
                QLatin1Char('|'));
        return out;
    }

    void llenar() { ASSERT_TRUE(reglas.llenar(app.ctx())); }

    TestApp app;
    RuleStore reglas;

private:
    qsizetype logs_previos_ = 0;
};

} // namespace vendrix::test
