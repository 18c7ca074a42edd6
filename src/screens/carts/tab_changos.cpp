#include "screens/carts/tab_changos.h"

#include "core/context.h"
#include "sales/agregar_articulo.h"
#include "screens/carts/carrito_tab.h"
#include "screens/carts/frm_agregar_articulo.h"

namespace vendrix::screens {

TabChangos::TabChangos(Context &ctx, QWidget *lista, QWidget *parent)
    : QTabWidget(parent), ctx_(ctx), copias_(ctx)
{
    setObjectName(QStringLiteral("TabChangos"));
    // The carts left open last time come back before their pages show them
    // and name their tabs.
    copias_.restaurar(carritos_);
    copias_.escuchar(carritos_);
    addTab(lista, QStringLiteral("Lista de Precios"));
    for (int n = 1; n <= Carritos::kCantidad; ++n) {
        auto *pagina = new CarritoTab(ctx_, carritos_.carrito(n), this);
        paginas_[static_cast<size_t>(n - 1)] = pagina;
        addTab(pagina, QString());
        connect(pagina, &CarritoTab::facturar_pedido, this, &TabChangos::facturar_pedido);
    }
    mostrar_nombres();
    aplicar_carritos();
    connect(this, &QTabWidget::currentChanged, this, [this](int pestana) {
        if (Carritos::es_numero(pestana))
            ultimo_carrito_ = pestana;
    });
}

CarritoTab *TabChangos::pagina(int numero) const
{
    return Carritos::es_numero(numero) ? paginas_[static_cast<size_t>(numero - 1)] : nullptr;
}

void TabChangos::aplicar_carritos()
{
    const bool cuatro = cuatro_carritos(ctx_);
    for (int n = 2; n <= Carritos::kCantidad; ++n)
        setTabVisible(n, cuatro);
    Q_EMIT cantidad_carritos_cambiada(cuatro);
}

void TabChangos::cambiar_cantidad_carritos(bool cuatro)
{
    vendrix::cambiar_cantidad_carritos(ctx_, cuatro);
    aplicar_carritos();
}

void TabChangos::mostrar_nombres()
{
    for (int n = 1; n <= Carritos::kCantidad; ++n)
        setTabText(n, nombre_carrito(ctx_, n));
}

bool TabChangos::tecla_funcion(int key)
{
    const std::optional<int> pestana = pestana_por_tecla(key, cuatro_carritos(ctx_));
    if (!pestana)
        return false;
    setCurrentIndex(*pestana);
    return true;
}

void TabChangos::agregar_desde_lista(int numero, const ArticuloParaCarrito &articulo)
{
    FrmAgregarArticulo dialogo(ctx_, carritos_, numero, articulo, this);
    connect(&dialogo, &FrmAgregarArticulo::carrito_renombrado, this, [this](int n, const QString &nombre) {
        setTabText(n, nombre);
        Q_EMIT nombre_carrito_cambiado(n, nombre);
    });
    dialogo.exec();
    const int n = dialogo.carrito_origen();
    if (dialogo.resultado().agregado)
        pagina(n)->mostrar();
    setCurrentIndex(n);
    if (dialogo.resultado().recargar_panel)
        Q_EMIT recargar_panel();
}

bool TabChangos::agregar_sin_dialogo(int numero, const ArticuloParaCarrito &articulo, bool mostrar_pagina)
{
    if (!agregar_con_figuras_del_panel(ctx_, carritos_, numero, articulo).agregado)
        return false;
    pagina(numero)->mostrar();
    if (mostrar_pagina)
        setCurrentIndex(numero);
    return true;
}

bool TabChangos::agregar_con_doble_clic(const ArticuloParaCarrito &articulo)
{
    if (!cuatro_carritos(ctx_))
        return false;
    const int numero = Carritos::es_numero(currentIndex()) ? currentIndex() : ultimo_carrito_;
    return agregar_sin_dialogo(numero, articulo, false);
}

bool TabChangos::agregar_automaticamente(const ArticuloParaCarrito &articulo)
{
    if (!vendrix::agregar_automaticamente(ctx_, carritos_, articulo).agregado)
        return false;
    pagina(1)->mostrar();
    setCurrentIndex(1);
    return true;
}

} // namespace vendrix::screens
