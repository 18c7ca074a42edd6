#include "catalogue/pricelist/build/csv_list_reader.h"
#include "catalogue/pricelist/demo/demo_lists.h"
#include "catalogue/support/list_fixture.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::escribir;

TEST(LeerListaCsv, ReadsUtf8WithSemicolonsDecimalCommaAndQuotedFields)
{
    QTemporaryDir dir;
    const QString path = dir.filePath("Ferretería_del_Sur_20-11-2026.csv");
    // The date day first; columns out of order, with accents and blanks in their names, an
    // unknown one, a trailing separator, a blank line and a field over two lines.
    escribir(path,
             QByteArray("\xEF\xBB\xBF") +
                 QStringLiteral(
                     "Código;Descripción;Rubro;Precio;Moneda;Unidad de Medida;Marca;Stock;Observaciones;\r\n"
                     "A-1;\"Caño 1/2\"\" x 4 m; termofusión\";PLOMERÍA;1.234,56;1;TIRA;AquaSur;3;;\r\n"
                     "\r\n"
                     " O'H-2 ;\"Llave de paso\r\nreforzada\";PLOMERÍA;  12,5 ;U$S;UN;Ñandú;;100% nuevo;\r\n"
                     ";Sin código;VARIOS;;;;;;;\r\n")
                     .toUtf8());
    const CsvRead read = leer_lista_csv(path);
    ASSERT_TRUE(read.ok()) << read.error.toStdString();
    EXPECT_EQ(read.codificacion + read.separador + read.decimal, "UTF-8;,");
    EXPECT_EQ(read.lista.proveedor, "Ferretería del Sur");
    EXPECT_EQ(read.lista.fecha, "2026-11-20");
    EXPECT_EQ(read.lista.articulos,
              (std::vector<ListArticle>{
                  {"PLOMERÍA", "A-1", "Caño 1/2\" x 4 m; termofusión", "AquaSur", "TIRA", "1234.56", "1", ""},
                  {"PLOMERÍA", "O'H-2", "Llave de paso\nreforzada", "Ñandú", "UN", "12.5", "2", "100% nuevo"},
                  {"VARIOS", "", "Sin código", "", "", "0", "1", ""}}));
}

TEST(LeerListaCsv, OptionsNameTheSupplierDateAndDecimalMarkAndDatesAreRead)
{
    QTemporaryDir dir;
    const QString path = dir.filePath("lista.txt");
    escribir(path, "Codigo\tDescripcion\tPrecio\r\nX1\tTaladro\t1.500\r\n");
    EXPECT_EQ(leer_lista_csv(path).error,
              "Archivo 'lista.txt': no se sabe la fecha de la lista; póngala en el nombre del archivo "
              "(Proveedor_AAAA-MM-DD.csv) o indíquela con --fecha-lista.");

    const CsvRead read = leer_lista_csv(path, {"Herramientas Import", "2026-10-01", QLatin1Char('.')});
    ASSERT_TRUE(read.ok()) << read.error.toStdString();
    EXPECT_EQ(read.separador, QLatin1Char('\t'));
    EXPECT_EQ(read.lista.proveedor + read.lista.fecha + read.lista.articulos.at(0).precio,
              "Herramientas Import2026-10-011.5");
    // The usual writings of a date.
    for (const char *date : {"2026-11-20", "20-11-2026", "20/11/2026", "20261120"})
        EXPECT_EQ(leer_fecha(date), "2026-11-20") << date;
    EXPECT_EQ(leer_fecha("2026-02-30") + leer_fecha("ayer"), QString());
}

TEST(LeerListaCsv, RefusesBadFilesNamingFileAndLine)
{
    const std::pair<const char *, const char *> casos[] = {
        {"Falta_precio", "línea 1: falta la columna 'Precio' en el encabezado."},
        {"Columna_de_menos", "línea 3: tiene 6 columnas y el encabezado tiene 8."},
        {"Precio_ilegible", "línea 5: el precio '12,50abc' no se puede leer."},
        {"Encabezado_repetido", "línea 4: el encabezado aparece repetido."},
        {"Columna_repetida", "línea 1: la columna 'PRECIO' está repetida en el encabezado."},
        {"Comillas_sin_cerrar", "línea 2: hay comillas sin cerrar."},
        {"Moneda_desconocida", "línea 3: la moneda 'euros' no se reconoce (use 1, 2, 101 o 102)."},
        {"Vacio", "está vacío."},
        {"Sin_separador", "línea 1: no se reconoce el separador de columnas (use ';' o ',')."},
        {"No_existe", "no se puede abrir"}};
    for (const auto &[name, message] : casos) {
        const QString file = QLatin1String(name) + QStringLiteral("_2026-11-20.csv");
        const CsvRead read = leer_lista_csv(QStringLiteral(VENDRIX_TEST_DATA "/listas_rotas/") + file);
        const QString expected = QStringLiteral("Archivo '%1'%2").arg(file, message[0] == 'l' ? ", " : ": ") +
                                 QString::fromUtf8(message);
        if (QLatin1String(name) == QLatin1String("No_existe"))
            EXPECT_TRUE(read.error.startsWith(expected)) << read.error.toStdString();
        else
            EXPECT_EQ(read.error, expected);
    }
}

TEST(LeerListaCsv, ReadsBackEveryDemoListAsItWasWritten)
{
    QTemporaryDir dir;
    const DemoLists demo = generar_listas_demo(4000, 7);
    for (size_t i = 0; i < demo.nuevas.size(); ++i) {
        const SupplierList &list = demo.nuevas[i];
        const QString path = dir.filePath(QStringLiteral("lista%1.csv").arg(i));
        QString error;
        ASSERT_TRUE(escribir_lista_csv(list, path, demo.estilos[i], error)) << error.toStdString();
        const CsvRead read = leer_lista_csv(path, {list.proveedor, list.fecha, QChar()});
        EXPECT_TRUE(read.ok() && read.lista.articulos == list.articulos &&
                    read.decimal == demo.estilos[i].decimal)
            << list.proveedor.toStdString() << read.error.toStdString();
        EXPECT_EQ(read.codificacion, demo.estilos[i].windows_1252 ? "Windows-1252" : "UTF-8");
    }
}

} // namespace
} // namespace vendrix
