#include "cli_args.h"

#include <QCoreApplication>

namespace vendrix::cli {

QString CliArgs::carpeta() const
{
    return option(QStringLiteral("--carpeta"), QCoreApplication::applicationDirPath());
}

CliArgs parse_args(const QStringList &argv, const QStringList &valued_options)
{
    CliArgs args;
    for (int i = 1; i < argv.size(); ++i) {
        const QString &word = argv.at(i);
        if (word.startsWith(QLatin1String("--"))) {
            const int eq = word.indexOf(QLatin1Char('='));
            if (eq > 0) {
                args.options.insert(word.left(eq), word.mid(eq + 1));
            } else if (valued_options.contains(word) && i + 1 < argv.size()) {
                args.options.insert(word, argv.at(++i));
            } else {
                args.flags << word;
            }
        } else if (args.command.isEmpty()) {
            args.command = word;
        } else {
            args.positional << word;
        }
    }
    return args;
}

} // namespace vendrix::cli
