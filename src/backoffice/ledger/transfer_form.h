#pragma once

// The transfer form (`FrmPagosTransferencias`) without its widgets: money
// moved from one payment method to another.

#include <QDate>
#include <QString>
#include <QStringList>

namespace vendrix {

class Context;

inline constexpr const char *kAgregarTransferencia = "AGREGAR_TRANSFERENCIA";
inline constexpr const char *kModificarTransferencia = "MODIFICAR_TRANSFERENCIA";

// What the form shows when it opens.
struct VistaTransferencia {
    QString marco, boton, titulo, cancelar; // captions
    QStringList medios;                     // both combos, none chosen
    // Read from the row when modifying; empty when adding.
    QString origen, destino, total, notas;
};

class TransferForm {
public:
    TransferForm(Context &ctx, QString modo, qint64 id);

    VistaTransferencia cargar() const;

    // Either combo changed: false, after the message, when both name the
    // same method.
    bool medios_distintos(const QString &origen, const QString &destino) const;
    // Leaving `Text_Total_transferencia`: false, after its message, when the
    // text is not a number above zero.
    bool salir_total(const QString &total) const;
    // `Command_Agregar`: true when the form may close. Modifying writes
    // nothing: it only says so.
    bool guardar(const QDate &fecha, const QString &origen, const QString &destino, const QString &total,
                 const QString &notas) const;

private:
    Context &ctx_;
    QString modo_;
    qint64 id_;
};

} // namespace vendrix
