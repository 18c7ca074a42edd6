#include "screens/filtro_teclas.h"

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
        const QString text = key->text();
        // Only typed characters are filtered; shortcuts and editing keys pass.
        if (text.size() != 1 || text.at(0).unicode() < 0x20 ||
            (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)))
            return false;
        const int typed = text.at(0).unicode();
        int code = typed;
        // The keypad's point is the screen's decimal mark, so numbers can be
        // typed on the keypad alone.
        if (code == '.' && key->modifiers().testFlag(Qt::KeypadModifier))
            code = kSeparadorDecimal.unicode();
        const bool refused = formula_ ? filtro_tecla_formula(box_->text(), code, kind_)
                                      : filtro_tecla_numero(box_->text(), code, kind_);
        if (refused) {
            QApplication::beep();
            return true;
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

void instalar_filtro_formula(QLineEdit *box, const QString &kind)
{
    new FiltroTeclas(box, kind, true);
}

void instalar_filtro_numero(QLineEdit *box, const QString &kind)
{
    new FiltroTeclas(box, kind, false);
}

} // namespace vendrix
