#include "backoffice/customers/customer_kinds.h"

#include "catalogue/search/search_index.h"
#include "core/database.h"
#include "core/numeric.h"

#include <sqlite3.h>

namespace vendrix {

namespace {

void plegar_sql(sqlite3_context *context, int, sqlite3_value **argv)
{
    sqlite3_value *valor = argv[0];
    if (sqlite3_value_type(valor) == SQLITE_NULL) {
        sqlite3_result_null(context);
        return;
    }
    const auto *texto = reinterpret_cast<const char *>(sqlite3_value_text(valor));
    const int bytes = sqlite3_value_bytes(valor);
    // LIKE already ignores the case of ASCII letters: a plain ASCII text
    // (most names) goes back as it came, without a copy.
    bool ascii = true;
    for (int i = 0; i < bytes && ascii; ++i)
        ascii = static_cast<unsigned char>(texto[i]) < 0x80;
    if (ascii) {
        sqlite3_result_value(context, valor);
        return;
    }
    const QByteArray plegado = plegar_texto(QString::fromUtf8(texto, bytes)).toUtf8();
    sqlite3_result_text(context, plegado.constData(), static_cast<int>(plegado.size()), SQLITE_TRANSIENT);
}

} // namespace

QStringList tipos_de_registro()
{
    return {kCliente, kProveedorMercaderia, QStringLiteral("Proveedor Servicios"),
            QStringLiteral("Proveedor Varios")};
}

QStringList condiciones_iva_clipro()
{
    return {kConsumidorFinal,
            QStringLiteral("I - IVA RESPONSABLE INSCRIPTO"),
            QStringLiteral("N - IVA NO RESPONSABLE"),
            QStringLiteral("E - IVA EXENTO"),
            QStringLiteral("M - RESPONSABLE MONOTRIBUTO"),
            QStringLiteral("S - SUJETO NO CATEGORIZADO"),
            QStringLiteral("A - IVA NO ALCANZADO")};
}

QStringList columnas_clipro()
{
    return {QStringLiteral("ID"),
            QStringLiteral("TIPO"),
            QStringLiteral("Razón Social"),
            QStringLiteral("Tipo Documento"),
            QStringLiteral("Número de Documento"),
            QStringLiteral("Condición frente al IVA "),
            QStringLiteral("Domicilio"),
            QStringLiteral("Localidad")};
}

bool lleva_descuento(const QString &tipo_registro)
{
    return tipo_registro != kProveedorMercaderia;
}

double descuento_a_guardar(const QString &texto)
{
    return es_numerico(texto) ? valor_texto(texto) : 0.0;
}

bool registrar_plegado(Database &db)
{
    sqlite3 *conexion = db.conexion(kClientes);
    if (!conexion)
        return false;
    // Redefining fails (busy) while a statement of the connection is open;
    // the function is then already there, so the result doesn't matter.
    sqlite3_create_function_v2(conexion, "plegar", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, plegar_sql,
                               nullptr, nullptr, nullptr);
    return true;
}

} // namespace vendrix
