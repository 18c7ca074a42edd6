#include "catalogue/pricing/supplier_rules/rule_store.h"

#include "core/context.h"

namespace vendrix {

namespace {

const QString kCliente = QStringLiteral("cliente");
const QString kExterna = QStringLiteral("external");

// Suppliers of the price list with no rule row at all. Names compare
// exactly, as the rules themselves do, so what the grid shows is what
// prices use.
QStringList proveedores_sin_regla(Context &ctx)
{
    QStringList out;
    const auto cursor = ctx.db().execQ(
        QStringLiteral("SELECT DISTINCT Proveedor FROM xls_proveedores WHERE Proveedor IS NOT NULL AND "
                       "Proveedor COLLATE BINARY NOT IN (SELECT DISTINCT Proveedor FROM %1 "
                       "WHERE Proveedor IS NOT NULL) ORDER BY Proveedor")
            .arg(ctx.db().tabla_descuentos_attach()),
        kExterna);
    for (; cursor && !cursor->eof(); cursor->siguiente())
        out << cursor->texto(0);
    return out;
}

// The list rows of the new suppliers, all or none; each logged once stored.
void agregar_filas_de_lista(Context &ctx, const QStringList &proveedores)
{
    if (proveedores.isEmpty())
        return;
    Transaction tx(ctx.db(), kCliente);
    if (!tx.activa())
        return;
    for (const QString &proveedor : proveedores) {
        if (!ctx.db().execNQ(
                QStringLiteral("INSERT INTO vendrix_descuentos (Proveedor, Grupo, Articulo, borrable) "
                               "VALUES (?, ?, ?, 'false')"),
                kCliente, {proveedor, kGrupoGeneral, kTodosLosArticulos}))
            return;
    }
    if (!tx.commit())
        return;
    for (const QString &proveedor : proveedores)
        ctx.escribir_log(
            QStringLiteral("Se agrego el proveedor '") + proveedor +
                QStringLiteral("' con grupo generico 'General para la lista' por que se determino "
                               "que esta en el archivo vdrxdb y no en el la grilla de descuentos y "
                               "ganancias."),
            QStringLiteral("I"));
}

} // namespace

RuleLevel nivel_regla(const RuleRow &fila)
{
    if (fila.grupo == kGrupoGeneral)
        return RuleLevel::Lista;
    // Rows from before the article level had an empty `Articulo`.
    if (fila.articulo.isEmpty() || fila.articulo == kTodosLosArticulos)
        return RuleLevel::Grupo;
    return RuleLevel::Articulo;
}

QStringList columnas_grilla_reglas()
{
    return {QStringLiteral("Proveedor"), QStringLiteral("Grupo"), QStringLiteral("Articulo"),
            QStringLiteral("Descuento"), QStringLiteral("Ganancia")};
}

std::optional<std::vector<RuleRow>> llenar_grilla_proveedores(Context &ctx)
{
    agregar_filas_de_lista(ctx, proveedores_sin_regla(ctx));

    const auto cursor = ctx.db().execQ(
        QStringLiteral("SELECT a.Proveedor, a.Grupo, a.Articulo, a.Descuento, a.Ganancia FROM %1 a "
                       "WHERE a.Proveedor IN (SELECT Proveedor FROM xls_proveedores) "
                       "ORDER BY a.Proveedor COLLATE NOCASE, ")
                .arg(ctx.db().tabla_descuentos_attach()) +
            orden_reglas(QStringLiteral("a")),
        kExterna);
    if (!cursor) {
        ctx.op().error(
            QStringLiteral("Error al intentar cargar las Grillas."),
            QStringLiteral("ER GR001: Se produjo un error al cargar la información en las Grillas. "
                           "Cierre Vendrix e intente nuevamente."));
        ctx.escribir_log(QStringLiteral("ER GR001 - 1 No se pudo leer la grilla de descuentos y ganancias 0 "
                                        "Vendrix"),
                         QStringLiteral("E"));
        return std::nullopt;
    }
    std::vector<RuleRow> filas;
    for (; !cursor->eof(); cursor->siguiente())
        filas.push_back(
            {cursor->texto(0), cursor->texto(1), cursor->texto(2), cursor->texto(3), cursor->texto(4)});
    return filas;
}

bool RuleStore::llenar(Context &ctx)
{
    std::optional<std::vector<RuleRow>> filas = llenar_grilla_proveedores(ctx);
    if (!filas)
        return false;
    reemplazar(std::move(*filas));
    return true;
}

void RuleStore::reemplazar(std::vector<RuleRow> filas)
{
    tabla_ = RuleTable(std::move(filas));
    ++version_;
    Q_EMIT cambiadas();
}

void RuleStore::cambiar_formula(int fila, RuleColumn columna, const QString &valor)
{
    if (fila < 0 || fila >= static_cast<int>(filas().size()))
        return;
    std::vector<RuleRow> copia = filas();
    RuleRow &f = copia[static_cast<size_t>(fila)];
    if (columna == RuleColumn::Descuento)
        f.descuento = valor;
    else if (columna == RuleColumn::Ganancia)
        f.ganancia = valor;
    else
        return;
    reemplazar(std::move(copia));
}

} // namespace vendrix
