#pragma once

#include "fiscal/fiscal_device.h"

#include <QStringList>

namespace vendrix::test {

// A driver that records each call by name and throws at the one named in
// `falla` (read at each call): number 7, "Sin papel", source "DRV", step "paso1".
class FakeDevice final : public FiscalDevice {
public:
    FakeDevice(QStringList &llamadas, const QString &falla) : llamadas_(llamadas), falla_(falla) {}

    void conectar() override { paso("conectar"); }
    void configurar() override { paso("configurar"); }
    QString probar() override { return paso("probar"), QStringLiteral("3"); }
    std::optional<std::pair<int, QString>> modelo() override
    {
        return paso("modelo"), std::pair{8, QStringLiteral("P-320F")};
    }
    void abrir(DocumentoFiscal &doc) override { doc.tipo_factura = QStringLiteral("48"), paso("abrir"); }
    void agregar(ItemFiscal &) override { paso("agregar"); }
    void cerrar(CierreFiscal &) override { paso("cerrar"); }
    void cierre_x() override { paso("cierre_x"); }
    void cierre_z() override { paso("cierre_z"); }
    void desconectar() override { paso("desconectar"); }

private:
    void paso(const char *nombre)
    {
        llamadas_ << QString::fromLatin1(nombre);
        if (falla_ == QLatin1String(nombre))
            throw FiscalError(7, QStringLiteral("Sin papel"), QStringLiteral("DRV"), QStringLiteral("paso1"));
    }

    QStringList &llamadas_;
    const QString &falla_;
};

} // namespace vendrix::test
