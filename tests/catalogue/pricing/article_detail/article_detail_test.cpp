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

// "caption+enabled" of the buttons and which images show.
QString botones(const ArticleDetail &d)
{
    QString out = d.favoritos.caption + (d.favoritos.habilitado ? "+|" : "-|") + d.control.caption +
                  (d.control.habilitado ? "+|" : "-|");
    for (bool b : {d.unidades_habilitado, d.comentarios_habilitado, d.pedido_habilitado, d.plista_editable})
        out += b ? u'1' : u'0';
    for (bool b : d.imagenes)
        out += b ? u'1' : u'0';
    return out;
}

TEST_F(DetalleArticuloTest, FieldsRulesButtonsAndColourOfEachLoad)
{
    const ArticleDetail d = cargar(1);
    EXPECT_EQ(d.campos, (std::array<QString, kCamposArticulo>{"Tornillos", "Tornillo 1/4", "T1",
                                                              "Pesos Argentinos (ARS)", "Fix", "Unidad", "",
                                                              "02/11/2026", "Acme", ""}));
    EXPECT_EQ(QStringList({d.panel[C::TextBox_Ganancia].text, d.panel[C::TextBox_Descuento].text,
                           d.ganancia_cargada, d.descuento_cargada}),
              (QStringList{"30", "10+5", "30", "10+5"}));
    EXPECT_EQ(botones(d), QStringLiteral("Agregar a favoritos+|Controlar Precio+|11100000"));
    EXPECT_EQ(app.status.busy_changes, (std::vector<bool>{true, false}));
    EXPECT_EQ(cargar(2, d).color, CurrencyColour::PesosIvaReducido);
    EXPECT_EQ(color_moneda(u"102"), CurrencyColour::DolaresIvaReducido);
    EXPECT_EQ(color_moneda(u"7"), CurrencyColour::Otra);
    EXPECT_EQ(fecha_lista_visible(QStringLiteral("2026-11-02 10:00:00")), QStringLiteral("02/11/2026"));
    EXPECT_TRUE(app.op.empty()); // nothing typed over the rules: no question
    EXPECT_FALSE(cargar_detalle_articulo(app.ctx(), reglas, {}, 99)); // no such article
}

TEST_F(DetalleArticuloTest, AWrongRuleFormulaIsToldOnceAtTheLoad)
{
    regla("Otro", "Varios", "Todos los articulos del grupo", "x", "30");
    llenar();
    app.op.clear();
    const ArticleDetail d = cargar(9);
    EXPECT_EQ(app.op.lines(),
              (QStringList{"error|Error en el descuento|La formula ingresada para el descuento "
                           "no es correcta. Por favor corríjala e intente nuevamente."}));
    EXPECT_EQ(d.panel[C::TextBox_PTotal_civa].text, QStringLiteral("786,50"));
}

TEST_F(DetalleArticuloTest, CodeButtonsByCodeAndRepeatedCode)
{
    ArticleDetail d = cargar(5);
    EXPECT_EQ(d.codigo_repetido, 2);
    EXPECT_EQ(botones(d), QStringLiteral("Agregar a favoritos+|Controlar Precio-|11100000"));
    EXPECT_FALSE(alternar_favorito(app.ctx(), d));
    EXPECT_EQ(app.op.lines(),
              (QStringList{"error|Error al asignar favoritos|El artículo no puede agregarse a "
                           "Favoritos por que su código está repetido"}));
    EXPECT_TRUE(marcas_en_base().isEmpty());
    // A mark from before the code was repeated can still be removed.
    shop("INSERT INTO vendrix_articulos_testigo (Proveedor, Codigo, Tipo) VALUES ('Acme', 'R1', 'F')");
    EXPECT_EQ(botones(cargar(6)), QStringLiteral("Eliminar de favoritos+|Controlar Precio-|11101000"));
    EXPECT_EQ(botones(cargar(4)), QStringLiteral("Agregar a favoritos-|Controlar Precio-|00100000"));
    EXPECT_EQ(botones(limpiar_detalle()), QStringLiteral("Agregar a favoritos-|Controlar Precio-|00000000"));
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
    EXPECT_EQ(QStringList({d.panel[C::TextBox_PLista].text, d.panel[C::TextBox_PLista_grilla].text,
                           d.panel[C::TextBox_PLista_grilla_unidad].text,
                           d.panel[C::TextBox_PTotal_civa].text, d.panel[C::TextBox_PLista_original].text}),
              (QStringList{"250", "250,00", "250,00", "302,50", "302,5"}));

    app.op.clear();
    app.op.answer(false);
    EXPECT_EQ(cargar(7).panel[C::TextBox_PLista_grilla].text, QStringLiteral("0"));
    EXPECT_EQ(app.op.shown.size(), 1u);
}

TEST_F(DetalleArticuloTest, FavouritesAndCommentsRoundTripForASupplierWithAnApostrophe)
{
    app.op.answers_in_order({false, false});
    ArticleDetail d = cargar(7);
    ASSERT_TRUE(alternar_favorito(app.ctx(), d));
    EXPECT_EQ(marcas_en_base(), (QStringList{"D'Angelo|C'1|F|Caño 1/2' cobre"}));
    EXPECT_EQ(cargar(7).favoritos.caption, QStringLiteral("Eliminar de favoritos"));
    ASSERT_TRUE(alternar_favorito(app.ctx(), d));
    EXPECT_FALSE(d.imagen(ArticleMark::Favorito));
    EXPECT_TRUE(marcas_en_base().isEmpty());

    app.op.clear();
    app.op.answers_in_order({false, true, true});
    EXPECT_FALSE(guardar_comentario_articulo(app.ctx(), d, QStringLiteral("no")));
    ASSERT_TRUE(guardar_comentario_articulo(app.ctx(), d, QStringLiteral("Otro 'texto'")));
    EXPECT_EQ(app.op.lines().value(1), QStringLiteral("ask|Guardar Comentarios|¿Está seguro de guardar los "
                                                      "comentarios en el artículo: C'1 - Caño 1/2' cobre?"));
    EXPECT_EQ(nuevos_logs().last(),
              QStringLiteral("Notas Artículo - Se modificaron los datos el artículo: C'1 - Caño 1/2' cobre"));
    EXPECT_EQ(marcas_en_base(), (QStringList{"D'Angelo|C'1|U|Otro 'texto'"}));
    ASSERT_TRUE(guardar_comentario_articulo(app.ctx(), d, QStringLiteral("   ")));
    EXPECT_TRUE(marcas_en_base().isEmpty());
    EXPECT_FALSE(d.imagen_comentario);

    ajuste("admin_block", "xyz");
    app.op.clear();
    EXPECT_FALSE(guardar_comentario_articulo(app.ctx(), d, QStringLiteral("hola")));
    EXPECT_EQ(app.op.lines(),
              (QStringList{"error|No se pueden guardar los Comentarios|No se puede guardar el "
                           "comentario ya que la configuración se encuentra bloqueada por el "
                           "administrador de Vendrix."}));
}

class DetalleArticuloContado : public DetalleArticuloTest {
protected:
    DetalleArticuloContado() : DetalleArticuloTest(true) {}
};

TEST_F(DetalleArticuloContado, OneQueryForTheArticleAndOneForAllItsMarksAndUnits)
{
    shop("INSERT INTO vendrix_articulos_testigo (Proveedor, Codigo, Tipo, Descripcion) VALUES ('Acme', 'T1', "
         "'F', ''), ('Acme', 'T1', 'C', ''), ('Acme', 'T1', 'U', 'Frágil'), ('Acme', '', 'F', '')");
    shop("INSERT INTO vendrix_pedidos (Proveedor, Codigo, Descripcion, Estado) "
         "VALUES ('Acme', 'T1', 'Tornillo 1/4', 'Pedido Pendiente')");
    shop("INSERT INTO vendrix_unidades_articulo (Proveedor, Codigo, Unidades) VALUES ('Acme', 'T1', 4)");

    const int antes = app.failing_db().statements_seen();
    const ArticleDetail d = cargar(1);
    EXPECT_EQ(app.failing_db().statements_seen() - antes, 2);

    EXPECT_EQ(botones(d), QStringLiteral("Eliminar de favoritos+|No Controlar Precio+|11101110"));
    EXPECT_EQ(d.campo(ArticleField::Comentario), QStringLiteral("Frágil"));
    EXPECT_EQ(d.panel[C::Label_PListacustom].text, QStringLiteral("(Por 4 unidades)"));
    // Marks of a code never reach an article without one.
    EXPECT_FALSE(cargar(4).imagen(ArticleMark::Favorito));
}

TEST(TeclaEnfocaBusqueda, OnlyTheChosenKeyAndOnlyWhenTheOptionIsOn)
{
    test::TestApp app;
    struct Caso {
        const char *activa;
        const char *opcion;
        int tecla;
        bool enfoca;
    };
    const Caso casos[] = {
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
