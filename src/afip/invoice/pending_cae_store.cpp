#include "afip/invoice/pending_cae_store.h"

#include "core/context.h"

namespace vendrix {

namespace {

const QString kTienda = QStringLiteral("internal");

QString ahora(const Context &ctx)
{
    return ctx.reloj().now().toString(Qt::ISODate);
}

// True when a request already went out under the reference.
bool hay_pedido_enviado(Database &db, const QString &referencia)
{
    return !db.execQ1(QStringLiteral("SELECT CbteNro FROM vendrix_cae_pendientes WHERE referencia = ? AND "
                                     "CbteNro IS NOT NULL"),
                      kTienda, {referencia})
                .isEmpty();
}

class RegistroCaeTienda final : public RegistroCaePendiente {
public:
    explicit RegistroCaeTienda(Context &ctx) : ctx_(ctx) {}

    bool enviando(const SolicitudCae &s) override
    {
        Database &db = ctx_.db();
        // An earlier request of the same sale that nobody settled would be
        // forgotten: it must be settled before another goes out.
        if (hay_pedido_enviado(db, s.referencia)) {
            log(QStringLiteral("Ya hay un pedido de CAE sin resolver para la referencia ") + s.referencia +
                    QStringLiteral(": no se envía otro."),
                "E");
            return false;
        }
        const bool ok = db.execNQ(
            QStringLiteral(
                "INSERT INTO vendrix_cae_pendientes (referencia, CbteTipo, PtoVta, CbteNro, ImpTotal, "
                "CbteFch, "
                "creado) VALUES (?, ?, ?, ?, ?, ?, ?) ON CONFLICT (referencia) DO UPDATE SET CbteTipo = "
                "excluded.CbteTipo, PtoVta = excluded.PtoVta, CbteNro = excluded.CbteNro, ImpTotal = "
                "excluded.ImpTotal, CbteFch = excluded.CbteFch, CAE = NULL, CAEFchVto = NULL"),
            kTienda, {s.referencia, s.tipo, s.punto_de_venta, s.numero, s.total, s.fecha, ahora(ctx_)});
        if (ok)
            log(QStringLiteral(
                    "Pedido de CAE en curso para la referencia %1: tipo %2, punto de venta %3, número "
                    "%4, total %5.")
                    .arg(s.referencia)
                    .arg(s.tipo)
                    .arg(s.punto_de_venta)
                    .arg(s.numero)
                    .arg(s.total));
        return ok;
    }

    void autorizado(const QString &referencia, const QString &cae, const QString &cae_vto) override
    {
        if (ctx_.db().execNQ(
                QStringLiteral(
                    "UPDATE vendrix_cae_pendientes SET CAE = ?, CAEFchVto = ? WHERE referencia = ?"),
                kTienda, {cae, cae_vto, referencia}))
            log(QStringLiteral("La AFIP autorizó el pedido de la referencia ") + referencia +
                QStringLiteral(" con el CAE ") + cae + QLatin1Char('.'));
    }

    void descartado(const QString &referencia) override
    {
        if (borrar_cae_pendiente(ctx_.db(), referencia))
            log(QStringLiteral("La AFIP no autorizó el pedido de la referencia ") + referencia +
                QStringLiteral(": su número no se usó."));
    }

private:
    void log(const QString &mensaje, const char *nivel = "I") const
    {
        // The log closes each line with its own full stop.
        ctx_.escribir_log(mensaje.chopped(1), QString::fromLatin1(nivel));
    }

    Context &ctx_;
};

} // namespace

std::unique_ptr<RegistroCaePendiente> registro_cae_de_la_tienda(Context &ctx)
{
    return std::make_unique<RegistroCaeTienda>(ctx);
}

bool escribir_borrador_cae(Context &ctx, const QString &referencia, const QString &documento)
{
    Database &db = ctx.db();
    if (hay_pedido_enviado(db, referencia))
        return false;
    return db.execNQ(
        QStringLiteral("INSERT OR REPLACE INTO vendrix_cae_pendientes (referencia, documento, creado) "
                       "VALUES (?, ?, ?)"),
        kTienda, {referencia, documento, ahora(ctx)});
}

std::vector<CaePendiente> cae_pendientes(Context &ctx)
{
    Database &db = ctx.db();
    std::vector<CaePendiente> out;
    // Before the schema update made it, or on a database without it.
    if (!db.existe_tabla(QLatin1String(kTablaCaePendientes), kTienda))
        return out;
    const Matrix m = db.execQ_matriz(
        QStringLiteral("SELECT referencia, documento, CbteTipo, PtoVta, CbteNro, ImpTotal, CbteFch, CAE, "
                       "CAEFchVto, creado FROM vendrix_cae_pendientes ORDER BY creado, referencia"),
        kTienda);
    for (int fila = 0; fila < m.filas(); ++fila)
        out.push_back({m.at(0, fila), m.at(1, fila), m.at(2, fila).toInt(), m.at(3, fila).toInt(),
                       m.at(4, fila).toLongLong(), m.at(5, fila), m.at(6, fila), m.at(7, fila), m.at(8, fila),
                       m.at(9, fila)});
    return out;
}

bool borrar_cae_pendiente(Database &db, const QString &referencia)
{
    return db.execNQ(QStringLiteral("DELETE FROM vendrix_cae_pendientes WHERE referencia = ?"), kTienda,
                     {referencia});
}

} // namespace vendrix
