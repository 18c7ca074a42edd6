#pragma once

#include <QString>

namespace vendrix {

class Context;
class Escritorio;

// The web-mail composing page and the messaging service's send page that
// the links to an invoice go through.
inline constexpr char kPaginaCorreoWeb[] = "https://mail.google.com/mail/?view=cm&fs=1&tf=1&to=";
inline constexpr char kPaginaWhatsapp[] = "https://api.whatsapp.com/send?phone=";

// The subject of the mail with the link.
QString asunto_link(const QString &comercio);

// The text that carries the link to the customer, CR LF lines, signed by
// the shop; `por_mail` chooses the mail's or the message's signature line.
QString texto_link(const QString &cliente, const QString &link, const QString &comercio, bool por_mail);

// The same note without a link, for a file the operator attaches by hand:
// it says the invoice comes with the mail or the message.
QString texto_adjunto(const QString &cliente, const QString &comercio, bool por_mail);

// The messaging service's page with a message to `telefono`, the text
// URL-encoded.
QString url_whatsapp(const QString &telefono, const QString &texto);

// The addresses that open a mail to `para` and a message to `telefono` with
// that text, URL-encoded.
QString url_link_por_mail(const QString &para, const QString &cliente, const QString &link,
                          const QString &comercio);
QString url_link_por_whatsapp(const QString &telefono, const QString &cliente, const QString &link,
                              const QString &comercio);

// Open them on the desktop, the shop being the price list's; false when
// nothing took the address.
bool enviar_link_por_mail(Context &ctx, Escritorio &escritorio, const QString &para, const QString &cliente,
                          const QString &link);
bool enviar_link_por_whatsapp(Context &ctx, Escritorio &escritorio, const QString &telefono,
                              const QString &cliente, const QString &link);

} // namespace vendrix
