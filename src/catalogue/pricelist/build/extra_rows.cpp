#include "catalogue/pricelist/build/extra_rows.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

// Resources of a static library must be registered by name, outside any
// namespace.
static void registrar_recursos()
{
    Q_INIT_RESOURCE(extra_rows);
}

namespace vendrix {

namespace {

QByteArray recurso(const char *name)
{
    registrar_recursos();
    QFile file(QStringLiteral(":/lista/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

std::vector<ListReport> reportes_predeterminados()
{
    std::vector<ListReport> reports;
    const QJsonArray rows = QJsonDocument::fromJson(recurso("reportes.json")).array();
    for (const QJsonValue &value : rows) {
        const QJsonObject row = value.toObject();
        const auto text = [&row](const char *key) { return row.value(QLatin1String(key)).toString(); };
        reports.push_back({text("report_nombre"), text("report_descripcion"), text("report_filtro"),
                           text("report_db"), text("report_tabla_query"), text("report_totales"),
                           text("report_query_grafico"), text("report_grafico_titulo"),
                           text("report_tipo_grafico")});
    }
    return reports;
}

std::vector<ListTip> tips_predeterminados(const QString &version)
{
    std::vector<ListTip> tips;
    const QStringList lines =
        QString::fromUtf8(recurso("tips.txt")).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines)
        tips.push_back({line.trimmed(), version});
    return tips;
}

QByteArray plantilla_factura()
{
    return recurso("factura.install");
}

} // namespace vendrix
