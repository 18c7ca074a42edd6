#include "afip/simulator/xml_tree.h"

#include <QXmlStreamReader>

namespace vendrix::simulador {

const NodoXml *NodoXml::hijo(const QString &buscado) const
{
    for (const NodoXml &h : hijos) {
        if (h.nombre == buscado)
            return &h;
    }
    return nullptr;
}

const NodoXml *NodoXml::buscar(const QString &buscado) const
{
    for (const NodoXml &h : hijos) {
        if (h.nombre == buscado)
            return &h;
        if (const NodoXml *abajo = h.buscar(buscado))
            return abajo;
    }
    return nullptr;
}

QString NodoXml::texto_de(const QString &buscado) const
{
    const NodoXml *h = hijo(buscado);
    return h ? h->texto.trimmed() : QString();
}

QStringList NodoXml::nombres_hijos() const
{
    QStringList nombres;
    for (const NodoXml &h : hijos)
        nombres << h.nombre;
    return nombres;
}

QString NodoXml::como_xml() const
{
    if (hijos.isEmpty())
        return elemento(nombre, texto.trimmed());
    QString dentro;
    for (const NodoXml &h : hijos)
        dentro += h.como_xml();
    return QStringLiteral("<%1>%2</%1>").arg(nombre, dentro);
}

std::optional<NodoXml> leer_xml(const QByteArray &texto)
{
    QXmlStreamReader lector(texto);
    // The open elements, innermost last; the root stays at the bottom.
    QList<NodoXml> abiertos;
    std::optional<NodoXml> raiz;
    while (!lector.atEnd()) {
        switch (lector.readNext()) {
        case QXmlStreamReader::StartElement:
            abiertos.append(NodoXml{lector.name().toString(), lector.namespaceUri().toString(), {}, {}});
            break;
        case QXmlStreamReader::Characters:
            if (!abiertos.isEmpty())
                abiertos.last().texto += lector.text();
            break;
        case QXmlStreamReader::EndElement: {
            NodoXml cerrado = abiertos.takeLast();
            if (abiertos.isEmpty())
                raiz = std::move(cerrado);
            else
                abiertos.last().hijos.append(std::move(cerrado));
            break;
        }
        default:
            break;
        }
    }
    if (lector.hasError())
        return std::nullopt;
    return raiz;
}

QString escapar_xml(const QString &texto)
{
    QString salida = texto.toHtmlEscaped(); // & < > "
    salida.replace(QLatin1Char('\''), QStringLiteral("&apos;"));
    return salida;
}

QString elemento(const QString &nombre, const QString &texto)
{
    return QStringLiteral("<%1>%2</%1>").arg(nombre, escapar_xml(texto));
}

} // namespace vendrix::simulador
