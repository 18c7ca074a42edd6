// The customers and suppliers tab in the main window, as a new user tries
// it: add a customer, find it by name and CUIT, change it, delete it; see a
// customer stored by a sale and the suppliers of an imported list.
#include "core/migrations.h"
#include "core/startup_import.h"
#include "sales/checkout/customers.h"
#include "screens/customers/customers_tab.h"
#include "screens/main_window/frm_main.h"
#include "screens/pantalla.h"
#include "support/price_file.h"
#include "support/test_context.h"
#include "widgets/lynx_grid.h"

#include <QTabWidget>

namespace vendrix::screens {
namespace {

TEST(ClientesYProveedores, ANewUserAddsFindsChangesAndDeletesACustomer)
{
    test::TestApp app;
    app.copy_seed("clientes.install", "clientes.vdrx");
    ASSERT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
    const QString lista = app.ruta("nueva.vdrxdb");
    test::crear_archivo_de_precios(lista, {"INSERT INTO xls_proveedores (Proveedor) VALUES ('Bulonera')"});
    app.op.answer(true);
    ASSERT_EQ(importar_listas(app.ctx(), lista), FinImportacion::continuar);
    ASSERT_TRUE(guardar_cliente(
        app.ctx(),
        {"Gómez Ana", "27-22222222-6", "Belgrano 3", "", "0", "F - CONSUMIDOR FINAL", "CUIT", "", ""}, 0));
    FrmMain window(app.ctx());
    window.cargar();
    window.show();
    window.pestanas()->setCurrentIndex(FrmMain::kTabCliPro);
    app.op.clear();
    const auto boton = [&](const char *nombre) { return test::hijo<QPushButton>(window, nombre); };
    const auto caja = [&](const char *nombre) { return test::hijo(window, nombre); };
    widgets::LynxGrid &grilla = *window.findChild<CustomersTab *>()->grilla();
    const auto buscar = [&](const char *tipo, const char *texto) {
        test::hijo<QComboBox>(window, "Combo_clienteoproveedor")->setCurrentText(QString::fromUtf8(tipo));
        caja("Text_clienteproveedorbuscar")->clear();
        test::escribir(caja("Text_clienteproveedorbuscar"), QString::fromUtf8(texto));
        QTest::keyClick(caja("Text_clienteproveedorbuscar"), Qt::Key_Return);
    };

    test::en_el_dialogo<QDialog>([](QDialog &d) {
        // QTest types ASCII keys only.
        QLineEdit *nombre = test::hijo(d, "Text_razonsocialcliente");
        nombre->setFocus();
        nombre->insert("Pérez Juan");
        test::escribir(test::hijo(d, "TextBox_doccliente"), "20-12345678-6");
        test::hijo<QPushButton>(d, "Command_clipro_salvar")->click();
    });
    boton("Command_addClipro")->click();
    EXPECT_EQ(
        app.op.lines(),
        QStringList{"inform|Agregar Cliente / Proveedor|Se registro correctamente el Cliente 'Pérez Juan'."});

    buscar("Cliente", "juan 20-12");
    ASSERT_EQ(grilla.Rows(), 1);

    test::escribir(caja("TextBox_domicilioCliente"), "Mitre 250");
    ASSERT_TRUE(boton("Command_clipro_salvar")->isEnabled());
    app.op.answer(true);
    boton("Command_clipro_salvar")->click();
    EXPECT_EQ(app.op.lines().last(),
              "inform|Salvar Cliente / Proveedor|Se modificaron los datos seleccionados.");
    EXPECT_EQ(
        app.db().execQ1("SELECT DIRECCION FROM vendrix_clientes WHERE NOMBRE = 'Pérez Juan'", "internal"),
        "Mitre 250");

    app.op.answer(true);
    boton("Command_clipro_borrar")->click();
    EXPECT_EQ(grilla.Rows(), 0);
    EXPECT_EQ(
        app.db().execQ1("SELECT count(*) FROM vendrix_clientes WHERE NOMBRE = 'Pérez Juan'", "internal"),
        "0");

    // The customer of a sale; the suppliers of the list, which stay.
    buscar("Cliente", "");
    ASSERT_EQ(grilla.Rows(), 1);
    EXPECT_EQ(grilla.CellText(0, 2), "Gómez Ana");
    buscar("Proveedor Mercadería", "");
    ASSERT_EQ(grilla.Rows(), 1);
    EXPECT_EQ(QStringList({grilla.CellText(0, 1), grilla.CellText(0, 2), caja("Text_tipocliente")->text()}),
              QStringList({"N", "Bulonera", "Proveedor Mercadería"}));
    EXPECT_FALSE(boton("Command_clipro_borrar")->isEnabled());

    // With completion on, the names complete in the search box.
    app.ctx().escribir_parametro("busqueda_autocompletar", "1");
    caja("Text_clienteproveedorbuscar")->clear();
    test::escribir(caja("Text_clienteproveedorbuscar"), "bul");
    EXPECT_EQ(caja("Text_clienteproveedorbuscar")->text(), "bulonera");
}

} // namespace
} // namespace vendrix::screens
