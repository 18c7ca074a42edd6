#pragma once

#include <QString>
#include <QUrl>

namespace vendrix {

// What the program hands to the desktop: a file or an address opened with
// the program the system has for it, and a new mail in the user's mail
// program. The program's own does it for real; tests record what would
// have been opened.
class Escritorio {
public:
    virtual ~Escritorio() = default;
    // False when nothing on the desktop took it.
    virtual bool abrir(const QUrl &direccion) = 0;
    // A new mail to `para`, with the file `adjunto` attached when the mail
    // program can take it ("" for none). False when no mail program took it.
    virtual bool redactar_correo(const QString &para, const QString &asunto, const QString &cuerpo,
                                 const QString &adjunto) = 0;
};

} // namespace vendrix
