#include "core/text_helpers.h"
#include "core/validators.h"

#include "support/qt_print.h"
#include "support/scripted_operator.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::ScriptedOperator;

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
}

TEST(TieneUnSeparador, TheLastSignOrMarkDecides)
{
    for (const char *yes : {"", "12", "1,5+2", "3-", "1.5"})
        EXPECT_TRUE(tiene_un_separador(QString(yes))) << yes;
    for (const char *no : {"1,5", "1,5+2,3", "1,"})
        EXPECT_FALSE(tiene_un_separador(QString(no))) << no;
}

TEST(TextHelpers, ListSearchPaddingAndUrlEncoding)
{
    EXPECT_EQ(buscar_en_lista({"a", "b", "c", "b"}, "b"), 1);
    EXPECT_EQ(buscar_en_lista({"a", "b"}, "B"), -1);

    EXPECT_EQ(rellenar_ceros("123", 8), "00000123");
    EXPECT_EQ(rellenar_ceros("123456789", 5), "56789");
    EXPECT_EQ(rellenar_ceros("ab", 45), QString(38, '0') + "ab");
    EXPECT_EQ(rellenar_blancos("ab", 7), "\tab");
    EXPECT_EQ(rellenar_blancos("ab", 12), "\t\tab");
    EXPECT_EQ(rellenar_blancos("a      b", 8), "a\t b");

    const struct {
        const char *texto;
        const char *codificado;
    } casos[] = {{"Hola Mundo", "Hola%20Mundo"},
                 {"a+b", "a%2Bb"},
                 {"ñandú", "ñandú"},
                 {"pingüino", "ping%FCino"},
                 {"10€", "10%80"},
                 {"a\r\nb", "a%0D%0Ab"},
                 {"50%", "50%25"},
                 {"\t", "%09"},
                 {"https://a.com/p?x=1&y=(2)", "https://a.com/p?x=1&y=(2)"}};
    for (const auto &c : casos)
        EXPECT_EQ(codificar_url(c.texto), c.codificado) << c.texto;
}

} // namespace
} // namespace vendrix
