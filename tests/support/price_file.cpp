#include "support/price_file.h"

#include "catalogue/pricelist/price_file_connection.h"
#include "catalogue/pricelist/price_file_format.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vendrix::test {

void ejecutar_en_archivo(const QString &path, const QStringList &statements)
{
    QString error;
    const auto db = PriceFileConnection::abrir(path, PriceFileConnection::Mode::Crear, error);
    ASSERT_TRUE(db) << path.toStdString() << ": " << error.toStdString();
    for (const QString &sql : statements)
        EXPECT_TRUE(db->ejecutar(sql.toUtf8().constData()))
            << sql.toStdString() << ": " << db->error().toStdString();
}

// The tables, lookup indexes and format version come from the code that makes
// the real files; the search index is left to the program, which makes it for
// a file that lacks it.
void crear_archivo_de_precios(const QString &path, const QStringList &statements)
{
    QFile::remove(path);
    QString error;
    {
        const auto db = PriceFileConnection::abrir(path, PriceFileConnection::Mode::Crear, error);
        ASSERT_TRUE(db) << path.toStdString() << ": " << error.toStdString();
        ASSERT_TRUE(crear_tablas_lista(*db) && crear_indices_lista(*db)) << db->error().toStdString();
    }
    ejecutar_en_archivo(path, statements);
}

} // namespace vendrix::test
