#include "catalogue/pricelist/build/csv_list_reader.h"
#include "catalogue/pricelist/build/list_values.h"
#include "catalogue/pricelist/demo/demo_lists.h"
#include "catalogue/support/list_fixture.h"
#include "core/cp1252.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::escribir;

QString rota(const char *file)
{
    return QStringLiteral(VENDRIX_TEST_DATA "/listas_rotas/") + QLatin1String(file);
}

TEST(LeerListaCsv, ReadsUtf8WithSemicolonsDecimalCommaAndQuotedFields)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("Ferretería_del_Sur_2026-11-20.csv"));
    // Columns out of order, with accents and blanks in their names, an unknown
    // one, a trailing separator, a blank line and a field over two lines.
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
    EXPECT_EQ(read.codificacion, QStringLiteral("UTF-8"));
    EXPECT_EQ(read.separador, QLatin1Char(';'));
    EXPECT_EQ(read.decimal, QLatin1Char(','));
    EXPECT_EQ(read.lista.proveedor, QStringLiteral("Ferretería del Sur"));
    EXPECT_EQ(read.lista.fecha, QStringLiteral("2026-11-20"));
    ASSERT_EQ(read.lista.articulos.size(), 3u);
    EXPECT_EQ(
        read.lista.articulos[0],
        (ListArticle{QStringLiteral("PLOMERÍA"), QStringLiteral("A-1"),
                       QStringLiteral("Caño 1/2\" x 4 m; termofusión"), QStringLiteral("AquaSur"),
                       QStringLiteral("TIRA"), QStringLiteral("1234.56"), QStringLiteral("1"), QString()}));
    EXPECT_EQ(read.lista.articulos[1],
              (ListArticle{QStringLiteral("PLOMERÍA"), QStringLiteral("O'H-2"),
                             QStringLiteral("Llave de paso\nreforzada"), QStringLiteral("Ñandú"),
                             QStringLiteral("UN"), QStringLiteral("12.5"), QStringLiteral("2"),
                             QStringLiteral("100% nuevo")}));
    EXPECT_EQ(read.lista.articulos[2],
              (ListArticle{QStringLiteral("VARIOS"), QString(), QStringLiteral("Sin código"), QString(),
                             QString(), QStringLiteral("0"), QStringLiteral("1"), QString()}));
}

TEST(LeerListaCsv, ReadsWindows1252WithCommasAndDecimalPoint)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("Bulonera_Ñuñoa_20-11-2026.csv"));
    escribir(path, cp1252::codificar(QStringLiteral(
                       "GRUPO,CODIGO,DESCRIPCION,MARCA,UNIDADDEMEDIDA,PRECIO,MONEDA,OBSERVACIONES\n"
                       "BULONERÍA,100,Bulón 3/8\" galvanizado,Ñandú,CAJA X 100,\"1,234.5\",101,\n"
                       "BULONERÍA,101,\"Tuerca, hexagonal\",Ñandú,UN,0.75,Pesos,\n"
                       "MÁQUINAS,102,Hormigonera 130 L,Tornado,UN,2500,102,“importada”\n")));
    const CsvRead read = leer_lista_csv(path);
    ASSERT_TRUE(read.ok()) << read.error.toStdString();
    EXPECT_EQ(read.codificacion, QStringLiteral("Windows-1252"));
    EXPECT_EQ(read.separador, QLatin1Char(','));
    EXPECT_EQ(read.decimal, QLatin1Char('.'));
    EXPECT_EQ(read.lista.proveedor, QStringLiteral("Bulonera Ñuñoa"));
    EXPECT_EQ(read.lista.fecha, QStringLiteral("2026-11-20"));
    ASSERT_EQ(read.lista.articulos.size(), 3u);
    EXPECT_EQ(read.lista.articulos[0].descripcion, QStringLiteral("Bulón 3/8\" galvanizado"));
    EXPECT_EQ(read.lista.articulos[0].precio, QStringLiteral("1234.5"));
    EXPECT_EQ(read.lista.articulos[0].moneda, QStringLiteral("101"));
    EXPECT_EQ(read.lista.articulos[1].descripcion, QStringLiteral("Tuerca, hexagonal"));
    EXPECT_EQ(read.lista.articulos[1].precio, QStringLiteral("0.75"));
    EXPECT_EQ(read.lista.articulos[1].moneda, QStringLiteral("1"));
    EXPECT_EQ(read.lista.articulos[2].grupo, QStringLiteral("MÁQUINAS"));
    EXPECT_EQ(read.lista.articulos[2].moneda, QStringLiteral("102"));
    EXPECT_EQ(read.lista.articulos[2].observaciones, QStringLiteral("“importada”"));
}

TEST(LeerListaCsv, OptionsNameTheSupplierDateAndDecimalMark)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("lista.txt"));
    escribir(path, "Codigo\tDescripcion\tPrecio\r\nX1\tTaladro\t1.500\r\n");
    EXPECT_EQ(leer_lista_csv(path).error,
              QStringLiteral(
                  "Archivo 'lista.txt': no se sabe la fecha de la lista; póngala en el nombre del archivo "
                  "(Proveedor_AAAA-MM-DD.csv) o indíquela con --fecha-lista."));

    const CsvRead read = leer_lista_csv(
        path, {QStringLiteral("Herramientas Import"), QStringLiteral("2026-10-01"), QLatin1Char('.')});
    ASSERT_TRUE(read.ok()) << read.error.toStdString();
    EXPECT_EQ(read.separador, QLatin1Char('\t'));
    EXPECT_EQ(read.lista.proveedor, QStringLiteral("Herramientas Import"));
    EXPECT_EQ(read.lista.fecha, QStringLiteral("2026-10-01"));
    EXPECT_EQ(read.lista.articulos.at(0).precio, QStringLiteral("1.5"));
}

TEST(LeerListaCsv, RefusesBadFilesNamingFileAndLine)
{
    const std::pair<const char *, const char *> casos[] = {
        {"Falta_precio_2026-11-20.csv",
         "Archivo 'Falta_precio_2026-11-20.csv', línea 1: falta la columna 'Precio' en el encabezado."},
        {"Columna_de_menos_2026-11-20.csv",
         "Archivo 'Columna_de_menos_2026-11-20.csv', línea 3: tiene 6 columnas y el encabezado tiene 8."},
        {"Precio_ilegible_2026-11-20.csv",
         "Archivo 'Precio_ilegible_2026-11-20.csv', línea 5: el precio '12,50abc' no se puede leer."},
        {"Encabezado_repetido_2026-11-20.csv",
         "Archivo 'Encabezado_repetido_2026-11-20.csv', línea 4: el encabezado aparece repetido."},
        {"Columna_repetida_2026-11-20.csv", "Archivo 'Columna_repetida_2026-11-20.csv', línea 1: la columna "
                                            "'PRECIO' está repetida en el encabezado."},
        {"Comillas_sin_cerrar_2026-11-20.csv",
         "Archivo 'Comillas_sin_cerrar_2026-11-20.csv', línea 2: hay comillas sin cerrar."},
        {"Moneda_desconocida_2026-11-20.csv", "Archivo 'Moneda_desconocida_2026-11-20.csv', línea 3: la "
                                              "moneda 'euros' no se reconoce (use 1, 2, 101 o "
                                              "102)."},
        {"Vacio_2026-11-20.csv", "Archivo 'Vacio_2026-11-20.csv': está vacío."},
        {"Sin_separador_2026-11-20.csv", "Archivo 'Sin_separador_2026-11-20.csv', línea 1: no se reconoce el "
                                         "separador de columnas (use ';' o ',')."},
        {"No_existe_2026-11-20.csv", nullptr},
    };
    for (const auto &[file, message] : casos) {
        const CsvRead read = leer_lista_csv(rota(file));
        EXPECT_FALSE(read.ok()) << file;
        if (message)
            EXPECT_EQ(read.error, QString::fromUtf8(message)) << file;
        else
            EXPECT_TRUE(read.error.startsWith(
                QStringLiteral("Archivo 'No_existe_2026-11-20.csv': no se puede abrir")))
                << read.error.toStdString();
    }
}

TEST(LeerListaCsv, ReadsBackEveryDemoListAsItWasWritten)
{
    QTemporaryDir dir;
    const DemoLists demo = generar_listas_demo(4000, 7);
    ASSERT_EQ(demo.nuevas.size(), demo.estilos.size());
    for (size_t i = 0; i < demo.nuevas.size(); ++i) {
        const SupplierList &list = demo.nuevas[i];
        const QString path = dir.filePath(QStringLiteral("lista%1.csv").arg(i));
        QString error;
        ASSERT_TRUE(escribir_lista_csv(list, path, demo.estilos[i], error)) << error.toStdString();
        const CsvRead read = leer_lista_csv(path, {list.proveedor, list.fecha, QChar()});
        ASSERT_TRUE(read.ok()) << read.error.toStdString();
        EXPECT_EQ(read.codificacion,
                  demo.estilos[i].windows_1252 ? QStringLiteral("Windows-1252") : QStringLiteral("UTF-8"));
        EXPECT_EQ(read.decimal, demo.estilos[i].decimal) << list.proveedor.toStdString();
        ASSERT_EQ(read.lista.articulos.size(), list.articulos.size());
        for (size_t k = 0; k < list.articulos.size(); ++k)
            ASSERT_EQ(read.lista.articulos[k], list.articulos[k])
                << list.proveedor.toStdString() << " #" << k;
    }
}

TEST(LeerFecha, TakesTheUsualWritings)
{
    EXPECT_EQ(leer_fecha(QStringLiteral("2026-11-20")), QStringLiteral("2026-11-20"));
    EXPECT_EQ(leer_fecha(QStringLiteral("20-11-2026")), QStringLiteral("2026-11-20"));
    EXPECT_EQ(leer_fecha(QStringLiteral("20/11/2026")), QStringLiteral("2026-11-20"));
    EXPECT_EQ(leer_fecha(QStringLiteral("20261120")), QStringLiteral("2026-11-20"));
    EXPECT_EQ(leer_fecha(QStringLiteral("2026-02-30")), QString());
    EXPECT_EQ(leer_fecha(QStringLiteral("ayer")), QString());
}

} // namespace
} // namespace vendrix
