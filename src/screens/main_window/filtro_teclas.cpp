#include "screens/main_window/filtro_teclas.h"

#include "core/numeric.h"
#include "core/validators.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace vendrix {

namespace {

class FiltroTeclas final : public QObject {
public:
    FiltroTeclas(QLineEdit *box, QString kind, bool formula)
        : QObject(box), box_(box), kind_(std::move(kind)), formula_(formula)
    {
        box->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched != box_ || event->type() != QEvent::KeyPress)
            return false;
        const auto *key = static_cast<QKeyEvent *>(event);
        const int code = codigo_filtrado(box_->text(), *key, kind_, formula_);
        if (code < 0)
            return false;
        const int typed = key->text().at(0).unicode();
        if (code == 0) {
            QApplication::beep();
            // A control key inserts nothing anyway: it goes on to the box,
            // so Enter still ends the edit or presses the default button.
            return typed >= 0x20;
        }
        if (code == typed)
            return false;
        box_->insert(QString(QChar(code)));
        return true;
    }

private:
    QLineEdit *box_;
    QString kind_;
    bool formula_;
};

} // namespace

int codigo_filtrado(const QString &box_text, const QKeyEvent &key, const QString &kind, bool formula)
{
    const QString text = key.text();
    if (text.size() != 1 || (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)))
        return -1;
    int code = text.at(0).unicode();
    // Below the blank only the formula boxes filter, and never Tab, which
    // moves the focus; Delete is an editing key.
    if ((code < 0x20 && (!formula || code == '\t')) || code == 0x7f)
        return -1;
    // The keypad's point is the screen's decimal mark, so numbers can be
    // typed on the keypad alone.
    if (code == '.' && key.modifiers().testFlag(Qt::KeypadModifier))
        code = kSeparadorDecimal.unicode();
    if (formula)
        filtro_tecla_formula(box_text, code, kind);
    else
        filtro_tecla_numero(box_text, code, kind);
    return code;
}

void instalar_filtro_formula(QLineEdit *box, const QString &kind)
{
    new FiltroTeclas(box, kind, true);
}

void instalar_filtro_numero(QLineEdit *box, const QString &kind)
{
    new FiltroTeclas(box, kind, false);
}

} // namespace vendrix
