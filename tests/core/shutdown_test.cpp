#include "core/shutdown.h"
#include "core/status_indicators.h"
#include "core/status_relay.h"

#include "support/qt_print.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

const QString kSinBackup =
    "inform|Vendrix|No hay evidencia de un resguardo de información (backup). Vendrix le "
    "sugiere que haga un resguardo desde la solapa de \"Configuración\".";
const QString kBackupViejo =
    "inform|Vendrix|Hace más de una semana que no se realiza un resguardo de "
    "información (backup). Vendrix le sugiere que haga un resguardo desde la solapa de "
    "\"Configuración\".";

TEST(Shutdown, TheBackupReminderCountsDaysFromToday)
{
    // Today is 23/11/2026.
    const struct {
        const char *ultimo_backup;
        QString aviso; // empty: no reminder
    } casos[] = {{"", kSinBackup},          {"ayer", kSinBackup},         {"15/11/2026", kBackupViejo},
                 {"16/11/2026", QString()}, {"2026-11-16", QString()},    {"16/11/26", QString()},
                 {"30/11/2026", QString()}, {"01/12/2026", kBackupViejo}, {"2025-11-23", kBackupViejo}};
    for (const auto &c : casos) {
        TestApp app;
        app.ctx().escribir_parametro("ultimo_backup", c.ultimo_backup);
        aviso_backup(app.ctx());
        EXPECT_EQ(app.op.lines(), c.aviso.isEmpty() ? QStringList() : QStringList{c.aviso})
            << c.ultimo_backup;
    }
}

TEST(Shutdown, TheQuitQuestionCanKeepTheProgramOpen)
{
    TestApp app;
    app.ctx().escribir_parametro("ultimo_backup", "20/11/2026");
    app.ctx().escribir_parametro("preguntar_al_salir", "1");
    app.op.answers_in_order({false, true});

    EXPECT_FALSE(confirmar_cierre(app.ctx()));
    EXPECT_TRUE(app.log_lines().isEmpty());
    EXPECT_TRUE(confirmar_cierre(app.ctx()));
    EXPECT_EQ(app.op.lines(),
              QStringList(2, "ask|¿Salir del programa?|¿Está seguro que desea salir de Vendrix?"));
    EXPECT_TRUE(app.log_lines().first().endsWith("[INF] - Cerrando aplicación Vendrix."));

    // Without the setting there is no question; the reminder still comes first.
    TestApp other;
    other.ctx().escribir_parametro("preguntar_al_salir", "0");
    EXPECT_TRUE(confirmar_cierre(other.ctx()));
    EXPECT_EQ(other.op.lines(), QStringList{kSinBackup});
}

TEST(StatusIndicators, EachKeywordHasItsPanelAndPicture)
{
    const struct {
        const char *keyword;
        Indicador indicador;
    } casos[] = {{"internet_on", {2, 24}},   {"internet_off", {2, 23}},      {"impresora_on", {3, 22}},
                 {"impresora_off", {3, 21}}, {"impresora_ocupada", {3, 23}}, {"bug_on", {4, 20}},
                 {"bug_off", {4, 19}},       {"ocupado_off", {5, 26}},       {"ocupado_on", {5, 27}}};
    for (const auto &c : casos)
        EXPECT_EQ(indicador_de(c.keyword), c.indicador) << c.keyword;
    for (const char *other : {"", "BUG_ON", "bug"})
        EXPECT_FALSE(indicador_de(other).has_value()) << other;
}

TEST(StatusIndicators, TheRelayShowsAWindowWhatHappenedBeforeIt)
{
    StatusRelay relay;
    for (const char *keyword : {"impresora_on", "bug_off", "bug_on", "otra"})
        relay.actualizar_indicador(keyword);
    relay.marcar_ocupado(true);

    RecordingStatus window;
    relay.conectar(&window);
    EXPECT_EQ(window.keywords, QStringList({"impresora_on", "bug_on"}));
    EXPECT_TRUE(window.busy_changes.empty());
    relay.marcar_ocupado(true);
    relay.actualizar_indicador("internet_off");
    EXPECT_EQ(window.busy_changes, std::vector<bool>{true});
    EXPECT_EQ(window.keywords.last(), "internet_off");
}

} // namespace
} // namespace vendrix::test
