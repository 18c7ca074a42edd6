#include "screens/carts/frm_agregar_udem.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

namespace vendrix::screens {

FrmAgregarUdeM::FrmAgregarUdeM(Context &ctx, const ArticuloParaCarrito &articulo, QWidget *parent)
    : QDialog(parent), logica_(ctx, articulo), articulo_(this),
      Command1_(boton_de_dialogo(this, QStringLiteral("Command1"), QStringLiteral("Guardar"))),
      Command2_(boton_de_dialogo(this, QStringLiteral("Command2"), QStringLiteral("Cancelar")))
{
    setObjectName(QStringLiteral("frmAgregarUdeM"));
    setWindowTitle(QStringLiteral("Unidades por precio"));

    auto *form = new QFormLayout;
    articulo_.filas_del_articulo(form);
    articulo_.filas_de_unidades(form);
    disponer_dialogo(this, form, Command1_, Command2_);

    const auto unidades = [this](const QString &text) {
        logica_.set_cant_unidades(text);
        articulo_.mostrar(logica_.vista());
    };
    connect(articulo_.cant_unidades, &QLineEdit::textEdited, this, unidades);
    connect(articulo_.ud_cant_unidades, &UpDown::cambiado, this, unidades);
    connect(Command1_, &QPushButton::clicked, this, &FrmAgregarUdeM::guardar);
    articulo_.mostrar(logica_.vista());
}

void FrmAgregarUdeM::guardar()
{
    resultado_ = logica_.guardar();
    if (resultado_.guardado)
        accept();
}

} // namespace vendrix::screens
