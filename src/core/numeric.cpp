#include "core/numeric.h"

#include <array>
#include <charconv>
#include <cmath>

namespace vendrix {

namespace {

// The powers of ten that a double holds exactly.
constexpr std::array<double, 23> kPow10{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kMaxDecimalesRedondeo = 15;

bool es_blanco(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n') ||
           c == QLatin1Char('\r');
}

bool es_digito(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool es_marca_decimal(QChar c)
{
    return c == QLatin1Char('.') || c == QLatin1Char(',');
}

// Collects the number at the start of a text into a plain ASCII buffer for
// std::from_chars, without allocating. Very long digit runs are folded into
// the exponent, so any length reads correctly.
class LectorNumero {
public:
    explicit LectorNumero(QStringView text) : text_(text) {}

    double leer()
    {
        saltar_blancos();
        if (pos_ < text_.size() && (text_[pos_] == QLatin1Char('-') || text_[pos_] == QLatin1Char('+'))) {
            if (text_[pos_] == QLatin1Char('-')) {
                poner('-');
                negativo_ = true;
            }
            ++pos_;
        }
        const int inicio_mantisa = len_;
        bool hay_digitos = false;
        leer_digitos(true, hay_digitos);
        saltar_blancos();
        if (pos_ < text_.size() && es_marca_decimal(text_[pos_])) {
            ++pos_;
            leer_digitos(false, hay_digitos);
        }
        if (!hay_digitos || len_ == inicio_mantisa)
            return 0.0;
        leer_exponente();
        // The usual amount has few digits: its mantissa and the power of ten
        // are exact doubles, and one operation rounds correctly.
        const long exponente = exponente_extra_ - fraccion_;
        if (digitos_ <= 15 && exponente >= -22 && exponente <= 22) {
            const double m = static_cast<double>(mantisa_) * (negativo_ ? -1.0 : 1.0);
            const double escala = kPow10[static_cast<size_t>(exponente < 0 ? -exponente : exponente)];
            return exponente < 0 ? m / escala : m * escala;
        }
        if (exponente_extra_ != 0)
            poner_exponente(exponente_extra_);
        double value = 0.0;
        std::from_chars(buf_.data(), buf_.data() + len_, value);
        return value;
    }

private:
    static constexpr int kMaxDigitos = 40;

    void saltar_blancos()
    {
        while (pos_ < text_.size() && es_blanco(text_[pos_]))
            ++pos_;
    }

    void poner(char c) { buf_[static_cast<size_t>(len_++)] = c; }

    // `digitos_` counts significant digits only: leading zeros of the whole
    // part are dropped and those of the fraction go into the exponent.
    void leer_digitos(bool enteros, bool &hay_digitos)
    {
        for (; pos_ < text_.size(); ++pos_) {
            const QChar c = text_[pos_];
            if (es_blanco(c))
                continue;
            if (!es_digito(c))
                break;
            hay_digitos = true;
            if (digitos_ == 0 && c == QLatin1Char('0')) {
                if (!enteros)
                    --exponente_extra_;
                continue;
            }
            if (digitos_ >= kMaxDigitos) {
                if (enteros)
                    ++exponente_extra_;
                continue;
            }
            if (!enteros && !punto_) {
                if (digitos_ == 0)
                    poner('0');
                poner('.');
                punto_ = true;
            }
            poner(static_cast<char>(c.unicode()));
            mantisa_ = mantisa_ * 10 + static_cast<quint64>(c.unicode() - '0');
            fraccion_ += enteros ? 0 : 1;
            ++digitos_;
        }
        if (enteros && hay_digitos && digitos_ == 0)
            poner('0');
    }

    void leer_exponente()
    {
        qsizetype p = pos_;
        if (p >= text_.size() || (text_[p] != QLatin1Char('e') && text_[p] != QLatin1Char('E')))
            return;
        ++p;
        int signo = 1;
        if (p < text_.size() && (text_[p] == QLatin1Char('-') || text_[p] == QLatin1Char('+'))) {
            signo = text_[p] == QLatin1Char('-') ? -1 : 1;
            ++p;
        }
        long exponente = 0;
        bool hay = false;
        for (; p < text_.size() && es_digito(text_[p]); ++p) {
            hay = true;
            if (exponente < 100000)
                exponente = exponente * 10 + (text_[p].unicode() - '0');
        }
        if (hay) {
            exponente_extra_ += signo * exponente;
            pos_ = p;
        }
    }

    void poner_exponente(long exponente)
    {
        poner('e');
        auto r = std::to_chars(buf_.data() + len_, buf_.data() + buf_.size(), exponente);
        len_ = static_cast<int>(r.ptr - buf_.data());
    }

    QStringView text_;
    qsizetype pos_ = 0;
    std::array<char, 2 * kMaxDigitos> buf_{};
    int len_ = 0;
    int digitos_ = 0;
    bool punto_ = false;
    bool negativo_ = false;
    long exponente_extra_ = 0;
    quint64 mantisa_ = 0; // the significant digits, while there are at most 15
    int fraccion_ = 0;    // how many of them stand after the point
};

// The 15 significant digits of a non-zero finite value and the power of ten
// of the first: value = 0.d1d2...d15 * 10^exponente.
struct Digitos15 {
    std::array<char, 15> d{};
    int exponente = 0;
};

Digitos15 digitos15(double magnitud)
{
    std::array<char, 32> buf{};
    auto r = std::to_chars(buf.data(), buf.data() + buf.size(), magnitud, std::chars_format::scientific, 14);
    Digitos15 out;
    int n = 0;
    const char *p = buf.data();
    for (; p < r.ptr && *p != 'e'; ++p) {
        if (*p >= '0' && *p <= '9')
            out.d[static_cast<size_t>(n++)] = *p;
    }
    int e = 0;
    if (p < r.ptr)
        std::from_chars(p + 1 + (p[1] == '+' ? 1 : 0), r.ptr, e);
    out.exponente = e + 1;
    return out;
}

} // namespace

QString separador_decimal()
{
    return QString(kSeparadorDecimal);
}

double valor_texto(QStringView text)
{
    return LectorNumero(text).leer();
}

bool es_numerico(QStringView text)
{
    qsizetype i = 0;
    qsizetype fin = text.size();
    while (i < fin && es_blanco(text[i]))
        ++i;
    while (fin > i && es_blanco(text[fin - 1]))
        --fin;
    if (i < fin && (text[i] == QLatin1Char('-') || text[i] == QLatin1Char('+')))
        ++i;
    bool digitos = false;
    bool marca = false;
    for (; i < fin; ++i) {
        const QChar c = text[i];
        if (es_digito(c)) {
            digitos = true;
        } else if (es_marca_decimal(c) && !marca) {
            marca = true;
        } else {
            break;
        }
    }
    if (!digitos)
        return false;
    if (i < fin && (text[i] == QLatin1Char('e') || text[i] == QLatin1Char('E'))) {
        ++i;
        if (i < fin && (text[i] == QLatin1Char('-') || text[i] == QLatin1Char('+')))
            ++i;
        const qsizetype inicio = i;
        while (i < fin && es_digito(text[i]))
            ++i;
        if (i == inicio)
            return false;
    }
    return i == fin;
}

double redondear(double value, int decimales)
{
    if (!std::isfinite(value) || decimales < 0 || decimales > kMaxDecimalesRedondeo)
        return value;
    const double escala = kPow10[static_cast<size_t>(decimales)];
    const double s = value * escala;
    if (std::fabs(s) >= 4503599627370496.0) // 2^52: already a whole number
        return value;
    const double piso = std::floor(s);
    const double resto = s - piso;
    double entero = piso;
    if (resto > 0.5 || (resto == 0.5 && std::fmod(piso, 2.0) != 0.0))
        entero = piso + 1.0;
    return entero / escala;
}

QString texto_numero(double value)
{
    if (value == 0.0)
        return QStringLiteral("0");
    std::array<char, 40> buf{};
    auto r = std::to_chars(buf.data(), buf.data() + buf.size(), value, std::chars_format::general, 15);
    for (char *p = buf.data(); p < r.ptr; ++p) {
        if (*p == '.')
            *p = static_cast<char>(kSeparadorDecimal.unicode());
        else if (*p == 'e')
            *p = 'E';
    }
    return QString::fromLatin1(buf.data(), r.ptr - buf.data());
}

QString formatear(double value, QStringView mascara)
{
    int enteros_min = 0;
    int decimales = 0;
    bool tras_punto = false;
    for (QChar c : mascara) {
        if (c == QLatin1Char('.'))
            tras_punto = true;
        else if (c == QLatin1Char('0'))
            ++(tras_punto ? decimales : enteros_min);
    }
    decimales = std::min(decimales, 30);
    enteros_min = std::min(enteros_min, 30);

    // The digits of round(|value| * 10^decimales), most significant first,
    // behind one place for the carry.
    std::array<char, 360> cifras{};
    int n = 0;
    if (value != 0.0 && std::isfinite(value)) {
        const Digitos15 d = digitos15(std::fabs(value));
        const int guardar = d.exponente + decimales;
        if (guardar >= 0) {
            cifras[static_cast<size_t>(n++)] = '0';
            const int con_datos = std::min(guardar, 15);
            for (int i = 0; i < con_datos; ++i)
                cifras[static_cast<size_t>(n++)] = d.d[static_cast<size_t>(i)];
            if (guardar < 15 && d.d[static_cast<size_t>(guardar)] >= '5') {
                int i = n - 1;
                for (; cifras[static_cast<size_t>(i)] == '9'; --i)
                    cifras[static_cast<size_t>(i)] = '0';
                ++cifras[static_cast<size_t>(i)];
            }
            for (int i = con_datos; i < guardar; ++i)
                cifras[static_cast<size_t>(n++)] = '0';
        }
    }
    int primera = 0;
    while (primera < n && cifras[static_cast<size_t>(primera)] == '0')
        ++primera;
    const int largo = n - primera;
    const bool cero = largo == 0;

    const int total = std::max(largo, std::max(enteros_min, 1) + decimales);
    const int ceros = total - largo;
    const int enteros = total - decimales;
    // A mask with no '0' before the point ("#.00") drops the lone zero.
    const int saltar = (enteros_min == 0 && decimales > 0 && enteros == 1 && ceros > 0) ? 1 : 0;
    std::array<char, 400> out{};
    int m = 0;
    if (value < 0 && !cero)
        out[static_cast<size_t>(m++)] = '-';
    for (int k = 0; k < total; ++k) {
        if (k == enteros)
            out[static_cast<size_t>(m++)] = static_cast<char>(kSeparadorDecimal.unicode());
        if (k < saltar)
            continue;
        out[static_cast<size_t>(m++)] = k < ceros ? '0' : cifras[static_cast<size_t>(primera + k - ceros)];
    }
    return QString::fromLatin1(out.data(), m);
}

QString normalizar_decimal(const QString &text)
{
    if (text.isEmpty())
        return QStringLiteral("0");
    QString out = text;
    out.replace(QLatin1Char(','), QLatin1Char('.'));
    return out;
}

} // namespace vendrix
