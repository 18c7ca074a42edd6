#include "core/text_helpers.h"

#include "support/qt_print.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

TEST(BuscarEnLista, ExactIndexOrMinusOne)
{
    const QStringList lista{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"),
                            QStringLiteral("b")};
    EXPECT_EQ(buscar_en_lista(lista, QStringLiteral("b")), 1);
    EXPECT_EQ(buscar_en_lista(lista, QStringLiteral("B")), -1);
    EXPECT_EQ(buscar_en_lista(lista, QStringLiteral("d")), -1);
    EXPECT_EQ(buscar_en_lista({}, QStringLiteral("a")), -1);
}

TEST(TieneUnSeparador, TheLastSignOrMarkDecides)
{
    const struct {
        const char *texto;
        bool admite;
    } casos[] = {{"", true},         {"12", true}, {"1,5", false}, {"1,5+2", true},
                 {"1,5+2,3", false}, {"3-", true}, {"1,", false},  {"1.5", true}};
    for (const auto &c : casos)
        EXPECT_EQ(tiene_un_separador(QString::fromUtf8(c.texto)), c.admite) << c.texto;
}

TEST(Rellenar, TakesTheLastCharactersBehindThePadding)
{
    EXPECT_EQ(rellenar_ceros(QStringLiteral("123"), 8), QStringLiteral("00000123"));
    EXPECT_EQ(rellenar_ceros(QStringLiteral("123456789"), 5), QStringLiteral("56789"));
    EXPECT_EQ(rellenar_ceros(QString(), 3), QStringLiteral("000"));
    EXPECT_EQ(rellenar_ceros(QStringLiteral("ab"), 45), QString(38, QLatin1Char('0')) + QStringLiteral("ab"));
    EXPECT_EQ(rellenar_ceros(QStringLiteral("ab"), 0), QString());

    EXPECT_EQ(rellenar_blancos(QStringLiteral("ab"), 7), QStringLiteral("\tab"));
    EXPECT_EQ(rellenar_blancos(QStringLiteral("ab"), 8), QStringLiteral("\t ab"));
    EXPECT_EQ(rellenar_blancos(QStringLiteral("ab"), 12), QStringLiteral("\t\tab"));
    EXPECT_EQ(rellenar_blancos(QStringLiteral("a      b"), 8), QStringLiteral("a\t b"));
}

TEST(CodificarUrl, KeepsTheSafeSetAndEncodesTheRest)
{
    const struct {
        const char *texto;
        const char *codificado;
    } casos[] = {
        {"Hola Mundo", "Hola%20Mundo"},
        {"a+b", "a%2Bb"},
        {"ñandú", "ñandú"},
        {"pingüino", "ping%FCino"},
        {"10€", "10%80"},
        {"a\r\nb", "a%0D%0Ab"},
        {"50%", "50%25"},
        {"x@y.com", "x%40y.com"},
        {"\t", "%09"},
        {"https://a.com/p?x=1&y=(2)", "https://a.com/p?x=1&y=(2)"},
    };
    for (const auto &c : casos)
        EXPECT_EQ(codificar_url(QString::fromUtf8(c.texto)), QString::fromUtf8(c.codificado)) << c.texto;
}

TEST(TamanoArchivoTexto, UnitsFromBytesToGigabytes)
{
    const struct {
        qint64 bytes;
        const char *texto;
    } casos[] = {{0, "0 Bytes"},          {512, "512 Bytes"},      {1023, "1023 Bytes"}, {1024, "1,00 KB"},
                 {1536, "1,50 KB"},       {1048575, "1024,00 KB"}, {1048576, "1,00 MB"}, {5000000, "4,77 MB"},
                 {1073741824, "1,00 GB"}, {5368709120, "5,00 GB"}};
    for (const auto &c : casos)
        EXPECT_EQ(tamano_archivo_texto(c.bytes), QString::fromUtf8(c.texto)) << c.bytes;
}

} // namespace
} // namespace vendrix
