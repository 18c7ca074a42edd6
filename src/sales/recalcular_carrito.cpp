#include "sales/recalcular_carrito.h"

#include "catalogue/pricing/article_record.h"
#include "catalogue/pricing/formula.h"
#include "catalogue/pricing/price_by_id.h"
#include "catalogue/pricing/rounding.h"
#include "catalogue/pricing/rules.h"
#include "core/context.h"
#include "core/numeric.h"
#include "sales/carrito.h"
#include "sales/operar_carrito.h"

#include <cmath>
#include <optional>

namespace vendrix {

namespace {

const QString kInfo = QStringLiteral("I");

// A change in percent smaller than this is not worth a new price.
constexpr double kCambioMinimo = 0.01;

enum class Paso { siguiente, actualizada, fallo };

// Re-prices the lines of one cart, one at a time.
class Recalculo {
public:
    Recalculo(Context &ctx, Carrito &carrito) : ctx_(ctx), carrito_(carrito) {}

    Paso linea(int fila);

private:
    QString celda(int col) const { return carrito_.celda(fila_, col); }
    // The first field of a query on the price list; nullopt when it failed.
    std::optional<QString> consultar(const QString &sql, const QString &proveedor, const QString &codigo);
    void no_encontrado();
    Paso actualizar(qint64 id, double nuevo);

    Context &ctx_;
    Carrito &carrito_;
    int fila_ = 0;
};

std::optional<QString> Recalculo::consultar(const QString &sql, const QString &proveedor,
                                            const QString &codigo)
{
    const auto cursor = ctx_.db().execQ(sql, QStringLiteral("external"), {proveedor, codigo});
    if (!cursor)
        return std::nullopt;
    return cursor->eof() ? QString() : cursor->texto(0);
}

void Recalculo::no_encontrado()
{
    ctx_.escribir_log(
        QStringLiteral("No se encontro el código del artículo guardado en el carrito con descripción: ") +
            celda(kColArticulo) + QStringLiteral(". No se puede recalcular su precio."),
        kInfo);
}

Paso Recalculo::linea(int fila)
{
    fila_ = fila;
    const QString descripcion = celda(kColArticulo);
    const QString codigo = celda(kColCodigo);
    if (codigo.isEmpty() || codigo == QLatin1String("X") || codigo == QLatin1String("0")) {
        no_encontrado();
        ctx_.op().warn(QStringLiteral("Artículo argegado no en lista"),
                       QStringLiteral("El Artículo '") + descripcion +
                           QStringLiteral("' fue agregado a mano y no se pudo actualizar."));
        return Paso::siguiente;
    }

    const QString proveedor = celda(kColProveedor);
    const QString codigo_proveedor = celda(kColCodigoProveedor);
    const std::optional<QString> cuenta =
        consultar(QStringLiteral("SELECT count(*) FROM xls_listas WHERE Proveedor = ? AND Codigo = ?"),
                  proveedor, codigo_proveedor);
    if (!cuenta)
        return Paso::fallo;
    if (*cuenta == QLatin1String("0")) {
        no_encontrado();
        ctx_.op().warn(kTituloPrograma,
                       QStringLiteral("El Artículo '") + descripcion +
                           QStringLiteral("' No se encuentra disponible en la lista actual. Se "
                                          "mantendrá el precio original."));
        return Paso::siguiente;
    }
    if (*cuenta != QLatin1String("1")) {
        ctx_.op().warn(kTituloPrograma,
                       QStringLiteral("El Artículo '") + descripcion +
                           QStringLiteral("' no tiene código o el código esta repetido y no se "
                                          "pudo actualizar."));
        ctx_.escribir_log(
            QStringLiteral("Se encontraron ") + *cuenta +
                QStringLiteral(" para el código del artículo guardado en el carrito con descripción: ") +
                descripcion + QStringLiteral(". No se puede recalcular su precio."),
            kInfo);
        return Paso::siguiente;
    }

    const std::optional<QString> id =
        consultar(QStringLiteral("SELECT ID FROM xls_listas WHERE Proveedor = ? AND Codigo = ?"), proveedor,
                  codigo_proveedor);
    if (!id)
        return Paso::fallo;
    const qint64 id_articulo = id->toLongLong();
    const double nuevo = precio_final_por_id(ctx_, id_articulo);
    // The price couldn't be worked out and the operator has been told: the
    // line keeps its price.
    if (nuevo < 0)
        return Paso::siguiente;
    ctx_.escribir_log(
        QStringLiteral("Se encontro un unico match para el articulo en la base actual y se recalculo su "
                       "precio: $ ") +
            texto_numero(nuevo) + QStringLiteral(". Esta variable es ya de tipo double."),
        kInfo);
    if (nuevo == 0) {
        ctx_.op().warn(QStringLiteral("Artículo encontrado con precio cero"),
                       QStringLiteral("Se encontró el artículo: '") + descripcion +
                           QStringLiteral("', pero su precio actual es cero. Se dejará el precio original."));
        return Paso::siguiente;
    }
    return actualizar(id_articulo, nuevo);
}

Paso Recalculo::actualizar(qint64 id, double nuevo)
{
    const QString descripcion = celda(kColArticulo);
    const QString mostrado = redondear_precio(ctx_, nuevo);
    const double anterior = valor_texto(celda(kColPrecioUnitario));
    // A line priced 0 takes any new price as a rise.
    const double diferencia = anterior == 0 ? HUGE_VAL : (valor_texto(mostrado) - anterior) * 100 / anterior;
    if (std::abs(diferencia) < kCambioMinimo) {
        ctx_.escribir_log(
            QStringLiteral("Durante el procedimiento de recalcular el carrito, se encontro un precio para "
                           "el código del artículo: ") +
                celda(kColCodigo) +
                QStringLiteral(", pero visto que la diferencia con el precio del carrito es de ") +
                texto_numero(diferencia) + QStringLiteral(" (menos del 0.01 %) no fue actualizado."),
            kInfo);
        return Paso::siguiente;
    }
    // Rises pass silently; a fall needs the operator's yes.
    if (diferencia < 0 &&
        !ctx_.op().ask(
            QStringLiteral("Question"),
            QStringLiteral("Se encontró el artículo: '") + descripcion +
                QStringLiteral("', con un precio final de $") + mostrado +
                QStringLiteral(" (diferencia de ") + texto_numero(diferencia) +
                QStringLiteral("% respecto al precio original). ¿Desea utilizar el precio nuevo?"))) {
        ctx_.escribir_log(
            QStringLiteral("Durante el procedimiento de recalcular el carrito, se encontro un nuevo "
                           "precio para el artículo: ") +
                descripcion + QStringLiteral(" pero el usuario prefirio no actualizarlo."),
            kInfo);
        return Paso::siguiente;
    }

    const ArticleRead lectura = leer_articulo(ctx_, id);
    if (!lectura.ok)
        return Paso::fallo;
    const PricedArticle &a = lectura.articulo;
    const std::optional<RuleTable> reglas = leer_reglas_proveedor(ctx_, a.proveedor);
    if (!reglas)
        return Paso::fallo;
    const ArticleRules formulas = reglas->reglas(a.proveedor, a.grupo, a.codigo);

    carrito_.set_celda(fila_, kColPrecioUnitario, mostrado);
    carrito_.set_celda(fila_, kColImporte,
                       texto_numero(valor_texto(celda(kColCantidad)) * valor_texto(mostrado)));
    // Both percentages are worked out the way a margin is: so the lines have
    // always held them.
    carrito_.set_celda(fila_, kColDescuento,
                       texto_numero(formula_a_porcentaje(formulas.descuento, u"ganancia")));
    carrito_.set_celda(fila_, kColGanancia,
                       texto_numero(formula_a_porcentaje(formulas.ganancia, u"ganancia")));
    carrito_.set_celda(fila_, kColProveedor, a.proveedor);
    carrito_.set_celda(fila_, kColGrupoProveedor, a.grupo);
    carrito_.set_celda(fila_, kColCodigoProveedor, a.codigo);
    actualizar_total_carrito(carrito_);
    ctx_.escribir_log(
        QStringLiteral("Durante el procedimiento de recalcular el carrito, se encontro un nuevo precio "
                       "para el código del artículo: ") +
            celda(kColCodigo) + QStringLiteral(" y fue actualizado por el usuario."),
        kInfo);
    return Paso::actualizada;
}

QString mensaje_final(int actualizadas)
{
    if (actualizadas == 0)
        return QStringLiteral("Se terminó de recalcular el carrito. El carrito contiene yá los precios más "
                              "recientes.");
    if (actualizadas == 1)
        return QStringLiteral("Se realizó una actualización de precio al recalcular el carrito. El carrito "
                              "contiene ya los precios más recientes.");
    return QStringLiteral("Se realizarón ") + QString::number(actualizadas) +
           QStringLiteral(
               " actualizaciones de precios al recalcular el carrito. El carrito contiene ya los precios "
               "más recientes.");
}

int fallo_recalculo(Context &ctx)
{
    ctx.estado().marcar_ocupado(false);
    ctx.op().error(QStringLiteral("Error al recalcular un carrito."),
                   QStringLiteral("ER RECA001: Se produjo un error al intentar recalcular el Carrito. Cierre "
                                  "Vendrix e intente nuevamente."));
    ctx.escribir_log(QStringLiteral("ER RECA001 - 1 No se pudo consultar la lista de precios Vendrix"),
                     QStringLiteral("E"));
    return -1;
}

} // namespace

double precio_final_por_id(Context &ctx, qint64 id)
{
    return calcular_precio_por_id(ctx, id);
}

bool confirmar_recalcular_carrito(Context &ctx, Carrito &carrito)
{
    if (carrito.vacio()) {
        ctx.op().warn(QStringLiteral("Error al recalcular carrito"),
                      QStringLiteral("El carrito esta vacío. Agregue un artículo e intente nuevamente"));
        return false;
    }
    if (!ctx.op().ask(
            QStringLiteral("¿Recalcular precios carrito?"),
            QStringLiteral("¿Está seguro que desea recalcular el precio del carrito? Se sobreescribirán "
                           "todos los precios")))
        return false;
    ctx.estado().marcar_ocupado(true);
    recalcular_carrito(ctx, carrito);
    ctx.estado().marcar_ocupado(false);
    return true;
}

int recalcular_carrito(Context &ctx, Carrito &carrito)
{
    ctx.escribir_log(QStringLiteral("Se procede a recalcular los precios del carrito."), kInfo);
    if (carrito.vacio()) {
        ctx.op().warn(QStringLiteral("No se puede recalcular el precio del carrito"),
                      QStringLiteral("El carrito no puede estar vacío para recalcular su precio."));
        return -1;
    }
    // The whole run is one change of the cart, told when it ends.
    Carrito::Lote lote(carrito);
    Recalculo recalculo(ctx, carrito);
    int actualizadas = 0;
    for (int fila = 0; fila < carrito.filas(); ++fila) {
        const Paso paso = recalculo.linea(fila);
        if (paso == Paso::fallo)
            return fallo_recalculo(ctx);
        if (paso == Paso::actualizada)
            ++actualizadas;
    }
    ctx.op().inform(QStringLiteral("Operación Exitosa"), mensaje_final(actualizadas));
    return actualizadas;
}

} // namespace vendrix
