#include "screens/main_window/frm_main.h"

#include "afip/auth/afip_services.h"
#include "afip/auth/connection_report.h"
#include "afip/transport/qt_http_client.h"
#include "catalogue/search/list_search.h"
#include "catalogue/search/search_box_keys.h"
#include "core/context.h"
#include "core/holiday_logo.h"
#include "core/shutdown.h"
#include "core/status_indicators.h"
#include "fiscal/front/fiscal_front.h"
#include "online/system_desktop.h"
#include "sales/carritos.h"
#include "sales/recording/cae_recovery.h"
#include "screens/carts/carrito_tab.h"
#include "screens/carts/tab_changos.h"
#include "screens/checkout/frm_facturar.h"
#include "screens/configuration/config_precios.h"
#include "screens/configuration/pagina_configuracion.h"
#include "screens/customers/customers_tab.h"
#include "screens/lists/pagina_listas.h"
#include "screens/lists/panel_articulo.h"
#include "screens/lists/tab_listas.h"
#include "screens/main_window/frm_log.h"
#include "screens/main_window/screen_images.h"
#include "screens/payments/tab_pagos.h"
#include "widgets/lynx_grid.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <cerrno>
#include <exception>

namespace vendrix {

namespace {

struct DatosPestana {
    const char *objeto;
    const char *titulo;
    const char *texto = nullptr; // null: an area still to come
};

// Object names and captions of the tabs, in the order of the tab strip.
constexpr DatosPestana kPestanas[FrmMain::kCantidadPestanas] = {
    {"Tab_Listas", "Listas de Precios"},
    {"Tab_Novedades", "Novedades"},
    {"Tab_configuracion", "Configuración"},
    {"Tab_Pedidos", "Pedidos"},
    {"Tab_ControlPrecios", "Control de Precios"},
    {"Tab_Reportes", "Reportes"},
    {"Tab_CliPro", "Clientes y Proveedores"},
    {"Tab_Pagos", "Pagos"},
    {"Tab_Disclaimer", "Aviso Legal",
     "Vendrix calcula los precios de venta a partir de las listas de precios de sus proveedores y de las "
     "reglas "
     "que usted configura. Verifique los precios antes de informarlos a sus clientes y conserve resguardos "
     "de su "
     "información."},
};

// The pictures the panels start with: no connection, printer off, no
// errors, idle.
constexpr int kImagenesIniciales[] = {0, 23, 21, 19, 26};

QWidget *pagina_de_texto(const QString &texto)
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    auto *label = new QLabel(texto, page);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setStyleSheet(QStringLiteral("color: #616161; font-size: 11pt;"));
    layout->addWidget(label);
    return page;
}

} // namespace

FrmMain::FrmMain(Context &ctx, QWidget *parent)
    : QMainWindow(parent), ctx_(ctx), front_(std::make_unique<FiscalFront>(ctx)),
      escritorio_(std::make_unique<EscritorioSistema>()), http_(std::make_unique<ClienteHttpQt>(ctx))
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Vendrix"));
    // In electronic mode the printer test is the AFIP connection report.
    front_->set_prueba_electronica([this] {
        ClienteHttpQt http(ctx_);
        ServiciosAfip servicios{ctx_, http};
        return AFIP_reporte_conexion(servicios);
    });

    auto *central = new QWidget(this);
    auto *layout = new QVBoxLayout(central);
    tabs_ = new QTabWidget(central);
    tabs_->setObjectName(QStringLiteral("SSTab1"));
    layout->addWidget(tabs_, 1);

    // The logo sits small at the end of the tab strip: the height of the
    // window goes to the price list.
    auto *header = new QWidget(tabs_);
    auto *logos = new QHBoxLayout(header);
    logos->setContentsMargins(0, 0, 4, 2);
    for (int i = 0; i < static_cast<int>(logos_.size()); ++i) {
        const QPixmap imagen = imagen_logo(i);
        logos_[i] = new QLabel(header);
        logos_[i]->setObjectName(QStringLiteral("Picture1_%1").arg(i));
        logos_[i]->setPixmap(imagen);
        logos_[i]->setScaledContents(true);
        logos_[i]->setFixedSize(imagen.size().scaled(400, 26, Qt::KeepAspectRatio));
        logos_[i]->setVisible(i == kLogoNormal);
        logos->addWidget(logos_[i]);
    }
    tabs_->setCornerWidget(header, Qt::TopRightCorner);
    setCentralWidget(central);
    crear_pestanas();
    crear_barra_de_estado();
    // Large enough for the list and the panel side by side, never larger
    // than the screen.
    QSize size(1280, 760);
    if (const QScreen *pantalla = QGuiApplication::primaryScreen())
        size = size.boundedTo(pantalla->availableGeometry().size() - QSize(16, 40));
    resize(size);
    qApp->installEventFilter(this);
}

FrmMain::~FrmMain()
{
    if (cursor_espera_)
        QApplication::restoreOverrideCursor();
}

void FrmMain::crear_pestanas()
{
    const QString later = QStringLiteral("Esta sección estará disponible en una próxima versión de Vendrix.");
    for (int i = 0; i < kCantidadPestanas; ++i) {
        const DatosPestana &datos = kPestanas[i];
        QWidget *page = nullptr;
        if (i == kTabListas) {
            page = crear_pestana_listas();
        } else if (i == kTabConfiguracion) {
            configuracion_ = new screens::PaginaConfiguracion(ctx_, reglas_, front_.get());
            // Scrolled, so the wide rules grid never widens the window.
            auto *scroll = new QScrollArea;
            scroll->setWidget(configuracion_);
            scroll->setWidgetResizable(true);
            scroll->setFrameShape(QFrame::NoFrame);
            page = scroll;
        } else if (i == kTabCliPro) {
            page = new screens::CustomersTab(ctx_);
        } else if (i == kTabPagos) {
            page = new screens::TabPagos(ctx_, *escritorio_);
        } else {
            page = pagina_de_texto(datos.texto ? QString::fromUtf8(datos.texto) : later);
        }
        page->setObjectName(QString::fromLatin1(datos.objeto));
        tabs_->addTab(page, QString::fromUtf8(datos.titulo));
    }
    connect(configuracion_->precios(), &ConfigPrecios::leyendaTarjetaCambiada, listas_->panel(),
            &PanelArticulo::set_leyenda_tarjeta);
    connect(configuracion_->check_carritos(), &QCheckBox::toggled, carritos_,
            &screens::TabChangos::cambiar_cantidad_carritos);
}

// The lists tab: the cart strip, whose first tab is the price list page
// with the search grid and the article panel side by side.
QWidget *FrmMain::crear_pestana_listas()
{
    busqueda_ = new screens::TabListas(ctx_);
    listas_ = new screens::PaginaListas(ctx_, reglas_, busqueda_, busqueda_->grilla());
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    carritos_ = new screens::TabChangos(ctx_, listas_, page);
    layout->addWidget(carritos_);
    listas_->conectar_carritos(carritos_);
    connect(carritos_, &screens::TabChangos::facturar_pedido, this, [this](int numero) {
        screens::facturar_carrito(ctx_, carritos_->carritos(), numero, *front_, *escritorio_, *http_, this);
        // A recorded sale has emptied its cart.
        carritos_->pagina(numero)->mostrar();
    });
    connect(listas_, &screens::PaginaListas::busquedaPedida, busqueda_, &screens::TabListas::buscar);

    // The search around the grid: the panel is emptied first; a single
    // result (a scanned code, say) goes to the first cart when the shop
    // asked for it. Selecting the first row loads the panel.
    ListActions acciones;
    acciones.limpiar_detalle = [this] { listas_->panel()->limpiar_detalle(); };
    acciones.carritos_marcados = [this] { return cuatro_carritos(ctx_); };
    acciones.agregar_al_carrito = [this](const ListGridRow &) { return listas_->agregar_automaticamente(); };
    busqueda_->setAcciones(std::move(acciones));
    return page;
}

void FrmMain::crear_barra_de_estado()
{
    QStatusBar *bar = statusBar();
    bar->setObjectName(QStringLiteral("StatusBar"));
    for (int i = 0; i < static_cast<int>(panels_.size()); ++i) {
        panels_[i] = new QLabel(bar);
        panels_[i]->setObjectName(QStringLiteral("StatusBar_panel%1").arg(i + 1));
        panels_[i]->setProperty("imagen", 0);
        if (kImagenesIniciales[i] != 0) {
            panels_[i]->setPixmap(imagen_indicador(kImagenesIniciales[i]));
            panels_[i]->setProperty("imagen", kImagenesIniciales[i]);
        }
        // The first panel is the text panel; the others show pictures.
        if (i == 0)
            bar->addWidget(panels_[i], 1);
        else
            bar->addPermanentWidget(panels_[i]);
    }
    panels_[1]->setToolTip(QStringLiteral("Conexión a Internet"));
    panels_[2]->setToolTip(QStringLiteral("Impresora fiscal"));
    panels_[3]->setToolTip(QStringLiteral("Errores registrados en el log"));
    panels_[4]->setToolTip(QStringLiteral("Vendrix está trabajando"));
}

void FrmMain::cargar()
{
    const QString info = QStringLiteral("I");
    try {
        ctx_.escribir_log(QStringLiteral("INICIO - Load form FrmMain"), info);
        repaint();
        cargar_pestanas();
        // The indicators: there is no connection test yet, so the program
        // counts as offline; the printer lights when the shop uses one.
        actualizar_indicador(QStringLiteral("internet_off"));
        // The counter starts by searching.
        enfocar_busqueda();
        if (ctx_.leer_parametro(QStringLiteral("impresora_fiscal")) == QLatin1String("1"))
            actualizar_indicador(QStringLiteral("impresora_on"));
    } catch (const std::exception &e) {
        const int system_error = errno;
        ctx_.escribir_log(QStringLiteral("ERROR IN FRMMAIN SCREEN - 1 ") + QString::fromLocal8Bit(e.what()) +
                              QLatin1Char(' ') + QString::number(system_error) + QStringLiteral(" frmMain"),
                          QStringLiteral("E"));
    }
}

// Each area logs its line once it is set up, so that a log cut short by a
// crash tells how far the load got. The areas still to come log it after
// their placeholder is in place.
void FrmMain::cargar_pestanas()
{
    const QString info = QStringLiteral("I");
    auto log = [&](const char *line) { ctx_.escribir_log(QString::fromUtf8(line), info); };
    log("TAB Disclaimer inicializado");
    log("TAB Listas inicializado");
    carritos_->mostrar_nombres();
    carritos_->aplicar_carritos();
    log("Carritos de Compra inicializados");
    // The lists grid starts empty, waiting for the first search.
    busqueda_->grilla()->Clear();
    log("TAB Novedades inicializado");
    configuracion_->inicializar();
    log("TAB Configuración inicializado");
    configuracion_->llenar_reglas();
    findChild<screens::CustomersTab *>()->iniciar_tab_clipro();
    for (const char *line :
         {"TAB Proveedores inicializado", "TAB Pedidos inicializado", "TAB Reprotes inicializado",
          "TAB Control Precios inicializado", "TAB Cliente / Proveedores inicializado"})
        log(line);
    findChild<screens::TabPagos *>()->iniciar_tab_pagos();
    log("TAB Pagos inicializado");
    elegir_logo();
    ctx_.escribir_log(QStringLiteral("Se puso el logo de Vendrix correspondiente"), info);
    ctx_.escribir_log(QStringLiteral("Web Preview Inicializado"), info);
    // The printer takes the port and speed of the settings before anything
    // is printed.
    front_->IF_Configurar();
    ctx_.escribir_log(QStringLiteral("Impresora Fiscal inicializada"), info);
    // An electronic invoice whose answer was lost, or whose sale the last
    // run didn't get to store, is settled before anything is sold.
    conciliar_cae_pendientes(ctx_);
    ctx_.escribir_log(QStringLiteral("FIN - Load form FrmMain"), info);
}

int FrmMain::elegir_logo()
{
    const int logo = vendrix::elegir_logo(ctx_.reloj().now().date());
    for (int i = 0; i < static_cast<int>(logos_.size()); ++i)
        logos_[i]->setVisible(i == logo);
    return logo;
}

void FrmMain::actualizar_indicador(const QString &keyword)
{
    const std::optional<Indicador> indicador = indicador_de(keyword);
    if (!indicador)
        return;
    QLabel *panel = panels_[indicador->panel - 1];
    panel->setPixmap(imagen_indicador(indicador->imagen));
    panel->setProperty("imagen", indicador->imagen);
}

int FrmMain::imagen_panel(int panel) const
{
    if (panel < 1 || panel > static_cast<int>(panels_.size()))
        return 0;
    return panels_[panel - 1]->property("imagen").toInt();
}

void FrmMain::marcar_ocupado(bool busy)
{
    if (!busy) {
        setEnabled(true);
        actualizar_indicador(QStringLiteral("ocupado_off"));
        if (cursor_espera_) {
            QApplication::restoreOverrideCursor();
            cursor_espera_ = false;
        }
        return;
    }
    if (!ctx_.leer_parametro(QStringLiteral("disable_while_processing")).isEmpty())
        return;
    if (!cursor_espera_) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        cursor_espera_ = true;
    }
    // Disabling the window disables every control in it; enabling it gives
    // each control back the state it had.
    setEnabled(false);
    actualizar_indicador(QStringLiteral("ocupado_on"));
}

void FrmMain::config_label(int index)
{
    if (index == 8) {
        abrir_log();
    } else if (index == 14) {
        ctx_.op().inform(QStringLiteral("Nivel de detalle en el log incrementado"),
                         QStringLiteral("Se incremento el nivel de detalle en el log. La configuración se "
                                        "mantendra hasta que reinicie Vendrix."));
        ctx_.log().set_detalle(QStringLiteral("High"));
    }
}

FrmLog *FrmMain::abrir_log()
{
    if (!log_window_)
        log_window_ = new FrmLog(ctx_, this);
    log_window_->show();
    log_window_->raise();
    return log_window_;
}

void FrmMain::closeEvent(QCloseEvent *event)
{
    // Formulas typed in the panel are offered for storing before leaving.
    listas_->panel()->guardar_regla_pendiente();
    if (!confirmar_cierre(ctx_)) {
        event->ignore();
        return;
    }
    if (log_window_)
        log_window_->close();
    event->accept();
}

bool FrmMain::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        auto *widget = qobject_cast<QWidget *>(watched);
        if (widget && widget->window() == this && isEnabled() &&
            tecla_de_ventana(static_cast<QKeyEvent *>(event)->key()))
            return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

bool FrmMain::tecla_de_ventana(int key)
{
    if (carritos_->tecla_funcion(key)) {
        tabs_->setCurrentIndex(kTabListas);
        if (carritos_->currentIndex() == 0)
            enfocar_busqueda();
        return true;
    }
    if (!tecla_enfoca_busqueda(ctx_, key))
        return false;
    tabs_->setCurrentIndex(kTabListas);
    carritos_->setCurrentIndex(0);
    enfocar_busqueda();
    return true;
}

void FrmMain::enfocar_busqueda()
{
    busqueda_->textoBuscar()->setFocus();
    busqueda_->textoBuscar()->selectAll();
}

} // namespace vendrix
