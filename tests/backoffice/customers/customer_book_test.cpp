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
             {"Cliente", "juan  20", ""},
             {"Cliente", "", "Ana Gómez|MUÑOZ SRL|Pérez Juan"},
             {"Proveedor", "", "Bulonera|Fletes Sur"},       // the three kinds of supplier
             {"Proveedor Mercadería", "bulo", "Bulonera"},   // no CUIT, no address
             {"Proveedor Varios", "", ""}}) {
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
    EXPECT_EQ(book.buscar_clipro("Cliente", "muñoz")->front(),
              id_de("MUÑOZ SRL") +
                  "\t\tMUÑOZ SRL\tCUIT\t30-11111111-8\tI - IVA RESPONSABLE INSCRIPTO\tMitre 10\t");
    EXPECT_EQ(
        app.log_messages().mid(app.log_messages().size() - 4),
        QStringList({"Se realiza una busqueda de tipo 'PROVEEDOR'.", "Clipro - se busco el término: bulo.",
                     "Se realiza una busqueda de tipo 'CLIENTE'.", "Clipro - se busco el término: muñoz."}));
    EXPECT_EQ(app.status.busy_changes.back(), false);
    EXPECT_TRUE(app.op.empty());
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
        EXPECT_EQ(ficha_texto(book.vista().ficha), ficha);
        EXPECT_EQ(book.vista().descuento_habilitado, descuento) << nombre.toStdString();
        EXPECT_EQ(book.vista().borrar, borrar) << nombre.toStdString();
        EXPECT_FALSE(book.vista().salvar);
    }
    EXPECT_EQ(app.log_messages().last(), "Clipro - se selecciono la fila de la grilla: 3.");
    for (const QString &id : {QString("x"), QString(""), QString("999")}) {
        app.op.clear();
        EXPECT_FALSE(book.mostrar_clipro(0, id));
        EXPECT_EQ(app.op.lines(),
                  QStringList({"error|Error en la búsqueda de un Cliente o un Proveedor|No se pudo "
                               "encontrar el Cliente/Proveedor seleccionado."}));
        EXPECT_EQ(app.log_messages().last(), "El ID a buscar no existe. Esta situacion es muy extraña..");
    }
    // Only a final consumer may have a DNI.
    ASSERT_TRUE(book.mostrar_clipro(0, id_de("Ana Gómez")));
    book.elegir_condicion_iva("E - IVA EXENTO");
    EXPECT_EQ(std::tuple(book.vista().ficha.tipo_doc, book.vista().tipo_doc_habilitado, book.vista().salvar),
              std::tuple(QString("CUIT"), false, true));
    book.elegir_condicion_iva("F - CONSUMIDOR FINAL");
    EXPECT_TRUE(book.vista().tipo_doc_habilitado);
}

TEST_F(CustomerBookTest, SavingAsksUnderTheDeletionTitleAndStoresEveryBox)
{
    CustomerBook book(app.ctx());
    const QString sql = "SELECT NOMBRE, DIRECCION, CUIT, PROVINCIA, DESCUENTO, TIPO, TIPO_DOC, TIPO_RECORD, "
                        "TELEFONO, EMAIL, BORRABLE FROM vendrix_clientes WHERE ID = ?";
    const QString bulonera = id_de("Bulonera");
    // clang-format off
    for (const auto &[descuento, guardado] : Rows<QString, QString>{
             {"7,5", "Bulonera S.A.|Av. Roca 1|30-33333333-1|Rosario|7.5|I - IVA RESPONSABLE INSCRIPTO|CUIT|Proveedor Mercadería|4444-5555|b@x.com|N"},
             {"", "Bulonera S.A.|Av. Roca 1|30-33333333-1|Rosario|0|I - IVA RESPONSABLE INSCRIPTO|CUIT|Proveedor Mercadería|4444-5555|b@x.com|N"},
             {"diez", "Bulonera S.A.|Av. Roca 1|30-33333333-1|Rosario|0|I - IVA RESPONSABLE INSCRIPTO|CUIT|Proveedor Mercadería|4444-5555|b@x.com|N"}}) {
        // clang-format on
        app.op.clear();
        app.op.answer(true);
        const FichaClipro f{"Proveedor Mercadería",
                            "Bulonera S.A.",
                            "CUIT",
                            "30-33333333-1",
                            "I - IVA RESPONSABLE INSCRIPTO",
                            "Av. Roca 1",
                            "Rosario",
                            descuento,
                            "b@x.com",
                            "4444-5555"};
        book.habilitar_salvar_clipro();
        ASSERT_TRUE(book.salvar_clipro(bulonera, f));
        EXPECT_EQ(filas(app.db(), sql, "internal", {bulonera}), QStringList{guardado});
        EXPECT_FALSE(book.vista().salvar);
        EXPECT_EQ(
            app.op.lines(),
            QStringList({"ask|Eliminar Cliente / Proveedor|¿Está seguro que modificar los datos de 'Bulonera "
                         "S.A.' con CUIT '30-33333333-1'? Los datos asociados a las facturas ya cargadas al "
                         "sistema no se veran impactados.",
                         "inform|Salvar Cliente / Proveedor|Se modificaron los datos seleccionados."}));
    }
    EXPECT_EQ(app.log_messages().mid(app.log_messages().size() - 3),
              QStringList({"Se esta por proceder a modificar el cliente con ID: " + bulonera + ".",
                           "El usuario quiere seguir adelante con la eliminacion del registro seleccionado..",
                           "se modifico el ID '" + bulonera + "' de la tabla de clientes .."}));
    // No keeps the record as it was; no selection asks nothing.
    const QStringList antes = tabla("SELECT * FROM vendrix_clientes ORDER BY ID");
    app.op.clear();
    app.op.answer(false);
    EXPECT_FALSE(book.salvar_clipro(id_de("Pérez Juan"), FichaClipro{"Cliente", "Otro"}));
    EXPECT_FALSE(book.salvar_clipro("", FichaClipro{}));
    EXPECT_EQ(app.op.lines().last(),
              "error|Salvar Cliente / Proveedor|Seleccione un cliente / proveedor a modificar.");
    EXPECT_EQ(app.log_messages().last(),
              "Se quiso modificar un cliente o proveedor sin selecciononarlo antes.");
    EXPECT_EQ(tabla("SELECT * FROM vendrix_clientes ORDER BY ID"), antes);
}

TEST_F(CustomerBookTest, DeletingAsksAndLeavesTheSalesAndTheListsSuppliers)
{
    ASSERT_TRUE(app.db().execNQ("INSERT INTO vendrix_facturas (tipo, cuit, razon_social, Total) VALUES "
                                "('Factura', '20-12345678-6', 'Pérez Juan', 1500)",
                                "internal"));
    CustomerBook book(app.ctx());
    const QString perez = id_de("Pérez Juan");
    ASSERT_TRUE(book.mostrar_clipro(0, perez));
    app.op.answers_in_order({false, true});
    EXPECT_FALSE(book.borrar_clipro(perez, book.vista().ficha));
    EXPECT_TRUE(book.borrar_clipro(perez, book.vista().ficha));
    const QString pregunta =
        "ask|Eliminar Cliente / Proveedor|¿Está seguro que desea eliminar los datos de 'Pérez "
        "Juan' con CUIT '20-12345678-6'? Los datos asociados a las facturas ya cargadas al "
        "sistema no se veran impactados.";
    EXPECT_EQ(app.op.lines(), QStringList({pregunta, pregunta,
                                           "inform|Eliminar Cliente / Proveedor|Se eliminaron los datos "
                                           "seleccionados."}));
    EXPECT_EQ(app.log_messages().last(), "se elimino el ID '" + perez + "' de la tabla de clientes ..");
    EXPECT_EQ(ficha_texto(book.vista().ficha), "|||||||||");
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

TEST_F(CustomerBookTest, LeavingTheDocumentKeepsAGoodOneAndEmptiesABadOne)
{
    CustomerBook book(app.ctx());
    for (const auto &[tipo, texto, queda, avisos] :
         Rows<QString, QString, QString, size_t>{{"CUIT", "20-12345678-6", "20-12345678-6", 0},
                                                 {"CUIT", "20-12345678-5", "", 1},
                                                 {"CUIT", "", "", 0},
                                                 {"DNI", "1234567", "1234567", 0},
                                                 {"DNI", "12a4567", "", 1}}) {
        app.op.clear();
        EXPECT_EQ(book.salir_doccliente(tipo, texto), queda) << texto.toStdString();
        EXPECT_EQ(app.op.shown.size(), avisos);
    }
}

TEST_F(CustomerBookTest, ADatabaseFaultIsToldAndChangesNothing)
{
    CustomerBook book(app.ctx());
    const QString perez = id_de("Pérez Juan");
    ASSERT_TRUE(book.mostrar_clipro(0, perez));
    const QStringList antes = tabla("SELECT * FROM vendrix_clientes ORDER BY ID");
    app.failing_db().fail_matching("vendrix_clientes");
    app.op.answers_in_order({true, true});
    EXPECT_FALSE(book.buscar_clipro("Cliente", "juan"));
    EXPECT_FALSE(book.salvar_clipro(perez, FichaClipro{"Cliente", "Otro"}));
    EXPECT_FALSE(book.borrar_clipro(perez, FichaClipro{"Cliente", "Otro"}));
    const QStringList textos = app.op.texts();
    for (const char *texto :
         {"ER CLIPRO01: Se produjo un error al cargar la información en la Grilla de Clientes / Proveedores. "
          "Cierre Vendrix e intente nuevamente.",
          "No se pudo modificar el cliente / Proveedor seleccionado. Por favor realice una nueva busqueda e "
          "intente nuevamente.",
          "No se pudo borrar el cliente / Proveedor seleccionado. Por favor realice una nueva busqueda e "
          "intente "
          "nuevamente."})
        EXPECT_TRUE(textos.contains(QString::fromUtf8(texto))) << texto;
    EXPECT_TRUE(app.log_messages().contains("La query para borrar el cliente / Proveedor con ID '" + perez +
                                            "' no funciono correctamente.."));
    app.failing_db().heal();
    EXPECT_EQ(tabla("SELECT * FROM vendrix_clientes ORDER BY ID"), antes);
}

} // namespace
} // namespace vendrix::test
