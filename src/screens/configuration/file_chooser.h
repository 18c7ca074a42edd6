#pragma once

#include <QString>

class QWidget;

namespace vendrix::screens {

// Where a screen asks the operator for a file or a folder, so that tests can
// answer instead. Filters are written "Description|*.ext|Other|*.a;*.b".
class FileChooser {
public:
    virtual ~FileChooser() = default;
    // The chosen path, "" when none was chosen.
    virtual QString abrir_archivo(QWidget *parent, const QString &filtro) = 0;
    virtual QString elegir_carpeta(QWidget *parent, const QString &titulo) = 0;
};

// The platform's file dialogs.
class DialogFileChooser final : public FileChooser {
public:
    QString abrir_archivo(QWidget *parent, const QString &filtro) override;
    QString elegir_carpeta(QWidget *parent, const QString &titulo) override;
};

// "Certificados (*.crt)|*.crt" as the file dialog writes it: each pair
// becomes "Description (patterns)", the description kept as it is when it
// already names them.
QString filtro_de_dialogo(const QString &filtro);

} // namespace vendrix::screens
