#pragma once

#include "screens/checkout/frm_lista_de_pago.h"

class QComboBox;
class QLineEdit;

namespace vendrix::screens {

// `FrmDestinosDePago`: the purposes a payment goes to, and whether a
// payment to each names a supplier. Rows are added and deleted, never edited.
class FrmDestinosDePago : public FrmListaDePago {
    Q_OBJECT

public:
    explicit FrmDestinosDePago(Context &ctx, QWidget *parent = nullptr);

    void vaciar_Controles() override;

protected:
    std::optional<std::vector<FilaDePago>> cargar() override;
    std::optional<qint64> salvar() override;
    bool eliminar(const FilaDePago &fila) override;

private:
    QLineEdit *Text_mediodepago_;
    QLineEdit *Text_descripcion_;
    QComboBox *Combo_proveedor_;
};

} // namespace vendrix::screens
