// The indexed search against the row-by-row evaluation of the earlier
// program's statement, on thousands of random searches over a small demo list with
// every edge the search meets: quotes, "%", "[", "_", Ñ and accents, empty
// and NULL fields, repeated codes, favourites, comments, marks and orders
// written in another case.
#include "catalogue/pricelist/demo/demo_lists.h"
#include "catalogue/search/index_at_startup.h"
#include "catalogue/support/reference_search.h"
#include "catalogue/support/search_fixture.h"

#include <gtest/gtest.h>

#include <QSet>

#include <random>

namespace vendrix::test {
namespace {

QString u(const char *text)
{
    return QString::fromUtf8(text);
}

// Articles the demo lists lack.
SupplierList lista_de_bordes()
{
    SupplierList l{u("Bazar Ñandú [x]_100%"), u("2026-11-20"), {}, {}, {}};
    const auto add = [&l](const char *code, const char *description, const char *brand, const char *notes) {
        l.articulos.push_back(
            {u("PLOMERÍA"), u(code), u(description), u(brand), u("UN"), u("10.005"), u("1"), u(notes)});
    };
    add("C-[1]", "Caño 1/2\" 100% [x] a_b", "AquaSur", "");
    add("C-2", "Llave O'Higgins ñandú ÑANDÚ", "", "oferta");
    add("C-3", "TUBERÍA de cobre", "Cobrex", "");
    add("C-3", "tuberia de cobre", "cobrex", "repetido");
    add("", "Codo sin código 90°", "", "");
    add("", "Pingüino [] ]cierre", "Ñ]", "");
    add("c-7", "Válvula esférica 3/4", "Ñandú", "ÚLTIMAS");
    add("C-8", "Cinta teflón 100 %", "", "");
    return l;
}

// The demo's own lists, the edge articles, and rows with NULL fields that no
// list file makes.
class DiferencialTest : public ::testing::Test {
protected:
    static std::vector<SupplierList> listas()
    {
        std::vector<SupplierList> lists = generar_listas_demo(1000, 7).nuevas;
        lists.push_back(lista_de_bordes());
        return lists;
    }

    void SetUp() override
    {
        f.en_precios({QStringLiteral(
            "INSERT INTO xls_listas (Proveedor, Grupo, Codigo, Descripcion, Marca, Precio, Moneda, "
            "Observaciones) "
            "VALUES ('Mi Comercio', NULL, NULL, 'Artículo propio sin código', NULL, '5', '1', NULL),"
            " ('Mi Comercio', 'PROPIOS', 'MC-1', 'Ñoqui casero', 'Casera', '3.335', NULL, 'nota'),"
            " (NULL, 'VARIOS', 'MC-2', 'Sin proveedor', 'x', '1', '2', '')")});
        ASSERT_TRUE(preparar_indice_busqueda(f.ctx()));
        {
            Transaction marks(f.app.db(), QStringLiteral("internal"));
            marcar();
            ASSERT_TRUE(marks.commit());
        }
        datos = leer_datos_busqueda(f.app.ruta(QLatin1String(Database::kPriceFile)),
                                    f.app.ruta(QLatin1String(Database::kShopFile)));
        for (const DatosBusqueda::Articulo &a : datos.articulos) {
            campos.push_back(a.pajar.split(QLatin1Char(' ')));
            pajares << a.pajar;
        }
    }

    template <typename T> const T &uno(const std::vector<T> &v) { return v[azar() % v.size()]; }
    const QString &uno(const QStringList &v) { return v[static_cast<qsizetype>(azar() % v.size())]; }
    bool azar_si(int in = 2) { return azar() % in == 0; }

    // An article's spelling in another case, as a shop may have written it.
    QString otro_caso(const QString &text)
    {
        switch (azar() % 3) {
        case 0:
            return text.toLower();
        case 1:
            return text.toUpper();
        default:
            return text;
        }
    }

    void marcar()
    {
        std::vector<const DatosBusqueda::Articulo *> coded;
        const DatosBusqueda all = leer_datos_busqueda(f.app.ruta(QLatin1String(Database::kPriceFile)),
                                                      f.app.ruta(QLatin1String(Database::kShopFile)));
        for (const DatosBusqueda::Articulo &a : all.articulos) {
            if (a.codigo && !a.codigo->isEmpty() && a.proveedor)
                coded.push_back(&a);
        }
        // One mark per article: a repeated 'F' would list the article twice.
        QSet<QString> favourites{u("BAZAR ÑANDÚ [X]_100%C-8")};
        f.marcar(QStringLiteral("f"), u("BAZAR ñANDÚ [X]_100%"), u("C-8"));
        f.marcar(QStringLiteral("F"), u("Bazar Ñandú [x]_100%"), u(""));
        f.marcar(QStringLiteral("F"), u("Nadie"), u("X-1"));
        for (int i = 0; i < 40; ++i) {
            const DatosBusqueda::Articulo *a = uno(coded);
            const QString key = a->proveedor->toUpper() + a->codigo->toUpper();
            if (!favourites.contains(key))
                f.marcar(QStringLiteral("F"), otro_caso(*a->proveedor), otro_caso(*a->codigo));
            favourites.insert(key);
        }
        for (const char *kind : {"C", "T", "C", "T"}) {
            for (int i = 0; i < 8; ++i) {
                const DatosBusqueda::Articulo *a = uno(coded);
                f.marcar(QLatin1String(kind), otro_caso(*a->proveedor), *a->codigo);
            }
        }
        const QStringList words{"oferta", "especial", "invierno", u("depósito"), u("ÑANDÚ"), "100%", "cobre"};
        for (int i = 0; i < 40; ++i) {
            const DatosBusqueda::Articulo &a = uno(all.articulos);
            const QString comment = uno(words) + QLatin1Char(' ') + uno(words) + QLatin1Char(' ') +
                                    a.descripcion.value_or(QString()).section(QLatin1Char(' '), 0, 1);
            if (a.proveedor && a.codigo)
                f.marcar(QStringLiteral("U"), otro_caso(*a.proveedor), otro_caso(*a.codigo), comment);
        }
        f.marcar(QStringLiteral("U"), u("Bazar Ñandú [x]_100%"), u(""), u("Pedir al depósito"));
        f.marcar(QStringLiteral("U"), u("bazar ñandú [X]_100%"), u(""), u("segundo comentario"));
        f.marcar(QStringLiteral("u"), u("Bazar Ñandú [x]_100%"), u("C-2"), u("Llamar al proveedor"));
        const QStringList states{"Pedido Pendiente", "pedido pendiente", "Pedido", "PEDIDO", "Recibido"};
        for (int i = 0; i < 30; ++i) {
            const DatosBusqueda::Articulo &a = uno(all.articulos);
            f.pedir(otro_caso(a.descripcion.value_or(QString())), otro_caso(a.grupo.value_or(QString())),
                    uno(states));
        }
    }

    QString termino()
    {
        const QStringList &field = uno(campos);
        const QString word = otro_caso(uno(field));
        switch (azar() % 10) {
        case 0:
        case 1:
            return word;
        case 2:
        case 3: { // a piece of a word, short ones too
            const qsizetype start = word.isEmpty() ? 0 : static_cast<qsizetype>(azar() % word.size());
            return word.mid(start, 1 + static_cast<qsizetype>(azar() % 6));
        }
        case 4: { // `_` in place of letters
            QString t = word;
            for (int k = 0; k < 1 + static_cast<int>(azar() % 2) && !t.isEmpty(); ++k)
                t[static_cast<qsizetype>(azar() % t.size())] = QLatin1Char('_');
            return t;
        }
        case 5: { // across two fields: the blank between them as `_`
            const QString &haystack = uno(pajares);
            const qsizetype blank =
                haystack.indexOf(QLatin1Char(' '), static_cast<qsizetype>(azar() % haystack.size()));
            if (blank < 0)
                return word;
            const qsizetype from = std::max<qsizetype>(0, blank - 1 - static_cast<qsizetype>(azar() % 4));
            QString t = haystack.mid(from, blank - from + 1 + static_cast<qsizetype>(azar() % 4));
            return t.replace(QLatin1Char(' '), QLatin1Char('_'));
        }
        case 6:
            return uno(QStringList{"%",    "100%",  "[",    "]",          "[]",  "'",   "o'h",
                                   u("ñ"), u("Ñu"), u("á"), "1/2\"",      "a_b", "[x]", u("ü"),
                                   "90",   u("°"),  "de",   u("ÚLTIMAS"), "_",   "\\",  "/"});
        case 7: // plurals
            return word + (azar_si() ? QStringLiteral("s") : QStringLiteral("es"));
        case 8: { // misspelt
            QString t = word;
            t.replace(QLatin1Char('c'), QLatin1Char('s')).replace(QLatin1String("LL"), QLatin1String("Y"));
            return t.replace(QLatin1Char('v'), QLatin1Char('b')).replace(QLatin1Char('Z'), QLatin1Char('S'));
        }
        default: // a word from the comments
            return uno(QStringList{"oferta", "ESPECIAL", "invierno", u("depósito"), "llamar", "segundo"});
        }
    }

    QString texto()
    {
        QStringList terms;
        for (int i = 0, n = 1 + static_cast<int>(azar() % 3); i < n; ++i)
            terms << termino();
        QString text = terms.join(azar_si(5) ? QStringLiteral("  ") : QStringLiteral(" "));
        if (azar_si(6))
            text = uno(QStringList{" de ", " con ", " / "}).mid(1) + text;
        if (azar_si(8))
            text += QLatin1Char(' ');
        return text.isEmpty() ? QStringLiteral("x") : text;
    }

    static QString describir(const FoundArticle &a)
    {
        return QStringLiteral("%1 %2|%3|%4|%5|%6|%7|%8 F%9 C%10 T%11 P%12 %13")
            .arg(a.id)
            .arg(a.proveedor, a.grupo, a.descripcion, a.moneda, a.marca, a.precio, a.codigo)
            .arg(a.marcas.favorito)
            .arg(a.marcas.centinela)
            .arg(a.marcas.testigo)
            .arg(a.marcas.pedido_pendiente)
            .arg(a.marcas.pedido);
    }

    // The first row where two results part.
    static QString diferencia(const QueryResult &got, const QueryResult &want)
    {
        for (size_t i = 0; i < std::max(got.articulos.size(), want.articulos.size()); ++i) {
            const QString a = i < got.articulos.size() ? describir(got.articulos[i]) : QStringLiteral("-");
            const QString b = i < want.articulos.size() ? describir(want.articulos[i]) : QStringLiteral("-");
            if (a != b)
                return QStringLiteral("\n fila %1: indexada %2\n        referencia %3").arg(i).arg(a, b);
        }
        return QStringLiteral(" marcador %1/%2").arg(got.hay_mas).arg(want.hay_mas);
    }

    // Runs `count` random searches through both; the number that found rows.
    int comparar(int count)
    {
        static const int limits[] = {1, 2, 3, 6, 11, 30, kLimiteTodos};
        sqlite3 *db = f.ctx().db().conexion(QStringLiteral("external"));
        int found = 0, mismatches = 0;
        for (int i = 0; i < count && mismatches < 5; ++i) {
            const QString text = texto();
            const SearchOptions o{azar_si(), azar_si(), azar_si(), azar_si(), azar_si(5)};
            const int limit = limits[azar() % std::size(limits)];
            const QString work = texto_de_trabajo(o, text);
            const QueryResult got = ejecutar_consulta(db, consulta_de_texto(o, work, limit));
            const QueryResult want = busqueda_referencia(datos, work, o, limit);
            const bool same = got.ok && got.articulos == want.articulos && got.hay_mas == want.hay_mas;
            EXPECT_TRUE(same) << "texto [" << text.toStdString() << "] preposiciones "
                              << o.ignorar_preposiciones << " similares " << o.terminos_similares
                              << " ortografia " << o.ortografia << " comentarios " << o.en_comentarios
                              << " favoritos " << o.solo_favoritos << " limite " << limit << ": "
                              << got.articulos.size() << "/" << want.articulos.size() << " filas, "
                              << got.error.toStdString() << diferencia(got, want).toStdString();
            mismatches += same ? 0 : 1;
            found += want.articulos.empty() ? 0 : 1;
        }
        return found;
    }

    CarpetaBusqueda f{listas()};
    DatosBusqueda datos;
    std::vector<QStringList> campos;
    QStringList pajares;
    std::mt19937 azar{20261123};
};

TEST_F(DiferencialTest, IndexedSearchGivesTheRowsOfTheFullScan)
{
    EXPECT_GT(comparar(2000), 800);
}

TEST_F(DiferencialTest, WithoutTheIndexTheListIsReadInstead)
{
    f.en_precios({QStringLiteral("DROP TABLE xls_busqueda")});
    EXPECT_GT(comparar(300), 120);
}

} // namespace
} // namespace vendrix::test
