#pragma once

#include "catalogue/pricelist/build/price_file_builder.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

#include "support/qt_print.h"

namespace vendrix::test {

// Every row of a query on a database file, each column NULL or text.
std::vector<std::vector<std::optional<QString>>> filas_con_nulos(const QString &db_path, const char *sql);
// Every row of a query on a database file, its columns joined by "|".
QStringList filas(const QString &db_path, const char *sql);
// The first column of the first row, "" when there is none.
QString valor(const QString &db_path, const char *sql);

void escribir(const QString &path, const QByteArray &bytes);
// The bytes of a file, none when it can't be read.
QByteArray leer(const QString &path);

// What a build for the shop "Ferretería Demo" on 2026-11-23 is asked, version 1.0.0.
BuildOptions opciones_lista(const QString &salida);

// A supplier's list as the builder takes it.
SupplierList lista(const QString &proveedor, const QString &fecha, std::vector<ListArticle> articulos,
                   const QString &codigo_interno = {});
ListArticle articulo(const QString &codigo, const QString &descripcion, const QString &precio,
                     const QString &moneda = QStringLiteral("1"));

} // namespace vendrix::test
