#include "core/shutdown.h"
#include "core/startup_version.h"
#include "core/status_indicators.h"
#include "core/status_relay.h"

#include "support/qt_print.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

const QString kSinBackup = QStringLiteral(
    "inform|Vendrix|No hay evidencia de un resguardo de información (backup). Vendrix le sugiere que haga un "
    "resguardo desde la solapa de \"Configuración\".");
const QString kBackupViejo =
    QStringLiteral("inform|Vendrix|Hace más de una semana que no se realiza un resguardo de información "
                   "(backup). Vendrix le "
                   "sugiere que haga un resguardo desde la solapa de \"Configuración\".");

TEST(Shutdown, TheBackupReminderCountsDaysFromToday)
{
    struct Caso {
        const char *ultimo_backup;
        QString aviso; // empty: no reminder
    };
    // Today is 23/11/2026.
    const Caso casos[] = {
        {"", kSinBackup},
        {"ayer", kSinBackup},
        {"15/11/2026", kBackupViejo},
        {"16/11/2026", QString()},
        {"2026-11-16", QString()},
        {"16/11/26", QString()},
        {"23/11/2026", QString()},
        {"30/11/2026", QString()},
        {"01/12/2026", kBackupViejo},
        {"2025-11-23", kBackupViejo},
    };
    for (const Caso &c : casos) {
        TestApp app;
        app.ctx().escribir_parametro(QStringLiteral("ultimo_backup"), QString::fromUtf8(c.ultimo_backup));
        aviso_backup(app.ctx());
        EXPECT_EQ(app.op.lines(), c.aviso.isEmpty() ? QStringList() : QStringList{c.aviso})
            << c.ultimo_backup;
    }
}

TEST(Shutdown, TheQuitQuestionCanKeepTheProgramOpen)
{
    TestApp app;
    app.ctx().escribir_parametro(QStringLiteral("ultimo_backup"), QStringLiteral("20/11/2026"));
    app.ctx().escribir_parametro(QStringLiteral("preguntar_al_salir"), QStringLiteral("1"));
    app.op.answers_in_order({false, true});

    EXPECT_FALSE(confirmar_cierre(app.ctx()));
    EXPECT_TRUE(app.log_lines().isEmpty());
    EXPECT_TRUE(confirmar_cierre(app.ctx()));
    EXPECT_EQ(app.op.lines(),
              QStringList(2, "ask|¿Salir del programa?|¿Está seguro que desea salir de Vendrix?"));
    EXPECT_EQ(app.log_messages(), QStringList{"Cerrando aplicación Vendrix."});

    // Without the setting there is no question; the reminder still comes first.
    TestApp other;
    other.ctx().escribir_parametro(QStringLiteral("preguntar_al_salir"), QStringLiteral("0"));
    EXPECT_TRUE(confirmar_cierre(other.ctx()));
    EXPECT_EQ(other.op.lines(), QStringList{kSinBackup});
    EXPECT_TRUE(other.log_lines().first().contains(QStringLiteral("[INF] - Cerrando aplicación Vendrix.")));
}

TEST(StartupVersion, NumbersAreComparedOneByOneWithoutCarrying)
{
    struct Caso {
        const char *db;
        VersionPrograma program;
        AvisoVersion aviso;
    };
    const Caso casos[] = {
        {"3.0.0", {2, 9, 9}, AvisoVersion::mayor},     {"2.10.0", {3, 0, 0}, AvisoVersion::menor},
        {"0.9.9", {1, 0, 0}, AvisoVersion::menor},     {"1.0.1", {1, 0, 0}, AvisoVersion::revision},
        {"1.0.0", {1, 0, 0}, AvisoVersion::ninguno},   {"0.0.9", {1, 2, 3}, AvisoVersion::revision},
        {"2", {1, 5, 5}, AvisoVersion::mayor},         {"1.6", {1, 5, 5}, AvisoVersion::menor},
        {"", {1, 0, 0}, AvisoVersion::ninguno},        {"nueva", {1, 0, 0}, AvisoVersion::ninguno},
        {" 1. 10 .0", {1, 9, 0}, AvisoVersion::menor},
    };
    for (const Caso &c : casos)
        EXPECT_EQ(comparar_version(QString::fromUtf8(c.db), c.program), c.aviso) << c.db;
    EXPECT_EQ(VersionPrograma({2, 10, 3}).texto(), QStringLiteral("2.10.3"));
}

TEST(StartupVersion, ARevisionNoticeTellsOfUsefulFunctions)
{
    TestApp app;
    EXPECT_TRUE(validar_version_db(app.ctx(), QStringLiteral("1.0.4"), {1, 0, 3}));
    EXPECT_EQ(
        app.op.texts(),
        QStringList{"Existe una version más reciente del programa.\r\nLe recomendamos actualizar Vendrix a "
                    "la nueva version (1.0.4) ya que contiene nuevas y útiles funcionalidades.\r\nPuede "
                    "descargar la última versión de Vendrix desde https://www.vendrix.com.ar/descargas"});
    EXPECT_EQ(app.log_messages(), QStringList{"Existe una versión de la Base de Datos más actualizada."});
}

TEST(StatusIndicators, EachKeywordHasItsPanelAndPicture)
{
    struct Caso {
        const char *keyword;
        Indicador indicador;
    };
    const Caso casos[] = {
        {"internet_on", {2, 24}},   {"internet_off", {2, 23}},      {"impresora_on", {3, 22}},
        {"impresora_off", {3, 21}}, {"impresora_ocupada", {3, 23}}, {"bug_on", {4, 20}},
        {"bug_off", {4, 19}},       {"ocupado_off", {5, 26}},       {"ocupado_on", {5, 27}},
    };
    for (const Caso &c : casos) {
        ASSERT_TRUE(indicador_de(QString::fromUtf8(c.keyword)).has_value()) << c.keyword;
        EXPECT_EQ(*indicador_de(QString::fromUtf8(c.keyword)), c.indicador) << c.keyword;
    }
    for (const char *other : {"", "BUG_ON", "bug", "internet"})
        EXPECT_FALSE(indicador_de(QString::fromUtf8(other)).has_value()) << other;
}

TEST(StatusIndicators, TheRelayShowsAWindowWhatHappenedBeforeIt)
{
    StatusRelay relay;
    relay.actualizar_indicador(QStringLiteral("impresora_on"));
    relay.actualizar_indicador(QStringLiteral("bug_off"));
    relay.actualizar_indicador(QStringLiteral("bug_on"));
    relay.actualizar_indicador(QStringLiteral("otra"));
    relay.marcar_ocupado(true);

    RecordingStatus window;
    relay.conectar(&window);
    EXPECT_EQ(window.keywords, QStringList({"impresora_on", "bug_on"}));
    EXPECT_TRUE(window.busy_changes.empty());

    relay.marcar_ocupado(true);
    relay.actualizar_indicador(QStringLiteral("internet_off"));
    EXPECT_EQ(window.busy_changes, std::vector<bool>{true});
    EXPECT_EQ(window.keywords.last(), QStringLiteral("internet_off"));
}

} // namespace
} // namespace vendrix::test
