#pragma once

#include "catalogue/pricing/supplier_rules/rule_store.h"
#include "core/desktop.h"
#include "core/operator.h"

#include <QMainWindow>
#include <QPointer>

#include <array>
#include <memory>

class QLabel;
class QTabWidget;

namespace vendrix {

class ClienteHttp;
class Context;
class Escritorio;
class FiscalFront;
class FrmLog;
namespace screens {
class PaginaConfiguracion;
class PaginaListas;
class TabChangos;
class TabListas;
} // namespace screens

// The main window: the logo, one tab per area of the shop and the status bar
// with its indicators. It is the status sink of the program once it exists,
// and freezes itself while a long task runs.
class FrmMain final : public QMainWindow, public StatusSink {
    Q_OBJECT

public:
    // The tabs, in the order of the tab strip.
    enum Pestana {
        kTabListas,
        kTabNovedades,
        kTabConfiguracion,
        kTabPedidos,
        kTabControlPrecios,
        kTabReportes,
        kTabCliPro,
        kTabPagos,
        kTabDisclaimer,
        kCantidadPestanas,
    };

    explicit FrmMain(Context &ctx, QWidget *parent = nullptr);
    ~FrmMain() override;

    // Sets up every tab in its order, each step logged once done, then the
    // logo and the indicators. A failure is logged and leaves the window
    // open.
    void cargar();

    void actualizar_indicador(const QString &keyword) override;
    // Busy: the wait cursor and the whole window disabled, unless the
    // setting `disable_while_processing` holds any text. Not busy: enabled.
    void marcar_ocupado(bool busy) override;

    // Shows the holiday logo of today, or the ordinary one; the index shown.
    int elegir_logo();

    // The hidden uses of the configuration tab's labels: 8 opens the log
    // viewer, 14 raises the log's detail for the rest of the run.
    void config_label(int index);
    FrmLog *abrir_log();

    QTabWidget *pestanas() const { return tabs_; }
    // The lists tab: the cart strip, whose tab 0 is the price list page.
    screens::TabChangos *carritos() const { return carritos_; }
    screens::PaginaListas *pagina_listas() const { return listas_; }
    screens::TabListas *busqueda() const { return busqueda_; }
    screens::PaginaConfiguracion *pagina_configuracion() const { return configuracion_; }
    // The one fiscal front of the program: its printer connection lives as
    // long as the window.
    FiscalFront &front() { return *front_; }
    // Where the copies of electronic invoices open and mails are written:
    // the desktop's own unless a test records them.
    void usar_escritorio(std::unique_ptr<Escritorio> escritorio) { escritorio_ = std::move(escritorio); }
    // The picture a status bar panel (1 to 5) shows, as an image list index;
    // 0 when none.
    int imagen_panel(int panel) const;

protected:
    void closeEvent(QCloseEvent *event) override;
    // The window previews its keys: the function keys choose a cart or the
    // price list, and the search keys focus the search box, wherever the
    // focus is in the window.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void crear_pestanas();
    QWidget *crear_pestana_listas();
    bool tecla_de_ventana(int key);
    void enfocar_busqueda();
    void crear_barra_de_estado();
    void cargar_pestanas();

    Context &ctx_;
    // The shop's margin and discount rules: the rules grid edits them, the
    // article panel prices with them.
    RuleStore reglas_;
    std::unique_ptr<FiscalFront> front_;
    // Where an invoice's copy is opened or sent, and the client that
    // uploads it to the vendor's service.
    std::unique_ptr<Escritorio> escritorio_;
    std::unique_ptr<ClienteHttp> http_;
    QTabWidget *tabs_;
    screens::TabListas *busqueda_ = nullptr;
    screens::PaginaListas *listas_ = nullptr;
    screens::TabChangos *carritos_ = nullptr;
    screens::PaginaConfiguracion *configuracion_ = nullptr;
    std::array<QLabel *, 6> logos_{};
    std::array<QLabel *, 5> panels_{};
    QPointer<FrmLog> log_window_;
    bool cursor_espera_ = false;
};

} // namespace vendrix
