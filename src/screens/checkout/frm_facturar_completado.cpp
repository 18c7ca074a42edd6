#include "screens/checkout/frm_facturar_completado.h"

#include "afip/qr/qr_picture.h"
#include "screens/controles_dialogo.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPicture>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace vendrix::screens {

namespace {

// The QR's side on screen: large enough for a phone to read it off the
// monitor, small beside the rest.
constexpr int kLadoQr = 180;

// The vector picture of the QR drawn at the screen's size, inside a white
// margin of four modules: phones read a code only with that quiet zone.
QPixmap dibujo_qr(const QString &texto)
{
    constexpr int kModulo = 46;
    QPixmap pixmap(kLadoQr, kLadoQr);
    pixmap.fill(Qt::white);
    const QPicture dibujo = QR_imagen(texto, Qt::black, kModulo);
    const QRect marco = dibujo.boundingRect();
    if (marco.isEmpty())
        return pixmap;
    QPainter pintor(&pixmap);
    pintor.setRenderHint(QPainter::Antialiasing);
    const double escala = double(kLadoQr) / (marco.width() + 8 * kModulo);
    pintor.scale(escala, escala);
    pintor.translate(QPoint(4 * kModulo, 4 * kModulo) - marco.topLeft());
    pintor.drawPicture(0, 0, dibujo);
    return pixmap;
}

} // namespace

FrmFacturarCompletado::FrmFacturarCompletado(Context &ctx, DatosCompletado datos, QWidget *parent)
    : QDialog(parent), logica_(ctx, std::move(datos))
{
    setObjectName(QStringLiteral("FrmFacturar_Completado"));
    setWindowTitle(QStringLiteral("Resumen del documento"));
    setModal(true);
    crear_controles();
    logica_.cargar();
    Text_email_->setText(logica_.vista().Text_email);
    Text_telefono_->setText(logica_.vista().Text_telefono);
    Image1_->setPixmap(dibujo_qr(logica_.vista().qr));
    mostrar();

    connect(Text_email_, &QLineEdit::textChanged, this, [this](const QString &t) {
        logica_.cambiar_email(t);
        mostrar();
    });
    connect(Text_telefono_, &QLineEdit::textChanged, this, [this](const QString &t) {
        logica_.cambiar_telefono(t);
        mostrar();
    });
    connect(Text_email_, &QLineEdit::editingFinished, this, [this] { logica_.salir_email(); });
    connect(Text_telefono_, &QLineEdit::editingFinished, this, [this] { logica_.salir_telefono(); });
    connect(Command_aceptar_, &QPushButton::clicked, this, [this] { terminar(&Completado::aceptar); });
    connect(Command_facsimil_, &QPushButton::clicked, this, [this] { terminar(&Completado::facsimil); });
    connect(Command_mail_, &QPushButton::clicked, this, [this] { terminar(&Completado::mail); });
    connect(Command_whatsapp_, &QPushButton::clicked, this, [this] { terminar(&Completado::whatsapp); });
}

void FrmFacturarCompletado::crear_controles()
{
    auto *layout = new QVBoxLayout(this);

    Frame_text_ = control<QFrame>(this, "Frame_text");
    auto *texto = new QVBoxLayout(Frame_text_);
    Label_text_ = control<QLabel>(Frame_text_, "Label_text");
    Label_text_->setStyleSheet(QStringLiteral("font-size: 13pt; font-weight: bold;"));
    Label_text_->setWordWrap(true);
    Label_resultado_ = control<QLabel>(Frame_text_, "Label_resultado");
    Label_resultado_->setText(logica_.datos().texto);
    Label_resultado_->setWordWrap(true);
    texto->addWidget(Label_text_);
    texto->addWidget(Label_resultado_);
    layout->addWidget(Frame_text_);

    Frame_AFIP_ = control<QFrame>(this, "Frame_AFIP");
    Frame_AFIP_->setFrameShape(QFrame::StyledPanel);
    auto *afip = new QHBoxLayout(Frame_AFIP_);
    Image1_ = control<QLabel>(Frame_AFIP_, "Image1");
    Image1_->setFixedSize(kLadoQr, kLadoQr);
    afip->addWidget(Image1_);
    auto *datos = new QVBoxLayout;
    Label_CAE_ = control<QLabel>(Frame_AFIP_, "Label_CAE");
    Label_CAE_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    datos->addWidget(Label_CAE_);
    auto *form = new QFormLayout;
    Text_email_ = control<QLineEdit>(Frame_AFIP_, "Text_email");
    Text_telefono_ = control<QLineEdit>(Frame_AFIP_, "Text_telefono");
    Text_telefono_->setPlaceholderText(QStringLiteral("Código de área y número, sin 0 ni 15"));
    form->addRow(QStringLiteral("E-mail:"), Text_email_);
    form->addRow(QStringLiteral("Teléfono:"), Text_telefono_);
    datos->addLayout(form);
    datos->addStretch(1);
    afip->addLayout(datos, 1);
    layout->addWidget(Frame_AFIP_);

    // Hidden, it takes no room: the screen closes up around it.
    Label_certificado_ = control<QLabel>(this, "Label_certificado");
    Label_certificado_->setWordWrap(true);
    Label_certificado_->setStyleSheet(QStringLiteral("color: #b71c1c;"));
    layout->addWidget(Label_certificado_);

    auto *botones = new QHBoxLayout;
    Command_facsimil_ =
        boton_de_dialogo(this, QStringLiteral("Command_facsimil"), QStringLiteral("Imprimir Facsimil"));
    Command_mail_ =
        boton_de_dialogo(this, QStringLiteral("Command_mail"), QStringLiteral("Enviar por e-mail"));
    Command_whatsapp_ =
        boton_de_dialogo(this, QStringLiteral("Command_whatsapp"), QStringLiteral("Enviar por Whastapp"));
    Command_aceptar_ =
        boton_de_dialogo(this, QStringLiteral("Command_aceptar"), QStringLiteral("Aceptar y Cerrar"));
    for (QPushButton *boton : {Command_facsimil_, Command_mail_, Command_whatsapp_, Command_aceptar_}) {
        // Enter in a field only leaves it: no button is pressed by it.
        boton->setAutoDefault(false);
        botones->addWidget(boton);
    }
    layout->addLayout(botones);
    setMinimumWidth(560);
}

void FrmFacturarCompletado::mostrar()
{
    const VistaCompletado &v = logica_.vista();
    Frame_text_->setVisible(v.Frame_text_visible);
    Frame_AFIP_->setVisible(v.Frame_AFIP_visible);
    Label_text_->setText(v.Label_text);
    Label_CAE_->setText(v.Label_CAE);
    Label_certificado_->setText(v.Label_certificado);
    Label_certificado_->setVisible(v.Label_certificado_visible);
    Command_mail_->setEnabled(v.Command_mail_habilitado);
    Command_whatsapp_->setEnabled(v.Command_whatsapp_habilitado);
}

void FrmFacturarCompletado::terminar(void (Completado::*accion)())
{
    (logica_.*accion)();
    done(Accepted);
}

void FrmFacturarCompletado::reject()
{
    if (logica_.confirmar_cierre())
        QDialog::reject();
}

void FrmFacturarCompletado::closeEvent(QCloseEvent *event)
{
    // The program closing the screen asks nothing.
    if (!event->spontaneous()) {
        event->accept();
        done(Rejected);
        return;
    }
    QDialog::closeEvent(event);
}

} // namespace vendrix::screens
