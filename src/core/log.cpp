#include "core/log.h"

#include "core/clock.h"
#include "core/operator.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

namespace vendrix {

namespace {

const QString kLogFile = QStringLiteral("vendrix.log");
const QString kOldFile = QStringLiteral("vendrix.old");

// Removes every line break, so one call is one line of the file: CR LF pairs
// first, then any CR or LF left on its own.
QString sin_saltos(QString text)
{
    text.remove(QLatin1String("\r\n"));
    text.remove(QLatin1Char('\r'));
    text.remove(QLatin1Char('\n'));
    return text;
}

// Appends or rewrites with one line. The file is closed again at once so a
// crash keeps every line written before it. A failure is silent: the log never
// stops the program.
void escribir_linea(const QString &path, const QString &line, QIODevice::OpenMode mode)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | mode))
        return;
    file.write(line.toUtf8() + QByteArrayLiteral("\r\n"));
}

} // namespace

Log::Log(QString folder, const Clock &clock, StatusSink &status)
    : folder_(std::move(folder)), clock_(clock), status_(status)
{
}

QString Log::ruta_log() const
{
    return folder_ + QLatin1Char('/') + kLogFile;
}

QString Log::ruta_old() const
{
    return folder_ + QLatin1Char('/') + kOldFile;
}

QString Log::palabra_nivel(const QString &level)
{
    static constexpr std::pair<char, const char *> kWords[] = {
        {'I', "INF"}, {'P', "PRN"}, {'A', "ACT"}, {'Q', "SQL"}, {'X', "XML"}, {'E', "ERR"},
    };
    if (level.size() == 1) {
        for (const auto &[letter, word] : kWords) {
            if (level.front() == QLatin1Char(letter))
                return QLatin1String(word);
        }
    }
    return {}; // "T": bare text
}

QString Log::limpiar(const QString &message)
{
    QString text = sin_saltos(message);
    text.replace(QLatin1Char(','), QLatin1String(";;"));
    text.replace(QLatin1String(kPricePassword), QLatin1String(kPasswordMask));
    return text;
}

QString Log::formatear_linea(const QString &text, const QString &level) const
{
    const QDateTime now = clock_.now();
    return QLatin1Char('[') + now.toString(QStringLiteral("dd/MM/yyyy")) + QLatin1Char(' ') +
           now.toString(QStringLiteral("HH:mm:ss")) + QLatin1String("] [") + palabra_nivel(level) +
           QLatin1String("] - ") + text + QLatin1Char('.');
}

void Log::encender_error(const QString &level) const
{
    if (level != QLatin1String("E"))
        return;
    // At start-up there may be no status bar behind the sink yet; a log line
    // must never fail its caller because of it.
    try {
        status_.actualizar_indicador(QStringLiteral("bug_on"));
    } catch (...) {
    }
}

void Log::escribir_log(const QString &message, const QString &level) const
{
    if (message.isEmpty())
        return;
    encender_error(level);
    escribir_linea(ruta_log(), formatear_linea(limpiar(message), level), QIODevice::Append);
}

void Log::iniciar_log(const QString &message, const QString &level) const
{
    encender_error(level);
    // A missing log has size 0 and is left alone like any small one.
    if (QFileInfo(ruta_log()).size() < kRotateAtBytes)
        return;
    // The previous log must be safe in vendrix.old before the current one is
    // emptied; if the copy fails the log keeps growing rather than losing it.
    QFile::remove(ruta_old());
    if (!QFile::copy(ruta_log(), ruta_old()))
        return;
    // This line keeps its commas and is not masked; only line breaks go, so
    // that it stays one line.
    escribir_linea(ruta_log(), formatear_linea(sin_saltos(message), level), QIODevice::Truncate);
}

} // namespace vendrix
