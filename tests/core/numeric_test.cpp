#include "core/numeric.h"

#include "support/qt_print.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace vendrix {
namespace {

TEST(ValorTexto, ReadsTheLeadingNumberAndIgnoresTheRest)
{
    const struct {
        const char *texto;
        double valor;
    } casos[] = {{"20000;", 20000},  {"", 0},   {"abc", 0},     {"12abc", 12},      {"1,5", 1.5},
                 {" -3.25 ", -3.25}, {"+7", 7}, {"1e3", 1000},  {"1e", 1},          {"1 2", 12},
                 {".5", 0.5},        {"-", 0},  {"1.2.3", 1.2}, {"0001,250", 1.25}, {"2,5E-1", 0.25},
                 {"$10", 0}};
    for (const auto &c : casos)
        EXPECT_EQ(valor_texto(QString(c.texto)), c.valor) << c.texto;
    EXPECT_DOUBLE_EQ(valor_texto(u"123456789012345678901234567890123456789012345678"), 1.2345678901234568e47);
    EXPECT_DOUBLE_EQ(valor_texto(u"0,000000000000000000000000000000000000000000000000012"), 1.2e-50);
}

TEST(EsNumerico, WholeTextMustBeANumber)
{
    for (const char *yes : {"1", " 12 ", "-1,5", "1.5", "1e5", "+3", ",5"})
        EXPECT_TRUE(es_numerico(QString(yes))) << yes;
    for (const char *no : {"", "abc", "12a", "1,2,3", "-", ",", "1e", "+", "1 2"})
        EXPECT_FALSE(es_numerico(QString(no))) << no;
}

TEST(Redondear, HalfToEvenOnTheScaledDouble)
{
    // Some values are stored just above or below the half, yet their scaled
    // doubles are exact halves or not: the figures follow the scaled double.
    for (const auto &[valor, esperado] : {std::pair{2.5, 2.0}, {3.5, 4.0}, {-2.5, -2.0}, {0.5, 0.0}})
        EXPECT_EQ(redondear(valor, 0), esperado) << valor;
    for (const auto &[valor, esperado] : {std::pair{10.125, 10.12},
                                          {1344.915, 1344.92},
                                          {3.825, 3.82},
                                          {3.875, 3.88},
                                          {123.715, 123.72},
                                          {1233.715, 1233.71},
                                          {1479.4065000000001, 1479.41},
                                          {1111.504132231405, 1111.5},
                                          {10.12599999, 10.13},
                                          {1e20, 1e20}})
        EXPECT_EQ(redondear(valor, 2), esperado) << valor;
    EXPECT_TRUE(std::isinf(redondear(INFINITY, 2)));
}

TEST(TextoNumero, FifteenDigitsWithTheComma)
{
    const struct {
        double valor;
        const char *texto;
    } casos[] = {
        {1000, "1000"},     {1111.5, "1111,5"}, {0.1 + 0.2, "0,3"}, {1e15, "1E+15"},
        {1e-5, "1E-05"},    {-2.5, "-2,5"},     {-0.0, "0"},        {123456789012345.0, "123456789012345"},
        {0.0001, "0,0001"}, {1.5e20, "1,5E+20"}};
    for (const auto &c : casos)
        EXPECT_EQ(texto_numero(c.valor), c.texto) << c.valor;
}

TEST(Formatear, MasksRoundHalfUpAndShowTheComma)
{
    const struct {
        double valor;
        const char *mascara;
        const char *texto;
    } casos[] = {{10.125, "####0.00", "10,13"},
                 {1344.915, "####0.00", "1344,92"},
                 {2.675, "####0.00", "2,68"},
                 {1.005, "####0.00", "1,01"},
                 {9.995, "####0.00", "10,00"},
                 {0, "####0.00", "0,00"},
                 {3.14159, "####0.000", "3,142"},
                 {12.5, "####0", "13"},
                 {-12.5, "####0", "-13"},
                 {-0.001, "####0.00", "0,00"},
                 {42, "00000", "00042"},
                 {123456, "00000", "123456"},
                 {99.96, "####0.0", "100,0"},
                 {0.05, "####0.0", "0,1"},
                 {0.4, "####0", "0"},
                 {1e20, "####0", "100000000000000000000"},
                 {1.5, "#0.00", "1,50"}};
    for (const auto &c : casos)
        EXPECT_EQ(formatear(c.valor, QString(c.mascara)), c.texto) << c.valor << " " << c.mascara;
}

TEST(NormalizarDecimal, CommasBecomePointsAndEmptyBecomesZero)
{
    EXPECT_EQ(normalizar_decimal(QString()), "0");
    EXPECT_EQ(normalizar_decimal("1,2+3,4"), "1.2+3.4");
    EXPECT_EQ(normalizar_decimal("abc"), "abc");
    EXPECT_EQ(separador_decimal(), ",");
}

} // namespace
} // namespace vendrix
