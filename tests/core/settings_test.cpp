#include "core/cp1252.h"
#include "core/settings.h"
#include "support/test_context.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::TestApp;

// A Config.vdrx as another program left it: LF-only lines mixed with CR LF,
// blanks everywhere, keys in other cases, a comment, a duplicate key, a value
// with "=" and Windows-1252 bytes.
const QByteArray kForeignFile = QByteArrayLiteral("; Configuracion de la caja\r\n"
                                                  "[proveedores]\n"
                                                  "\n"
                                                  "  [ Parametros ]  \r\n"
                                                  "IVA=10.5\n"
                                                  "   IMPRESORA_fiscal   =   1   \r\n"
                                                  "IF_max_tarjeta = 20000; \r\n"
                                                  "IF_desc_art=Descripci\xf3n\r\n"
                                                  "IF_Mensaje = \xd1"
                                                  "and\xfa \x80 5\r\n"
                                                  ";decimales=3\r\n"
                                                  "decimales = 2\r\n"
                                                  "decimales = 1\r\n"
                                                  "formula=a=b+c\r\n"
                                                  "comillas=\"  entre comillas  \"\r\n"
                                                  "sin_valor\r\n"
                                                  "\t vacio =   \r\n"
                                                  "[OTRA]\r\n"
                                                  "solo_aqui=x");

class SettingsTest : public ::testing::Test {
protected:
    Settings config() const { return Settings(app.ruta(QStringLiteral("Config.vdrx"))); }
    void write_config(const QByteArray &bytes) const { app.write_file(QStringLiteral("Config.vdrx"), bytes); }
    QByteArray read_config() const { return app.read_file(QStringLiteral("Config.vdrx")); }

    TestApp app;
};

TEST_F(SettingsTest, ReadsAFileWrittenByAnotherProgram)
{
    write_config(kForeignFile);
    const Settings s = config();
    const struct {
        const char *key;
        QString expected;
    } cases[] = {
        {"iva", QStringLiteral("10.5")},
        {"impresora_fiscal", QStringLiteral("1")},
        {"Impresora_Fiscal", QStringLiteral("1")},
        {"IF_max_tarjeta", QStringLiteral("20000;")},
        {"if_desc_art", QStringLiteral("Descripción")},
        {"IF_Mensaje", QStringLiteral("Ñandú € 5")},
        {"decimales", QStringLiteral("2")}, // the comment doesn't count; the first of two wins
        {"formula", QStringLiteral("a=b+c")},
        {"comillas", QStringLiteral("  entre comillas  ")},
        {"sin_valor", QString()},
        {"vacio", QString()},
        {"no_existe", QString()},
        {"solo_aqui", QString()}, // lives in another section
    };
    for (const auto &c : cases)
        EXPECT_EQ(s.leer_parametro(QLatin1String(c.key)), c.expected) << c.key;
    EXPECT_EQ(s.leer_ini(QStringLiteral("otra"), QStringLiteral("SOLO_AQUI")), QStringLiteral("x"));
}

TEST_F(SettingsTest, MissingFileReadsEmpty)
{
    EXPECT_EQ(config().leer_parametro(QStringLiteral("iva")), QString());
    EXPECT_EQ(config().texto_completo(), QString());
    EXPECT_FALSE(QFile::exists(config().path()));
}

TEST_F(SettingsTest, WriteChangesOneLineAndKeepsEveryOtherByte)
{
    const struct {
        const char *key;
        const char *value;
        const char *line_before;
        const char *line_after; // the key keeps its case; the line gets CR LF
    } cases[] = {
        {"if_max_tarjeta", "30000", "IF_max_tarjeta = 20000; \r\n", "IF_max_tarjeta=30000\r\n"},
        {"Impresora_Fiscal", "0", "   IMPRESORA_fiscal   =   1   \r\n", "IMPRESORA_fiscal=0\r\n"},
        {"iva", "21", "IVA=10.5\n", "IVA=21\r\n"},
        {"DECIMALES", "0", "decimales = 2\r\n", "decimales=0\r\n"}, // the first of two
    };
    for (const auto &c : cases) {
        write_config(kForeignFile);
        ASSERT_TRUE(config().escribir_parametro(QLatin1String(c.key), QLatin1String(c.value)));
        QByteArray expected = kForeignFile;
        expected.replace(c.line_before, c.line_after);
        EXPECT_EQ(read_config(), expected) << c.key;
        EXPECT_EQ(config().leer_parametro(QLatin1String(c.key)), QLatin1String(c.value)) << c.key;
    }
}

TEST_F(SettingsTest, FileSavedAsUtf8WithMarkStaysUtf8)
{
    write_config(QByteArrayLiteral("\xEF\xBB\xBF[PARAMETROS]\r\nIF_desc_art=Descripci\xC3\xB3n\r\n"));
    EXPECT_EQ(config().leer_parametro(QStringLiteral("if_desc_art")), QStringLiteral("Descripción"));
    ASSERT_TRUE(config().escribir_parametro(QStringLiteral("IF_Mensaje"), QStringLiteral("Ñ")));
    EXPECT_EQ(read_config(),
              QByteArrayLiteral("\xEF\xBB\xBF[PARAMETROS]\r\nIF_desc_art=Descripci\xC3\xB3n\r\n"
                                "IF_Mensaje=\xC3\x91\r\n"));
}

TEST_F(SettingsTest, NewKeyGoesAtTheEndOfItsSection)
{
    write_config(
        QByteArrayLiteral("[PROVEEDORES]\r\n\r\n[PARAMETROS]\r\n\r\niva = 21\r\n\r\n[OTRA]\r\na=1\r\n"));
    ASSERT_TRUE(config().escribir_parametro(QStringLiteral("redondeo"), QStringLiteral("1")));
    ASSERT_TRUE(
        config().escribir_ini(QStringLiteral("proveedores"), QStringLiteral("x"), QStringLiteral("y")));
    EXPECT_EQ(read_config(), QByteArrayLiteral("[PROVEEDORES]\r\nx=y\r\n\r\n[PARAMETROS]\r\n\r\niva = 21\r\n"
                                               "redondeo=1\r\n\r\n[OTRA]\r\na=1\r\n"));
}

TEST_F(SettingsTest, NewSectionGoesAtTheEndOfTheFile)
{
    // The last line has no line end: it gets one, and nothing else changes.
    write_config(QByteArrayLiteral("[OTRA]\na=1"));
    ASSERT_TRUE(config().escribir_parametro(QStringLiteral("ultimo_backup"), QStringLiteral("23/11/2026")));
    EXPECT_EQ(read_config(),
              QByteArrayLiteral("[OTRA]\na=1\r\n[PARAMETROS]\r\nultimo_backup=23/11/2026\r\n"));
}

TEST_F(SettingsTest, WriteCreatesAMissingFile)
{
    ASSERT_TRUE(config().escribir_parametro(QStringLiteral("iva"), QStringLiteral("21")));
    EXPECT_EQ(read_config(), QByteArrayLiteral("[PARAMETROS]\r\niva=21\r\n"));
}

TEST_F(SettingsTest, NonAsciiValuesRoundTripInWindows1252)
{
    const QString value = QStringLiteral("Ñoño & Cía. — €");
    ASSERT_TRUE(config().escribir_parametro(QStringLiteral("IF_Mensaje"), value));
    EXPECT_EQ(read_config(), QByteArrayLiteral("[PARAMETROS]\r\nIF_Mensaje=\xd1o\xf1o & C\xed"
                                               "a. \x97 \x80\r\n"));
    EXPECT_EQ(config().leer_parametro(QStringLiteral("if_mensaje")), value);
}

TEST_F(SettingsTest, CharactersOutsideTheCodePageBecomeQuestionMarks)
{
    ASSERT_TRUE(config().escribir_parametro(QStringLiteral("k"), QStringLiteral("a\u4e2d b\U0001F600 c")));
    EXPECT_EQ(config().leer_parametro(QStringLiteral("k")), QStringLiteral("a? b? c"));
}

TEST_F(SettingsTest, ValueWithLineBreaksStaysOnOneLine)
{
    ASSERT_TRUE(config().escribir_parametro(QStringLiteral("a"), QStringLiteral("uno\r\ndos\ntres")));
    ASSERT_TRUE(config().escribir_parametro(QStringLiteral("b"), QStringLiteral("2")));
    EXPECT_EQ(config().leer_parametro(QStringLiteral("a")), QStringLiteral("uno dos tres"));
    EXPECT_EQ(config().leer_parametro(QStringLiteral("b")), QStringLiteral("2"));
}

TEST_F(SettingsTest, LongValuesAreCutTo1023Characters)
{
    const QString value(2000, QLatin1Char('x'));
    ASSERT_TRUE(config().escribir_parametro(QStringLiteral("largo"), value));
    const QString read = config().leer_parametro(QStringLiteral("largo"));
    EXPECT_EQ(read.size(), 1023);
    EXPECT_EQ(read, value.left(1023));
    // The file itself keeps the whole value.
    EXPECT_TRUE(read_config().contains(QByteArray(2000, 'x')));
}

TEST_F(SettingsTest, WriteIntoAFolderThatCannotBeWrittenFails)
{
    const Settings nowhere(app.ruta(QStringLiteral("no_existe/Config.vdrx")));
    EXPECT_FALSE(nowhere.escribir_parametro(QStringLiteral("iva"), QStringLiteral("21")));
    EXPECT_FALSE(nowhere.reemplazar_texto(QStringLiteral("x")));
    EXPECT_EQ(nowhere.leer_parametro(QStringLiteral("iva")), QString());

    // A folder where Config.vdrx is itself a folder can't take the file either.
    ASSERT_TRUE(QDir(app.carpeta()).mkdir(QStringLiteral("Config.vdrx")));
    EXPECT_FALSE(config().escribir_parametro(QStringLiteral("iva"), QStringLiteral("21")));
    EXPECT_FALSE(config().crear_por_defecto(QStringLiteral("1.0.0")));
}

TEST_F(SettingsTest, WriteIntoAReadOnlyFolderFails)
{
    const QString folder = app.ruta(QStringLiteral("solo_lectura"));
    ASSERT_TRUE(QDir().mkdir(folder));
    ASSERT_TRUE(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
    const QString probe = folder + QStringLiteral("/probe");
    if (QFile(probe).open(QIODevice::WriteOnly)) {
        QFile::remove(probe);
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        GTEST_SKIP() << "running with rights that ignore folder permissions";
    }
    const Settings s(folder + QStringLiteral("/Config.vdrx"));
    EXPECT_FALSE(s.escribir_parametro(QStringLiteral("iva"), QStringLiteral("21")));
    EXPECT_FALSE(QFile::exists(s.path()));
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(SettingsTest, DefaultFileHasItsLinesInOrder)
{
    const QString expected = QStringLiteral("[PROVEEDORES]\r\n"
                                            "\r\n"
                                            "[PARAMETROS]\r\n"
                                            "\r\n"
                                            "detalle_precios = 0\r\n"
                                            "advertencia_precio_antiguo = 0 \r\n"
                                            "preguntar_al_salir = 1 \r\n"
                                            "comenzar_en_listas = 0 \r\n"
                                            "decimales = 2 \r\n"
                                            "advertencia_precio_antiguo_dias=0\r\n"
                                            "tooltips = 0\r\n"
                                            "carritos = 0\r\n"
                                            "IF_PuntoDeVenta = 1\r\n"
                                            "IF_Modelo = Epson\r\n"
                                            "IF_IDFiscal=\r\n"
                                            "IF_Mensaje=GRACIAS POR SU COMPRA\r\n"
                                            "IF_Port = COM2\r\n"
                                            "IF_velocidad = 9600\r\n"
                                            "version=2.7.13\r\n"
                                            "IF_desc_art=Descripción\r\n"
                                            "busqueda_limite_caracteres = 0\r\n"
                                            " busqueda_cantidad_resultados = 1\r\n"
                                            " busqueda_terminos_similares = 0\r\n"
                                            "busqueda_ortografia = 0\r\n"
                                            "busqueda_autocompletar = 0\r\n"
                                            "cantidad_filas=100\r\n"
                                            "busqueda_sugerencias = 0\r\n"
                                            "busqueda_ignorarPreposiciones = 1\r\n"
                                            "actualizar_online = 1\r\n"
                                            "busqueda_limite_caracteres_combo = 3\r\n"
                                            "busqueda_cantidad_resultados_combo = 10\r\n"
                                            "IF_max_tarjeta = 20000; \r\n"
                                            "IF_max_efectivo = 10000\r\n"
                                            "Impresora_Fiscal = 0\r\n"
                                            "Valor_Dolar=1\r\n"
                                            "iva = 21\r\n"
                                            "recargo_tarjeta=0\r\n"
                                            "letraGrande = 0\r\n");
    EXPECT_EQ(Settings::texto_por_defecto(QStringLiteral("2.7.13")), expected);

    ASSERT_TRUE(config().crear_por_defecto(QStringLiteral("2.7.13")));
    EXPECT_EQ(read_config(), cp1252::codificar(expected));
    EXPECT_TRUE(read_config().contains("IF_desc_art=Descripci\xf3n\r\n"));

    const Settings s = config();
    EXPECT_EQ(s.leer_parametro(QStringLiteral("impresora_fiscal")), QStringLiteral("0"));
    EXPECT_EQ(s.leer_parametro(QStringLiteral("busqueda_cantidad_resultados")), QStringLiteral("1"));
    EXPECT_EQ(s.leer_parametro(QStringLiteral("IF_max_tarjeta")), QStringLiteral("20000;"));
    EXPECT_EQ(s.leer_parametro(QStringLiteral("IF_IDFiscal")), QString());
    EXPECT_EQ(s.leer_parametro(QStringLiteral("version")), QStringLiteral("2.7.13"));
    EXPECT_EQ(s.leer_parametro(QStringLiteral("redondeo")), QString());
}

TEST_F(SettingsTest, WholeTextRoundTripsForBackups)
{
    write_config(kForeignFile);
    const QString text = config().texto_completo();
    EXPECT_TRUE(text.contains(QStringLiteral("IF_desc_art=Descripción\r\n")));

    write_config(QByteArrayLiteral("[PARAMETROS]\r\niva=21\r\n"));
    ASSERT_TRUE(config().reemplazar_texto(text));
    EXPECT_EQ(read_config(), kForeignFile);
}

TEST(Cp1252Test, EveryByteDecodesAndEncodesBack)
{
    QByteArray all;
    for (int b = 0; b < 256; ++b)
        all.append(static_cast<char>(b));
    const QString text = cp1252::decodificar(all);
    EXPECT_EQ(text.at(0x80), QChar(0x20AC));
    EXPECT_EQ(text.at(0x9F), QChar(0x0178));
    EXPECT_EQ(text.at(0xF1), QStringLiteral("ñ").at(0));
    EXPECT_EQ(cp1252::codificar(text), all);
}

} // namespace
} // namespace vendrix
