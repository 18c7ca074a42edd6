#pragma once

#include "core/clock.h"
#include "core/database.h"
#include "core/log.h"
#include "core/operator.h"
#include "core/settings.h"

#include <QDir>
#include <QString>

#include <functional>
#include <memory>

namespace vendrix {

// Everything a service needs to reach the rest of the program: the
// application folder, the operator, the status bar, the clock, the settings
// file, the log and the two databases. The program builds one at start with
// its executable's folder; tests build one over a temporary folder.
class Context {
public:
    static constexpr const char *kConfigFile = "Config.vdrx";

    // Builds the database layer; tests pass one that fails on demand.
    using DatabaseFactory =
        std::function<std::unique_ptr<Database>(const QString &folder, Log &, Operator &, StatusSink &)>;

    Context(QString folder, Operator &op, StatusSink &status, const Clock &clock,
            const DatabaseFactory &make_db = {})
        : folder_(QDir(folder).absolutePath()), op_(op), status_(status), clock_(clock),
          settings_(ruta(QLatin1String(kConfigFile))), log_(folder_, clock_, status_),
          db_(make_db ? make_db(folder_, log_, op_, status_)
                      : std::make_unique<Database>(folder_, log_, op_, status_))
    {
    }

    const QString &carpeta() const { return folder_; }
    // A file of the application folder.
    QString ruta(const QString &file) const { return folder_ + QLatin1Char('/') + file; }

    Operator &op() { return op_; }
    StatusSink &estado() { return status_; }
    const Clock &reloj() const { return clock_; }
    const Settings &config() const { return settings_; }
    Log &log() { return log_; }
    Database &db() { return *db_; }

    // Shorthands used everywhere.
    QString leer_parametro(const QString &key) const { return settings_.leer_parametro(key); }
    bool escribir_parametro(const QString &key, const QString &value) const
    {
        return settings_.escribir_parametro(key, value);
    }
    void escribir_log(const QString &message, const QString &level) const { log_.escribir_log(message, level); }

private:
    QString folder_;
    Operator &op_;
    StatusSink &status_;
    const Clock &clock_;
    Settings settings_;
    Log log_;
    std::unique_ptr<Database> db_;
};

} // namespace vendrix
