#pragma once

#include "afip/invoice/pending_cae.h"

#include <QString>

#include <vector>

namespace vendrix {

class Context;
class Database;

// One row of `vendrix_cae_pendientes` as it stands.
struct CaePendiente {
    QString referencia;
    QString documento; // the sale as the recording wrote it; "" when there is none
    int tipo = 0;
    int punto_de_venta = 0;
    qint64 numero = 0; // 0: the request was never sent
    QString total;
    QString fecha;
    QString cae; // "" until AFIP authorized it
    QString cae_vto;
    QString creado;
};

// The table's name, for the recording's statements.
inline constexpr const char *kTablaCaePendientes = "vendrix_cae_pendientes";

// Writes the draft of a sale about to be invoiced under its reference, in
// place of an earlier draft that never went out. False when it couldn't be
// written, or when a request already sent stands under that reference:
// that one is settled first, never overwritten.
bool escribir_borrador_cae(Context &ctx, const QString &referencia, const QString &documento);

// The records left, oldest first; none when the table isn't there yet.
std::vector<CaePendiente> cae_pendientes(Context &ctx);

// Deletes the record of a reference. Inside a transaction the caller holds,
// it goes or stays with the rest of that transaction.
bool borrar_cae_pendiente(Database &db, const QString &referencia);

} // namespace vendrix
