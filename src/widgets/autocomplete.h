#pragma once

// The completion of a text box from a list of items as the operator types,
// without any widget: the box is mirrored as its text and selection, and
// each key, Backspace, move in the list and leaving of the box is a call, so
// the rules can be driven key by key. `AutoCompleteBox` binds it to a real
// QLineEdit and its drop-down list.
//
// Selections are kept as the box keeps them: `SelStart` is the caret, and
// the selected part runs `SelLength` characters to its right.

#include <QString>
#include <QStringList>

#include <optional>
#include <utility>
#include <vector>

namespace vendrix {
class Database;
}

namespace vendrix::widgets {

class AutoComplete {
public:
    // The refusal of a text that isn't an item, when the box keeps to its list.
    static constexpr const char *kNoEstaEnLista = "Item not in list!";
    // The drop-down shows at most this many items, the first ones in the list.
    static constexpr int kFilasLista = 200;

    // Inline completion: the rest of the first matching item is written
    // into the box, selected. Off, the keys go through as typed.
    bool InlineCompletion() const { return inline_; }
    void setInlineCompletion(bool on) { inline_ = on; }
    // The drop-down list of the items that begin with the typed part.
    bool UseDropDownList() const { return usar_lista_; }
    void setUseDropDownList(bool on);
    // Leaving the box with a text that isn't an item is refused.
    bool LimitToList() const { return limitar_; }
    void setLimitToList(bool on) { limitar_ = on; }

    void AddItem(const QString &item);
    void AddItems(const QStringList &items);
    // Adds the first field of each row of `sql`, run on the price database.
    void AddItemsQuery(Database &db, const QString &sql);
    void Cleartems();
    const QStringList &GetList() const { return items_; }

    // The first item, in list order, that begins with `prefix` ignoring
    // case; -1 when none does.
    int Lookup(const QString &prefix) const;

    // The box as the completion left it.
    const QString &Text() const { return texto_; }
    int SelStart() const { return inicio_; }
    int SelLength() const { return largo_; }
    // The item being completed; empty with none.
    const QString &Suggestion() const { return sugerencia_; }

    // The box changed by other means (typing the completion let through, a
    // click, the program): its state is remembered, and a text other than
    // the one the completion knows drops the suggestion.
    void Change(const QString &text, int sel_start, int sel_length);
    // A typed character. True when the completion took it: the box must
    // then show `Text()` with the selection. False when it goes into the box
    // as typed (the mirror already holds the result). Codes below 32 are
    // never taken.
    bool KeyPress(QChar key);
    // Backspace: with the selection running to the end of the text (the
    // suggested rest), drops it and the character before it.
    void Backspace();
    // Up (-1) and Down (+1) move in the shown list, and the box takes the
    // item. False when no list is shown.
    bool MoveInList(int step);
    // A click on a row of the list: the box takes the item and the list goes.
    void ClickItem(int row);
    // Leaving the box: the refusal to show, or nullopt when the box may be
    // left. An empty box may always be left.
    std::optional<QString> Validate() const;

    // The drop-down list: shown only when it is used and has rows.
    void ShowList();
    void HideList() { visible_ = false; }
    bool ListVisible() const { return visible_; }
    const QStringList &ListRows() const { return filas_; }
    // The current row of the list; -1 with none.
    int ListRow() const { return fila_; }

private:
    // The positions in `claves_` of the keys that begin with `folded`.
    std::pair<size_t, size_t> rango(const QString &folded) const;
    void preparar_indice() const;
    // The rows of the list for the text up to the caret, the suggestion
    // current; shown when there is any.
    void llenar_lista();

    QStringList items_;
    bool inline_ = true;
    bool usar_lista_ = true;
    bool limitar_ = false;

    QString texto_;
    int inicio_ = 0;
    int largo_ = 0;
    QString sugerencia_;

    QStringList filas_;
    int fila_ = -1;
    bool visible_ = false;

    // The lookup index: the folded items sorted, each with its position in
    // the list; remade at the first lookup after a change of the items.
    mutable std::vector<QString> claves_;
    mutable std::vector<int> posiciones_;
    mutable bool indice_al_dia_ = true;
};

} // namespace vendrix::widgets
