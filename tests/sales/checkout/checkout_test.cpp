#include "core/rows.h"
#include "sales/carritos.h"
#include "sales/checkout/checkout.h"
#include "sales/tienda.h"

namespace vendrix {
namespace {

class CheckoutTest : public test::Tienda {
protected:
    void SetUp() override
    {
        Tienda::SetUp();
        ajuste("IF_max_efectivo", "1000");
        ajuste("IF_max_tarjeta", "2000");
        sql("INSERT INTO Vendrix_FormasDePago (Forma_de_Pago, Recargo, Tipo) VALUES ('Tarjeta', 10, 'Solo "
            "Cobro'), "
            "('Cuotas', 2.5, 'Cobro y Pago'), ('Proveedores', 5, 'Solo Pago')");
        sql("INSERT INTO vendrix_clientes (NOMBRE, CUIT, DIRECCION, PROVINCIA, DESCUENTO, TIPO, TIPO_DOC, "
            "TIPO_RECORD, EMAIL) VALUES ('Gomez Juan', '20-12345678-6', 'Belgrano 10', 'Rosario', 5, "
            "'I - IVA RESPONSABLE INSCRIPTO', 'CUIT', 'Cliente', 'j@g.ar'), ('Gomeria Sur', '30-1', 'Ruta "
            "9', "
            "'Tala', 0, '', 'CUIT', 'Proveedor', '')");
        // 1000 in two lines at one IVA rate.
        carritos.carrito(1).agregar_linea(linea("2|Tornillo 1/4|300|600|21|1"));
        carritos.carrito(1).agregar_linea(linea("1|Tornillo 3/8|400|400|21|2"));
    }

    void sql(const QString &statement) { ASSERT_TRUE(app.db().execNQ(statement, QStringLiteral("cliente"))); }

    std::unique_ptr<Checkout> abrir()
    {
        auto c = std::make_unique<Checkout>(app.ctx(), carritos, 1);
        app.op.clear();
        return c;
    }

    Carritos carritos;
};

TEST_F(CheckoutTest, TheSurchargeTravelsInThePaymentTextAndTheTotalFollows)
{
    auto c = abrir();
    EXPECT_EQ(c->vista().formas_de_pago,
              QStringList({"Efectivo", "Tarjeta de Débito", "Tarjeta de Crédito", "MercadoPago",
                           "Cheques y valores", "Banco", "Tarjeta (Con recargo del 10%)",
                           "Cuotas (Con recargo del 2,5%)"}));
    EXPECT_EQ(c->vista().Label_total, "1000");
    // Payment text, current account, then: forma, forma without surcharge, surcharge, total.
    const Rows<const char *, bool, const char *, const char *, const char *, const char *> cases = {
        {"Efectivo", false, "Efectivo", "", "0", "1000"},
        {"Tarjeta (Con recargo del 10%)", false, "Tarjeta", "", "10", "1100"},
        {"Tarjeta (Con recargo del 10%)", true, "Cuenta Corriente", "Tarjeta", "10", "1100"},
        {"Cuotas (Con recargo del 2,5%)", false, "Cuotas", "", "2,5", "1025"},
    };
    for (const auto &[texto, cc, forma, sin_recargo, recargo, total] : cases) {
        c->cambiar_CC(cc);
        c->cambiar_forma_de_pago(texto);
        EXPECT_EQ(QStringList({c->forma_de_pago_efectiva(), c->forma_de_pago_sin_recargo(),
                               c->recargo_forma_de_pago(), c->vista().Label_total}),
                  QStringList({forma, sin_recargo, recargo, total}))
            << texto;
    }
}

TEST_F(CheckoutTest, TheHabitualDiscountBox)
{
    auto c = abrir();
    // Box as typed, payment: the box afterwards and the total.
    const Rows<const char *, const char *, const char *, const char *> cases = {
        {"", "Efectivo", "", "1000"},
        {"abc", "Efectivo", "0", "1000"},
        {"10", "Efectivo", "10", "900"},
        {"12,5", "Tarjeta (Con recargo del 10%)", "12,5", "962,5"},
    };
    for (const auto &[dh, forma, queda, total] : cases) {
        c->cambiar_forma_de_pago(forma);
        c->set_texto(&VistaCheckout::Text_dh, dh);
        c->salir_descuento();
        EXPECT_EQ(c->vista().Text_dh + '|' + c->vista().Label_total, QString(queda) + '|' + total) << dh;
    }
}

TEST_F(CheckoutTest, AFinalConsumerFromTheLimitUpMustBeNamed)
{
    const QString faltan_todos =
        "Los datos del consumidor final son obligatorios cuando el importe a facturar "
        "supera los $%1 en efectivo o $2000 con medios eletrónicos. Falta llenar los "
        "datos de: Razón Social, Número de documento, Domicilio.";
    // Cash limit, payment, current account, IVA condition, name, document: the message or "" when it goes on.
    const Rows<const char *, const char *, bool, const char *, const char *, const char *, QString> cases = {
        {"1000", "Efectivo", false, "F - CONSUMIDOR FINAL", "", "", faltan_todos.arg(1000)},
        {"1001", "Efectivo", false, "F - CONSUMIDOR FINAL", "", "", ""},
        {"1000", "Tarjeta (Con recargo del 10%)", false, "F - CONSUMIDOR FINAL", "", "", ""},
        {"1000", "Tarjeta (Con recargo del 10%)", true, "F - CONSUMIDOR FINAL", "", "",
         faltan_todos.arg(1000)},
        {"1000", "Efectivo", false, "F - CONSUMIDOR FINAL", "Ana", "",
         "Los datos del consumidor final son obligatorios cuando el importe a facturar supera los $1000 en "
         "efectivo o $2000 con medios eletrónicos. Falta llenar los datos de: Número de documento, "
         "Domicilio."},
        {"1000", "Efectivo", false, "M - RESPONSABLE MONOTRIBUTO", "", "", ""},
    };
    for (const auto &[limite, forma, cc, iva, nombre, documento, mensaje] : cases) {
        ajuste("IF_max_efectivo", limite);
        auto c = abrir();
        c->cambiar_forma_de_pago(forma);
        c->cambiar_CC(cc);
        c->cambiar_iva(iva);
        c->set_texto(&VistaCheckout::Text_rz, nombre);
        c->set_texto(&VistaCheckout::Text_cuit, documento);
        const PasoVenta paso = c->imprimir();
        EXPECT_EQ(paso, mensaje.isEmpty() ? PasoVenta::guardar : PasoVenta::ninguno) << limite << forma << cc;
        EXPECT_EQ(app.op.texts(), mensaje.isEmpty() ? QStringList() : QStringList({mensaje}));
        EXPECT_TRUE(c->vista().Command_imprimir_habilitado || paso != PasoVenta::ninguno);
    }
}

TEST_F(CheckoutTest, AnElectronicInvoiceNamesItsCustomerWhateverTheCondition)
{
    ajuste("impresora_fiscal", "1");
    ajuste("IF_Modelo", "Factura Electronica A.F.I.P.");
    ajuste("IF_max_tarjeta", "1000000");
    auto c = abrir();
    EXPECT_EQ(c->vista().Command_imprimir, "Factura Electrónica");
    c->cambiar_iva("I - IVA RESPONSABLE INSCRIPTO");
    c->cambiar_forma_de_pago("Tarjeta (Con recargo del 10%)");
    c->set_texto(&VistaCheckout::Text_rz, "Acme SA");
    EXPECT_EQ(c->imprimir(), PasoVenta::ninguno);
    EXPECT_EQ(app.op.texts(),
              QStringList({"Los datos del consumidor final son obligatorios cuando el importe a "
                           "facturar supera los $1000 para la facturación electrónica. Falta "
                           "llenar los datos de: Número de documento, Domicilio."}));
    // Without printing it is a stored sale, which needs no customer.
    c->cambiar_imprimir(false);
    EXPECT_EQ(c->imprimir(), PasoVenta::guardar);
    c->cambiar_imprimir(true);
    c->set_texto(&VistaCheckout::Text_cuit, "30-71234567-1");
    c->set_texto(&VistaCheckout::Text_dom, "Mitre 1");
    EXPECT_EQ(c->imprimir(), PasoVenta::imprimir_y_guardar);
    // A named customer is stored on every sale, without "Agregar Cliente".
    EXPECT_EQ(app.db().execQ1(
                  "SELECT NOMBRE || '|' || TIPO || '|' || TIPO_RECORD FROM vendrix_clientes WHERE CUIT = "
                  "'30-71234567-1'",
                  "cliente"),
              "Acme SA|I - IVA RESPONSABLE INSCRIPTO|Cliente");
}

TEST_F(CheckoutTest, LimitsThatAreNotNumbersCountZeroAndWarn)
{
    ajuste("IF_max_efectivo", "diez mil");
    ajuste("IF_max_tarjeta", "20000;");
    Checkout c(app.ctx(), carritos, 1);
    EXPECT_EQ(c.max_efectivo() + c.max_tarjeta(), 0);
    const QString aviso =
        "warn|Attención|El limite de facturación para el cual se necesita cargar los datos del "
        "cliente no resulta presente. Por favor modifique el valor desde el panel de configuración.";
    EXPECT_EQ(app.op.lines(), QStringList({aviso, aviso}));
    EXPECT_EQ(log_de("ERR"),
              QStringList({"El valor del parametro IF_max_efectivo es 0;; se tendria que modificar "
                           "el parametro por el utente"}));
    EXPECT_TRUE(app.log_messages().contains(
        "El valor del parametro IF_max_tarjeta (20000;) no es numerico;; se pone 0 de default."));
}

TEST_F(CheckoutTest, AMixedRateCartCantBeUncheckedFromDetail)
{
    ajuste("impresora_fiscal", "1");
    auto c = abrir();
    EXPECT_EQ(c->vista().Command_imprimir, "Imprimir Ticket");
    EXPECT_FALSE(c->vista().Check_resumido); // one rate: grouped unless the shop asks for detail
    c->cambiar_resumido(true);
    c->cambiar_resumido(false);
    EXPECT_TRUE(app.op.empty());

    carritos.carrito(1).agregar_linea(linea("1|Libro|100|100|10,5|3"));
    c = abrir();
    EXPECT_TRUE(c->vista().Check_resumido);
    c->cambiar_resumido(false);
    EXPECT_TRUE(c->vista().Check_resumido);
    EXPECT_EQ(app.op.lines(),
              QStringList({"warn|Advertencia|El ticket no puede ser agrupado porque hay productos "
                           "con diferente tasa de IVA"}));
}

TEST_F(CheckoutTest, CustomerSearchOverTheFiveFieldsFromTwoCharacters)
{
    auto c = abrir();
    // Box text before the key, key: the names found, or nothing searched.
    const Rows<const char *, int, QStringList> cases = {
        {"G", 'o', {"Gomez Juan"}},     // a supplier record isn't a customer
        {"Juan20-", 8, {"Gomez Juan"}}, // backspace: the text less its last character
        {"10Rosari", 'o', {"Gomez Juan"}},
        {"Rosario", '5', {"Gomez Juan"}}, // the discount as shown
        {"Rosario5", '0', {}},
    };
    for (const auto &[texto, key, nombres] : cases) {
        c->buscar_clientes("");
        c->tecla_buscar(texto, key);
        QStringList found;
        for (const QStringList &fila : c->vista().clientes)
            found << fila.at(kCliRazonSocial);
        EXPECT_EQ(found, nombres) << texto;
    }
    // One character searches nothing: the grid keeps what it shows.
    EXPECT_FALSE(c->tecla_buscar("", 'G'));
    EXPECT_FALSE(c->tecla_buscar("", 8));
    EXPECT_TRUE(c->vista().clientes.empty());
    c->tecla_buscar("G", 'o');
    EXPECT_FALSE(c->tecla_buscar("", 'x'));
    EXPECT_EQ(c->vista().clientes.size(), 1u);
}

TEST_F(CheckoutTest, ChoosingACustomerTakesTheHabitOfTheLastSale)
{
    sql("INSERT INTO vendrix_facturas (cuit, forma_de_pago) VALUES ('20-12345678-6', 'Cuenta Corriente')");
    auto c = abrir();
    c->tecla_buscar("Gom", 'e');
    c->elegir_cliente(0);
    const VistaCheckout &v = c->vista();
    EXPECT_EQ(QStringList({v.Text_rz, v.Text_cuit, v.Text_dom, v.Text_loc, v.Text_dh, v.Combo_iva,
                           v.Combo_tipo_doc, v.Text_email}),
              QStringList({"Gomez Juan", "20-12345678-6", "Belgrano 10", "Rosario", "5",
                           "I - IVA RESPONSABLE INSCRIPTO", "CUIT", "j@g.ar"}));
    EXPECT_FALSE(v.Combo_tipo_doc_habilitado);
    EXPECT_TRUE(v.Check_CC);
    EXPECT_EQ(c->forma_de_pago_efectiva(), "Cuenta Corriente");
    EXPECT_EQ(app.op.lines(),
              QStringList({"inform|Pago en Cuenta Corriente|Confirmar si corresponde registro en "
                           "Cuenta Corriente para el cliente Gomez Juan"}));
    // The same document again can't be added as a new customer.
    app.op.clear();
    c->agregar_cliente();
    EXPECT_EQ(app.op.texts(),
              QStringList({"No se guarda el nuevo cliente porque existe \"Gomez Juan\" con el mismo "
                           "CUIT 20-12345678-6"}));
}

TEST_F(CheckoutTest, DocumentChecksOnLeavingTheBox)
{
    auto c = abrir();
    // Type, number: what the box keeps.
    const Rows<const char *, const char *, const char *> cases = {
        {"CUIT", "20-12345678-6", "20-12345678-6"},
        {"CUIT", "20-12345678-5", ""},
        {"DNI", "1234567", "1234567"},
        {"DNI", "12a4567", ""},
    };
    for (const auto &[tipo, numero, queda] : cases) {
        c->cambiar_tipo_doc(tipo);
        c->set_texto(&VistaCheckout::Text_cuit, numero);
        c->salir_cuit();
        EXPECT_EQ(c->vista().Text_cuit, queda) << numero;
    }
    // Changing the type drops a number of the other kind.
    c->cambiar_tipo_doc("CUIT");
    EXPECT_EQ(c->vista().Text_cuit, "");
}

} // namespace
} // namespace vendrix
