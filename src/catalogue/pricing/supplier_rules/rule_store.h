#pragma once

#include "catalogue/pricing/rules.h"

#include <QObject>
#include <QStringList>

#include <optional>
#include <vector>

namespace vendrix {

class Context;

// The level of a rule row. The rules grid tells the list rows and the
// "all articles" rows of a group apart by colour.
enum class RuleLevel { Lista, Grupo, Articulo };
RuleLevel nivel_regla(const RuleRow &fila);

// The columns of `DataGridViewProveedores`, in order.
enum class RuleColumn { Supplier, Grupo, Articulo, Descuento, Ganancia };
QStringList columnas_grilla_reglas();

// Fills the rules grid: each supplier of `xls_proveedores` that has no rule
// row yet gets its list row (empty formulas, not deletable), each one logged;
// then the rows of the suppliers that are in the price list, in the grid's
// order (see `orden_reglas`). Rules of suppliers that left the list stay in
// the table and don't show. When the new rows can't be written nothing of
// them stays and the rows that exist are still read. nullopt when the rows
// can't be read: "Error al intentar cargar las Grillas." was shown.
std::optional<std::vector<RuleRow>> llenar_grilla_proveedores(Context &ctx);

// The shop's margin and discount rules as the rules grid shows them: the one
// source from which every price of the panel is worked out. The program fills
// it before any article is loaded; edits of the grid and of the panel change
// it; views listen to `cambiadas`.
class RuleStore : public QObject {
    Q_OBJECT

public:
    explicit RuleStore(QObject *parent = nullptr) : QObject(parent) {}

    const std::vector<RuleRow> &filas() const { return tabla_.filas(); }
    const RuleTable &tabla() const { return tabla_; }
    // Grows at each change, so that a view can tell its figures are stale.
    quint64 version() const { return version_; }

    // `llenar_grilla("DataGridViewProveedores")`: refills from the database;
    // on a failure the rows stay as they were and the result is false.
    bool llenar(Context &ctx);
    void reemplazar(std::vector<RuleRow> filas);
    // A formula cell edited in the grid (already stored).
    void cambiar_formula(int fila, RuleColumn columna, const QString &valor);

Q_SIGNALS:
    void cambiadas();

private:
    RuleTable tabla_;
    quint64 version_ = 0;
};

} // namespace vendrix
