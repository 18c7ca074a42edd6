// The units dialog's logic: opening with or without a remembered number, the
// unit price, the dollar note, and what saving leaves in the shop database.
#include "sales/agregar_udem.h"
#include "tienda.h"

namespace vendrix {
namespace {

using test::Tienda;

class UnidadesMedida : public Tienda {
protected:
    static ArticuloParaCarrito caja(const char *moneda = "1")
    {
        ArticuloParaCarrito a = tornillo();
        a.moneda = QString::fromUtf8(moneda);
        return a;
    }

    ResultadoUdeM guardar(const char *unidades)
    {
        AgregarUdeM dialogo(app.ctx(), caja());
        dialogo.set_cant_unidades(QString::fromUtf8(unidades));
        return dialogo.guardar();
    }
};

TEST_F(UnidadesMedida, OpeningWithoutARow)
{
    AgregarUdeM dialogo(app.ctx(), caja());
    const VistaArticulo &v = dialogo.vista();
    EXPECT_EQ(v.Text_artdesc, "Tornillo 1/4");
    EXPECT_EQ(v.Text_pventa_display, "600,00");
    EXPECT_EQ(v.cant_unidades, "1");
    EXPECT_FALSE(v.unidades_guardadas);
    EXPECT_EQ(v.Text_cantxprecio, "600,00 c/u");
    EXPECT_EQ(v.Label_Dolares, "");

    dialogo.set_cant_unidades(QStringLiteral("7"));
    EXPECT_EQ(dialogo.vista().Text_cantxprecio, "85,71 c/u");
    // The tag keeps " c/u" as well: a reader of it must strip it.
    EXPECT_EQ(dialogo.vista().Text_cantxprecio_tag, "85,7142857142857 c/u");
    dialogo.set_cant_unidades(QStringLiteral("abc"));
    EXPECT_EQ(dialogo.vista().cant_unidades, "1");
    EXPECT_EQ(dialogo.vista().Text_cantxprecio, "600,00 c/u");
}

TEST_F(UnidadesMedida, SavingInsertsUpdatesAndDeletes)
{
    // One unit and no row: nothing is written.
    EXPECT_TRUE(guardar("1").guardado);
    EXPECT_TRUE(unidades_guardadas().isEmpty());

    const ResultadoUdeM r = guardar("6");
    EXPECT_TRUE(r.guardado);
    EXPECT_TRUE(r.recargar_panel);
    EXPECT_EQ(unidades_guardadas(), QStringList{"Acme|T1|6"});

    AgregarUdeM abierto(app.ctx(), caja());
    EXPECT_TRUE(abierto.vista().unidades_guardadas);
    EXPECT_EQ(abierto.vista().cant_unidades, "6");
    EXPECT_EQ(abierto.vista().Text_cantxprecio, "100,00 c/u");

    guardar("1,5");
    EXPECT_EQ(unidades_guardadas(), QStringList{"Acme|T1|1.5"});
    // Back to 1: the row goes, so a price is never divided by a stored 1.
    guardar("1");
    EXPECT_TRUE(unidades_guardadas().isEmpty());
    const QString actualizo =
        QStringLiteral("Agregar Artículo - Se actualizo la cantidad de unidades por precio para "
                       "el artículo Tornillo 1/4");
    EXPECT_EQ(log_de("ACT"),
              (QStringList{"Agregar Artículo - Se guardo la cantidad de unidades por precio para el "
                           "artículo Tornillo 1/4",
                           actualizo, actualizo}));
}

TEST_F(UnidadesMedida, ZeroOrLessIsRefused)
{
    for (const char *malo : {"0", "-3"}) {
        const ResultadoUdeM r = guardar(malo);
        EXPECT_FALSE(r.guardado) << malo;
        EXPECT_FALSE(r.recargar_panel);
    }
    EXPECT_EQ(app.op.lines().size(), 2);
    EXPECT_EQ(app.op.lines().front(),
              "warn|Error en los datos ingresados|El valor del campo \"Cantidad de Unidades "
              "por Precio\" no puede ser cero o menor que cero.");
    EXPECT_TRUE(unidades_guardadas().isEmpty());
}

TEST_F(UnidadesMedida, ADollarArticleShowsTheRate)
{
    ajuste("Valor_Dolar", "2");
    AgregarUdeM dialogo(app.ctx(), caja("102"));
    EXPECT_TRUE(app.op.empty());
    EXPECT_EQ(dialogo.vista().Label_Dolares, "El precio original en dólares. Tipo de cambio 1 USD = 2");
    EXPECT_EQ(dialogo.vista().Text_pventa, "1200,00");
    EXPECT_EQ(dialogo.vista().Text_pventa_tag, "1200");
    EXPECT_EQ(dialogo.vista().Text_cantxprecio, "1200,00 c/u");

    ajuste("Valor_Dolar", "");
    AgregarUdeM sin_cotizacion(app.ctx(), caja("2"));
    EXPECT_EQ(app.op.lines(),
              QStringList{"warn|Vendrix|El valor de la cotización del dolar esta vacío. Por favor "
                          "configurela."});
    EXPECT_EQ(sin_cotizacion.vista().Label_Dolares,
              "El precio original en dólares. Tipo de cambio 1 USD = 1");
    EXPECT_EQ(sin_cotizacion.vista().Text_cantxprecio, "600,00 c/u");
}

} // namespace
} // namespace vendrix
