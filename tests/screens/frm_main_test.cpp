// The main window without a price list: its load, indicators, logo, busy
// state, closing and hidden labels.
#include "screens/main_window/frm_log.h"
#include "screens/main_window/frm_main.h"
#include "screens/pantalla.h"

#include "support/qt_print.h"
#include "support/test_context.h"

#include <QTabWidget>

namespace vendrix::test {
namespace {

bool logo_visible(const FrmMain &window, int index)
{
    const auto *logo = window.findChild<QLabel *>(QStringLiteral("Picture1_%1").arg(index));
    return logo && !logo->isHidden();
}

TEST(FrmMain, TheLoadSetsTheTabsTheIndicatorsAndTheLogo)
{
    TestApp app;
    app.ctx().escribir_parametro(QStringLiteral("impresora_fiscal"), QStringLiteral("1"));
    FrmMain window(app.ctx());
    window.cargar();
    // Without a price list the rules can't be read: logged, and the load
    // goes on to its end.
    EXPECT_TRUE(app.log_messages().contains(
        QStringLiteral("ER GR001 - 1 No se pudo leer la grilla de descuentos y ganancias 0 Vendrix.")));
    EXPECT_EQ(app.log_messages().last(), QStringLiteral("FIN - Load form FrmMain."));
    QStringList captions;
    for (int i = 0; i < window.pestanas()->count(); ++i)
        captions << window.pestanas()->tabText(i);
    EXPECT_EQ(captions,
              QStringList({"Listas de Precios", "Novedades", "Configuración", "Pedidos", "Control de Precios",
                           "Reportes", "Clientes y Proveedores", "Pagos", "Aviso Legal"}));
    // No connection, the shop's printer on, no errors, idle; then each
    // indicator changes its own panel only.
    const auto paneles = [&] {
        return QList<int>({window.imagen_panel(2), window.imagen_panel(3), window.imagen_panel(4),
                           window.imagen_panel(5), window.imagen_panel(9)});
    };
    EXPECT_EQ(paneles(), QList<int>({23, 22, 19, 26, 0}));
    window.actualizar_indicador(QStringLiteral("bug_on"));
    window.actualizar_indicador(QStringLiteral("no_existe"));
    EXPECT_EQ(paneles(), QList<int>({23, 22, 20, 26, 0}));
    EXPECT_TRUE(logo_visible(window, 0)); // 23 November
    app.clock.set(QDateTime(QDate(2026, 9, 19), QTime(10, 0)));
    window.elegir_logo();
    EXPECT_EQ(QList<bool>({logo_visible(window, 0), logo_visible(window, 4)}), QList<bool>({false, true}));
}

TEST(FrmMain, BusyFreezesTheWindowUnlessTheSettingSaysOtherwise)
{
    TestApp app;
    FrmMain window(app.ctx());
    window.marcar_ocupado(true);
    window.marcar_ocupado(true); // one wait cursor all the same
    EXPECT_FALSE(window.pestanas()->isEnabled());
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(window.imagen_panel(5), 27);
    window.marcar_ocupado(false);
    EXPECT_TRUE(window.pestanas()->isEnabled());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);

    app.ctx().escribir_parametro(QStringLiteral("disable_while_processing"), QStringLiteral("no"));
    window.marcar_ocupado(true);
    EXPECT_TRUE(window.isEnabled());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    window.setEnabled(false); // releasing enables the window, whatever disabled it
    window.marcar_ocupado(false);
    EXPECT_TRUE(window.isEnabled());
}

TEST(FrmMain, ClosingAsksClosesTheLogViewerAndHiddenLabelsWork)
{
    TestApp app;
    app.ctx().escribir_parametro(QStringLiteral("preguntar_al_salir"), QStringLiteral("1"));
    FrmMain window(app.ctx());
    window.show();
    app.ctx().escribir_log(QStringLiteral("Precio de 1,50 guardado"), QStringLiteral("I"));
    app.ctx().escribir_log(QStringLiteral("ER EXECNQ - 1 falla"), QStringLiteral("E"));
    window.config_label(8);
    window.config_label(8);
    ASSERT_EQ(window.findChildren<FrmLog *>().size(), 1);
    FrmLog *viewer = window.findChild<FrmLog *>();
    // The viewer shows the log's lines, one level box hides its own, and
    // its button empties the log.
    const widgets::LynxGrid &grilla = *viewer->grilla();
    EXPECT_EQ(grilla.CellText(0, 2), QStringLiteral("Precio de 1,50 guardado."));
    hijo<QCheckBox>(*viewer, "Check_filtro_0")->setChecked(false); // INF
    EXPECT_EQ(grilla.CellText(0, 1), QStringLiteral("ERROR"));
    hijo<QPushButton>(*viewer, "Command_borrar")->click();
    EXPECT_EQ(app.log_messages(), QStringList{"Configuración - Se Borro el log a pedido del usuario."});
    EXPECT_EQ(app.status.keywords.last(), QStringLiteral("bug_off"));
    window.config_label(14);
    EXPECT_TRUE(app.log().detalle_alto());
    EXPECT_EQ(app.op.shown.back().title, QStringLiteral("Nivel de detalle en el log incrementado"));

    app.op.answers_in_order({false, true});
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(viewer->isVisible());
    EXPECT_EQ(app.log_messages().last(), QStringLiteral("Cerrando aplicación Vendrix."));
}

} // namespace
} // namespace vendrix::test
