// vendrix-cli construir-lista: builds a price database from suppliers' CSV lists.
#include "commands.h"
#include "console_operator.h"

#include "catalogue/pricelist/build/build_steps.h"

#include "vendrix_version.h"

#include <QDate>
#include <QFileInfo>

namespace vendrix::cli {

namespace {

const QString kTitulo = QStringLiteral("Construir lista");

// The per-file options, checked; the reason when they are wrong.
QString opciones_csv(const CliArgs &args, CsvOptions &out)
{
    out.proveedor = args.option(QStringLiteral("--proveedor"));
    const QString date = args.option(QStringLiteral("--fecha-lista"));
    if ((!out.proveedor.isEmpty() || !date.isEmpty()) && args.positional.size() > 1)
        return QStringLiteral(
            "--proveedor y --fecha-lista sirven cuando se da un solo archivo; con varios, el "
            "proveedor y la fecha salen del nombre de cada archivo (Proveedor_AAAA-MM-DD.csv).");
    if (!date.isEmpty()) {
        out.fecha = leer_fecha(date);
        if (out.fecha.isEmpty())
            return QStringLiteral("La fecha '%1' no se entiende: escríbala AAAA-MM-DD.").arg(date);
    }
    const QString mark = args.option(QStringLiteral("--decimal"));
    if (!mark.isEmpty() && mark != QLatin1String(",") && mark != QLatin1String("."))
        return QStringLiteral("--decimal es ',' o '.'.");
    if (!mark.isEmpty())
        out.decimal = mark.at(0);
    return {};
}

QString nombre_separador(QChar sep)
{
    return sep == QLatin1Char('\t') ? QStringLiteral("tabulador")
                                    : QLatin1Char('\'') + sep + QLatin1Char('\'');
}

} // namespace

int cmd_construir_lista(const CliArgs &args)
{
    ConsoleOperator op(args.flag(QStringLiteral("--si")));
    BuildRequest request;
    request.opciones.salida = args.option(QStringLiteral("--salida"));
    request.anterior = args.option(QStringLiteral("--anterior"));
    request.archivos = args.positional;
    if (request.opciones.salida.isEmpty() || (request.archivos.isEmpty() && request.anterior.isEmpty())) {
        op.error(kTitulo,
                 QStringLiteral("Uso: vendrix-cli construir-lista --salida ARCHIVO.vdrxdb [--anterior "
                                "VIEJO.vdrxdb] [--cliente NOMBRE] [--version X.Y.Z] LISTA.csv..."));
        return 2;
    }
    if (const QString wrong = opciones_csv(args, request.csv); !wrong.isEmpty()) {
        op.error(kTitulo, wrong);
        return 2;
    }
    request.opciones.cliente = args.option(QStringLiteral("--cliente"));
    request.opciones.version = args.option(QStringLiteral("--version"), QStringLiteral(VENDRIX_VERSION));
    request.opciones.fecha = QDate::currentDate().toString(Qt::ISODate);

    std::vector<CsvRead> read;
    const BuildResult built = construir_desde_archivos(request, &read);
    for (size_t i = 0; i < read.size(); ++i) {
        op.inform(kTitulo, QStringLiteral("Archivo '%1': proveedor '%2', lista del %3, %4 artículos (%5, "
                                          "separador %6, decimales con '%7').")
                               .arg(QFileInfo(request.archivos.at(static_cast<qsizetype>(i))).fileName(),
                                    read[i].lista.proveedor, read[i].lista.fecha)
                               .arg(read[i].lista.articulos.size())
                               .arg(read[i].codificacion, nombre_separador(read[i].separador),
                                    QString(read[i].decimal)));
    }
    if (!built.ok()) {
        op.error(kTitulo, built.error);
        return 1;
    }
    op.inform(kTitulo,
              QStringLiteral("Se construyó '%1' con %2 artículos de %3 proveedores (%4 sin lista nueva). "
                             "Novedades: %5 altas, %6 bajas, %7 cambios de precio, %8 cambios de "
                             "descripción; %9 precios anteriores guardados.")
                  .arg(QFileInfo(request.opciones.salida).fileName())
                  .arg(built.articulos)
                  .arg(built.proveedores)
                  .arg(built.proveedores_conservados)
                  .arg(built.altas)
                  .arg(built.bajas)
                  .arg(built.cambios_precio)
                  .arg(built.cambios_texto)
                  .arg(built.precios_viejos));
    return 0;
}

} // namespace vendrix::cli
