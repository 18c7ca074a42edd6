// The indexed search against the row-by-row evaluation of one statement over
// the whole list, on a small demo list with every edge the search meets:
// quotes, "%", "[", "_", Ñ and accents, empty and NULL fields, repeated
// codes, favourites, comments, marks and orders written in another case.
// Thousands of random searches, many of them with characters that mean
// something to a LIKE pattern.
#include "catalogue/pricelist/demo/demo_lists.h"
#include "catalogue/search/index_at_startup.h"
#include "catalogue/support/reference_search.h"
#include "catalogue/support/search_fixture.h"

#include <gtest/gtest.h>

#include <QSet>

#include <algorithm>
#include <array>
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
    for (const auto &[code, description, brand, notes] :
         std::vector<std::array<const char *, 4>>{{"C-[1]", "Caño 1/2\" 100% [x] a_b", "AquaSur", ""},
                                                  {"C-2", "Llave O'Higgins ñandú ÑANDÚ", "", "oferta"},
                                                  {"C-3", "TUBERÍA de cobre", "Cobrex", ""},
                                                  {"C-3", "tuberia de cobre", "cobrex", "repetido"},
                                                  {"", "Codo sin código 90°", "", ""},
                                                  {"", "Pingüino [] ]cierre", "Ñ]", ""},
                                                  {"c-7", "Válvula esférica 3/4 #1 *?", "Ñandú", "ÚLTIMAS"},
                                                  {"C-8", "Cinta teflón 100 % [a-z]", "", ""}})
        l.articulos.push_back(
            {u("PLOMERÍA"), u(code), u(description), u(brand), u("UN"), u("10.005"), u("1"), u(notes)});
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
            "Observaciones) VALUES ('Mi Comercio', NULL, NULL, 'Artículo propio sin código', NULL, '5', '1', "
            "NULL), ('Mi Comercio', 'PROPIOS', 'MC-1', 'Ñoqui casero', 'Casera', '3.335', NULL, 'nota'),"
            " (NULL, 'VARIOS', 'MC-2', 'Sin proveedor', 'x', '1', '2', '')")});
        ASSERT_TRUE(preparar_indice_busqueda(f.ctx()));
        datos = leer();
        Transaction marks(f.app.db(), QStringLiteral("internal"));
        marcar();
        ASSERT_TRUE(marks.commit());
        datos = leer();
    }

    DatosBusqueda leer()
    {
        return leer_datos_busqueda(f.app.ruta(QLatin1String(Database::kPriceFile)),
                                   f.app.ruta(QLatin1String(Database::kShopFile)));
    }

    const DatosBusqueda::Articulo &articulo() { return datos.articulos[azar() % datos.articulos.size()]; }
    const QString &uno(const QStringList &v) { return v[static_cast<qsizetype>(azar() % v.size())]; }
    bool azar_si(int in = 2) { return azar() % in == 0; }

    // A text in another case, as a shop may have written it.
    QString otro_caso(const QString &text)
    {
        const unsigned pick = azar() % 3;
        return pick == 0 ? text.toLower() : pick == 1 ? text.toUpper() : text;
    }

    void marcar()
    {
        // One mark 'F' per article: a repeated one would list the article twice.
        f.marcar(QStringLiteral("f"), u("BAZAR ñANDÚ [X]_100%"), u("C-8"));
        f.marcar(QStringLiteral("F"), u("Bazar Ñandú [x]_100%"), u("")); // no code: no favourite
        f.marcar(QStringLiteral("F"), u("Nadie"), u("X-1"));
        QSet<QString> favourites{u("BAZAR ÑANDÚ [X]_100%|C-8")};
        const QStringList words{"oferta", "especial", "invierno", u("depósito"), u("ÑANDÚ"), "100%", "[x]"};
        const QStringList states{"Pedido Pendiente", "pedido pendiente", "Pedido", "PEDIDO", "Recibido"};
        for (int i = 0; i < 120; ++i) {
            const DatosBusqueda::Articulo &a = articulo();
            const QString kind(QLatin1Char("FCTU"[i % 4]));
            const QString key = a.proveedor.value_or(QString()).toUpper() + QLatin1Char('|') +
                                a.codigo.value_or(QString()).toUpper();
            const bool favourite = kind == QLatin1String("F");
            if (!a.proveedor || !a.codigo || (a.codigo->isEmpty() && kind != QLatin1String("U")) ||
                (favourite && favourites.contains(key)))
                continue;
            if (favourite)
                favourites.insert(key);
            f.marcar(kind, otro_caso(*a.proveedor), otro_caso(*a.codigo),
                     uno(words) + QLatin1Char(' ') + uno(words) + QLatin1Char(' ') +
                         a.descripcion.value_or(QString()).section(QLatin1Char(' '), 0, 1));
        }
        f.marcar(QStringLiteral("U"), u("Bazar Ñandú [x]_100%"), u(""), u("Pedir al depósito"));
        f.marcar(QStringLiteral("U"), u("bazar ñandú [X]_100%"), u(""), u("segundo comentario"));
        f.marcar(QStringLiteral("u"), u("Bazar Ñandú [x]_100%"), u("C-2"), u("Llamar al proveedor"));
        for (int i = 0; i < 30; ++i) {
            const DatosBusqueda::Articulo &a = articulo();
            f.pedir(otro_caso(a.descripcion.value_or(QString())), otro_caso(a.grupo.value_or(QString())),
                    uno(states));
        }
    }

    QString termino()
    {
        const QString word = otro_caso(uno(articulo().pajar.split(QLatin1Char(' '))));
        switch (azar() % 6) {
        case 0: { // a piece of a word, short ones too
            const qsizetype start = word.isEmpty() ? 0 : static_cast<qsizetype>(azar() % word.size());
            return word.mid(start, 1 + static_cast<qsizetype>(azar() % 6));
        }
        case 1:
            return uno(QStringList{"%",          "100%",
                                   "[",          "]",
                                   "[]",         "'",
                                   "''",         "o'h",
                                   u("ñ"),       u("Ñu"),
                                   u("á"),       "1/2\"",
                                   "a_b",        "[x]",
                                   "_",          "\\",
                                   "/",          "de",
                                   u("ÚLTIMAS"), "#",
                                   "*?",         "[%]",
                                   "[a-z]",      "[!a]",
                                   "_100%",      "ñandú [X]_100%"});
        case 2: // plurals
            return word + (azar_si() ? QStringLiteral("s") : QStringLiteral("es"));
        case 3: // misspelt
            return word.toUpper()
                .replace(QLatin1Char('C'), QLatin1Char('S'))
                .replace(QLatin1Char('V'), QLatin1Char('B'));
        default:
            return word;
        }
    }

    QString texto()
    {
        QStringList terms;
        for (int i = 0, n = 1 + static_cast<int>(azar() % 3); i < n; ++i)
            terms << termino();
        QString text = terms.join(azar_si(5) ? QStringLiteral("  ") : QStringLiteral(" "));
        if (azar_si(6))
            text = uno(QStringList{"de ", "con ", "/ "}) + text;
        if (azar_si(8))
            text += QLatin1Char(' ');
        return text.isEmpty() ? QStringLiteral("x") : text;
    }

    // Runs one search through both; false, with the first row where they
    // part, when they differ.
    bool comparar(const QString &text, const SearchOptions &o, int limit)
    {
        const QString work = texto_de_trabajo(o, text);
        const QueryResult got = ejecutar_consulta(f.ctx().db().conexion(QStringLiteral("external")),
                                                  consulta_de_texto(o, work, limit));
        const QueryResult want = busqueda_referencia(datos, work, o, limit);
        encontradas += want.articulos.empty() ? 0 : 1;
        if (got.ok && got.articulos == want.articulos && got.hay_mas == want.hay_mas)
            return true;
        size_t row = 0;
        while (row < got.articulos.size() && row < want.articulos.size() &&
               got.articulos[row] == want.articulos[row])
            ++row;
        ADD_FAILURE() << "texto [" << text.toStdString() << "] opciones " << o.ignorar_preposiciones
                      << o.terminos_similares << o.ortografia << o.en_comentarios << o.solo_favoritos
                      << " limite " << limit << ": " << got.articulos.size() << "/" << want.articulos.size()
                      << " filas, difieren desde la " << row << " " << got.error.toStdString();
        return false;
    }

    // `count` random searches; stops after five that differ.
    void comparar_al_azar(int count)
    {
        static const int limits[] = {1, 2, 3, 6, 11, 30, kLimiteTodos};
        for (int i = 0, wrong = 0; i < count && wrong < 5; ++i) {
            const SearchOptions o{azar_si(), azar_si(), azar_si(), azar_si(), azar_si(5)};
            wrong += comparar(texto(), o, limits[azar() % std::size(limits)]) ? 0 : 1;
        }
    }

    CarpetaBusqueda f{listas()};
    DatosBusqueda datos;
    std::mt19937 azar{20261123};
    int encontradas = 0;
};

TEST_F(DiferencialTest, IndexedSearchGivesTheRowsOfTheFullScan)
{
    comparar_al_azar(2000);
    EXPECT_GT(encontradas, 800);
}

TEST_F(DiferencialTest, WithoutTheIndexTheListIsReadInstead)
{
    f.en_precios({QStringLiteral("DROP TABLE xls_busqueda")});
    comparar_al_azar(300);
    EXPECT_GT(encontradas, 120);
}

} // namespace
} // namespace vendrix::test
