#include "screens/frm_log.h"
#include "screens/frm_main.h"

#include "support/qt_print.h"
#include "support/test_context.h"

#include <QApplication>
#include <QLabel>
#include <QTabWidget>

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

bool logo_visible(const FrmMain &window, int index)
{
    const auto *logo = window.findChild<QLabel *>(QStringLiteral("Picture1_%1").arg(index));
    return logo && !logo->isHidden();
}

TEST(FrmMain, TheLoadLogsEachAreaInOrderAndSetsTheIndicators)
{
    TestApp app;
    app.ctx().escribir_parametro(QStringLiteral("impresora_fiscal"), QStringLiteral("1"));
    FrmMain window(app.ctx());
    window.cargar();

    EXPECT_EQ(app.log_messages(),
              QStringList({"INICIO - Load form FrmMain.", "TAB Disclaimer inicializado.",
                           "TAB Listas inicializado.", "Carritos de Compra inicializados.",
                           "TAB Novedades inicializado.", "TAB Configuración inicializado.",
                           "TAB Proveedores inicializado.", "TAB Pedidos inicializado.",
                           "TAB Reprotes inicializado.", "TAB Control Precios inicializado.",
                           "TAB Cliente / Proveedores inicializado.", "TAB Pagos inicializado.",
                           "Se puso el logo de Vendrix correspondiente.", "Web Preview Inicializado.",
                           "Impresora Fiscal inicializada.", "FIN - Load form FrmMain."}));
    QStringList captions;
    for (int i = 0; i < window.pestanas()->count(); ++i)
        captions << window.pestanas()->tabText(i);
    EXPECT_EQ(captions,
              QStringList({"Listas de Precios", "Novedades", "Configuración", "Pedidos", "Control de Precios",
                           "Reportes", "Clientes y Proveedores", "Pagos", "Aviso Legal"}));
    EXPECT_EQ(window.imagen_panel(2), 23); // no connection
    EXPECT_EQ(window.imagen_panel(3), 22); // the shop's printer is on
    EXPECT_EQ(window.imagen_panel(4), 19);
    EXPECT_EQ(window.imagen_panel(5), 26);
    EXPECT_TRUE(logo_visible(window, 0)); // 23 November
}

TEST(FrmMain, TheHolidayLogoReplacesTheOrdinaryOne)
{
    struct Caso {
        QDate today;
        int logo;
    };
    for (const Caso &c :
         {Caso{QDate(2026, 9, 19), 4}, Caso{QDate(2026, 9, 26), 4}, Caso{QDate(2026, 9, 27), 0},
          Caso{QDate(2026, 4, 2), 2}, Caso{QDate(2026, 12, 24), 1}}) {
        TestApp app;
        app.clock.set(QDateTime(c.today, QTime(10, 0)));
        FrmMain window(app.ctx());
        EXPECT_EQ(window.elegir_logo(), c.logo);
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ(logo_visible(window, i), i == c.logo) << c.today.toString().toStdString() << " " << i;
    }
}

TEST(FrmMain, BusyFreezesTheWindowUnlessTheSettingSaysOtherwise)
{
    TestApp app;
    FrmMain window(app.ctx());
    QWidget *tabs = window.pestanas();

    window.marcar_ocupado(true);
    EXPECT_FALSE(window.isEnabled());
    EXPECT_FALSE(tabs->isEnabled());
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    EXPECT_EQ(window.imagen_panel(5), 27);
    // A second call doesn't stack another wait cursor.
    window.marcar_ocupado(true);
    window.marcar_ocupado(false);
    EXPECT_TRUE(window.isEnabled());
    EXPECT_TRUE(tabs->isEnabled());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(window.imagen_panel(5), 26);

    app.ctx().escribir_parametro(QStringLiteral("disable_while_processing"), QStringLiteral("no"));
    window.marcar_ocupado(true);
    EXPECT_TRUE(window.isEnabled());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(window.imagen_panel(5), 26);
    // Releasing still enables the window, whatever disabled it.
    window.setEnabled(false);
    window.marcar_ocupado(false);
    EXPECT_TRUE(window.isEnabled());
}

TEST(FrmMain, IndicatorsChangeTheirPanelOnly)
{
    TestApp app;
    FrmMain window(app.ctx());
    window.actualizar_indicador(QStringLiteral("bug_on"));
    window.actualizar_indicador(QStringLiteral("impresora_ocupada"));
    window.actualizar_indicador(QStringLiteral("internet_on"));
    window.actualizar_indicador(QStringLiteral("no_existe"));
    EXPECT_EQ(window.imagen_panel(2), 24);
    EXPECT_EQ(window.imagen_panel(3), 23);
    EXPECT_EQ(window.imagen_panel(4), 20);
    EXPECT_EQ(window.imagen_panel(5), 26);
    EXPECT_EQ(window.imagen_panel(9), 0);
}

TEST(FrmMain, ClosingRemindsOfTheBackupAndAsks)
{
    TestApp app;
    app.ctx().escribir_parametro(QStringLiteral("preguntar_al_salir"), QStringLiteral("1"));
    FrmMain window(app.ctx());
    window.show();
    FrmLog *viewer = window.abrir_log();
    app.op.answers_in_order({false, true});

    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(app.log_messages().contains(QStringLiteral("Cerrando aplicación Vendrix.")));

    EXPECT_TRUE(window.close());
    EXPECT_FALSE(viewer->isVisible());
    EXPECT_EQ(app.log_messages().last(), QStringLiteral("Cerrando aplicación Vendrix."));
    const QString sin_backup = QStringLiteral("inform|Vendrix|No hay evidencia de un resguardo de "
                                              "información (backup). Vendrix le sugiere que haga un "
                                              "resguardo desde la solapa de \"Configuración\".");
    const QString pregunta =
        QStringLiteral("ask|¿Salir del programa?|¿Está seguro que desea salir de Vendrix?");
    EXPECT_EQ(app.op.lines(), QStringList({sin_backup, pregunta, sin_backup, pregunta}));
}

TEST(FrmMain, HiddenConfigurationLabelsOpenTheLogAndRaiseItsDetail)
{
    TestApp app;
    FrmMain window(app.ctx());
    window.config_label(14);
    EXPECT_EQ(
        app.op.lines(),
        QStringList{"inform|Nivel de detalle en el log incrementado|Se incremento el nivel de detalle en el "
                    "log. La configuración se mantendra hasta que reinicie Vendrix."});
    EXPECT_TRUE(app.log().detalle_alto());

    window.config_label(3);
    EXPECT_EQ(window.findChild<FrmLog *>(), nullptr);
    window.config_label(8);
    FrmLog *viewer = window.findChild<FrmLog *>();
    ASSERT_NE(viewer, nullptr);
    EXPECT_TRUE(viewer->isVisible());
    window.config_label(8);
    EXPECT_EQ(window.findChildren<FrmLog *>().size(), 1);
}

} // namespace
} // namespace vendrix::test
