#include "afip/auth/certificate_checks.h"
#include "afip/auth/connection_report.h"
#include "afip/fake_afip.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

class ConnectionReportTest : public ::testing::Test, public test::AfipFixture {};

TEST_F(ConnectionReportTest, CertificateChecksWriteTheirFilesAndReadThem)
{
    const QDateTime ahora = app.clock.now();
    struct Caso {
        QDateTime fin;
        bool vigente_30, vigente;
        QByteArray archivo_30;
    } casos[] = {
        {ahora.addDays(31), true, true, "Certificate will not expire\n"},
        {ahora.addDays(29), false, true, "Certificate will expire\n"},
        {ahora.addSecs(-1), false, false, "Certificate will expire\n"},
        {QDateTime(), false, false, ""}, // unreadable: no file at all
    };
    for (const Caso &c : casos) {
        fin_certificado = c.fin;
        EXPECT_EQ(certificado_vigente_30(s), c.vigente_30) << c.fin.toString().toStdString();
        EXPECT_EQ(certificado_vigente(s), c.vigente) << c.fin.toString().toStdString();
        EXPECT_EQ(app.read_file("cert30dias.txt"), c.archivo_30);
    }
    EXPECT_EQ(certificado_fecha_vto(s), "");
    fin_certificado = QDateTime(QDate(2026, 6, 5), QTime(12, 0), Qt::UTC);
    EXPECT_EQ(certificado_fecha_vto(s), "Jun  5  2026");
    EXPECT_EQ(app.read_file("fechavtocert.txt"), "notAfter=Jun  5 12:00:00 2026 GMT\n");
}

TEST_F(ConnectionReportTest, TheDummyAlwaysGoesToHomologationAndFailsOnError)
{
    app.ctx().escribir_parametro("FE_servidor_pruebas", "");
    app.ctx().escribir_parametro("IF_FE_Modo_Operacion", "Producción");
    http.responder("<AppServer>OK</AppServer>");
    http.responder("<AppServer>ERROR</AppServer>");
    EXPECT_TRUE(AFIP_test_dummy(s));
    EXPECT_FALSE(AFIP_test_dummy(s));
    EXPECT_FALSE(AFIP_test_dummy(s)); // no answer
    EXPECT_EQ(http.peticiones[0].url, "https://wswhomo.afip.gov.ar/wsfev1/service.asmx?op=FEDummy");
    EXPECT_TRUE(http.peticiones[0].cuerpo.contains("<ar:FEDummy/>"));
}

TEST_F(ConnectionReportTest, TheReportLineByLine)
{
    app.ctx().escribir_parametro("IF_FE_Modo_Operacion", "Homologación");
    app.ctx().escribir_parametro("FE_expirationTime", "2026-11-23T22:00:00.0-03:00");
    http.responder("<AppServer>OK</AppServer>");
    EXPECT_TRUE(AFIP_reporte_conexion(s));
    EXPECT_EQ(app.op.lines(),
              QStringList{"inform|Conexión con la AFIP|Verificando conexión a la AFIP, Ambiente "
                          "de \"Homologación\".\r\n\r\n"
                          "     OK - Certificado AFIP válido.\r\n"
                          "     OK - Hay conexión a Internet.\r\n"
                          "     OK - Los servidores de la AFIP Responden.\r\n"
                          "     OK - Se pudo obtener un TRA desde los servidores de la AFIP Con "
                          "validez hasta: 2026-11-23T22:00:00.0-03:00"});

    app.op.clear();
    fin_certificado = app.clock.now().addDays(-1);
    internet = false;
    app.ctx().escribir_parametro("FE_expirationTime", "");
    EXPECT_FALSE(AFIP_reporte_conexion(s));
    ASSERT_EQ(app.op.shown.size(), 2u); // the ticket's own box first
    EXPECT_EQ(
        app.op.shown[1].text,
        "Verificando conexión a la AFIP, Ambiente de \"Homologación\".\r\n\r\n"
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
