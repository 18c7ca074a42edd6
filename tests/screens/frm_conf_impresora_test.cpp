// The printer settings screen and the printer frame of the configuration
// tab.
#include "fiscal/front/fiscal_front.h"
#include "screens/configuration/config_impresora_fiscal.h"
#include "screens/configuration/file_chooser.h"
#include "screens/configuration/frm_conf_impresora.h"
#include "screens/pantalla.h"

#include "support/qt_print.h"
#include "support/test_context.h"

#include <QGroupBox>
#include <QLineEdit>

namespace vendrix::test {
namespace {

// Answers the file dialogs with the next path of its list, "" when none is
// left, and keeps the filters it was asked with.
class ScriptedChooser final : public screens::FileChooser {
public:
    QString abrir_archivo(QWidget *, const QString &filtro) override
    {
        filtros << filtro;
        return rutas.isEmpty() ? QString() : rutas.takeFirst();
    }
    QString elegir_carpeta(QWidget *w, const QString &titulo) override { return abrir_archivo(w, titulo); }
    QStringList rutas;
    QStringList filtros;
};

class ConfImpresora : public ::testing::Test {
protected:
    void set(const char *clave, const QString &valor)
    {
        app.ctx().escribir_parametro(QString::fromLatin1(clave), valor);
    }
    QString get(const char *clave) { return app.ctx().leer_parametro(QString::fromLatin1(clave)); }
    auto abrir() { return std::make_unique<screens::FrmConfImpresora>(app.ctx(), front, &chooser); }
    QStringList log_desde(int desde) { return app.log_messages().mid(desde); }

    TestApp app;
    FiscalFront front{app.ctx(), nullptr};
    ScriptedChooser chooser;
};

TEST_F(ConfImpresora, OldValuesAreCorrectedOnceWhenTheScreenOpens)
{
    set("IF_max_efectivo", "diez mil");
    set("IF_tipo_IVA", "M - RESPONSABLE MONOTRIBUTO");
    {
        auto form = abrir();
        EXPECT_EQ(hijo(*form, "Text_maximo_efectivo")->text(), "10000");
        EXPECT_EQ(hijo(*form, "Text_maximo_tarjeta")->text(), "20000");
        auto *iva = hijo<QComboBox>(*form, "Combo_iva");
        EXPECT_EQ(QStringList({iva->itemText(0), iva->itemText(1)}),
                  QStringList({"M - RESPONSABLE MONOTRIBUTO", "I - IVA RESPONSABLE INSCRIPTO"}));
        EXPECT_EQ(hijo<QComboBox>(*form, "Combo_FE_opracion")->currentText(), "Homologación");
        // A monotributo numbers C documents only; a registered shop A and B.
        QString habilitados;
        for (const char *n : {"t_ticket_A", "T_ticket_B", "T_ticket_C", "T_nc_A", "T_nc_b", "T_nc_c"})
            habilitados += hijo(*form, n)->isEnabled() ? "1" : "0";
        EXPECT_EQ(habilitados, "001001");
    }
    EXPECT_EQ(app.log_messages(),
              QStringList({"se modificó el valor del parametro de configuración IF_max_efectivo a 10000.",
                           "se modificó el valor del parametro de configuración IF_max_tarjeta a 20000."}));
    const int antes = app.log_messages().size();
    auto otra = abrir();
    EXPECT_EQ(log_desde(antes), QStringList());
    EXPECT_EQ(get("IF_max_efectivo"), "10000");
}

TEST_F(ConfImpresora, EachBoxStoresItsKeyAsTypedAndTheCertificateBoxChangesNothingInUse)
{
    set("IF_FE_Certificado", "/cert/tienda.crt");
    auto form = abrir();
    EXPECT_EQ(hijo(*form, "Text_FE_Certificado")->text(), "/cert/tienda.crt");
    const int antes = app.log_messages().size();
    escribir(hijo(*form, "Text_FE_Certificado"), "/otro.crt");
    escribir(hijo(*form, "T_nc_b"), "4x2");
    escribir(hijo(*form, "Text_maximo_tarjeta"), "5a");
    EXPECT_EQ(QStringList({get("IF_FE_Certificado"), get("Text_FE_Certificado"), get("IF_nc_B"),
                           get("IF_max_tarjeta")}),
              QStringList({"/cert/tienda.crt", "/otro.crt", "42", "5"}));
    EXPECT_EQ(log_desde(antes).last(),
              "se modificó el valor del parametro de configuración IF_max_tarjeta a: 5.");
    EXPECT_TRUE(log_desde(antes).contains(
        "se modificó el valor del parametro de configuración IF_FE_Password a: /otro.crt."));
    EXPECT_TRUE(
        log_desde(antes).contains("se modificó el valor del parametro de configuración IF_nc_b a: 42."));
    EXPECT_EQ(
        app.op.lines(),
        QStringList{"error|Error en los datos|El valor del campo 'Máximo Tarjeta' tiene que ser un valor "
                    "numerico"});
}

TEST_F(ConfImpresora, AChosenPathWithABlankIsRefused)
{
    auto form = abrir();
    chooser.rutas = {"/home/mi tienda/cert.crt", "", "/home/tienda/llave.key"};
    hijo<QPushButton>(*form, "FE_Cert_abrir")->click();
    hijo<QPushButton>(*form, "FE_Cert_abrir")->click();
    hijo<QPushButton>(*form, "Command_key_abrir")->click();
    EXPECT_EQ(chooser.filtros, QStringList({"Certificados (*.crt)|*.crt", "Certificados (*.crt)|*.crt",
                                            "Llave de Cifrado (*.key)|*.key"}));
    EXPECT_EQ(
        app.op.lines(),
        QStringList({"error|Error en el certificado|El nombre del archivo que contiene el certificado "
                     "contiene espacios (/home/mi tienda/cert.crt), eso puede traer problemas a vendrix. "
                     "Renombre el certificado sin espacios y carguelo nuevamente.",
                     "error|Error al Abrir Certificado|Es necesario seleccionar un archivo."}));
    EXPECT_EQ(get("IF_FE_Certificado"), "");
    EXPECT_EQ(get("IF_FE_Password"), "/home/tienda/llave.key");
    EXPECT_EQ(hijo(*form, "Text_FE_Contrasena")->text(), "/home/tienda/llave.key");
}

TEST_F(ConfImpresora, TheLayoutFollowsTheModel)
{
    struct Fila {
        const char *modelo;
        bool numeros;
        bool fe;
        const char *tamano;
    };
    auto form = abrir(); // "Epson" by default: the printer numbers its documents
    EXPECT_EQ(form->tamano(), "chico");
    auto *modelo = hijo<QComboBox>(*form, "Combo_modelo_Impresora");
    for (const Fila &f : {Fila{"NCR 3140", true, false, "grande"}, Fila{"Hasar", false, false, "chico"},
                          Fila{"Factura Electronica A.F.I.P.", false, true, "grande"},
                          Fila{"Factura Electronica A.F.I.P.", false, true, "chico"},
                          Fila{"Sin impresora", true, false, "grande"}}) {
        SCOPED_TRACE(f.modelo);
        modelo->setCurrentText(f.modelo);
        Q_EMIT modelo->textActivated(f.modelo);
        EXPECT_EQ(!hijo<QGroupBox>(*form, "Frame1")->isHidden(), f.numeros);
        EXPECT_EQ(!hijo<QGroupBox>(*form, "Frame_FE")->isHidden(), f.fe);
        EXPECT_EQ(form->tamano(), f.tamano);
        EXPECT_EQ(get("IF_Modelo"), f.modelo);
    }
}

// An emulated printer's pseudo-terminal is typed, not listed.
TEST_F(ConfImpresora, APortTheSystemDoesntListCanBeTyped)
{
    auto form = abrir();
    auto *puerto = hijo<QComboBox>(*form, "Combo_port");
    puerto->lineEdit()->setText("/dev/pts/7");
    Q_EMIT puerto->lineEdit()->editingFinished();
    EXPECT_EQ(get("IF_Port"), "/dev/pts/7");
    EXPECT_TRUE(app.log_messages().contains(
        "se modificó el valor del parametro de configuración IF_Port a: /dev/pts/7."));
}

TEST_F(ConfImpresora, ThePrinterCheckLightsTheIndicatorAndTheLockTakesItAway)
{
    screens::ConfigImpresoraFiscal marco(app.ctx(), &front);
    marco.inicializar();
    auto *cierre = hijo<QPushButton>(marco, "cmd_cierrez");
    EXPECT_FALSE(cierre->isEnabled());
    marco.check()->click();
    EXPECT_EQ(get("impresora_fiscal"), "1");
    EXPECT_EQ(app.status.keywords.last(), "impresora_on");
    EXPECT_TRUE(cierre->isEnabled() && hijo<QPushButton>(marco, "cmd_configurar_impresora")->isEnabled());
    set("admin_block", "cdc");
    marco.inicializar();
    EXPECT_FALSE(marco.check()->isEnabled() ||
                 hijo<QPushButton>(marco, "cmd_configurar_impresora")->isEnabled());
    EXPECT_TRUE(cierre->isEnabled());
}

} // namespace
} // namespace vendrix::test
