#pragma once

#include <QString>

namespace vendrix {

// The named entities of the Latin-1 characters replaced by the characters,
// e.g. "Peque&ntilde;o" -> "Pequeño". Numeric references and the markup
// entities (&amp;, &lt;...) are left as they are.
QString html_a_texto(const QString &texto);

} // namespace vendrix
