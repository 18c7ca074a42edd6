#pragma once

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

namespace vendrix {

class Context;

// One margin and discount rule, as the rules grid shows it.
struct RuleRow {
    QString proveedor;
    QString grupo;    // kGrupoGeneral for the list-level row
    QString articulo; // kTodosLosArticulos, or code + " - " + description
    QString descuento;
    QString ganancia;
};

inline const QString kGrupoGeneral = QStringLiteral("General para la lista");
inline const QString kTodosLosArticulos = QStringLiteral("Todos los articulos del grupo");

// The two formulas that apply to one article.
struct ArticleRules {
    QString descuento;
    QString ganancia;
};

// The shop's rules in the grid's order, indexed by supplier and group so that
// a whole price list can be resolved quickly.
class RuleTable {
public:
    RuleTable() = default;
    explicit RuleTable(std::vector<RuleRow> filas);

    const std::vector<RuleRow> &filas() const { return filas_; }

    // The discount and margin formulas that apply to an article. The
    // article's own rule beats its group's, which beats the list's; among
    // rows of one level the last wins; an article rule with an empty cell
    // gives "0" and so cancels the others; no rule at all gives "0". All
    // comparisons are exact.
    QString regla_descuento(const QString &proveedor, const QString &grupo, const QString &codigo) const;
    QString regla_ganancia(const QString &proveedor, const QString &grupo, const QString &codigo) const;
    // Both at once.
    ArticleRules reglas(const QString &proveedor, const QString &grupo, const QString &codigo) const;

private:
    struct Index {
        int lista = -1; // the supplier's last list-level row
        QHash<QString, std::vector<int>> por_grupo;
    };

    std::vector<RuleRow> filas_;
    std::vector<qsizetype> largo_codigo_; // length of the code part of each `articulo`
    QHash<QString, Index> por_proveedor_;
};

// The ORDER BY terms (without the supplier) that put rule rows of
// `vendrix_descuentos` in the grid's order: the list row first, then the
// groups by name, within a group the "all articles" row before the single
// articles (its key starts with eleven blanks), and rows otherwise equal in
// the order they were added. `alias` qualifies the columns ("a" for "a.Grupo").
QString orden_reglas(const QString &alias);

// The rules of one supplier from `vendrix_descuentos`, in the order of the
// rules grid: the list row first, then the groups by name, within a group the
// "all articles" row before the single articles. nullopt when the database
// failed (the layer has logged it).
std::optional<RuleTable> leer_reglas_proveedor(Context &ctx, const QString &proveedor);

} // namespace vendrix
