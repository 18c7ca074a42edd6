#pragma once

#include <QString>
#include <QStringList>

namespace vendrix::test {

// Writes an empty price database at `path` with the tables and format
// version of the files the list builder makes, then runs the given
// statements on it (rows to insert, say). Fails the test when a statement
// fails.
void crear_archivo_de_precios(const QString &path, const QStringList &statements = {});

// Runs statements straight on a database file, outside the program's layer:
// to set up a case the program itself would not make.
void ejecutar_en_archivo(const QString &path, const QStringList &statements);

} // namespace vendrix::test
