// The lists tab as a counter screen: the result grid and the article panel
// side by side, the sale price in large type. With VENDRIX_CAPTURA set to a
// folder, the test also leaves there a picture of the tab for a dollar
// article and for a reduced-rate one; with VENDRIX_CAPTURA_CARPETA set to a
// demo shop's folder (`vendrix-cli demo`), it shows that shop's lists.
#include "catalogue/support/shop_fixture.h"
#include "screens/panel_articulo.h"
#include "widgets/lynx_grid.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>

namespace vendrix {
namespace {

class VistaListas : public test::TiendaConLista {
protected:
    void SetUp() override
    {
        const QString demo = qEnvironmentVariable("VENDRIX_CAPTURA_CARPETA");
        if (demo.isEmpty()) {
            TiendaConLista::SetUp();
        } else {
            for (const auto &[de, a] : {std::pair{"Vendrix.install", "Vendrix.vdrxdb"},
                                        std::pair{"clientes.install", "clientes.vdrx"}}) {
                QFile::remove(app.ruta(QLatin1String(a)));
                ASSERT_TRUE(QFile::copy(QDir(demo).filePath(QLatin1String(de)), app.ruta(QLatin1String(a))));
            }
            ASSERT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
            for (const auto &[clave, valor] :
                 {std::pair{"iva", "21"}, std::pair{"Valor_Dolar", "1050"}, std::pair{"decimales", "2"},
                  std::pair{"recargo_tarjeta", "10"}})
                ajuste(clave, QString::fromUtf8(valor));
        }
        llenar();
        ventana.resize(1280, 800);
        auto *layout = new QHBoxLayout(&ventana);
        grilla = new widgets::LynxGrid(&ventana);
        grilla->setObjectName(QStringLiteral("DataGridViewListas"));
        for (const auto &[titulo, ancho] :
             {std::pair{"ID", 0}, std::pair{"Proveedor", 1800}, std::pair{"Rubro", 1800},
              std::pair{"Descripción", 4200}, std::pair{"Moneda", 900}, std::pair{"Marca", 1200},
              std::pair{"Precio", 1100}}) {
            widgets::ColumnSpec spec;
            spec.heading = QString::fromUtf8(titulo);
            spec.width = ancho;
            spec.visible = ancho > 0;
            grilla->AddColumn(spec);
        }
        panel = new PanelArticulo(app.ctx(), reglas, &ventana);
        layout->addWidget(grilla, 3);
        layout->addWidget(panel, 2);
        ventana.show();
        app.op.answers_in_order({false, false, false, false});
    }

    // The rows around an article, as a search would show them, with the
    // article selected and loaded.
    void mostrar_alrededor(qint64 id)
    {
        grilla->Clear();
        const Matrix m = app.db().execQ_matriz(
            QStringLiteral(
                "SELECT ID, Proveedor, Grupo, Descripcion, CASE WHEN Moneda IN ('1', '101') THEN 'Pesos' "
                "WHEN Moneda IN ('2', '102') THEN 'Dolares' ELSE Moneda END, Marca, Precio FROM "
                "xls_listas WHERE ID BETWEEN ? AND ? ORDER BY ID"),
            QStringLiteral("external"), {id - 12, id + 12});
        int fila = -1;
        for (int r = 0; r < m.filas(); ++r) {
            const int row = grilla->AddItem(m.fila(r).join(QLatin1Char('\t')));
            if (m.at(0, r) == QString::number(id))
                fila = row;
        }
        ASSERT_GE(fila, 0);
        grilla->setRow(fila);
        panel->cargar_fila(grilla->CellText(fila, 0), grilla->CellText(fila, 1));
        ASSERT_EQ(panel->detalle().id, id);
    }

    void capturar(const char *nombre)
    {
        const QString carpeta = qEnvironmentVariable("VENDRIX_CAPTURA");
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents(); // the layout settles as it would on screen
        if (!carpeta.isEmpty()) {
            EXPECT_TRUE(ventana.grab().save(QDir(carpeta).filePath(QString::fromUtf8(nombre))));
        }
    }

    qint64 primer_articulo(const char *moneda)
    {
        return app.db()
            .execQ1(QStringLiteral(
                        "SELECT min(ID) FROM xls_listas WHERE Moneda = ? AND CAST(Precio AS REAL) > 0"),
                    QStringLiteral("external"), {QString::fromUtf8(moneda)})
            .toLongLong();
    }

    QWidget ventana;
    widgets::LynxGrid *grilla = nullptr;
    PanelArticulo *panel = nullptr;
};

TEST_F(VistaListas, GridAndPanelSideBySideWithALargeSalePrice)
{
    const qint64 dolar = primer_articulo("2");
    ASSERT_GT(dolar, 0);
    mostrar_alrededor(dolar);
    capturar("listas_dolar.png");

    const QRect g = grilla->geometry();
    const QRect p = panel->geometry();
    EXPECT_LE(g.right(), p.left());
    EXPECT_GT(g.height(), p.height() / 2); // both run down the window
    auto *precio = panel->findChild<QLabel *>(QStringLiteral("lPrecioSolo"));
    ASSERT_NE(precio, nullptr);
    EXPECT_TRUE(precio->isVisible());
    EXPECT_GE(QFontInfo(precio->font()).pixelSize(), 3 * QFontInfo(panel->font()).pixelSize());
    EXPECT_GE(precio->width(), precio->sizeHint().width()); // the price isn't cut

    const qint64 reducido = primer_articulo("101");
    ASSERT_GT(reducido, 0);
    mostrar_alrededor(reducido);
    EXPECT_EQ(panel->findChild<QLabel *>(QStringLiteral("Label50"))->text(), QStringLiteral("(IVA 10,5%)"));
    capturar("listas_reducido.png");
    panel->aplicar_detalle_precios(true);
    capturar("listas_reducido_detalle.png");
}

} // namespace
} // namespace vendrix
