#include "screens/lists/dialogo_comentario.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vendrix {

std::optional<QString> pedir_comentario(QWidget *parent, const QString &articulo, const QString &actual)
{
    QDialog dialogo(parent);
    dialogo.setObjectName(QStringLiteral("frmComentario"));
    dialogo.setWindowTitle(QStringLiteral("Comentarios del artículo"));
    auto *layout = new QVBoxLayout(&dialogo);
    auto *titulo = new QLabel(articulo, &dialogo);
    titulo->setWordWrap(true);
    layout->addWidget(titulo);
    auto *texto = new QPlainTextEdit(actual, &dialogo);
    texto->setObjectName(QStringLiteral("TextBox_comentario"));
    texto->setTabChangesFocus(true);
    layout->addWidget(texto);
    auto *botones = new QDialogButtonBox(&dialogo);
    botones->addButton(QStringLiteral("&Guardar"), QDialogButtonBox::AcceptRole);
    botones->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole);
    QObject::connect(botones, &QDialogButtonBox::accepted, &dialogo, &QDialog::accept);
    QObject::connect(botones, &QDialogButtonBox::rejected, &dialogo, &QDialog::reject);
    layout->addWidget(botones);
    texto->setFocus();
    if (dialogo.exec() != QDialog::Accepted)
        return std::nullopt;
    return texto->toPlainText();
}

} // namespace vendrix
