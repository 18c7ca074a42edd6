#pragma once

#include <QString>

namespace vendrix {

// The named entities of the Latin-1 characters replaced by the characters,
// e.g. "Peque&ntilde;o" -> "Pequeño". Numeric references and the markup
// entities (&amp;, &lt;...) are left as they are.
QString html_a_texto(const QString &texto);

// The other way: "&" first becomes "&amp;;" (the double semicolon is what
// the pages and mails have always carried), then every character of the
// same table becomes its named entity, e.g. "Crédito" -> "Cr&eacute;dito".
QString texto_a_html(const QString &texto);

} // namespace vendrix
