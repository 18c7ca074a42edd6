#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace vendrix {

class Context;

// One row of a payment list as its grid shows it: the key, whether it is one
// of the rows the shop database was created with (those can't be deleted or
// edited), and the cells the operator sees, name first.
struct FilaDePago {
    qint64 id = 0;
    bool solo_lectura = false;
    QStringList celdas;

    QString nombre() const { return celdas.value(0); }
};

// The text of the hidden "READONLY" cell: a row may be deleted when it
// begins with "F".
QString texto_solo_lectura(bool solo_lectura);

// The rows of a query whose first two columns are the key and the read-only
// flag; the rest become the cells, numbers with the screen's decimal comma.
// Logs `aviso` first and keeps the busy state on while it reads. nullopt
// when the query fails (the layer has logged it).
std::optional<std::vector<FilaDePago>> leer_filas_de_pago(Context &ctx, const QString &aviso,
                                                          const QString &sql);

// What a deletion asks and tells: the question's title and text, the
// message once done and the table the row goes from.
struct BorradoDePago {
    QString tabla;
    QString titulo;
    QString pregunta;
    QString hecho;
};

// Deletes a row the operator may delete, once they say yes: a seeded row is
// left alone without a word. True when the row is gone.
bool borrar_fila_de_pago(Context &ctx, const FilaDePago &fila, const BorradoDePago &textos);

} // namespace vendrix
