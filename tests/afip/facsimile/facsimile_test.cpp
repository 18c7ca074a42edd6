#include "afip/facsimile/facsimile.h"
#include "core/migrations.h"
#include "sales/recording/document_store.h"
#include "support/recording_desktop.h"
#include "support/test_context.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

// An invoice of two lines, 2 x 121 at 21% and 1 x 110.5 at 10.5%, stored as
// a sale stores it: negative amounts for a credit note.
class Facsimil : public ::testing::Test {
protected:
    void SetUp() override
    {
        app.copy_seed("clientes.install", "clientes.vdrx");
        ASSERT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
        QFile::copy(VENDRIX_TEST_DATA "/../../data/factura.install", app.ruta("factura.html"));
        for (const QString a : {"IF_CUIT=20-12345678-6", "IF_PuntoDeVenta=3",
                                "IF_tipo_IVA=I - IVA RESPONSABLE", "IF_FE_Modo_Operacion=Homologación"})
            app.ctx().escribir_parametro(a.section(u'=', 0, 0), a.section(u'=', 1));
    }

    qint64 guardar(const QString &letra, const QString &tipo, const QString &razon = "Pérez & Hijos")
    {
        const double signo = tipo == "Factura" ? 1 : -1;
        DocumentoVenta d;
        CabeceraFactura &c = d.cabecera;
        c.fecha = QDateTime(QDate(2026, 11, 23), QTime(10, 30));
        c.letra = letra, c.tipo = tipo, c.razon_social = razon, c.cuit = "30-71234567-1";
        c.cliente = letra == "A" ? "I - IVA RESPONSABLE INSCRIPTO" : "F - CONSUMIDOR FINAL";
        c.domicilio = "Belgrano 12", c.provincia = "Córdoba", c.forma_de_pago = "Contado";
        c.total = 352.5 * signo, c.total_neto = 300 * signo, c.total_iva = 52.5 * signo;
        c.cae = "74123456789012", c.cae_vto = "20261203", c.cae_id = "12", c.tipo_doc = "CUIT";
        for (const auto &[cantidad, precio, iva] : {std::tuple{2.0, 121.0, 21.0}, {1.0, 110.5, 10.5}}) {
            d.items.push_back({"", "", "", 0, precio / (1 + iva / 100), cantidad, iva,
                               cantidad * precio * signo, iva == 21 ? "Tornillo ½" : "Tuerca"});
        }
        return guardar_documento(app.ctx(), d);
    }

    QString pagina(const vendrix::Facsimil &f) const
    {
        QFile file(f.html);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    test::TestApp app;
    test::EscritorioAnotado escritorio;
};

TEST_F(Facsimil, EachDocumentCarriesItsMarks)
{
    const QString kLey = "R&eacute;gimen de Transparencia Fiscal al Consumidor (Ley 27.743)";
    const QString kMonotributo = "Ley Nro. 27.618";
    struct Caso {
        QString documento; // letter|type|issuer's IVA condition
        QStringList hay, no_hay;
    } casos[] = {
        {"A|Factura|I",
         {"Factura SIN VALOR FISCAL", "COD. 001",
          "<td>300,00</td><td>0.00</td><td>300,00</td><td>10,50</td>"
          "<td>42,00</td><td>52,50</td>",
          "Tornillo &frac12;  (IVA 21%)", ">100,00</td>", ">200,00</td>",
          "Operaci&oacute;n Sujeta a Retenci&oacute;n", "Recibi(mos) la suma de: Contado $ 352,50",
          "Total: 352,50", "IVA RESPONSABLE INSCRIPTO"},
         {kLey, kMonotributo}},
        {"A|Factura|M", {kMonotributo}, {}},
        {"B|Factura|I",
         {"Factura SIN VALOR FISCAL", "COD. 006", "Tuerca  (IVA 10,5%)", ">121,00</td>", ">242,00</td>",
          kLey + " IVA Contenido $ 52,50", "Total: 352,50", "CONSUMIDOR FINAL"},
         {"SubTotal (I)", "Sujeta a Retenci", kMonotributo}},
        {"B|Nota de Crédito|I",
         {"Nota de Cr&eacute;dito SIN VALOR FISCAL", "COD. 008", ">242,00</td>", "Total: 352,50",
          kLey + " IVA Contenido $ 52,50"},
         {"-352", "-242", "-52"}},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.documento.toStdString());
        const QStringList d = c.documento.split('|');
        app.ctx().escribir_parametro("IF_tipo_IVA", d[2] + " - X");
        const QString html = pagina(imprimir_facsimil_FE(app.ctx(), escritorio, guardar(d[0], d[1]), {}));
        for (const QString &t : c.hay)
            EXPECT_TRUE(html.contains(t)) << t.toStdString();
        for (const QString &t : c.no_hay)
            EXPECT_FALSE(html.contains(t)) << t.toStdString();
        // Common to all: the buyer's entities, the date, the number, the
        // authority's new name, the barcode, and no mark left behind.
        for (const char *t :
             {"P&eacute;rez &amp;; Hijos", "C&oacute;rdoba", "23/11/2026", "201234567860",
              "00003</b> &nbsp; Comp. Nro: <b>00000012", "ARCA<img id=\"logo\" style=\"width: 0px;\"",
              "autorizado por la Agencia.", "_barras.png\"", "_qr.png\""})
            EXPECT_TRUE(html.contains(t)) << t;
        EXPECT_FALSE(html.contains(QRegularExpression("%[A-Z_0-9 ]+%"))) << html.toStdString();
        EXPECT_TRUE(app.op.empty()) << app.op.lines().join('\n').toStdString();
    }
}

TEST_F(Facsimil, NarrowTicketFormAndCartLines)
{
    app.ctx().escribir_parametro("IF_COMANDERA", "Si");
    OpcionesFacsimil o;
    o.lineas_carrito = std::vector<LineaFacsimil>{{3, "", 100, 21}};
    o.descuento_pct = 10;
    const QString a = pagina(imprimir_facsimil_FE(app.ctx(), escritorio, guardar("A", "Factura"), o));
    EXPECT_TRUE(a.contains("SubTotal (I): 300,00</br>Impuesto (II): 0.00</br>Subtotal (I+II): 300,00<br>"
                           "IVA 10,5%: 0,00</br>IVA 21,0: 46,86</br>IVA Total:46,86</p>"));
    EXPECT_TRUE(a.contains("3 x 74,38<br>Art. S/D</td>")) << a.toStdString();
    const QString b = pagina(imprimir_facsimil_FE(app.ctx(), escritorio, guardar("B", "Factura"), o));
    EXPECT_TRUE(b.contains("(Ley 27.743)<br>&nbsp;&nbsp;&nbsp;IVA Contenido: 46,86</p><!-- CAE -->"));
    EXPECT_TRUE(b.contains("3 x 90,00<br>Art. S/D  (IVA 21%)</td>"));
}

TEST_F(Facsimil, FilesGoUnderFacturasOneASaleAndOpenOnlyWhenShown)
{
    const qint64 primera = guardar("B", "Factura", "Ñandú S.A.");
    OpcionesFacsimil guardar_solo;
    guardar_solo.mostrar = false;
    const vendrix::Facsimil f1 = imprimir_facsimil_FE(app.ctx(), escritorio, primera, guardar_solo);
    EXPECT_TRUE(escritorio.abiertas.isEmpty());
    app.ctx().escribir_parametro("IF_FE_Modo_Operacion", "Producción");
    const vendrix::Facsimil f2 =
        imprimir_facsimil_FE(app.ctx(), escritorio, guardar("B", "Factura", "Ñandú S.A."), {});
    EXPECT_TRUE(pagina(f2).contains("<title>Factura B 00003-00000012</title>"));
    EXPECT_EQ(escritorio.abiertas, QStringList{f2.html});
    const QString base = app.ruta("Facturas/Factura_Electronica_%1_0000012_Nandu_S.A..");
    EXPECT_EQ(f1.html, base.arg(primera) + "html");
    EXPECT_EQ(f1.pdf, base.arg(primera) + "pdf");
    EXPECT_EQ(f2.html, base.arg(primera + 1) + "html");
    EXPECT_TRUE(app.log_messages().contains("imprimir_facsimil_FE - se salvo a factura: " + f2.html + "."));

    // The PDF renders: the shop can print or send it without a browser.
    const QString pdftoppm = QStandardPaths::findExecutable("pdftoppm");
    ASSERT_FALSE(pdftoppm.isEmpty()) << "pdftoppm (poppler-utils) is missing";
    QProcess render;
    render.start(pdftoppm, {"-r", "50", "-png", "-f", "1", "-l", "1", f1.pdf, app.ruta("pagina")});
    ASSERT_TRUE(render.waitForFinished(30000));
    EXPECT_EQ(render.exitCode(), 0) << render.readAllStandardError().toStdString();
}

TEST_F(Facsimil, WithoutTemplateNothingIsWritten)
{
    QFile::remove(app.ruta("factura.html"));
    EXPECT_FALSE(imprimir_facsimil_FE(app.ctx(), escritorio, guardar("B", "Factura"), {}).ok());
    EXPECT_EQ(
        app.op.lines(),
        QStringList{"error|Error al generar la factura|Vendrix no puede encontrar el archivo de template de "
                    "factura. El archivo no se encuentra en la ruta esperada: " +
                    app.ruta("factura.html") + ". Por favor pongase en contacto con Vendrix para ayudarlo."});
    EXPECT_TRUE(
        app.log_messages().contains("imprimir_facsimil_FE - NO SE ENCONTRO EL TEMPLATE DE LA FACTURA."));
    EXPECT_FALSE(QDir(app.ruta("Facturas")).exists());
}

} // namespace
} // namespace vendrix
