// The customers and suppliers tab without its widgets: the search, the
// detail of a record, its change and deletion, the checks on leaving a box
// and database faults.
#include "backoffice/customers/customer_book.h"
#include "customers_fixture.h"

namespace vendrix::test {
namespace {

using CustomerBookTest = Clientes;

QString ficha_texto(const FichaClipro &f)
{
    return QStringList{f.tipo,      f.razon_social, f.tipo_doc,  f.documento, f.condicion_iva,
                       f.domicilio, f.localidad,    f.descuento, f.email,     f.telefono}
        .join('|');
}

TEST_F(CustomerBookTest, SearchJoinsNameCuitAndAddressByBlanksIgnoringSpanishCase)
{
    CustomerBook book(app.ctx());
    // clang-format off
    for (const auto &[tipo, texto, nombres] : Rows<QString, QString, QString>{
             {"Cliente", "juan 20-12", "Pérez Juan"},        // name, blank, CUIT; no address
             {"Cliente", "8 mitre", "MUÑOZ SRL"},            // CUIT, blank, address
             {"Cliente", "muñoz", "MUÑOZ SRL"},
             {"Cliente", "PÉREZ", "Pérez Juan"},
             {"Cliente", "perez", ""},                       // an accent is a letter of its own
             {"Cliente", "", "Ana Gómez|MUÑOZ SRL|Pérez Juan"},
             {"Proveedor", "", "Bulonera|Fletes Sur"},       // the three kinds of supplier
             {"Proveedor Mercadería", "bulo", "Bulonera"}}) { // no CUIT, no address
        // clang-format on
        const auto filas = book.buscar_clipro(tipo, texto);
        ASSERT_TRUE(filas);
        QStringList encontrados;
        for (const QString &linea : *filas)
            encontrados << linea.section('\t', 2, 2);
        EXPECT_EQ(encontrados.join('|'), nombres) << texto.toStdString();
    }
    // The grid's line: the eight fields, BORRABLE second.
    EXPECT_EQ(book.buscar_clipro("Proveedor", "bulo")->front(),
              id_de("Bulonera") + "\tN\tBulonera\t\t\t\t\t");
    EXPECT_EQ(
        app.log_messages().mid(app.log_messages().size() - 2),
        QStringList({"Se realiza una busqueda de tipo 'PROVEEDOR'.", "Clipro - se busco el término: bulo."}));
}

TEST_F(CustomerBookTest, TheDetailFollowsTheKindTheConditionAndTheDeleteMark)
{
    CustomerBook book(app.ctx());
    // clang-format off
    for (const auto &[nombre, ficha, descuento, borrar] : Rows<QString, QString, bool, bool>{
             {"MUÑOZ SRL", "Cliente|MUÑOZ SRL|CUIT|30-11111111-8|I - IVA RESPONSABLE INSCRIPTO|Mitre 10||5||", true, true},
             {"Pérez Juan", "Cliente|Pérez Juan|CUIT|20-12345678-6|F - CONSUMIDOR FINAL|||||", true, true},
             {"Ana Gómez", "Cliente|Ana Gómez|DNI|25123456|F - CONSUMIDOR FINAL|Sarmiento 5||2,5||", true, true},
             {"Bulonera", "Proveedor Mercadería|Bulonera|CUIT||F - CONSUMIDOR FINAL|||||", false, false},
             {"Fletes Sur", "Proveedor Servicios|Fletes Sur|CUIT|30-22222222-0|M - RESPONSABLE MONOTRIBUTO|Ruta 3||0||", true, true}}) {
        // clang-format on
        book.habilitar_salvar_clipro();
        ASSERT_TRUE(book.mostrar_clipro(3, id_de(nombre)));
        const VistaClipro &v = book.vista();
        EXPECT_EQ(std::tuple(ficha_texto(v.ficha), v.descuento_habilitado, v.borrar, v.salvar),
                  std::tuple(ficha, descuento, borrar, false));
    }
    app.op.clear();
    EXPECT_FALSE(book.mostrar_clipro(0, "x"));
    EXPECT_EQ(app.op.lines(),
              QStringList({"error|Error en la búsqueda de un Cliente o un Proveedor|No se pudo "
                           "encontrar el Cliente/Proveedor seleccionado."}));
    EXPECT_EQ(app.log_messages().last(), "El ID a buscar no existe. Esta situacion es muy extraña..");
    // Only a final consumer may have a DNI.
    ASSERT_TRUE(book.mostrar_clipro(0, id_de("Ana Gómez")));
    book.elegir_condicion_iva("E - IVA EXENTO");
    EXPECT_EQ(std::tuple(book.vista().ficha.tipo_doc, book.vista().tipo_doc_habilitado, book.vista().salvar),
              std::tuple(QString("CUIT"), false, true));
}

TEST_F(CustomerBookTest, SavingAsksUnderTheDeletionTitleAndStoresEveryBox)
{
    CustomerBook book(app.ctx());
    const QString bulonera = id_de("Bulonera"); // marked "N": it may still change
    FichaClipro f{
        "Proveedor Mercadería", "Bulonera S.A.", "CUIT", "30-33333333-1", "I - IVA RESPONSABLE INSCRIPTO",
        "Av. Roca 1",           "Rosario",       "",     "b@x.com",       "4444-5555"};
    for (const auto &[descuento, guardado] :
         Rows<QString, QString>{{"7,5", "7.5"}, {"", "0"}, {"diez", "0"}}) {
        app.op.clear();
        app.op.answer(true);
        f.descuento = descuento;
        book.habilitar_salvar_clipro();
        ASSERT_TRUE(book.salvar_clipro(bulonera, f));
        EXPECT_EQ(
            filas(app.db(),
                  "SELECT NOMBRE, DIRECCION, CUIT, PROVINCIA, DESCUENTO, TIPO, TIPO_DOC, TIPO_RECORD, "
                  "TELEFONO, EMAIL, BORRABLE FROM vendrix_clientes WHERE ID = ?",
                  "internal", {bulonera}),
            QStringList{"Bulonera S.A.|Av. Roca 1|30-33333333-1|Rosario|" + guardado +
                        "|I - IVA RESPONSABLE INSCRIPTO|CUIT|Proveedor Mercadería|4444-5555|b@x.com|N"});
    }
    EXPECT_EQ(
        app.op.lines(),
        QStringList({"ask|Eliminar Cliente / Proveedor|¿Está seguro que modificar los datos de 'Bulonera "
                     "S.A.' con CUIT '30-33333333-1'? Los datos asociados a las facturas ya cargadas al "
                     "sistema no se veran impactados.",
                     "inform|Salvar Cliente / Proveedor|Se modificaron los datos seleccionados."}));
    EXPECT_FALSE(book.salvar_clipro("", FichaClipro{}));
    EXPECT_EQ(app.op.lines().last(),
              "error|Salvar Cliente / Proveedor|Seleccione un cliente / proveedor a modificar.");
}

TEST_F(CustomerBookTest, DeletingAsksAndLeavesTheSalesAndTheListsSuppliers)
{
    ASSERT_TRUE(app.db().execNQ("INSERT INTO vendrix_facturas (tipo, cuit, razon_social, Total) VALUES "
                                "('Factura', '20-12345678-6', 'Pérez Juan', 1500)",
                                "internal"));
    CustomerBook book(app.ctx());
    const QString perez = id_de("Pérez Juan");
    ASSERT_TRUE(book.mostrar_clipro(0, perez));
    const FichaClipro ficha = book.vista().ficha;
    // A search that fails and a deletion that fails are told; then No, then Yes.
    app.failing_db().fail_matching("vendrix_clientes");
    EXPECT_FALSE(book.buscar_clipro("Cliente", "juan"));
    app.op.answer(true);
    EXPECT_FALSE(book.borrar_clipro(perez, ficha));
    EXPECT_EQ(app.op.lines().first().section('|', 1),
              "Error al intentar cargar las Grillas.|ER CLIPRO01: Se produjo un error al cargar la "
              "información en la Grilla de Clientes / Proveedores. Cierre Vendrix e intente nuevamente.");
    EXPECT_EQ(app.op.lines().last(),
              "error|Eliminar Cliente / Proveedor|No se pudo borrar el cliente / Proveedor seleccionado. Por "
              "favor realice una nueva busqueda e intente nuevamente.");
    app.failing_db().heal();
    app.op.clear();
    app.op.answers_in_order({false, true});
    EXPECT_FALSE(book.borrar_clipro(perez, ficha));
    EXPECT_TRUE(book.borrar_clipro(perez, ficha));
    const QString pregunta =
        "ask|Eliminar Cliente / Proveedor|¿Está seguro que desea eliminar los datos de 'Pérez "
        "Juan' con CUIT '20-12345678-6'? Los datos asociados a las facturas ya cargadas al "
        "sistema no se veran impactados.";
    EXPECT_EQ(app.op.lines(), QStringList({pregunta, pregunta,
                                           "inform|Eliminar Cliente / Proveedor|Se eliminaron los datos "
                                           "seleccionados."}));
    EXPECT_EQ(id_de("Pérez Juan"), "");
    EXPECT_EQ(tabla("SELECT razon_social, Total FROM vendrix_facturas"), QStringList{"Pérez Juan|1500"});

    // A supplier of the lists stays, without a question; no selection is told.
    app.op.clear();
    EXPECT_FALSE(book.borrar_clipro(id_de("Bulonera"), FichaClipro{}));
    EXPECT_FALSE(book.borrar_clipro("", FichaClipro{}));
    EXPECT_EQ(
        app.op.lines(),
        QStringList{"error|Eliminar Cliente / Proveedor|Seleccione un cliente / proveedor a eliminar."});
    EXPECT_EQ(app.log_messages().last(), "Se quiso borrar un cliente o proveedor sin selecciononarlo antes.");
    EXPECT_NE(id_de("Bulonera"), "");
}

} // namespace
} // namespace vendrix::test
