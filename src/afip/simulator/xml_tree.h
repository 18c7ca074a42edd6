#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace vendrix::simulador {

// An element of a request read whole: its local name (prefixes and
// namespaces dropped, as the services match by name), its text and its
// child elements in document order. Comments are skipped, as a parser of
// the real services skips them.
struct NodoXml {
    QString nombre;
    QString espacio; // the namespace URI
    QString texto;
    QList<NodoXml> hijos;

    // The first child of that name, or null.
    const NodoXml *hijo(const QString &nombre) const;
    // The first element of that name below this one, depth first, or null.
    const NodoXml *buscar(const QString &nombre) const;
    // The text of the first child of that name, trimmed; empty when absent.
    QString texto_de(const QString &nombre) const;
    QStringList nombres_hijos() const;
    // The element written back as XML, without namespaces.
    QString como_xml() const;
};

// The document's root element; nothing when the text is not well-formed XML.
std::optional<NodoXml> leer_xml(const QByteArray &texto);

// `texto` with the five XML special characters escaped.
QString escapar_xml(const QString &texto);

// The element <nombre>texto</nombre>, the text escaped.
QString elemento(const QString &nombre, const QString &texto);

} // namespace vendrix::simulador
