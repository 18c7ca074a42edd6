#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace vendrix {

class Context;

// One stored document as the list to open it from shows it.
struct DocumentoGuardado {
    QString id;
    QString fecha;  // "dd/mm/yyyy"
    QString nombre; // the business name, or the customer's IVA condition when it has none
    QString referencia;
    QString tipo;
    QString total; // with two decimals
};

// Every document of the shop database, newest first. Null when the query
// failed: the operator has been told.
std::optional<std::vector<DocumentoGuardado>> documentos_guardados(Context &ctx);

// What the operator is told before a sale goes back into a cart: its
// discounts and surcharges don't come with it. "" for other documents.
QString aviso_al_cargar(const QString &tipo);

} // namespace vendrix
