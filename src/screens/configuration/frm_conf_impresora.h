#pragma once

#include <QDialog>

#include <memory>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace vendrix {
class Context;
class FiscalFront;
} // namespace vendrix

namespace vendrix::screens {

class FileChooser;

// The printer and electronic invoice settings. Every control stores its key
// as the operator changes it; a change of model, port or speed hands the new
// settings to the printer at once. It also erases old sales.
class FrmConfImpresora : public QDialog {
    Q_OBJECT

public:
    // Without a chooser, the platform's file dialogs are used.
    FrmConfImpresora(Context &ctx, FiscalFront &front, FileChooser *chooser = nullptr,
                     QWidget *parent = nullptr);
    ~FrmConfImpresora() override;

    // Lays the screen out for a model's word: "achicar" hides the next
    // numbers and the electronic invoice, "agrandar" shows the numbers,
    // "Factura Electronica" shows the electronic invoice.
    void aplicar_disposicion(const QString &palabra);
    // "grande" or "chico".
    QString tamano() const;

    // Asks, then erases the sales up to the date of `DTPicker_eliminar`.
    bool eliminar_datos_historicos();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void crear_controles();
    void conectar_controles();
    // Sets every control from its key, with the corrections of old values.
    void cargar();
    void mostrar_logo();
    void habilitar_numeros(const QString &condicion);
    void guardar(const QString &clave, const QString &valor, const QString &clave_log = {});
    void maximo_editado(QLineEdit *box, const QString &clave, const QString &campo);
    void elegir_archivo_fe(const QString &clave, const QString &filtro, QLineEdit *box);
    void elegir_openssl();
    void cambiar_logo();

    Context &ctx_;
    FiscalFront &front_;
    std::unique_ptr<FileChooser> propio_;
    FileChooser *chooser_;

    QComboBox *modelo_;
    QComboBox *puerto_;
    QComboBox *velocidad_;
    QComboBox *desc_art_;
    QComboBox *iva_;
    QComboBox *modo_fe_;
    QLineEdit *punto_venta_;
    QLineEdit *mensaje_;
    QPlainTextEdit *id_fiscal_;
    QLineEdit *max_efectivo_;
    QLineEdit *max_tarjeta_;
    QLineEdit *cuit_;
    QCheckBox *comandera_;
    QCheckBox *detalle_;
    QCheckBox *nota_venta_;
    QLineEdit *ticket_a_;
    QLineEdit *ticket_b_;
    QLineEdit *ticket_c_;
    QLineEdit *nc_a_;
    QLineEdit *nc_b_;
    QLineEdit *nc_c_;
    QLineEdit *certificado_;
    QLineEdit *llave_;
    QLineEdit *openssl_;
    QLabel *logo_;
    QDateEdit *fecha_eliminar_;
    QGroupBox *numeros_;
    QGroupBox *fe_;
};

} // namespace vendrix::screens
