#include "backoffice/customers/new_customer_form.h"

#include "backoffice/customers/customer_kinds.h"
#include "catalogue/search/search_index.h"
#include "core/context.h"
#include "core/numeric.h"
#include "core/validators.h"

namespace vendrix {

namespace {

const QString kTituloAgregar = QStringLiteral("Agregar Cliente / Proveedor");

} // namespace

NewCustomerForm::NewCustomerForm(Context &ctx, const QString &tipo_inicial) : ctx_(ctx)
{
    ctx_.escribir_log(QStringLiteral("Inicializando los controles del alta de Cli/pro"), QStringLiteral("I"));
    inicial_.tipo = tipos_de_registro().contains(tipo_inicial) ? tipo_inicial : kCliente;
    inicial_.tipo_doc = QStringLiteral("CUIT");
    inicial_.condicion_iva = kConsumidorFinal;
    inicial_.descuento = elegir_tipo(inicial_.tipo, QStringLiteral("0"));
}

QString NewCustomerForm::elegir_tipo(const QString &tipo, const QString &descuento)
{
    descuento_habilitado_ = lleva_descuento(tipo);
    return descuento_habilitado_ ? descuento : QString();
}

void NewCustomerForm::avisar(const QString &texto)
{
    ctx_.op().warn(QStringLiteral("Vendrix"), texto);
}

void NewCustomerForm::salir_razon_social(const QString &nombre)
{
    if (nombre.isEmpty())
        return;
    registrar_plegado(ctx_.db());
    const QString documento =
        ctx_.db().execQ1(QStringLiteral("SELECT MAX(CUIT) FROM vendrix_clientes WHERE plegar(nombre) LIKE ?"),
                         kClientes, {QLatin1Char('%') + plegar_texto(nombre) + QLatin1Char('%')});
    if (!documento.isEmpty())
        avisar(QStringLiteral("Existe ya un cliente con nombre '") + nombre +
               QStringLiteral("' y documento '") + documento +
               QStringLiteral("'. Antes de insertarlo nuevamente, controle que no sea un duplicado."));
}

QString NewCustomerForm::salir_documento(const QString &tipo_doc, const QString &documento)
{
    if (documento.isEmpty())
        return documento;
    const bool valido = tipo_doc == QLatin1String("DNI") ? validar_DNI(ctx_.op(), documento)
                                                         : validar_CUIT(ctx_.op(), documento);
    if (!valido)
        return QString();
    const QString cuenta = ctx_.db().execQ1(
        QStringLiteral("SELECT count(*) FROM vendrix_clientes WHERE CUIT = ? AND TIPO_DOC = ?"), kClientes,
        {documento, tipo_doc});
    if (cuenta != QLatin1String("0"))
        avisar(QStringLiteral("Existe ya un cliente con ") + tipo_doc + QLatin1Char(' ') + documento +
               QLatin1Char('.'));
    return documento;
}

void NewCustomerForm::salir_descuento(const QString &descuento)
{
    if (descuento.isEmpty())
        return;
    if (!es_numerico(descuento)) {
        avisar(QStringLiteral("El valor del descuento cliente no es un númerico."));
        return;
    }
    const double valor = valor_texto(descuento);
    if (valor < 0 || valor > 100)
        avisar(QStringLiteral("El valor del descuento cliente tiene que ser positivo y menor de 100."));
}

void NewCustomerForm::salir_email(const QString &email)
{
    if (!email.isEmpty() && !email.contains(QLatin1Char('@')))
        avisar(QStringLiteral("El contenido del campo 'Email' no parece ser válido."));
}

bool NewCustomerForm::salvar(const FichaClipro &f)
{
    ctx_.escribir_log(QStringLiteral("El usuario quiere seguir insertar un nuevo cliente / proveedor."),
                      QStringLiteral("A"));
    const QString titulo = QStringLiteral("Error al insertar datos");
    if (f.documento.isEmpty()) {
        ctx_.op().error(titulo,
                        QStringLiteral("No se pueden insertar los datos con el número de documento vacío."));
        return false;
    }
    if (f.razon_social.isEmpty()) {
        ctx_.op().error(titulo, QStringLiteral("No se pueden insertar los datos con la razón social vacía."));
        return false;
    }
    ctx_.escribir_log(QStringLiteral("Se procede a insertar los datos."), QStringLiteral("I"));
    // The phone the form shows is stored too. `BORRABLE` is empty: what the
    // operator adds, the operator may delete.
    if (!ctx_.db().execNQ(QStringLiteral("INSERT INTO vendrix_clientes (Nombre, Direccion, CUIT, PROVINCIA, "
                                         "DESCUENTO, TIPO, TIPO_DOC, TIPO_RECORD, EMAIL, BORRABLE, TELEFONO) "
                                         "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, '', ?)"),
                          kClientes,
                          {f.razon_social, f.domicilio, f.documento, f.localidad,
                           descuento_a_guardar(f.descuento), f.condicion_iva, f.tipo_doc, f.tipo, f.email,
                           f.telefono}))
        return false;
    const QString hecho = QStringLiteral("Se registro correctamente el ") + f.tipo + QStringLiteral(" '") +
                          f.razon_social + QStringLiteral("'.");
    ctx_.escribir_log(hecho, QStringLiteral("A"));
    ctx_.op().inform(kTituloAgregar, hecho);
    return true;
}

} // namespace vendrix
