#include "core/system_info.h"

#include <QSysInfo>
#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace vendrix {

DatosSistema datos_del_sistema()
{
    DatosSistema datos;
    datos.usuario = qEnvironmentVariable("USER");
    if (datos.usuario.isEmpty())
        datos.usuario = qEnvironmentVariable("USERNAME");
#ifdef Q_OS_UNIX
    datos.administrador = geteuid() == 0;
#endif
    datos.sistema = QSysInfo::prettyProductName();
    return datos;
}

QString texto_usuario(const DatosSistema &datos)
{
    return datos.usuario +
           (datos.administrador ? QLatin1String(" (Administrador)") : QLatin1String(" (NO ADMINISTRADOR)"));
}

} // namespace vendrix
