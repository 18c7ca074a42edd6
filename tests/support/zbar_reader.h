#pragma once

#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace vendrix::test {

// What zbarimg (zbar-tools), a reader independent of ours, reads in the
// image: the texts of the codes it finds.
inline QString leer_con_zbar(const QImage &imagen, const QStringList &opciones = {})
{
    QTemporaryDir dir;
    imagen.save(dir.filePath("codigo.png"));
    QProcess zbar;
    zbar.start(QStandardPaths::findExecutable("zbarimg"),
               QStringList{"--raw", "-q"} + opciones + QStringList{dir.filePath("codigo.png")});
    return zbar.waitForFinished(20000) ? QString::fromUtf8(zbar.readAllStandardOutput()).trimmed()
                                       : QStringLiteral("zbarimg didn't run: install zbar-tools");
}

} // namespace vendrix::test
