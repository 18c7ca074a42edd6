#include "core/cp1252.h"
#include "core/settings.h"
#include "rows.h"
#include "support/qt_print.h"
#include "support/test_context.h"

#include <QDir>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::TestApp;

// A Config.vdrx as another program left it: LF-only lines mixed with CR LF,
// blanks everywhere, keys in other cases, a comment, a duplicate key, a value
// with "=" and Windows-1252 bytes.
const QByteArray kForeignFile =
    "; Configuracion de la caja\r\n[proveedores]\n\n  [ Parametros ]  \r\nIVA=10.5\n"
    "   IMPRESORA_fiscal   =   1   \r\nIF_max_tarjeta = 20000; \r\n"
    "IF_desc_art=Descripci\xf3n\r\nIF_Mensaje = \xd1"
    "and\xfa \x80 5\r\n"
    ";decimales=3\r\ndecimales = 2\r\ndecimales = 1\r\nformula=a=b+c\r\n"
    "comillas=\"  entre comillas  \"\r\nsin_valor\r\n\t vacio =   \r\n[OTRA]\r\nsolo_aqui=x";

class SettingsTest : public ::testing::Test {
protected:
    Settings config() const { return Settings(app.ruta("Config.vdrx")); }
    void write_config(const QByteArray &bytes) const { app.write_file("Config.vdrx", bytes); }
    QByteArray read_config() const { return app.read_file("Config.vdrx"); }

    TestApp app;
};

TEST_F(SettingsTest, ReadsAFileWrittenByAnotherProgram)
{
    write_config(kForeignFile);
    const Settings s = config();
    // A commented line doesn't count, the first of two keys wins, and a key
    // of another section isn't seen.
    QStringList read;
    for (const char *key : {"iva", "Impresora_Fiscal", "IF_max_tarjeta", "decimales", "if_desc_art",
                            "IF_Mensaje", "formula", "comillas", "sin_valor", "vacio", "solo_aqui"})
        read << s.leer_parametro(key);
    EXPECT_EQ(read, QStringList({"10.5", "1", "20000;", "2", "Descripción", "Ñandú € 5", "a=b+c",
                                 "  entre comillas  ", "", "", ""}));
    EXPECT_EQ(s.leer_ini("otra", "SOLO_AQUI"), "x");
}

TEST_F(SettingsTest, WriteChangesOneLineAndKeepsEveryOtherByte)
{
    const Rows<const char *, const char *, const char *, const char *> cases = {
        {"if_max_tarjeta", "30000", "IF_max_tarjeta = 20000; \r\n", "IF_max_tarjeta=30000\r\n"},
        {"Impresora_Fiscal", "0", "   IMPRESORA_fiscal   =   1   \r\n", "IMPRESORA_fiscal=0\r\n"},
        {"iva", "21", "IVA=10.5\n", "IVA=21\r\n"},
        {"DECIMALES", "0", "decimales = 2\r\n", "decimales=0\r\n"}, // the first of two
    };
    for (const auto &[key, value, line_before, line_after] : cases) {
        write_config(kForeignFile);
        ASSERT_TRUE(config().escribir_parametro(key, value));
        EXPECT_EQ(read_config(), QByteArray(kForeignFile).replace(line_before, line_after)) << key;
    }
}

TEST_F(SettingsTest, NewKeysGoAtTheEndOfTheirSectionAndNewSectionsAtTheEndOfTheFile)
{
    EXPECT_EQ(config().leer_parametro("iva"), "");
    ASSERT_TRUE(config().escribir_parametro("iva", "21"));
    EXPECT_EQ(read_config(), "[PARAMETROS]\r\niva=21\r\n");

    write_config("[PROVEEDORES]\r\n\r\n[PARAMETROS]\r\n\r\niva = 21\r\n\r\n[OTRA]\r\na=1\r\n");
    ASSERT_TRUE(config().escribir_parametro("redondeo", "1"));
    ASSERT_TRUE(config().escribir_ini("proveedores", "x", "y"));
    EXPECT_EQ(
        read_config(),
        "[PROVEEDORES]\r\nx=y\r\n\r\n[PARAMETROS]\r\n\r\niva = 21\r\nredondeo=1\r\n\r\n[OTRA]\r\na=1\r\n");

    // The last line has no line end: it gets one, and nothing else changes.
    write_config("[OTRA]\na=1");
    ASSERT_TRUE(config().escribir_parametro("ultimo_backup", "23/11/2026"));
    EXPECT_EQ(read_config(), "[OTRA]\na=1\r\n[PARAMETROS]\r\nultimo_backup=23/11/2026\r\n");
}

TEST_F(SettingsTest, FileSavedAsUtf8WithMarkStaysUtf8)
{
    write_config("\xEF\xBB\xBF[PARAMETROS]\r\nIF_desc_art=Descripci\xC3\xB3n\r\n");
    EXPECT_EQ(config().leer_parametro("if_desc_art"), "Descripción");
    ASSERT_TRUE(config().escribir_parametro("IF_Mensaje", "Ñ"));
    EXPECT_EQ(read_config(),
              "\xEF\xBB\xBF[PARAMETROS]\r\nIF_desc_art=Descripci\xC3\xB3n\r\nIF_Mensaje=\xC3\x91\r\n");
}

TEST_F(SettingsTest, ValuesAreWrittenInWindows1252OnOneLine)
{
    ASSERT_TRUE(config().escribir_parametro("IF_Mensaje", "Ñoño & Cía. — €"));
    EXPECT_EQ(read_config(), "[PARAMETROS]\r\nIF_Mensaje=\xd1o\xf1o & C\xed"
                             "a. \x97 \x80\r\n");
    EXPECT_EQ(config().leer_parametro("if_mensaje"), "Ñoño & Cía. — €");
    const Rows<QString, QString> cases = {
        {"a\u4e2d b\U0001F600 c", "a? b? c"}, // outside the code page
        {"uno\r\ndos\ntres", "uno dos tres"},
        {QString(2000, 'x'), QString(1023, 'x')}, // the file keeps it whole
    };
    for (const auto &[value, read] : cases) {
        ASSERT_TRUE(config().escribir_parametro("k", value));
        ASSERT_TRUE(config().escribir_parametro("b", "2"));
        EXPECT_EQ(config().leer_parametro("k"), read);
        EXPECT_EQ(config().leer_parametro("b"), "2");
    }
    EXPECT_TRUE(read_config().contains(QByteArray(2000, 'x')));
}

TEST_F(SettingsTest, WriteWhereTheFileCannotBeMadeFails)
{
    EXPECT_FALSE(Settings(app.ruta("no_existe/Config.vdrx")).escribir_parametro("iva", "21"));
    // A folder where Config.vdrx is itself a folder can't take the file either.
    ASSERT_TRUE(QDir(app.carpeta()).mkdir("Config.vdrx"));
    EXPECT_FALSE(config().escribir_parametro("iva", "21"));
    EXPECT_FALSE(config().reemplazar_texto("x"));
    EXPECT_FALSE(config().crear_por_defecto("1.0.0"));
}

TEST_F(SettingsTest, DefaultFileHasItsLinesAndTheValuesTheProgramReads)
{
    const QStringList lines = Settings::texto_por_defecto("2.7.13").split("\r\n");
    EXPECT_EQ(lines.size(), 39);
    EXPECT_EQ(lines.mid(0, 5), QStringList({"[PROVEEDORES]", "", "[PARAMETROS]", "", "detalle_precios = 0"}));
    EXPECT_EQ(lines.at(21) + '|' + lines.at(31) + '|' + lines.at(37),
              " busqueda_cantidad_resultados = 1|IF_max_tarjeta = 10000000|letraGrande = 0");
    ASSERT_TRUE(config().crear_por_defecto("2.7.13"));
    EXPECT_EQ(read_config(), cp1252::codificar(lines.join("\r\n")));
    QStringList read;
    for (const char *key :
         {"decimales", "IF_Mensaje", "version", "IF_desc_art", "cantidad_filas", "actualizar_online",
          "busqueda_cantidad_resultados_combo", "Valor_Dolar", "iva", "IF_max_efectivo", "IF_max_tarjeta"})
        read << config().leer_parametro(key);
    EXPECT_EQ(read.join('|'), "2|GRACIAS POR SU COMPRA|2.7.13|Descripción|100|1|10|1|21|10000000|10000000");
}

TEST_F(SettingsTest, WholeTextRoundTripsForBackups)
{
    write_config(kForeignFile);
    const QString text = config().texto_completo();
    EXPECT_TRUE(text.contains("IF_desc_art=Descripción\r\n"));
    write_config("[PARAMETROS]\r\niva=21\r\n");
    ASSERT_TRUE(config().reemplazar_texto(text));
    EXPECT_EQ(read_config(), kForeignFile);
}

TEST(Cp1252Test, EveryByteDecodesAndEncodesBack)
{
    QByteArray all;
    for (int b = 0; b < 256; ++b)
        all.append(static_cast<char>(b));
    const QString text = cp1252::decodificar(all);
    EXPECT_EQ(text.mid(0x80, 1) + text.mid(0x9F, 1) + text.mid(0xF1, 1), "€Ÿñ");
    EXPECT_EQ(cp1252::codificar(text), all);
}

} // namespace
} // namespace vendrix
