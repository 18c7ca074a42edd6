#pragma once

#include <QString>
#include <QStringList>

#include <memory>

namespace vendrix {

// The settings file `Config.vdrx`: a Windows INI file in the Windows-1252 code
// page with CR LF line ends. It reads and writes the way the Windows
// private-profile functions do, so files of the earlier Windows program keep
// working: key lookup ignores case, blanks around `=` and at the end of a
// value don't count, and a write changes one line and leaves the rest alone.
// Every read opens the file; only the parse of a text already read is kept.
class Settings {
public:
    static constexpr int kMaxValueLength = 1023;

    explicit Settings(QString path);

    const QString &path() const { return path_; }

    QString leer_ini(const QString &section, const QString &key) const;
    // The values of `keys` in `section` with one read of the file.
    QStringList leer_claves(const QString &section, const QStringList &keys) const;
    // False when the file could not be written (a read-only folder, say).
    bool escribir_ini(const QString &section, const QString &key, const QString &value) const;

    QString leer_parametro(const QString &key) const { return leer_ini(QStringLiteral("PARAMETROS"), key); }
    bool escribir_parametro(const QString &key, const QString &value) const
    {
        return escribir_ini(QStringLiteral("PARAMETROS"), key, value);
    }

    // The text of the default file, with `version=` the given version.
    static QString texto_por_defecto(const QString &version);
    // Writes the default file; false when it could not be written.
    bool crear_por_defecto(const QString &version) const;

    // The file's whole text and its replacement, for backups.
    QString texto_completo() const;
    bool reemplazar_texto(const QString &text) const;

private:
    struct Lectura;
    QString path_;
    std::shared_ptr<Lectura> lectura_;
};

} // namespace vendrix
