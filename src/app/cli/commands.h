#pragma once

#include "cli_args.h"

namespace vendrix::cli {

// One subcommand of vendrix-cli: its word, a line of help, the options that
// take a value, and what it runs. Each returns the process exit code.
struct Command {
    const char *name;
    const char *help;
    QStringList valued_options;
    int (*run)(const CliArgs &args);
};

// Every subcommand; each lives in its own cmd_*.cpp file.
int cmd_verificar(const CliArgs &args);
int cmd_construir_lista(const CliArgs &args);
int cmd_demo(const CliArgs &args);
int cmd_precio(const CliArgs &args);
int cmd_buscar(const CliArgs &args);
int cmd_emular_hasar(const CliArgs &args);
int cmd_simular_afip(const CliArgs &args);

} // namespace vendrix::cli
