#include "afip/invoice/invoice_codes.h"

#include "core/context.h"

#include <QList>

namespace vendrix {

QString condicion_iva_emisor(const Context &ctx)
{
    const QString letra = ctx.leer_parametro(QStringLiteral("IF_tipo_IVA")).left(1);
    return letra.isEmpty() ? QStringLiteral("M") : letra;
}

namespace {

// The conditions of FEParamGetCondicionIvaReceptor by the classes that
// admit them ("A/M/C" and "B/C").
const QList<int> kReceptoresA{1, 6, 13, 16};
const QList<int> kReceptoresB{4, 5, 7, 8, 9, 10, 15};

} // namespace

QString codigo_condicion_IVA(const QString &letra)
{
    static const QList<std::pair<QString, QString>> codigos{{"F", "5"}, {"I", "1"}, {"N", "3"}, {"M", "6"},
                                                            {"E", "4"}, {"S", "7"}, {"A", "15"}};
    for (const auto &[l, codigo] : codigos) {
        if (l == letra)
            return codigo;
    }
    return {};
}

QString tipo_comprobante_AFIP(const QString &letra, const QString &tipo)
{
    const int i = QStringList{"A", "B", "C"}.indexOf(letra);
    if (i < 0)
        return QStringLiteral("N/A");
    if (tipo == QLatin1String("Factura"))
        return QStringList{"001", "006", "011"}.at(i);
    if (tipo == QStringLiteral("Nota de Crédito"))
        return QStringList{"003", "008", "013"}.at(i);
    return QStringLiteral("N/A");
}

int tipo_comprobante_factura(const QString &letra, bool es_nota_de_credito)
{
    if (letra == QLatin1String("A"))
        return es_nota_de_credito ? 3 : 1;
    // A credit note of letter B goes out under the invoice's class in this
    // path; the credit notes' own operation sends 8.
    if (letra == QLatin1String("B"))
        return 6;
    if (letra == QLatin1String("C"))
        return es_nota_de_credito ? 13 : 11;
    return 0;
}

int condicion_iva_receptor(const QString &letra, const QString &iva_comprador)
{
    const int codigo = codigo_condicion_IVA(iva_comprador).toInt();
    const bool para_a = kReceptoresA.contains(codigo);
    const bool para_b = kReceptoresB.contains(codigo);
    if (letra == QLatin1String("A"))
        return para_a ? codigo : 1;
    if (letra == QLatin1String("C") && para_a)
        return codigo;
    return para_b ? codigo : 5;
}

} // namespace vendrix
