#pragma once

#include "screens/checkout/frm_lista_de_pago.h"

class QComboBox;
class QLineEdit;

namespace vendrix::screens {

// `frmMediosDePago`: the payment methods, with instalments, surcharge and
// kind. Instalments and surcharge are edited in place, the kind through the
// combo `Combo_tipo_medio_edit` laid over its cell; the seeded rows are
// neither edited nor deleted.
class FrmMediosDePago : public FrmListaDePago {
    Q_OBJECT

public:
    explicit FrmMediosDePago(Context &ctx, QWidget *parent = nullptr);

    void vaciar_Controles() override;

protected:
    std::optional<std::vector<FilaDePago>> cargar() override;
    std::optional<qint64> salvar() override;
    bool eliminar(const FilaDePago &fila) override;

private:
    void antes_de_editar(int row, int col, bool &cancel);
    void despues_de_editar(int row, int col, QString &valor, bool &cancel);
    void tipo_elegido(const QString &tipo);

    QLineEdit *Text_mediodepago_;
    QLineEdit *Text_descripcion_;
    QLineEdit *Text_cuotas_;
    QLineEdit *Text_recargo_;
    QComboBox *Combo_tipo_de_medio_;
    QComboBox *Combo_tipo_medio_edit_;
    int fila_tipo_ = -1; // the row whose kind the combo is editing
};

} // namespace vendrix::screens
