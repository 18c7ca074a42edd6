// The add form without its widgets: the starting values, the warnings on
// leaving each box, the refusals and the stored record.
#include "backoffice/customers/customer_book.h"
#include "backoffice/customers/new_customer_form.h"
#include "customers_fixture.h"

namespace vendrix::test {
namespace {

using NewCustomerFormTest = Clientes;

TEST_F(NewCustomerFormTest, EachBoxWarnsWithItsTextAndNeverBlocks)
{
    NewCustomerForm form(app.ctx(), "Cliente");
    const QString cuit_malo = "El CUIT ingresado es Incorrecto. Ingrese el cuit con el formato:\r\n\r\n"
                              "NN-NNNNNNNN-N";
    // clang-format off
    for (const auto &[caja, valor, aviso] : Rows<char, QString, QString>{
             {'n', "juan", "Existe ya un cliente con nombre 'juan' y documento '20-12345678-6'. Antes de insertarlo nuevamente, controle que no sea un duplicado."},
             {'n', "Bulonera", ""},   // a supplier of the lists has no document
             {'c', "20-12345678-6", "Existe ya un cliente con CUIT 20-12345678-6."},
             {'d', "25123456", "Existe ya un cliente con DNI 25123456."},
             {'c', "25123456", cuit_malo},
             {'%', "diez", "El valor del descuento cliente no es un númerico."},
             {'%', "101", "El valor del descuento cliente tiene que ser positivo y menor de 100."},
             {'@', "juan.perez", "El contenido del campo 'Email' no parece ser válido."},}) {
        // clang-format on
        app.op.clear();
        if (caja == 'n')
            form.salir_razon_social(valor);
        else if (caja == 'c' || caja == 'd')
            EXPECT_EQ(form.salir_documento(caja == 'c' ? "CUIT" : "DNI", valor),
                      aviso == cuit_malo ? "" : valor);
        else if (caja == '%')
            form.salir_descuento(valor);
        else
            form.salir_email(valor);
        EXPECT_EQ(app.op.texts().join('|'), aviso) << valor.toStdString();
    }
}

TEST_F(NewCustomerFormTest, RefusesAnEmptyDocumentOrNameAndStoresTheRestQuotesIncluded)
{
    NewCustomerForm form(app.ctx(), "Proveedor Servicios");
    const QStringList antes = tabla("SELECT * FROM vendrix_clientes");
    FichaClipro f = form.inicial();
    EXPECT_FALSE(form.salvar(f));
    f.documento = "20-11111111-2";
    EXPECT_FALSE(form.salvar(f));
    EXPECT_EQ(
        app.op.lines(),
        QStringList({"error|Error al insertar datos|No se pueden insertar los datos con el número de "
                     "documento vacío.",
                     "error|Error al insertar datos|No se pueden insertar los datos con la razón social "
                     "vacía."}));
    EXPECT_EQ(tabla("SELECT * FROM vendrix_clientes"), antes);

    // A name with a quote is stored, found, and seen by both checks.
    app.op.clear();
    f.razon_social = "D'Angelo Hnos";
    f.descuento = "x";
    f.telefono = "011-4444";
    f.email = "da@norte";
    ASSERT_TRUE(form.salvar(f));
    form.salir_razon_social("d'angelo");
    form.salir_documento("CUIT", "20-11111111-2");
    EXPECT_EQ(
        app.op.lines(),
        QStringList({"inform|Agregar Cliente / Proveedor|Se registro correctamente el Proveedor Servicios "
                     "'D'Angelo Hnos'.",
                     "warn|Vendrix|Existe ya un cliente con nombre 'd'angelo' y documento '20-11111111-2'. "
                     "Antes de insertarlo nuevamente, controle que no sea un duplicado.",
                     "warn|Vendrix|Existe ya un cliente con CUIT 20-11111111-2."}));
    EXPECT_EQ(
        tabla("SELECT NOMBRE, CUIT, DESCUENTO, TIPO, TIPO_DOC, TIPO_RECORD, EMAIL, BORRABLE, TELEFONO FROM "
              "vendrix_clientes WHERE ID = (SELECT MAX(ID) FROM vendrix_clientes)"),
        QStringList{"D'Angelo Hnos|20-11111111-2|0|F - CONSUMIDOR FINAL|CUIT|Proveedor Servicios|da@norte||"
                    "011-4444"});
    CustomerBook book(app.ctx());
    EXPECT_EQ(book.buscar_clipro("Proveedor", "d'angelo hnos 20-1")->front().section('\t', 2, 2),
              "D'Angelo Hnos");
}

} // namespace
} // namespace vendrix::test
