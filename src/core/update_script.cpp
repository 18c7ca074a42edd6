#include "core/update_script.h"

#include <QSaveFile>

namespace vendrix {

QByteArray texto_update_bat()
{
    static const char *const kLines[] = {
        "@ECHO OFF",
        "ping 1.0.0.0 -n 1 -w 500 >NUL",
        "goto :foo2",
        ": foo",
        "    ping 1.0.0.0 -n 1 -w 100 >NUL",
        ": foo2",
        "del Vendrixv2.exe > NUL",
        "if exist Vendrixv2.exe (",
        "     goto :foo",
        ") else (",
        "    rename prg_download.tmp Vendrixv2.exe",
        ") ",
        "Vendrixv2.exe",
        "exit 0",
    };
    QByteArray text;
    for (const char *line : kLines)
        text.append(line).append("\r\n");
    return text;
}

bool escribir_update_bat(const QString &folder)
{
    QSaveFile file(folder + QLatin1Char('/') + QLatin1String(kUpdateScript));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(texto_update_bat());
    return file.commit();
}

} // namespace vendrix
