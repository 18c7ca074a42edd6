#pragma once

// A shop database fresh from its migrations with a few customers and
// suppliers, for the tab's and the add form's tests.
#include "core/db_helpers.h"
#include "core/migrations.h"
#include "core/rows.h"

namespace vendrix::test {

class Clientes : public ::testing::Test {
protected:
    Clientes() : app(true)
    {
        app.copy_seed("clientes.install", "clientes.vdrx");
        EXPECT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
        // name, CUIT, address, kind, BORRABLE, IVA condition, document type, discount
        EXPECT_TRUE(app.db().execNQ(
            "INSERT INTO vendrix_clientes (NOMBRE, CUIT, DIRECCION, TIPO_RECORD, BORRABLE, TIPO, TIPO_DOC, "
            "DESCUENTO) VALUES ('MUÑOZ SRL', '30-11111111-8', 'Mitre 10', 'Cliente', NULL, 'I - IVA "
            "RESPONSABLE "
            "INSCRIPTO', 'CUIT', 5), ('Pérez Juan', '20-12345678-6', NULL, 'Cliente', '', NULL, 'CUIT', "
            "NULL), "
            "('Ana Gómez', '25123456', 'Sarmiento 5', 'Cliente', '', 'F - CONSUMIDOR FINAL', 'DNI', 2.5), "
            "('Bulonera', NULL, NULL, 'Proveedor Mercadería', 'N', NULL, NULL, NULL), ('Fletes Sur', "
            "'30-22222222-0', 'Ruta 3', 'Proveedor Servicios', '', 'M - RESPONSABLE MONOTRIBUTO', 'CUIT', 0)",
            "internal"));
        app.op.clear();
        app.status.busy_changes.clear();
    }

    QString id_de(const QString &nombre)
    {
        return app.db().execQ1("SELECT ID FROM vendrix_clientes WHERE NOMBRE = ?", "internal", {nombre});
    }
    QStringList tabla(const QString &sql) { return filas(app.db(), sql); }

    TestApp app;
};

} // namespace vendrix::test
