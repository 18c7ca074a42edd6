#include "afip/facsimile/cae_barcode.h"
#include "afip/facsimile/facsimile_file_name.h"
#include "support/scripted_operator.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::ScriptedOperator;

TEST(NumeroBarraCae, KnownInvoiceGetsItsCheckDigit)
{
    ScriptedOperator op;
    EXPECT_EQ(numero_barra_CAE(op, "20-12345678-6", "Factura", "3", "74123456789012", "2026/12/03", "B"),
              "201234567860060000374123456789012202612034");
    EXPECT_EQ(
        numero_barra_CAE(op, "20123456786", "Nota de Crédito", "00003", "74123456789012", "20261203", "A"),
        "20123456786003000037412345678901220261203" +
            QString::number(digito_verificador_CAE("20123456786003000037412345678901220261203")));
    EXPECT_TRUE(op.empty());
    EXPECT_EQ(digito_verificador_CAE("0"), 0);
    EXPECT_EQ(digito_verificador_CAE("19"), 8); // 3 + 9 = 12
}

TEST(NumeroBarraCae, EachRefusalTellsWhichArgument)
{
    const QString kFin = ") no es correcto o no es un valor numerico de 14 digitos.";
    struct Caso {
        QStringList args; // cuit, tipo, punto de venta, cae, vencimiento, letra
        QString mensaje;
    } casos[] = {
        {{"2012345678", "Factura", "3", "74123456789012", "20261203", "B"},
         "El cuit ingresado como parámetro a la funcion (2012345678) no es correcto."},
        {{"20123456786", "Presupuesto", "3", "74123456789012", "20261203", "B"},
         "El tipo de comprobante ingresado como parámetro a la funcion (Presupuesto) no es correcto o no "
         "pudo "
         "ser mapeado a un valor numerico (N/A) que tenga 3 caracteres numericos."},
        {{"20123456786", "Factura", "12A", "74123456789012", "20261203", "B"},
         "El punto de venta ingresado como parámetro a la funcion (12A) no es correcto."},
        {{"20123456786", "Factura", "3", "7412345678901", "20261203", "B"},
         "El tipo CAE ingresado como parámetro a la funcion (7412345678901" + kFin},
        {{"20123456786", "Factura", "3", "74123456789012", "03-12-2026", "B"},
         "La fecha de vencimiento del CAE ingresado como parámetro a la funcion (03-12-2026" + kFin},
    };
    for (const Caso &c : casos) {
        ScriptedOperator op;
        const QStringList &a = c.args;
        EXPECT_EQ(numero_barra_CAE(op, a[0], a[1], a[2], a[3], a[4], a[5]), "") << c.mensaje.toStdString();
        EXPECT_EQ(op.lines(), QStringList{"error|Error al generar la factura|" + c.mensaje});
    }
}

TEST(BarrasI2de5, AnIndependentReaderReadsTheNumberBack)
{
    const QString zbarimg = QStandardPaths::findExecutable("zbarimg");
    ASSERT_FALSE(zbarimg.isEmpty()) << "zbarimg (zbar-tools) is needed: scripts/install-deps.sh installs it";
    const QString numero = "201234567860060000374123456789012202612034";
    QTemporaryDir dir;
    const QString png = dir.filePath("barras.png");
    ASSERT_TRUE(barras_I2de5(numero).save(png));
    QProcess zbar;
    zbar.start(zbarimg, {"--quiet", "--set", "i25.enable=1", png});
    ASSERT_TRUE(zbar.waitForFinished(20000));
    EXPECT_EQ(QString::fromUtf8(zbar.readAllStandardOutput()).trimmed(), "I2/5:" + numero);
    EXPECT_TRUE(barras_I2de5("123").isNull());
    EXPECT_TRUE(barras_I2de5("12a4").isNull());
}

TEST(NombreArchivoFacsimil, CustomerNamesBecomeSafeFileNames)
{
    const std::pair<QString, QString> casos[] = {
        {"Ñandú S.A.", "Nandu_S.A."},
        {"O'Brien #2/3 \"el\"", "OBrien_23_el"},
        {"Güemes: Norte-Sur", "Guemes__Norte_Sur"},
        {"Café|Bar?*<>", "Cafe_Bar____"},
        {"Ça\tva", "_a_va"},
        {"Pérez & Hijos", "Perez_&_Hijos"},
    };
    for (const auto &[razon, nombre] : casos)
        EXPECT_EQ(nombre_para_archivo(razon), nombre) << razon.toStdString();
    EXPECT_EQ(archivo_facsimil(15, "12", "Ñandú S.A."), "Factura_Electronica_15_0000012_Nandu_S.A..html");
}

} // namespace
} // namespace vendrix
