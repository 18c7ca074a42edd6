#include "support/price_file.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace vendrix::test {

void ejecutar_en_archivo(const QString &path, const QStringList &statements)
{
    sqlite3 *db = nullptr;
    ASSERT_EQ(sqlite3_open_v2(QFile::encodeName(path).constData(), &db,
                              SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr),
              SQLITE_OK);
    for (const QString &sql : statements) {
        char *message = nullptr;
        const int rc = sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, &message);
        EXPECT_EQ(rc, SQLITE_OK) << sql.toStdString() << ": " << (message ? message : "");
        sqlite3_free(message);
    }
    sqlite3_close(db);
}

void crear_archivo_de_precios(const QString &path, const QStringList &statements)
{
    QFile::remove(path);
    const QString list_fields = QStringLiteral(
        " (ID INTEGER PRIMARY KEY AUTOINCREMENT, Proveedor TEXT, FechaLista TEXT, Grupo TEXT, Codigo TEXT, "
        "Descripcion TEXT, Marca TEXT, UnidaddeMedida TEXT, Precio TEXT, Moneda TEXT, Observaciones TEXT)");
    ejecutar_en_archivo(path,
                        QStringList{QStringLiteral("CREATE TABLE xls_listas") + list_fields,
                                    QStringLiteral("CREATE TABLE xls_listas_viejos") + list_fields,
                                    QStringLiteral("CREATE TABLE xls_proveedores (Proveedor TEXT, "
                                                   "Ult_Actualizacion TEXT)"),
                                    QStringLiteral("CREATE TABLE xls_parametros (CLAVE TEXT, VALOR TEXT)")} +
                            statements);
}

} // namespace vendrix::test
