#include "screens/configuration/file_chooser.h"

#include <QFileDialog>
#include <QStringList>

namespace vendrix::screens {

QString filtro_de_dialogo(const QString &filtro)
{
    const QStringList partes = filtro.split(QLatin1Char('|'));
    QStringList filtros;
    for (int i = 0; i + 1 < partes.size(); i += 2) {
        QString patrones = partes.at(i + 1);
        patrones.replace(QLatin1Char(';'), QLatin1Char(' '));
        const QString &descripcion = partes.at(i);
        filtros << (descripcion.contains(QLatin1Char('('))
                        ? descripcion
                        : descripcion + QStringLiteral(" (") + patrones + QLatin1Char(')'));
    }
    return filtros.join(QStringLiteral(";;"));
}

QString DialogFileChooser::abrir_archivo(QWidget *parent, const QString &filtro)
{
    return QFileDialog::getOpenFileName(parent, QString(), QString(), filtro_de_dialogo(filtro));
}

QString DialogFileChooser::elegir_carpeta(QWidget *parent, const QString &titulo)
{
    return QFileDialog::getExistingDirectory(parent, titulo);
}

} // namespace vendrix::screens
