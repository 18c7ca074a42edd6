#include "fiscal/emulated_printer.h"
#include "support/qt_print.h"

#include <gtest/gtest.h>

#include <memory>

namespace vendrix {
namespace {

// A Hasar driver over an emulated printer.
struct Banco : test::ImpresoraEmulada {
    using ImpresoraEmulada::ImpresoraEmulada;
    HasarDevice device{app.ctx(), test::kTiempos};
};

DocumentoFiscal consumidor_final()
{
    return {"C", "", "", "", "", "F", "M", false, "", ""};
}

ItemFiscal item(const char *descripcion, const char *cantidad, const char *precio, double tasa)
{
    return {descripcion, cantidad, precio, "F", tasa};
}

void imprimir(HasarDevice &device, DocumentoFiscal &doc, std::vector<ItemFiscal> items)
{
    device.conectar();
    device.abrir(doc);
    for (ItemFiscal &i : items)
        device.agregar(i);
    CierreFiscal cierre{doc.letra, "GRACIAS", "", doc.es_nota_de_credito, 0, 0};
    device.cerrar(cierre);
}

struct DocumentCase {
    const char *caso;
    char responsabilidad;
    DocumentoFiscal doc;
    std::vector<ItemFiscal> items;
    QString tipo_factura;
    QString numero_doc;
    QStringList diario;
};

TEST(HasarDeviceTest, DocumentsLeaveTheirJournal)
{
    const DocumentCase cases[] = {
        {"final consumer without data: blank type and eight zeros",
         'M',
         consumidor_final(),
         {item("Yerba 1kg", "2", "1500.50", 21), item("Pan", "0.75", "1200", 10.5),
          item("Descuento", "1", "-100.50", 21)},
         "49",
         "00000000",
         {"TIQUE FACTURA \"C\" Nro. 00000001", "A CONSUMIDOR FINAL", "Kiosco Doña Pepa",
          "Av. Siempre Viva 742", "2.000 x 1500.50", "Yerba 1kg            (21.00)   $ 3001.00",
          "0.750 x 1200.00", "Pan                  (10.50)    $ 900.00",
          "Descuento            (21.00)   $ -100.50", "TOTAL                          $ 3800.50"}},
        // The 30-character name loses its accented letters and ends after the 20th kept one.
        {"factura A to an inscripto with CUIT",
         'I',
         {"A", "Ferretería Núñez y Cía. S.R.L.", "Belgrano 55", "CUIT", "30-71234567-1", "I", "I", false, "",
          ""},
         {item("Tornillos x100", "1", "121", 21), item("Libro", "1", "110.5", 10.5)},
         "48",
         "30712345671",
         {"TIQUE FACTURA \"A\" Nro. 00000001", "Ferretera Nez y Ca. ", "C.U.I.T. 30712345671",
          "IVA RESPONSABLE INSCRIPTO", "Belgrano 55", "Kiosco Doña Pepa", "Av. Siempre Viva 742",
          "Tornillos x100       (21.00)    $ 121.00", "Libro                (10.50)    $ 110.50",
          "NETO SIN IVA                    $ 200.00", "IVA 10.50%                       $ 10.50",
          "IVA 21.00%                       $ 21.00", "TOTAL                           $ 231.50"}},
        {"credit note C to a consumer with DNI",
         'M',
         {"C", "Juan Perez", "Mitre 10", "DNI", "20111222", "F", "M", true, "", ""},
         {item("Devolucion", "1", "60.50", 21)},
         "83",
         "20111222",
         {"NOTA DE CREDITO \"C\" Nro. 00000001", "Juan Perez", "D.N.I. 20111222", "A CONSUMIDOR FINAL",
          "Mitre 10", "Comp. original: 0000-00000000", "Kiosco Doña Pepa", "Av. Siempre Viva 742",
          "Devolucion           (21.00)     $ 60.50", "TOTAL                            $ 60.50", "Firma",
          "Aclaración"}},
    };
    for (const DocumentCase &c : cases) {
        SCOPED_TRACE(c.caso);
        Banco banco(9, c.responsabilidad);
        DocumentoFiscal doc = c.doc;
        imprimir(banco.device, doc, c.items);
        EXPECT_EQ(banco.emulador.diario(), c.diario);
        // What the front's log shows of the document.
        EXPECT_EQ(doc.tipo_factura, c.tipo_factura);
        EXPECT_EQ(doc.numero_doc, c.numero_doc);
    }
}

TEST(HasarDeviceTest, DailyClosesReportTheDayAndZStartsANewOne)
{
    Banco banco(9, 'M');
    DocumentoFiscal doc = consumidor_final();
    imprimir(banco.device, doc, {item("Yerba", "1", "121", 21)});
    banco.device.cierre_x();
    banco.device.cierre_z();
    banco.device.cierre_z();
    const QStringList diario = banco.emulador.diario();
    EXPECT_EQ(diario.mid(diario.size() - 12),
              QStringList(
                  {"INFORME X Nro. 0001", "DOCUMENTOS FISCALES 1", "VENTAS                          $ 121.00",
                   "IVA                              $ 21.00", "CIERRE Z Nro. 0001", "DOCUMENTOS FISCALES 1",
                   "VENTAS                          $ 121.00", "IVA                              $ 21.00",
                   "CIERRE Z Nro. 0002", "DOCUMENTOS FISCALES 0", "VENTAS                            $ 0.00",
                   "IVA                               $ 0.00"}));
}

TEST(HasarDeviceTest, ModelIsReadAtConnectionAndOlderModelsHaveNoCreditNotes)
{
    Banco nuevo(9);
    nuevo.device.conectar();
    EXPECT_EQ(nuevo.device.modelo(), std::make_pair(9, QString("P-715F")));
    EXPECT_EQ(nuevo.app.log_messages(),
              QStringList{"IMP HASAR001 - Se detecto la impresora Hasar modelo: 9."});

    Banco viejo(2, 'M');
    viejo.device.conectar();
    EXPECT_EQ(viejo.device.modelo(), std::make_pair(0, QString("Indeterminado")));
    DocumentoFiscal nota = consumidor_final();
    nota.es_nota_de_credito = true;
    try {
        viejo.device.abrir(nota);
        ADD_FAILURE() << "a P-615F opened a credit note";
    } catch (const FiscalError &e) {
        EXPECT_EQ(e.numero, 1301);
    }
    // Without the address field of the newer models the ticket still prints.
    imprimir(viejo.device, nota = consumidor_final(), {item("Pan", "1", "10", 10.5)});
    EXPECT_EQ(viejo.emulador.diario().value(1), "A CONSUMIDOR FINAL");
}

TEST(HasarDeviceTest, PortSettingsThatCantWork)
{
    struct {
        const char *puerto;
        const char *velocidad;
        int numero;
        const char *en_texto;
    } cases[] = {
        {"", "9600", 1001, ""},
        // The last character of "COMn" is the port: COM12 is COM2.
        {"COM12", "9600", 1002, "/dev/ttyS1"},
        {"ttyNOEXISTE0", "9600", 1002, "/dev/ttyNOEXISTE0"},
        {"COM1", "", 1003, ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.puerto);
        test::con_aplicacion();
        test::TestApp app;
        app.ctx().escribir_parametro("IF_Port", c.puerto);
        app.ctx().escribir_parametro("IF_velocidad", c.velocidad);
        HasarDevice device(app.ctx(), test::kTiempos);
        try {
            device.conectar();
            ADD_FAILURE() << "connected";
        } catch (const FiscalError &e) {
            EXPECT_EQ(e.numero, c.numero);
            EXPECT_TRUE(e.descripcion.contains(c.en_texto)) << e.descripcion.toStdString();
        }
        // The set-up at start shows nothing of it.
        EXPECT_NO_THROW(device.configurar());
    }
}

} // namespace
} // namespace vendrix
