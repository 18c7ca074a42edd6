#pragma once

#include <QString>

namespace vendrix {

class Context;

// A price database handed to the program on its command line (a
// double-clicked `.vdrxdb` file) replaces the folder's list before the
// start-up goes on.

// True when the text behind the command line's last "." (double quotes
// removed) is exactly `vdrxdb`.
bool es_archivo_de_listas(const QString &command_line);

// The write-permission probe of a folder: a file can be made in it and
// deleted again.
bool puede_escribir_carpeta(const QString &dir);

enum class FinImportacion { continuar, terminar };

// Asks the operator, replaces `Vendrix.vdrxdb` with the file, copies the
// shop's own articles into the new list and adds the list's suppliers to the
// shop's customers. A "No", or a folder the program can't write, ends the
// run with the old list in place; a file that can't be read as a price list
// leaves the old list and lets the run go on.
FinImportacion importar_listas(Context &ctx, const QString &command_line);

} // namespace vendrix
