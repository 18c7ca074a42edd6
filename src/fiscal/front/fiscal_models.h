#pragma once

#include "fiscal/fiscal_device.h"

#include <QString>
#include <QStringList>

namespace vendrix {

// The model texts of `IF_Modelo` that have code behind them.
inline constexpr const char *kModeloElectronica = "Factura Electronica A.F.I.P.";
inline constexpr const char *kModeloEpsonT900 = "Epson TM-T900FA";
inline constexpr const char *kModeloEpsonU220 = "Epson TM-U220AFII";
inline constexpr const char *kModeloEpson = "Epson";
inline constexpr const char *kModeloHasar = "Hasar";

// The models of the model combo, in their order.
QStringList modelos_impresora();

// The family a model text belongs to: an exact comparison of the text, so
// any other model (and a misspelt one) has no code behind it.
FamiliaFiscal familia_de_modelo(const QString &modelo);

// The two Epson models driven through the maker's library, whose
// connection the front keeps track of.
bool es_epson_dll(FamiliaFiscal familia);

// The word that lays out the configuration screen for a model: "achicar"
// for the printers that number their own documents, "Factura Electronica"
// for AFIP, "agrandar" for the models whose next numbers the shop keeps.
QString palabra_disposicion(const QString &modelo);

} // namespace vendrix
