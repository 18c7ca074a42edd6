#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace vendrix {

class Context;

// The record's detail as the tab's boxes hold it, all text.
struct FichaClipro {
    QString tipo{};          // Text_tipocliente, the kind (read only)
    QString razon_social{};  // Text_razonsocialcliente
    QString tipo_doc{};      // Combo_tipodocCliente, "CUIT" or "DNI"
    QString documento{};     // TextBox_doccliente
    QString condicion_iva{}; // Combo_tipoivaCliente
    QString domicilio{};     // TextBox_domicilioCliente
    QString localidad{};     // TextBox_localidadCliente
    QString descuento{};     // TextBox_descuentoCliente
    QString email{};         // TextBox_emailCliente
    QString telefono{};      // TextBox_telefono
};

// What the tab shows besides the boxes' texts.
struct VistaClipro {
    FichaClipro ficha;
    bool descuento_habilitado = true; // the discount box and its label
    bool tipo_doc_habilitado = true;  // Combo_tipodocCliente
    bool salvar = false;              // Command_clipro_salvar
    bool borrar = false;              // Command_clipro_borrar
};

// The customers and suppliers tab (`tab_clipro`) without its widgets: the
// search into the grid, the selected record in the detail boxes, its change
// and deletion with their questions, and the checks on leaving a box. The
// screen shows `vista()` after each call and keeps the grid.
class CustomerBook {
public:
    explicit CustomerBook(Context &ctx);

    const VistaClipro &vista() const { return vista_; }

    // Empty detail, buttons off.
    void iniciar_tab_clipro();
    void limpiar_detalle_clipro();
    // A detail box changed: the record has something to save.
    void habilitar_salvar_clipro() { vista_.salvar = true; }

    // The records of a kind (matched with LIKE, so "Proveedor" finds the
    // three kinds of supplier) whose name, document and address, joined by
    // single blanks, hold the text; by name. Each row is the grid's line:
    // the eight fields joined by tabs, `BORRABLE` second. The detail is
    // emptied, dropping unsaved edits. nullopt when the query failed, after
    // its message.
    std::optional<std::vector<QString>> buscar_clipro(const QString &tipo, const QString &texto);
    // Every name of a customer or supplier once, sorted, for the search
    // box's completion.
    QStringList nombres_clipro() const;

    // Loads the record of the grid's row `fila` whose first cell is `id`
    // into the detail. False, after its message, when there is no such
    // record.
    bool mostrar_clipro(int fila, const QString &id);

    // Asks and deletes the record `id` named by the boxes `ficha`. True when
    // it is gone: the detail is empty and the screen drops the grid row. A
    // record marked `BORRABLE` "N" is never deleted.
    bool borrar_clipro(const QString &id, const FichaClipro &ficha);
    // Asks and stores the boxes over the record `id`. True when stored.
    bool salvar_clipro(const QString &id, const FichaClipro &ficha);

    // Leaving `TextBox_doccliente`: the text the box keeps, "" when the
    // document failed its check (after the check's message).
    QString salir_doccliente(const QString &tipo_doc, const QString &texto);
    // Leaving `TextBox_descuentoCliente`: false keeps the focus there. An
    // empty box may be left; it is saved as 0.
    static bool descuento_aceptable(const QString &texto);
    // A click on `Combo_tipoivaCliente`: only a final consumer may be
    // identified by DNI.
    void elegir_condicion_iva(const QString &condicion);

private:
    bool id_valido(const QString &id) const;
    QString pregunta(const char *accion, const FichaClipro &ficha) const;

    Context &ctx_;
    VistaClipro vista_;
};

} // namespace vendrix
