#include "catalogue/rules.h"

#include "core/context.h"

namespace vendrix {

TablaReglas::TablaReglas(std::vector<FilaRegla> filas) : filas_(std::move(filas))
{
    largo_codigo_.reserve(filas_.size());
    for (int i = 0; i < static_cast<int>(filas_.size()); ++i) {
        const FilaRegla &f = filas_[static_cast<size_t>(i)];
        const qsizetype guion = f.articulo.indexOf(QLatin1String(" - "));
        largo_codigo_.push_back(guion < 0 ? f.articulo.size() : guion);
        por_proveedor_[f.proveedor].push_back(i);
    }
}

QString TablaReglas::regla(QString FilaRegla::*columna, const QString &proveedor, const QString &grupo,
                           const QString &codigo) const
{
    const auto filas = por_proveedor_.constFind(proveedor);
    if (filas == por_proveedor_.cend())
        return QStringLiteral("0");
    const QString *de_lista = nullptr;
    const QString *de_grupo = nullptr;
    QString de_articulo;
    for (int i : *filas) {
        const FilaRegla &f = filas_[static_cast<size_t>(i)];
        if (f.grupo == kGrupoGeneral)
            de_lista = &(f.*columna);
        if (f.grupo == grupo) {
            if (f.articulo == kTodosLosArticulos)
                de_grupo = &(f.*columna);
            if (QStringView(f.articulo).left(largo_codigo_[static_cast<size_t>(i)]) == codigo) {
                const QString &valor = f.*columna;
                de_articulo = valor.isEmpty() ? QStringLiteral("0") : valor;
            }
        }
    }
    if (!de_articulo.isEmpty())
        return de_articulo;
    if (de_grupo && !de_grupo->isEmpty())
        return *de_grupo;
    if (de_lista && !de_lista->isEmpty())
        return *de_lista;
    return QStringLiteral("0");
}

QString TablaReglas::regla_descuento(const QString &proveedor, const QString &grupo,
                                     const QString &codigo) const
{
    return regla(&FilaRegla::descuento, proveedor, grupo, codigo);
}

QString TablaReglas::regla_ganancia(const QString &proveedor, const QString &grupo,
                                    const QString &codigo) const
{
    return regla(&FilaRegla::ganancia, proveedor, grupo, codigo);
}

std::optional<TablaReglas> leer_reglas_proveedor(Context &ctx, const QString &proveedor)
{
    // The same order as the rules grid: level and group, then the article
    // with the "all articles" row first (its key starts with blanks); the
    // insertion order settles rows that are otherwise equal.
    const auto cursor = ctx.db().execQ(
        QStringLiteral("SELECT Proveedor, Grupo, Articulo, Descuento, Ganancia FROM vendrix_descuentos "
                       "WHERE Proveedor = ? ORDER BY "
                       "CASE WHEN Grupo = 'General para la lista' THEN '1' || Grupo "
                       "WHEN Grupo = '' THEN '2' ELSE '3' || COALESCE(Grupo, '') END COLLATE NOCASE, "
                       "CASE WHEN Articulo = 'Todos los articulos del grupo' THEN '           ' || Articulo "
                       "ELSE COALESCE(Articulo, '') END COLLATE NOCASE, rowid"),
        QStringLiteral("cliente"), {proveedor});
    if (!cursor)
        return std::nullopt;
    std::vector<FilaRegla> filas;
    for (; !cursor->eof(); cursor->siguiente())
        filas.push_back(
            {cursor->texto(0), cursor->texto(1), cursor->texto(2), cursor->texto(3), cursor->texto(4)});
    return TablaReglas(std::move(filas));
}

} // namespace vendrix
