#pragma once

#include "core/context.h"
#include "support/failing_database.h"
#include "support/scripted_operator.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace vendrix::test {

// A fresh application folder in a temporary directory, with a scripted
// operator, a recording status bar and a clock fixed at 2026-11-23 10:30:00.
// The folder is removed when the test ends.
class TestApp {
public:
    // With `failing`, the database layer is a FailingDatabase (see `failing_db`).
    explicit TestApp(bool failing = false);

    const QString &carpeta() const { return folder_; }
    QString ruta(const QString &file) const { return folder_ + QLatin1Char('/') + file; }

    Context &ctx() { return *ctx_; }
    Database &db() { return ctx_->db(); }
    Log &log() { return ctx_->log(); }
    FailingDatabase &failing_db() { return static_cast<FailingDatabase &>(ctx_->db()); }

    // Writes a file of the folder (bytes as given).
    void write_file(const QString &file, const QByteArray &bytes) const;
    QByteArray read_file(const QString &file) const;
    // The lines of vendrix.log, without line ends.
    QStringList log_lines() const;
    // The messages of the log lines, without the "[date] [LVL] - " prefix.
    QStringList log_messages() const;
    // Copies the built seeds (`clientes.install`, ...) into the folder.
    void copy_seed(const QString &seed, const QString &as) const;

    ScriptedOperator op;
    RecordingStatus status;
    FixedClock clock;

private:
    QTemporaryDir dir_;
    QString folder_;
    std::unique_ptr<Context> ctx_;
};

} // namespace vendrix::test
