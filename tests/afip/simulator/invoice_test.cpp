#include "simulator_fixture.h"

#include <QRegularExpression>

namespace vendrix::test {
namespace {

using simulador::Modo;

const QString kFacturas = QStringLiteral("/wsfev1/service.asmx");

// An invoice A of 100 + 21% IVA as the program's template writes it.
const QString kDetalle = QStringLiteral(
    "<Concepto>1</Concepto><DocTipo>80</DocTipo><DocNro>30715234870</DocNro><CbteDesde>%N</CbteDesde>"
    "<CbteHasta>%N</CbteHasta><CbteFch>20250310</CbteFch><ImpTotal>121.00</ImpTotal><ImpTotConc>0</"
    "ImpTotConc>"
    "<ImpNeto>100.00</ImpNeto><ImpOpEx>0</ImpOpEx><ImpTrib>0</ImpTrib><ImpIVA>21.00</ImpIVA>"
    "<!-- <FchServDesde>20250310</FchServDesde> --><MonId>PES</MonId><MonCotiz>1</MonCotiz>"
    "<CondicionIVAReceptorId>1</CondicionIVAReceptorId>"
    "<Iva><AlicIva><Id>5</Id><BaseImp>100.00</BaseImp><Importe>21.00</Importe></AlicIva></Iva>");

QString sobre(const QString &token, const QString &sign, const QString &operacion, const QString &contenido)
{
    return QStringLiteral(
               "<?xml version=\"1.0\" encoding=\"utf-8\"?><soap:Envelope "
               "xmlns:soap=\"http://www.w3.org/2003/05/soap-envelope\" "
               "xmlns=\"http://ar.gov.afip.dif.FEV1/\"><soap:Header/><soap:Body><%1><Auth><Token>%2</Token>"
               "<Sign>%3</Sign><Cuit>20123456786</Cuit></Auth>%4</%1></soap:Body></soap:Envelope>")
        .arg(operacion, token, sign, contenido);
}

QString solicitud(const QString &token, const QString &sign, int pto_vta, int tipo, QString detalle,
                  int numero)
{
    detalle.replace(QStringLiteral("%N"), QString::number(numero));
    return sobre(
        token, sign, QStringLiteral("FECAESolicitar"),
        QStringLiteral("<FeCAEReq><FeCabReq><CantReg>1</CantReg><PtoVta>%1</PtoVta><CbteTipo>%2</CbteTipo>"
                       "</FeCabReq><FeDetReq><FECAEDetRequest>%3</FECAEDetRequest></FeDetReq></FeCAEReq>")
            .arg(pto_vta)
            .arg(tipo)
            .arg(detalle));
}

using FacturasTest = SimuladorTest;

TEST_F(FacturasTest, ChecksOrderSumsAndNumberOfEachRequest)
{
    const auto [token, sign] = ticket("wsfe");
    struct Caso {
        const char *nombre;
        QString detalle;
        int numero;
        const char *resultado;
        QList<int> errores;
        int tipo = 1;
    };
    const auto cambiar = [](const QString &de, const QString &a) { return QString(kDetalle).replace(de, a); };
    const Caso casos[] = {
        {"bueno", kDetalle, 1, "A", {}},
        {"un centavo de diferencia se tolera", cambiar("<ImpTotal>121.00", "<ImpTotal>121.01"), 1, "A", {}},
        {"neto antes del no gravado",
         cambiar("<ImpTotConc>0</ImpTotConc><ImpNeto>100.00</ImpNeto>",
                 "<ImpNeto>100.00</ImpNeto><ImpTotConc>0</ImpTotConc>"),
         1,
         "R",
         {10000}},
        {"condicion del receptor tras el IVA",
         cambiar("<CondicionIVAReceptorId>1</CondicionIVAReceptorId>", "") +
             "<CondicionIVAReceptorId>1</CondicionIVAReceptorId>",
         1,
         "R",
         {10000}},
        {"sin moneda", cambiar("<MonId>PES</MonId>", ""), 1, "R", {10000}},
        {"total mal sumado", cambiar("<ImpTotal>121.00", "<ImpTotal>121.02"), 1, "R", {10048}},
        {"linea al 27 sin base",
         cambiar("<ImpTotal>121.00", "<ImpTotal>221.00").replace("<ImpNeto>100.00", "<ImpNeto>200.00"),
         1,
         "R",
         {10061}},
        {"importe que no es la tasa",
         cambiar("<Importe>21.00", "<Importe>22.00")
             .replace("<ImpIVA>21.00", "<ImpIVA>22.00")
             .replace("<ImpTotal>121.00", "<ImpTotal>122.00"),
         1,
         "R",
         {10051}},
        {"IVA que no suma",
         cambiar("<ImpIVA>21.00", "<ImpIVA>20.00").replace("<ImpTotal>121.00", "<ImpTotal>120.00"),
         1,
         "R",
         {10023}},
        {"numero salteado", kDetalle, 2, "R", {10016}},
        {"monotributo sin IVA",
         cambiar("<Iva><AlicIva><Id>5</Id><BaseImp>100.00</BaseImp><Importe>21.00</Importe></AlicIva></Iva>",
                 "")
             .replace("<ImpIVA>21.00", "<ImpIVA>0")
             .replace("<ImpTotal>121.00", "<ImpTotal>100.00"),
         1,
         "A",
         {},
         11},
    };
    int pto_vta = 0;
    for (const Caso &c : casos) {
        ++pto_vta; // each case numbers on its own point of sale
        const QString r =
            post(kFacturas, solicitud(token, sign, pto_vta, c.tipo, c.detalle, c.numero)).cuerpo;
        EXPECT_EQ(etiqueta(etiqueta(r, "FeCabResp"), "Resultado"), c.resultado) << c.nombre;
        EXPECT_EQ(codigos(r), c.errores) << c.nombre << ": " << r.toStdString();
        const bool aprobado = QLatin1String(c.resultado) == QLatin1String("A");
        EXPECT_EQ(QRegularExpression("^\\d{14}$").match(etiqueta(r, "CAE")).hasMatch(), aprobado) << c.nombre;
        EXPECT_EQ(etiqueta(r, "CAEFchVto"), aprobado ? "20250320" : "N/A") << c.nombre;
        EXPECT_EQ(simulador_->ultimo_autorizado(pto_vta, c.tipo), aprobado ? 1 : 0) << c.nombre;
    }
    const QString ajeno = post(kFacturas, solicitud("PD94", "i9xD", 99, 1, kDetalle, 1)).cuerpo;
    EXPECT_EQ(codigos(ajeno), QList<int>{600});
}

TEST_F(FacturasTest, ADroppedAnswerLeavesTheVoucherToQuery)
{
    const auto [token, sign] = ticket("wsfe");
    simulador_->set_modo(Modo::procesar_sin_responder);
    const RespuestaPrueba caida = post(kFacturas, solicitud(token, sign, 3, 6, kDetalle, 1));
    // Qt sends the request again when the connection drops before any answer,
    // and that second one finds the number spent: no approval reaches the client.
    EXPECT_NE(etiqueta(caida.cuerpo, "Resultado"), "A");
    simulador_->set_modo(Modo::normal);

    const QString ultimo = post(kFacturas, sobre(token, sign, "FECompUltimoAutorizado",
                                                 "<PtoVta>3</PtoVta><CbteTipo>6</CbteTipo>"))
                               .cuerpo;
    EXPECT_EQ(etiqueta(ultimo, "CbteNro"), "1");
    const auto consulta = [&](int numero) {
        return post(kFacturas,
                    sobre(token, sign, "FECompConsultar",
                          QStringLiteral(
                              "<FeCompConsReq><CbteTipo>6</CbteTipo><CbteNro>%1</CbteNro><PtoVta>3</PtoVta>"
                              "</FeCompConsReq>")
                              .arg(numero)))
            .cuerpo;
    };
    const QString hallado = consulta(1);
    EXPECT_TRUE(QRegularExpression("<CodAutorizacion>\\d{14}</CodAutorizacion>").match(hallado).hasMatch());
    EXPECT_TRUE(hallado.contains("<ImpTotal>121</ImpTotal>")) << hallado.toStdString();
    EXPECT_TRUE(hallado.contains("<FchServDesde/><FchServHasta/><FchVtoPago/><MonId>PES</MonId>"));
    EXPECT_EQ(etiqueta(hallado, "Resultado"), "A");
    EXPECT_EQ(codigos(consulta(2)), QList<int>{602});

    // Past the ticket's twelve hours the service names its times.
    reloj_.set(reloj_.now().addSecs(13 * 3600));
    const QString vencido = post(kFacturas, sobre(token, sign, "FECompUltimoAutorizado",
                                                  "<PtoVta>3</PtoVta><CbteTipo>6</CbteTipo>"))
                                .cuerpo;
    EXPECT_EQ(etiqueta(vencido, "Msg"),
              "ValidacionDeToken: No validaron las fechas del token GenTime, ExpTime, NowUTC: 1741611600 "
              "(3/10/2025 1:00:00 PM), 1741654800 (3/11/2025 1:00:00 AM), 3/11/2025 2:00:00 AM");
}

} // namespace
} // namespace vendrix::test
