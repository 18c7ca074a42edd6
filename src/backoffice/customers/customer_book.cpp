#include "backoffice/customers/customer_book.h"

#include "backoffice/customers/customer_kinds.h"
#include "catalogue/search/search_index.h"
#include "core/context.h"
#include "core/numeric.h"
#include "core/validators.h"

#include <algorithm>

namespace vendrix {

namespace {

const QString kTituloEliminar = QStringLiteral("Eliminar Cliente / Proveedor");
const QString kTituloSalvar = QStringLiteral("Salvar Cliente / Proveedor");
const QString kInfo = QStringLiteral("I");
const QString kAccion = QStringLiteral("A");
const QString kError = QStringLiteral("E");

// The three fields joined by single blanks; a missing one is an empty text,
// so that a record without address or CUIT is still found by its name. LIKE
// ignores the case of ASCII letters by itself: the records' text needs
// folding only when the text sought has other letters (an ASCII pattern
// can't match them either way), and an empty text finds every record.
QString consulta_busqueda(const QString &plegado)
{
    QString sql = QStringLiteral(
        "SELECT ID, Borrable, nombre, tipo_doc, cuit, tipo, Direccion, Provincia FROM vendrix_clientes "
        "WHERE Tipo_record LIKE ?");
    const QString campos =
        QStringLiteral("IFNULL(Nombre, '') || ' ' || IFNULL(CUIT, '') || ' ' || IFNULL(Direccion, '')");
    const bool ascii =
        std::all_of(plegado.begin(), plegado.end(), [](QChar c) { return c.unicode() < 0x80; });
    if (!plegado.isEmpty())
        sql += QStringLiteral(" AND ") + (ascii ? campos : QStringLiteral("plegar(") + campos + ')') +
               QStringLiteral(" LIKE ?");
    return sql + QStringLiteral(" ORDER BY Nombre COLLATE NOCASE");
}

enum CampoFicha {
    kId,
    kTipoRecord,
    kNombre,
    kTipoDoc,
    kCuit,
    kTipo,
    kDireccion,
    kProvincia,
    kEmail,
    kDescuento,
    kBorrable,
    kTelefono
};

QString pct(const QString &texto)
{
    return QLatin1Char('%') + texto + QLatin1Char('%');
}

} // namespace

CustomerBook::CustomerBook(Context &ctx) : ctx_(ctx)
{
}

void CustomerBook::iniciar_tab_clipro()
{
    limpiar_detalle_clipro();
}

void CustomerBook::limpiar_detalle_clipro()
{
    vista_ = VistaClipro{};
}

std::optional<std::vector<QString>> CustomerBook::buscar_clipro(const QString &tipo, const QString &texto)
{
    StatusSink &estado = ctx_.estado();
    estado.marcar_ocupado(true);
    ctx_.escribir_log(tipo.toUpper().contains(QLatin1String("PROVEEDOR"))
                          ? QStringLiteral("Se realiza una busqueda de tipo 'PROVEEDOR'")
                          : QStringLiteral("Se realiza una busqueda de tipo 'CLIENTE'"),
                      kInfo);
    const QString plegado = plegar_texto(texto);
    const QString sql = consulta_busqueda(plegado);
    if (ctx_.log().detalle_alto())
        ctx_.escribir_log(sql, QStringLiteral("Q"));
    limpiar_detalle_clipro();
    registrar_plegado(ctx_.db());
    std::optional<std::vector<QString>> filas;
    // Each row straight into its grid line: a search may give every record.
    SqlParams valores{pct(tipo)};
    if (!plegado.isEmpty())
        valores.push_back(pct(plegado));
    if (auto c = ctx_.db().execQ(sql, kClientes, valores)) {
        filas.emplace();
        for (; !c->eof(); c->siguiente()) {
            QString linea = c->texto(0);
            for (int col = 1; col < 8; ++col)
                linea += QLatin1Char('\t') + c->texto(col);
            filas->push_back(std::move(linea));
        }
    } else {
        // The layer has logged the statement's own error.
        ctx_.op().error(
            QStringLiteral("Error al intentar cargar las Grillas."),
            QStringLiteral("ER CLIPRO01: Se produjo un error al cargar la información en la Grilla "
                           "de Clientes / Proveedores. Cierre Vendrix e intente nuevamente."));
        ctx_.escribir_log(
            QStringLiteral("ER CLIPRO01 - 0 No se pudo leer vendrix_clientes llenar_grilla_clipro"), kError);
    }
    ctx_.escribir_log(QStringLiteral("Clipro - se busco el término: ") + texto, kAccion);
    estado.marcar_ocupado(false);
    return filas;
}

QStringList CustomerBook::nombres_clipro() const
{
    QStringList nombres;
    if (auto c =
            ctx_.db().execQ(QStringLiteral("SELECT DISTINCT Nombre FROM vendrix_clientes WHERE Nombre <> '' "
                                           "ORDER BY Nombre COLLATE NOCASE"),
                            kClientes))
        for (; !c->eof(); c->siguiente())
            nombres << c->texto(0);
    return nombres;
}

bool CustomerBook::id_valido(const QString &id) const
{
    return es_numerico(id);
}

bool CustomerBook::mostrar_clipro(int fila, const QString &id)
{
    ctx_.escribir_log(QStringLiteral("Clipro - se selecciono la fila de la grilla: ") + QString::number(fila),
                      kAccion);
    std::unique_ptr<Cursor> c;
    if (id_valido(id))
        c = ctx_.db().execQ(QStringLiteral("SELECT ID, Tipo_record, nombre, tipo_doc, cuit, tipo, Direccion, "
                                           "Provincia, email, Descuento, borrable, telefono FROM "
                                           "vendrix_clientes WHERE ID = ?"),
                            kClientes, {id.trimmed()});
    if (!c || c->eof()) {
        ctx_.op().error(QStringLiteral("Error en la búsqueda de un Cliente o un Proveedor"),
                        QStringLiteral("No se pudo encontrar el Cliente/Proveedor seleccionado."));
        ctx_.escribir_log(QStringLiteral("El ID a buscar no existe. Esta situacion es muy extraña."), kError);
        return false;
    }
    FichaClipro f;
    f.tipo = c->texto(kTipoRecord);
    f.razon_social = c->texto(kNombre);
    f.tipo_doc = c->texto(kTipoDoc) == QLatin1String("DNI") ? QStringLiteral("DNI") : QStringLiteral("CUIT");
    f.documento = c->texto(kCuit);
    f.condicion_iva = c->texto(kTipo).isEmpty() ? kConsumidorFinal : c->texto(kTipo);
    f.domicilio = c->texto(kDireccion);
    f.localidad = c->texto(kProvincia);
    f.email = c->texto(kEmail);
    f.telefono = c->texto(kTelefono);
    const bool borrable = c->texto(kBorrable) != QLatin1String("N");
    vista_.descuento_habilitado = lleva_descuento(f.tipo);
    if (vista_.descuento_habilitado && !c->es_nulo(kDescuento))
        f.descuento = texto_numero(c->valor(kDescuento).toDouble());
    vista_.ficha = f;
    vista_.salvar = false;
    vista_.borrar = borrable;
    return true;
}

QString CustomerBook::pregunta(const char *accion, const FichaClipro &ficha) const
{
    return QString::fromUtf8(accion) + ficha.razon_social + QStringLiteral("' con ") + ficha.tipo_doc +
           QStringLiteral(" '") + ficha.documento +
           QStringLiteral(
               "'? Los datos asociados a las facturas ya cargadas al sistema no se veran impactados.");
}

bool CustomerBook::borrar_clipro(const QString &id, const FichaClipro &ficha)
{
    ctx_.escribir_log(QStringLiteral("Se esta por proceder a eliminar el cliente con ID: ") + id, kInfo);
    if (!id_valido(id)) {
        ctx_.escribir_log(QStringLiteral("Se quiso borrar un cliente o proveedor sin selecciononarlo antes"),
                          kInfo);
        ctx_.op().error(kTituloEliminar, QStringLiteral("Seleccione un cliente / proveedor a eliminar."));
        return false;
    }
    // The suppliers of the price lists come back with every list: their
    // button is off, and they stay even if asked.
    if (ctx_.db().execQ1(QStringLiteral("SELECT borrable FROM vendrix_clientes WHERE ID = ?"), kClientes,
                         {id.trimmed()}) == QLatin1String("N"))
        return false;
    if (!ctx_.op().ask(kTituloEliminar, pregunta("¿Está seguro que desea eliminar los datos de '", ficha)))
        return false;
    if (!ctx_.db().execNQ(QStringLiteral("DELETE FROM vendrix_clientes WHERE ID = ?"), kClientes,
                          {id.trimmed()})) {
        ctx_.escribir_log(QStringLiteral("La query para borrar el cliente / Proveedor con ID '") + id +
                              QStringLiteral("' no funciono correctamente."),
                          kError);
        ctx_.op().error(
            kTituloEliminar,
            QStringLiteral("No se pudo borrar el cliente / Proveedor seleccionado. Por favor realice "
                           "una nueva busqueda e intente nuevamente."));
        return false;
    }
    ctx_.escribir_log(
        QStringLiteral("se elimino el ID '") + id + QStringLiteral("' de la tabla de clientes ."), kAccion);
    limpiar_detalle_clipro();
    ctx_.op().inform(kTituloEliminar, QStringLiteral("Se eliminaron los datos seleccionados."));
    return true;
}

bool CustomerBook::salvar_clipro(const QString &id, const FichaClipro &ficha)
{
    ctx_.escribir_log(QStringLiteral("Se esta por proceder a modificar el cliente con ID: ") + id, kInfo);
    if (!id_valido(id)) {
        ctx_.escribir_log(
            QStringLiteral("Se quiso modificar un cliente o proveedor sin selecciononarlo antes"), kInfo);
        ctx_.op().error(kTituloSalvar, QStringLiteral("Seleccione un cliente / proveedor a modificar."));
        return false;
    }
    // The question carries the deletion's title, as it always has.
    if (!ctx_.op().ask(kTituloEliminar, pregunta("¿Está seguro que modificar los datos de '", ficha)))
        return false;
    ctx_.escribir_log(
        QStringLiteral("El usuario quiere seguir adelante con la eliminacion del registro seleccionado."),
        kAccion);
    if (!ctx_.db().execNQ(
            QStringLiteral("UPDATE vendrix_clientes SET Nombre = ?, Direccion = ?, CUIT = ?, "
                           "PROVINCIA = ?, DESCUENTO = ?, TIPO = ?, TIPO_DOC = ?, TIPO_RECORD = ?, "
                           "TELEFONO = ?, EMAIL = ? WHERE ID = ?"),
            kClientes,
            {ficha.razon_social, ficha.domicilio, ficha.documento, ficha.localidad,
             descuento_a_guardar(ficha.descuento), ficha.condicion_iva, ficha.tipo_doc, ficha.tipo,
             ficha.telefono, ficha.email, id.trimmed()})) {
        ctx_.escribir_log(QStringLiteral("La query para modificar el cliente / Proveedor con ID '") + id +
                              QStringLiteral("' no funciono correctamente."),
                          kError);
        ctx_.op().error(kTituloSalvar,
                        QStringLiteral("No se pudo modificar el cliente / Proveedor seleccionado. Por favor "
                                       "realice una nueva busqueda e intente nuevamente."));
        return false;
    }
    ctx_.escribir_log(
        QStringLiteral("se modifico el ID '") + id + QStringLiteral("' de la tabla de clientes ."), kAccion);
    ctx_.op().inform(kTituloSalvar, QStringLiteral("Se modificaron los datos seleccionados."));
    vista_.ficha = ficha;
    vista_.salvar = false;
    return true;
}

QString CustomerBook::salir_doccliente(const QString &tipo_doc, const QString &texto)
{
    if (texto.isEmpty())
        return texto;
    const bool valido =
        tipo_doc == QLatin1String("DNI") ? validar_DNI(ctx_.op(), texto) : validar_CUIT(ctx_.op(), texto);
    return valido ? texto : QString();
}

bool CustomerBook::descuento_aceptable(const QString &texto)
{
    return texto.isEmpty() || es_numerico(texto);
}

void CustomerBook::elegir_condicion_iva(const QString &condicion)
{
    vista_.ficha.condicion_iva = condicion;
    vista_.tipo_doc_habilitado = condicion == kConsumidorFinal;
    if (!vista_.tipo_doc_habilitado)
        vista_.ficha.tipo_doc = QStringLiteral("CUIT");
    vista_.salvar = true;
}

} // namespace vendrix
