#pragma once

#include "backoffice/payment/payment_rows.h"

#include <QDialog>

#include <optional>
#include <vector>

class QFormLayout;
class QPushButton;

namespace vendrix {
class Context;
namespace widgets {
class LynxGrid;
}
} // namespace vendrix

namespace vendrix::screens {

// What the two payment-list dialogs share: the grid `DataGridViewFdP` (key
// and read-only flag in hidden columns, a delete picture in the last column
// of the rows the shop added), a form to add a row above
// `Command_clipro_salvar`, and the refill after each change. Each dialog
// brings its fields and calls its store.
class FrmListaDePago : public QDialog {
    Q_OBJECT

public:
    widgets::LynxGrid *grilla() const { return grilla_; }
    // Rebuilds the grid from the table.
    void Inicializar_DataGridViewFdP();
    virtual void vaciar_Controles() = 0;

protected:
    // `columnas` as the store names them; widths in twips, 0 for the hidden ones.
    FrmListaDePago(Context &ctx, const QStringList &columnas, const std::vector<int> &anchos,
                   QWidget *parent);

    virtual std::optional<std::vector<FilaDePago>> cargar() = 0;
    // The new row's id when one was stored.
    virtual std::optional<qint64> salvar() = 0;
    virtual bool eliminar(const FilaDePago &fila) = 0;

    // The row of the grid's row number, null when out of range.
    const FilaDePago *fila(int row) const;

    Context &ctx_;
    QFormLayout *form_;

private:
    void click();
    void salvar_y_recargar();

    widgets::LynxGrid *grilla_;
    QPushButton *salvar_;
    std::vector<FilaDePago> filas_;
};

} // namespace vendrix::screens
