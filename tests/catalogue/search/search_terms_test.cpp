#include "catalogue/search/catalogue_query.h"
#include "catalogue/search/like_pattern.h"
#include "catalogue/search/search_terms.h"
#include "support/qt_print.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

QString u(const char *text)
{
    return QString::fromUtf8(text);
}

using Casos = std::vector<std::pair<const char *, const char *>>;

void revisar(QString (*step)(const QString &), const Casos &casos)
{
    for (const auto &[in, out] : casos)
        EXPECT_EQ(step(u(in)), u(out)) << in;
}

TEST(TextoBusqueda, EscapeKeepsItsOrder)
{
    revisar(preparar_texto_busqueda, {
                                         {"O'Higgins", "O''Higgins"},
                                         {"100%", "100[%]"},
                                         {"]", "[]]"},
                                         // The "]" of "[[]" is escaped in its turn.
                                         {"[", "[[[]]"},
                                         {"[%]", "[[[]][%][]]"},
                                         {"a_b", "a_b"},
                                         {"caño", "caño"},
                                         {"", ""},
                                     });
}

TEST(TextoBusqueda, PrepositionsGoBetweenBlanksOnly)
{
    revisar(quitar_preposiciones, {
                                      {"caño de cobre", "CAÑO COBRE"},
                                      {"tubo de de cobre", "TUBO DE COBRE"},
                                      {"uno para dos con tres", "UNO DOS TRES"},
                                      {"llave / codo \\ niple", "LLAVE CODO NIPLE"},
                                      {"de caño con", "DE CAÑO CON"},
                                      {"cadena desde", "CADENA DESDE"},
                                  });
}

TEST(TextoBusqueda, SimilarTermsDropThePlural)
{
    revisar(terminos_similares, {
                                    {"tornillos", "tornillo "},
                                    {"LUCES mesas", "LUC mesa "},
                                    {"tres gas ES", "tr gas ES "},
                                    {"O''HIGGINS", "O''HIGGIN "},
                                    // Counted in the escaped form: four characters.
                                    {"''ES", "'' "},
                                    {"a  b", "a  b "},
                                    {"", " "},
                                });
}

TEST(TextoBusqueda, SpellingWorkListTakesItemsAddedOnTheWay)
{
    EXPECT_EQ(variantes_ortografia(u("caballo")),
              (QStringList{"CABALLO", "SABALLO", "ZABALLO", "CAVALLO", "CABAYO", "SAVALLO", "SABAYO",
                           "ZAVALLO", "ZABAYO", "CAVAYO", "SAVAYO", "ZAVAYO"}));
    EXPECT_EQ(variantes_ortografia(u("perno")), QStringList{"PERNO"});
    EXPECT_EQ(variantes_ortografia(u("yy")), (QStringList{"YY", "LLLL"}));
    EXPECT_EQ(variantes_ortografia(u("caño")), (QStringList{u("CAÑO"), u("SAÑO"), u("ZAÑO")}));
}

TEST(TextoBusqueda, TermsAndTheirPatterns)
{
    EXPECT_EQ(filtro_terminos(u("CAÑO  O''HIGGINS ")),
              (SearchCondition{{{u("CAÑO")}, {"O'HIGGINS"}}, false}));
    EXPECT_EQ(filtro_terminos(u("   ")), SearchCondition{});
    // The term as typed first, then what the work list added.
    EXPECT_EQ(filtro_ortografia(u("perno cabayo"), true),
              (SearchCondition{{{"perno"},
                                  {"cabayo", "SABAYO", "ZABAYO", "CAVAYO", "CABALLO", "SAVAYO", "SABALLO",
                                   "ZAVAYO", "ZABALLO", "CAVALLO", "SAVALLO", "ZAVALLO"}},
                                 true}));
    EXPECT_EQ(patron_de_literal(u("O''Higgins ''")), u("O'Higgins '"));
}

struct CasoPatron {
    const char *pattern;
    const char *text; // folded as the index holds it
    bool matches;
};

TEST(LikePattern, MatchesAsTheEarlierEngine)
{
    const CasoPatron casos[] = {
        {"%cañ%", "TUBO CAÑO ", true},
        {"%ca%", "TUBO CAÑO ", true},
        {"%caño%", "TUBO CANO ", false},  // Ñ is not N
        {"%tuberia%", "TUBERÍA ", false}, // nor Í I
        {"%tubería%", "TUBERÍA ", true},
        {"%a_c%", "XABCX", true},
        {"%a_c%", "XACX", false},
        {"%o_c%", "CAÑO COBRE ", true}, // `_` takes the blank between fields
        {"%o__c%", "CAÑO COBRE ", false},
        {"%100[%]%", "LLAVE 100% ", true},
        {"%100[%]%", "LLAVE 1000 ", false},
        {"%[[[]]%", "A[]B", true}, // what "[" typed becomes
        {"%[[[]]%", "A[B", false},
        {"%[]]%", "X]Y", true},
        {"%a[]b%", "XABX", true}, // `[]` stands for nothing
        {"[!a]", "B", true},
        {"[!a]", "A", false},
        {"[a-c]x", "BX", true},
        {"[a-c]x", "DX", false},
        {"%1*2%", "1*2", true},
        {"%1*2%", "1X2", false},
        {"%#?%", "N#?", true},
        {"%#%", "N5", false},
        {"%aab%", "AAAB", true},
        {"%o'h%", "SANITARIOS O'HIGGINS ", true},
        {"%%", "", true},
        {"", "", true},
        {"", "A", false},
        {"a%", "AB", true},
        {"a%", "BA", false},
        {"%[%", "A[B", true}, // an open group is a plain "["
    };
    for (const CasoPatron &c : casos)
        EXPECT_EQ(LikePattern(u(c.pattern)).coincide(u(c.text)), c.matches) << c.pattern << " ~ " << c.text;
}

QStringList tramos(const char *pattern)
{
    return LikePattern::contiene(u(pattern)).tramos();
}

TEST(LikePattern, RunsOfPlainCharacters)
{
    EXPECT_EQ(tramos("tor_illo"), (QStringList{"TOR", "ILLO"}));
    EXPECT_EQ(tramos("100[%]"), QStringList{"100%"});
    EXPECT_EQ(tramos("[[[]]x"), QStringList{"[]X"});
    EXPECT_EQ(tramos("[!a]bc[a-c]d"), (QStringList{"BC", "D"}));
    EXPECT_EQ(tramos("a[]b"), QStringList{"AB"});
    EXPECT_TRUE(tramos("_").isEmpty());
}

TEST(ExpresionIndice, OnlyRunsOfThreeCharactersOrMore)
{
    const auto expr = [](const char *text, bool spelling = false) {
        return expresion_indice(spelling ? filtro_ortografia(u(text), false) : filtro_terminos(u(text)));
    };
    EXPECT_EQ(expr("tornillo ac"), u("((\"TORNILLO\"))"));
    EXPECT_EQ(expr("tor_illo"), u("((\"TOR\" AND \"ILLO\"))"));
    EXPECT_EQ(expr("caño 1/2\""), u("((\"CAÑO\")) AND ((\"1/2\"\"\"))"));
    // Characters, not bytes.
    EXPECT_EQ(expr("ñu ñuñ"), u("((\"ÑUÑ\"))"));
    EXPECT_EQ(expr("ab a_b"), QString());
    EXPECT_EQ(expr("bus perno", true), u("((\"BUS\") OR (\"BUC\") OR (\"BUZ\") OR (\"VUS\") OR (\"VUC\") OR "
                                         "(\"VUZ\")) AND ((\"PERNO\"))"));
    // One variant the index can't narrow leaves the term to the test on each row.
    EXPECT_EQ(expr("sy perno", true), u("((\"PERNO\"))"));
}

TEST(ExpresionIndice, PairsAskForTheTrigramsThatStartWithThem)
{
    QStringList asked;
    const TrigramsOf trigrams = [&asked](const QString &pair) -> std::optional<QStringList> {
        asked << pair;
        if (pair == QLatin1String("M8"))
            return QStringList{"M8 ", "M8X"};
        if (pair == QLatin1String("QQ"))
            return QStringList{};
        return std::nullopt; // too many
    };
    const auto expr = [&trigrams](const char *text) {
        return expresion_indice(filtro_terminos(u(text)), trigrams);
    };
    EXPECT_EQ(expr("m8"), u("(((\"M8 \" OR \"M8X\")))"));
    EXPECT_EQ(expr("m8 perno"), u("(((\"M8 \" OR \"M8X\"))) AND ((\"PERNO\"))"));
    // A pair the index never saw: no article can match.
    EXPECT_EQ(expr("qq"), u("(((\"QQQQ\" NOT \"QQQQ\")))"));
    EXPECT_EQ(expr("de"), QString());
    // Pairs are asked only when the pattern has no longer run, and never single characters.
    EXPECT_EQ(expr("m8_tornillo x"), u("((\"TORNILLO\"))"));
    EXPECT_EQ(asked, (QStringList{"M8", "M8", "QQ", "DE"}));
}

} // namespace
} // namespace vendrix
