#include "catalogue/pricelist/build/list_values.h"
#include "catalogue/search/search_index.h"
#include "catalogue/support/list_fixture.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

struct PrecioCaso {
    const char *crudo;
    char decimal;
    const char *esperado; // nullptr: unreadable
};

TEST(LeerPrecio, ReadsBothDecimalMarksAndRefusesWhatIsNoNumber)
{
    const PrecioCaso casos[] = {
        {"1234,56", ',', "1234.56"},
        {"1.234,56", ',', "1234.56"},
        {"1,234.56", '.', "1234.56"},
        {"1234.5", '.', "1234.5"},
        {"12,50", ',', "12.5"},
        {"12,00", ',', "12"},
        {"$ 1.500", ',', "1500"},
        {"0012,30", ',', "12.3"},
        {",5", ',', "0.5"},
        {"", ',', "0"},
        {"  ", '.', "0"},
        {"0", '.', "0"},
        {"1.234.567,8", ',', "1234567.8"},
        {"12,50abc", ',', nullptr},
        {"abc", '.', nullptr},
        {"12.5", ',', nullptr},
        {"1,2,3", ',', nullptr},
        {"-5", '.', nullptr},
        {"1.23,5", ',', nullptr},
        {"12,", ',', "12"},
    };
    for (const PrecioCaso &c : casos) {
        const auto got = leer_precio(QString::fromUtf8(c.crudo), QLatin1Char(c.decimal));
        if (c.esperado == nullptr) {
            EXPECT_FALSE(got.has_value()) << c.crudo << " -> " << got.value_or(QString()).toStdString();
        } else {
            ASSERT_TRUE(got.has_value()) << c.crudo;
            EXPECT_EQ(*got, QString::fromUtf8(c.esperado)) << c.crudo;
        }
    }
}

struct DecimalCaso {
    QStringList precios;
    char separador;
    char esperado;
};

TEST(DetectarDecimal, JudgesTheMarkFromAllPricesOfAFile)
{
    const DecimalCaso casos[] = {
        {{"10", "12,5"}, ';', ','},     {{"10", "12.5"}, ';', '.'},
        {{"1.234,5"}, ',', ','},        {{"1,234.5"}, ';', '.'},
        {{"1.500", "2.000"}, ';', ','}, // thousands the Spanish way
        {{"1,500", "2,000"}, ',', '.'}, // thousands the English way
        {{"1.234.567"}, ',', ','},      // a repeated mark separates thousands
        {{"1,500", "2,25"}, ';', ','},  {{"100", "200"}, ',', '.'},
        {{"12,5", "3.75"}, ';', ','}, // both act as decimal: the first one wins
    };
    for (const DecimalCaso &c : casos) {
        EXPECT_EQ(detectar_decimal(c.precios, QLatin1Char(c.separador)), QLatin1Char(c.esperado))
            << c.precios.join(QLatin1Char(' ')).toStdString();
    }
}

TEST(LeerMoneda, TakesCodesAndCommonNames)
{
    const std::pair<const char *, const char *> casos[] = {
        {"1", "1"},       {"2", "2"},       {"101", "101"}, {"102", "102"},     {"", "1"},
        {"$", "1"},       {"Pesos", "1"},   {"ARS", "1"},   {"U$S", "2"},       {"usd", "2"},
        {"Dólares", "2"}, {" 102 ", "102"}, {"3", nullptr}, {"euros", nullptr},
    };
    for (const auto &[crudo, esperado] : casos) {
        const auto got = leer_moneda(QString::fromUtf8(crudo));
        if (!esperado)
            EXPECT_FALSE(got.has_value()) << crudo;
        else
            EXPECT_EQ(got.value_or(QStringLiteral("?")), QString::fromUtf8(esperado)) << crudo;
    }
}

TEST(DecodificarLista, TellsUtf8FromWindows1252)
{
    const DecodedText ansi = decodificar_lista(QByteArray("Ca\xF1o de cobre \x80 10 \x93"
                                                                "x\x94"));
    EXPECT_EQ(ansi.codificacion, QStringLiteral("Windows-1252"));
    EXPECT_EQ(ansi.texto, QStringLiteral("Caño de cobre € 10 “x”"));

    const DecodedText utf8 = decodificar_lista(QStringLiteral("Caño €").toUtf8());
    EXPECT_EQ(utf8.codificacion, QStringLiteral("UTF-8"));
    EXPECT_EQ(utf8.texto, QStringLiteral("Caño €"));

    const DecodedText bom =
        decodificar_lista(QByteArray("\xEF\xBB\xBF") + QStringLiteral("Ñ").toUtf8());
    EXPECT_EQ(bom.texto, QStringLiteral("Ñ"));

    QByteArray utf16("\xFF\xFE");
    for (QChar c : QStringLiteral("Ñu"))
        utf16 += QByteArray(reinterpret_cast<const char *>(&c), 2);
    EXPECT_EQ(decodificar_lista(utf16).texto, QStringLiteral("Ñu"));
}

TEST(PlegarSinAcentos, FoldsCaseAndAccentsButKeepsEnieAndDieresis)
{
    const std::pair<const char *, const char *> casos[] = {
        {"Tubería", "TUBERIA"},   {"caño", "CAÑO"},
        {"pingüino", "PINGÜINO"}, {"ÁÉÍÓÚ áéíóú", "AEIOU AEIOU"},
        {"àâäã èêë", "AAAA EEE"}, {"O'Higgins 1/2\" 100%", "O'HIGGINS 1/2\" 100%"},
        {"Ñandú", "ÑANDU"},       {"", ""},
    };
    for (const auto &[text, folded] : casos)
        EXPECT_EQ(plegar_sin_acentos(QString::fromUtf8(text)), QString::fromUtf8(folded)) << text;
}

} // namespace
} // namespace vendrix
