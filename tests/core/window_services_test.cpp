// The services the main window uses: the reminder on closing, the status
// indicators and the holiday logo.
#include "core/holiday_logo.h"
#include "core/shutdown.h"
#include "core/status_indicators.h"
#include "core/status_relay.h"
#include "rows.h"
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
    const Rows<const char *, QString> casos = {
        {"", kSinBackup},          {"ayer", kSinBackup},      {"15/11/2026", kBackupViejo},
        {"16/11/2026", QString()}, {"2026-11-16", QString()}, {"01/12/2026", kBackupViejo}};
    for (const auto &[ultimo_backup, aviso] : casos) {
        TestApp app;
        app.ctx().escribir_parametro("ultimo_backup", ultimo_backup);
        aviso_backup(app.ctx());
        EXPECT_EQ(app.op.lines(), aviso.isEmpty() ? QStringList() : QStringList{aviso}) << ultimo_backup;
    }
}

// The question and its answers are pinned by the main window's tests.
TEST(Shutdown, WithoutTheQuitSettingOnlyTheReminderComes)
{
    TestApp app;
    app.ctx().escribir_parametro("preguntar_al_salir", "0");
    EXPECT_TRUE(confirmar_cierre(app.ctx()));
    EXPECT_EQ(app.op.lines(), QStringList{kSinBackup});
    EXPECT_EQ(app.log_messages(), QStringList{"Cerrando aplicación Vendrix."});
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
    // The main window's tests show the other keywords on their panels.
    EXPECT_EQ(indicador_de("impresora_off"), (Indicador{3, 21}));
    EXPECT_FALSE(indicador_de("BUG_ON").has_value());
}

TEST(HolidayLogo, EasterByTheComputusAndAHolidayShowsLessThanAWeekAround)
{
    const Rows<int, QDate> pascuas = {
        {2025, {2025, 4, 20}}, {1818, {1818, 3, 22}}, {2038, {2038, 4, 25}}, {9999, {9999, 3, 28}}};
    for (const auto &[year, pascua] : pascuas)
        EXPECT_EQ(calcular_pascua(year), pascua) << year;
    EXPECT_FALSE(calcular_pascua(999).has_value());
    EXPECT_FALSE(calcular_pascua(10000).has_value());
    // A week counting both days: the 3 September and 21 September holidays
    // sit on either side of 14 September without reaching it; 20 December of
    // the year before doesn't count on 1 January.
    const Rows<QDate, int> casos = {
        {{2026, 9, 14}, kLogoNormal}, {{2026, 9, 8}, kLogoMaestro},   {{2026, 9, 9}, kLogoNormal},
        {{2026, 4, 5}, kLogoPascua},  {{2026, 3, 31}, kLogoPascua},   {{2026, 3, 30}, kLogoNormal},
        {{2038, 4, 30}, kLogoPascua}, {{2026, 5, 20}, kLogoPatrio},   {{2026, 7, 14}, kLogoPatrio},
        {{2026, 7, 15}, kLogoNormal}, {{2026, 12, 25}, kLogoNavidad}, {{2026, 12, 26}, kLogoNormal},
        {{2027, 1, 1}, kLogoNormal}};
    for (const auto &[today, logo] : casos)
        EXPECT_EQ(elegir_logo(today), logo) << today.toString(Qt::ISODate).toStdString();
}

} // namespace
} // namespace vendrix::test
