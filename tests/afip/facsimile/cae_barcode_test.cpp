#include "afip/facsimile/cae_barcode.h"
#include "afip/facsimile/facsimile_file_name.h"
#include "support/scripted_operator.h"
#include "support/zbar_reader.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

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

// A known invoice's number, its check digit 4, read back from the bars by
// an independent reader.
TEST(BarrasI2de5, KnownInvoiceGetsItsCheckDigitAndAReaderReadsItsBars)
{
    test::ScriptedOperator op;
    const QString numero =
        numero_barra_CAE(op, "20-12345678-6", "Factura", "3", "74123456789012", "2026/12/03", "B");
    EXPECT_EQ(numero, "201234567860060000374123456789012202612034");
    EXPECT_EQ(test::leer_con_zbar(barras_I2de5(numero), {"--set", "i25.enable=1"}), numero);
}

TEST(NombreArchivoFacsimil, CustomerNamesBecomeSafeFileNames)
{
    EXPECT_EQ(nombre_para_archivo("O'Brien #2/3 \"el\" Güemes: Norte-Sur Café|Bar?*<> Ça\tva"),
              "OBrien_23_el_Guemes__Norte_Sur_Cafe_Bar______a_va");
}

} // namespace
} // namespace vendrix
