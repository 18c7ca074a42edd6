#include "backoffice/ledger/transfer_form.h"

#include "backoffice/ledger/ledger_store.h"
#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

namespace {

const QString kInternal = QStringLiteral("Internal");
const QString kTituloDatos = QStringLiteral("Error en los Datos");

} // namespace

TransferForm::TransferForm(Context &ctx, QString modo, qint64 id) : ctx_(ctx), modo_(std::move(modo)), id_(id)
{
}

VistaTransferencia TransferForm::cargar() const
{
    VistaTransferencia v;
    if (auto c =
            ctx_.db().execQ(QStringLiteral("SELECT forma_de_pago FROM Vendrix_FormasDePago WHERE tipo <> "
                                           "'Solo Cobro' ORDER by forma_de_pago"),
                            kInternal))
        for (; !c->eof(); c->siguiente())
            v.medios << c->texto(0);
    if (modo_ == QLatin1String(kModificarTransferencia)) {
        v.marco = QStringLiteral("Transferencia");
        v.boton = v.titulo = QStringLiteral("Modificar Transferencia");
        v.cancelar = QStringLiteral("Cancelar");
        const auto campo = [this](const char *nombre) {
            return ctx_.db().execQ1(
                QStringLiteral("SELECT %1 FROM Vendrix_Pagos WHERE ID = ?").arg(QLatin1String(nombre)),
                kInternal, {id_});
        };
        v.origen = campo("Medio_de_pago_origen");
        v.destino = campo("Medio_de_pago");
        const QString total = campo("Total_Pago");
        v.total = total.isEmpty() ? total : texto_numero(valor_texto(total));
        v.notas = campo("Notas");
    } else {
        v.marco = v.boton = v.titulo = QStringLiteral("Agregar Transferencia");
        v.cancelar = QStringLiteral("Cancelar");
    }
    return v;
}

bool TransferForm::medios_distintos(const QString &origen, const QString &destino) const
{
    if (origen.isEmpty() || origen != destino)
        return true;
    ctx_.op().error(kTituloDatos,
                    QStringLiteral("El Origen y el Destino de la Transferencia no pueden ser iguales."));
    return false;
}

bool TransferForm::salir_total(const QString &total) const
{
    const QString titulo = QStringLiteral("Error en los datos ingresados");
    // An empty box counts as 0.
    const QString texto = QLatin1Char('0') + total.trimmed();
    if (!es_numerico(texto)) {
        ctx_.op().error(
            titulo,
            QStringLiteral("El valor del campo 'Total' no es numerico, por favor intente nuevamente."));
        return false;
    }
    if (valor_texto(texto) <= 0) {
        ctx_.op().error(titulo, QStringLiteral("El valor del campo 'Total' es menor o igual a cero."));
        return false;
    }
    return true;
}

bool TransferForm::guardar(const QDate &fecha, const QString &origen, const QString &destino,
                           const QString &total, const QString &notas) const
{
    if (modo_ == QLatin1String(kModificarTransferencia)) {
        ctx_.escribir_log(QStringLiteral("Command_Agregar --> SE MODIFICA UNA TRANSFERENCIA"),
                          QStringLiteral("A"));
        ctx_.op().inform(QStringLiteral("Salvar Datos"),
                         QStringLiteral("Se modificó la Transferencia Correctamente correctamente"));
        return true;
    }
    const QString texto = QLatin1Char('0') + total.trimmed();
    const double monto = es_numerico(texto) ? valor_texto(texto) : 0;
    if (monto <= 0) {
        ctx_.op().error(kTituloDatos, QStringLiteral("El total a Transferir tiene que ser mayor que cero."));
        return false;
    }
    if (origen == destino) {
        ctx_.op().error(kTituloDatos,
                        QStringLiteral("El Origen y el Destino de la Transferencia no pueden ser iguales."));
        return false;
    }
    // The storage has shown and logged its own failure.
    if (agregar_transferencia(ctx_, fecha, origen, destino, monto, notas) == QLatin1String("0"))
        return false;
    ctx_.op().inform(QStringLiteral("Salvar Datos"),
                     QStringLiteral("Se agrego una Transferencia Correctamente correctamente"));
    return true;
}

} // namespace vendrix
