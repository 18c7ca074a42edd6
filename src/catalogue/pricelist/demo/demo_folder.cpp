#include "catalogue/pricelist/demo/demo_lists.h"

#include "catalogue/pricelist/build/extra_rows.h"
#include "core/settings.h"
#include "core/startup_files.h"

#include <QDir>
#include <QFile>

namespace vendrix {

namespace {

QString escribir_archivo(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        return QStringLiteral("No se puede escribir '%1': %2").arg(path, file.errorString());
    return {};
}

QString copiar_semilla(const QString &from, const QString &to)
{
    if (from.isEmpty() || !QFile::exists(from))
        return QStringLiteral("No se encuentra la base de clientes inicial 'clientes.install'%1.")
            .arg(from.isEmpty() ? QString() : QStringLiteral(" en '%1'").arg(from));
    QFile::remove(to);
    if (!QFile::copy(from, to))
        return QStringLiteral("No se puede copiar '%1' a '%2'.").arg(from, to);
    QFile::setPermissions(to, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    return {};
}

// The file name of a supplier's list: "Nombre_del_proveedor_AAAA-MM-DD.csv",
// with what a file name can't hold made plain.
QString nombre_csv(const SupplierList &lista)
{
    QString name = lista.proveedor;
    name.replace(QLatin1Char('/'), QLatin1Char('-')).replace(QLatin1Char(' '), QLatin1Char('_'));
    return name + QLatin1Char('_') + lista.fecha + QStringLiteral(".csv");
}

QString escribir_csvs(const DemoLists &demo, const QString &folder)
{
    if (!QDir().mkpath(folder))
        return QStringLiteral("No se puede crear la carpeta '%1'.").arg(folder);
    QString error;
    for (size_t i = 0; i < demo.nuevas.size(); ++i) {
        if (!escribir_lista_csv(demo.nuevas[i], QDir(folder).filePath(nombre_csv(demo.nuevas[i])),
                                demo.estilos[i], error))
            return error;
    }
    return {};
}

// The settings of a first run, with a dollar rate of today's order so that
// the lists in dollars show real prices. A folder that already has its
// settings keeps them.
QString escribir_ajustes(const QDir &folder, const QString &version)
{
    const Settings ajustes(folder.filePath(QStringLiteral("Config.vdrx")));
    if (QFile::exists(ajustes.path()))
        return {};
    if (!ajustes.crear_por_defecto(version) ||
        !ajustes.escribir_parametro(QStringLiteral("Valor_Dolar"), QString::fromLatin1(kDolarDemo)))
        return QStringLiteral("No se puede escribir '%1'.").arg(ajustes.path());
    return {};
}

} // namespace

DemoResult crear_carpeta_demo(const DemoOptions &opciones)
{
    DemoResult result;
    const QDir folder(opciones.carpeta);
    if (!QDir().mkpath(opciones.carpeta)) {
        result.error = QStringLiteral("No se puede crear la carpeta '%1'.").arg(opciones.carpeta);
        return result;
    }
    result.error =
        copiar_semilla(opciones.semilla_clientes, folder.filePath(QStringLiteral("clientes.install")));
    if (!result.ok())
        return result;

    DemoLists demo = generar_listas_demo(opciones.articulos, opciones.semilla);
    if (!opciones.carpeta_csv.isEmpty()) {
        result.error = escribir_csvs(demo, opciones.carpeta_csv);
        if (!result.ok())
            return result;
    }
    BuildOptions build{folder.filePath(QStringLiteral("Vendrix.install")),
                       opciones.cliente,
                       opciones.version,
                       opciones.fecha,
                       reportes_predeterminados(),
                       tips_predeterminados(opciones.version)};
    result.lista = construir_lista(build, demo.nuevas, &demo.anterior);
    result.error = result.lista.error;
    if (!result.ok())
        return result;
    result.error = escribir_archivo(folder.filePath(QStringLiteral("factura.install")), plantilla_factura());
    if (!result.ok())
        return result;
    // The invoice request ships with the program: a demo shop can invoice
    // in the test environment as it stands.
    result.error = escribir_archivo(folder.filePath(QStringLiteral("wsaa_cae.xml")),
                                    texto_plantilla_fe(QStringLiteral("wsaa_cae.xml")));
    if (!result.ok())
        return result;
    result.error = escribir_ajustes(folder, opciones.version);
    return result;
}

} // namespace vendrix
