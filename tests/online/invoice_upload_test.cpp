#include "afip/transport/qt_http_client.h"
#include "online/invoice_upload.h"
#include "support/price_file.h"
#include "support/test_context.h"

#include <QDir>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

// Plain HTTP on 127.0.0.1: keeps the request and, once its body is whole,
// answers with `estado` and `respuesta`.
class SubidaFactura : public ::testing::Test {
protected:
    void SetUp() override
    {
        QObject::connect(&servidor, &QTcpServer::pendingConnectionAvailable, [this] {
            QTcpSocket *socket = servidor.nextPendingConnection();
            QObject::connect(socket, &QIODevice::readyRead, [this, socket] {
                pedido += socket->readAll();
                if (!pedido.endsWith("--AaB03x--\r\n"))
                    return;
                socket->write("HTTP/1.1 " + QByteArray::number(estado) + " X\r\nContent-Length: " +
                              QByteArray::number(respuesta.size()) + "\r\n\r\n" + respuesta);
                socket->disconnectFromHost();
            });
        });
        servidor.listen(QHostAddress::LocalHost);
        test::crear_archivo_de_precios(
            app.ruta("Vendrix.vdrxdb"),
            {"INSERT INTO xls_parametros (CLAVE, VALOR) VALUES ('CLIENTE', 'Ferretería El Sol')"});
        app.ctx().escribir_parametro("servicio_url",
                                     QStringLiteral("http://127.0.0.1:%1/").arg(servidor.serverPort()));
        for (int i = 0; i < 256; ++i)
            bytes += char(i);
        QDir(app.carpeta()).mkdir("Facturas");
        app.write_file("Facturas/Factura_7.pdf", bytes);
    }
    QString subir(bool conectado = true)
    {
        return subir_factura(app.ctx(), http, "Factura_7.pdf", [conectado] { return conectado; });
    }

    test::TestApp app;
    ClienteHttpQt http{app.ctx(), std::chrono::seconds(10)};
    QTcpServer servidor;
    QByteArray pedido, bytes;
    int estado = 200;
    QByteArray respuesta = "http://f.example/abc.pdf\r\n";
};

TEST_F(SubidaFactura, SendsTheFileBytesUnchangedAndReturnsTheLink)
{
    EXPECT_EQ(subir(), "http://f.example/abc.pdf");
    EXPECT_TRUE(
        pedido.startsWith("POST /upload_factura.php?cliente=Ferreter%C3%ADa%20El%20Sol HTTP/1.1\r\n"));
    EXPECT_TRUE(pedido.contains("\r\nContent-Type: multipart/form-data; boundary=AaB03x\r\n"));
    EXPECT_TRUE(pedido.endsWith("\r\n\r\n--AaB03x\r\nContent-Disposition: form-data; name=\"uploadfile\"; "
                                "filename=\"Factura_7.pdf\"\r\nContent-Type: text/xml\r\n\r\n" +
                                bytes + "\r\n--AaB03x--\r\n"));
}

TEST_F(SubidaFactura, FailuresTellTheOperatorAndGiveError)
{
    EXPECT_EQ(subir(false), "ERROR");
    app.ctx().escribir_parametro("servicio_url", "");
    EXPECT_EQ(subir(), "ERROR");
    EXPECT_TRUE(pedido.isEmpty());
    app.ctx().escribir_parametro("servicio_url",
                                 QStringLiteral("http://127.0.0.1:%1").arg(servidor.serverPort()));
    estado = 500;
    EXPECT_EQ(subir(), "ERROR");
    estado = 200;
    respuesta = "ERROR";
    EXPECT_EQ(subir(), "ERROR");
    const QString no_enviada =
        "error|Información no enviada|Se produjo un error y no se pudo enviar la información al servidor. ";
    EXPECT_EQ(app.op.lines(),
              QStringList({"error|Error al conectarse a Internet|Vendrix no puede conectarse a "
                           "Internet. Por favor conéctese a internet e inténtelo nuevamente",
                           no_enviada, no_enviada}));
}

} // namespace
} // namespace vendrix
