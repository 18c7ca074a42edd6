#pragma once

#include "core/operator.h"
#include "core/status_indicators.h"

#include <QString>

#include <map>

namespace vendrix {

// The status sink of the program's context. The context exists before the
// main window does (the start-up already logs, and an error line lights the
// error indicator), so this sink keeps the last keyword of each panel until a
// window attaches and then passes everything on to it.
class StatusRelay final : public StatusSink {
public:
    void actualizar_indicador(const QString &keyword) override
    {
        const std::optional<Indicador> indicador = indicador_de(keyword);
        if (indicador)
            pending_[indicador->panel] = keyword;
        if (target_)
            target_->actualizar_indicador(keyword);
    }
    // Before a window attaches there is nothing to freeze.
    void marcar_ocupado(bool busy) override
    {
        if (target_)
            target_->marcar_ocupado(busy);
    }

    // Attaches the window and shows it the state reached so far; null
    // detaches it.
    void conectar(StatusSink *target)
    {
        target_ = target;
        if (target_) {
            for (const auto &[panel, keyword] : pending_)
                target_->actualizar_indicador(keyword);
        }
    }

private:
    StatusSink *target_ = nullptr;
    std::map<int, QString> pending_;
};

} // namespace vendrix
