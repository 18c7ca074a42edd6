#pragma once

#include <QString>

namespace vendrix {

class Clock;
class StatusSink;

// The program's log `vendrix.log` in the application folder. Each line is
// opened, appended and closed, so a crash keeps every line written before it.
// Lines look like "[23/11/2026 14:05:09] [INF] - message." and commas are
// stored as ";;" because the viewer splits its input at commas.
class Log {
public:
    static constexpr qint64 kRotateAtBytes = 100000;
    // The password of the price database; never written to the log.
    static constexpr const char *kPricePassword = "Kum4rt";
    static constexpr const char *kPasswordMask = "[PASSWORD_VENDRIX]";

    Log(QString folder, const Clock &clock, StatusSink &status);

    QString ruta_log() const;
    QString ruta_old() const;

    // Appends one line. An empty message writes nothing. Level "E" first
    // lights the error indicator.
    void escribir_log(const QString &message, const QString &level) const;

    // The first line of a run: rotates a log of 100000 bytes or more into
    // `vendrix.old` and writes the line into the fresh file. A smaller log is
    // left alone and the line is not written.
    void iniciar_log(const QString &message, const QString &level) const;

    // The detail word: "" at start, "High" once the operator raises it.
    const QString &detalle() const { return detalle_; }
    void set_detalle(const QString &word) { detalle_ = word; }
    bool detalle_alto() const { return detalle_ == QLatin1String("High"); }

    // The word a level letter takes in the file ("I" -> "INF", ...; "T" -> "").
    static QString palabra_nivel(const QString &level);
    // The cleaning every message gets: line breaks out, "," -> ";;",
    // the price database password masked.
    static QString limpiar(const QString &message);
    // "[date time] [LVL] - text." with the clock's current time.
    QString formatear_linea(const QString &text, const QString &level) const;

private:
    // Level "E" lights the status bar's error indicator.
    void encender_error(const QString &level) const;

    QString folder_;
    const Clock &clock_;
    StatusSink &status_;
    QString detalle_;
};

} // namespace vendrix
