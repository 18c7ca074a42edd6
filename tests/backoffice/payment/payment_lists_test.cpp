// The stores of payment methods and destinations on a shop database fresh
// from its migrations: what the grids read, the checks and messages of an
// addition, deletions and edits, and database faults.
#include "backoffice/payment/payment_destinations.h"
#include "backoffice/payment/payment_methods.h"
#include "core/db_helpers.h"
#include "core/migrations.h"
#include "core/rows.h"

namespace vendrix {
namespace {

const QString kMedios = "SELECT Forma_de_Pago, cantidad_cuotas, Recargo, ReadOnly, Tipo "
                        "FROM Vendrix_FormasDePago ORDER BY ID";
const QString kDestinos = "SELECT Destino_de_Pago, Descripcion, Requiere_proveedor, ReadOnly "
                          "FROM Vendrix_DestinosDePago ORDER BY ID";

class PaymentLists : public ::testing::Test {
protected:
    PaymentLists() : app(true)
    {
        app.copy_seed("clientes.install", "clientes.vdrx");
        EXPECT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
        app.op.clear();
        app.status.busy_changes.clear();
    }

    QStringList tabla(const QString &sql) { return test::filas(app.db(), sql); }

    // A row of a grid by name.
    static FilaDePago fila(const std::vector<FilaDePago> &filas, const QString &nombre)
    {
        for (const FilaDePago &f : filas)
            if (f.nombre() == nombre)
                return f;
        ADD_FAILURE() << nombre.toStdString();
        return {};
    }

    test::TestApp app;
};

TEST_F(PaymentLists, GridsReadEveryRowByNameWithItsReadOnlyFlag)
{
    ASSERT_TRUE(app.db().execNQ("UPDATE Vendrix_FormasDePago SET Recargo = 10.5 WHERE ID = 6", "internal"));
    QStringList medios;
    const auto filas = cargar_medios_de_pago(app.ctx());
    for (const FilaDePago &f : *filas)
        medios << texto_solo_lectura(f.solo_lectura) + "|" + f.celdas.join('|');
    EXPECT_EQ(medios, QStringList({"Verdadero|Ajustes|Ajustes de saldos en Vendrix|1|0|Solo Pago",
                                   "Falso|Banco|Transferencias bancarias|1|10,5|Cobro y Pago",
                                   "Falso|Cheques y valores|Cheques, pagarés, etc.|1|0|Cobro y Pago",
                                   "Verdadero|Efectivo|Efectivo|1|0|Cobro y Pago",
                                   "Falso|MercadoPago|MercadoPago|1|0|Cobro y Pago",
                                   "Verdadero|Tarjeta de Crédito|Tarjeta de Crédito|1|0|Cobro y Pago",
                                   "Verdadero|Tarjeta de Débito|Tarjeta de Débito|1|0|Cobro y Pago"}));
    const auto destinos = *cargar_destinos_de_pago(app.ctx());
    ASSERT_EQ(destinos.size(), 9u);
    EXPECT_EQ(destinos.front().celdas, QStringList({"Alquileres", "Alquileres", "No"}));
    EXPECT_TRUE(fila(destinos, "Compra de mercadería").solo_lectura);
    EXPECT_EQ(app.status.busy_changes, std::vector<bool>({true, false, true, false}));
}

TEST_F(PaymentLists, AddingAMethodChecksEachFieldWithItsMessage)
{
    // clang-format off
    for (const auto &[nombre, cuotas, recargo, mensaje, fila] : Rows<QString, QString, QString, QString, QString>{
             {"", "1", "0", "Error al insertar datos|No se pueden insertar los datos con el Nombre del medio vacío.", ""},
             {"Vale", "", "0", "Error en los datos|El campo Cantidad de Cuotas tiene que ser un valor numerico.", ""},
             {"Vale", "2,5", "0", "Error en los datos|El campo Cantidad de Cuotas tiene que ser un valor entero.", ""},
             {"Vale", "3", "5%", "Error en los datos|El campo Porcentaje de recargo tiene que ser un valor numerico.", ""},
             {"Vale", "3,0", "7,5", "Salvar Medio de Pago y Cobro|¿Desea salvar el medio de Solo Cobro 'Vale'?", "Vale|3|7.5|0|Solo Cobro"},
             {"Vale'n", "1", "-2", "Salvar Medio de Pago y Cobro|¿Desea salvar el medio de Solo Cobro 'Vale'n'?", "Vale'n|1|-2|0|Solo Cobro"}}) {
        // clang-format on
        app.op.clear();
        app.op.answers = {true};
        const auto id = salvar_medio(app.ctx(), {nombre, "Otro", cuotas, recargo, "Solo Cobro"});
        EXPECT_EQ(app.op.lines().value(0).section('|', 1), mensaje);
        EXPECT_EQ(id.has_value(), !fila.isEmpty());
        if (id) {
            EXPECT_EQ(app.op.lines().value(1),
                      "inform|Salvar Medio de Pago y Cobro|Se registro correctamente el "
                      "Solo Cobro '" +
                          nombre + "'.");
            EXPECT_EQ(tabla(kMedios).last(), fila + "");
            EXPECT_EQ(app.db().ultimo_id("internal"), *id);
        }
    }
    // Answering No stores nothing.
    app.op.answer(false);
    EXPECT_FALSE(salvar_medio(app.ctx(), {"Vale 2", "", "1", "0", "Solo Pago"}));
    EXPECT_EQ(tabla(kMedios).size(), 9);
}

TEST_F(PaymentLists, AddingADestinationAsksWithItsOwnWords)
{
    EXPECT_FALSE(salvar_destino(app.ctx(), {"", "x", "Si"}));
    app.op.answer(true);
    ASSERT_TRUE(salvar_destino(app.ctx(), {"Fletes 'D'Angelo'", "Envíos", "Si"}));
    EXPECT_EQ(app.op.lines(),
              QStringList({"error|Error al insertar datos|No se pueden insertar los datos con el Nombre del "
                           "destino de pago vacío.",
                           "ask|Salvar Destino de Pago|¿Desea salvar el destino de Pago Fletes 'D'Angelo''?",
                           "inform|Salvar Destino de Pago|Se registro correctamente el destino de pago "
                           "'Fletes 'D'Angelo''."}));
    EXPECT_EQ(tabla(kDestinos).last(), "Fletes 'D'Angelo'|Envíos|Si|0");
}

TEST_F(PaymentLists, LeavingAFieldWarnsOrPutsItsTextBack)
{
    EXPECT_TRUE(validar_nombre_medio(app.ctx(), "Vale"));
    EXPECT_FALSE(validar_nombre_medio(app.ctx(), "efectivo"));
    for (const auto &[cuotas, vuelta] :
         Rows<QString, QString>{{"12", "12"}, {"", "1"}, {"1,5", "1"}, {"dos", "1"}})
        EXPECT_EQ(validar_cuotas(app.ctx(), cuotas), vuelta);
    for (const auto &[recargo, vuelta] : Rows<QString, QString>{{"2,25", "2,25"}, {"", "0"}, {"x", "0"}})
        EXPECT_EQ(validar_recargo(app.ctx(), recargo), vuelta);
    EXPECT_EQ(app.op.texts().first(), "Existe ya un medio de Pago y cobro con el nombre 'efectivo'.");
    EXPECT_EQ(app.op.shown.size(), 6u);
}

TEST_F(PaymentLists, SeededRowsCantBeDeletedNorEdited)
{
    const auto medios = *cargar_medios_de_pago(app.ctx());
    EXPECT_FALSE(eliminar_medio(app.ctx(), fila(medios, "Efectivo")));
    EXPECT_FALSE(editar_medio(app.ctx(), fila(medios, "Efectivo"), ColumnaMedio::Cuotas, "3"));
    EXPECT_FALSE(
        eliminar_destino(app.ctx(), fila(*cargar_destinos_de_pago(app.ctx()), "Compra de mercadería")));
    EXPECT_TRUE(app.op.empty());

    app.op.answers_in_order({false, true, true});
    EXPECT_FALSE(eliminar_medio(app.ctx(), fila(medios, "Banco")));
    EXPECT_TRUE(eliminar_medio(app.ctx(), fila(medios, "Banco")));
    EXPECT_TRUE(eliminar_destino(app.ctx(), fila(*cargar_destinos_de_pago(app.ctx()), "Otros")));
    // clang-format off
    EXPECT_EQ(app.op.lines().mid(1), QStringList({
        "ask|Eliminar Medio de Pago y Cobro|¿Quiere eliminar la forma de pago / cobro 'Banco'? Las facturas ya emitidas y los pagos registrados no se veran afectados.",
        "inform|Eliminar Medio de Pago y Cobro|Se elimino correctamente el medio de Pago / Cobro 'Banco'.",
        "ask|Eliminar Destino de Pago|¿Quiere eliminar el destino de pago 'Otros'? Las operaciones registradas no se veran afectados.",
        "inform|Eliminar Destino de Pago|Se elimino correctamente el destino de Pago 'Otros'."}));
    // clang-format on
    EXPECT_EQ(tabla(kMedios).size(), 6);
    EXPECT_EQ(tabla(kDestinos).size(), 8);
}

TEST_F(PaymentLists, EditsInPlaceStoreGoodValuesOnly)
{
    const FilaDePago banco = fila(*cargar_medios_de_pago(app.ctx()), "Banco");
    const QString error = "error|Error los datos|Hay un error en los datos ingresados. Por favor corríjala e "
                          "intente nuevamente";
    // clang-format off
    for (const auto &[columna, valor, celda, guardado] : Rows<ColumnaMedio, QString, QString, QString>{
             {ColumnaMedio::Cuotas, "6", "6", "Banco|6|0|0|Cobro y Pago"},
             {ColumnaMedio::Cuotas, "6,5", "", "Banco|6|0|0|Cobro y Pago"},
             {ColumnaMedio::Cuotas, "seis", "", "Banco|6|0|0|Cobro y Pago"},
             {ColumnaMedio::Recargo, "12,5", "12,5", "Banco|6|12.5|0|Cobro y Pago"},
             {ColumnaMedio::Recargo, "", "", "Banco|6|12.5|0|Cobro y Pago"},
             {ColumnaMedio::Tipo, "Solo Pago", "Solo Pago", "Banco|6|12.5|0|Solo Pago"},
             {ColumnaMedio::Tipo, "Cobro", "", "Banco|6|12.5|0|Solo Pago"}}) {
        // clang-format on
        app.op.clear();
        const auto resultado = editar_medio(app.ctx(), banco, columna, valor);
        EXPECT_EQ(resultado.value_or(""), celda) << valor.toStdString();
        EXPECT_EQ(app.op.lines(), celda.isEmpty() ? QStringList{error} : QStringList{});
        EXPECT_EQ(tabla(kMedios).at(5), guardado);
    }
}

TEST_F(PaymentLists, ADatabaseFaultLeavesTheTablesAsTheyWere)
{
    const QStringList medios = tabla(kMedios), destinos = tabla(kDestinos);
    const FilaDePago banco = fila(*cargar_medios_de_pago(app.ctx()), "Banco");
    const FilaDePago otros = fila(*cargar_destinos_de_pago(app.ctx()), "Otros");
    app.failing_db().fail_matching("Vendrix_");
    app.op.answers_in_order({true, true, true, true});
    EXPECT_FALSE(salvar_medio(app.ctx(), {"Vale", "", "1", "0", "Solo Pago"}));
    EXPECT_FALSE(salvar_destino(app.ctx(), {"Fletes", "", "No"}));
    EXPECT_FALSE(eliminar_medio(app.ctx(), banco));
    EXPECT_FALSE(eliminar_destino(app.ctx(), otros));
    EXPECT_FALSE(editar_medio(app.ctx(), banco, ColumnaMedio::Recargo, "5"));
    EXPECT_FALSE(cargar_medios_de_pago(app.ctx()));
    for (const QString &texto : app.op.texts())
        EXPECT_FALSE(texto.contains("correctamente")) << texto.toStdString();
    app.failing_db().heal();
    EXPECT_EQ(tabla(kMedios), medios);
    EXPECT_EQ(tabla(kDestinos), destinos);
}

} // namespace
} // namespace vendrix
