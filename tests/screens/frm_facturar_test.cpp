// The checkout dialog, opened from a cart of the main window.
#include "afip/qr/qr_payload.h"
#include "afip/simulated_afip.h"
#include "fiscal/emulator/hasar_emulator.h"
#include "fiscal/front/fiscal_models.h"
#include "sales/tienda.h"
#include "screens/carts/carrito_tab.h"
#include "screens/carts/tab_changos.h"
#include "screens/checkout/frm_facturar.h"
#include "screens/checkout/frm_facturar_completado.h"
#include "screens/main_window/frm_main.h"
#include "screens/pantalla.h"
#include "support/recording_desktop.h"
#include "support/zbar_reader.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace vendrix::screens {
namespace {

using test::en_el_dialogo;
using test::hijo;

class Checkout : public test::Tienda {
protected:
    void SetUp() override
    {
        Tienda::SetUp();
        ajuste("IF_max_efectivo", "10000000");
        ajuste("IF_max_tarjeta", "10000000");
        window = std::make_unique<FrmMain>(app.ctx());
    }

    void facturar(const QString &linea_carrito)
    {
        CarritoTab &pagina = *window->carritos()->pagina(1);
        pagina.carrito().agregar_linea(linea(linea_carrito));
        pagina.mostrar();
        hijo<QPushButton>(pagina, "c1_facturar")->click();
    }

    std::unique_ptr<FrmMain> window;
};

// The counter with a printer: the emulated Hasar on its pseudo-terminal. With
// the detail unchecked the ticket is one "Varios" line.
TEST_F(Checkout, AFinalConsumerPayingCashGetsATicketAndTheDocumentIsStored)
{
    HasarEmulator emulador(HasarEmulator::Opciones{9, 'M', 50});
    emulador.iniciar();
    ajuste("impresora_fiscal", "1");
    ajuste("IF_Modelo", "Hasar");
    ajuste("IF_Port", emulador.ruta());
    ajuste("IF_velocidad", "9600");
    ajuste("IF_tipo_IVA", "M - RESPONSABLE MONOTRIBUTO");
    window = std::make_unique<FrmMain>(app.ctx());
    en_el_dialogo<FrmFacturar>([&](FrmFacturar &d) {
        EXPECT_EQ(hijo<QComboBox>(d, "Combo_FdP")->currentText(), "Efectivo");
        EXPECT_EQ(hijo<QComboBox>(d, "Combo_iva")->currentText(), "F - CONSUMIDOR FINAL");
        EXPECT_EQ(hijo<QLabel>(d, "Label_total")->text(), "$ 1250,50");
        EXPECT_EQ(hijo<QLineEdit>(d, "Text_referenciaExterna")->text(), "261123-103000");
        // A one-letter search looks nothing up; Enter in the box searches
        // and doesn't record the sale.
        QSignalSpy venta(&d, &FrmFacturar::registrar_venta);
        test::escribir(hijo<QLineEdit>(d, "Text_buscar"), "z");
        QTest::keyClick(hijo<QLineEdit>(d, "Text_buscar"), Qt::Key_Return);
        EXPECT_EQ(venta.count(), 0);
        // Enter on the payment method records it.
        hijo<QComboBox>(d, "Combo_FdP")->setFocus();
        QTest::keyClick(hijo<QComboBox>(d, "Combo_FdP"), Qt::Key_Return);
        ASSERT_EQ(venta.count(), 1);
        if (d.isVisible()) // the sale failed: the dialog stays for another try
            QTest::keyClick(&d, Qt::Key_Escape);
    });
    facturar("5|Tornillo 1/4|250,1|1250,5|21|1");
    EXPECT_EQ(app.op.lines(), QStringList{"inform|Impresión Correcta|Se imprimio el Ticket Factura 1"});
    const QStringList diario = emulador.diario();
    EXPECT_TRUE(diario.contains("Varios               (21.00)   $ 1250.50"))
        << diario.join('\n').toStdString();
    // The document is stored and its cart, on screen too, is empty.
    EXPECT_EQ(
        app.db().execQ1("SELECT letra || '|' || Total || '|' || count(*) FROM vendrix_facturas", "cliente"),
        "C|1250.5|1");
    EXPECT_EQ(window->carritos()->pagina(1)->caja_total()->text(), "");
}

// An electronic invoice from the cart to the customer's copy, against the
// AFIP simulator: the completion screen shows a QR that an independent
// reader takes back to AFIP's page, and its "Imprimir Facsimil" opens the
// page, with the PDF beside it.
TEST_F(Checkout, AnInvoiceAuthorisedByAfipShowsItsQrAndOpensItsFacsimile)
{
    QTemporaryDir carpeta;
    CredencialesSimulador cred;
    std::unique_ptr<SimuladorAfip> sim;
    test::preparar_tienda_afip(app, carpeta.path(), cred, sim);
    QFile::copy(VENDRIX_TEST_DATA "/../../data/factura.install", app.ruta("factura.html"));
    ajuste("impresora_fiscal", "1");
    ajuste("IF_Modelo", kModeloElectronica);
    ajuste("IF_tipo_IVA", "I - IVA RESPONSABLE INSCRIPTO");
    window = std::make_unique<FrmMain>(app.ctx());
    app.op.answer(false);
    auto *escritorio = new test::EscritorioAnotado;
    window->usar_escritorio(std::unique_ptr<Escritorio>(escritorio));
    const QStringList &abiertas = escritorio->abiertas;

    QString cae;
    QImage qr;
    en_el_dialogo<FrmFacturar>([&](FrmFacturar &d) {
        test::cuando_aparezca<FrmFacturarCompletado>([&](FrmFacturarCompletado &c) {
            // The window's own close asks first; No keeps the screen.
            QTest::keyClick(&c, Qt::Key_Escape);
            EXPECT_TRUE(c.isVisible());
            cae = hijo<QLabel>(c, "Label_CAE")->text();
            qr = hijo<QLabel>(c, "Image1")->pixmap().toImage();
            hijo<QPushButton>(c, "Command_facsimil")->click();
        });
        hijo<QComboBox>(d, "Combo_FdP")->setFocus();
        QTest::keyClick(hijo<QComboBox>(d, "Combo_FdP"), Qt::Key_Return);
    });
    facturar("5|Tornillo 1/4|250,1|1250,5|21|1");

    EXPECT_EQ(app.op.lines(), QStringList{"ask|Cerrar ventana|La factura generada no será impresa ni enviada "
                                          "al cliente en este momento - Está de acuerdo?"});
    const QString guardado = app.db().execQ1("SELECT FE_CAE_numero FROM vendrix_facturas", "cliente");
    ASSERT_EQ(cae, "CAE: " + guardado);
    EXPECT_EQ(test::leer_con_zbar(qr), url_QR_AFIP(app.ctx(), guardado));

    ASSERT_EQ(abiertas.size(), 1);
    EXPECT_TRUE(abiertas[0].startsWith(app.ruta("Facturas/Factura_Electronica_1_0000001_")));
    EXPECT_TRUE(QFile::exists(abiertas[0].chopped(4) + "pdf"));
}

TEST_F(Checkout, ACartWorthNothingIsntCheckedOut)
{
    facturar("1|A mano|0|0|21|0");
    EXPECT_EQ(app.op.lines(),
              QStringList({"warn|Carrito de Compras Vacío|El carrito de compras está vacío o el total "
                           "es cero. Agregue un artículo antes de intentar facturarlo."}));
}

} // namespace
} // namespace vendrix::screens
