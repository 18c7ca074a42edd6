#include "sales/cart_store.h"

#include "core/context.h"

namespace vendrix {

namespace {

const QString kTarget = QStringLiteral("internal");

// The cart, its line and the captions, then the thirteen cells in order.
const QString kColumnas = QStringLiteral(
    "Carrito, Fila, Nombre, Marca_guardado, Leyenda, Total, Cantidad, Articulo, Precio_unit, Importe, IVA, "
    "Codigo, Ganancia, Descuento, Descuento_cliente, Costo, Codigo_segun_proveedor, Grupo_segun_proveedor, "
    "Proveedor");
constexpr int kPrimeraCelda = 6;

QString tabla()
{
    return QLatin1String(CartStore::kTabla);
}

} // namespace

CartStore::~CartStore()
{
    if (carritos_)
        carritos_->set_aviso_cambio({});
}

bool CartStore::hay_tabla()
{
    return ctx_.db().existe_tabla(tabla(), kTarget);
}

int CartStore::restaurar(Carritos &carritos)
{
    if (!hay_tabla())
        return 0;
    const Matrix copias =
        ctx_.db().execQ_matriz(QStringLiteral("SELECT ") + kColumnas + QStringLiteral(" FROM ") + tabla() +
                                   QStringLiteral(" ORDER BY Carrito, Fila"),
                               kTarget);
    int restaurados = 0;
    for (int numero = 1; numero <= Carritos::kCantidad; ++numero) {
        Carrito &carrito = carritos.carrito(numero);
        Carrito::Lote lote(carrito);
        int ultima = -1;
        for (int fila = 0; fila < copias.filas(); ++fila) {
            if (copias.at(0, fila).toInt() != numero)
                continue;
            if (ultima < 0)
                carrito.quitar_lineas();
            LineaCarrito linea;
            for (int col = 0; col < kColumnasCarrito; ++col)
                linea[static_cast<size_t>(col)] = copias.at(kPrimeraCelda + col, fila);
            carrito.agregar_linea(linea);
            ultima = fila;
        }
        if (ultima < 0)
            continue;
        carrito.set_marca_guardado(copias.at(3, ultima));
        carrito.set_leyenda_extra(copias.at(4, ultima));
        carrito.set_texto_total(copias.at(5, ultima));
        // Config.vdrx may have been replaced since; the cart keeps its name.
        const QString nombre = copias.at(2, ultima);
        if (!nombre.isEmpty() && nombre != nombre_carrito(ctx_, numero))
            ctx_.escribir_parametro(QStringLiteral("nombre_carrito_") + carrito.numero_texto(), nombre);
        ctx_.escribir_log(QStringLiteral("Carrito - se recuperó el carrito ") + nombre_carrito(ctx_, numero) +
                              QStringLiteral(" con ") + QString::number(carrito.filas()) +
                              QStringLiteral(" artículos que quedaron abiertos"),
                          QStringLiteral("I"));
        ++restaurados;
    }
    return restaurados;
}

void CartStore::escuchar(Carritos &carritos)
{
    if (!hay_tabla())
        return;
    carritos_ = &carritos;
    carritos.set_aviso_cambio([this](const Carrito &carrito) { guardar(carrito); });
}

bool CartStore::guardar(const Carrito &carrito)
{
    const QString nombre = nombre_carrito(ctx_, carrito.numero());
    if (reemplazar_copia(carrito, nombre))
        return true;
    ctx_.escribir_log(QStringLiteral("Carrito - no se pudo guardar la copia del carrito ") + nombre,
                      QStringLiteral("E"));
    return false;
}

bool CartStore::reemplazar_copia(const Carrito &carrito, const QString &nombre)
{
    Database &db = ctx_.db();
    const QString borrar = QStringLiteral("DELETE FROM ") + tabla() + QStringLiteral(" WHERE Carrito = ?");
    if (carrito.vacio())
        return db.execNQ(borrar, kTarget, {carrito.numero()});
    const QString insertar = QStringLiteral("INSERT INTO ") + tabla() + QStringLiteral(" (") + kColumnas +
                             QStringLiteral(") VALUES (?") + QStringLiteral(", ?").repeated(18) +
                             QLatin1Char(')');
    Transaction tx(db, kTarget);
    // Without the transaction the rows would go one by one: a failure
    // halfway would leave a cart cut short.
    if (!tx.activa() || !db.execNQ(borrar, kTarget, {carrito.numero()}))
        return false;
    for (int fila = 0; fila < carrito.filas(); ++fila) {
        SqlParams valores{
            carrito.numero(),     fila, nombre, carrito.marca_guardado(), carrito.leyenda_extra(),
            carrito.texto_total()};
        for (const QString &celda : carrito.linea(fila))
            valores.emplace_back(celda);
        if (!db.execNQ(insertar, kTarget, valores))
            return false;
    }
    return tx.commit();
}

} // namespace vendrix
