#include "catalogue/pricing/formula.h"

#include <array>
#include <charconv>
#include <limits>
#include <string>

namespace vendrix {

namespace {

constexpr int kMaxProfundidad = 200;
// The powers of ten that a double holds exactly.
constexpr std::array<double, 23> kPotencias{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                            1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                            1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
// The value that marks a failed evaluation in `formula_valida`.
constexpr double kMarcaFallo = -1000.0;

bool es_digito(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

bool es_blanco(char16_t c)
{
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n' || c == u'\v' || c == u'\f' || c == 0xA0;
}

// What a decimal literal too large or too small for a double reads as: an
// infinity when it overflows, zero when it underflows.
double fuera_de_rango(std::string_view token)
{
    // value = 0.d1d2... * 10^(magnitud + exponente), d1 its first significant digit
    long magnitud = 0;
    bool visto = false;
    bool tras_punto = false;
    size_t i = 0;
    for (; i < token.size() && token[i] != 'e' && token[i] != 'E'; ++i) {
        const char c = token[i];
        if (c == '.') {
            tras_punto = true;
        } else if (c != '0' || visto) {
            if (!tras_punto)
                ++magnitud;
            visto = true;
        } else if (tras_punto) {
            --magnitud; // a zero between the point and the first significant digit
        }
    }
    long exponente = 0;
    if (i < token.size()) {
        std::string_view e = token.substr(i + 1);
        const bool negativo = !e.empty() && e.front() == '-';
        if (!e.empty() && (e.front() == '-' || e.front() == '+'))
            e.remove_prefix(1);
        for (char c : e) {
            if (exponente < 100000)
                exponente = exponente * 10 + (c - '0');
        }
        if (negativo)
            exponente = -exponente;
    }
    return magnitud + exponente > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

// Recursive descent over the text, without building tokens.
class Evaluator {
public:
    Evaluator(QStringView text, bool coma_decimal) : t_(text), coma_(coma_decimal) {}

    std::optional<double> evaluar()
    {
        saltar_blancos();
        if (fin())
            return 0.0;
        double v = 0.0;
        if (!suma(v, 0))
            return std::nullopt;
        saltar_blancos();
        if (!fin())
            return std::nullopt;
        return v;
    }

private:
    bool fin() const { return pos_ >= t_.size(); }
    char16_t actual() const { return fin() ? u'\0' : t_[pos_].unicode(); }
    char16_t siguiente() const { return pos_ + 1 < t_.size() ? t_[pos_ + 1].unicode() : u'\0'; }
    bool es_punto(char16_t c) const { return c == u'.' || (coma_ && c == u','); }

    void saltar_blancos()
    {
        while (!fin() && es_blanco(actual()))
            ++pos_;
    }

    // "++" and "--" are increment operators, which no arithmetic text can use.
    bool signo_doble() const { return siguiente() == actual(); }

    bool suma(double &v, int profundidad)
    {
        if (!producto(v, profundidad))
            return false;
        for (;;) {
            saltar_blancos();
            const char16_t op = actual();
            if (op != u'+' && op != u'-')
                return true;
            if (signo_doble())
                return false;
            ++pos_;
            double r = 0.0;
            if (!producto(r, profundidad))
                return false;
            v = op == u'+' ? v + r : v - r;
        }
    }

    bool producto(double &v, int profundidad)
    {
        if (!unario(v, profundidad))
            return false;
        for (;;) {
            saltar_blancos();
            const char16_t op = actual();
            if (op != u'*' && op != u'/')
                return true;
            ++pos_;
            double r = 0.0;
            if (!unario(r, profundidad))
                return false;
            v = op == u'*' ? v * r : v / r;
        }
    }

    bool unario(double &v, int profundidad)
    {
        if (profundidad > kMaxProfundidad)
            return false;
        saltar_blancos();
        const char16_t op = actual();
        if (op == u'+' || op == u'-') {
            if (signo_doble())
                return false;
            ++pos_;
            if (!unario(v, profundidad + 1))
                return false;
            if (op == u'-')
                v = -v;
            return true;
        }
        if (op == u'(') {
            ++pos_;
            if (!suma(v, profundidad + 1))
                return false;
            saltar_blancos();
            if (actual() != u')')
                return false;
            ++pos_;
            return true;
        }
        return numero(v);
    }

    bool numero(double &v)
    {
        const qsizetype inicio = pos_;
        // The usual literal has few digits: its mantissa and 10^decimals are
        // exact doubles, so one division gives the correctly rounded value.
        quint64 mantisa = 0;
        int significativos = 0;
        int decimales = 0;
        bool digitos = false;
        auto leer_digitos = [&](bool fraccion) {
            for (; !fin() && es_digito(actual()); ++pos_) {
                digitos = true;
                decimales += fraccion ? 1 : 0;
                if (mantisa == 0 && actual() == u'0')
                    continue;
                if (++significativos <= 15)
                    mantisa = mantisa * 10 + (actual() - u'0');
            }
        };
        leer_digitos(false);
        if (!fin() && es_punto(actual())) {
            ++pos_;
            leer_digitos(true);
        }
        if (!digitos)
            return false;
        bool exponente = false;
        if (!fin() && (actual() == u'e' || actual() == u'E')) {
            exponente = true;
            ++pos_;
            if (!fin() && (actual() == u'+' || actual() == u'-'))
                ++pos_;
            const qsizetype inicio_exponente = pos_;
            while (!fin() && es_digito(actual()))
                ++pos_;
            if (pos_ == inicio_exponente)
                return false;
        }
        if (!exponente && significativos <= 15 && decimales < static_cast<int>(kPotencias.size())) {
            v = static_cast<double>(mantisa);
            if (decimales > 0)
                v /= kPotencias[static_cast<size_t>(decimales)];
            return true;
        }
        return convertir(t_.sliced(inicio, pos_ - inicio), v);
    }

    static bool convertir(QStringView token, double &v)
    {
        std::array<char, 128> local{};
        std::string largo;
        char *buf = local.data();
        if (token.size() >= static_cast<qsizetype>(local.size())) {
            largo.resize(static_cast<size_t>(token.size()));
            buf = largo.data();
        }
        for (qsizetype i = 0; i < token.size(); ++i) {
            const char16_t c = token[i].unicode();
            buf[i] = c == u',' ? '.' : static_cast<char>(c);
        }
        const std::string_view texto(buf, static_cast<size_t>(token.size()));
        const auto r = std::from_chars(texto.data(), texto.data() + texto.size(), v);
        if (r.ec == std::errc::result_out_of_range)
            v = fuera_de_rango(texto);
        else if (r.ec != std::errc() || r.ptr != texto.data() + texto.size())
            return false;
        return true;
    }

    QStringView t_;
    bool coma_;
    qsizetype pos_ = 0;
};

// The text a formula becomes before its evaluation: each "-" and "+" turns
// into the closing of one percentage and the opening of the next, so that
// "10+5" for a margin reads (1+1*10/100)*(1+5/100)*100-100. Written into a
// stack buffer; only an unusually long formula takes the heap.
class FormulaRewrite {
public:
    FormulaRewrite(QStringView formula, bool ganancia)
    {
        const char16_t *cabeza = ganancia ? u"(1+1*" : u"100 - (1-1*";
        const char16_t *cola = ganancia ? u"/100)*100-100" : u"/100)*100";
        // In a margin "+" adds a further margin; in a discount it is a
        // further discount and "-" a surcharge.
        const char16_t *por_mas = ganancia ? u"/100)*(1+" : u"/100)*(1-";
        const char16_t *por_menos = ganancia ? u"/100)*(1-" : u"/100)*(1+";

        qsizetype signos = 0;
        for (QChar c : formula)
            signos += (c == QLatin1Char('+') || c == QLatin1Char('-')) ? 1 : 0;
        const qsizetype largo = formula.size() + signos * 9 + 32;
        if (largo > static_cast<qsizetype>(local_.size())) {
            heap_.resize(static_cast<size_t>(largo));
            buf_ = heap_.data();
        }
        poner(cabeza);
        for (QChar c : formula) {
            if (c == QLatin1Char('+'))
                poner(por_mas);
            else if (c == QLatin1Char('-'))
                poner(por_menos);
            else
                buf_[n_++] = c.unicode();
        }
        poner(cola);
    }

    QStringView texto() const { return QStringView(buf_, n_); }

private:
    void poner(const char16_t *s)
    {
        while (*s)
            buf_[n_++] = *s++;
    }

    std::array<char16_t, 256> local_; // written before it is read
    std::u16string heap_;
    char16_t *buf_ = local_.data();
    qsizetype n_ = 0;
};

} // namespace

std::optional<double> evaluar_expresion(QStringView text, bool coma_decimal)
{
    return Evaluator(text, coma_decimal).evaluar();
}

bool formula_valida(QStringView formula)
{
    // An empty formula evaluates as "0".
    const std::optional<double> v = evaluar_expresion(formula, true);
    return v.has_value() && *v != kMarcaFallo;
}

double formula_a_porcentaje(QStringView formula, QStringView kind)
{
    return evaluar_formula(formula, kind).porcentaje;
}

FormulaValue evaluar_formula(QStringView formula, QStringView kind)
{
    FormulaValue out;
    out.valida = formula_valida(formula);
    if (!out.valida && !formula.isEmpty())
        return out;
    if (formula.startsWith(QLatin1Char('+')))
        formula = formula.sliced(1);
    const FormulaRewrite expresion(formula, kind == u"ganancia");
    out.porcentaje = evaluar_expresion(expresion.texto(), true).value_or(0.0);
    return out;
}

} // namespace vendrix
