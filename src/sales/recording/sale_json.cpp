#include "sales/recording/sale_json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vendrix {

namespace {

template <typename T> struct Campo {
    const char *nombre;
    T CabeceraFactura::*miembro;
};
template <typename T> struct CampoItem {
    const char *nombre;
    T ItemFactura::*miembro;
};

constexpr Campo<QString> kTextos[] = {
    {"letra", &CabeceraFactura::letra},
    {"punto_venta", &CabeceraFactura::punto_venta},
    {"tipo", &CabeceraFactura::tipo},
    {"cliente", &CabeceraFactura::cliente},
    {"codigo", &CabeceraFactura::codigo},
    {"cuit", &CabeceraFactura::cuit},
    {"razon_social", &CabeceraFactura::razon_social},
    {"domicilio", &CabeceraFactura::domicilio},
    {"provincia", &CabeceraFactura::provincia},
    {"forma_de_pago", &CabeceraFactura::forma_de_pago},
    {"carro", &CabeceraFactura::carro},
    {"maquina", &CabeceraFactura::maquina},
    {"nro_referencia", &CabeceraFactura::nro_referencia},
    {"cae", &CabeceraFactura::cae},
    {"cae_vto", &CabeceraFactura::cae_vto},
    {"cae_id", &CabeceraFactura::cae_id},
    {"tipo_doc", &CabeceraFactura::tipo_doc},
    {"notas", &CabeceraFactura::notas},
    {"fdp_cc", &CabeceraFactura::fdp_cc},
};
constexpr Campo<double> kImportes[] = {
    {"total_facturado", &CabeceraFactura::total_facturado},
    {"descuentos", &CabeceraFactura::descuentos},
    {"iva", &CabeceraFactura::iva},
    {"total", &CabeceraFactura::total},
    {"descuento_habitual", &CabeceraFactura::descuento_habitual},
    {"total_neto", &CabeceraFactura::total_neto},
    {"total_iva", &CabeceraFactura::total_iva},
};
constexpr CampoItem<QString> kTextosItem[] = {
    {"proveedor", &ItemFactura::proveedor},
    {"codigo", &ItemFactura::codigo},
    {"descripcion", &ItemFactura::descripcion},
    {"descripcion_nueva", &ItemFactura::descripcion_nueva},
};
constexpr CampoItem<double> kImportesItem[] = {
    {"costo_siva", &ItemFactura::costo_siva},     {"venta_siva", &ItemFactura::venta_siva},
    {"cantidad", &ItemFactura::cantidad},         {"iva", &ItemFactura::iva},
    {"precio_final", &ItemFactura::precio_final}, {"ganancia", &ItemFactura::ganancia},
    {"descuento", &ItemFactura::descuento},
};

template <typename S, typename C> void escribir(QJsonObject &o, const S &s, const C &campos)
{
    for (const auto &c : campos)
        o.insert(QLatin1String(c.nombre), s.*c.miembro);
}

template <typename S, typename C> void leer_textos(const QJsonObject &o, S &s, const C &campos)
{
    for (const auto &c : campos)
        s.*c.miembro = o.value(QLatin1String(c.nombre)).toString();
}

template <typename S, typename C> void leer_importes(const QJsonObject &o, S &s, const C &campos)
{
    for (const auto &c : campos)
        s.*c.miembro = o.value(QLatin1String(c.nombre)).toDouble();
}

} // namespace

QByteArray documento_a_json(const DocumentoVenta &doc)
{
    const CabeceraFactura &c = doc.cabecera;
    QJsonObject cabecera;
    escribir(cabecera, c, kTextos);
    escribir(cabecera, c, kImportes);
    cabecera.insert(QStringLiteral("nro_ticket"), c.nro_ticket);
    // With its offset, so the stored hour is the one the sale had.
    cabecera.insert(QStringLiteral("fecha"), c.fecha.toString(Qt::ISODateWithMs));
    QJsonArray items;
    for (const ItemFactura &i : doc.items) {
        QJsonObject item;
        escribir(item, i, kTextosItem);
        escribir(item, i, kImportesItem);
        items.append(item);
    }
    return QJsonDocument(QJsonObject{{QStringLiteral("cabecera"), cabecera},
                                     {QStringLiteral("items"), items},
                                     {QStringLiteral("reemplaza"), doc.reemplaza}})
        .toJson(QJsonDocument::Compact);
}

std::optional<DocumentoVenta> documento_desde_json(const QByteArray &json)
{
    const QJsonDocument d = QJsonDocument::fromJson(json);
    const QJsonObject raiz = d.object();
    const QJsonValue cabecera = raiz.value(QStringLiteral("cabecera"));
    if (!cabecera.isObject() || !raiz.value(QStringLiteral("items")).isArray())
        return std::nullopt;
    DocumentoVenta doc;
    CabeceraFactura &c = doc.cabecera;
    const QJsonObject o = cabecera.toObject();
    leer_textos(o, c, kTextos);
    leer_importes(o, c, kImportes);
    c.nro_ticket = o.value(QStringLiteral("nro_ticket")).toInteger(1);
    c.fecha = QDateTime::fromString(o.value(QStringLiteral("fecha")).toString(), Qt::ISODateWithMs);
    for (const QJsonValue &v : raiz.value(QStringLiteral("items")).toArray()) {
        ItemFactura item;
        leer_textos(v.toObject(), item, kTextosItem);
        leer_importes(v.toObject(), item, kImportesItem);
        doc.items.push_back(item);
    }
    doc.reemplaza = raiz.value(QStringLiteral("reemplaza")).toString();
    return doc;
}

} // namespace vendrix
