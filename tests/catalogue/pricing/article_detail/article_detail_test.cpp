// The article panel of the lists tab: what one selection loads, the marks,
// the buttons, the former price of an article without price, favourites and
// the shop's comment.
#include "catalogue/pricing/article_detail/article_detail.h"
#include "catalogue/pricing/article_detail/detail_marks.h"
#include "catalogue/search/search_box_keys.h"
#include "catalogue/support/shop_fixture.h"

namespace vendrix {
namespace {

using C = PanelField;
using test::kDAngelo;

class DetalleArticuloTest : public test::TiendaConLista {
protected:
    explicit DetalleArticuloTest(bool failing = false) : TiendaConLista(failing) {}

    void SetUp() override
    {
        TiendaConLista::SetUp();
        regla("Acme", "General para la lista", "Todos los articulos del grupo", "10+5", "30");
        llenar();
        app.op.clear();
    }

    ArticleDetail cargar(qint64 id, const ArticleDetail &saliente = {})
    {
        std::optional<ArticleDetail> d = cargar_detalle_articulo(app.ctx(), reglas, saliente, id);
        EXPECT_TRUE(d) << id;
        return d ? *d : ArticleDetail{};
    }

    void shop(const QString &sql) { ASSERT_TRUE(app.db().execNQ(sql, QStringLiteral("internal"))); }

    QStringList marcas_en_base()
    {
        QStringList out;
        const Matrix m = app.db().execQ_matriz(
            QStringLiteral(
                "SELECT Proveedor, Codigo, Tipo, Descripcion FROM vendrix_articulos_testigo ORDER BY ID"),
            QStringLiteral("internal"));
        for (int r = 0; r < m.filas(); ++r)
            out << m.fila(r).join(QLatin1Char('|'));
        return out;
    }
};

TEST_F(DetalleArticuloTest, FieldsRulesAndPricesOfAFullRateArticle)
{
    const ArticleDetail d = cargar(1);
    EXPECT_EQ(d.id, 1);
    EXPECT_EQ(d.campos, (std::array<QString, kCamposArticulo>{"Tornillos", "Tornillo 1/4", "T1",
                                                              "Pesos Argentinos (ARS)", "Fix", "Unidad", "",
                                                              "02/11/2026", "Acme", ""}));
    EXPECT_EQ(d.color, CurrencyColour::Pesos);
    EXPECT_EQ(d.panel[C::Label50].text, QStringLiteral("(IVA 21%)"));
    EXPECT_EQ(d.panel[C::TextBox_Descuento].text, QStringLiteral("10+5"));
    EXPECT_EQ(d.panel[C::TextBox_Ganancia].text, QStringLiteral("30"));
    EXPECT_EQ(d.panel[C::Textbox_desusr].text, QStringLiteral("0"));
    EXPECT_EQ(d.panel[C::TextBox_Costo].text, QStringLiteral("855"));
    EXPECT_EQ(d.panel[C::TextBox_PTotal_civa].text, QStringLiteral("1344,92"));
    EXPECT_EQ(d.panel[C::lPrecioSolo].text, QStringLiteral("1344,92"));
    EXPECT_EQ(d.panel[C::lPrecioSolotarjeta].text, QStringLiteral("1479,41"));
    EXPECT_EQ(d.ganancia_cargada, QStringLiteral("30"));
    EXPECT_EQ(d.descuento_cargada, QStringLiteral("10+5"));
    EXPECT_FALSE(d.plista_editable);
    EXPECT_EQ(d.favoritos.caption, QStringLiteral("Agregar a favoritos"));
    EXPECT_TRUE(d.favoritos.habilitado);
    EXPECT_EQ(d.control.caption, QStringLiteral("Controlar Precio"));
    EXPECT_TRUE(d.control.habilitado);
    EXPECT_TRUE(d.unidades_habilitado);
    EXPECT_TRUE(d.comentarios_habilitado);
    EXPECT_EQ(d.imagenes, (std::array<bool, kMarcasArticulo>{}));
    EXPECT_TRUE(app.op.empty());
    EXPECT_EQ(app.status.busy_changes.back(), false);
}

TEST_F(DetalleArticuloTest, AReducedRateArticleAfterAFullRateOneTakesItsOwnRate)
{
    const ArticleDetail primero = cargar(1);
    const ArticleDetail d = cargar(2, primero);
    EXPECT_EQ(d.panel[C::Label50].text, QStringLiteral("(IVA 10,5%)"));
    EXPECT_EQ(d.panel[C::articulo_label].text, QStringLiteral("Precio de Venta con IVA (10,5%)"));
    EXPECT_DOUBLE_EQ(d.panel.iva, 10.5);
    EXPECT_EQ(d.panel[C::TextBox_PTotal_civa].text, QStringLiteral("1228,21")); // 1111.5 * 1.105
    EXPECT_EQ(d.panel[C::TextBox_PTotal].text, QStringLiteral("1111,5"));
    EXPECT_EQ(d.color, CurrencyColour::PesosIvaReducido);
    EXPECT_TRUE(app.op.empty()); // nothing typed over the rules: no question

    // And back to the full rate.
    EXPECT_EQ(cargar(1, d).panel[C::Label50].text, QStringLiteral("(IVA 21%)"));
}

TEST_F(DetalleArticuloTest, ADollarArticleIsPricedInPesosAndColouredApart)
{
    const ArticleDetail d = cargar(3);
    EXPECT_EQ(d.campo(ArticleField::Moneda), QStringLiteral("Dolares (U$D)"));
    EXPECT_EQ(d.color, CurrencyColour::Dolares);
    EXPECT_EQ(d.panel[C::TextBox_PLista_grilla].text, QStringLiteral("1000"));
    EXPECT_EQ(d.panel[C::TextBox_PTotal_civa].text, QStringLiteral("1344,92"));
}

TEST(ColorMonedaTest, ByCurrencyCode)
{
    EXPECT_EQ(color_moneda(u"1"), CurrencyColour::Pesos);
    EXPECT_EQ(color_moneda(u"2"), CurrencyColour::Dolares);
    EXPECT_EQ(color_moneda(u"101"), CurrencyColour::PesosIvaReducido);
    EXPECT_EQ(color_moneda(u"102"), CurrencyColour::DolaresIvaReducido);
    EXPECT_EQ(color_moneda(u"7"), CurrencyColour::Otra);
    EXPECT_EQ(color_moneda(u""), CurrencyColour::Otra);
}

TEST(FechaListaVisible, IsoDatesShowDayFirst)
{
    EXPECT_EQ(fecha_lista_visible(QStringLiteral("2026-11-02")), QStringLiteral("02/11/2026"));
    EXPECT_EQ(fecha_lista_visible(QStringLiteral("2026-11-02 10:00:00")), QStringLiteral("02/11/2026"));
    EXPECT_EQ(fecha_lista_visible(QStringLiteral("02/11/2026")), QStringLiteral("02/11/2026"));
    EXPECT_EQ(fecha_lista_visible(QString()), QString());
}

TEST_F(DetalleArticuloTest, ARepeatedCodeHasNoFavouritesNorPriceControl)
{
    ArticleDetail d = cargar(5);
    EXPECT_EQ(d.codigo_repetido, 2);
    EXPECT_EQ(d.favoritos.caption, QStringLiteral("Agregar a favoritos"));
    EXPECT_TRUE(d.favoritos.habilitado);
    EXPECT_EQ(d.control.caption, QStringLiteral("Controlar Precio"));
    EXPECT_FALSE(d.control.habilitado);
    EXPECT_TRUE(d.unidades_habilitado);

    EXPECT_FALSE(alternar_favorito(app.ctx(), d));
    EXPECT_EQ(app.op.lines(),
              (QStringList{"error|Error al asignar favoritos|El artículo no puede agregarse a "
                           "Favoritos por que su código está repetido"}));
    EXPECT_TRUE(marcas_en_base().isEmpty());

    // A mark from before the code was repeated can still be removed.
    shop("INSERT INTO vendrix_articulos_testigo (Proveedor, Codigo, Tipo) VALUES ('Acme', 'R1', 'F')");
    d = cargar(6);
    EXPECT_EQ(d.favoritos.caption, QStringLiteral("Eliminar de favoritos"));
    EXPECT_TRUE(d.favoritos.habilitado);
}

TEST_F(DetalleArticuloTest, AnArticleWithoutCodeHasItsCodeButtonsOff)
{
    const ArticleDetail d = cargar(4);
    EXPECT_FALSE(d.favoritos.habilitado);
    EXPECT_FALSE(d.control.habilitado);
    EXPECT_FALSE(d.unidades_habilitado);
    EXPECT_FALSE(d.comentarios_habilitado);
    EXPECT_TRUE(d.pedido_habilitado);
}

TEST_F(DetalleArticuloTest, PriceZeroOffersTheFormerPriceAndYesFillsTheFourBoxes)
{
    app.op.answer(true);
    const ArticleDetail d = cargar(7);
    EXPECT_EQ(app.op.lines(),
              (QStringList{
                  "ask|Artículo sin precio|El artículo seleccionado tiene precio de lista igual a cero. "
                  "Esto implica que el proveedor 'D'Angelo' no esta reportando el precio de dicho "
                  "artículo.\r\nVendrix encontro un precio antiguo (actualizado al 01/10/2026) para el "
                  "proveedor y codigo ingresados con la siguiente caracteristicas: \r\n\r\n     "
                  "Proveedor       :  D'Angelo\r\n     Código            :  C'1\r\n     Grupo              "
                  ":  Caños\r\n     Descripción    :  Caño 1/2' cobre\r\n     Fecha               :  "
                  "01/10/2026\r\n     Precio de Lista:  $250,00 (Pesos Argentinos)\r\n\r\nDesea utilizar "
                  "este precio para realizar la venta?"}));
    EXPECT_TRUE(d.plista_editable);
    EXPECT_EQ(d.panel[C::TextBox_PLista].text, QStringLiteral("250"));
    for (C campo : {C::TextBox_PLista_original, C::TextBox_PLista_grilla, C::TextBox_PLista_grilla_unidad})
        EXPECT_FALSE(d.panel[campo].text.isEmpty());
    EXPECT_EQ(d.panel[C::TextBox_PLista_grilla].text, QStringLiteral("250,00"));
    EXPECT_EQ(d.panel[C::TextBox_PLista_grilla_unidad].text, QStringLiteral("250,00"));
    EXPECT_EQ(d.panel[C::TextBox_PTotal_civa].text, QStringLiteral("302,50"));
    EXPECT_EQ(d.panel[C::TextBox_PLista_original].text, QStringLiteral("302,5")); // the whole pack with IVA

    app.op.clear();
    app.op.answer(false);
    const ArticleDetail no = cargar(7);
    EXPECT_EQ(app.op.shown.size(), 1u);
    EXPECT_EQ(no.panel[C::TextBox_PLista_grilla].text, QStringLiteral("0"));
    EXPECT_EQ(no.panel[C::TextBox_PTotal_civa].text, QStringLiteral("0,00"));
}

TEST_F(DetalleArticuloTest, PriceZeroWithoutFormerPriceTakesATypedPrice)
{
    ArticleDetail d = cargar(8);
    EXPECT_TRUE(app.op.empty());
    EXPECT_TRUE(d.plista_editable);
    escribir_precio_lista(app.ctx(), d, QStringLiteral("100"));
    EXPECT_EQ(d.panel[C::TextBox_PLista_grilla_unidad].text, QStringLiteral("100"));
    EXPECT_EQ(d.panel[C::TextBox_PTotal_civa].text, QStringLiteral("121,00"));
}

TEST_F(DetalleArticuloTest, FormulasTypedForTheLeavingArticleAreOfferedFirst)
{
    ArticleDetail primero = cargar(1);
    primero.panel[C::TextBox_Ganancia].text = QStringLiteral("40");
    app.op.answer(false);
    const ArticleDetail d = cargar(9, primero);
    ASSERT_EQ(app.op.shown.size(), 1u);
    EXPECT_EQ(app.op.shown[0].title, QStringLiteral("Valores de Ganancia y Descuento modificados"));
    EXPECT_EQ(d.id, 9);
}

TEST_F(DetalleArticuloTest, AMissingArticleLeavesThePanelAlone)
{
    EXPECT_FALSE(cargar_detalle_articulo(app.ctx(), reglas, {}, 99));
    EXPECT_TRUE(app.op.empty());
}

TEST_F(DetalleArticuloTest, ClearedPanelShowsNothingAndOffersNothing)
{
    const ArticleDetail d = limpiar_detalle();
    EXPECT_EQ(d.id, 0);
    EXPECT_EQ(d.campos, (std::array<QString, kCamposArticulo>{}));
    EXPECT_EQ(d.favoritos.caption, QStringLiteral("Agregar a favoritos"));
    EXPECT_FALSE(d.favoritos.habilitado || d.control.habilitado || d.unidades_habilitado ||
                 d.comentarios_habilitado || d.pedido_habilitado);
    EXPECT_TRUE(d.panel[C::lPrecioSolo].text.isEmpty());
}

TEST_F(DetalleArticuloTest, FavouritesRoundTripForASupplierWithAnApostrophe)
{
    app.op.answers_in_order({false, false, false});
    ArticleDetail d = cargar(7);
    ASSERT_TRUE(alternar_favorito(app.ctx(), d));
    EXPECT_EQ(d.favoritos.caption, QStringLiteral("Eliminar de favoritos"));
    EXPECT_TRUE(d.imagen(ArticleMark::Favorito));
    EXPECT_EQ(marcas_en_base(), (QStringList{"D'Angelo|C'1|F|Caño 1/2' cobre"}));
    EXPECT_EQ(cargar(7).favoritos.caption, QStringLiteral("Eliminar de favoritos"));

    ASSERT_TRUE(alternar_favorito(app.ctx(), d));
    EXPECT_EQ(d.favoritos.caption, QStringLiteral("Agregar a favoritos"));
    EXPECT_FALSE(d.imagen(ArticleMark::Favorito));
    EXPECT_TRUE(marcas_en_base().isEmpty());
    EXPECT_EQ(cargar(7).favoritos.caption, QStringLiteral("Agregar a favoritos"));
}

TEST_F(DetalleArticuloTest, ACommentRoundTripsAndAnEmptyOneDeletesTheRow)
{
    ArticleDetail d = cargar(1);
    const QString pregunta = QStringLiteral(
        "ask|Guardar Comentarios|¿Está seguro de guardar los comentarios en el artículo: T1 - Tornillo 1/4?");
    const QString log =
        QStringLiteral("Notas Artículo - Se modificaron los datos el artículo: T1 - Tornillo 1/4");

    app.op.answer(false);
    EXPECT_FALSE(guardar_comentario_articulo(app.ctx(), d, QStringLiteral("no")));
    EXPECT_TRUE(marcas_en_base().isEmpty());

    app.op.clear();
    app.op.answer(true);
    ASSERT_TRUE(
        guardar_comentario_articulo(app.ctx(), d, QStringLiteral("Pedir a Juan, 'el de la esquina'")));
    EXPECT_EQ(app.op.lines(), QStringList{pregunta});
    EXPECT_EQ(marcas_en_base(), (QStringList{"Acme|T1|U|Pedir a Juan, 'el de la esquina'"}));
    EXPECT_TRUE(d.imagen_comentario);
    EXPECT_EQ(nuevos_logs().last(), log);
    EXPECT_EQ(cargar(1).campo(ArticleField::Comentario), QStringLiteral("Pedir a Juan, 'el de la esquina'"));

    app.op.answer(true);
    ASSERT_TRUE(guardar_comentario_articulo(app.ctx(), d, QStringLiteral("Otro texto")));
    EXPECT_EQ(marcas_en_base(), (QStringList{"Acme|T1|U|Otro texto"}));

    app.op.answer(true);
    ASSERT_TRUE(guardar_comentario_articulo(app.ctx(), d, QStringLiteral("   ")));
    EXPECT_TRUE(marcas_en_base().isEmpty());
    EXPECT_FALSE(d.imagen_comentario);
    EXPECT_EQ(d.campo(ArticleField::Comentario), QString());
    EXPECT_TRUE(cargar(1).campo(ArticleField::Comentario).isEmpty());
}

TEST_F(DetalleArticuloTest, CommentsAreRefusedUnderTheAdministratorLock)
{
    ArticleDetail d = cargar(1);
    ajuste("admin_block", "xyz");
    EXPECT_FALSE(guardar_comentario_articulo(app.ctx(), d, QStringLiteral("hola")));
    EXPECT_EQ(
        app.op.lines(),
        (QStringList{"error|No se pueden guardar los Comentarios|No se puede guardar el comentario ya que la "
                     "configuración se encuentra bloqueada por el administrador de Vendrix."}));
    EXPECT_TRUE(marcas_en_base().isEmpty());
}

class DetalleArticuloContado : public DetalleArticuloTest {
protected:
    DetalleArticuloContado() : DetalleArticuloTest(true) {}
};

TEST_F(DetalleArticuloContado, AllMarksAndUnitsComeInOneQuery)
{
    shop("INSERT INTO vendrix_articulos_testigo (Proveedor, Codigo, Tipo) VALUES ('Acme', 'T1', 'F')");
    shop("INSERT INTO vendrix_articulos_testigo (Proveedor, Codigo, Tipo) VALUES ('Acme', 'T1', 'C')");
    shop("INSERT INTO vendrix_articulos_testigo (Proveedor, Codigo, Tipo, Descripcion) "
         "VALUES ('Acme', 'T1', 'U', 'Frágil')");
    shop("INSERT INTO vendrix_pedidos (Proveedor, Codigo, Descripcion, Estado) "
         "VALUES ('Acme', 'T1', 'Tornillo 1/4', 'Pedido Pendiente')");
    shop("INSERT INTO vendrix_unidades_articulo (Proveedor, Codigo, Unidades) VALUES ('Acme', 'T1', 4)");

    const int antes = app.failing_db().statements_seen();
    const ArticleDetail d = cargar(1);
    EXPECT_EQ(app.failing_db().statements_seen() - antes, 2); // the article, then its marks

    EXPECT_EQ(d.favoritos.caption, QStringLiteral("Eliminar de favoritos"));
    EXPECT_EQ(d.control.caption, QStringLiteral("No Controlar Precio"));
    EXPECT_EQ(d.imagenes, (std::array<bool, kMarcasArticulo>{true, true, true, false}));
    EXPECT_TRUE(d.imagen_comentario);
    EXPECT_EQ(d.campo(ArticleField::Comentario), QStringLiteral("Frágil"));
    EXPECT_EQ(d.panel[C::Label_PListacustom].text, QStringLiteral("(Por 4 unidades)"));
    EXPECT_EQ(d.panel[C::TextBox_PLista].text, QStringLiteral("250"));
    EXPECT_EQ(d.panel[C::TextBox_PLista_grilla_unidad].text, QStringLiteral("250"));

    // Marks of a code never reach an article without one.
    shop("INSERT INTO vendrix_articulos_testigo (Proveedor, Codigo, Tipo) VALUES ('Acme', '', 'F')");
    EXPECT_FALSE(cargar(4).imagen(ArticleMark::Favorito));
}

TEST(TeclaEnfocaBusqueda, CartKeysAndTheChosenSearchKey)
{
    test::TestApp app;
    struct Caso {
        const char *activa;
        const char *opcion;
        int tecla;
        bool enfoca;
    };
    const Caso casos[] = {
        {"", "", Qt::Key_F1, false},
        {"", "", Qt::Key_F5, false},
        {"", "", Qt::Key_F6, false},
        {"", "Escape (ESC)", Qt::Key_Escape, false},
        {"1", "Escape (ESC)", Qt::Key_Escape, true},
        {"1", "Signo de Pregunta (?)", Qt::Key_Question, true},
        {"1", "Inicio (HOME)", Qt::Key_Home, true},
        {"1", "Fin (END)", Qt::Key_End, true},
        {"1", "Fin (END)", Qt::Key_Home, false},
        {"1", "", 0, false},
    };
    for (const Caso &c : casos) {
        app.ctx().escribir_parametro(QStringLiteral("busqueda_search"), QString::fromUtf8(c.activa));
        app.ctx().escribir_parametro(QStringLiteral("busqueda_search_combo"), QString::fromUtf8(c.opcion));
        EXPECT_EQ(tecla_enfoca_busqueda(app.ctx(), c.tecla), c.enfoca) << c.opcion << " " << c.tecla;
    }
}

} // namespace
} // namespace vendrix
