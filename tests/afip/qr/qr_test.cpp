// The AFIP QR: the JSON of stored sales and its base64, the symbol's mode,
// version and level, and its drawings read back by independent readers
// (zbarimg) or sampled module by module.
#include "afip/qr/qr_payload.h"
#include "afip/qr/qr_picture.h"
#include "core/migrations.h"
#include "support/test_context.h"
#include "support/zbar_reader.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace vendrix {

// Draws on a white image of the symbol with its quiet zone, 6 pixels a
// module, the origin at the symbol's corner; the count of modules whose
// centre doesn't read as the symbol says.
static int distintos(const SimboloQR &s, QImage &img, const std::function<void(QPainter &)> &dibujar)
{
    img = QImage((s.lado + 8) * 6, (s.lado + 8) * 6, QImage::Format_RGB32);
    img.fill(Qt::white);
    QPainter painter(&img);
    painter.translate(24, 24);
    dibujar(painter);
    painter.end();
    int n = 0;
    for (int y = 0; y < s.lado; ++y)
        for (int x = 0; x < s.lado; ++x)
            n += (qGray(img.pixel(x * 6 + 27, y * 6 + 27)) < 128) != s.oscuro(x, y);
    return n;
}

// Stored sales read back: the values of each JSON, the amounts always
// positive; and the code drawn from the address.
TEST(QrAfip, TheJsonOfEachStoredSaleItsBase64AndTheAddressZbarReads)
{
    test::TestApp app;
    app.copy_seed("clientes.install", "clientes.vdrx");
    ejecutar_migraciones(app.ctx());
    app.ctx().escribir_parametro("IF_CUIT", "20-12345678-6");
    app.ctx().escribir_parametro("IF_PuntoDeVenta", " 0002 ");
    ASSERT_TRUE(app.db().execNQ(
        "INSERT INTO vendrix_facturas (letra, tipo, tipo_doc, cuit, total, FE_CAE_numero, FE_CAE_ID, "
        "insert_timestamp) VALUES "
        "('A', 'Factura', 'CUIT', '30-70987654-3', 1815, '76123456789012', ' 1024 ', '202611150905'), "
        "('B', 'Factura', '', '', 1500.5, '76000000000002', '7', '202611150905'), "
        "('B', 'Factura', 'DNI', '28123456', 99.99, '76000000000003', '8', '202611150905'), "
        "('A', 'Nota de Crédito', 'CUIT', '30709876543', -1344.915, '76000000000004', '9', '202611150905'), "
        "('C', 'Factura', 'CUIT', '30709876543', 10, '76000000000005', '10', '202611150905')",
        "clientes"));
    const std::pair<const char *, QString> casos[] = {
        {"76123456789012", "2026-11-15 1 1024 1815.00 80 30709876543 76123456789012"},
        {"76000000000002", "2026-11-15 6 7 1500.50 96 20111111112 76000000000002"}, // anonymous
        {"76000000000003", "2026-11-15 6 8 99.99 96 28123456 76000000000003"},
        {"76000000000004", "2026-11-15 3 9 1344.92 80 30709876543 76000000000004"}, // half up
        {"76000000000005", "2026-11-15 11 10 10.00 80 30709876543 76000000000005"},
        {"99999999999999", "      "},
        {"1' OR '1'='1", "      "}, // a value of the query, never its text
    };
    for (const auto &[cae, valores] : casos) {
        QString json =
            R"({"ver":1,"fecha":"%1","cuit":20123456786,"ptoVta":2,"tipoCmp":%2,"nroCmp":%3,)"
            R"("importe":%4,"moneda":"PES","tipoDocRec":%5,"nroDocRec":%6,"tipoCodAut":"E","codAut":%7})";
        for (const QString &valor : valores.split(' '))
            json = json.arg(valor);
        EXPECT_EQ(armar_QR_AFIP(app.ctx(), cae), json) << cae;
    }
    // One byte a character, Latin-1, "?" from 256 on.
    EXPECT_EQ(codificar_base64("ñ€"), "8T8=");
    const QString url = url_QR_AFIP(app.ctx(), "76000000000004");
    EXPECT_EQ(test::leer_con_zbar(QR_raster(url)), url);
}

// Version 1 holds at level low 41 digits, 25 capitals or 17 bytes (UTF-8);
// one more takes version 2 (side 25).
TEST(QrSymbol, OneSegmentInTheLowestVersionThatHoldsIt)
{
    const std::pair<QString, int> casos[] = {
        {QString(41, '7'), 21}, {QString(42, '7'), 25}, {QString(25, 'A'), 21}, {QString(26, 'A'), 25},
        {QString(17, 'a'), 21}, {QString(18, 'a'), 25}, {QString(9, u'ñ'), 25}, {"", 21},
        {QString(2954, 'a'), 0}};
    for (const auto &[texto, lado] : casos)
        EXPECT_EQ(QR_codificar(texto, kNivelBajo, 1, 40, -1, false).lado, lado) << texto.size();
    EXPECT_EQ(QR_codificar("1", kNivelBajo, 3, 40, 5).lado, 29);
    // 5 capitals fit version 1 at level high, "ññññ" (8 bytes) only to quartile.
    EXPECT_EQ(QR_codificar("HELLO").modulos, QR_codificar("HELLO", kNivelAlto, 1, 40, -1, false).modulos);
    EXPECT_EQ(QR_codificar("ññññ").modulos, QR_codificar("ññññ", kNivelCuartil, 1, 40, -1, false).modulos);
}

// The traced outline and the picture, each drawn and sampled, and the SVG.
TEST(QrDrawing, EachDrawingCoversExactlyTheDarkModules)
{
    const QString url = "https://www.afip.gob.ar/fe/qr/?p=eyJ2ZXIiOjEsImZlY2hhIjoiMjAyNi0xMS0xNSJ9";
    const SimboloQR s = QR_codificar(url);
    EXPECT_EQ(s.modulos, QR_codificar(url).modulos);
    QImage im;
    EXPECT_EQ(distintos(s, im, [&](QPainter &p) { p.fillPath(contorno_QR(s, 6), Qt::black); }), 0);
    // The picture has half a module around the symbol.
    EXPECT_EQ(distintos(s, im, [&](QPainter &p) { p.drawPicture(-3, -3, QR_imagen(url, Qt::black, 6)); }), 0);
    // The SVG's path: the finder at the corner, past the quiet zone, first.
    EXPECT_TRUE(QR_svg(url).contains(R"(viewBox="0 0 41 41")") &&
                QR_svg(url).contains(R"(fill-rule="evenodd" d="M4,4H11V11H4ZM)"));
}

} // namespace vendrix
