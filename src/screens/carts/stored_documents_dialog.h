#pragma once

#include <QDialog>

class QPushButton;

namespace vendrix {
class Context;
}

namespace vendrix::widgets {
class LynxGrid;
}

namespace vendrix::screens {

// The list of stored documents a cart's "Abrir" picks one from, newest
// first: reference, date, name, type and total. "Cargar Carrito" or a double
// click on a row chooses it.
class StoredDocumentsDialog : public QDialog {
    Q_OBJECT

public:
    explicit StoredDocumentsDialog(Context &ctx, QWidget *parent = nullptr);

    // The chosen document's ID, "" when the list was closed without a choice.
    const QString &documento() const { return documento_; }

private:
    void llenar();
    void cargar();

    Context &ctx_;
    widgets::LynxGrid *grilla_;
    QString documento_;
};

} // namespace vendrix::screens
