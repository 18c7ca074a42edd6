// vendrix-cli demo: fills an application folder with a demo shop.
#include "commands.h"
#include "console_operator.h"

#include "catalogue/pricelist/demo/demo_lists.h"

#include "vendrix_version.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFile>

namespace vendrix::cli {

namespace {

const QString kTitulo = QStringLiteral("Demo");

// The built shop seed: named by `--clientes`, or beside the tool (an
// installed program), or in the build tree the tool was built in.
QString semilla_clientes(const CliArgs &args)
{
    const QString given = args.option(QStringLiteral("--clientes"));
    if (!given.isEmpty())
        return given;
    const QString beside =
        QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("clientes.install"));
    if (QFile::exists(beside))
        return beside;
    return QStringLiteral(VENDRIX_SEED_DIR "/clientes.install");
}

} // namespace

int cmd_demo(const CliArgs &args)
{
    ConsoleOperator op(args.flag(QStringLiteral("--si")));
    DemoOptions options;
    bool ok = true;
    options.articulos =
        args.option(QStringLiteral("--articulos"), QString::number(kArticulosDemo)).toInt(&ok);
    if (!ok || options.articulos <= 0) {
        op.error(kTitulo, QStringLiteral("--articulos es un número mayor que cero."));
        return 2;
    }
    options.semilla =
        args.option(QStringLiteral("--semilla"), QString::number(kSemillaDemo)).toULongLong(&ok);
    if (!ok) {
        op.error(kTitulo, QStringLiteral("--semilla es un número entero sin signo."));
        return 2;
    }
    options.carpeta = args.carpeta();
    options.cliente = QStringLiteral("Ferretería y Bazar Demo");
    options.version = QStringLiteral(VENDRIX_VERSION);
    options.fecha = QDate::currentDate().toString(Qt::ISODate);
    options.semilla_clientes = semilla_clientes(args);
    options.carpeta_csv = args.option(QStringLiteral("--csv"));

    const DemoResult made = crear_carpeta_demo(options);
    if (!made.ok()) {
        op.error(kTitulo, made.error);
        return 1;
    }
    op.inform(kTitulo,
              QStringLiteral("Se preparó la carpeta '%1': Vendrix.install con %2 artículos de %3 "
                             "proveedores, clientes.install, factura.install, wsaa_cae.xml y Config.vdrx "
                             "(dólar a %4).")
                  .arg(QDir::toNativeSeparators(options.carpeta))
                  .arg(made.lista.articulos)
                  .arg(made.lista.proveedores)
                  .arg(QString::fromLatin1(kDolarDemo)));
    return 0;
}

} // namespace vendrix::cli
