#include "catalogue/pricing/rules.h"

#include "core/context.h"

namespace vendrix {

RuleTable::RuleTable(std::vector<RuleRow> filas) : filas_(std::move(filas))
{
    largo_codigo_.reserve(filas_.size());
    for (int i = 0; i < static_cast<int>(filas_.size()); ++i) {
        const RuleRow &f = filas_[static_cast<size_t>(i)];
        const qsizetype guion = f.articulo.indexOf(QLatin1String(" - "));
        largo_codigo_.push_back(guion < 0 ? f.articulo.size() : guion);
        Index &indice = por_proveedor_[f.proveedor];
        if (f.grupo == kGrupoGeneral)
            indice.lista = i;
        indice.por_grupo[f.grupo].push_back(i);
    }
}

ArticleRules RuleTable::reglas(const QString &proveedor, const QString &grupo,
                                   const QString &codigo) const
{
    const QString cero = QStringLiteral("0");
    const auto indice = por_proveedor_.constFind(proveedor);
    if (indice == por_proveedor_.cend())
        return {cero, cero};
    const RuleRow *de_lista = indice->lista < 0 ? nullptr : &filas_[static_cast<size_t>(indice->lista)];
    const RuleRow *de_grupo = nullptr;
    const RuleRow *de_articulo = nullptr;
    const auto del_grupo = indice->por_grupo.constFind(grupo);
    if (del_grupo != indice->por_grupo.cend()) {
        for (int i : *del_grupo) {
            const RuleRow &f = filas_[static_cast<size_t>(i)];
            if (f.articulo == kTodosLosArticulos)
                de_grupo = &f;
            if (QStringView(f.articulo).left(largo_codigo_[static_cast<size_t>(i)]) == codigo)
                de_articulo = &f;
        }
    }
    auto elegir = [&](QString RuleRow::*columna) {
        if (de_articulo)
            return (de_articulo->*columna).isEmpty() ? cero : de_articulo->*columna;
        if (de_grupo && !(de_grupo->*columna).isEmpty())
            return de_grupo->*columna;
        if (de_lista && !(de_lista->*columna).isEmpty())
            return de_lista->*columna;
        return cero;
    };
    return {elegir(&RuleRow::descuento), elegir(&RuleRow::ganancia)};
}

QString RuleTable::regla_descuento(const QString &proveedor, const QString &grupo,
                                     const QString &codigo) const
{
    return reglas(proveedor, grupo, codigo).descuento;
}

QString RuleTable::regla_ganancia(const QString &proveedor, const QString &grupo,
                                    const QString &codigo) const
{
    return reglas(proveedor, grupo, codigo).ganancia;
}

QString orden_reglas(const QString &alias)
{
    const QString p = alias.isEmpty() ? QString() : alias + QLatin1Char('.');
    return QStringLiteral(
               "CASE WHEN %1Grupo = 'General para la lista' THEN '1' || %1Grupo "
               "WHEN %1Grupo = '' THEN '2' ELSE '3' || COALESCE(%1Grupo, '') END COLLATE NOCASE, "
               "CASE WHEN %1Articulo = 'Todos los articulos del grupo' THEN '           ' || %1Articulo "
               "ELSE COALESCE(%1Articulo, '') END COLLATE NOCASE, %1rowid")
        .arg(p);
}

std::optional<RuleTable> leer_reglas_proveedor(Context &ctx, const QString &proveedor)
{
    // The same order as the rules grid: level and group, then the article
    // with the "all articles" row first (its key starts with blanks); the
    // insertion order settles rows that are otherwise equal.
    const auto cursor =
        ctx.db().execQ(QStringLiteral("SELECT Proveedor, Grupo, Articulo, Descuento, Ganancia "
                                      "FROM vendrix_descuentos WHERE Proveedor = ? ORDER BY ") +
                           orden_reglas(QString()),
                       QStringLiteral("cliente"), {proveedor});
    if (!cursor)
        return std::nullopt;
    std::vector<RuleRow> filas;
    for (; !cursor->eof(); cursor->siguiente())
        filas.push_back(
            {cursor->texto(0), cursor->texto(1), cursor->texto(2), cursor->texto(3), cursor->texto(4)});
    return RuleTable(std::move(filas));
}

} // namespace vendrix
