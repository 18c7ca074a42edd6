#include "afip/transport/http_client.h"
#include "core/desktop.h"
#include "sales/delivery/delivery.h"
#include "support/price_file.h"
#include "support/test_context.h"

#include <QDir>
#include <QUrl>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

struct EscritorioGrabado : Escritorio {
    bool abrir(const QUrl &d) override
    {
        abiertas << d.toString();
        return true;
    }
    bool redactar_correo(const QString &para, const QString &asunto, const QString &cuerpo,
                         const QString &adjunto) override
    {
        correos << QStringList{para, asunto, cuerpo, adjunto};
        return true;
    }
    QStringList abiertas;
    QList<QStringList> correos;
};

struct HttpGrabado : ClienteHttp {
    RespuestaHttp post(const PeticionHttp &p) override
    {
        urls << p.url;
        return {true, 200, respuesta, {}, 0};
    }
    QStringList urls;
    QString respuesta = QStringLiteral("http://f.example/7.pdf");
};

class EntregaTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        test::crear_archivo_de_precios(
            app.ruta("Vendrix.vdrxdb"),
            {"INSERT INTO xls_parametros (CLAVE, VALOR) VALUES ('CLIENTE', 'Sol')"});
        QDir(app.carpeta()).mkdir("Facturas");
        app.write_file("Facturas/F_7.pdf", "%PDF");
        servicios.facsimil = [this](Context &, Escritorio &, qint64 id, const OpcionesFacsimil &o) {
            ids << id;
            mostrado << o.mostrar;
            return Facsimil{app.ruta("Facturas/F_7.html"), app.ruta("Facturas/F_7.pdf")};
        };
    }
    void entregar(PedidoEntrega pedido) { entregar_factura(servicios, pedido, 7, {}, "Ana"); }

    test::TestApp app;
    EscritorioGrabado escritorio;
    HttpGrabado http;
    ServiciosEntrega servicios{app.ctx(), escritorio, http, [] { return true; }};
    QList<qint64> ids;
    QList<bool> mostrado;
};

TEST_F(EntregaTest, TheFacsimileAskedForIsShownAndNothingSent)
{
    entregar({true, false, false, "ana@example.com", "11"});
    EXPECT_EQ(ids, QList<qint64>{7});
    EXPECT_EQ(mostrado, QList<bool>{true});
    EXPECT_TRUE(http.urls.isEmpty() && escritorio.abiertas.isEmpty() && escritorio.correos.isEmpty());
    EXPECT_EQ(app.log_messages(), QStringList{"Se procede a generar el facsimil de la factura y mostrarlo."});
}

TEST_F(EntregaTest, WithAServiceTheSavedCopyIsUploadedAndItsLinkMailed)
{
    app.ctx().escribir_parametro("servicio_url", "http://servicio.example");
    entregar({false, true, false, "ana@example.com", ""});
    EXPECT_EQ(mostrado, QList<bool>{false});
    EXPECT_EQ(http.urls, QStringList{"http://servicio.example/upload_factura.php?cliente=Sol"});
    ASSERT_EQ(escritorio.abiertas.size(), 1);
    EXPECT_TRUE(escritorio.abiertas[0].startsWith(
        "https://mail.google.com/mail/?view=cm&fs=1&tf=1&to=ana@example.com&su=Sol"));
    EXPECT_TRUE(escritorio.abiertas[0].contains("http://f.example/7.pdf"));
    const QString ruta = app.ruta("Facturas/F_7.pdf");
    EXPECT_EQ(app.log_messages(),
              QStringList({"Se procede a generar el facsimil de la factura y salvarlo (sin mostrarlo).",
                           "El archivo a cargar en el sitio es: " + ruta + ".",
                           "Se subio el archivo F_7.pdfa la URL http://f.example/7.pdf.",
                           "se cargo la factura al sitio en el link: http://f.example/7.pdf.",
                           "pidieron mandar por mail la factura."}));
}

TEST_F(EntregaTest, AFailedUploadSendsNoLink)
{
    app.ctx().escribir_parametro("servicio_url", "http://servicio.example");
    http.respuesta = "ERROR";
    entregar({false, false, true, "", "+5411"});
    EXPECT_EQ(http.urls.size(), 1);
    EXPECT_TRUE(escritorio.abiertas.isEmpty());
    EXPECT_EQ(app.op.shown.size(), 1u);
}

TEST_F(EntregaTest, WithoutAServiceTheMailCarriesTheFileAndTheOperatorLearnsWhere)
{
    entregar({false, true, false, "ana@example.com", ""});
    EXPECT_TRUE(http.urls.isEmpty());
    const QString ruta = app.ruta("Facturas/F_7.pdf");
    ASSERT_EQ(escritorio.correos.size(), 1);
    EXPECT_EQ(escritorio.correos[0][0], "ana@example.com");
    EXPECT_EQ(escritorio.correos[0][1],
              "Sol - Factura electrónica AFIP - POR FAVOR NO RESPONDA A ESTE MENSAJE");
    EXPECT_TRUE(escritorio.correos[0][2].startsWith("Estimados Ana,\n\n"));
    EXPECT_EQ(escritorio.correos[0][3], ruta);
    ASSERT_EQ(app.op.shown.size(), 1u);
    EXPECT_TRUE(app.op.shown[0].text.endsWith(QDir::toNativeSeparators(ruta)))
        << app.op.shown[0].text.toStdString();
}

TEST_F(EntregaTest, WithoutAServiceTheMessageNamesNoLinkAndTheOperatorLearnsWhere)
{
    entregar({false, false, true, "", "+5411"});
    ASSERT_EQ(escritorio.abiertas.size(), 1);
    EXPECT_TRUE(
        escritorio.abiertas[0].startsWith("https://api.whatsapp.com/send?phone=+5411&text=Estimados"));
    EXPECT_FALSE(escritorio.abiertas[0].contains("http://", Qt::CaseInsensitive));
    ASSERT_EQ(app.op.shown.size(), 1u);
    EXPECT_TRUE(app.op.shown[0].text.contains(QDir::toNativeSeparators(app.ruta("Facturas/F_7.pdf"))));
}

TEST(LineasFacsimil, DescriptionBySettingAndPriceWithTheSaleFactor)
{
    Carrito carrito;
    LineaCarrito l;
    l[kColCantidad] = "2";
    l[kColArticulo] = "Tornillo";
    l[kColPrecioUnitario] = "100";
    l[kColIva] = "10,5";
    l[kColCodigoProveedor] = "T1";
    l[kColGrupoProveedor] = "Acme";
    carrito.agregar_linea(l);
    const auto lineas = lineas_facsimil("Código + Grupo + Descripción", carrito, 0.9);
    ASSERT_EQ(lineas.size(), 1u);
    EXPECT_EQ(lineas[0].cantidad, 2);
    EXPECT_EQ(lineas[0].descripcion, "T1 Acme Tornillo");
    EXPECT_DOUBLE_EQ(lineas[0].precio, 90);
    EXPECT_DOUBLE_EQ(lineas[0].iva, 10.5);
}

} // namespace
} // namespace vendrix
