#include "catalogue/pricing/formula.h"

#include "support/qt_print.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vendrix {
namespace {

TEST(FormulaAPorcentaje, ChainedPercentagesOfBothKinds)
{
    // Each result is the evaluation of the rewritten expression, to the bit.
    const struct {
        const char *kind;
        const char *formula;
        const char *expresion;
        double resultado;
    } casos[] = {
        {"ganancia", "30", "(1+1*30/100)*100-100", 30},
        {"ganancia", "10+5", "(1+1*10/100)*(1+5/100)*100-100", 15.5},
        {"ganancia", "10-5", "(1+1*10/100)*(1-5/100)*100-100", 4.5},
        {"descuento", "50", "100 - (1-1*50/100)*100", 50},
        {"descuento", "10+5", "100 - (1-1*10/100)*(1-5/100)*100", 14.5},
        {"descuento", "10-5", "100 - (1-1*10/100)*(1+5/100)*100", 5.5},
        {"ganancia", "10+5+2", "(1+1*10/100)*(1+5/100)*(1+2/100)*100-100", 17.81},
        {"ganancia", "+10", "(1+1*10/100)*100-100", 10},
        {"ganancia", "10,5", "(1+1*10.5/100)*100-100", 10.5},
        {"descuento", "100", "100 - (1-1*100/100)*100", 100},
        {"descuento", "101", "100 - (1-1*101/100)*100", 101},
        // Any word other than "ganancia" acts as a discount.
        {"Ganancia", "10+5", "100 - (1-1*10/100)*(1-5/100)*100", 14.5},
        {"otra", "10-5", "100 - (1-1*10/100)*(1+5/100)*100", 5.5},
    };
    for (const auto &c : casos) {
        const double p = formula_a_porcentaje(QString::fromUtf8(c.formula), QString::fromUtf8(c.kind));
        EXPECT_NEAR(p, c.resultado, 1e-9) << c.kind << " " << c.formula;
        EXPECT_EQ(p, *evaluar_expresion(QString::fromUtf8(c.expresion))) << c.kind << " " << c.formula;
    }
}

TEST(FormulaAPorcentaje, FormulasWithoutAFirstTermGiveZero)
{
    for (const char *kind : {"ganancia", "descuento"}) {
        for (const char *formula : {"", "+", "-5", "-10+5", "-1000", "abc", "10k", "10m", "(5", "2000-3000"})
            EXPECT_EQ(formula_a_porcentaje(QString::fromUtf8(formula), QString::fromUtf8(kind)), 0.0)
                << kind << " '" << formula << "'";
    }
}

TEST(FormulaValida, EvaluatesAsArithmeticAndRefusesMinusThousand)
{
    const struct {
        const char *formula;
        bool valida;
    } casos[] = {
        {"", true},           {"0", true},        {"10+5", true},  {"2*3", true},  {"-5", true},
        {"10,5", true},       {"(10+5)/2", true}, {"  ", true},    {"1/0", true},  {"-1000", false},
        {"2000-3000", false}, {"-1000,0", false}, {"+", false},    {"k", false},   {"10m", false},
        {"abc", false},       {"(1", false},      {"1--5", false}, {"10%", false}, {"5;", false},
    };
    for (const auto &c : casos)
        EXPECT_EQ(formula_valida(QString::fromUtf8(c.formula)), c.valida) << c.formula;
}

TEST(EvaluarExpresion, PrecedenceSignsAndNumbers)
{
    const struct {
        const char *texto;
        double valor;
    } casos[] = {
        {"2+3*4", 14},
        {"(2+3)*4", 20},
        {"10/4", 2.5},
        {"8/2/2", 2},
        {"2-3-4", -5},
        {"-(-5)", 5},
        {"- -5", 5},
        {"+-5", -5},
        {"-+5", -5},
        {" 1 + 2 ", 3},
        {"", 0},
        {" \t", 0},
        {"1e2", 100},
        {"2.5E-1", 0.25},
        {"5.", 5},
        {".5", 0.5},
        {"007", 7},
        {"1 - - 1", 2},
        {"((((1))))", 1},
        {"2*-3", -6},
        {"1e400", INFINITY},
        {"1e-400", 0},
        {"0.000001e-320", 0},
    };
    for (const auto &c : casos) {
        const std::optional<double> v = evaluar_expresion(QString::fromUtf8(c.texto));
        ASSERT_TRUE(v.has_value()) << c.texto;
        EXPECT_EQ(*v, c.valor) << c.texto;
    }
    EXPECT_TRUE(std::isinf(*evaluar_expresion(u"1/0")));
    EXPECT_TRUE(std::isnan(*evaluar_expresion(u"0/0")));
    EXPECT_EQ(*evaluar_expresion(u"1,5+1", true), 2.5);
}

TEST(EvaluarExpresion, SyntaxErrorsFail)
{
    for (const char *texto :
         {"1--5", "++5", "1++2", "2**3", "1 2", "1.2.3", "(1",  "1)", "()", "1+", "*1",   "1e",
          ".",    "abc", "1,5",  "0x10", "5;",  "10//5", "1e+", "(",  ")",  "-",  "2(3)", "3in"})
        EXPECT_FALSE(evaluar_expresion(QString::fromUtf8(texto)).has_value()) << texto;
}

TEST(EvaluarExpresion, DeepNestingFailsWithoutExhaustingTheStack)
{
    const QString hondo =
        QString(100000, QLatin1Char('(')) + QLatin1Char('1') + QString(100000, QLatin1Char(')'));
    EXPECT_FALSE(evaluar_expresion(hondo).has_value());
    EXPECT_FALSE(evaluar_expresion(QString(100000, QLatin1Char('-')) + QLatin1Char('1')).has_value());
    const QString medio = QString(150, QLatin1Char('(')) + QLatin1Char('1') + QString(150, QLatin1Char(')'));
    EXPECT_EQ(evaluar_expresion(medio), 1.0);
}

TEST(EvaluarExpresion, LongNumbersAndLongFormulas)
{
    EXPECT_EQ(evaluar_expresion(QString(300, QLatin1Char('0')) + QStringLiteral("12.5")), 12.5);
    QString larga = QStringLiteral("1");
    for (int i = 0; i < 500; ++i)
        larga += QStringLiteral("+1");
    EXPECT_EQ(evaluar_expresion(larga), 501.0);
    // A long margin formula rewrites beyond the stack buffer.
    double esperado = 1 + 1 * 1.0 / 100;
    for (int i = 0; i < 500; ++i)
        esperado = esperado * (1 + 1.0 / 100);
    EXPECT_EQ(formula_a_porcentaje(larga, u"ganancia"), esperado * 100 - 100);
}

} // namespace
} // namespace vendrix
