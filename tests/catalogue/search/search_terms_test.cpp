#include "catalogue/search/catalogue_query.h"
#include "catalogue/search/search_terms.h"
#include "support/qt_print.h"

#include <QHash>

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

// The escape keeps its order (the "]" of "[[]" is escaped in its turn), and
// undoing it gives back every character typed.
TEST(TextoBusqueda, EscapeAndItsUndoing)
{
    const Casos casos{{"O'Higgins", "O''Higgins"},
                      {"100%", "100[%]"},
                      {"]", "[]]"},
                      {"[", "[[[]]"},
                      {"[%]", "[[[]][%][]]"},
                      {"[]", "[[[]][]]"},
                      {"a_b", "a_b"},
                      {"''", "''''"},
                      {"[a-z]*?#", "[[[]]a-z[]]*?#"},
                      {"caño", "caño"},
                      {"[[]", "[[[]][[[]][]]"},
                      {"", ""}};
    revisar(preparar_texto_busqueda, casos);
    for (const auto &[in, out] : casos)
        EXPECT_EQ(texto_literal(u(out)), u(in)) << out;
    EXPECT_EQ(texto_literal(u("[x '")), u("[x '")); // not from the escape: kept
}

TEST(TextoBusqueda, PrepositionsGoBetweenBlanksOnly)
{
    revisar(quitar_preposiciones, {{"caño de cobre", "CAÑO COBRE"},
                                   {"tubo de de cobre", "TUBO DE COBRE"},
                                   {"uno para dos con tres", "UNO DOS TRES"},
                                   {"llave / codo \\ niple", "LLAVE CODO NIPLE"},
                                   {"de caño con", "DE CAÑO CON"},
                                   {"[[[]]x[]] de", "[[[]]X[]] DE"},
                                   {"cadena desde", "CADENA DESDE"}});
}

// Characters are counted in the escaped form: "''ES" and "[%]S" have four.
TEST(TextoBusqueda, SimilarTermsDropThePlural)
{
    revisar(terminos_similares, {{"tornillos", "tornillo "},
                                 {"LUCES mesas", "LUC mesa "},
                                 {"tres gas ES", "tr gas ES "},
                                 {"''ES", "'' "},
                                 {"[%]S", "[%] "},
                                 {"a  b", "a  b "},
                                 {"", " "}});
}

TEST(TextoBusqueda, SpellingWorkListTakesItemsAddedOnTheWay)
{
    EXPECT_EQ(variantes_ortografia(u("caballo")),
              (QStringList{"CABALLO", "SABALLO", "ZABALLO", "CAVALLO", "CABAYO", "SAVALLO", "SABAYO",
                           "ZAVALLO", "ZABAYO", "CAVAYO", "SAVAYO", "ZAVAYO"}));
    EXPECT_EQ(variantes_ortografia(u("perno")), QStringList{"PERNO"});
    EXPECT_EQ(variantes_ortografia(u("yy")), (QStringList{"YY", "LLLL"}));
    EXPECT_EQ(variantes_ortografia(u("[[[]]ñs")), (QStringList{u("[[[]]ÑS"), u("[[[]]ÑC"), u("[[[]]ÑZ")}));
}

TEST(TextoBusqueda, TermsAreTheCharactersTyped)
{
    EXPECT_EQ(filtro_terminos(u("CAÑO  O''HIGGINS [[[]]x[]] 50[%] a_b ")),
              (SearchCondition{{{u("CAÑO")}, {"O'HIGGINS"}, {"[x]"}, {"50%"}, {"a_b"}}, false}));
    EXPECT_EQ(filtro_terminos(u("   ")), SearchCondition{});
    // The term as typed first, then what the work list added.
    EXPECT_EQ(filtro_ortografia(u("[]]bus"), true),
              (SearchCondition{{{"]bus", "]BUC", "]BUZ", "]VUS", "]VUC", "]VUZ"}}, true}));
}

TEST(ExpresionIndice, TextsAsTheirTrigramsPairsAsTheTrigramsThatStartWithThem)
{
    QStringList asked;
    const auto trigrams = [&asked](const QString &pair) -> std::optional<QStringList> {
        asked << pair;
        if (pair == QLatin1String("M8"))
            return QStringList{"M8 ", "M8X"};
        if (pair == QLatin1String("[%"))
            return QStringList{};
        return std::nullopt; // too many
    };
    const auto expr = [&trigrams](const char *text) {
        return expresion_indice(filtro_terminos(u(text)), {trigrams, {}});
    };
    EXPECT_EQ(expr("m8 perno"), u("(\"M8 \" OR \"M8X\") AND (\"PER\" AND \"ERN\" AND \"RNO\")"));
    // Each trigram once; a quote doubled inside its string.
    EXPECT_EQ(expr("a_b [[[]]x[]] 50[%] 1/2\" ññññ"),
              u("\"A_B\" AND \"[X]\" AND \"50%\" AND (\"1/2\" AND \"/2\"\"\") AND \"ÑÑÑ\""));
    // A pair the index never saw: no article can match.
    EXPECT_EQ(expr("[[[]][%]"), u("(\"[%[\" NOT \"[%[\")"));
    EXPECT_EQ(expr("de _"), QString());
    EXPECT_EQ(asked, (QStringList{"M8", "[%", "DE"}));
}

TEST(ExpresionIndice, WithTheCountsALongTextAsksForItsThreeRarestTrigrams)
{
    const QHash<QString, qint64> counts{{"TOR", 50}, {"ORN", 9},  {"RNI", 9}, {"NIL", 70},
                                        {"ILL", 4},  {"LLO", 60}, {"CAÑ", 5}, {"AÑO", 0}};
    const IndexVocabulary vocabulary{{}, [&counts](const QString &t) { return counts.value(t, 1000); }};
    // Ties keep the order of the text.
    EXPECT_EQ(expresion_indice(filtro_terminos(u("tornillo")), vocabulary),
              u("(\"ILL\" AND \"ORN\" AND \"RNI\")"));
    // A trigram no article holds is enough; three trigrams or fewer are all asked.
    EXPECT_EQ(expresion_indice(filtro_terminos(u("cañosa tor")), vocabulary), u("\"AÑO\" AND \"TOR\""));
    EXPECT_EQ(expresion_indice(filtro_terminos(u("cañi")), vocabulary), u("(\"CAÑ\" AND \"AÑI\")"));
    // A search for a few rows asks each text for its rarest trigram, unless it is alone.
    EXPECT_EQ(expresion_indice(filtro_terminos(u("tornillo cañi")), vocabulary, true),
              u("\"ILL\" AND \"CAÑ\""));
    EXPECT_EQ(expresion_indice(filtro_terminos(u("tornillo")), vocabulary, true),
              u("(\"ILL\" AND \"ORN\" AND \"RNI\")"));
    // Spellings: the trigrams they all hold, when there are three; else each spelling.
    EXPECT_EQ(expresion_indice(filtro_ortografia(u("tornillo"), false), vocabulary),
              u("(\"TOR\" AND \"ORN\" AND \"RNI\")"));
    EXPECT_EQ(expresion_indice(filtro_ortografia(u("ovo"), false), vocabulary), u("(\"OVO\" OR \"OBO\")"));
}

TEST(ExpresionIndice, APairIsAskedOnlyWhenFewerArticlesHoldItThanTheLongerTexts)
{
    const QHash<QString, qint64> counts{{"DEL", 800}, {"DE ", 700}, {"M8 ", 3},   {"M8X", 2},
                                        {"PAS", 60},  {"ASO", 70},  {"PER", 900}, {"ERN", 900}};
    const auto trigrams = [](const QString &pair) -> std::optional<QStringList> {
        if (pair == QLatin1String("DE"))
            return QStringList{"DE ", "DEL"};
        return QStringList{pair + QLatin1Char(' '), pair + QLatin1Char('X')};
    };
    const IndexVocabulary vocabulary{trigrams, [&counts](const QString &t) { return counts.value(t, 1000); }};
    const auto expr = [&vocabulary](const char *text) {
        return expresion_indice(filtro_terminos(u(text)), vocabulary);
    };
    EXPECT_EQ(expr("paso de"), u("(\"PAS\" AND \"ASO\")"));
    EXPECT_EQ(expr("m8 perno"), u("(\"M8 \" OR \"M8X\") AND (\"PER\" AND \"ERN\" AND \"RNO\")"));
    // Pairs alone are all asked.
    EXPECT_EQ(expr("de m8"), u("(\"DE \" OR \"DEL\") AND (\"M8 \" OR \"M8X\")"));
}

} // namespace
} // namespace vendrix
