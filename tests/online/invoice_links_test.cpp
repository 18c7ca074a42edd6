#include "online/invoice_links.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

TEST(LinkFactura, AddressesCarryTheEncodedSubjectAndText)
{
    const QString cuerpo =
        "Estimados%20Muñoz%20&%20Hijos%2C%0D%0A%0D%0ALe%20enviamos%20un%20link%20que%20contiene%20la%"
        "20imagen%20de%"
        "20la%20factura%20electrónica%20AFIP%20realizada%20en%20el%20día%20de%20la%20fecha%20en%20nuestro%"
        "20comercio.%0D%0A%0D%0Ahttp://f.example/"
        "a?b=1%0D%0A%0D%0ALa%20imagen%20permanecerá%20disponible%20por%"
        "2030%20días.%20%0D%0A";
    const QString cola =
        "%20generado%20automáticamente%20por%20Vendrix.%0D%0AVendrix%20no%20se%20responsabiliza%"
        "20por%20los%20datos%20ingresados%20en%20el%20detalle%20de%20la%20operación.%0D%0A%0D%"
        "0AAtte.%20Ferretería%20Sol";
    EXPECT_EQ(
        url_link_por_mail("ana@example.com", "Muñoz & Hijos", "http://f.example/a?b=1", "Ferretería Sol"),
        "https://mail.google.com/mail/?view=cm&fs=1&tf=1&to=ana@example.com&su=Ferretería%20Sol%20-%"
        "20Factura%20electrónica%20AFIP%20-%20POR%20FAVOR%20NO%20RESPONDA%20A%20ESTE%20MENSAJE&body=" +
            cuerpo + "Correo%20electrónico" + cola);
    EXPECT_EQ(
        url_link_por_whatsapp("+541145678901", "Muñoz & Hijos", "http://f.example/a?b=1", "Ferretería Sol"),
        "https://api.whatsapp.com/send?phone=+541145678901&text=" + cuerpo + "Mensaje" + cola);
}

} // namespace
} // namespace vendrix
