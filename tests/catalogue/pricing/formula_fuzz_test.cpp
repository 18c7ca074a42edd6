// Random and malformed formulas against the evaluator: it must never crash or
// hang, and must agree with a plain tokenize-then-parse reference, in
// validity and to the bit in value. Fixed seed, bounded counts.
#include "catalogue/pricing/formula.h"

#include "support/qt_print.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace vendrix {
namespace {

// --- Reference: the whole text into tokens first, then recursive descent.

struct Token {
    char tipo; // 'n' number, or the operator / parenthesis itself
    double valor = 0;
};

bool blanco(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

bool digito(char c)
{
    return c >= '0' && c <= '9';
}

std::optional<std::vector<Token>> tokenizar(const std::string &s, bool coma)
{
    std::vector<Token> out;
    size_t i = 0;
    while (i < s.size()) {
        const char c = s[i];
        if (blanco(c)) {
            ++i;
        } else if (digito(c) || c == '.' || (coma && c == ',')) {
            std::string numero;
            bool hay = false;
            auto digitos = [&] {
                for (; i < s.size() && digito(s[i]); ++i) {
                    numero += s[i];
                    hay = true;
                }
            };
            digitos();
            if (i < s.size() && (s[i] == '.' || (coma && s[i] == ','))) {
                numero += '.';
                ++i;
                digitos();
            }
            if (!hay)
                return std::nullopt;
            if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
                numero += s[i++];
                if (i < s.size() && (s[i] == '+' || s[i] == '-'))
                    numero += s[i++];
                if (i >= s.size() || !digito(s[i]))
                    return std::nullopt;
                while (i < s.size() && digito(s[i]))
                    numero += s[i++];
            }
            out.push_back({'n', std::strtod(numero.c_str(), nullptr)});
        } else if (c == '+' || c == '-') {
            if (i + 1 < s.size() && s[i + 1] == c)
                return std::nullopt; // increment operators
            out.push_back({c});
            ++i;
        } else if (c == '*' || c == '/' || c == '(' || c == ')') {
            out.push_back({c});
            ++i;
        } else {
            return std::nullopt;
        }
    }
    return out;
}

class Referencia {
public:
    explicit Referencia(std::vector<Token> t) : t_(std::move(t)) {}

    std::optional<double> evaluar()
    {
        if (t_.empty())
            return 0.0;
        double v = 0;
        if (!suma(v) || p_ != t_.size())
            return std::nullopt;
        return v;
    }

private:
    char mira() const { return p_ < t_.size() ? t_[p_].tipo : '\0'; }

    bool suma(double &v)
    {
        if (!producto(v))
            return false;
        while (mira() == '+' || mira() == '-') {
            const char op = t_[p_++].tipo;
            double r = 0;
            if (!producto(r))
                return false;
            v = op == '+' ? v + r : v - r;
        }
        return true;
    }

    bool producto(double &v)
    {
        if (!unario(v))
            return false;
        while (mira() == '*' || mira() == '/') {
            const char op = t_[p_++].tipo;
            double r = 0;
            if (!unario(r))
                return false;
            v = op == '*' ? v * r : v / r;
        }
        return true;
    }

    bool unario(double &v)
    {
        const char c = mira();
        if (c == '+' || c == '-') {
            ++p_;
            if (!unario(v))
                return false;
            v = c == '-' ? -v : v;
            return true;
        }
        if (c == '(') {
            ++p_;
            if (!suma(v) || mira() != ')')
                return false;
            ++p_;
            return true;
        }
        if (c == 'n') {
            v = t_[p_++].valor;
            return true;
        }
        return false;
    }

    std::vector<Token> t_;
    size_t p_ = 0;
};

std::optional<double> referencia(const std::string &s, bool coma)
{
    auto tokens = tokenizar(s, coma);
    if (!tokens)
        return std::nullopt;
    return Referencia(std::move(*tokens)).evaluar();
}

bool mismo_valor(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || a == b;
}

void comparar(const std::string &s, bool coma)
{
    const std::optional<double> ref = referencia(s, coma);
    const std::optional<double> v = evaluar_expresion(QString::fromStdString(s), coma);
    ASSERT_EQ(v.has_value(), ref.has_value()) << "'" << s << "'";
    if (v) {
        ASSERT_TRUE(mismo_valor(*v, *ref)) << "'" << s << "' " << *v << " vs " << *ref;
    }
}

// --- Generator of valid expressions, with their value worked on the tree.

struct Nodo {
    std::string texto;
    double valor;
    int precedencia; // 3 atom, 2 product, 1 sum
};

class Generador {
public:
    int azar(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }

    Nodo expresion(int profundidad)
    {
        if (profundidad == 0 || azar(4) == 0)
            return numero();
        if (azar(6) == 0) {
            const char op = azar(2) ? '-' : '+';
            Nodo hijo = expresion(profundidad - 1);
            if (hijo.precedencia < 3)
                hijo = parentesis(hijo);
            return {unir(std::string(1, op), hijo.texto), op == '-' ? -hijo.valor : hijo.valor, 3};
        }
        static constexpr char kOps[] = {'+', '-', '*', '/'};
        const char op = kOps[azar(4)];
        const int p = (op == '+' || op == '-') ? 1 : 2;
        Nodo izq = expresion(profundidad - 1);
        Nodo der = expresion(profundidad - 1);
        if (izq.precedencia < p)
            izq = parentesis(izq);
        if (der.precedencia <= p)
            der = parentesis(der);
        double v = 0;
        switch (op) {
        case '+':
            v = izq.valor + der.valor;
            break;
        case '-':
            v = izq.valor - der.valor;
            break;
        case '*':
            v = izq.valor * der.valor;
            break;
        default:
            v = izq.valor / der.valor;
        }
        return {unir(unir(izq.texto, std::string(1, op)), der.texto), v, p};
    }

private:
    Nodo parentesis(const Nodo &n) { return {unir(unir("(", n.texto), ")"), n.valor, 3}; }

    Nodo numero()
    {
        // Built by appending single characters: GCC 12 at -O3 wrongly reports
        // an overlapping copy (-Wrestrict) for "literal" + std::string.
        std::string t = std::to_string(azar(1000));
        switch (azar(7)) {
        case 0:
            t += '.';
            t += std::to_string(azar(100));
            break;
        case 1:
            t = '.';
            t += std::to_string(azar(1000));
            break;
        case 2:
            t += '.';
            break;
        case 3:
            t += azar(2) ? 'e' : 'E';
            if (azar(2))
                t += '-';
            t += std::to_string(azar(12));
            break;
        default:
            break;
        }
        Nodo n{t, std::strtod(t.c_str(), nullptr), 3};
        return azar(8) == 0 ? parentesis(n) : n;
    }

    // Joins two pieces with random blanks; a sign next to the same sign gets a
    // blank, as "--" would be an increment operator.
    std::string unir(const std::string &a, const std::string &b)
    {
        std::string blancos(static_cast<size_t>(azar(3) == 0 ? azar(3) : 0), ' ');
        if (blancos.empty() && !a.empty() && !b.empty() && a.back() == b.front() &&
            (b.front() == '-' || b.front() == '+'))
            blancos = ' ';
        return a + blancos + b;
    }

    std::mt19937 rng_{20261123};
};

TEST(FormulaFuzz, GeneratedExpressionsEvaluateExactly)
{
    Generador gen;
    for (int i = 0; i < 4000; ++i) {
        const Nodo n = gen.expresion(1 + gen.azar(6));
        const std::optional<double> v = evaluar_expresion(QString::fromStdString(n.texto));
        ASSERT_TRUE(v.has_value()) << n.texto;
        ASSERT_TRUE(mismo_valor(*v, n.valor)) << n.texto << " " << *v << " vs " << n.valor;
        comparar(n.texto, false);
    }
}

TEST(FormulaFuzz, MutatedExpressionsAgreeWithTheReference)
{
    Generador gen;
    const std::string alfabeto = "0123456789+-*/(). eE,";
    for (int i = 0; i < 4000; ++i) {
        std::string s = gen.expresion(1 + gen.azar(4)).texto;
        for (int cambios = 1 + gen.azar(3); cambios > 0; --cambios) {
            const size_t pos = static_cast<size_t>(gen.azar(static_cast<int>(s.size()) + 1));
            switch (gen.azar(3)) {
            case 0:
                if (pos < s.size())
                    s.erase(pos, 1);
                break;
            case 1:
                s.insert(pos, 1, alfabeto[static_cast<size_t>(gen.azar(static_cast<int>(alfabeto.size())))]);
                break;
            default:
                if (pos < s.size())
                    s[pos] = alfabeto[static_cast<size_t>(gen.azar(static_cast<int>(alfabeto.size())))];
            }
        }
        comparar(s, false);
        comparar(s, true);
    }
}

TEST(FormulaFuzz, RandomTextsNeverCrash)
{
    Generador gen;
    const std::string alfabeto = "0123456789+-*/(). eE,x\t";
    for (int i = 0; i < 20000; ++i) {
        std::string s;
        for (int n = gen.azar(30); n > 0; --n)
            s += alfabeto[static_cast<size_t>(gen.azar(static_cast<int>(alfabeto.size())))];
        comparar(s, i % 2 == 0);
        // The formula operations run on the same texts without failing.
        const QString q = QString::fromStdString(s);
        (void)formula_valida(q);
        (void)formula_a_porcentaje(q, u"ganancia");
        (void)formula_a_porcentaje(q, u"descuento");
    }
}

} // namespace
} // namespace vendrix
