#pragma once

#include "fiscal/hasar/hasar_link.h"

#include <QString>

#include <memory>

namespace vendrix {

class ByteChannel;

namespace hasar {

// The printer as the driver drives it: one method per step of a document,
// each turned into the printer's commands. Every failure throws the driver's
// FiscalError with the step's name.
class HasarPrinter {
public:
    explicit HasarPrinter(const HasarTiempos &tiempos);
    ~HasarPrinter();

    // The device and the speed the next `iniciar` opens.
    void puerto(const QString &ruta) { ruta_ = ruta; }
    void velocidad(int baudios) { velocidad_ = baudios; }

    // Opens the port and brings the sequence numbers in step with the
    // printer's, which answers a repeated number from its memory.
    void iniciar();
    bool abierto() const { return link_ != nullptr; }
    void cerrar();
    // Drops what the printer sent before this connection.
    void preparar();
    // The set-up at start and after the settings change prepares alike.
    void preparar_config() { preparar(); }
    // With retry on, a command that found the printer's buffer full is sent
    // again; with it off, that is reported like any other refusal.
    void modo_reintento(bool reintentar) { reintentar_ = reintentar; }
    // Asks the status and reports what would stop a document.
    void comenzar();

    // The model number from the version command; 0 for the older models,
    // which don't know it.
    int modelo();
    // The fiscal status word, as it comes.
    int estado();

    // Buyer data: `tipo_doc` and `iva` are character codes (67 "C", 50 "2",
    // 32 blank; 73 "I"). Texts are cut to the model's fields.
    void datos_cliente(const QString &nombre, const QString &numero_doc, int tipo_doc, int iva,
                       const QString &domicilio);
    // "0" factura A, "1" factura B/C, "R" credit note A, "S" credit note B/C.
    void abrir_comprobante(int codigo);
    // Each line of the text, as many as the model takes in a row.
    void texto_fiscal(const QString &texto);
    void imprimir_item(const QString &descripcion, double cantidad, double precio, double tasa_iva,
                       double impuestos_internos);
    // Closes the document that is open, fiscal or credit note.
    void cerrar_comprobante();
    void reporte_z();
    void reporte_x();

private:
    Frame comando(const QByteArray &codigo, const QList<QByteArray> &campos, const QString &paso,
                  bool inicia_documento = false);
    Frame estado_completo(const QString &paso);

    HasarTiempos tiempos_;
    QString ruta_;
    int velocidad_ = 0;
    bool reintentar_ = false;
    int modelo_ = -1; // read once a connection
    std::unique_ptr<ByteChannel> channel_;
    std::unique_ptr<HasarLink> link_;
};

} // namespace hasar
} // namespace vendrix
