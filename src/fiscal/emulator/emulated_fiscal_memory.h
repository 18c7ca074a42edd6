#pragma once

#include "fiscal/hasar/hasar_frame.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QStringList>

#include <optional>

namespace vendrix {

// What an emulated printer keeps and prints: the open document, its lines
// and totals, the day's totals and counters, and the journal of every line
// it printed. `ejecutar` runs one command and gives the reply's fields,
// status words first, as the real printer would, refusing what it refuses.
class EmulatedFiscalMemory {
public:
    // `modelo` is a model number of the maker's (2 P-615F, 9 P-715F, ...);
    // `responsabilidad` the owner's IVA letter ('I' inscripto, 'M', ...).
    EmulatedFiscalMemory(int modelo, char responsabilidad);

    QList<QByteArray> ejecutar(const hasar::Frame &comando);
    // A reply that only carries status words, with `fiscal` bits added.
    QList<QByteArray> estado(quint16 impresora, quint16 fiscal) const;

    // A ticket-factura left open by an earlier run.
    void dejar_comprobante_abierto();

    const QStringList &diario() const { return diario_; }

private:
    enum class Documento { Ninguno, Ticket, FacturaA, FacturaBC, CreditoA, CreditoBC };
    struct Cliente {
        QString nombre;
        QByteArray numero;
        char responsabilidad = 'C';
        char tipo_doc = ' ';
        std::optional<QString> domicilio;
    };

    QList<QByteArray> datos_cliente(const QList<QByteArray> &campos);
    QList<QByteArray> abrir_fiscal(const QList<QByteArray> &campos);
    QList<QByteArray> texto_fiscal(const QList<QByteArray> &campos);
    QList<QByteArray> item(const QList<QByteArray> &campos);
    QList<QByteArray> cerrar(bool nota_de_credito);
    QList<QByteArray> cierre_diario(const QList<QByteArray> &campos);
    QList<QByteArray> comprobante_original(const QList<QByteArray> &campos);
    QList<QByteArray> abrir_credito(const QList<QByteArray> &campos);
    QList<QByteArray> respuesta_estado() const;

    QList<QByteArray> error(int bit) const;
    QList<QByteArray> ok(const QList<QByteArray> &extra = {}) const;
    bool segunda_serie() const;
    bool abierto() const { return documento_ != Documento::Ninguno; }
    bool es_credito() const
    {
        return documento_ == Documento::CreditoA || documento_ == Documento::CreditoBC;
    }
    void imprimir_encabezado(const QString &titulo);
    void imprimir(const QString &izquierda, double monto);

    int modelo_;
    char responsabilidad_;
    Documento documento_ = Documento::Ninguno;
    std::optional<Cliente> cliente_;
    QByteArray original_;
    int textos_seguidos_ = 0;
    int items_ = 0;
    QMap<QByteArray, double> por_tasa_; // the document's amounts with IVA by rate
    int ultimo_a_ = 0, ultimo_bc_ = 0, ultimo_credito_a_ = 0, ultimo_credito_bc_ = 0;
    int numero_x_ = 0, numero_z_ = 0, documentos_del_dia_ = 0;
    double ventas_del_dia_ = 0, iva_del_dia_ = 0;
    QStringList diario_;
};

} // namespace vendrix
