#include "fiscal/hasar/hasar_models.h"

#include <QRegularExpression>

#include <array>
#include <initializer_list>

namespace vendrix::hasar {

namespace {

struct Modelo {
    const char *nombre;
    std::initializer_list<int> numeros;
};

const std::array<Modelo, 22> kModelos{{
    {"P-614F", {1}},
    {"P-615F", {2}},
    {"P-PR4F", {3}},
    {"P-950F", {4}},
    {"P-951F", {5}},
    {"P-262F", {6}},
    {"P-20F", {7}},
    {"P-320F", {8}},
    {"P-715F", {9, 25, 29, 30, 40}},
    {"P-PR5F", {10, 26, 37}},
    {"P-272F", {11, 38}},
    {"PL-8F", {12, 17}},
    {"PL-321F", {13}},
    {"PL-322F", {14, 18}},
    {"P-425F", {15, 16}},
    {"P-330F", {19, 21, 23, 31}},
    {"P-435F", {20, 24, 27, 34}},
    {"PL-9F", {22}},
    {"PL-23F", {28, 33, 36}},
    {"P-441F", {32, 39}},
    {"P-1120F", {35}},
    {"P-340F", {41}},
}};

} // namespace

QString nombre_modelo(int numero)
{
    for (const Modelo &m : kModelos) {
        for (const int n : m.numeros) {
            if (n == numero)
                return QString::fromLatin1(m.nombre);
        }
    }
    return QStringLiteral("Indeterminado");
}

int modelo_de_version(const QByteArray &version)
{
    // "SMH/P-715F - Versión 2.01": the name stands after the maker's prefix;
    // the first number of the name is the one given for it.
    static const QRegularExpression nombre(QStringLiteral("\\b(PL?-[A-Z0-9]+F)\\b"));
    const QRegularExpressionMatch m = nombre.match(QString::fromLatin1(version));
    for (const Modelo &modelo : kModelos) {
        if (m.hasMatch() && m.captured(1) == QLatin1String(modelo.nombre))
            return *modelo.numeros.begin();
    }
    return 0;
}

bool es_segunda_serie(int numero)
{
    const QString nombre = nombre_modelo(numero);
    return nombre == QLatin1String("P-715F") || nombre == QLatin1String("P-PR5F");
}

} // namespace vendrix::hasar
