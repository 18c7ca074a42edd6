#include "screens/checkout/frm_destinos_de_pago.h"

#include "backoffice/payment/payment_destinations.h"
#include "core/context.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>

namespace vendrix::screens {

FrmDestinosDePago::FrmDestinosDePago(Context &ctx, QWidget *parent)
    : FrmListaDePago(ctx, columnas_destinos_de_pago(), {0, 0, 2600, 3600, 1600, 900}, parent),
      Text_mediodepago_(new QLineEdit(this)), Text_descripcion_(new QLineEdit(this)),
      Combo_proveedor_(new QComboBox(this))
{
    ctx_.escribir_log(QStringLiteral("Inicializando el formulario de alta de Destinos de Pago"),
                      QStringLiteral("I"));
    setObjectName(QStringLiteral("FrmDestinosDePago"));
    setWindowTitle(QStringLiteral("Destinos de Pago"));
    Text_mediodepago_->setObjectName(QStringLiteral("Text_mediodepago"));
    Text_descripcion_->setObjectName(QStringLiteral("Text_descripcion"));
    Combo_proveedor_->setObjectName(QStringLiteral("Combo_proveedor"));
    Combo_proveedor_->addItems(respuestas_requiere_proveedor());
    form_->addRow(QStringLiteral("&Nombre"), Text_mediodepago_);
    form_->addRow(QStringLiteral("&Descripción"), Text_descripcion_);
    form_->addRow(QStringLiteral("Requiere &proveedor"), Combo_proveedor_);

    vaciar_Controles();
    Inicializar_DataGridViewFdP();
    ctx_.escribir_log(QStringLiteral("Inicializado el formulario de alta de Destinos de Pago correctamente"),
                      QStringLiteral("I"));
}

void FrmDestinosDePago::vaciar_Controles()
{
    Text_mediodepago_->clear();
    Text_descripcion_->clear();
}

std::optional<std::vector<FilaDePago>> FrmDestinosDePago::cargar()
{
    return cargar_destinos_de_pago(ctx_);
}

std::optional<qint64> FrmDestinosDePago::salvar()
{
    return salvar_destino(
        ctx_, {Text_mediodepago_->text(), Text_descripcion_->text(), Combo_proveedor_->currentText()});
}

bool FrmDestinosDePago::eliminar(const FilaDePago &fila)
{
    return eliminar_destino(ctx_, fila);
}

} // namespace vendrix::screens
