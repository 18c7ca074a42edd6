#pragma once

// `FrmPagosTransferencias`: a transfer of money between two payment
// methods, modal.

#include "backoffice/ledger/transfer_form.h"

#include <QDialog>

class QComboBox;
class QDateEdit;
class QGroupBox;
class QLineEdit;
class QPushButton;

namespace vendrix::screens {

class FrmPagosTransferencias : public QDialog {
    Q_OBJECT

public:
    FrmPagosTransferencias(Context &ctx, const QString &modo, qint64 id, QWidget *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void guardar();

    TransferForm form_;
    QGroupBox *Frame_transferencia_;
    QDateEdit *DTPicker_fecha_;
    QComboBox *Combo_origen_mdp_;
    QComboBox *Combo_destino_mdp_;
    QLineEdit *Text_Total_transferencia_;
    QLineEdit *Text_Notas_;
    QPushButton *Command_Agregar_;
    QPushButton *Command_cancelar_;
};

} // namespace vendrix::screens
