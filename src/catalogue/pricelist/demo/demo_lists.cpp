#include "catalogue/pricelist/demo/demo_lists.h"

#include "catalogue/pricelist/demo/demo_words.h"

#include <QHash>

#include <cmath>
#include <random>

namespace vendrix {

namespace {

using namespace demo;

// Draws from a seeded generator with arithmetic of our own, so that the same
// seed gives the same lists on every machine and library.
class DemoRandom {
public:
    explicit DemoRandom(quint64 seed) : engine_(seed) {}

    quint64 entero(quint64 n) { return engine_() % n; }
    double real() { return static_cast<double>(engine_() >> 11) * 0x1.0p-53; }
    bool suerte(double p) { return real() < p; }
    const char *uno(const Words &words) { return words[entero(words.size())]; }

private:
    std::mt19937_64 engine_;
};

// A price in cents as the list writes it: "1234.5", "99", "0".
QString texto_precio(qint64 cents)
{
    QString text = QString::number(cents / 100);
    const qint64 rest = cents % 100;
    if (rest != 0)
        text += QLatin1Char('.') + QString::number(rest).rightJustified(2, QLatin1Char('0'));
    if (text.endsWith(QLatin1Char('0')) && text.contains(QLatin1Char('.')))
        text.chop(1);
    return text;
}

qint64 centavos(const QString &precio)
{
    return std::llround(valor_precio(precio) * 100.0);
}

// Makes one supplier's current list.
class ListGenerator {
public:
    // `first_number` keeps apart the codes of articles made up for a former
    // list only.
    ListGenerator(const Supplier &supplier, DemoRandom &azar, qint64 first_number = 0)
        : p_(supplier), azar_(azar), next_(first_number)
    {
    }

    ListArticle articulo()
    {
        const ProductGroup &rubro = rubros()[static_cast<size_t>(p_.rubros[azar_.entero(p_.rubros.size())])];
        ListArticle a;
        a.grupo = QString::fromUtf8(rubro.grupo);
        a.marca = azar_.suerte(0.05) ? QString() : QString::fromUtf8(azar_.uno(rubro.marcas));
        a.descripcion = descripcion(rubro, a.marca);
        a.codigo = codigo();
        a.unidad = QString::fromUtf8(azar_.uno(rubro.unidades));
        a.precio = precio(rubro);
        a.moneda = moneda(rubro);
        if (azar_.suerte(0.08))
            a.observaciones = QString::fromUtf8(azar_.uno(observaciones()));
        return a;
    }

private:
    QString descripcion(const ProductGroup &rubro, const QString &marca)
    {
        QString text = QString::fromUtf8(azar_.uno(rubro.productos));
        if (azar_.suerte(0.8))
            text += QLatin1Char(' ') + QString::fromUtf8(azar_.uno(rubro.atributos));
        if (azar_.suerte(0.9))
            text += QLatin1Char(' ') + QString::fromUtf8(azar_.uno(rubro.medidas));
        if (azar_.suerte(0.35))
            text += QLatin1Char(' ') + QString::fromUtf8(azar_.uno(variantes()));
        if (!marca.isEmpty() && azar_.suerte(0.5))
            text += QLatin1Char(' ') + marca;
        if (azar_.suerte(0.02))
            text += QLatin1String(", ") + QString::fromUtf8(azar_.uno(detalles_largos()));
        return p_.mayusculas ? text.toUpper() : text;
    }

    QString codigo()
    {
        if (azar_.suerte(0.005))
            return {};
        if (!codes_.empty() && azar_.suerte(0.003))
            return codes_[azar_.entero(codes_.size())];
        next_ += 1 + static_cast<qint64>(azar_.entero(7));
        QString code;
        switch (p_.estilo_codigo) {
        case CodeStyle::Prefijo:
            code = QString::fromLatin1(p_.codigo_interno).remove(QLatin1Char('-')) + QLatin1Char('-') +
                   QString::number(next_).rightJustified(5, QLatin1Char('0'));
            break;
        case CodeStyle::Numerico:
            code = QString::number(100000 + next_);
            break;
        case CodeStyle::Letras:
            code = QString(QChar(u'A' + static_cast<char16_t>(next_ / 10000 % 26))) +
                   QChar(u'A' + static_cast<char16_t>(azar_.entero(26))) +
                   QString::number(next_ % 10000).rightJustified(4, QLatin1Char('0'));
            break;
        }
        codes_.push_back(code);
        return code;
    }

    QString precio(const ProductGroup &rubro)
    {
        if (azar_.suerte(0.004))
            return QStringLiteral("0");
        const double scale = p_.dolares ? 1.0 / 1000.0 : 1.0;
        const double low = std::log(rubro.precio_minimo * scale),
                     high = std::log(rubro.precio_maximo * scale);
        return texto_precio(
            std::max<qint64>(1, std::llround(std::exp(low + azar_.real() * (high - low)) * 100)));
    }

    QString moneda(const ProductGroup &rubro)
    {
        const bool dollars = p_.dolares || azar_.suerte(0.01);
        if (rubro.reducido)
            return QString::fromLatin1(dollars ? kMonedaDolaresReducido : kMonedaPesosReducido);
        return QString::fromLatin1(dollars ? kMonedaDolares : kMonedaPesos);
    }

    const Supplier &p_;
    DemoRandom &azar_;
    qint64 next_;
    std::vector<QString> codes_;
};

// The former version of a supplier's list: some of today's articles were not
// there yet, a few that are gone were, many cost less, a few read otherwise,
// and most of today's zero prices had a price.
SupplierList version_anterior(const SupplierList &now, const Supplier &supplier, DemoRandom &azar,
                                std::vector<OldArticle> &old_prices, QDate fecha)
{
    SupplierList before{now.proveedor, fecha.toString(Qt::ISODate), {}, now.codigo_interno, {}};
    ListGenerator extra(supplier, azar, 2000000);
    for (const ListArticle &a : now.articulos) {
        if (azar.suerte(0.015))
            continue; // came in with today's list
        ListArticle b = a;
        if (valor_precio(a.precio) == 0.0) {
            if (azar.suerte(0.6)) {
                b.precio = texto_precio(1000 + static_cast<qint64>(azar.entero(500000)));
            } else if (!a.codigo.isEmpty() && azar.suerte(0.5)) {
                OldArticle old{now.proveedor, fecha.addDays(-90).toString(Qt::ISODate), a};
                old.articulo.precio = texto_precio(500 + static_cast<qint64>(azar.entero(100000)));
                old_prices.push_back(old);
            }
        } else if (azar.suerte(0.35)) {
            b.precio = texto_precio(
                std::max<qint64>(1, std::llround(centavos(a.precio) / (1.03 + 0.12 * azar.real()))));
        }
        if (azar.suerte(0.005)) // the new list completes the description
            b.descripcion = b.descripcion.section(QLatin1Char(' '), 0, -2);
        before.articulos.push_back(b);
        if (azar.suerte(0.008))
            before.articulos.push_back(extra.articulo()); // gone from today's list
    }
    return before;
}

std::vector<int> repartir(int total)
{
    int weights = 0;
    for (const Supplier &p : proveedores())
        weights += p.peso;
    std::vector<int> counts;
    int given = 0;
    for (const Supplier &p : proveedores()) {
        counts.push_back(static_cast<int>(static_cast<qint64>(total) * p.peso / weights));
        given += counts.back();
    }
    counts.front() += total - given;
    return counts;
}

} // namespace

DemoLists generar_listas_demo(int articulos, quint64 semilla, QDate fecha)
{
    DemoLists demo;
    DemoRandom azar(semilla);
    DemoRandom history(semilla ^ 0x9E3779B97F4A7C15ULL);
    const std::vector<int> counts = repartir(std::max(articulos, 0));
    for (size_t i = 0; i < proveedores().size(); ++i) {
        const Supplier &p = proveedores()[i];
        const int offset = static_cast<int>(i);
        const QDate list_date = p.conserva ? fecha.addDays(-40 - offset) : fecha.addDays(-(offset % 5));
        SupplierList now{QString::fromUtf8(p.nombre),
                           list_date.toString(Qt::ISODate),
                           {},
                           QString::fromLatin1(p.codigo_interno),
                           {}};
        ListGenerator maker(p, azar);
        now.articulos.reserve(static_cast<size_t>(counts[i]));
        for (int k = 0; k < counts[i]; ++k)
            now.articulos.push_back(maker.articulo());
        if (p.conserva) {
            demo.anterior.listas.push_back(std::move(now));
            continue;
        }
        demo.anterior.listas.push_back(
            version_anterior(now, p, history, demo.anterior.viejos, list_date.addDays(-28 - offset % 3)));
        demo.nuevas.push_back(std::move(now));
        demo.estilos.push_back(p.csv);
    }
    return demo;
}

} // namespace vendrix
