#include "core/desktop.h"
#include "online/invoice_links.h"
#include "support/price_file.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

// The text of both notes after its first lines, as the encoder writes it.
const QString kCola =
    QStringLiteral("%0D%0A%0D%0ALa%20imagen%20permanecerá%20disponible%20por%2030%20días.%20%0D%0A");

TEST(LinkFactura, MailAddressCarriesTheEncodedSubjectAndText)
{
    EXPECT_EQ(
        url_link_por_mail("ana@example.com", "Muñoz & Hijos", "http://f.example/a?b=1", "Ferretería Sol"),
        "https://mail.google.com/mail/?view=cm&fs=1&tf=1&to=ana@example.com"
        "&su=Ferretería%20Sol%20-%20Factura%20electrónica%20AFIP%20-%20POR%20FAVOR%20NO%20RESPONDA%20A%"
        "20ESTE%"
        "20MENSAJE"
        "&body=Estimados%20Muñoz%20&%20Hijos%2C%0D%0A%0D%0ALe%20enviamos%20un%20link%20que%20contiene%20la%"
        "20imagen%20de%20la%20factura%20electrónica%20AFIP%20realizada%20en%20el%20día%20de%20la%20fecha%"
        "20en%"
        "20nuestro%20comercio.%0D%0A%0D%0Ahttp://f.example/a?b=1" +
            kCola +
            "Correo%20electrónico%20generado%20automáticamente%20por%20Vendrix.%0D%0AVendrix%20no%20se%"
            "20responsabiliza%20por%20los%20datos%20ingresados%20en%20el%20detalle%20de%20la%20operación.%0D%"
            "0A%0D%0AAtte.%20Ferretería%20Sol");
}

TEST(LinkFactura, WhatsappAddressCarriesTheNumberAndTheMessageSignature)
{
    const QString url = url_link_por_whatsapp("+541145678901", "Ana", "http://f.example/a", "Sol");
    EXPECT_TRUE(
        url.startsWith("https://api.whatsapp.com/send?phone=+541145678901&text=Estimados%20Ana%2C%0D%0A"))
        << url.toStdString();
    EXPECT_TRUE(url.endsWith(kCola +
                             "Mensaje%20generado%20automáticamente%20por%20Vendrix.%0D%0AVendrix%20no%20se%"
                             "20responsabiliza%20por%20los%20datos%20ingresados%20en%20el%20detalle%20de%"
                             "20la%20operación.%0D%0A%0D%0AAtte.%20Sol"))
        << url.toStdString();
}

struct EscritorioGrabado : Escritorio {
    bool abrir(const QUrl &d) override
    {
        abiertas << d;
        return true;
    }
    bool redactar_correo(const QString &, const QString &, const QString &, const QString &) override
    {
        return false;
    }
    QList<QUrl> abiertas;
};

TEST(LinkFactura, TheShopIsThePriceListsClient)
{
    test::TestApp app;
    test::crear_archivo_de_precios(app.ruta(QStringLiteral("Vendrix.vdrxdb")),
                                   {"INSERT INTO xls_parametros (CLAVE, VALOR) VALUES ('CLIENTE', 'Sol')"});
    EscritorioGrabado escritorio;
    EXPECT_TRUE(enviar_link_por_whatsapp(app.ctx(), escritorio, "+5411", "Ana", "http://f.example/a"));
    ASSERT_EQ(escritorio.abiertas.size(), 1);
    EXPECT_EQ(escritorio.abiertas[0],
              QUrl(url_link_por_whatsapp("+5411", "Ana", "http://f.example/a", "Sol")));
}

} // namespace
} // namespace vendrix
