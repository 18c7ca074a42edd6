#pragma once

#include <QString>
#include <QStringList>

namespace vendrix {

class Context;

// The settings of the printer screen, apart from its widgets.

inline constexpr const char *kIvaInscripto = "I - IVA RESPONSABLE INSCRIPTO";
inline constexpr const char *kIvaMonotributo = "M - RESPONSABLE MONOTRIBUTO";

QStringList velocidades_impresora();
QStringList descripciones_articulo();
QStringList modos_operacion_fe();

// Stores a key of the printer screen and logs the change under `clave_log`
// (the key itself when empty).
void guardar_ajuste_impresora(Context &ctx, const QString &clave, const QString &valor,
                              const QString &clave_log = {});

// The value a maximum field shows: the stored one when it is a number;
// otherwise the default, which is then stored and the correction logged.
QString corregir_maximo(Context &ctx, const QString &clave, const QString &por_defecto);

// The shop's IVA condition list with the current one first; anything but
// the monotributo counts as registered.
QStringList items_condicion_iva(const QString &actual);
// With a registered shop the A and B numbers are in use, with a
// monotributo the C numbers.
bool usa_letras_a_b(const QString &condicion);

// `IF_IDFiscal` keeps its line ends as "|".
QString id_fiscal_a_texto(const QString &guardado);
QString id_fiscal_a_guardar(const QString &texto);

// A file chosen for a command line must have no blank in its path.
bool ruta_con_espacios(const QString &ruta);

} // namespace vendrix
