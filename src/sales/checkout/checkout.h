#pragma once

#include "sales/checkout/customers.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace vendrix {

class Clock;

class Carrito;
class Carritos;
class Context;

// The fixed items of the IVA condition and document type combos.
inline const QString kConsumidorFinal = QStringLiteral("F - CONSUMIDOR FINAL");
// A document's reference number from the clock: YYMMDD-HHNNSS.
QString nueva_referencia(const Clock &clock);

QStringList condiciones_iva();
QStringList tipos_documento();

// The captions of the main action, by the shop's fiscal output.
inline const QString kFacturaElectronica = QStringLiteral("Factura Electrónica");
inline const QString kImprimirTicket = QStringLiteral("Imprimir Ticket");
inline const QString kGuardarVenta = QStringLiteral("Guardar Venta");

// What the checkout dialog shows, control by control, grouped as on screen.
struct VistaCheckout {
    // "Datos del Cliente"
    QString Text_buscar;
    std::vector<QStringList> clientes; // DataGridViewClientes, nine columns
    QString Combo_iva = kConsumidorFinal;
    QString Combo_tipo_doc = QStringLiteral("CUIT");
    bool Combo_tipo_doc_habilitado = true;
    QString Text_cuit;
    QString Text_rz;
    QString Text_dom;
    QString Text_loc;
    QString Text_dh;
    QString Text_email;
    QString Text_telefono;
    bool Command_recuperar_datos_CUIT_visible = false;

    // "Forma de pago"
    QStringList formas_de_pago;
    QString Combo_FdP = QStringLiteral("Efectivo");
    bool Check_CC = false;

    // "Notas"
    QString Text_Notas;

    // "Totales"
    bool Check_Imprimir = false;
    bool Check_Imprimir_visible = false;
    bool Check_NDV = false;
    bool Check_NDV_visible = false;
    bool Check_resumido = false;
    bool Check_resumido_visible = false;
    QString Text_referenciaExterna;
    QString Label_articulos;
    QString Label_total;

    // Actions
    QString Command_imprimir = kGuardarVenta;
    bool Command_imprimir_habilitado = true;
    bool Command_nota_credito_visible = true;
    bool Command_registrar_pedido_visible = true;
};

// Where an action of the dialog hands over to the recording of the sale.
enum class PasoVenta {
    ninguno,            // a check stopped it; the dialog stays as it is
    guardar,            // store the sale only
    imprimir_y_guardar, // fiscal output, then store
    guardar_carrito,    // store the cart for later
};

// The checkout dialog without its screen: opened on cart `carrito_origen`
// (1 to 4), it captures the customer, the IVA condition, the document, the
// payment method and the habitual discount, keeps the total to pay, and
// checks what a sale needs before it is recorded. It edits no line of the
// cart: surcharge and discount are factors over the cart's total.
class Checkout {
public:
    // The opening: fills the combos, shows the cart's count and total, takes
    // the reference (and the data of a stored cart), lays the actions out by
    // the fiscal settings and reads the customer-data limits, warning when
    // one is missing.
    Checkout(Context &ctx, Carritos &carritos, int carrito_origen);

    const VistaCheckout &vista() const { return vista_; }
    int carrito_origen() const { return carrito_origen_; }
    const Carrito &carrito() const;
    qint64 max_efectivo() const { return max_efectivo_; }
    qint64 max_tarjeta() const { return max_tarjeta_; }
    bool electronica() const { return electronica_; }

    bool es_venta_en_CC() const { return vista_.Check_CC; }
    // The method without its surcharge with `Check_CC` on, "" with it off.
    QString forma_de_pago_sin_recargo() const;
    // "Cuenta Corriente" with `Check_CC` on, else the method without suffix.
    QString forma_de_pago_efectiva() const;
    // The surcharge of the chosen method as text, "0" without one.
    QString recargo_forma_de_pago() const;
    // `Text_dh` as a number: empty is 0; a text that isn't a number is
    // replaced by "0".
    double descuento_habitual();
    // `Label_total`: the cart's total with the surcharge and the discount.
    void recalcular_total(double descuento, double recargo);

    // A plain text box the operator typed in (`&VistaCheckout::Text_rz`...).
    void set_texto(QString VistaCheckout::*campo, const QString &texto);

    // The payment combo and leaving the discount box: the total follows.
    void cambiar_forma_de_pago(const QString &texto);
    void salir_descuento();

    // A key in the search box, whose text is `texto` before it: a typed
    // character searches the text with it once that is longer than one
    // character; backspace and Enter (8, 13) search the text less its last
    // character, and nothing when the box is empty. True when it searched.
    bool tecla_buscar(const QString &texto, int key);
    // Fills the customers' grid.
    void buscar_clientes(const QString &texto);
    // A row of the customers' grid: its data, the document rules, and the
    // habit of the customer's last sale.
    void elegir_cliente(int fila);

    void cambiar_iva(const QString &texto);
    void cambiar_tipo_doc(const QString &texto);
    // Leaving the document box: a number that fails its check is cleared.
    void salir_cuit();
    // Leaving the email box: a text without "@" is questioned and kept.
    void salir_email();

    void cambiar_CC(bool on);
    // Unticking is refused while the cart mixes IVA rates.
    void cambiar_resumido(bool on);
    void cambiar_imprimir(bool on);
    void cambiar_NDV(bool on) { vista_.Check_NDV = on; }

    // "Agregar Cliente": checks the data and stores the customer.
    void agregar_cliente();
    // Replaces the customer's stored row by the data on screen.
    bool guardar_cliente();

    // The main action: stores the customer when named, then the checks on
    // the customer's data; what is to be done with the sale, or `ninguno`.
    PasoVenta imprimir();
    // After the recording the main action is available again.
    void fin_de_accion();
    // "Guardar Carrito": stores a named customer of another condition.
    PasoVenta registrar_pedido();

    // Refills the form from the stored cart with that reference number.
    void cargar_datos_carrito_guardado(const QString &nro_referencia);

private:
    void log(const QString &message, const QString &level = QStringLiteral("I")) const;
    void cargar_formulario();
    void preparar_acciones();
    qint64 leer_limite(const char *clave, const char *nivel_log_cero);
    DatosCliente datos_cliente() const;
    // The missing customer fields, in order, "" when none are missing.
    QString datos_faltantes() const;
    void faltan_datos(const QString &texto_limite, const QString &faltantes);
    // The payment combo or the discount box changed: the total is worked out again.
    void recalcular_por_cambio();
    double total_a_pagar() const;

    Context &ctx_;
    Carritos &carritos_;
    int carrito_origen_;
    VistaCheckout vista_;
    bool impresora_fiscal_ = false;
    bool electronica_ = false;
    bool nota_de_venta_ = false;
    qint64 max_efectivo_ = 0;
    qint64 max_tarjeta_ = 0;
};

// The cart's total from its amounts, unrounded, never exactly 0.
double total_carrito(const Carrito &carrito);

// The empty-cart check of the carts' "Facturar": false after its message
// when the cart has no lines or its total is 0.
bool carrito_para_facturar(Context &ctx, const Carrito &carrito);

} // namespace vendrix
