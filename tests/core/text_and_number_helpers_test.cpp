#include "core/numeric.h"
#include "core/text_helpers.h"
#include "core/validators.h"
#include "rows.h"
#include "support/qt_print.h"
#include "support/scripted_operator.h"

#include <cmath>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::ScriptedOperator;

TEST(NumbersInText, ValorTextoReadsTheLeadingNumberEsNumericoTheWholeText)
{
    const Rows<const char *, double> casos = {{"20000;", 20000},  {"", 0},   {"abc", 0},  {"1,5", 1.5},
                                              {" -3.25 ", -3.25}, {"1e", 1}, {"1 2", 12}, {"1.2.3", 1.2},
                                              {"2,5E-1", 0.25},   {"$10", 0}};
    for (const auto &[texto, valor] : casos)
        EXPECT_EQ(valor_texto(QString(texto)), valor) << texto;
    EXPECT_DOUBLE_EQ(valor_texto(u"0,000000000000000000000000000000000000000000000000012"), 1.2e-50);
    for (const char *yes : {" 12 ", "-1,5", "1.5", "1e5", ",5"})
        EXPECT_TRUE(es_numerico(QString(yes))) << yes;
    for (const char *no : {"", "12a", "1,2,3", "-", "+", "1e", "1 2"})
        EXPECT_FALSE(es_numerico(QString(no))) << no;
}

TEST(Redondear, HalfToEvenOnTheScaledDouble)
{
    // Some values are stored just above or below the half, yet their scaled
    // doubles are exact halves or not: the figures follow the scaled double.
    const Rows<double, int, double> casos = {
        {2.5, 0, 2.0},        {3.5, 0, 4.0},          {-2.5, 0, -2.0},
        {0.5, 0, 0.0},        {10.125, 2, 10.12},     {1344.915, 2, 1344.92},
        {123.715, 2, 123.72}, {1233.715, 2, 1233.71}, {1e20, 2, 1e20}};
    for (const auto &[valor, decimales, esperado] : casos)
        EXPECT_EQ(redondear(valor, decimales), esperado) << valor;
    EXPECT_TRUE(std::isinf(redondear(INFINITY, 2)));
}

TEST(TextoNumero, FifteenDigitsWithTheComma)
{
    const Rows<double, const char *> casos = {{1111.5, "1111,5"}, {0.1 + 0.2, "0,3"},
                                              {1e15, "1E+15"},    {1e-5, "1E-05"},
                                              {-0.0, "0"},        {123456789012345.0, "123456789012345"},
                                              {1.5e20, "1,5E+20"}};
    for (const auto &[valor, texto] : casos)
        EXPECT_EQ(texto_numero(valor), texto) << valor;
}

TEST(Formatear, MasksRoundHalfUpAndShowTheComma)
{
    const Rows<double, const char *, const char *> casos = {
        {10.125, "####0.00", "10,13"}, {1.005, "####0.00", "1,01"},
        {9.995, "####0.00", "10,00"},  {3.14159, "####0.000", "3,142"},
        {-12.5, "####0", "-13"},       {-0.001, "####0.00", "0,00"},
        {42, "00000", "00042"},        {123456, "00000", "123456"},
        {0.4, "####0", "0"},           {1e20, "####0", "100000000000000000000"}};
    for (const auto &[valor, mascara, texto] : casos)
        EXPECT_EQ(formatear(valor, QString(mascara)), texto) << valor << " " << mascara;
}

TEST(DecimalMarks, CommasBecomePointsAndTheLastSignOrMarkDecidesASeparator)
{
    EXPECT_EQ(normalizar_decimal(QString()), "0");
    EXPECT_EQ(normalizar_decimal("1,2+3,4"), "1.2+3.4");
    EXPECT_EQ(normalizar_decimal("abc"), "abc");
}

// What a check shows for a text: "" when it passes without a message.
template <typename Check> QString shown(Check check, const char *text)
{
    ScriptedOperator op;
    const bool ok = check(op, QString(text));
    EXPECT_EQ(ok, op.empty()) << text;
    return op.lines().join('\n');
}

TEST(Validators, CuitCheckDigitAndDniLength)
{
    const QString cuit = "inform|Vendrix|El CUIT ingresado es Incorrecto. Ingrese el cuit con el ";
    const QString formato = "formato:\r\n\r\nNN-NNNNNNNN-N";
    // Remainders 1 and 0 stay as they are.
    for (const char *ok : {"20-12345678-6", "30-50001091-2", "20-00000001-1", "20-00000006-0"})
        EXPECT_EQ(shown(validar_CUIT, ok), "") << ok;
    // Eleven digits without dashes pass the length test and are then read at
    // the dashed positions.
    for (const char *bad : {"20-12345678-5", "20123456786"})
        EXPECT_EQ(shown(validar_CUIT, bad), cuit + "siguiente " + formato) << bad;
    for (const char *bad : {"20-1234567-6", "20-12345678-66"})
        EXPECT_EQ(shown(validar_CUIT, bad), cuit + formato) << bad;
    for (const char *ok : {"1234567", "12345678"})
        EXPECT_EQ(shown(validar_DNI, ok), "") << ok;
    for (const char *bad : {"123456", "123456789", "12a4567"})
        EXPECT_EQ(shown(validar_DNI, bad),
                  "inform|Vendrix|El DNI ingresado es Incorrecto. Controle que sea un valor numeríco.");
}

// For a kind of box and the box's text: the keys that pass and the keys
// that become 0.
struct Teclas {
    const char *kind;
    const char *texto;
    std::vector<int> pasan;
    std::vector<int> no_pasan;
};

template <typename Filtro> void espera_teclas(Filtro filtro, std::initializer_list<Teclas> casos)
{
    for (const auto &c : casos) {
        for (const bool pasa : {true, false}) {
            for (const int tecla : pasa ? c.pasan : c.no_pasan) {
                int key = tecla;
                EXPECT_EQ(filtro(QString(c.texto), key, QString(c.kind)), !pasa); // true: refused, beep
                EXPECT_EQ(key, pasa ? tecla : 0) << c.kind << " '" << c.texto << "' " << tecla;
            }
        }
    }
}

TEST(FiltroTecla, KeysAdmittedByKind)
{
    // A second decimal mark isn't stopped by the formula filter, while a
    // real box of the number filter stops it.
    espera_teclas(filtro_tecla_formula, {{"ganancia", "", {'5', ',', '+', 107, 8}, {'.', '-', 109, 13}},
                                         {"descuento", "", {'-', 109, '+', 107}, {'*'}},
                                         {"enteros", "", {'7', 8}, {',', '+'}},
                                         {"reales", "1,5", {','}, {'+', '.'}},
                                         {"otra", "", {}, {'5'}}});
    espera_teclas(filtro_tecla_numero, {{"real", "12", {'5', 8, 9, 12, 37, 40, ','}, {41, '.', 13, 'a'}},
                                        {"real", "1,2", {}, {','}},
                                        {"real", "1,2+3", {','}, {}},
                                        {"integer", "12", {'5'}, {','}}});
    for (const char *yes : {"", "12", "1,5+2", "3-", "1.5"})
        EXPECT_TRUE(tiene_un_separador(QString(yes))) << yes;
    for (const char *no : {"1,5", "1,5+2,3", "1,"})
        EXPECT_FALSE(tiene_un_separador(QString(no))) << no;
}

TEST(TextHelpers, ListSearchPaddingAndUrlEncoding)
{
    EXPECT_EQ(buscar_en_lista({"a", "b", "c", "b"}, "b"), 1);
    EXPECT_EQ(buscar_en_lista({"a", "b"}, "B"), -1);

    EXPECT_EQ(rellenar_ceros("123456789", 5) + rellenar_ceros("123", 8), "5678900000123");
    EXPECT_EQ(rellenar_ceros("ab", 45), QString(38, '0') + "ab");
    EXPECT_EQ(rellenar_blancos("ab", 12) + '|' + rellenar_blancos("a      b", 8), "\t\tab|a\t b");

    const Rows<const char *, const char *> casos = {
        {"Hola Mundo", "Hola%20Mundo"}, {"a+b", "a%2Bb"}, {"ñandú", "ñandú"}, {"10€", "10%80"},
        {"a\r\nb", "a%0D%0Ab"},         {"\t", "%09"},    {"50%", "50%25"},   {"?x=1&y=(2)", "?x=1&y=(2)"}};
    for (const auto &[texto, codificado] : casos)
        EXPECT_EQ(codificar_url(texto), codificado) << texto;
}

} // namespace
} // namespace vendrix
