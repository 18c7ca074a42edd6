#include "afip/facsimile/cae_barcode.h"
#include "afip/facsimile/facsimile_file_name.h"
#include "support/scripted_operator.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

TEST(NumeroBarraCae, KnownInvoiceGetsItsCheckDigit)
{
    test::ScriptedOperator op;
    EXPECT_EQ(numero_barra_CAE(op, "20-12345678-6", "Factura", "3", "74123456789012", "2026/12/03", "B"),
              "201234567860060000374123456789012202612034");
}

TEST(NumeroBarraCae, EachRefusalTellsWhichArgument)
{
    const QString kFin = ") no es correcto o no es un valor numerico de 14 digitos.";
    // cuit|tipo|punto de venta|cae|vencimiento|letra, and what the operator is told.
    const std::pair<QString, QString> casos[] = {
        {"2012345678|Factura|3|74123456789012|20261203|B",
         "El cuit ingresado como parámetro a la funcion (2012345678) no es correcto."},
        {"20123456786|Presupuesto|3|74123456789012|20261203|B",
         "El tipo de comprobante ingresado como parámetro a la funcion (Presupuesto) no es correcto o no "
         "pudo ser mapeado a un valor numerico (N/A) que tenga 3 caracteres numericos."},
        {"20123456786|Factura|12A|74123456789012|20261203|B",
         "El punto de venta ingresado como parámetro a la funcion (12A) no es correcto."},
        {"20123456786|Factura|3|7412345678901|20261203|B",
         "El tipo CAE ingresado como parámetro a la funcion (7412345678901" + kFin},
        {"20123456786|Factura|3|74123456789012|03-12-2026|B",
         "La fecha de vencimiento del CAE ingresado como parámetro a la funcion (03-12-2026" + kFin},
    };
    for (const auto &[argumentos, mensaje] : casos) {
        test::ScriptedOperator op;
        const QStringList a = argumentos.split('|');
        EXPECT_EQ(numero_barra_CAE(op, a[0], a[1], a[2], a[3], a[4], a[5]), "") << mensaje.toStdString();
        EXPECT_EQ(op.lines(), QStringList{"error|Error al generar la factura|" + mensaje});
    }
}

TEST(BarrasI2de5, AnIndependentReaderReadsTheNumberBack)
{
    const QString zbarimg = QStandardPaths::findExecutable("zbarimg");
    ASSERT_FALSE(zbarimg.isEmpty()) << "zbarimg (zbar-tools) is missing";
    const QString numero = "201234567860060000374123456789012202612034";
    QTemporaryDir dir;
    ASSERT_TRUE(barras_I2de5(numero).save(dir.filePath("b.png")));
    QProcess zbar;
    zbar.start(zbarimg, {"--quiet", "--set", "i25.enable=1", dir.filePath("b.png")});
    ASSERT_TRUE(zbar.waitForFinished(20000));
    EXPECT_EQ(QString::fromUtf8(zbar.readAllStandardOutput()).trimmed(), "I2/5:" + numero);
}

TEST(NombreArchivoFacsimil, CustomerNamesBecomeSafeFileNames)
{
    const std::pair<QString, QString> casos[] = {
        {"O'Brien #2/3 \"el\"", "OBrien_23_el"},
        {"Güemes: Norte-Sur", "Guemes__Norte_Sur"},
        {"Café|Bar?*<>", "Cafe_Bar____"},
        {"Ça\tva", "_a_va"},
    };
    for (const auto &[razon, nombre] : casos)
        EXPECT_EQ(nombre_para_archivo(razon), nombre) << razon.toStdString();
}

} // namespace
} // namespace vendrix
