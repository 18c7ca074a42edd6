// The completion screen of an electronic invoice, on its own.
#include "screens/frm_facturar_completado.h"
#include "screens/pantalla.h"
#include "support/test_context.h"

namespace vendrix::screens {
namespace {

using test::hijo;

class Completado : public ::testing::Test {
protected:
    void SetUp() override
    {
        app.ctx().escribir_parametro("FE_cert_vence_en_30", "FALSE");
        pantalla = std::make_unique<FrmFacturarCompletado>(
            app.ctx(), DatosCompletado{kTipoAfip, "76123456789012", "", "1145", "Efectivo", "Listo."});
        pantalla->show();
    }
    test::TestApp app;
    std::unique_ptr<FrmFacturarCompletado> pantalla;
};

TEST_F(Completado, ThePrintButtonAsksForTheFacsimileAndCloses)
{
    EXPECT_FALSE(hijo<QPushButton>(*pantalla, "Command_mail")->isEnabled());
    EXPECT_FALSE(hijo<QLabel>(*pantalla, "Label_certificado")->isVisible());
    EXPECT_EQ(hijo<QPushButton>(*pantalla, "Command_whatsapp")->text(), "Enviar por Whastapp");
    // Typing an address turns the mail on before the field is left.
    test::escribir(hijo(*pantalla, "Text_email"), "ana@example.com");
    EXPECT_TRUE(hijo<QPushButton>(*pantalla, "Command_mail")->isEnabled());

    auto *facsimil = hijo<QPushButton>(*pantalla, "Command_facsimil");
    ASSERT_EQ(facsimil->text(), "Imprimir Facsimil");
    facsimil->click();
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(pantalla->result(), QDialog::Accepted);
    EXPECT_TRUE(pantalla->pedido().facsimil);
    EXPECT_FALSE(pantalla->pedido().mail || pantalla->pedido().whatsapp);
    EXPECT_EQ(pantalla->pedido().email, "ana@example.com");
    EXPECT_TRUE(app.op.empty());
}

TEST_F(Completado, TheOperatorsCloseAsksAndNoKeepsTheScreen)
{
    app.op.answers_in_order({false, true});
    QTest::keyClick(pantalla.get(), Qt::Key_Escape);
    EXPECT_TRUE(pantalla->isVisible());
    QTest::keyClick(pantalla.get(), Qt::Key_Escape);
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(app.op.texts(),
              QStringList(2, "La factura generada no será impresa ni enviada al cliente en este "
                             "momento - Está de acuerdo?"));
    EXPECT_FALSE(pantalla->pedido().facsimil || pantalla->pedido().mail || pantalla->pedido().whatsapp);
}

} // namespace
} // namespace vendrix::screens
