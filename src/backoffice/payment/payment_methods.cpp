#include "backoffice/payment/payment_methods.h"

#include "core/context.h"
#include "core/numeric.h"

#include <cmath>

namespace vendrix {

namespace {

const QString kInternal = QStringLiteral("Internal");
const QString kTituloSalvar = QStringLiteral("Salvar Medio de Pago y Cobro");
const QString kTituloDatos = QStringLiteral("Error en los datos");

bool es_entero(const QString &texto)
{
    const double valor = valor_texto(texto);
    return valor == std::floor(valor);
}

bool cuotas_validas(Context &ctx, const QString &cuotas)
{
    if (!es_numerico(cuotas)) {
        ctx.op().error(kTituloDatos,
                       QStringLiteral("El campo Cantidad de Cuotas tiene que ser un valor numerico."));
        return false;
    }
    if (!es_entero(cuotas)) {
        ctx.op().error(kTituloDatos,
                       QStringLiteral("El campo Cantidad de Cuotas tiene que ser un valor entero."));
        return false;
    }
    return true;
}

bool recargo_valido(Context &ctx, const QString &recargo)
{
    if (es_numerico(recargo))
        return true;
    ctx.op().error(kTituloDatos,
                   QStringLiteral("El campo Porcentaje de recargo tiene que ser un valor numerico."));
    return false;
}

// A cell edited in the grid that can't be stored.
std::optional<QString> dato_erroneo(Context &ctx)
{
    ctx.op().error(QStringLiteral("Error los datos"),
                   QStringLiteral("Hay un error en los datos ingresados. Por favor corríjala e intente "
                                  "nuevamente"));
    return std::nullopt;
}

bool actualizar(Context &ctx, const char *campo, const QVariant &valor, qint64 id)
{
    return ctx.db().execNQ(
        QStringLiteral("UPDATE Vendrix_FormasDePago SET %1 = ? WHERE ID = ?").arg(QLatin1String(campo)),
        kInternal, {valor, id});
}

} // namespace

QStringList columnas_medios_de_pago()
{
    return {QStringLiteral("ID"),
            QStringLiteral("READONLY"),
            QStringLiteral("Forma de Pago / Cobro"),
            QStringLiteral("Descripción"),
            QStringLiteral("Cant. Cuotas"),
            QStringLiteral("% Recargo"),
            QStringLiteral("Tipo"),
            QStringLiteral("Eliminar")};
}

QStringList tipos_de_medio()
{
    return {QStringLiteral("Solo Cobro"), QStringLiteral("Solo Pago"), QStringLiteral("Cobro y Pago")};
}

std::optional<std::vector<FilaDePago>> cargar_medios_de_pago(Context &ctx)
{
    return leer_filas_de_pago(
        ctx, QStringLiteral("Intento cargar la grilla de medios de pago"),
        QStringLiteral("SELECT ID, ReadOnly, Forma_de_Pago, Descripcion, cantidad_cuotas, Recargo, Tipo "
                       "FROM Vendrix_FormasDePago ORDER BY Forma_de_Pago COLLATE NOCASE"));
}

bool validar_nombre_medio(Context &ctx, const QString &nombre)
{
    // Names compare ignoring case, as they always have in this table.
    const QString cuenta = ctx.db().execQ1(
        QStringLiteral("SELECT count(*) FROM Vendrix_FormasDePago WHERE Forma_de_Pago = ? COLLATE NOCASE"),
        kInternal, {nombre});
    if (cuenta == QLatin1String("0"))
        return true;
    ctx.op().warn(QStringLiteral("Medio de Pago y Cobro existente"),
                  QStringLiteral("Existe ya un medio de Pago y cobro con el nombre '") + nombre +
                      QStringLiteral("'."));
    return false;
}

QString validar_cuotas(Context &ctx, const QString &cuotas)
{
    return cuotas_validas(ctx, cuotas) ? cuotas : QStringLiteral("1");
}

QString validar_recargo(Context &ctx, const QString &recargo)
{
    return recargo_valido(ctx, recargo) ? recargo : QStringLiteral("0");
}

std::optional<qint64> salvar_medio(Context &ctx, const NuevoMedio &nuevo)
{
    ctx.escribir_log(QStringLiteral("Intentando salvar un nuevo Medios de Pago y Cobro"),
                     QStringLiteral("I"));
    if (nuevo.nombre.isEmpty()) {
        ctx.op().error(QStringLiteral("Error al insertar datos"),
                       QStringLiteral("No se pueden insertar los datos con el Nombre del medio vacío."));
        return std::nullopt;
    }
    if (!cuotas_validas(ctx, nuevo.cuotas) || !recargo_valido(ctx, nuevo.recargo))
        return std::nullopt;
    if (!ctx.op().ask(kTituloSalvar, QStringLiteral("¿Desea salvar el medio de ") + nuevo.tipo +
                                         QStringLiteral(" '") + nuevo.nombre + QStringLiteral("'?")))
        return std::nullopt;
    ctx.escribir_log(QStringLiteral("El usuario selecciono salvar un nuevo Medios de Pago y Cobro"),
                     QStringLiteral("I"));
    if (!ctx.db().execNQ(
            QStringLiteral("INSERT INTO Vendrix_FormasDePago (Forma_de_Pago, Descripcion, "
                           "cantidad_cuotas, Recargo, ReadOnly, Tipo) VALUES (?, ?, ?, ?, 0, ?)"),
            kInternal,
            {nuevo.nombre, nuevo.descripcion, qRound64(valor_texto(nuevo.cuotas)), valor_texto(nuevo.recargo),
             nuevo.tipo}))
        return std::nullopt;
    const qint64 id = ctx.db().ultimo_id(kInternal);
    ctx.escribir_log(QStringLiteral("Se inserto el medio de pago '") + nuevo.nombre +
                         QStringLiteral("' en la tabla Vendrix_FormasDePago"),
                     QStringLiteral("A"));
    ctx.op().inform(kTituloSalvar, QStringLiteral("Se registro correctamente el ") + nuevo.tipo +
                                       QStringLiteral(" '") + nuevo.nombre + QStringLiteral("'."));
    ctx.escribir_log(QStringLiteral("Se salvo correctamente un nuevo Medios de Pago y Cobro"),
                     QStringLiteral("I"));
    return id;
}

bool eliminar_medio(Context &ctx, const FilaDePago &fila)
{
    return borrar_fila_de_pago(
        ctx, fila,
        {QStringLiteral("Vendrix_FormasDePago"), QStringLiteral("Eliminar Medio de Pago y Cobro"),
         QStringLiteral("¿Quiere eliminar la forma de pago / cobro '") + fila.nombre() +
             QStringLiteral("'? Las facturas ya emitidas y los pagos registrados no se veran afectados."),
         QStringLiteral("Se elimino correctamente el medio de Pago / Cobro '") + fila.nombre() +
             QStringLiteral("'.")});
}

std::optional<QString> editar_medio(Context &ctx, const FilaDePago &fila, ColumnaMedio columna,
                                    const QString &valor)
{
    if (fila.solo_lectura)
        return std::nullopt;
    switch (columna) {
    case ColumnaMedio::Cuotas: {
        // The table keeps whole instalments only.
        if (!es_numerico(valor) || !es_entero(valor))
            return dato_erroneo(ctx);
        const qint64 cuotas = qRound64(valor_texto(valor));
        if (!actualizar(ctx, "cantidad_cuotas", cuotas, fila.id))
            return std::nullopt;
        return QString::number(cuotas);
    }
    case ColumnaMedio::Recargo: {
        if (!es_numerico(valor))
            return dato_erroneo(ctx);
        const double recargo = valor_texto(valor);
        if (!actualizar(ctx, "Recargo", recargo, fila.id))
            return std::nullopt;
        return texto_numero(recargo);
    }
    case ColumnaMedio::Tipo:
        if (!tipos_de_medio().contains(valor))
            return dato_erroneo(ctx);
        if (!actualizar(ctx, "Tipo", valor, fila.id))
            return std::nullopt;
        return valor;
    default:
        return std::nullopt;
    }
}

} // namespace vendrix
