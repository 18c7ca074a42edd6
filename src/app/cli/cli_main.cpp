// vendrix-cli: tools over the core for scripts, support and benchmarks.
#include "commands.h"

#include "vendrix_version.h"

#include <QCoreApplication>
#include <QTextStream>

#include <array>

using namespace vendrix::cli;

namespace {

const QStringList kFolder{QStringLiteral("--carpeta")};
const QStringList kOpcionesLista{"--salida",    "--anterior",    "--cliente", "--version",
                                 "--proveedor", "--fecha-lista", "--decimal"};
const QStringList kOpcionesDemo{"--carpeta", "--articulos", "--semilla", "--csv", "--clientes"};

const std::array kCommands{
    Command{"verificar",
            "Prepara la carpeta, abre las bases de datos y aplica las actualizaciones del esquema.", kFolder,
            cmd_verificar},
    Command{"construir-lista", "Construye una base de precios .vdrxdb con las listas CSV de los proveedores.",
            kOpcionesLista, cmd_construir_lista},
    Command{"demo", "Prepara en --carpeta un comercio de demostración para el primer inicio.", kOpcionesDemo,
            cmd_demo},
    Command{"precio", "Muestra el panel de precio de un artículo de la lista: precio ID.", kFolder,
            cmd_precio},
    Command{"buscar", "Muestra las filas que la grilla de listas daría para un texto de búsqueda.", kFolder,
            cmd_buscar},
    Command{"emular-hasar",
            "Emula una impresora fiscal Hasar en un pseudo-terminal hasta Ctrl+C: --modelo N.",
            QStringList{QStringLiteral("--modelo")}, cmd_emular_hasar},
    Command{
        "simular-afip",
        "Simula los servicios de AFIP (WSAA, WSFEv1, padrón A13) en HTTPS local hasta Ctrl+C: --puerto N, "
        "--carpeta DIR, --tienda DIR, --modo MODO, --vencido.",
        QStringList{"--puerto", "--carpeta", "--tienda", "--modo"}, cmd_simular_afip},
};

int usage(QTextStream &err)
{
    err << "Vendrix " << VENDRIX_VERSION << " - herramienta de línea de comandos\n"
        << "Uso: vendrix-cli <comando> [opciones] [--carpeta DIR]\n\nComandos:\n";
    for (const Command &c : kCommands)
        err << "  " << c.name << "\t" << QString::fromUtf8(c.help) << '\n';
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream err(stderr);
    const QStringList words = QCoreApplication::arguments();
    const QString name = words.size() > 1 ? words.at(1) : QString();
    for (const Command &c : kCommands) {
        if (name == QLatin1String(c.name))
            return c.run(parse_args(words, c.valued_options));
    }
    if (!name.isEmpty() && name != QLatin1String("--help") && name != QLatin1String("ayuda"))
        err << "Comando desconocido: " << name << '\n';
    return usage(err);
}
