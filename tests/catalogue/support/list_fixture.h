#pragma once

#include "catalogue/pricelist/price_file_format.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "support/qt_print.h"

namespace vendrix::test {

// Every row of a query on a database file, its columns joined by "|".
QStringList filas(const QString &db_path, const char *sql);
// The first column of the first row, "" when there is none.
QString valor(const QString &db_path, const char *sql);

void escribir(const QString &path, const QByteArray &bytes);

ListArticle articulo(const QString &codigo, const QString &descripcion, const QString &precio,
                       const QString &moneda = QStringLiteral("1"));

} // namespace vendrix::test
