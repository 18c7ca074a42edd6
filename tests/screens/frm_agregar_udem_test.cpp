// The units dialog through its widgets.
#include "sales/tienda.h"
#include "screens/frm_agregar_udem.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace vendrix::screens {
namespace {

class DialogoUnidades : public test::Tienda {};

TEST_F(DialogoUnidades, TypingTheUnitsShowsTheUnitPriceAndSavingRemembersThem)
{
    const ArticuloParaCarrito a = tornillo();
    FrmAgregarUdeM dialogo(app.ctx(), a);
    auto *unidades = dialogo.findChild<QLineEdit *>(QStringLiteral("cant_unidades"));
    auto *por_unidad = dialogo.findChild<QLineEdit *>(QStringLiteral("Text_cantxprecio"));
    ASSERT_NE(unidades, nullptr);
    ASSERT_NE(por_unidad, nullptr);
    EXPECT_EQ(por_unidad->text(), "600,00 c/u");
    unidades->selectAll();
    QTest::keyClicks(unidades, QStringLiteral("6"));
    EXPECT_EQ(por_unidad->text(), "100,00 c/u");

    dialogo.findChild<QPushButton *>(QStringLiteral("Command1"))->click();
    EXPECT_EQ(dialogo.result(), QDialog::Accepted);
    EXPECT_TRUE(dialogo.recargar_panel());
    EXPECT_EQ(
        app.db().execQ1(QStringLiteral("SELECT Unidades FROM vendrix_unidades_articulo WHERE Proveedor = "
                                       "'Acme' AND Codigo = 'T1'"),
                        QStringLiteral("cliente")),
        "6");

    // The arrows move one whole unit.
    FrmAgregarUdeM otra_vez(app.ctx(), a);
    auto *caja = otra_vez.findChild<QLineEdit *>(QStringLiteral("cant_unidades"));
    EXPECT_EQ(caja->text(), "6");
    EXPECT_EQ(caja->palette().color(QPalette::Text), QColor(Qt::red));
    otra_vez.findChild<QWidget *>(QStringLiteral("ud_cant_unidades"))
        ->findChildren<QAbstractButton *>()
        .at(0)
        ->click();
    EXPECT_EQ(caja->text(), "7");
    EXPECT_EQ(otra_vez.findChild<QLineEdit *>(QStringLiteral("Text_cantxprecio"))->text(), "85,71 c/u");
}

} // namespace
} // namespace vendrix::screens
