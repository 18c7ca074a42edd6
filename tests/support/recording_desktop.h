#pragma once

#include "core/desktop.h"

#include <QList>
#include <QStringList>

namespace vendrix::test {

// Records what the program would have opened on the desktop (a file as its
// path, an address whole) and the mails it would have written: recipient,
// subject, the body's first line, the attachment.
struct EscritorioAnotado : Escritorio {
    bool abrir(const QUrl &d) override
    {
        return abiertas << (d.isLocalFile() ? d.toLocalFile() : d.toString()), true;
    }
    bool redactar_correo(const QString &para, const QString &asunto, const QString &cuerpo,
                         const QString &adjunto) override
    {
        return correos << QStringList{para, asunto, cuerpo.section('\n', 0, 0), adjunto}, true;
    }
    QStringList abiertas;
    QList<QStringList> correos;
};

} // namespace vendrix::test
