#include "core/log_reader.h"

#include "core/log.h"
#include "core/operator.h"
#include "core/text_helpers.h"

#include <QFile>
#include <QFileInfo>

namespace vendrix {

namespace {

// The level marks of the file, the word the viewer shows for each, and the
// check box that lets them through. Printer lines show as "SQL".
struct Nivel {
    QLatin1String marca;
    QLatin1String tipo;
    FiltroLog filtro;
};

constexpr Nivel kNiveles[] = {
    {QLatin1String("[INF] -"), QLatin1String("INFO"), kFiltroInfo},
    {QLatin1String("[ERR] -"), QLatin1String("ERROR"), kFiltroError},
    {QLatin1String("[ACT] -"), QLatin1String("ACTION"), kFiltroAccion},
    {QLatin1String("[SQL] -"), QLatin1String("SQL"), kFiltroSql},
    {QLatin1String("[PRN] -"), QLatin1String("SQL"), kFiltroImpresora},
    {QLatin1String("[XML] -"), QLatin1String("XML"), kFiltroXml},
};

// The level mark that comes first in the line, so a message that quotes
// another line's mark doesn't change its own level.
const Nivel *nivel_de(const QString &line, qsizetype &at)
{
    const Nivel *found = nullptr;
    for (const Nivel &nivel : kNiveles) {
        const qsizetype pos = line.indexOf(nivel.marca);
        if (pos >= 0 && (!found || pos < at)) {
            found = &nivel;
            at = pos;
        }
    }
    return found;
}

} // namespace

QString texto_tamano_log(qint64 bytes)
{
    return tamano_archivo_texto(bytes);
}

QString titulo_marco_log(const QString &log_path)
{
    const QFileInfo info(log_path);
    return QLatin1String("Log (") + texto_tamano_log(info.exists() ? info.size() : 0) + QLatin1Char(')');
}

std::vector<FilaLog> filas_log(const QString &text, const FiltrosLog &filtros)
{
    std::vector<FilaLog> rows;
    for (QStringView view : QStringView(text).split(QLatin1Char('\n'))) {
        if (view.endsWith(QLatin1Char('\r')))
            view.chop(1);
        const QString line = view.toString();
        const qsizetype close = line.indexOf(QLatin1Char(']'));
        if (line.isEmpty() || close < 0)
            continue;
        qsizetype at = 0;
        const Nivel *nivel = nivel_de(line, at);
        if (!nivel || !filtros[nivel->filtro])
            continue;
        const qsizetype open = line.indexOf(QLatin1Char('['));
        const qsizetype date_from = (open >= 0 && open < close) ? open + 1 : 0;
        QString message = line.mid(at + nivel->marca.size());
        if (message.startsWith(QLatin1Char(' ')))
            message.remove(0, 1);
        rows.push_back({line.mid(date_from, close - date_from), nivel->tipo,
                        message.replace(QLatin1String(";;"), QLatin1String(","))});
    }
    return rows;
}

std::vector<FilaLog> leer_filas_log(const QString &log_path, const FiltrosLog &filtros)
{
    QFile file(log_path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return filas_log(QString::fromUtf8(file.readAll()), filtros);
}

QString detalle_log(const FilaLog &fila)
{
    if (fila.tipo != QLatin1String("XML"))
        return fila.texto;
    QString text = fila.texto;
    text.replace(QLatin1String("><"), QLatin1String(">\r\n<"));
    // Six passes take runs of up to 64 blanks down to one.
    for (int pass = 0; pass < 6; ++pass)
        text.replace(QLatin1String("  "), QLatin1String(" "));
    text.replace(QLatin1String("> <"), QLatin1String(">\r\n<"));
    return text;
}

Qt::GlobalColor color_fila_log(const QString &tipo)
{
    if (tipo == QLatin1String("ERROR"))
        return Qt::red;
    if (tipo == QLatin1String("ACTION"))
        return Qt::blue;
    if (tipo == QLatin1String("SQL"))
        return Qt::magenta;
    if (tipo == QLatin1String("XML"))
        return Qt::cyan;
    return Qt::black;
}

bool borrar_log(const Log &log, StatusSink &status)
{
    const bool borrado = QFile::remove(log.ruta_log()) || !QFile::exists(log.ruta_log());
    log.escribir_log(QStringLiteral("Configuración - Se Borro el log a pedido del usuario"),
                     QStringLiteral("A"));
    status.actualizar_indicador(QStringLiteral("bug_off"));
    return borrado;
}

} // namespace vendrix
