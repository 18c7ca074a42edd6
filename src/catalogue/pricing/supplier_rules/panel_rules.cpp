#include "catalogue/pricing/supplier_rules/panel_rules.h"

#include "catalogue/pricing/formula.h"
#include "catalogue/pricing/supplier_rules/rule_store.h"
#include "core/context.h"

namespace vendrix {

namespace {

const QString kCliente = QStringLiteral("cliente");
const QString kTitulo = QStringLiteral("Valores de Ganancia y Descuento modificados");

struct RuleChanges {
    bool ganancia = false;
    bool descuento = false;
};

RuleChanges cambios(const PanelRule &p, const RuleTable &reglas)
{
    const ArticleRules vigentes = reglas.reglas(p.proveedor, p.grupo, p.codigo);
    return {p.ganancia != p.ganancia_cargada && p.ganancia != vigentes.ganancia,
            p.descuento != p.descuento_cargada && p.descuento != vigentes.descuento};
}

bool grupo_con_regla_propia(const PanelRule &p, const RuleTable &reglas)
{
    for (const RuleRow &f : reglas.filas()) {
        if (f.proveedor == p.proveedor && f.grupo == p.grupo && nivel_regla(f) == RuleLevel::Grupo)
            return true;
    }
    return false;
}

QString clave_articulo(const PanelRule &p)
{
    return p.codigo + QStringLiteral(" - ") + p.descripcion;
}

QString linea_cambio(const PanelRule &p, RuleChanges c)
{
    const QString nombre = p.codigo.isEmpty() ? p.descripcion : clave_articulo(p);
    if (c.ganancia && c.descuento)
        return QStringLiteral("Usted modificó el valor de descuento (") + p.descuento +
               QStringLiteral(") y ganancia (") + p.ganancia +
               QStringLiteral(") configurada para el artículo '") + nombre + QStringLiteral("'.");
    if (c.ganancia)
        return QStringLiteral("Usted modificó el valor de la ganancia (") + p.ganancia +
               QStringLiteral(") configurada para el artículo '") + nombre + QStringLiteral("'.");
    return QStringLiteral("Usted modificó el valor de descuento (") + p.descuento +
           QStringLiteral(") configurado para el artículo '") + nombre + QStringLiteral("'.");
}

QString linea_grupo(Context &ctx, const PanelRule &p)
{
    const QString n =
        ctx.db().execQ1(QStringLiteral("SELECT COUNT(*) FROM xls_listas WHERE Proveedor = ? AND Grupo = ?"),
                        QStringLiteral("external"), {p.proveedor, p.grupo});
    if (n == QLatin1String("1"))
        return QStringLiteral("1 articulo forma parte del grupo '") + p.grupo + QStringLiteral("'.");
    return n + QStringLiteral(" articulos forman parte del grupo '") + p.grupo +
           QStringLiteral(
               "'. Todos ellos se verán afectados por este cambio (excepto aquellos que tuvieran una "
               "configuración partiuclar).");
}

// Stores both formulas under one `Articulo` of the group: an update of the
// row when there is one, else an insert. The log line is returned, to be
// written once the whole change is stored.
bool escribir_regla(Context &ctx, const PanelRule &p, const QString &articulo, QString &log)
{
    const bool existe =
        ctx.db().execQ1(
            QStringLiteral("SELECT COUNT(*) FROM vendrix_descuentos WHERE Proveedor = ? AND Grupo = ? "
                           "AND Articulo = ?"),
            kCliente, {p.proveedor, p.grupo, articulo}) != QLatin1String("0");
    const bool de_grupo = articulo == kTodosLosArticulos;
    if (existe) {
        log = de_grupo ? QStringLiteral("Se modifico el porcentaje de ganancia/descuento del grupo'") +
                             p.grupo + QStringLiteral("' para todos los artículos.")
                       : QStringLiteral("Se modifico el porcentaje de ganancia/descuento de del grupo '") +
                             p.grupo + QStringLiteral("' y Artículo '") + articulo;
        return ctx.db().execNQ(
            QStringLiteral("UPDATE vendrix_descuentos SET Ganancia = ?, Descuento = ? WHERE "
                           "Proveedor = ? AND Grupo = ? AND Articulo = ?"),
            kCliente, {p.ganancia, p.descuento, p.proveedor, p.grupo, articulo});
    }
    log = QStringLiteral("Se inserto un nuevo porcentaje de ganancia/descuento del grupo'") + p.grupo +
          (de_grupo ? QStringLiteral("' para todos los artículos.")
                    : QStringLiteral("' y Artículo '") + articulo);
    return ctx.db().execNQ(
        QStringLiteral("INSERT INTO vendrix_descuentos (Proveedor, Grupo, Articulo, Descuento, "
                       "Ganancia, borrable) VALUES (?, ?, ?, ?, ?, 'true')"),
        kCliente, {p.proveedor, p.grupo, articulo, p.descuento, p.ganancia});
}

bool guardar(Context &ctx, const PanelRule &p, bool articulo, bool grupo)
{
    QStringList logs;
    {
        Transaction tx(ctx.db(), kCliente);
        if (!tx.activa())
            return false;
        QString log;
        if (articulo) {
            if (!escribir_regla(ctx, p, clave_articulo(p), log))
                return false;
            logs << log;
        }
        if (grupo) {
            if (!escribir_regla(ctx, p, kTodosLosArticulos, log))
                return false;
            logs << log;
        }
        if (!tx.commit())
            return false;
    }
    for (const QString &linea : logs)
        ctx.escribir_log(linea, QStringLiteral("A"));
    return true;
}

} // namespace

RuleAction accion_regla(const PanelRule &panel, const RuleTable &reglas)
{
    const RuleChanges c = cambios(panel, reglas);
    if (!c.ganancia && !c.descuento)
        return RuleAction::NoHacerNada;
    if (!formula_valida(panel.ganancia) || !formula_valida(panel.descuento))
        return RuleAction::NoHacerNada;
    if (panel.codigo.trimmed().isEmpty())
        return RuleAction::ModificarSoloGrupo;
    if (grupo_con_regla_propia(panel, reglas))
        return RuleAction::ModificarSoloArticulo;
    return RuleAction::ModificarArticuloYGrupo;
}

bool guardar_regla_desde_detalle(Context &ctx, RuleStore &reglas, const PanelRule &panel)
{
    const RuleAction accion = accion_regla(panel, reglas.tabla());
    if (accion == RuleAction::NoHacerNada)
        return false;
    const bool cambia_grupo = accion != RuleAction::ModificarSoloArticulo;
    QString texto = linea_cambio(panel, cambios(panel, reglas.tabla())) + QStringLiteral("\r\n");
    if (cambia_grupo)
        texto += linea_grupo(ctx, panel);

    bool articulo = false;
    bool grupo = false;
    if (accion == RuleAction::ModificarSoloGrupo) {
        grupo = ctx.op().ask(kTitulo, texto +
                                          QStringLiteral(" Desea guardar estos datos en la configuración de "
                                                         "\"todos\" los artículos del grupo '") +
                                          panel.grupo + QStringLiteral("'?"));
    } else {
        articulo =
            ctx.op().ask(kTitulo, texto + QStringLiteral(" Desea guardar estos datos en la configuración del "
                                                         "artículo?"));
        if (articulo && accion == RuleAction::ModificarArticuloYGrupo)
            grupo = ctx.op().ask(kTitulo,
                                 QStringLiteral("Desea que esta configuración se convierta en \"general\" "
                                                "para todo el grupo '") +
                                     panel.grupo + QStringLiteral("'?"));
    }
    const bool guardado = (articulo || grupo) && guardar(ctx, panel, articulo, grupo);
    if (guardado)
        reglas.llenar(ctx);
    ctx.estado().marcar_ocupado(false);
    return guardado;
}

} // namespace vendrix
