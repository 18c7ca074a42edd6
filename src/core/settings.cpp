#include "core/settings.h"
#include "core/settings_read.h"

#include "core/cp1252.h"

#include <QFile>
#include <QHash>
#include <QSaveFile>

#include <mutex>
#include <vector>

namespace vendrix {

namespace {

const QByteArray kCrLf = QByteArrayLiteral("\r\n");

// One line of the file as it stands on disk: its bytes without the line end,
// and the line end itself ("\r\n", "\n", or "" for a last line without one).
// Lines that a write doesn't touch go back out exactly as they came in.
struct RawLine {
    QByteArray body;
    QByteArray end;
};

std::vector<RawLine> partir_lineas(const QByteArray &bytes)
{
    std::vector<RawLine> lines;
    qsizetype start = 0;
    while (start < bytes.size()) {
        const qsizetype lf = bytes.indexOf('\n', start);
        if (lf < 0) {
            lines.push_back({bytes.mid(start), {}});
            break;
        }
        const bool crlf = lf > start && bytes.at(lf - 1) == '\r';
        const qsizetype body_end = crlf ? lf - 1 : lf;
        lines.push_back({bytes.mid(start, body_end - start), crlf ? kCrLf : QByteArrayLiteral("\n")});
        start = lf + 1;
    }
    return lines;
}

const QByteArray kUtf8Bom = QByteArrayLiteral("\xEF\xBB\xBF");

// The file as lines, and its encoding. Windows-1252 is the file's own code
// page; a file that an editor saved as UTF-8 with a byte-order mark reads
// right and is written back in UTF-8 with its mark.
struct IniFile {
    bool utf8 = false;
    std::vector<RawLine> lines;

    QString decodificar(const QByteArray &bytes) const
    {
        return utf8 ? QString::fromUtf8(bytes) : cp1252::decodificar(bytes);
    }
    QByteArray codificar(const QString &text) const { return utf8 ? text.toUtf8() : cp1252::codificar(text); }
    QByteArray bytes() const
    {
        QByteArray out = utf8 ? kUtf8Bom : QByteArray();
        for (const RawLine &line : lines)
            out += line.body + line.end;
        return out;
    }
};

IniFile de_bytes(const QByteArray &bytes)
{
    IniFile file;
    file.utf8 = bytes.startsWith(kUtf8Bom);
    file.lines = partir_lineas(file.utf8 ? bytes.sliced(kUtf8Bom.size()) : bytes);
    return file;
}

bool es_blanco(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\r') ||
           c == QLatin1Char('\v') || c == QLatin1Char('\f');
}

// Trims the blanks the private-profile functions ignore. QString::trimmed
// would also drop the no-break space (0xA0), which Windows keeps.
QStringView recortar(QStringView text)
{
    qsizetype from = 0;
    qsizetype to = text.size();
    while (from < to && es_blanco(text[from]))
        ++from;
    while (to > from && es_blanco(text[to - 1]))
        --to;
    return text.sliced(from, to - from);
}

// What a line of the file means to the reader.
struct ParsedLine {
    enum Kind { Other, Blank, Section, Key } kind = Other;
    QString name;  // section or key name, as written
    QString value; // key lines only, blanks trimmed
};

ParsedLine analizar(const QString &text)
{
    const QStringView line = recortar(text);
    ParsedLine parsed;
    if (line.isEmpty()) {
        parsed.kind = ParsedLine::Blank;
        return parsed;
    }
    if (line.startsWith(QLatin1Char('['))) {
        const qsizetype close = line.indexOf(QLatin1Char(']'));
        parsed.kind = ParsedLine::Section;
        parsed.name = recortar(close < 0 ? line.mid(1) : line.sliced(1, close - 1)).toString();
        return parsed;
    }
    // ";" lines are comments: never a key, kept as they are.
    if (line.startsWith(QLatin1Char(';')))
        return parsed;
    // The first "=" ends the key; any later one belongs to the value.
    const qsizetype eq = line.indexOf(QLatin1Char('='));
    if (eq <= 0)
        return parsed;
    parsed.kind = ParsedLine::Key;
    parsed.name = recortar(line.first(eq)).toString();
    parsed.value = recortar(line.sliced(eq + 1)).toString();
    if (parsed.name.isEmpty())
        parsed.kind = ParsedLine::Other;
    return parsed;
}

bool mismo_nombre(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

// A value enclosed in matching single or double quotes reads without them,
// as GetPrivateProfileString does.
QString sin_comillas(const QString &value)
{
    if (value.size() >= 2 && (value.front() == QLatin1Char('"') || value.front() == QLatin1Char('\'')) &&
        value.back() == value.front())
        return value.sliced(1, value.size() - 2);
    return value;
}

// A value must stay on its line: line breaks inside it become blanks.
QString una_linea(QString value)
{
    value.replace(QLatin1String("\r\n"), QLatin1String(" "));
    value.replace(QLatin1Char('\r'), QLatin1Char(' '));
    value.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return value;
}

// The file's bytes; a missing file is empty. `ok` is false only when the file
// exists but can't be read, so a write never replaces a file it couldn't see.
QByteArray leer_bytes(const QString &path, bool *ok = nullptr)
{
    QFile file(path);
    const bool opened = file.open(QIODevice::ReadOnly);
    if (ok)
        *ok = opened || !file.exists();
    return opened ? file.readAll() : QByteArray();
}

// Writes through a temporary file and a rename, so a crash mid-write leaves
// the old file whole. In a folder where no temporary file can be made but the
// file itself is writable, it writes the file directly.
bool escribir_bytes(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

// The default file, one entry a line. The odd blanks are those the file has
// always had; the reader ignores them.
const char *const kDefaultLines[] = {
    "[PROVEEDORES]",
    "",
    "[PARAMETROS]",
    "",
    "detalle_precios = 0",
    "advertencia_precio_antiguo = 0 ",
    "preguntar_al_salir = 1 ",
    "comenzar_en_listas = 0 ",
    "decimales = 2 ",
    "advertencia_precio_antiguo_dias=0",
    "tooltips = 0",
    "carritos = 0",
    "IF_PuntoDeVenta = 1",
    "IF_Modelo = Epson",
    "IF_IDFiscal=",
    "IF_Mensaje=GRACIAS POR SU COMPRA",
    "IF_Port = COM2",
    "IF_velocidad = 9600",
    nullptr, // version=
    "IF_desc_art=Descripción",
    "busqueda_limite_caracteres = 0",
    " busqueda_cantidad_resultados = 1",
    " busqueda_terminos_similares = 0",
    "busqueda_ortografia = 0",
    "busqueda_autocompletar = 0",
    "cantidad_filas=100",
    "busqueda_sugerencias = 0",
    "busqueda_ignorarPreposiciones = 1",
    "actualizar_online = 1",
    "busqueda_limite_caracteres_combo = 3",
    "busqueda_cantidad_resultados_combo = 10",
    // From this amount up a final consumer must be identified (AFIP's general
    // resolution 5700/2025), in cash and by card alike.
    "IF_max_tarjeta = 10000000",
    "IF_max_efectivo = 10000000",
    "Impresora_Fiscal = 0",
    "Valor_Dolar=1",
    "iva = 21",
    "recargo_tarjeta=0",
    "letraGrande = 0",
};

// The key under which a value is kept: section and key compared ignoring
// case, as the lookup does.
QString clave_valor(const QString &section, const QString &key)
{
    return section.toCaseFolded() + QChar(0x1F) + key.toCaseFolded();
}

// Every value of the file: for each section and key the first line of a
// section of that name that names the key.
QHash<QString, QString> leer_valores(const QByteArray &bytes)
{
    QHash<QString, QString> values;
    QString section;
    bool in_section = false;
    const IniFile file = de_bytes(bytes);
    for (const RawLine &line : file.lines) {
        const ParsedLine parsed = analizar(file.decodificar(line.body));
        if (parsed.kind == ParsedLine::Section) {
            section = parsed.name;
            in_section = true;
            continue;
        }
        if (!in_section || parsed.kind != ParsedLine::Key)
            continue;
        const QString key = clave_valor(section, parsed.name);
        if (!values.contains(key))
            values.insert(key, sin_comillas(parsed.value).left(Settings::kMaxValueLength));
    }
    return values;
}

} // namespace

// The last text read and its values: a read whose file holds the same bytes
// doesn't parse it again.
struct Settings::Lectura {
    std::mutex mutex;
    QByteArray bytes;
    QHash<QString, QString> valores;
    bool hecha = false;
};

Settings::Settings(QString path) : path_(std::move(path)), lectura_(std::make_shared<Lectura>())
{
}

QStringList Settings::leer_claves(const QString &section, const QStringList &keys) const
{
    const QByteArray bytes = leer_bytes(path_);
    const std::lock_guard lock(lectura_->mutex);
    if (!lectura_->hecha || lectura_->bytes != bytes) {
        lectura_->valores = leer_valores(bytes);
        lectura_->bytes = bytes;
        lectura_->hecha = true;
    }
    QStringList values;
    values.reserve(keys.size());
    for (const QString &key : keys)
        values << lectura_->valores.value(clave_valor(section, key));
    return values;
}

QString Settings::leer_ini(const QString &section, const QString &key) const
{
    return leer_claves(section, {key}).first();
}

QStringList leer_parametros(const Settings &settings, const QStringList &keys)
{
    return settings.leer_claves(QStringLiteral("PARAMETROS"), keys);
}

bool Settings::escribir_ini(const QString &section, const QString &key, const QString &value) const
{
    bool readable = false;
    IniFile file = de_bytes(leer_bytes(path_, &readable));
    if (!readable)
        return false;
    std::vector<RawLine> &lines = file.lines;
    const QByteArray clean_value = file.codificar(una_linea(value));

    bool in_section = false;
    bool in_first_section = false;
    // Where a missing key goes: after the last non-blank line of the first
    // matching section, so a blank line before the next section stays there.
    qsizetype insert_after = -1;
    for (qsizetype i = 0; i < static_cast<qsizetype>(lines.size()); ++i) {
        RawLine &line = lines[static_cast<size_t>(i)];
        const ParsedLine parsed = analizar(file.decodificar(line.body));
        if (parsed.kind == ParsedLine::Section) {
            in_section = mismo_nombre(parsed.name, section);
            in_first_section = in_section && insert_after < 0;
            if (in_first_section)
                insert_after = i;
            continue;
        }
        if (in_section && parsed.kind == ParsedLine::Key && mismo_nombre(parsed.name, key)) {
            // The key keeps the case it already has in the file.
            line = {file.codificar(parsed.name) + '=' + clean_value, kCrLf};
            return escribir_bytes(path_, file.bytes());
        }
        if (in_first_section && parsed.kind != ParsedLine::Blank)
            insert_after = i;
    }

    const RawLine new_line{file.codificar(key) + '=' + clean_value, kCrLf};
    if (insert_after >= 0) {
        RawLine &before = lines[static_cast<size_t>(insert_after)];
        if (before.end.isEmpty())
            before.end = kCrLf;
        lines.insert(lines.begin() + insert_after + 1, new_line);
    } else {
        if (!lines.empty() && lines.back().end.isEmpty())
            lines.back().end = kCrLf;
        lines.push_back({'[' + file.codificar(section) + ']', kCrLf});
        lines.push_back(new_line);
    }
    return escribir_bytes(path_, file.bytes());
}

QString Settings::texto_por_defecto(const QString &version)
{
    QString text;
    for (const char *line : kDefaultLines)
        text +=
            (line ? QString::fromUtf8(line) : QStringLiteral("version=") + version) + QLatin1String("\r\n");
    return text;
}

bool Settings::crear_por_defecto(const QString &version) const
{
    return reemplazar_texto(texto_por_defecto(version));
}

QString Settings::texto_completo() const
{
    const QByteArray bytes = leer_bytes(path_);
    return bytes.startsWith(kUtf8Bom) ? QString::fromUtf8(bytes.sliced(kUtf8Bom.size()))
                                      : cp1252::decodificar(bytes);
}

bool Settings::reemplazar_texto(const QString &text) const
{
    return escribir_bytes(path_, cp1252::codificar(text));
}

} // namespace vendrix
