// The pricing settings of the configuration tab.
#include "catalogue/support/shop_fixture.h"
#include "screens/config_precios.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

namespace vendrix {
namespace {

class ConfigPreciosTest : public test::TiendaConLista {
protected:
    void SetUp() override
    {
        TiendaConLista::SetUp();
        ajuste("decimales", "3");
        app.ctx().escribir_parametro(QStringLiteral("redondeo"), QString());
        config = std::make_unique<ConfigPrecios>(app.ctx());
        config->show();
        config->inicializar();
    }

    template <typename T = QLineEdit> T *w(const char *nombre)
    {
        T *found = config->findChild<T *>(QString::fromUtf8(nombre));
        EXPECT_NE(found, nullptr) << nombre;
        return found;
    }

    QString recargo_forma_de_pago()
    {
        return app.db().execQ1(
            QStringLiteral("SELECT Recargo FROM Vendrix_FormasDePago WHERE Forma_de_Pago = "
                           "'Tarjeta de Crédito'"),
            QStringLiteral("internal"));
    }

    std::unique_ptr<ConfigPrecios> config;
};

TEST_F(ConfigPreciosTest, BoxesShowAndWriteTheirKeysAtEachChange)
{
    EXPECT_EQ(w("Text_IVA")->text(), QStringLiteral("21"));
    EXPECT_EQ(w("Text_dolar")->text(), QStringLiteral("100"));
    EXPECT_EQ(w("Tex_tarjeta")->text(), QStringLiteral("10"));
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("redondeo")), QStringLiteral("1")); // written at set-up

    QLineEdit *dolar = w("Text_dolar");
    dolar->setFocus();
    dolar->selectAll();
    QTest::keyClicks(dolar, QStringLiteral("1x2,5,0"));
    EXPECT_EQ(dolar->text(), QStringLiteral("12,50"));
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("Valor_Dolar")), QStringLiteral("12,50"));

    QLineEdit *iva = w("Text_IVA");
    iva->setFocus();
    iva->end(false);
    QTest::keyClick(iva, Qt::Key_Backspace);
    QTest::keyClick(iva, Qt::Key_Backspace);
    EXPECT_EQ(iva->text(), QStringLiteral("0"));
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("iva")), QStringLiteral("0"));
}

TEST_F(ConfigPreciosTest, TheCardSurchargeChangesTheCaptionAndThePaymentMethodOnLeaving)
{
    QSignalSpy leyendas(config.get(), &ConfigPrecios::leyendaTarjetaCambiada);
    QLineEdit *tarjeta = w("Tex_tarjeta");
    tarjeta->setFocus();
    tarjeta->selectAll();
    QTest::keyClicks(tarjeta, QStringLiteral("15"));
    ASSERT_EQ(leyendas.size(), 2);
    EXPECT_EQ(leyendas.last().at(0).toString(), QStringLiteral("Pago con tarjeta (+15%)"));
    EXPECT_EQ(recargo_forma_de_pago(), QStringLiteral("0"));
    QTest::keyClick(tarjeta, Qt::Key_Return);
    EXPECT_EQ(recargo_forma_de_pago(), QStringLiteral("15"));
}

TEST_F(ConfigPreciosTest, RoundingCombosEnableEachOtherAndTheIconsShowRounding)
{
    auto *digitos = w<QComboBox>("Combo_digitos_significativos");
    auto *modo = w<QComboBox>("Combo_modo_redondeo");
    auto *tipo = w<QComboBox>("Combo_tipo_redondeo");
    EXPECT_EQ(digitos->currentText(), QStringLiteral("Todos"));
    EXPECT_EQ(modo->currentText(), QStringLiteral("Standard"));
    EXPECT_TRUE(modo->isEnabled());
    EXPECT_FALSE(tipo->isEnabled());
    EXPECT_TRUE(w<QLabel>("Picture_icon_0")->pixmap().isNull());

    digitos->setFocus();
    digitos->setCurrentIndex(digitos->findText(QStringLiteral("Decenas")));
    Q_EMIT digitos->textActivated(QStringLiteral("Decenas"));
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("decimales")), QStringLiteral("-1"));
    EXPECT_FALSE(modo->isEnabled());
    EXPECT_TRUE(tipo->isEnabled());
    EXPECT_FALSE(w<QLabel>("Picture_icon_0")->pixmap().isNull());

    Q_EMIT tipo->textActivated(QStringLiteral("De 5 en 5"));
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("redondeo_tipo")), QStringLiteral("De 5 en 5"));
    EXPECT_EQ(tipo->currentText(), QStringLiteral("De 5 en 5"));

    Q_EMIT digitos->textActivated(QStringLiteral("Dos decimales"));
    EXPECT_EQ(tipo->currentText(), QStringLiteral("De 10 en 10"));
    EXPECT_TRUE(modo->isEnabled());
    Q_EMIT modo->textActivated(QStringLiteral("Arriba"));
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("redondeo")), QStringLiteral("2"));
    EXPECT_FALSE(w<QLabel>("Picture_icon_1")->pixmap().isNull());
}

} // namespace
} // namespace vendrix
