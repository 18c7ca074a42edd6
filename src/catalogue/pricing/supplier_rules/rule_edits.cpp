#include "catalogue/pricing/supplier_rules/rule_edits.h"

#include "catalogue/pricing/formula.h"
#include "catalogue/pricing/supplier_rules/rule_combos.h"
#include "core/context.h"

namespace vendrix {

namespace {

const QString kCliente = QStringLiteral("cliente");
const QString kErrorDatos = QStringLiteral("Error en los datos");
const QString kErrorBorrar = QStringLiteral("Error al eliminar un dato.");

// A list row of the oldest tables has an empty `Articulo`: it stands for
// all the articles, as the newer rows say in words.
QString articulo_normalizado(const QString &articulo)
{
    return articulo.isEmpty() ? kTodosLosArticulos : articulo;
}

// A formula that can't be evaluated, in either column: the grid has one
// message for it, the discount's.
bool formula_aceptada(Context &ctx, const QString &formula)
{
    if (formula_valida(formula))
        return true;
    ctx.op().error(QStringLiteral("Error en el descuento"),
                   QStringLiteral("Hay un error en la formula del descuento. Por favor corríjala e intente "
                                  "nuevamente"));
    return false;
}

// The WHERE clause of one grid row and its values: an article row by its
// key; a list or group row by its level, so that the article rows of the
// group are left alone.
QString donde_fila(const RuleRow &fila, SqlParams &params)
{
    params.push_back(fila.proveedor);
    params.push_back(fila.grupo);
    if (nivel_regla(fila) == RuleLevel::Articulo) {
        params.push_back(fila.articulo);
        return QStringLiteral(" WHERE Proveedor = ? AND Grupo = ? AND Articulo = ?");
    }
    return QStringLiteral(" WHERE Proveedor = ? AND Grupo = ? AND (Articulo IS NULL OR Articulo = '' OR "
                          "Articulo = 'Todos los articulos del grupo')");
}

} // namespace

bool agregar_regla(Context &ctx, const std::vector<RuleRow> &grilla, const RuleRow &nueva)
{
    if (!formula_aceptada(ctx, nueva.descuento) || !formula_aceptada(ctx, nueva.ganancia))
        return false;
    const QString articulo = articulo_normalizado(nueva.articulo);
    for (const RuleRow &f : grilla) {
        if (f.proveedor == nueva.proveedor && f.grupo == nueva.grupo &&
            articulo_normalizado(f.articulo) == articulo) {
            ctx.op().error(kErrorDatos,
                           QStringLiteral("Los valores de descuento y ganancia para el proveedor \"") +
                               nueva.proveedor + QStringLiteral("\" y el grupo \"") + nueva.grupo +
                               QStringLiteral("\" ya estan definidos. Los porcentajes generales "
                                              "deben informarse directamente en el cuadro superior."));
            return false;
        }
    }
    if (articulo != kTodosLosArticulos) {
        const QString codigo = codigo_de_item(articulo);
        if (codigo.isEmpty()) {
            ctx.op().error(
                kErrorDatos,
                QStringLiteral("El artículo ") + articulo +
                    QStringLiteral(" no posse un código y por lo tanto no puede asignarse un descuento "
                                   "y ganancia a nivel de artículo. Intente a definir la ganancia y el "
                                   "descuento a nivel de grupo."));
            return false;
        }
        ctx.op().inform(
            QStringLiteral("Artículo con ganancia y descuento específicos"),
            QStringLiteral("Usted está por configurar los porcentajes de ganancia y descuento a nivel de "
                           "artículo. Vendrix no puede garantizar que en el futuro, el proveedor ") +
                nueva.proveedor + QStringLiteral(" mantendrá el código ") + codigo +
                QStringLiteral(" para el artículo ") + articulo +
                QStringLiteral(
                    " en el futuro. Úselo teniendo en cuenta esta salvedad y revise semanalmente, en "
                    "la la solapa \"Novedades\", los \"Cambios de Descripción\" realizados po el "
                    "proveedor."));
    }
    return ctx.db().execNQ(
        QStringLiteral("INSERT INTO vendrix_descuentos (Proveedor, Grupo, Articulo, Descuento, "
                       "Ganancia, borrable) VALUES (?, ?, ?, ?, ?, 'true')"),
        kCliente, {nueva.proveedor, nueva.grupo, articulo, nueva.descuento, nueva.ganancia});
}

bool editar_regla(Context &ctx, const RuleRow &fila, RuleColumn columna, const QString &valor)
{
    if (columna != RuleColumn::Descuento && columna != RuleColumn::Ganancia)
        return false;
    if (!formula_aceptada(ctx, valor))
        return false;
    SqlParams params{valor};
    const QString donde = donde_fila(fila, params);
    const QString campo =
        columna == RuleColumn::Descuento ? QStringLiteral("Descuento") : QStringLiteral("Ganancia");
    return ctx.db().execNQ(QStringLiteral("UPDATE vendrix_descuentos SET ") + campo + QStringLiteral(" = ?") +
                               donde,
                           kCliente, params);
}

bool borrar_regla(Context &ctx, const RuleRow *fila)
{
    if (!fila) {
        ctx.op().error(kErrorBorrar,
                       QStringLiteral("Antes de eliminar, debe seleccionar una fila en el cuadro de "
                                      "los proveedores."));
        return false;
    }
    if (nivel_regla(*fila) == RuleLevel::Lista) {
        ctx.op().error(
            kErrorBorrar,
            QStringLiteral("El valor 'General para la lista' no puede ser eliminado ya que se utiliza "
                           "para calcular todos los descuentos y ganancias a nivel global para la "
                           "lista seleccionada."));
        return false;
    }
    if (!ctx.op().ask(QStringLiteral("Borrar configuración del proveedor"),
                      QStringLiteral("¿Está seguro que desea borrar la configuración del grupo \"") +
                          fila->grupo + QStringLiteral("\" y el proveedor \"") + fila->proveedor +
                          QStringLiteral("\"?")))
        return false;
    SqlParams params;
    const QString donde = donde_fila(*fila, params);
    if (!ctx.db().execNQ(QStringLiteral("DELETE FROM vendrix_descuentos") + donde, kCliente, params))
        return false;
    ctx.escribir_log(
        QStringLiteral("Configuración - se borro un proveedor/grupo de la grilla de descuento/ganancia"),
        QStringLiteral("A"));
    return true;
}

} // namespace vendrix
