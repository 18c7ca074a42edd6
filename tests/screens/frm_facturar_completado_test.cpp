// The completion screen of an electronic invoice, on its own.
#include "screens/frm_facturar_completado.h"
#include "screens/pantalla.h"
#include "support/test_context.h"

namespace vendrix::screens {
namespace {

using test::hijo;

TEST(FrmFacturarCompletado, CloseAsksFirstAndThePrintButtonAsksForTheFacsimile)
{
    test::TestApp app;
    FrmFacturarCompletado pantalla(app.ctx(),
                                   {kTipoAfip, "76123456789012", "", "1145", "Efectivo", "Listo."});
    pantalla.show();
    EXPECT_EQ(hijo<QPushButton>(pantalla, "Command_whatsapp")->text(), "Enviar por Whastapp");
    // The address typed is the one the mail takes.
    test::escribir(hijo(pantalla, "Text_email"), "ana@example.com");

    app.op.answer(false);
    QTest::keyClick(&pantalla, Qt::Key_Escape);
    EXPECT_TRUE(pantalla.isVisible());
    EXPECT_EQ(app.op.lines(),
              QStringList{"ask|Cerrar ventana|La factura generada no será impresa ni enviada al "
                          "cliente en este momento - Está de acuerdo?"});

    hijo<QPushButton>(pantalla, "Command_facsimil")->click();
    EXPECT_FALSE(pantalla.isVisible());
    EXPECT_TRUE(pantalla.pedido().facsimil && !pantalla.pedido().mail && !pantalla.pedido().whatsapp);
    EXPECT_EQ(pantalla.pedido().email, "ana@example.com");
}

} // namespace
} // namespace vendrix::screens
