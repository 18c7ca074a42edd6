#pragma once

// A QLineEdit completed from a list of items: the keys of the box go through
// `AutoComplete`, and its drop-down list is a popup under the box, at the
// box's width. The popup never takes the keys: they go on to the box, so the
// operator keeps typing while the list is open.

#include "widgets/autocomplete.h"

#include <QLineEdit>
#include <QListView>
#include <QObject>
#include <QPointer>

#include <functional>

class QStringListModel;

namespace vendrix {
class Operator;
}

namespace vendrix::widgets {

class AutoCompleteBox : public QObject {
    Q_OBJECT

public:
    // `op` tells the refusal of a text not in the list; without it the box
    // is only kept.
    explicit AutoCompleteBox(Operator *op = nullptr, QObject *parent = nullptr);
    ~AutoCompleteBox() override;

    AutoComplete &logica() { return logica_; }
    // Attaches to `box` and makes the drop-down list, named
    // "lstDropDownAutoC1".
    void AutoCompleteTextbox(QLineEdit *box);
    // Shows the drop-down list under the box, with the items that begin with
    // the text up to the caret.
    void ShowList();

    QLineEdit *box() const { return box_.data(); }
    QListView *lista() const { return lista_.data(); }

    // Runs at each typed character before the completion: the place to read
    // settings or load the items on first use.
    void setAntesDeTecla(std::function<void(AutoComplete &)> paso) { antes_de_tecla_ = std::move(paso); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool tecla_del_cuadro(QKeyEvent &key);
    void perder_foco(int reason);
    // The box shows the completion's text and selection.
    void aplicar();
    // The box's own state goes to the completion.
    void recordar();
    // The popup shows the completion's list, or hides.
    void mostrar_lista();

    AutoComplete logica_;
    Operator *op_;
    QPointer<QLineEdit> box_;
    QPointer<QListView> lista_;
    // The same two, as plain addresses, to tell whose event comes.
    const QObject *caja_ = nullptr;
    const QObject *lista_objeto_ = nullptr;
    QStringListModel *modelo_ = nullptr;
    std::function<void(AutoComplete &)> antes_de_tecla_;
    bool validando_ = false;
};

// Completion of `box` from `items` in one call: inline completion, and the
// drop-down list unless `lista` is false. The returned object belongs to the
// box; its `logica()` takes new items later (`Cleartems`, `AddItems`).
AutoCompleteBox *autocompletar(QLineEdit *box, const QStringList &items, bool lista = true,
                               Operator *op = nullptr);

} // namespace vendrix::widgets
