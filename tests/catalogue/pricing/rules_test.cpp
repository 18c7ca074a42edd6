#include "catalogue/pricing/rules.h"

#include "support/qt_print.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

RuleRow fila(const char *proveedor, const char *grupo, const char *articulo, const char *descuento,
             const char *ganancia)
{
    return {QString::fromUtf8(proveedor), QString::fromUtf8(grupo), QString::fromUtf8(articulo),
            QString::fromUtf8(descuento), QString::fromUtf8(ganancia)};
}

constexpr const char *kLista = "General para la lista";
constexpr const char *kTodos = "Todos los articulos del grupo";

TEST(Reglas, ArticleBeatsGroupBeatsListAndTheLastRowWins)
{
    const RuleTable reglas({
        fila("Acme", kLista, kTodos, "10", "30"),
        fila("Acme", "Tornillos", kTodos, "15", "40"),
        fila("Acme", "Tornillos", "T1 - Tornillo 1/4 - zincado", "20", "50"),
        fila("Acme", "Tornillos", "T2 - Tornillo 3/8", "", ""),
        fila("Acme", "Tuercas", kTodos, "", "35"),
        fila("Acme", "Arandelas", kTodos, "5", "25"),
        fila("Acme", "Arandelas", kTodos, "6", "26"),
        fila("Acme", "Clavos", "C1", "7", "27"),
        fila("Otro", kLista, kTodos, "1", "2"),
        fila("Otro", kLista, kTodos, "3", ""),
        fila("Vacio", kLista, kTodos, "", ""),
    });
    const struct {
        const char *proveedor, *grupo, *codigo, *descuento, *ganancia;
    } casos[] = {
        {"Acme", "Tornillos", "T1", "20", "50"}, // the code is the text before the first " - "
        {"Acme", "Tornillos", "T9", "15", "40"}, // group
        {"Acme", "Tornillos", "T2", "0", "0"},   // an empty article cell cancels group and list
        {"Acme", "Tuercas", "X", "10", "35"},    // an empty group cell leaves the list's
        {"Acme", "Arandelas", "A", "6", "26"},   // the last of equal rows
        {"Acme", "Clavos", "C1", "7", "27"},     // an article text without " - " is all code
        {"Acme", "Otros", "T1", "10", "30"},     // an article rule needs its group
        {"Acme", "tornillos", "T1", "10", "30"}, // comparisons are exact
        {"acme", "Tornillos", "T1", "0", "0"},   // no rule for that supplier
        {"Otro", "G", "C", "3", "0"},            // the last list row wins, even with an empty cell
        {"Vacio", "G", "C", "0", "0"},
        {"Nadie", "G", "C", "0", "0"},
    };
    for (const auto &c : casos) {
        const QString p = QString::fromUtf8(c.proveedor), g = QString::fromUtf8(c.grupo),
                      k = QString::fromUtf8(c.codigo);
        EXPECT_EQ(reglas.regla_descuento(p, g, k), QString::fromUtf8(c.descuento))
            << c.proveedor << "/" << c.grupo << "/" << c.codigo;
        EXPECT_EQ(reglas.regla_ganancia(p, g, k), QString::fromUtf8(c.ganancia))
            << c.proveedor << "/" << c.grupo << "/" << c.codigo;
    }
}

} // namespace
} // namespace vendrix
