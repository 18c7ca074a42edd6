// The add form without its widgets: the starting values, the warnings on
// leaving each box, the refusals and the stored record.
#include "backoffice/customers/customer_book.h"
#include "backoffice/customers/new_customer_form.h"
#include "customers_fixture.h"

namespace vendrix::test {
namespace {

using NewCustomerFormTest = Clientes;

TEST_F(NewCustomerFormTest, StartsOnTheTabsKindWithoutDiscountForSuppliersOfGoods)
{
    for (const auto &[tipo, empieza, descuento] :
         Rows<QString, QString, QString>{{"Cliente", "Cliente", "0"},
                                         {"Proveedor Servicios", "Proveedor Servicios", "0"},
                                         {"Proveedor Mercadería", "Proveedor Mercadería", ""},
                                         {"", "Cliente", "0"}}) {
        NewCustomerForm form(app.ctx(), tipo);
        const FichaClipro &f = form.inicial();
        EXPECT_EQ(QStringList({f.tipo, f.descuento, f.tipo_doc, f.condicion_iva, f.razon_social}),
                  QStringList({empieza, descuento, "CUIT", "F - CONSUMIDOR FINAL", ""}));
        EXPECT_EQ(form.descuento_habilitado(), !descuento.isEmpty());
    }
    EXPECT_EQ(app.log_messages().last(), "Inicializando los controles del alta de Cli/pro.");
    NewCustomerForm form(app.ctx(), "Cliente");
    EXPECT_EQ(form.elegir_tipo("Proveedor Mercadería", "5"), "");
    EXPECT_FALSE(form.descuento_habilitado());
    EXPECT_EQ(form.elegir_tipo("Proveedor Varios", "5"), "5");
    EXPECT_TRUE(form.descuento_habilitado());
}

TEST_F(NewCustomerFormTest, EachBoxWarnsWithItsTextAndNeverBlocks)
{
    NewCustomerForm form(app.ctx(), "Cliente");
    const QString cuit_malo = "El CUIT ingresado es Incorrecto. Ingrese el cuit con el formato:\r\n\r\n"
                              "NN-NNNNNNNN-N";
    // clang-format off
    for (const auto &[caja, valor, aviso] : Rows<char, QString, QString>{
             {'n', "juan", "Existe ya un cliente con nombre 'juan' y documento '20-12345678-6'. Antes de insertarlo nuevamente, controle que no sea un duplicado."},
             {'n', "muñoz", "Existe ya un cliente con nombre 'muñoz' y documento '30-11111111-8'. Antes de insertarlo nuevamente, controle que no sea un duplicado."},
             {'n', "Bulonera", ""},   // a supplier of the lists has no document
             {'n', "Nadie", ""},
             {'c', "20-12345678-6", "Existe ya un cliente con CUIT 20-12345678-6."},
             {'d', "25123456", "Existe ya un cliente con DNI 25123456."},
             {'c', "20-11111111-2", ""},
             {'c', "25123456", cuit_malo},
             {'%', "diez", "El valor del descuento cliente no es un númerico."},
             {'%', "101", "El valor del descuento cliente tiene que ser positivo y menor de 100."},
             {'%', "-0,5", "El valor del descuento cliente tiene que ser positivo y menor de 100."},
             {'%', "100", ""},
             {'%', "", ""},
             {'@', "juan.perez", "El contenido del campo 'Email' no parece ser válido."},
             {'@', "juan@perez", ""},
             {'@', "", ""}}) {
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

TEST_F(NewCustomerFormTest, RefusesAnEmptyDocumentOrNameAndStoresTheRest)
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

    app.op.clear();
    f.razon_social = "Gas Norte";
    f.descuento = "x";
    f.telefono = "011-4444";
    f.email = "gas@norte";
    ASSERT_TRUE(form.salvar(f));
    EXPECT_EQ(app.op.lines(), QStringList{"inform|Agregar Cliente / Proveedor|Se registro correctamente el "
                                          "Proveedor Servicios 'Gas Norte'."});
    EXPECT_EQ(
        tabla("SELECT NOMBRE, CUIT, DESCUENTO, TIPO, TIPO_DOC, TIPO_RECORD, EMAIL, BORRABLE, TELEFONO FROM "
              "vendrix_clientes WHERE NOMBRE = 'Gas Norte'"),
        QStringList{"Gas Norte|20-11111111-2|0|F - CONSUMIDOR FINAL|CUIT|Proveedor Servicios|gas@norte||"
                    "011-4444"});
}

TEST_F(NewCustomerFormTest, ANameWithAQuoteIsStoredFoundAndSeenByBothChecks)
{
    NewCustomerForm form(app.ctx(), "Cliente");
    FichaClipro f = form.inicial();
    f.razon_social = "D'Angelo Hnos";
    f.documento = "20-11111111-2";
    ASSERT_TRUE(form.salvar(f));
    app.op.clear();
    form.salir_razon_social("d'angelo");
    form.salir_documento("CUIT", "20-11111111-2");
    EXPECT_EQ(app.op.texts(),
              QStringList({"Existe ya un cliente con nombre 'd'angelo' y documento "
                           "'20-11111111-2'. Antes de insertarlo nuevamente, controle que no sea "
                           "un duplicado.",
                           "Existe ya un cliente con CUIT 20-11111111-2."}));
    CustomerBook book(app.ctx());
    const auto filas = book.buscar_clipro("Cliente", "o'a");
    EXPECT_TRUE(filas.has_value());
    EXPECT_EQ(filas->size(), 0u);
    EXPECT_EQ(book.buscar_clipro("Cliente", "d'angelo hnos 20-1")->front().section('\t', 2, 2),
              "D'Angelo Hnos");
}

} // namespace
} // namespace vendrix::test
