#pragma once

#include <QString>

namespace vendrix {

class Context;

// The running program's version: major, minor, revision.
struct VersionPrograma {
    int mayor = 0;
    int menor = 0;
    int revision = 0;

    // "major.minor.revision"
    QString texto() const;
    // The version this program was built as.
    static VersionPrograma actual();
};

// What a price database's `VERSION` says of the running program, comparing
// number by number with no carrying: a newer major ends the run, a newer
// minor or revision is a notice.
enum class AvisoVersion { ninguno, mayor, menor, revision };

// `VERSION` is "major.minor.revision"; a missing or unreadable part counts
// as 0.
AvisoVersion comparar_version(const QString &db_version, const VersionPrograma &running);

// Compares, shows the notice and logs it. False when the price database
// needs a newer program and the run must end.
bool validar_version_db(Context &ctx, const QString &db_version, const VersionPrograma &running);

// The search for a newer program at start. There is no online service yet:
// it only logs why it didn't look.
void buscar_actualizaciones(Context &ctx);

} // namespace vendrix
