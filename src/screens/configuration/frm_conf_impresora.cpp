#include "screens/configuration/frm_conf_impresora.h"

#include "core/context.h"
#include "core/numeric.h"
#include "fiscal/front/fiscal_commands.h"
#include "fiscal/front/fiscal_front.h"
#include "fiscal/front/fiscal_models.h"
#include "fiscal/front/old_sales_eraser.h"
#include "fiscal/front/printer_settings.h"
#include "fiscal/port/serial_port_names.h"
#include "screens/configuration/file_chooser.h"
#include "screens/controles_dialogo.h"
#include "screens/main_window/filtro_teclas.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QEvent>
#include <QFile>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vendrix::screens {

namespace {

const QString kLogo = QStringLiteral("logo.jpg");

QComboBox *combo(QWidget *parent, const char *nombre, const QStringList &items)
{
    auto *c = control<QComboBox>(parent, nombre);
    c->addItems(items);
    return c;
}

QLineEdit *numero(QWidget *parent, const char *nombre)
{
    auto *box = control<QLineEdit>(parent, nombre);
    instalar_filtro_numero(box, QStringLiteral("integer"));
    return box;
}

QPushButton *boton(QWidget *parent, const char *nombre, const QString &texto)
{
    auto *b = control<QPushButton>(parent, nombre);
    b->setText(texto);
    return b;
}

// A stored value that isn't among a combo's items is shown all the same.
void elegir(QComboBox *c, const QString &valor)
{
    if (c->findText(valor) < 0)
        c->addItem(valor);
    c->setCurrentText(valor);
}

QString o_bien(const QString &valor, const char *por_defecto)
{
    return valor.isEmpty() ? QString::fromUtf8(por_defecto) : valor;
}

QHBoxLayout *con_boton(QLineEdit *box, QPushButton *b)
{
    auto *h = new QHBoxLayout;
    h->addWidget(box, 1);
    h->addWidget(b);
    return h;
}

} // namespace

FrmConfImpresora::FrmConfImpresora(Context &ctx, FiscalFront &front, FileChooser *chooser, QWidget *parent)
    : QDialog(parent), ctx_(ctx), front_(front)
{
    if (!chooser) {
        propio_ = std::make_unique<DialogFileChooser>();
        chooser = propio_.get();
    }
    chooser_ = chooser;
    setObjectName(QStringLiteral("frmConfImpresora"));
    setWindowTitle(QStringLiteral("Configuración Impresora Fiscal"));
    setProperty("tamano", QStringLiteral("grande"));
    crear_controles();
    cargar();
    conectar_controles();
}

FrmConfImpresora::~FrmConfImpresora() = default;

void FrmConfImpresora::crear_controles()
{
    auto *general = new QGroupBox(QStringLiteral("Impresora"), this);
    modelo_ = combo(general, "Combo_modelo_Impresora", modelos_impresora());
    puerto_ = combo(general, "Combo_port", puertos_disponibles());
    puerto_->setEditable(true);
    velocidad_ = combo(general, "Combo_vel", velocidades_impresora());
    desc_art_ = combo(general, "Combo_desc_art", descripciones_articulo());
    iva_ = control<QComboBox>(general, "Combo_iva");
    punto_venta_ = numero(general, "punto_de_venta");
    mensaje_ = control<QLineEdit>(general, "IF_mensaje");
    id_fiscal_ = control<QPlainTextEdit>(general, "identificacion_fiscal");
    id_fiscal_->setMaximumHeight(70);
    max_efectivo_ = control<QLineEdit>(general, "Text_maximo_efectivo");
    max_tarjeta_ = control<QLineEdit>(general, "Text_maximo_tarjeta");
    cuit_ = control<QLineEdit>(general, "Text_cuit");
    comandera_ = control<QCheckBox>(general, "Check_factura_simplificada");
    comandera_->setText(QStringLiteral("Factura simplificada (impresora de tickets angosta)"));
    detalle_ = control<QCheckBox>(general, "FA_detalle");
    detalle_->setText(QStringLiteral("Factura detallada"));
    nota_venta_ = control<QCheckBox>(general, "FA_NDV");
    nota_venta_->setText(QStringLiteral("Imprimir nota de venta"));
    logo_ = control<QLabel>(general, "Picture_logo");
    logo_->setFixedSize(160, 80);
    logo_->setFrameShape(QFrame::Box);
    logo_->setAlignment(Qt::AlignCenter);
    logo_->setToolTip(QStringLiteral("Doble clic para cambiar el logo de su negocio"));
    logo_->installEventFilter(this);
    auto *probar = boton(general, "cmd_test", QStringLiteral("&Probar conexión"));
    connect(probar, &QPushButton::clicked, this, [this] { probar_impresora(ctx_, front_); });

    auto *f = new QFormLayout(general);
    f->addRow(QStringLiteral("Modelo"), modelo_);
    f->addRow(QStringLiteral("Puerto"), puerto_);
    f->addRow(QStringLiteral("Velocidad"), velocidad_);
    f->addRow(QString(), probar);
    f->addRow(QStringLiteral("Punto de venta"), punto_venta_);
    f->addRow(QStringLiteral("Condición frente al IVA"), iva_);
    f->addRow(QStringLiteral("CUIT"), cuit_);
    f->addRow(QStringLiteral("Identificación fiscal"), id_fiscal_);
    f->addRow(QStringLiteral("Mensaje del ticket"), mensaje_);
    f->addRow(QStringLiteral("Descripción a imprimir"), desc_art_);
    f->addRow(QStringLiteral("Máximo Efectivo"), max_efectivo_);
    f->addRow(QStringLiteral("Máximo Tarjeta"), max_tarjeta_);
    f->addRow(QString(), comandera_);
    f->addRow(QString(), detalle_);
    f->addRow(QString(), nota_venta_);
    f->addRow(QStringLiteral("Logo"), logo_);

    numeros_ = control<QGroupBox>(this, "Frame1");
    numeros_->setTitle(QStringLiteral("Próximos números"));
    ticket_a_ = numero(numeros_, "t_ticket_A");
    ticket_b_ = numero(numeros_, "T_ticket_B");
    ticket_c_ = numero(numeros_, "T_ticket_C");
    nc_a_ = numero(numeros_, "T_nc_A");
    nc_b_ = numero(numeros_, "T_nc_b");
    nc_c_ = numero(numeros_, "T_nc_c");
    auto *g = new QGridLayout(numeros_);
    const QString letras[] = {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")};
    g->addWidget(new QLabel(QStringLiteral("Factura"), numeros_), 1, 0);
    g->addWidget(new QLabel(QStringLiteral("Nota de crédito"), numeros_), 2, 0);
    QLineEdit *cajas[2][3] = {{ticket_a_, ticket_b_, ticket_c_}, {nc_a_, nc_b_, nc_c_}};
    for (int c = 0; c < 3; ++c) {
        g->addWidget(new QLabel(letras[c], numeros_), 0, c + 1, Qt::AlignCenter);
        g->addWidget(cajas[0][c], 1, c + 1);
        g->addWidget(cajas[1][c], 2, c + 1);
    }

    fe_ = control<QGroupBox>(this, "Frame_FE");
    fe_->setTitle(QStringLiteral("Factura electrónica"));
    modo_fe_ = combo(fe_, "Combo_FE_opracion", modos_operacion_fe());
    certificado_ = control<QLineEdit>(fe_, "Text_FE_Certificado");
    llave_ = control<QLineEdit>(fe_, "Text_FE_Contrasena");
    openssl_ = control<QLineEdit>(fe_, "Text_FE_OPENSSL");
    // Room for a whole path such as /home/caja/afip/negocio.crt.
    for (QLineEdit *ruta : {certificado_, llave_, openssl_})
        ruta->setMinimumWidth(260);
    auto *cert = boton(fe_, "FE_Cert_abrir", QStringLiteral("..."));
    auto *key = boton(fe_, "Command_key_abrir", QStringLiteral("..."));
    auto *ssl = boton(fe_, "Command_ssl_abrir", QStringLiteral("..."));
    auto *fl = new QFormLayout(fe_);
    fl->addRow(QStringLiteral("Modo de operación"), modo_fe_);
    fl->addRow(QStringLiteral("Certificado"), con_boton(certificado_, cert));
    fl->addRow(QStringLiteral("Llave"), con_boton(llave_, key));
    fl->addRow(QStringLiteral("Carpeta de OpenSSL"), con_boton(openssl_, ssl));
    connect(cert, &QPushButton::clicked, this, [this] {
        elegir_archivo_fe(QStringLiteral("IF_FE_Certificado"), QStringLiteral("Certificados (*.crt)|*.crt"),
                          certificado_);
    });
    connect(key, &QPushButton::clicked, this, [this] {
        elegir_archivo_fe(QStringLiteral("IF_FE_Password"), QStringLiteral("Llave de Cifrado (*.key)|*.key"),
                          llave_);
    });
    connect(ssl, &QPushButton::clicked, this, [this] { elegir_openssl(); });

    auto *historicos = new QGroupBox(QStringLiteral("Datos históricos"), this);
    fecha_eliminar_ = control<QDateEdit>(historicos, "DTPicker_eliminar");
    fecha_eliminar_->setCalendarPopup(true);
    fecha_eliminar_->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    fecha_eliminar_->setDate(ctx_.reloj().now().date());
    auto *eliminar = boton(historicos, "Command_eliminar", QStringLiteral("&Eliminar ventas anteriores"));
    connect(eliminar, &QPushButton::clicked, this, [this] { eliminar_datos_historicos(); });
    auto *h = new QHBoxLayout(historicos);
    h->addWidget(fecha_eliminar_);
    h->addWidget(eliminar);

    auto *derecha = new QVBoxLayout;
    derecha->addWidget(numeros_);
    derecha->addWidget(fe_);
    derecha->addWidget(historicos);
    derecha->addStretch(1);
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(general, 1);
    layout->addLayout(derecha, 1);
}

void FrmConfImpresora::cargar()
{
    const QString modo_fe = ctx_.leer_parametro(QStringLiteral("IF_FE_Modo_Operacion"));
    const QString modelo = o_bien(ctx_.leer_parametro(QStringLiteral("IF_Modelo")), "Epson");
    elegir(modelo_, modelo);
    elegir(puerto_, ctx_.leer_parametro(QStringLiteral("IF_Port")));
    elegir(velocidad_, o_bien(ctx_.leer_parametro(QStringLiteral("IF_velocidad")), "9600"));
    elegir(desc_art_, o_bien(ctx_.leer_parametro(QStringLiteral("IF_desc_art")), "Descripción"));

    const std::pair<QLineEdit *, const char *> textos[] = {{punto_venta_, "IF_PuntoDeVenta"},
                                                           {mensaje_, "IF_Mensaje"},
                                                           {cuit_, "IF_CUIT"},
                                                           {ticket_a_, "IF_ticket_A"},
                                                           {ticket_b_, "IF_ticket_B"},
                                                           {ticket_c_, "IF_ticket_C"},
                                                           {nc_a_, "IF_nc_A"},
                                                           {nc_b_, "IF_nc_B"},
                                                           {nc_c_, "IF_nc_C"},
                                                           {certificado_, "IF_FE_Certificado"},
                                                           {llave_, "IF_FE_Password"},
                                                           {openssl_, "IF_FE_OPENSSL"}};
    for (const auto &[box, clave] : textos)
        box->setText(ctx_.leer_parametro(QString::fromLatin1(clave)));
    id_fiscal_->setPlainText(id_fiscal_a_texto(ctx_.leer_parametro(QStringLiteral("IF_IDFiscal"))));
    comandera_->setChecked(ctx_.leer_parametro(QStringLiteral("IF_COMANDERA"))
                               .compare(QLatin1String("Si"), Qt::CaseInsensitive) == 0);
    detalle_->setChecked(ctx_.leer_parametro(QStringLiteral("IF_DetalleFactura")) ==
                         QLatin1String("Detallada"));
    nota_venta_->setChecked(ctx_.leer_parametro(QStringLiteral("IF_NOTA_DE_VENTA")).toUpper() ==
                            QLatin1String("SI"));

    max_efectivo_->setText(corregir_maximo(ctx_, QStringLiteral("IF_max_efectivo"), QStringLiteral("10000")));
    max_tarjeta_->setText(corregir_maximo(ctx_, QStringLiteral("IF_max_tarjeta"), QStringLiteral("20000")));
    iva_->addItems(items_condicion_iva(ctx_.leer_parametro(QStringLiteral("IF_tipo_IVA"))));
    habilitar_numeros(iva_->currentText());
    mostrar_logo();
    elegir(modo_fe_, o_bien(modo_fe, "Homologación"));
    aplicar_disposicion(palabra_disposicion(modelo));
}

void FrmConfImpresora::conectar_controles()
{
    connect(modelo_, &QComboBox::textActivated, this, [this](const QString &modelo) {
        guardar(QStringLiteral("IF_Modelo"), modelo);
        aplicar_disposicion(palabra_disposicion(modelo));
        front_.IF_Configurar();
    });
    // The port is chosen from the list or typed (an emulated printer's
    // pseudo-terminal, a port the system doesn't list); typed, it is stored
    // when the operator presses Enter or leaves the box.
    const auto cambiar_puerto = [this](const QString &puerto) {
        if (puerto == ctx_.leer_parametro(QStringLiteral("IF_Port")))
            return;
        guardar(QStringLiteral("IF_Port"), puerto);
        front_.IF_Configurar();
    };
    connect(puerto_, &QComboBox::textActivated, this, cambiar_puerto);
    connect(puerto_->lineEdit(), &QLineEdit::editingFinished, this,
            [this, cambiar_puerto] { cambiar_puerto(puerto_->currentText().trimmed()); });
    connect(velocidad_, &QComboBox::textActivated, this, [this](const QString &velocidad) {
        guardar(QStringLiteral("IF_velocidad"), velocidad);
        front_.IF_Configurar();
    });
    connect(desc_art_, &QComboBox::textActivated, this,
            [this](const QString &v) { guardar(QStringLiteral("IF_desc_art"), v); });
    connect(modo_fe_, &QComboBox::textActivated, this,
            [this](const QString &v) { guardar(QStringLiteral("IF_FE_Modo_Operacion"), v); });
    connect(iva_, &QComboBox::textActivated, this, [this](const QString &v) {
        guardar(QStringLiteral("IF_tipo_IVA"), v);
        habilitar_numeros(v);
    });

    // The certificate box is only shown: what is used is what the chooser
    // stored. Its own key keeps what the operator typed there.
    const std::tuple<QLineEdit *, const char *, const char *> textos[] = {
        {punto_venta_, "IF_PuntoDeVenta", nullptr},
        {mensaje_, "IF_Mensaje", nullptr},
        {cuit_, "IF_CUIT", nullptr},
        {ticket_a_, "IF_ticket_A", nullptr},
        {ticket_b_, "IF_ticket_B", nullptr},
        {ticket_c_, "IF_ticket_C", nullptr},
        {nc_a_, "IF_nc_A", nullptr},
        {nc_b_, "IF_nc_B", "IF_nc_b"},
        {nc_c_, "IF_nc_C", nullptr},
        {certificado_, "Text_FE_Certificado", "IF_FE_Password"},
        {llave_, "IF_FE_Password", nullptr},
        {openssl_, "IF_FE_OPENSSL", nullptr}};
    for (const auto &[box, clave, clave_log] : textos) {
        connect(box, &QLineEdit::textEdited, this, [this, clave, clave_log](const QString &v) {
            guardar(QString::fromLatin1(clave), v, clave_log ? QString::fromLatin1(clave_log) : QString());
        });
    }
    connect(id_fiscal_, &QPlainTextEdit::textChanged, this, [this] {
        guardar(QStringLiteral("IF_IDFiscal"), id_fiscal_a_guardar(id_fiscal_->toPlainText()));
    });
    connect(max_efectivo_, &QLineEdit::textEdited, this, [this] {
        maximo_editado(max_efectivo_, QStringLiteral("IF_max_efectivo"), QStringLiteral("Máximo Efectivo"));
    });
    connect(max_tarjeta_, &QLineEdit::textEdited, this, [this] {
        maximo_editado(max_tarjeta_, QStringLiteral("IF_max_tarjeta"), QStringLiteral("Máximo Tarjeta"));
    });
    const std::tuple<QCheckBox *, const char *, const char *, const char *> checks[] = {
        {comandera_, "IF_COMANDERA", "Si", "No"},
        {detalle_, "IF_DetalleFactura", "Detallada", "Agrupada"},
        {nota_venta_, "IF_NOTA_DE_VENTA", "Si", "No"}};
    for (const auto &[check, clave, si, no] : checks) {
        connect(check, &QCheckBox::clicked, this, [this, clave, si, no](bool marcado) {
            guardar(QString::fromLatin1(clave), QString::fromLatin1(marcado ? si : no));
        });
    }
}

void FrmConfImpresora::aplicar_disposicion(const QString &palabra)
{
    if (palabra == QLatin1String("achicar")) {
        numeros_->setVisible(false);
        fe_->setVisible(false);
        setProperty("tamano", QStringLiteral("chico"));
    } else if (palabra == QLatin1String("agrandar")) {
        numeros_->setVisible(true);
        fe_->setVisible(false);
        setProperty("tamano", QStringLiteral("grande"));
    } else if (palabra == QLatin1String("Factura Electronica")) {
        numeros_->setVisible(false);
        fe_->setVisible(true);
        setProperty("tamano",
                    tamano() == QLatin1String("grande") ? QStringLiteral("chico") : QStringLiteral("grande"));
    }
    adjustSize();
}

QString FrmConfImpresora::tamano() const
{
    return property("tamano").toString();
}

void FrmConfImpresora::habilitar_numeros(const QString &condicion)
{
    const bool a_b = usa_letras_a_b(condicion);
    for (QLineEdit *box : {ticket_a_, ticket_b_, nc_a_, nc_b_})
        box->setEnabled(a_b);
    for (QLineEdit *box : {ticket_c_, nc_c_})
        box->setEnabled(!a_b);
}

void FrmConfImpresora::guardar(const QString &clave, const QString &valor, const QString &clave_log)
{
    guardar_ajuste_impresora(ctx_, clave, valor, clave_log);
}

void FrmConfImpresora::maximo_editado(QLineEdit *box, const QString &clave, const QString &campo)
{
    if (es_numerico(box->text())) {
        guardar(clave, box->text());
        return;
    }
    ctx_.op().error(QStringLiteral("Error en los datos"),
                    QStringLiteral("El valor del campo '") + campo +
                        QStringLiteral("' tiene que ser un valor numerico"));
}

void FrmConfImpresora::elegir_archivo_fe(const QString &clave, const QString &filtro, QLineEdit *box)
{
    const QString ruta = chooser_->abrir_archivo(this, filtro);
    if (ruta.isEmpty()) {
        ctx_.op().error(QStringLiteral("Error al Abrir Certificado"),
                        QStringLiteral("Es necesario seleccionar un archivo."));
        ctx_.escribir_log(QStringLiteral("no se modificó el valor del parametro de configuración "
                                         "IF_FE_Certificado dado que el usuario no selecciono ningún archivo "
                                         "valido"),
                          QStringLiteral("A"));
        return;
    }
    // The electronic invoice hands these paths to openssl on a command line.
    if (ruta_con_espacios(ruta)) {
        const QString texto =
            QStringLiteral("El nombre del archivo que contiene el certificado contiene "
                           "espacios (") +
            ruta +
            QStringLiteral("), eso puede traer problemas a vendrix. Renombre el certificado "
                           "sin espacios y carguelo nuevamente.");
        ctx_.op().error(QStringLiteral("Error en el certificado"), texto);
        ctx_.escribir_log(texto, QStringLiteral("E"));
        return;
    }
    guardar(clave, ruta);
    box->setText(ruta);
}

void FrmConfImpresora::elegir_openssl()
{
    const QString carpeta = chooser_->elegir_carpeta(this, QStringLiteral("Select Folder"));
    if (carpeta.isEmpty()) {
        ctx_.op().error(QStringLiteral("Error al Abrir directorio"),
                        QStringLiteral("Es necesario seleccionar un directorio valido."));
        return;
    }
    guardar(QStringLiteral("IF_FE_OPENSSL"), carpeta);
    openssl_->setText(carpeta);
}

void FrmConfImpresora::cambiar_logo()
{
    const QString ruta = chooser_->abrir_archivo(
        this, QStringLiteral("Todos los archivos|*.*|Imagenes|*.jpg;*.gif;*.png;*.bmp"));
    if (ruta.isEmpty()) {
        ctx_.op().error(
            QStringLiteral("Error en los datos ingresados"),
            QStringLiteral("Para cargar el logo de su empresa, es necesario seleccionar archivo."));
        return;
    }
    const QString destino = ctx_.ruta(kLogo);
    if (ruta != destino) {
        QFile::remove(destino);
        QFile::copy(ruta, destino);
    }
    ctx_.escribir_log(QStringLiteral("El usuario cambio el logo del negocio a: ") + ruta,
                      QStringLiteral("A"));
    mostrar_logo();
}

void FrmConfImpresora::mostrar_logo()
{
    const QPixmap imagen(ctx_.ruta(kLogo));
    logo_->setPixmap(imagen.isNull()
                         ? QPixmap()
                         : imagen.scaled(logo_->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

bool FrmConfImpresora::eliminar_datos_historicos()
{
    return borrar_ventas_anteriores(ctx_, fecha_eliminar_->date());
}

bool FrmConfImpresora::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == logo_ && event->type() == QEvent::MouseButtonDblClick) {
        cambiar_logo();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace vendrix::screens
