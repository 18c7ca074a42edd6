#include "catalogue/support/list_fixture.h"

#include "catalogue/pricelist/price_file_connection.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vendrix::test {

std::vector<std::vector<std::optional<QString>>> filas_con_nulos(const QString &db_path, const char *sql)
{
    QString error;
    auto db = PriceFileConnection::abrir(db_path, PriceFileConnection::Mode::SoloLectura, error);
    std::vector<std::vector<std::optional<QString>>> rows;
    if (!db) {
        ADD_FAILURE() << error.toStdString();
        return rows;
    }
    PriceFileStatement query(db->db(), sql);
    EXPECT_TRUE(query.valida()) << sql << ": " << db->ultimo_error().toStdString();
    while (query.fila()) {
        std::vector<std::optional<QString>> row;
        for (int c = 0; c < query.columnas(); ++c)
            row.push_back(query.es_nulo(c) ? std::nullopt : std::optional<QString>(query.columna(c)));
        rows.push_back(std::move(row));
    }
    EXPECT_FALSE(query.fallo()) << sql;
    return rows;
}

QStringList filas(const QString &db_path, const char *sql)
{
    QStringList rows;
    for (const auto &row : filas_con_nulos(db_path, sql)) {
        QStringList columns;
        for (const std::optional<QString> &column : row)
            columns << column.value_or(QString());
        rows << columns.join(QLatin1Char('|'));
    }
    return rows;
}

QString valor(const QString &db_path, const char *sql)
{
    const QStringList rows = filas(db_path, sql);
    return rows.isEmpty() ? QString() : rows.front().section(QLatin1Char('|'), 0, 0);
}

void escribir(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate)) << path.toStdString();
    file.write(bytes);
}

QByteArray leer(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

BuildOptions opciones_lista(const QString &salida)
{
    return {
        salida, QStringLiteral("Ferretería Demo"), QStringLiteral("1.0.0"), QStringLiteral("2026-11-23"), {},
        {}};
}

SupplierList lista(const QString &proveedor, const QString &fecha, std::vector<ListArticle> articulos,
                   const QString &codigo_interno)
{
    return {proveedor, fecha, {}, codigo_interno, std::move(articulos)};
}

ListArticle articulo(const QString &codigo, const QString &descripcion, const QString &precio,
                     const QString &moneda)
{
    return {QStringLiteral("Grupo"), codigo, descripcion, QStringLiteral("Marca"),
            QStringLiteral("UN"),    precio, moneda,      QString()};
}

} // namespace vendrix::test
