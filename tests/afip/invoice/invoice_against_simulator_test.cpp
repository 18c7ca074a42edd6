// Invoices and credit notes through the fiscal front against the AFIP
// simulator, with the real HTTPS client and signer. The simulator refuses
// any request out of the schema's order or whose sums don't close.
#include "afip/invoice/afip_invoice_device.h"
#include "afip/invoice/credit_note.h"
#include "afip/invoice/invoice_codes.h"
#include "afip/simulated_afip.h"
#include "afip/transport/qt_http_client.h"
#include "fiscal/front/fiscal_front.h"
#include "support/qt_print.h"
#include "support/test_context.h"

#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

using namespace std::chrono_literals;
using simulador::Modo;

const QString kRef = "261123-103000";
const QString kRechazo = "Para comprobantes clase A y M el campo DocTipo debe ser igual a 80 (CUIT).";
const QString kCajaFrente =
    "error|Error en la conexión con la Impresora Fiscal|ERR CLO001: Se produjo un error de conexión. Intente "
    "nuevamente.\r\n";

// The record of requests in flight, as calls.
struct RegistroAnotado final : RegistroCaePendiente {
    RegistroAnotado(QStringList &l, bool acepta) : l(l), acepta(acepta) {}
    bool enviando(const SolicitudCae &s) override
    {
        l << QStringLiteral("enviando %1 %2 %3 %4 %5 %6")
                 .arg(s.referencia, QString::number(s.tipo), QString::number(s.punto_de_venta),
                      QString::number(s.numero), s.total, s.fecha);
        return acepta;
    }
    void autorizado(const QString &ref, const QString &cae, const QString &) override
    {
        l << "autorizado " + ref + " " + cae;
    }
    void descartado(const QString &ref) override { l << "descartado " + ref; }
    QStringList &l;
    bool acepta;
};

DocumentoFiscal doc(const char *letra, const char *tipo_doc, const char *numero, const char *comprador)
{
    return {letra, "Cliente", "", tipo_doc, numero, comprador, "I", false, "", kRef};
}

class FacturaContraSimulador : public ::testing::Test {
protected:
    void SetUp() override
    {
        static QTemporaryDir carpeta;
        test::preparar_tienda_afip(app, carpeta.path(), cred, sim);
        app.ctx().escribir_parametro("IF_Modelo", "Factura Electronica A.F.I.P.");
    }
    void nuevo_simulador()
    {
        test::iniciar_simulador(app, cred, sim);
        app.ctx().escribir_parametro("FE_expirationTime", "");
    }
    std::unique_ptr<ServicioCae> servicio()
    {
        return std::make_unique<ServicioCae>(app.ctx(), std::make_unique<ClienteHttpQt>(app.ctx(), 1s),
                                             std::make_unique<RegistroAnotado>(registro, acepta), consulta);
    }
    // One sale through a fresh front, the simulator put in `modo` just
    // before the close: "" or the step that failed, then CAE, number, expiry.
    QStringList facturar(DocumentoFiscal d, std::vector<ItemFiscal> items, Modo modo = Modo::normal)
    {
        FiscalFront f(app.ctx(), [this](FamiliaFiscal, Context &) {
            return std::make_unique<AfipInvoiceDevice>(app.ctx(), servicio());
        });
        CierreFiscal cierre{d.letra, {}, d.letra, false, 0, 0};
        bool ok = f.IF_Conectar() && f.IF_Open(d);
        for (ItemFiscal &item : items)
            ok = ok && f.IF_Add_Element(item);
        sim->set_modo(modo);
        QString cae, numero, vto;
        ok = ok && f.IF_Close(cierre);
        return {ok ? f.IF_Obtener_CAE(cae, numero, vto) ? "" : "CAE" : "IF_Close", cae, numero, vto};
    }
    // The values of the last FECAESolicitar's detail, in the order sent:
    // DocTipo DocNro CbteDesde CbteFch ImpTotal ImpNeto ImpIVA
    // CondicionIVAReceptorId,
    // then those of CbtesAsoc (class, point of sale, number, date) and of
    // each AlicIva (Id, base, amount). Commented-out elements don't count.
    QString detalle() const
    {
        QString cuerpo;
        for (const PeticionRecibida &p : sim->peticiones())
            cuerpo = p.operacion == QLatin1String("FECAESolicitar") ? QString::fromUtf8(p.cuerpo) : cuerpo;
        cuerpo = cuerpo.mid(cuerpo.indexOf("<FECAEDetRequest>")).remove(QRegularExpression("<!--.*?-->"));
        static const QRegularExpression campo(
            "<(DocTipo|DocNro|CbteDesde|ImpTotal|ImpNeto|ImpIVA|Condicion\\w+"
            "|Tipo|PtoVta|Nro|CbteFch|Id|BaseImp|Importe)>([^<]*)<");
        QStringList valores;
        for (const QRegularExpressionMatch &m : campo.globalMatch(cuerpo))
            valores << m.captured(2);
        return valores.join(' ');
    }

    TestApp app;
    CredencialesSimulador cred;
    std::unique_ptr<SimuladorAfip> sim;
    QStringList registro;
    bool acepta = true;
    ServicioCae::Consulta consulta;
};

TEST(CodigosAfip, ReceiversConditionIsOneAfipAdmitsForTheLetter)
{
    QStringList condiciones;
    for (const char *caso : {"AI", "AM", "AF", "BE", "BI", "BN", "CI", "CA", "C"})
        condiciones << QString::number(condicion_iva_receptor(QString(caso).left(1), QString(caso).mid(1)));
    EXPECT_EQ(condiciones.join(' ') + " " + tipo_comprobante_AFIP("B", "Nota de Crédito"),
              "1 6 1 4 5 5 1 15 5 008");
}

struct Caso {
    const char *nombre;
    bool monotributo;
    Modo modo;
    DocumentoFiscal doc;
    std::vector<ItemFiscal> items;
    QString pedido;  // class, point of sale, number and total the record got
    QString detalle; // what the simulator received
    QStringList cajas = {};
};

// One simulator for the table: each class numbers on from the rows before.
TEST_F(FacturaContraSimulador, InvoicesByIssuerBuyerAndRateGetTheirCaeOrAfipsMessage)
{
    const ItemFiscal a21{"Yerba", "1", "121", "F", 21};
    const QString b121 = "80 20111111112 %1 20261123 121 100 21 5 5 100 21";
    // clang-format off
    const std::vector<Caso> casos{
        {"B a consumidor final", false, Modo::normal, doc("B", "CUIT", "0", "F"),
         {{"Yerba", "2", "1500.50", "F", 21}, {"Pan", "0.75", "1200", "F", 10.5}}, "6 3 1 3901",
         "80 20111111112 1 20261123 3901 3294.64 606.36 5 5 2480.17 520.84 4 814.48 85.52"},
        {"A a responsable inscripto, primera A", false, Modo::normal, doc("A", "CUIT", "20-12345678-6", "I"), {a21},
         "1 3 1 121", "80 20123456786 1 20261123 121 100 21 1 5 100 21"},
        {"todo al 10,5 con DNI", false, Modo::normal, doc("B", "DNI", "30111222", "F"), {{"Pan", "2", "110.5", "F", 10.5}},
         "6 3 2 221", "96 30111222 2 20261123 221 200 21 5 4 200 21"},
        {"aprobada con observaciones", false, Modo::observaciones, doc("B", "CUIT", "0", "F"), {a21}, "6 3 3 121", b121.arg(3)},
        {"rechazada", false, Modo::rechazo, doc("B", "CUIT", "0", "F"), {a21}, "6 3 4 121", b121.arg(4),
         {"error|Error en los datos de la facturación|" + kRechazo + "\r\nHay un error en los datos ingresados, por favor "
          "controle los datos (por ejemplo que el CUIT coincida con la condición del IVA) e intente nuevamente. ",
          kCajaFrente + "10013 - " + kRechazo}},
        {"emisor monotributista, sin Iva, primera C", true, Modo::normal, doc("C", "CUIT", "0", "F"),
         {{"Yerba", "1", "250.5", "F", 21}}, "11 3 1 250.5", "80 20111111112 1 20261123 250.5 250.5 0 5"},
    };
    // clang-format on
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nombre);
        app.ctx().escribir_parametro("IF_tipo_IVA", c.monotributo ? "M - RESPONSABLE MONOTRIBUTO"
                                                                  : "I - IVA RESPONSABLE INSCRIPTO");
        registro.clear();
        app.op.clear();
        const QStringList e = facturar(c.doc, c.items, c.modo);
        EXPECT_EQ(detalle(), c.detalle);
        EXPECT_EQ(app.op.lines(), c.cajas);
        const QString enviando = "enviando " + kRef + " " + c.pedido + " 20261123";
        const QString cae = e.value(1);
        if (c.cajas.isEmpty()) {
            EXPECT_TRUE(QRegularExpression("^7\\d{13}$").match(cae).hasMatch());
            EXPECT_EQ(e, QStringList({"", cae, c.pedido.section(' ', 2, 2), "20261203"}));
            EXPECT_EQ(registro, QStringList({enviando, "autorizado " + kRef + " " + cae}));
        } else {
            EXPECT_EQ(e, QStringList({"IF_Close", "", "", ""}));
            EXPECT_EQ(registro, QStringList({enviando, "descartado " + kRef}));
            // The front's error block shows the refused request.
            EXPECT_EQ(
                app.log_messages().filter(QRegularExpression("^    XML     : <.xml.*<CbteDesde>4<")).size(),
                1);
        }
    }
}

struct SinRespuesta {
    const char *nombre;
    bool acepta;
    ComprobanteAfip consulta;
    QStringList registro; // after the enviando line
    QString caja;         // after the front's fixed text; none when the CAE is taken
};

// The answer to FECAESolicitar is lost: the voucher is asked for at once,
// and the request is never sent again.
TEST_F(FacturaContraSimulador, AnUnansweredRequestIsSettledByTheQueryAndNeverResent)
{
    const QString no_facturada =
        "0 - La AFIP no respondió al pedido de CAE y no tiene autorizado el comprobante "
        "número 1: la venta no se facturó. Intente nuevamente.";
    // clang-format off
    const std::vector<SinRespuesta> casos{
        {"autorizado con el mismo total", true, {true, true, "71234567890123", "20261203", "20261123", 121, ""},
         {"autorizado " + kRef + " 71234567890123"}, ""},
        {"autorizado con otro total", true, {true, true, "71234567890123", "20261203", "20261123", 99, ""},
         {"descartado " + kRef}, no_facturada},
        {"no autorizado", true, {true, false, "", "", "", 0, ""}, {"descartado " + kRef}, no_facturada},
        {"la consulta tampoco responde", true, {false, false, "", "", "", 0, "sin respuesta"}, {},
         "0 - La AFIP no respondió al pedido de CAE del comprobante número 1. La venta no se guardó: Vendrix "
         "consultará a la AFIP por ese comprobante antes de la próxima factura y le informará el resultado."},
        {"el registro no se puede escribir", false, {}, {}, "0 - No se pudo registrar el pedido de CAE en la base "
         "de datos, por eso no se envió a la AFIP. La venta no se facturó."},
    };
    // clang-format on
    for (const SinRespuesta &c : casos) {
        SCOPED_TRACE(c.nombre);
        QStringList consultas;
        registro.clear();
        acepta = c.acepta;
        consulta = [&](ServiciosAfip &, int tipo, int pv, qint64 numero) {
            consultas << QStringLiteral("%1 %2 %3").arg(tipo).arg(pv).arg(numero);
            return c.consulta;
        };
        nuevo_simulador();
        app.op.clear();
        const QStringList e = facturar(doc("A", "CUIT", "20-12345678-6", "I"),
                                       {{"Yerba", "1", "121", "F", 21}}, Modo::sin_respuesta);
        const auto pedidos =
            std::count_if(sim->peticiones().begin(), sim->peticiones().end(),
                          [](const PeticionRecibida &p) { return p.operacion == "FECAESolicitar"; });
        EXPECT_EQ(pedidos, c.acepta ? 1 : 0);
        EXPECT_EQ(consultas, c.acepta ? QStringList{"1 3 1"} : QStringList{});
        EXPECT_EQ(registro, QStringList{"enviando " + kRef + " 1 3 1 121 20261123"} + c.registro);
        EXPECT_EQ(e, c.caja.isEmpty() ? QStringList({"", "71234567890123", "1", "20261203"})
                                      : QStringList({"IF_Close", "", "", ""}));
        EXPECT_EQ(app.op.lines(), c.caja.isEmpty() ? QStringList{} : QStringList{kCajaFrente + c.caja});
    }
}

TEST_F(FacturaContraSimulador, ACreditNoteIsAssociatedToItsInvoiceAndARefusalEndsInItsHandler)
{
    app.ctx().escribir_parametro("IF_tipo_IVA", "I - IVA RESPONSABLE INSCRIPTO");
    ASSERT_EQ(facturar(doc("B", "CUIT", "0", "F"), {{"Yerba", "1", "121", "F", 21}}).value(0), "");
    std::unique_ptr<ServicioCae> s = servicio();
    registro.clear();
    const NotaDeCreditoAfip nota{121, 0, "008", "F", 6, 1, "20261123", "DNI", "30111222", "NC-1"};
    NotaDeCreditoEmitida emitida;
    ASSERT_TRUE(AFIP_Nota_de_Credito(*s, nota, emitida));
    EXPECT_EQ(QStringList({QString::number(emitida.numero), emitida.cae_vto}),
              QStringList({"1", "20261203"}));
    // The association, after the receiver's condition; the shop's CUIT in it is commented out.
    EXPECT_EQ(detalle(), "80 20111111112 1 20261123 121 100 21 5 6 3 1 20261123 5 100 21");
    EXPECT_EQ(registro, QStringList({"enviando NC-1 8 3 1 121 20261123", "autorizado NC-1 " + emitida.cae}));
    EXPECT_TRUE(app.op.empty());

    sim->set_modo(Modo::rechazo);
    EXPECT_FALSE(AFIP_Nota_de_Credito(*s, nota, emitida));
    EXPECT_EQ(
        app.op.lines().value(1),
        "error|Error en la conexión con la Impresora Fiscal|ERR CLO001: Se produjo un error al intentar "
        "conectarse con la Impresora Fiscal. Si el error persiste, reinicie el PC e intente nuevamente.\r\n"
        "10013 - " +
            kRechazo);
    EXPECT_EQ(app.status.keywords.last(), "impresora_on");
}

} // namespace
} // namespace vendrix::test
