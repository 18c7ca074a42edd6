#include "afip/simulator/voucher_checks.h"

#include "afip/simulator/xml_tree.h"

#include <QMap>

#include <cmath>

namespace vendrix::simulador {

namespace {

// The rates of the AlicIva ids AFIP's FEParamGetTiposIva lists.
const QMap<int, double> &alicuotas()
{
    static const QMap<int, double> tasas{{3, 0.0}, {4, 0.105}, {5, 0.21}, {6, 0.27}, {8, 0.05}, {9, 0.025}};
    return tasas;
}

bool iguales(double a, double b)
{
    return std::fabs(a - b) <= 0.01 + 1e-9;
}

double redondear(double valor)
{
    return std::round(valor * 100.0) / 100.0;
}

// Reads the amounts it is asked for, noting those that aren't numbers.
struct Importes {
    QList<ErrorAfip> &errores;

    double leer(const NodoXml &nodo, const QString &nombre)
    {
        bool ok = false;
        const double valor = nodo.texto_de(nombre).toDouble(&ok);
        if (!ok)
            errores.append(
                {kErrorEsquema,
                 QStringLiteral("El campo %1 de %2 no es un importe valido.").arg(nombre, nodo.nombre)});
        return ok ? valor : 0.0;
    }
};

void revisar_iva(const NodoXml &detalle, double neto, double iva, QList<ErrorAfip> &errores)
{
    const NodoXml *bloque = detalle.hijo(QStringLiteral("Iva"));
    if (!bloque) {
        if (iva > 0)
            errores.append({10018, QStringLiteral("Si ImpIva es mayor a 0 el objeto Iva es obligatorio.")});
        return;
    }
    Importes importes{errores};
    double bases = 0;
    double montos = 0;
    for (const NodoXml &alic : bloque->hijos) {
        errores += revisar_orden(alic, {"Id", "BaseImp", "Importe"}, {"Id", "BaseImp", "Importe"});
        const double base = importes.leer(alic, QStringLiteral("BaseImp"));
        const double importe = importes.leer(alic, QStringLiteral("Importe"));
        bases += base;
        montos += importe;
        const int id = alic.texto_de(QStringLiteral("Id")).toInt();
        if (!alicuotas().contains(id))
            errores.append(
                {10019, QStringLiteral("El campo Id de AlicIva (%1) no corresponde a una alicuota vigente. "
                                       "Consultar metodo FEParamGetTiposIva.")
                            .arg(alic.texto_de(QStringLiteral("Id")))});
        else if (!iguales(importe, redondear(base * alicuotas().value(id))))
            errores.append(
                {10051, QStringLiteral("Los importes informados en AlicIva no se corresponden con los "
                                       "porcentajes. Id %1: BaseImp %2, Importe %3.")
                            .arg(id)
                            .arg(base, 0, 'f', 2)
                            .arg(importe, 0, 'f', 2)});
    }
    if (!iguales(montos, iva))
        errores.append(
            {10023,
             QStringLiteral("El campo ImpIVA debe ser igual a la suma de los importes del array AlicIva.")});
    if (!iguales(bases, neto))
        errores.append(
            {10061, QStringLiteral("La suma de los campos BaseImp en AlicIva debe ser igual al valor "
                                   "ingresado en ImpNeto.")});
}

} // namespace

const QStringList &orden_detalle()
{
    static const QStringList orden{"Concepto",
                                   "DocTipo",
                                   "DocNro",
                                   "CbteDesde",
                                   "CbteHasta",
                                   "CbteFch",
                                   "ImpTotal",
                                   "ImpTotConc",
                                   "ImpNeto",
                                   "ImpOpEx",
                                   "ImpTrib",
                                   "ImpIVA",
                                   "FchServDesde",
                                   "FchServHasta",
                                   "FchVtoPago",
                                   "MonId",
                                   "MonCotiz",
                                   "CanMisMonExt",
                                   "CondicionIVAReceptorId",
                                   "CbtesAsoc",
                                   "Tributos",
                                   "Iva",
                                   "Opcionales",
                                   "Compradores",
                                   "PeriodoAsoc",
                                   "Actividades"};
    return orden;
}

QList<ErrorAfip> revisar_orden(const NodoXml &nodo, const QStringList &orden, const QStringList &obligatorios)
{
    QList<ErrorAfip> errores;
    qsizetype anterior = -1;
    for (const NodoXml &h : nodo.hijos) {
        const qsizetype lugar = orden.indexOf(h.nombre);
        if (lugar < 0)
            errores.append(
                {kErrorEsquema,
                 QStringLiteral("El elemento %1 no corresponde en %2.").arg(h.nombre, nodo.nombre)});
        else if (lugar <= anterior)
            errores.append(
                {kErrorEsquema, QStringLiteral("El elemento %1 de %2 no respeta el orden del esquema: "
                                               "debe ir antes de %3.")
                                    .arg(h.nombre, nodo.nombre, orden.at(anterior))});
        else
            anterior = lugar;
    }
    for (const QString &nombre : obligatorios) {
        if (!nodo.hijo(nombre))
            errores.append(
                {kErrorEsquema,
                 QStringLiteral("Falta el elemento obligatorio %1 en %2.").arg(nombre, nodo.nombre)});
    }
    return errores;
}

QList<ErrorAfip> revisar_detalle(const NodoXml &detalle)
{
    static const QStringList obligatorios{"Concepto", "DocTipo",    "DocNro",  "CbteDesde", "CbteHasta",
                                          "ImpTotal", "ImpTotConc", "ImpNeto", "ImpOpEx",   "ImpTrib",
                                          "ImpIVA",   "MonId",      "MonCotiz"};
    QList<ErrorAfip> errores = revisar_orden(detalle, orden_detalle(), obligatorios);
    if (!errores.isEmpty())
        return errores;
    Importes importes{errores};
    const double total = importes.leer(detalle, QStringLiteral("ImpTotal"));
    const double no_gravado = importes.leer(detalle, QStringLiteral("ImpTotConc"));
    const double neto = importes.leer(detalle, QStringLiteral("ImpNeto"));
    const double exento = importes.leer(detalle, QStringLiteral("ImpOpEx"));
    const double tributos = importes.leer(detalle, QStringLiteral("ImpTrib"));
    const double iva = importes.leer(detalle, QStringLiteral("ImpIVA"));
    if (!errores.isEmpty())
        return errores;
    if (!iguales(total, no_gravado + neto + exento + tributos + iva))
        errores.append(
            {10048, QStringLiteral("El campo 'Importe Total' ImpTotal, debe ser igual a la suma de "
                                   "ImpTotConc + ImpNeto + ImpOpEx + ImpTrib + ImpIVA.")});
    revisar_iva(detalle, neto, iva, errores);
    double suma_tributos = 0;
    if (const NodoXml *bloque = detalle.hijo(QStringLiteral("Tributos"))) {
        for (const NodoXml &tributo : bloque->hijos)
            suma_tributos += importes.leer(tributo, QStringLiteral("Importe"));
    }
    if (!iguales(suma_tributos, tributos))
        errores.append({10029, QStringLiteral("El campo ImpTrib debe ser igual a la suma de los importes del "
                                              "array Tributos.")});
    return errores;
}

QString importe_afip(const QString &texto)
{
    bool ok = false;
    const double valor = texto.toDouble(&ok);
    if (!ok)
        return texto;
    QString salida = QString::number(valor, 'f', 2);
    while (salida.contains(QLatin1Char('.')) &&
           (salida.endsWith(QLatin1Char('0')) || salida.endsWith(QLatin1Char('.'))))
        salida.chop(1);
    return salida;
}

} // namespace vendrix::simulador
