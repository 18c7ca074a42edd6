#pragma once

#include "core/numeric.h"
#include "fiscal/fiscal_device.h"

#include <QStringList>

namespace vendrix::test {

// A driver that records each call by name and throws at the one named in
// `falla` (read at each call): number 7, "Sin papel", source "DRV", step "paso1".
// With `con_cifras`, a document's calls carry what a ticket shows: letter,
// buyer and document; description, quantity and price; the card payment.
class FakeDevice final : public FiscalDevice {
public:
    FakeDevice(QStringList &llamadas, const QString &falla, bool con_cifras = false)
        : llamadas_(llamadas), falla_(falla), con_cifras_(con_cifras)
    {
    }

    void conectar() override { paso("conectar"); }
    void configurar() override { paso("configurar"); }
    QString probar() override { return paso("probar"), QStringLiteral("3"); }
    std::optional<std::pair<int, QString>> modelo() override
    {
        return paso("modelo"), std::pair{8, QStringLiteral("P-320F")};
    }
    void abrir(DocumentoFiscal &d) override
    {
        d.tipo_factura = QStringLiteral("48");
        paso("abrir", {d.letra, d.nombre, d.numero_doc});
    }
    void agregar(ItemFiscal &i) override
    {
        paso("agregar", {i.descripcion, i.cantidad, QString::number(valor_texto(i.precio), 'f', 2)});
    }
    void cerrar(CierreFiscal &c) override { paso("cerrar", {QString::number(c.pago_credito)}); }
    void cierre_x() override { paso("cierre_x"); }
    void cierre_z() override { paso("cierre_z"); }
    void desconectar() override { paso("desconectar"); }

private:
    void paso(const char *nombre, const QStringList &cifras = {})
    {
        llamadas_ << (con_cifras_ ? QStringList(QString::fromLatin1(nombre)) + cifras
                                  : QStringList(QString::fromLatin1(nombre)))
                         .join(' ');
        if (falla_ == QLatin1String(nombre))
            throw FiscalError(7, QStringLiteral("Sin papel"), QStringLiteral("DRV"), QStringLiteral("paso1"));
    }

    QStringList &llamadas_;
    const QString &falla_;
    bool con_cifras_;
};

} // namespace vendrix::test
