#include "catalogue/pricelist/build/csv_list_reader.h"

#include "catalogue/pricelist/build/list_values.h"
#include "core/cp1252.h"

#include <QDate>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <array>

namespace vendrix {

namespace {

enum CsvColumn { Grupo, Codigo, Descripcion, Marca, Unidad, Precio, Moneda, Observaciones, kColumnas };

struct ColumnName {
    const char *nombre;   // as messages and written files name it
    QStringList plegados; // the folded names a header may use
    bool requerida;
};

const std::array<ColumnName, kColumnas> &columnas()
{
    static const std::array<ColumnName, kColumnas> kNombres{{
        {"Grupo", {QStringLiteral("GRUPO"), QStringLiteral("RUBRO")}, false},
        {"Codigo", {QStringLiteral("CODIGO"), QStringLiteral("COD")}, true},
        {"Descripcion", {QStringLiteral("DESCRIPCION")}, true},
        {"Marca", {QStringLiteral("MARCA")}, false},
        {"UnidaddeMedida",
         {QStringLiteral("UNIDADDEMEDIDA"), QStringLiteral("UNIDAD"), QStringLiteral("UM")},
         false},
        {"Precio", {QStringLiteral("PRECIO")}, true},
        {"Moneda", {QStringLiteral("MONEDA")}, false},
        {"Observaciones", {QStringLiteral("OBSERVACIONES"), QStringLiteral("OBS")}, false},
    }};
    return kNombres;
}

// A header name folded for matching: "Unidad de Medida" and "unidad_de_medida"
// both read "UNIDADDEMEDIDA".
QString plegar_nombre(const QString &name)
{
    QString folded = plegar_sin_acentos(name);
    folded.remove(QRegularExpression(QStringLiteral("[\\s_.]")));
    return folded;
}

struct CsvRecord {
    int linea = 0;
    QStringList campos;
};

// The separator the header row uses most, or a null char when it uses none.
QChar detectar_separador(const QString &text)
{
    const std::array<QChar, 3> candidates{QLatin1Char(';'), QLatin1Char('\t'), QLatin1Char(',')};
    std::array<int, 3> counts{};
    bool quoted = false;
    for (QChar c : text) {
        if (c == QLatin1Char('"'))
            quoted = !quoted;
        if (quoted)
            continue;
        if (c == QLatin1Char('\n'))
            break;
        for (size_t k = 0; k < candidates.size(); ++k)
            counts[k] += c == candidates[k] ? 1 : 0;
    }
    size_t best = 0;
    for (size_t k = 1; k < candidates.size(); ++k) {
        if (counts[k] > counts[best])
            best = k;
    }
    return counts[best] > 0 ? candidates[best] : QChar();
}

// Splits the text into records. False when a quoted field never closes;
// `linea_error` is then the line where its record starts.
bool partir_registros(const QString &text, QChar sep, std::vector<CsvRecord> &out, int &linea_error)
{
    int line = 1;
    CsvRecord record{1, {}};
    QString field;
    bool quoted = false, was_quoted = false;
    auto end_field = [&] {
        record.campos << field.trimmed();
        field.clear();
        was_quoted = false;
    };
    auto end_record = [&](int next_line) {
        end_field();
        bool empty = true;
        for (const QString &f : std::as_const(record.campos))
            empty = empty && f.isEmpty();
        if (!empty)
            out.push_back(std::move(record));
        record = CsvRecord{next_line, {}};
    };
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = text.at(i);
        if (quoted) {
            if (c == QLatin1Char('"') && i + 1 < n && text.at(i + 1) == QLatin1Char('"')) {
                field += c;
                ++i;
            } else if (c == QLatin1Char('"')) {
                quoted = false;
            } else if (c != QLatin1Char('\r') || i + 1 >= n || text.at(i + 1) != QLatin1Char('\n')) {
                line += c == QLatin1Char('\n') ? 1 : 0;
                field += c;
            }
        } else if (c == QLatin1Char('"') && !was_quoted && field.trimmed().isEmpty()) {
            quoted = was_quoted = true;
            field.clear();
        } else if (c == sep) {
            end_field();
        } else if (c == QLatin1Char('\n') || c == QLatin1Char('\r')) {
            if (c == QLatin1Char('\r') && i + 1 < n && text.at(i + 1) == QLatin1Char('\n'))
                ++i;
            end_record(++line);
        } else {
            field += c;
        }
    }
    if (quoted) {
        linea_error = record.linea;
        return false;
    }
    end_record(line);
    return true;
}

QString en_linea(const QString &file, int line, const QString &text)
{
    return QStringLiteral("Archivo '%1', línea %2: %3").arg(file).arg(line).arg(text);
}

// Where each known column stands in the header, -1 when absent; or an error.
QString leer_encabezado(const CsvRecord &header, const QString &file, std::array<int, kColumnas> &where)
{
    where.fill(-1);
    for (int i = 0; i < header.campos.size(); ++i) {
        const QString folded = plegar_nombre(header.campos.at(i));
        for (int col = 0; col < kColumnas; ++col) {
            if (!columnas()[col].plegados.contains(folded))
                continue;
            if (where[col] >= 0)
                return en_linea(file, header.linea,
                                QStringLiteral("la columna '%1' está repetida en el encabezado.")
                                    .arg(header.campos.at(i)));
            where[col] = i;
        }
    }
    for (int col = 0; col < kColumnas; ++col) {
        if (columnas()[col].requerida && where[col] < 0)
            return en_linea(file, header.linea,
                            QStringLiteral("falta la columna '%1' en el encabezado.")
                                .arg(QLatin1String(columnas()[col].nombre)));
    }
    return {};
}

bool es_encabezado(const CsvRecord &row, const std::array<int, kColumnas> &where)
{
    for (int col : {Codigo, Descripcion, Precio}) {
        if (!columnas()[col].plegados.contains(plegar_nombre(row.campos.value(where[col]))))
            return false;
    }
    return true;
}

// The row's own shape: as many fields as the header, or more when the extra
// ones are empty (a trailing separator).
bool forma_valida(const CsvRecord &row, qsizetype header_size)
{
    if (row.campos.size() < header_size)
        return false;
    for (qsizetype i = header_size; i < row.campos.size(); ++i) {
        if (!row.campos.at(i).isEmpty())
            return false;
    }
    return true;
}

void nombre_y_fecha_de_archivo(const QString &ruta, QString &proveedor, QString &fecha)
{
    static const QRegularExpression kPattern(
        QStringLiteral("^(.*\\S)[\\s_-]+(\\d{4}-\\d{2}-\\d{2}|\\d{2}-\\d{2}-\\d{4}|\\d{8})$"));
    QString stem = QFileInfo(ruta).completeBaseName();
    const auto match = kPattern.match(stem);
    if (match.hasMatch() && !leer_fecha(match.captured(2)).isEmpty()) {
        fecha = leer_fecha(match.captured(2));
        stem = match.captured(1);
    }
    proveedor = stem.replace(QLatin1Char('_'), QLatin1Char(' ')).simplified();
}

QString escribir_campo(const QString &value, QChar sep)
{
    if (!value.contains(sep) && !value.contains(QLatin1Char('"')) && !value.contains(QLatin1Char('\n')) &&
        !value.contains(QLatin1Char('\r')) && value.trimmed() == value)
        return value;
    QString quoted = value;
    quoted.replace(QLatin1String("\""), QLatin1String("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

QString escribir_precio(const QString &precio, const CsvStyle &estilo)
{
    QString whole = precio.section(QLatin1Char('.'), 0, 0);
    const QString fraction = precio.section(QLatin1Char('.'), 1);
    if (estilo.miles) {
        const QChar mark = estilo.decimal == QLatin1Char(',') ? QLatin1Char('.') : QLatin1Char(',');
        for (qsizetype at = whole.size() - 3; at > 0; at -= 3)
            whole.insert(at, mark);
    }
    return fraction.isEmpty() ? whole : whole + estilo.decimal + fraction;
}

} // namespace

QString leer_fecha(const QString &text)
{
    for (const char *format : {"yyyy-MM-dd", "dd-MM-yyyy", "dd/MM/yyyy", "yyyyMMdd"}) {
        const QDate date = QDate::fromString(text.trimmed(), QLatin1String(format));
        if (date.isValid())
            return date.toString(Qt::ISODate);
    }
    return {};
}

CsvRead leer_lista_csv(const QString &ruta, const CsvOptions &opciones)
{
    CsvRead result;
    const QString file = QFileInfo(ruta).fileName();
    QFile input(ruta);
    if (!input.open(QIODevice::ReadOnly)) {
        result.error = QStringLiteral("Archivo '%1': no se puede abrir (%2).").arg(file, input.errorString());
        return result;
    }
    const DecodedText decoded = decodificar_lista(input.readAll());
    result.codificacion = decoded.codificacion;

    nombre_y_fecha_de_archivo(ruta, result.lista.proveedor, result.lista.fecha);
    if (!opciones.proveedor.trimmed().isEmpty())
        result.lista.proveedor = opciones.proveedor.trimmed();
    if (!opciones.fecha.isEmpty())
        result.lista.fecha = opciones.fecha;
    if (result.lista.fecha.isEmpty()) {
        result.error = QStringLiteral("Archivo '%1': no se sabe la fecha de la lista; póngala en el nombre "
                                      "del archivo (Proveedor_AAAA-MM-DD.csv) o indíquela con --fecha-lista.")
                           .arg(file);
        return result;
    }

    result.separador = detectar_separador(decoded.texto);
    std::vector<CsvRecord> rows;
    int bad_line = 0;
    if (decoded.texto.trimmed().isEmpty()) {
        result.error = QStringLiteral("Archivo '%1': está vacío.").arg(file);
        return result;
    }
    if (result.separador.isNull()) {
        result.error =
            en_linea(file, 1, QStringLiteral("no se reconoce el separador de columnas (use ';' o ',')."));
        return result;
    }
    if (!partir_registros(decoded.texto, result.separador, rows, bad_line)) {
        result.error = en_linea(file, bad_line, QStringLiteral("hay comillas sin cerrar."));
        return result;
    }
    if (rows.empty()) {
        result.error = QStringLiteral("Archivo '%1': está vacío.").arg(file);
        return result;
    }

    std::array<int, kColumnas> where{};
    result.error = leer_encabezado(rows.front(), file, where);
    if (!result.ok())
        return result;
    const qsizetype header_size = rows.front().campos.size();
    QStringList prices;
    for (size_t r = 1; r < rows.size(); ++r) {
        const CsvRecord &row = rows[r];
        if (!forma_valida(row, header_size)) {
            result.error = en_linea(file, row.linea,
                                    QStringLiteral("tiene %1 columnas y el encabezado tiene %2.")
                                        .arg(row.campos.size())
                                        .arg(header_size));
            return result;
        }
        if (es_encabezado(row, where)) {
            result.error = en_linea(file, row.linea, QStringLiteral("el encabezado aparece repetido."));
            return result;
        }
        prices << row.campos.at(where[Precio]);
    }
    result.decimal =
        opciones.decimal.isNull() ? detectar_decimal(prices, result.separador) : opciones.decimal;

    result.lista.articulos.reserve(rows.size() - 1);
    for (size_t r = 1; r < rows.size(); ++r) {
        const CsvRecord &row = rows[r];
        auto cell = [&](CsvColumn col) { return where[col] < 0 ? QString() : row.campos.at(where[col]); };
        const auto price = leer_precio(cell(Precio), result.decimal);
        if (!price) {
            result.error = en_linea(file, row.linea,
                                    QStringLiteral("el precio '%1' no se puede leer.").arg(cell(Precio)));
            return result;
        }
        const auto currency = leer_moneda(cell(Moneda));
        if (!currency) {
            result.error = en_linea(
                file, row.linea,
                QStringLiteral("la moneda '%1' no se reconoce (use 1, 2, 101 o 102).").arg(cell(Moneda)));
            return result;
        }
        result.lista.articulos.push_back({cell(Grupo), cell(Codigo), cell(Descripcion), cell(Marca),
                                          cell(Unidad), *price, *currency, cell(Observaciones)});
    }
    return result;
}

bool escribir_lista_csv(const SupplierList &lista, const QString &ruta, const CsvStyle &estilo,
                        QString &error)
{
    const QChar sep = estilo.separador;
    QString text;
    for (int col = 0; col < kColumnas; ++col)
        text += (col ? QString(sep) : QString()) + QLatin1String(columnas()[col].nombre);
    text += QLatin1String("\r\n");
    for (const ListArticle &a : lista.articulos) {
        const QStringList fields{a.grupo,  a.codigo,       a.descripcion,
                                 a.marca,  a.unidad,       escribir_precio(a.precio, estilo),
                                 a.moneda, a.observaciones};
        for (int col = 0; col < kColumnas; ++col)
            text += (col ? QString(sep) : QString()) + escribir_campo(fields.at(col), sep);
        text += QLatin1String("\r\n");
    }
    QFile output(ruta);
    if (!output.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        output.write(estilo.windows_1252 ? cp1252::codificar(text) : text.toUtf8()) < 0) {
        error = QStringLiteral("No se puede escribir '%1': %2").arg(ruta, output.errorString());
        return false;
    }
    return true;
}

} // namespace vendrix
