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
        const char *kind, *formula, *expresion;
        double resultado;
    } casos[] = {
        {"ganancia", "30", "(1+1*30/100)*100-100", 30},
        {"ganancia", "10+5", "(1+1*10/100)*(1+5/100)*100-100", 15.5},
        {"ganancia", "10-5", "(1+1*10/100)*(1-5/100)*100-100", 4.5},
        {"descuento", "50", "100 - (1-1*50/100)*100", 50},
        {"descuento", "10+5", "100 - (1-1*10/100)*(1-5/100)*100", 14.5},
        {"descuento", "10-5", "100 - (1-1*10/100)*(1+5/100)*100", 5.5},
        {"ganancia", "+10", "(1+1*10/100)*100-100", 10},
        {"ganancia", "10,5", "(1+1*10.5/100)*100-100", 10.5},
        {"Ganancia", "10+5", "100 - (1-1*10/100)*(1-5/100)*100", 14.5}, // any other word: a discount
    };
    for (const auto &c : casos) {
        const double p = formula_a_porcentaje(QString::fromUtf8(c.formula), QString::fromUtf8(c.kind));
        EXPECT_NEAR(p, c.resultado, 1e-9) << c.kind << " " << c.formula;
        EXPECT_EQ(p, *evaluar_expresion(QString::fromUtf8(c.expresion))) << c.kind << " " << c.formula;
    }
    // Formulas without a first term, and invalid ones, give 0.
    for (const char *kind : {"ganancia", "descuento"}) {
        for (const char *formula : {"", "+", "-5", "-10+5", "-1000", "abc", "10k", "(5", "2000-3000"})
            EXPECT_EQ(formula_a_porcentaje(QString::fromUtf8(formula), QString::fromUtf8(kind)), 0.0)
                << kind << " '" << formula << "'";
    }
}

TEST(FormulaValida, EvaluatesAsArithmeticAndRefusesMinusThousand)
{
    for (const char *f : {"", "  ", "10+5", "2*3", "-5", "10,5", "(10+5)/2", "1/0"}) {
        EXPECT_TRUE(formula_valida(QString::fromUtf8(f))) << f;
        EXPECT_TRUE(evaluar_formula(QString::fromUtf8(f), u"descuento").valida) << f;
    }
    for (const char *f : {"-1000", "2000-3000", "-1000,0", "+", "k", "10m", "(1", "1--5", "10%", "5;"}) {
        EXPECT_FALSE(formula_valida(QString::fromUtf8(f))) << f;
        EXPECT_FALSE(evaluar_formula(QString::fromUtf8(f), u"ganancia").valida) << f;
    }
}

TEST(EvaluarExpresion, PrecedenceSignsNumbersAndSyntaxErrors)
{
    const std::pair<const char *, double> casos[] = {{"2+3*4", 14}, {"(2+3)*4", 20},     {"8/2/2", 2},
                                                     {"2-3-4", -5}, {"- -5", 5},         {"2*-3", -6},
                                                     {" .5 ", 0.5}, {"2.5E-1", 0.25},    {"1e400", INFINITY},
                                                     {"1e-400", 0}, {"0.000001e-320", 0}};
    for (const auto &[texto, valor] : casos)
        EXPECT_EQ(evaluar_expresion(QString::fromUtf8(texto)), valor) << texto;
    EXPECT_TRUE(std::isnan(*evaluar_expresion(u"0/0")));
    EXPECT_EQ(*evaluar_expresion(u"1,5+1", true), 2.5);
    for (const char *texto :
         {"1--5", "++5", "2**3", "1 2", "1.2.3", "(1", "1)", "()", "1+", "1e", ".", "1,5", "2(3)"})
        EXPECT_FALSE(evaluar_expresion(QString::fromUtf8(texto)).has_value()) << texto;
}

TEST(EvaluarExpresion, DeepNestingFailsAndLongFormulasEvaluate)
{
    const QString hondo = QString(100000, u'(') + u'1' + QString(100000, u')');
    EXPECT_FALSE(evaluar_expresion(hondo).has_value());
    EXPECT_FALSE(evaluar_expresion(QString(100000, u'-') + u'1').has_value());
    EXPECT_EQ(evaluar_expresion(QString(150, u'(') + u'1' + QString(150, u')')), 1.0);
    EXPECT_EQ(evaluar_expresion(QString(300, u'0') + QStringLiteral("12.5")), 12.5);
    // A long margin formula rewrites beyond the stack buffer.
    QString larga = QStringLiteral("1");
    double esperado = 1 + 1 * 1.0 / 100;
    for (int i = 0; i < 500; ++i) {
        larga += QStringLiteral("+1");
        esperado = esperado * (1 + 1.0 / 100);
    }
    EXPECT_EQ(formula_a_porcentaje(larga, u"ganancia"), esperado * 100 - 100);
}

} // namespace
} // namespace vendrix
