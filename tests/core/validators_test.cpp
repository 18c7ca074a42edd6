#include "core/validators.h"

#include "support/scripted_operator.h"

#include "support/qt_print.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::ScriptedOperator;

const QString kCuitLargo = QStringLiteral(
    "inform|Vendrix|El CUIT ingresado es Incorrecto. Ingrese el cuit con el formato:\r\n\r\nNN-NNNNNNNN-N");
const QString kCuitDigito =
    QStringLiteral("inform|Vendrix|El CUIT ingresado es Incorrecto. Ingrese el cuit con el siguiente "
                   "formato:\r\n\r\nNN-NNNNNNNN-N");

TEST(ValidarCuit, CheckDigitAndMessages)
{
    const struct {
        const char *cuit;
        bool valido;
        const QString *mensaje;
    } casos[] = {
        {"20-12345678-6", true, nullptr},
        {"30-50001091-2", true, nullptr},
        {"20-00000001-1", true, nullptr}, // remainder 1 stays 1
        {"20-00000006-0", true, nullptr}, // remainder 0 stays 0
        {"20-12345678-5", false, &kCuitDigito},
        // Eleven digits without dashes pass the length test and are then read
        // at the dashed positions.
        {"20123456786", false, &kCuitDigito},
        {"20-1234567-6", false, &kCuitLargo},
        {"20-12345678-66", false, &kCuitLargo},
        {"", false, &kCuitLargo},
    };
    for (const auto &c : casos) {
        ScriptedOperator op;
        EXPECT_EQ(validar_CUIT(op, QString::fromUtf8(c.cuit)), c.valido) << c.cuit;
        EXPECT_EQ(op.lines(), c.mensaje ? QStringList{*c.mensaje} : QStringList{}) << c.cuit;
    }
}

TEST(ValidarDni, SevenOrEightNumericCharacters)
{
    const struct {
        const char *dni;
        bool valido;
    } casos[] = {{"1234567", true},    {"12345678", true}, {"123456", false},
                 {"123456789", false}, {"12a4567", false}, {"", false}};
    for (const auto &c : casos) {
        ScriptedOperator op;
        EXPECT_EQ(validar_DNI(op, QString::fromUtf8(c.dni)), c.valido) << c.dni;
        const QStringList esperado =
            c.valido ? QStringList{}
                     : QStringList{
                           QStringLiteral("inform|Vendrix|El DNI ingresado es Incorrecto. Controle que sea "
                                          "un valor numeríco.")};
        EXPECT_EQ(op.lines(), esperado) << c.dni;
    }
}

struct CasoTecla {
    const char *kind;
    const char *texto;
    int tecla;
    bool pasa;
};

TEST(FiltroTeclaFormula, KeysAdmittedByKind)
{
    const CasoTecla casos[] = {
        {"ganancia", "", '5', true},
        {"ganancia", "", ',', true},
        {"ganancia", "", '.', false},
        {"ganancia", "", '+', true},
        {"ganancia", "", 107, true},
        {"ganancia", "", '-', false},
        {"ganancia", "", 109, false},
        {"ganancia", "", 8, true},
        {"ganancia", "", 13, false},
        {"descuento", "", '-', true},
        {"descuento", "", 109, true},
        {"descuento", "", '+', true},
        {"descuento", "", '*', false},
        {"enteros", "", '7', true},
        {"enteros", "", ',', false},
        {"enteros", "", 8, true},
        {"reales", "", ',', true},
        {"reales", "", '+', false},
        {"otra", "", '5', false},
        // A second decimal mark isn't stopped by the formula filter.
        {"reales", "1,5", ',', true},
    };
    for (const auto &c : casos) {
        int key = c.tecla;
        const bool rechazada =
            filtro_tecla_formula(QString::fromUtf8(c.texto), key, QString::fromUtf8(c.kind));
        EXPECT_EQ(!rechazada, c.pasa) << c.kind << " " << c.tecla;
        EXPECT_EQ(key, c.pasa ? c.tecla : 0) << c.kind << " " << c.tecla;
    }
}

TEST(FiltroTeclaNumero, DecimalMarkOnlyOnceInARealBox)
{
    const CasoTecla casos[] = {
        {"real", "", '5', true},       {"real", "", 9, true},       {"real", "", 12, true},
        {"real", "", 37, true},        {"real", "", 40, true},      {"real", "", 41, false},
        {"real", "12", ',', true},     {"real", "1,2", ',', false}, {"real", "1,2+3", ',', true},
        {"integer", "12", ',', false}, {"real", "", '.', false},    {"real", "", 13, false},
        {"integer", "", 8, true},
    };
    for (const auto &c : casos) {
        int key = c.tecla;
        const bool rechazada =
            filtro_tecla_numero(QString::fromUtf8(c.texto), key, QString::fromUtf8(c.kind));
        EXPECT_EQ(!rechazada, c.pasa) << c.kind << " '" << c.texto << "' " << c.tecla;
        EXPECT_EQ(key, c.pasa ? c.tecla : 0);
    }
}

} // namespace
} // namespace vendrix
