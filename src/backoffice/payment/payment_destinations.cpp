#include "backoffice/payment/payment_destinations.h"

#include "core/context.h"

namespace vendrix {

namespace {

const QString kInternal = QStringLiteral("Internal");
const QString kTituloSalvar = QStringLiteral("Salvar Destino de Pago");

} // namespace

QStringList columnas_destinos_de_pago()
{
    return {QStringLiteral("ID"),
            QStringLiteral("READONLY"),
            QStringLiteral("Destino de Pago / Cobro"),
            QStringLiteral("Descripción"),
            QStringLiteral("Requiere Proveedor"),
            QStringLiteral("Eliminar")};
}

QStringList respuestas_requiere_proveedor()
{
    return {QStringLiteral("Si"), QStringLiteral("No")};
}

std::optional<std::vector<FilaDePago>> cargar_destinos_de_pago(Context &ctx)
{
    return leer_filas_de_pago(
        ctx, QStringLiteral("Intento cargar la grilla de destinos de pago"),
        QStringLiteral("SELECT ID, ReadOnly, Destino_de_Pago, Descripcion, Requiere_proveedor "
                       "FROM Vendrix_DestinosDePago ORDER BY Destino_de_Pago COLLATE NOCASE"));
}

std::optional<qint64> salvar_destino(Context &ctx, const NuevoDestino &nuevo)
{
    // The same words as the methods' screen: the log tells the two apart by
    // what follows.
    ctx.escribir_log(QStringLiteral("Intentando salvar un nuevo Medios de Pago y Cobro"),
                     QStringLiteral("I"));
    if (nuevo.nombre.isEmpty()) {
        ctx.op().error(
            QStringLiteral("Error al insertar datos"),
            QStringLiteral("No se pueden insertar los datos con el Nombre del destino de pago vacío."));
        return std::nullopt;
    }
    // The question has a closing quote and no opening one; the shops know it so.
    if (!ctx.op().ask(kTituloSalvar, QStringLiteral("¿Desea salvar el destino de Pago ") + nuevo.nombre +
                                         QStringLiteral("'?")))
        return std::nullopt;
    ctx.escribir_log(QStringLiteral("El usuario selecciono salvar un nuevo Medios de Pago y Cobro"),
                     QStringLiteral("I"));
    if (!ctx.db().execNQ(QStringLiteral("INSERT INTO Vendrix_DestinosDePago (Destino_de_Pago, Descripcion, "
                                        "Requiere_proveedor, ReadOnly) VALUES (?, ?, ?, 0)"),
                         kInternal, {nuevo.nombre, nuevo.descripcion, nuevo.requiere_proveedor}))
        return std::nullopt;
    const qint64 id = ctx.db().ultimo_id(kInternal);
    ctx.escribir_log(QStringLiteral("Se inserto el destino de pago '") + nuevo.nombre +
                         QStringLiteral("' en la tabla Vendrix_DestinosDePago"),
                     QStringLiteral("A"));
    ctx.op().inform(kTituloSalvar, QStringLiteral("Se registro correctamente el destino de pago '") +
                                       nuevo.nombre + QStringLiteral("'."));
    ctx.escribir_log(QStringLiteral("Se salvo correctamente un nuevo Destino de Pago"), QStringLiteral("I"));
    return id;
}

bool eliminar_destino(Context &ctx, const FilaDePago &fila)
{
    return borrar_fila_de_pago(ctx, fila,
                               {QStringLiteral("Vendrix_DestinosDePago"),
                                QStringLiteral("Eliminar Destino de Pago"),
                                QStringLiteral("¿Quiere eliminar el destino de pago '") + fila.nombre() +
                                    QStringLiteral("'? Las operaciones registradas no se veran afectados."),
                                QStringLiteral("Se elimino correctamente el destino de Pago '") +
                                    fila.nombre() + QStringLiteral("'.")});
}

} // namespace vendrix
