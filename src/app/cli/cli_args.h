#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace vendrix::cli {

// The words of a `vendrix-cli` call: the subcommand, its positional words,
// and its `--name value` options and bare `--flag`s.
struct CliArgs {
    QString command;
    QStringList positional;
    QMap<QString, QString> options; // "--carpeta" -> "DIR"
    QStringList flags;              // "--todos"

    bool flag(const QString &name) const { return flags.contains(name); }
    QString option(const QString &name, const QString &fallback = {}) const
    {
        return options.value(name, fallback);
    }
    // The application folder: `--carpeta`, else the executable's folder.
    QString carpeta() const;
};

// Options that take a value; every other `--word` is a flag.
CliArgs parse_args(const QStringList &argv, const QStringList &valued_options);

} // namespace vendrix::cli
