#include "catalogue/pricelist/build/list_values.h"
#include "support/qt_print.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

// In the tables, "?" stands for a value that can't be read.
TEST(LeerPrecio, ReadsBothDecimalMarksAndRefusesWhatIsNoNumber)
{
    // Each case: text, decimal mark, value read.
    const QStringList casos =
        QStringLiteral("1234,56|,|1234.56 ; 1.234,56|,|1234.56 ; 1,234.56|.|1234.56 ; 1234.5|.|1234.5 ; "
                       "12,50|,|12.5 ; 12,00|,|12 ; $ 1.500|,|1500 ; 0012,30|,|12.3 ; ,5|,|0.5 ; |,|0 ; "
                       "  |.|0 ; 0|.|0 ; 1.234.567,8|,|1234567.8 ; 12,|,|12 ; 12,50abc|,|? ; abc|.|? ; "
                       "12.5|,|? ; 1,2,3|,|? ; -5|.|? ; 1.23,5|,|?")
            .split(" ; ");
    for (const QString &caso : casos) {
        const QStringList c = caso.split('|');
        EXPECT_EQ(leer_precio(c[0], c[1][0]).value_or("?"), c[2]) << caso.toStdString();
    }
}

TEST(DetectarDecimal, JudgesTheMarkFromAllPricesOfAFile)
{
    const std::tuple<QStringList, char, char> casos[] = {
        {{"10", "12,5"}, ';', ','},     {{"10", "12.5"}, ';', '.'},
        {{"1.234,5"}, ',', ','},        {{"1,234.5"}, ';', '.'},
        {{"1.500", "2.000"}, ';', ','}, // thousands the Spanish way
        {{"1,500", "2,000"}, ',', '.'}, // thousands the English way
        {{"1.234.567"}, ',', ','},      // a repeated mark separates thousands
        {{"1,500", "2,25"}, ';', ','},  {{"100", "200"}, ',', '.'},
        {{"12,5", "3.75"}, ';', ','}, // both act as decimal: the first one wins
    };
    for (const auto &[precios, separador, esperado] : casos)
        EXPECT_EQ(detectar_decimal(precios, QLatin1Char(separador)), QLatin1Char(esperado))
            << precios.join(QLatin1Char(' ')).toStdString();
}

TEST(LeerMoneda, TakesCodesAndCommonNames)
{
    const std::pair<const char *, const char *> casos[] = {
        {"1", "1"},       {"2", "2"},       {"101", "101"}, {"102", "102"}, {"", "1"},
        {"$", "1"},       {"Pesos", "1"},   {"ARS", "1"},   {"U$S", "2"},   {"usd", "2"},
        {"Dólares", "2"}, {" 102 ", "102"}, {"3", "?"},     {"euros", "?"}};
    for (const auto &[crudo, esperado] : casos)
        EXPECT_EQ(leer_moneda(crudo).value_or("?"), esperado) << crudo;
}

// UTF-8 with and without a byte order mark is read in the CSV reader's tests.
TEST(DecodificarLista, TellsWindows1252AndUtf16)
{
    const DecodedText ansi = decodificar_lista(QByteArray("Ca\xF1o de cobre \x80 10 \x93"
                                                          "x\x94"));
    EXPECT_EQ(ansi.codificacion + ": " + ansi.texto, "Windows-1252: Caño de cobre € 10 “x”");
    EXPECT_EQ(decodificar_lista(QByteArray("\xFF\xFE\xD1\0u\0", 6)).texto, "Ñu"); // UTF-16, little end first
}

TEST(PlegarSinAcentos, FoldsCaseAndAccentsButKeepsEnieAndDieresis)
{
    const std::pair<const char *, const char *> casos[] = {
        {"Tubería", "TUBERIA"},   {"caño", "CAÑO"},
        {"pingüino", "PINGÜINO"}, {"ÁÉÍÓÚ áéíóú", "AEIOU AEIOU"},
        {"àâäã èêë", "AAAA EEE"}, {"O'Higgins 1/2\" 100%", "O'HIGGINS 1/2\" 100%"},
        {"Ñandú", "ÑANDU"},       {"", ""}};
    for (const auto &[text, folded] : casos)
        EXPECT_EQ(plegar_sin_acentos(text), folded) << text;
}

} // namespace
} // namespace vendrix
