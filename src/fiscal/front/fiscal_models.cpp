#include "fiscal/front/fiscal_models.h"

namespace vendrix {

QStringList modelos_impresora()
{
    return {QString::fromLatin1(kModeloElectronica),
            QString::fromLatin1(kModeloEpsonT900),
            QString::fromLatin1(kModeloEpsonU220),
            QString::fromLatin1(kModeloEpson),
            QStringLiteral("NCR 3140"),
            QStringLiteral("Samsung Bixolon"),
            QString::fromLatin1(kModeloHasar),
            QStringLiteral("NCR"),
            QStringLiteral("Olivetti"),
            QStringLiteral("Sin impresora")};
}

FamiliaFiscal familia_de_modelo(const QString &modelo)
{
    if (modelo == QLatin1String(kModeloEpson))
        return FamiliaFiscal::Epson;
    if (modelo == QLatin1String(kModeloEpsonT900))
        return FamiliaFiscal::EpsonT900;
    if (modelo == QLatin1String(kModeloEpsonU220))
        return FamiliaFiscal::EpsonU220;
    if (modelo == QLatin1String(kModeloHasar))
        return FamiliaFiscal::Hasar;
    if (modelo == QLatin1String(kModeloElectronica))
        return FamiliaFiscal::Electronica;
    return FamiliaFiscal::SinCodigo;
}

bool es_epson_dll(FamiliaFiscal familia)
{
    return familia == FamiliaFiscal::EpsonT900 || familia == FamiliaFiscal::EpsonU220;
}

QString palabra_disposicion(const QString &modelo)
{
    if (modelo.contains(QLatin1String("Epson")) || modelo.contains(QLatin1String("Hasar")))
        return QStringLiteral("achicar");
    if (modelo == QLatin1String(kModeloElectronica))
        return QStringLiteral("Factura Electronica");
    return QStringLiteral("agrandar");
}

} // namespace vendrix
