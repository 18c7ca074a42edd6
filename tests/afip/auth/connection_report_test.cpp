#include "afip/auth/certificate_checks.h"
#include "afip/auth/connection_report.h"
#include "afip/fake_afip.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

class ConnectionReportTest : public ::testing::Test, public test::AfipFixture {};

// The ticket and report tests cover the results; here the files and an
// unreadable certificate, which must not leave an old result behind.
TEST_F(ConnectionReportTest, CertificateChecksWriteTheirFilesAndForgetOldOnes)
{
    fin_certificado = QDateTime(QDate(2026, 12, 5), QTime(12, 0), Qt::UTC);
    EXPECT_FALSE(certificado_vigente_30(s));
    EXPECT_EQ(app.read_file("cert30dias.txt"), "Certificate will expire\n");
    EXPECT_EQ(certificado_fecha_vto(s), "Dec  5  2026");
    EXPECT_EQ(app.read_file("fechavtocert.txt"), "notAfter=Dec  5 12:00:00 2026 GMT\n");
    fin_certificado = QDateTime();
    EXPECT_FALSE(certificado_vigente(s) || QFile::exists(app.ruta("certvalido.txt")));
    EXPECT_EQ(certificado_fecha_vto(s), "");
    EXPECT_FALSE(QFile::exists(app.ruta("fechavtocert.txt")));
}

// All well is tried against the simulator; here all wrong.
TEST_F(ConnectionReportTest, TheReportOfAShopWhereNothingWorks)
{
    // The dummy goes to homologation whatever the environment.
    app.ctx().escribir_parametro("FE_servidor_pruebas", "");
    app.ctx().escribir_parametro("IF_FE_Modo_Operacion", "Producción");
    fin_certificado = app.clock.now().addDays(-1);
    internet = false;
    app.ctx().escribir_parametro("FE_expirationTime", "");
    http.respuestas = {"<AppServer>ERROR</AppServer>"};
    EXPECT_FALSE(AFIP_reporte_conexion(s));
    EXPECT_EQ(http.peticiones.at(0).url, "https://wswhomo.afip.gov.ar/wsfev1/service.asmx?op=FEDummy");
    ASSERT_EQ(app.op.shown.size(), 2u); // the ticket's own box first
    EXPECT_EQ(
        app.op.shown[1].text,
        "Verificando conexión a la AFIP, Ambiente de \"Producción\".\r\n\r\n"
        "     ERROR - El certificado AFIP esta vencido.\r\n"
        "     Para utilizar la factura electronica de la AFIP usted debe tener un certificado válido. "
        "Consulte a su contador para renovarlo.\r\n"
        "     ERROR - No hay conexión a Internet.\r\n"
        "     Para utilizar la factura electronica de la AFIP usted debe tener una conexión a Internet "
        "todo el tiempo activa.\r\n"
        "     ERROR - Los servidores de la AFIP no estan respondiendo.\r\n"
        "     Parece que los servidores de la AFIP no responden. Esto se trata seguramente de un problema "
        "temporal, ajeno a Vendrix y a usted.\r\n"
        "     ERROR - No se pudo obtener un TRA desde los servidores de la AFIP.\r\n"
        "     Parece que los datos ingresados no son correctos. Por favor controle los datos como el CUIT, "
        "nombre y el certificado.");
}

} // namespace
} // namespace vendrix
