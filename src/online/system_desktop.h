#pragma once

#include "core/desktop.h"

namespace vendrix {

// The desktop of the machine the program runs on: files and addresses go to
// the handler the system has for them; a new mail goes to `xdg-email` when
// it is installed (it can attach the file), else to a mailto: address,
// which can't carry the file.
class EscritorioSistema final : public Escritorio {
public:
    bool abrir(const QUrl &direccion) override;
    bool redactar_correo(const QString &para, const QString &asunto, const QString &cuerpo,
                         const QString &adjunto) override;
};

} // namespace vendrix
