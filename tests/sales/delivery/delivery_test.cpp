#include "afip/transport/http_client.h"
#include "core/desktop.h"
#include "sales/delivery/delivery.h"
#include "support/price_file.h"
#include "support/recording_desktop.h"
#include "support/test_context.h"

#include <QDir>
#include <QUrl>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

// Records what would have been opened, mailed and posted; the service
// answers `respuesta`.
struct Exterior : test::EscritorioAnotado, ClienteHttp {
    RespuestaHttp post(const PeticionHttp &p) override
    {
        return urls << p.url, RespuestaHttp{true, 200, respuesta, {}, 0};
    }
    QStringList urls;
    QString respuesta = "http://f.example/7.pdf";
};

class Entrega : public ::testing::Test {
protected:
    void SetUp() override
    {
        test::crear_archivo_de_precios(
            app.ruta("Vendrix.vdrxdb"),
            {"INSERT INTO xls_parametros (CLAVE, VALOR) VALUES ('CLIENTE', 'Sol')"});
        QDir(app.carpeta()).mkdir("Facturas");
        app.write_file("Facturas/F_7.pdf", "%PDF");
        servicios.facsimil = [this](Context &, Escritorio &, qint64 id, const OpcionesFacsimil &o) {
            hechos << QStringLiteral("%1 %2").arg(id).arg(o.mostrar);
            return Facsimil{app.ruta("Facturas/F_7.html"), pdf};
        };
    }
    void entregar(bool facsimil, bool mail, bool whatsapp)
    {
        entregar_factura(servicios, {facsimil, mail, whatsapp, "ana@example.com", "+5411"}, 7, {}, "Ana");
    }

    test::TestApp app;
    Exterior ext;
    ServiciosEntrega servicios{app.ctx(), ext, ext, [] { return true; }};
    QStringList hechos;
    QString pdf = app.ruta("Facturas/F_7.pdf");
};

TEST_F(Entrega, WithAServiceTheSavedCopyIsUploadedAndItsLinkMailed)
{
    app.ctx().escribir_parametro("servicio_url", "http://servicio.example");
    entregar(true, false, false);
    entregar(false, true, false);
    EXPECT_EQ(hechos, QStringList({"7 1", "7 0"}));
    EXPECT_EQ(ext.urls, QStringList{"http://servicio.example/upload_factura.php?cliente=Sol"});
    ASSERT_EQ(ext.abiertas.size(), 1);
    EXPECT_TRUE(ext.abiertas[0].contains("%0D%0Ahttp://f.example/7.pdf%0D%0A"));
    EXPECT_EQ(app.log_messages().mid(2, 2),
              QStringList({"El archivo a cargar en el sitio es: " + pdf + ".",
                           "Se subio el archivo F_7.pdfa la URL http://f.example/7.pdf."}));
}

TEST_F(Entrega, WithoutAServiceTheMailCarriesTheFileAndTheOperatorLearnsWhere)
{
    entregar(false, true, false);
    const QList<QStringList> correo{{"ana@example.com",
                                     "Sol - Factura electrónica AFIP - POR FAVOR NO RESPONDA A ESTE MENSAJE",
                                     "Estimados Ana,", pdf}};
    EXPECT_EQ(ext.correos, correo);
    ASSERT_EQ(app.op.shown.size(), 1u);
    EXPECT_TRUE(app.op.shown[0].text.contains(QDir::toNativeSeparators(pdf)));
}

} // namespace
} // namespace vendrix
