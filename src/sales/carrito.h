#pragma once

#include <QString>

#include <array>
#include <functional>
#include <vector>

namespace vendrix {

// The columns of a cart line, counted from 0. The sale, the stored cart and
// the restore read the cells by these numbers.
enum ColumnaCarrito : int {
    kColCantidad = 0,     // quantity, a real number; editable
    kColArticulo,         // description shown and printed
    kColPrecioUnitario,   // unit price with IVA; editable
    kColImporte,          // quantity times unit price
    kColIva,              // IVA rate in percent
    kColCodigo,           // the article's ID in the price list; "0", "X" or "" typed by hand
    kColGanancia,         // margin as a percentage
    kColDescuento,        // supplier discount as a percentage
    kColDescuentoCliente, // the shop's own discount formula
    kColCosto,            // cost without IVA
    kColCodigoProveedor,  // the supplier's article code
    kColGrupoProveedor,   // the supplier's group; "-1" in a restored line
    kColProveedor,        // the supplier's name
};
inline constexpr int kColumnasCarrito = 13;

// One line: thirteen text cells. Amounts are text in the screen's number
// form and are parsed whenever they are used.
using LineaCarrito = std::array<QString, kColumnasCarrito>;

// The captions of the totals line and the mark of a cart opened from a
// stored document.
inline const QString kLeyendaTotal = QStringLiteral("Total:");
inline const QString kLeyendaCantidad = QStringLiteral("Cant. Art.:");
inline const QString kPrefijoCarritoGuardado = QStringLiteral("Carrito guardado: ");

// Messages of the sales screens that have no title of their own show under
// the program's name.
inline const QString kTituloPrograma = QStringLiteral("Vendrix");

// A cart: the working list of a sale before it becomes a document. The
// screen shows it in a grid; whoever keeps a copy of it (the store of open
// carts) listens to its changes.
class Carrito {
public:
    // Told after each change of the lines, the captions or the total box.
    using AvisoCambio = std::function<void(const Carrito &)>;

    // Holds the cart's notice back while it lives, so that the changes of
    // one step (a line and the new total) are told once, with the cart
    // whole again. Batches nest; the outermost one tells.
    class Lote {
    public:
        explicit Lote(Carrito &carrito) : carrito_(carrito) { ++carrito_.lotes_; }
        ~Lote();
        Lote(const Lote &) = delete;
        Lote &operator=(const Lote &) = delete;

    private:
        Carrito &carrito_;
    };

    explicit Carrito(int numero = 1) : numero_(numero) {}
    // A copy has the contents and the number but nobody listening to it.
    Carrito(const Carrito &otro);
    // The cart assigned to keeps its number and its listener, and tells it.
    Carrito &operator=(const Carrito &otro);

    void set_aviso_cambio(AvisoCambio aviso) { aviso_ = std::move(aviso); }

    // 1 to 4, and as the text the operations take.
    int numero() const { return numero_; }
    QString numero_texto() const { return QString::number(numero_); }

    int filas() const { return static_cast<int>(lineas_.size()); }
    bool vacio() const { return lineas_.empty(); }
    bool tiene_fila(int fila) const { return fila >= 0 && fila < filas(); }
    const std::vector<LineaCarrito> &lineas() const { return lineas_; }
    const LineaCarrito &linea(int fila) const { return lineas_.at(static_cast<size_t>(fila)); }

    // Out of range reads "" and is ignored when set.
    QString celda(int fila, int col) const;
    void set_celda(int fila, int col, const QString &text);

    // Appends a line; its row number.
    int agregar_linea(const LineaCarrito &linea);
    void borrar_linea(int fila);
    // Removes the lines; the total box and the captions stay.
    void quitar_lineas();

    // The sum of the amounts (col 3), each read as a number; 0 when empty.
    double total() const;

    // What the cart's total box shows.
    const QString &texto_total() const { return texto_total_; }
    void set_texto_total(const QString &text) { cambiar(texto_total_, text); }

    // Caption 1 of the totals line: "Carrito guardado: " and the reference
    // number of the stored document the cart was opened from, or "".
    // Caption 2 is cleared with it.
    const QString &marca_guardado() const { return marca_guardado_; }
    void set_marca_guardado(const QString &text) { cambiar(marca_guardado_, text); }
    const QString &leyenda_extra() const { return leyenda_extra_; }
    void set_leyenda_extra(const QString &text) { cambiar(leyenda_extra_, text); }
    // The reference number of the mark, "" when the cart comes from nowhere.
    QString referencia_guardada() const;

private:
    // A write that changes nothing tells nobody.
    void cambiar(QString &campo, const QString &text);
    void cambiado();

    int numero_;
    std::vector<LineaCarrito> lineas_;
    QString texto_total_;
    QString marca_guardado_;
    QString leyenda_extra_;
    AvisoCambio aviso_;
    int lotes_ = 0;
    bool pendiente_ = false;
};

} // namespace vendrix
