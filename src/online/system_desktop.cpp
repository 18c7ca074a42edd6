#include "online/system_desktop.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>

namespace vendrix {

bool EscritorioSistema::abrir(const QUrl &direccion)
{
    return QDesktopServices::openUrl(direccion);
}

bool EscritorioSistema::redactar_correo(const QString &para, const QString &asunto, const QString &cuerpo,
                                        const QString &adjunto)
{
    const QString xdg_email = QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
    if (!xdg_email.isEmpty()) {
        QStringList argumentos{QStringLiteral("--subject"), asunto, QStringLiteral("--body"), cuerpo};
        if (!adjunto.isEmpty())
            argumentos << QStringLiteral("--attach") << adjunto;
        argumentos << para;
        // Detached: the mail program outlives the call and the program.
        if (QProcess::startDetached(xdg_email, argumentos))
            return true;
    }
    const QByteArray correo = "mailto:" + QUrl::toPercentEncoding(para, "@") +
                              "?subject=" + QUrl::toPercentEncoding(asunto) +
                              "&body=" + QUrl::toPercentEncoding(cuerpo);
    return abrir(QUrl::fromEncoded(correo));
}

} // namespace vendrix
