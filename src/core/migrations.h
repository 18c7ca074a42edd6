#pragma once

#include <QStringList>

namespace vendrix {

class Context;

// What one run of the schema updates did: the start-up's log line of each
// update that ran, and of each one whose action failed (it is tried again at
// the next run, since its probe still fails).
struct ResultadoMigraciones {
    QStringList aplicadas;
    QStringList fallidas;
};

// Brings the shop database of any age up to today's shape. There is no
// version number: each update probes whether its table, column or file is
// there, in a fixed order, and acts only when it isn't. Every run logs the
// "Verifica ..." line of each probe at "I"; an update that runs logs its
// lines at "A". An update of several statements runs in one transaction.
ResultadoMigraciones ejecutar_migraciones(Context &ctx);

} // namespace vendrix
