#pragma once

#include <QString>

namespace vendrix {

// Who runs the program and on what, for the log's header lines and the
// message about a missing database driver.
struct DatosSistema {
    QString usuario;
    bool administrador = false;
    QString sistema;
};

// The user from the environment (USER, else USERNAME), administrator when
// the process runs as root, and the operating system's display name.
DatosSistema datos_del_sistema();

// "name (Administrador)" or "name (NO ADMINISTRADOR)".
QString texto_usuario(const DatosSistema &datos);

} // namespace vendrix
