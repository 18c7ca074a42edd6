#include "fiscal/emulator/emulated_fiscal_memory.h"

#include "fiscal/hasar/hasar_models.h"
#include "fiscal/hasar/hasar_text.h"

#include <QRegularExpression>

namespace vendrix {

namespace {

constexpr quint16 kImpresoraNormal = 1u << 7; // the print buffer is empty
constexpr quint16 kFiscalizada = (1u << 9) | (1u << 10);
constexpr quint16 kFiscalAbierto = 1u << 12;
constexpr quint16 kDocumentoAbierto = 1u << 13;

constexpr int kComandoDesconocido = 3;
constexpr int kCampoInvalido = 4;
constexpr int kEstadoInvalido = 5;

QByteArray hex(quint16 word)
{
    return QByteArray::number(word, 16).toUpper().rightJustified(4, '0');
}

QByteArray ocho(int n)
{
    return QByteArray::number(n).rightJustified(8, '0');
}

bool coincide(const char *patron, const QByteArray &campo)
{
    return QRegularExpression(QString::fromLatin1(patron)).match(QString::fromLatin1(campo)).hasMatch();
}

// Eleven digits whose last one is the check digit of the first ten.
bool cuit_valido(const QByteArray &cuit)
{
    if (!coincide("^\\d{11}$", cuit))
        return false;
    static const char pesos[] = "5432765432";
    int suma = 0;
    for (int i = 0; i < 10; ++i)
        suma += (cuit.at(i) - '0') * (pesos[i] - '0');
    int digito = 11 - suma % 11;
    if (digito == 11)
        digito = 0;
    return digito != 10 && digito == cuit.at(10) - '0';
}

QString responsabilidad(char letra)
{
    switch (letra) {
    case 'I':
        return QStringLiteral("IVA RESPONSABLE INSCRIPTO");
    case 'N':
        return QStringLiteral("IVA RESPONSABLE NO INSCRIPTO");
    case 'E':
        return QStringLiteral("IVA EXENTO");
    case 'A':
        return QStringLiteral("NO RESPONSABLE");
    case 'C':
        return QStringLiteral("A CONSUMIDOR FINAL");
    case 'M':
        return QStringLiteral("RESPONSABLE MONOTRIBUTO");
    default:
        return QStringLiteral("RESPONSABLE ") + QLatin1Char(letra);
    }
}

QString documento(char tipo)
{
    switch (tipo) {
    case 'C':
        return QStringLiteral("C.U.I.T. ");
    case 'L':
        return QStringLiteral("C.U.I.L. ");
    case '0':
        return QStringLiteral("L.E. ");
    case '1':
        return QStringLiteral("L.C. ");
    case '2':
        return QStringLiteral("D.N.I. ");
    case '3':
        return QStringLiteral("PASAPORTE ");
    default:
        return QStringLiteral("C.I. ");
    }
}

} // namespace

EmulatedFiscalMemory::EmulatedFiscalMemory(int modelo, char responsabilidad)
    : modelo_(modelo), responsabilidad_(responsabilidad)
{
}

bool EmulatedFiscalMemory::segunda_serie() const
{
    return hasar::es_segunda_serie(modelo_);
}

QList<QByteArray> EmulatedFiscalMemory::estado(quint16 impresora, quint16 fiscal) const
{
    fiscal |= kFiscalizada;
    if (abierto())
        fiscal |= kDocumentoAbierto | (es_credito() ? 0 : kFiscalAbierto);
    if (fiscal & 0x01ff)
        fiscal |= 1u << 15;
    if (impresora & 0x413c)
        impresora |= 1u << 15;
    return {hex(impresora), hex(fiscal)};
}

QList<QByteArray> EmulatedFiscalMemory::error(int bit) const
{
    return estado(kImpresoraNormal, quint16(1u << bit));
}

QList<QByteArray> EmulatedFiscalMemory::ok(const QList<QByteArray> &extra) const
{
    return estado(kImpresoraNormal, 0) + extra;
}

void EmulatedFiscalMemory::dejar_comprobante_abierto()
{
    documento_ = Documento::FacturaBC;
    diario_ << QStringLiteral("TIQUE FACTURA \"B\" Nro. %1").arg(ultimo_bc_ + 1, 8, 10, QLatin1Char('0'));
}

QList<QByteArray> EmulatedFiscalMemory::ejecutar(const hasar::Frame &comando)
{
    const QByteArray &c = comando.comando;
    const QList<QByteArray> &campos = comando.campos;
    const bool propio_de_segunda = c == "\x93" || c.startsWith(hasar::kESC);
    if (propio_de_segunda && !segunda_serie())
        return error(kComandoDesconocido);
    if (c == "\x2a")
        return respuesta_estado();
    if (c == "\x62")
        return datos_cliente(campos);
    if (c == "\x40")
        return abrir_fiscal(campos);
    if (c == "\x41")
        return texto_fiscal(campos);
    if (c == "\x42")
        return item(campos);
    if (c == "\x45")
        return cerrar(false);
    if (c == "\x39")
        return cierre_diario(campos);
    if (c == "\x93")
        return comprobante_original(campos);
    if (c == "\x1b\x7f")
        return ok({QByteArray("SMH/") + hasar::nombre_modelo(modelo_).toLatin1() + " - Version 2.01"});
    if (c == "\x1b\x80")
        return abrir_credito(campos);
    if (c == "\x1b\x81")
        return es_credito() ? cerrar(true) : error(kEstadoInvalido);
    return error(kComandoDesconocido);
}

QList<QByteArray> EmulatedFiscalMemory::respuesta_estado() const
{
    QByteArray doc("0000");
    switch (documento_) {
    case Documento::FacturaA:
        doc = "0100";
        break;
    case Documento::FacturaBC:
        doc = responsabilidad_ == 'I' ? "0200" : "0300";
        break;
    case Documento::Ticket:
        doc = "0A00";
        break;
    case Documento::CreditoA:
        doc = "4000";
        break;
    case Documento::CreditoBC:
        doc = responsabilidad_ == 'I' ? "4100" : "4200";
        break;
    case Documento::Ninguno:
        break;
    }
    const int parser = !abierto() ? 2 : es_credito() ? 13 : textos_seguidos_ > 0 ? 4 : 3;
    return ok({ocho(ultimo_bc_), hex(quint16(parser | (cliente_ ? 0x2000 : 0))), ocho(ultimo_a_), doc,
               ocho(ultimo_credito_bc_), ocho(ultimo_credito_a_)});
}

QList<QByteArray> EmulatedFiscalMemory::datos_cliente(const QList<QByteArray> &campos)
{
    if (abierto())
        return error(kEstadoInvalido);
    const qsizetype largo = campos.size();
    if (largo < 4 || largo > (segunda_serie() ? 5 : 4) || campos[0].size() > 30 || campos[1].size() > 11 ||
        campos[2].size() != 1 || campos[3].size() != 1 || (largo == 5 && campos[4].size() > 40))
        return error(kCampoInvalido);
    Cliente cliente;
    cliente.nombre = hasar::a_texto(campos[0]);
    cliente.numero = campos[1];
    cliente.responsabilidad = campos[2].at(0);
    cliente.tipo_doc = campos[3].at(0);
    if (largo == 5)
        cliente.domicilio = hasar::a_texto(campos[4]);
    const QByteArray responsabilidades = segunda_serie() ? "INEACBMSVWT" : "INEACBM";
    // Anyone but a final consumer is identified by CUIT, and a CUIT must check.
    if (!responsabilidades.contains(cliente.responsabilidad) ||
        !QByteArray("CL01234 ").contains(cliente.tipo_doc) ||
        (cliente.responsabilidad != 'C' && cliente.tipo_doc != 'C') ||
        (cliente.tipo_doc == 'C' && !cuit_valido(cliente.numero)))
        return error(kCampoInvalido);
    cliente_ = cliente;
    return ok();
}

void EmulatedFiscalMemory::imprimir_encabezado(const QString &titulo)
{
    diario_ << titulo;
    if (cliente_) {
        if (!cliente_->nombre.trimmed().isEmpty())
            diario_ << cliente_->nombre;
        if (cliente_->tipo_doc != ' ')
            diario_ << documento(cliente_->tipo_doc) + QString::fromLatin1(cliente_->numero);
        diario_ << responsabilidad(cliente_->responsabilidad);
        if (cliente_->domicilio && !cliente_->domicilio->trimmed().isEmpty())
            diario_ << *cliente_->domicilio;
    } else {
        diario_ << responsabilidad('C');
    }
    cliente_.reset();
    textos_seguidos_ = 0;
    items_ = 0;
    por_tasa_.clear();
}

QList<QByteArray> EmulatedFiscalMemory::abrir_fiscal(const QList<QByteArray> &campos)
{
    const QByteArray tipo = campos.value(0);
    if (abierto())
        return error(kEstadoInvalido);
    if (tipo != "T" && tipo != "A" && tipo != "B")
        return error(kCampoInvalido);
    // An A goes from an inscripto owner to an inscripto (or not inscripto)
    // buyer, whose data came first; everything else is a B, or a C from an
    // owner who isn't inscripto.
    const bool comprador_a =
        cliente_ && (cliente_->responsabilidad == 'I' || cliente_->responsabilidad == 'N');
    if (tipo == "A" && (responsabilidad_ != 'I' || !comprador_a))
        return error(kEstadoInvalido);
    if (tipo == "B" && responsabilidad_ == 'I' && comprador_a)
        return error(kEstadoInvalido);
    if (tipo == "T") {
        documento_ = Documento::Ticket;
        imprimir_encabezado(QStringLiteral("TIQUE Nro. %1").arg(ultimo_bc_ + 1, 8, 10, QLatin1Char('0')));
        return ok();
    }
    documento_ = tipo == "A" ? Documento::FacturaA : Documento::FacturaBC;
    const QChar letra = tipo == "A" ? u'A' : responsabilidad_ == 'I' ? u'B' : u'C';
    const int numero = (tipo == "A" ? ultimo_a_ : ultimo_bc_) + 1;
    imprimir_encabezado(
        QStringLiteral("TIQUE FACTURA \"%1\" Nro. %2").arg(letra).arg(numero, 8, 10, QLatin1Char('0')));
    return ok();
}

QList<QByteArray> EmulatedFiscalMemory::texto_fiscal(const QList<QByteArray> &campos)
{
    const bool factura = documento_ != Documento::Ticket;
    const int maximo = (modelo_ == 2 ? 2 : 3) + (factura ? 1 : 0);
    if (!abierto() || textos_seguidos_ >= maximo)
        return error(kEstadoInvalido);
    if (campos.value(0).size() > 30)
        return error(kCampoInvalido);
    ++textos_seguidos_;
    diario_ << hasar::a_texto(campos.value(0).left(28));
    return ok();
}

void EmulatedFiscalMemory::imprimir(const QString &izquierda, double monto)
{
    diario_ << izquierda.leftJustified(28) +
                   (QStringLiteral("$ ") + QString::number(monto, 'f', 2)).rightJustified(12);
}

QList<QByteArray> EmulatedFiscalMemory::item(const QList<QByteArray> &campos)
{
    if (!abierto())
        return error(kEstadoInvalido);
    if (campos.size() < 8 || campos[0].size() > 20 ||
        !coincide("^[-+]?\\d{1,3}(\\.\\d{1,10})?$", campos[1]) ||
        !coincide("^[-+]?\\d{1,6}\\.\\d\\d$", campos[2]) || !coincide("^\\d{1,2}\\.\\d\\d$", campos[3]) ||
        (campos[4] != "M" && campos[4] != "m"))
        return error(kCampoInvalido);
    const double cantidad = campos[1].toDouble();
    const double precio = campos[2].toDouble();
    const double importe = cantidad * precio * (campos[4] == "m" ? -1 : 1);
    if (cantidad != 1)
        diario_ << QStringLiteral("%1 x %2").arg(cantidad, 0, 'f', 3).arg(precio, 0, 'f', 2);
    imprimir(hasar::a_texto(campos[0]).leftJustified(20) + QStringLiteral(" (") +
                 QString::fromLatin1(campos[3]) + QLatin1Char(')'),
             importe);
    por_tasa_[campos[3]] += importe;
    ++items_;
    textos_seguidos_ = 0;
    return ok();
}

QList<QByteArray> EmulatedFiscalMemory::cerrar(bool nota_de_credito)
{
    double total = 0;
    for (const double importe : por_tasa_)
        total += importe;
    if (!abierto() || es_credito() != nota_de_credito || total <= 0)
        return error(kEstadoInvalido);
    double iva = 0;
    const bool discrimina = documento_ == Documento::FacturaA || documento_ == Documento::CreditoA;
    if (discrimina) {
        double neto = 0;
        for (auto it = por_tasa_.cbegin(); it != por_tasa_.cend(); ++it)
            neto += it.value() / (1 + it.key().toDouble() / 100);
        imprimir(QStringLiteral("NETO SIN IVA"), neto);
    }
    for (auto it = por_tasa_.cbegin(); it != por_tasa_.cend(); ++it) {
        const double de_tasa = it.value() - it.value() / (1 + it.key().toDouble() / 100);
        iva += de_tasa;
        if (discrimina)
            imprimir(QStringLiteral("IVA %1%").arg(QString::fromLatin1(it.key())), de_tasa);
    }
    imprimir(QStringLiteral("TOTAL"), total);
    int numero = 0;
    switch (documento_) {
    case Documento::FacturaA:
        numero = ++ultimo_a_;
        break;
    case Documento::CreditoA:
        numero = ++ultimo_credito_a_;
        break;
    case Documento::CreditoBC:
        numero = ++ultimo_credito_bc_;
        break;
    default:
        numero = ++ultimo_bc_;
    }
    if (nota_de_credito) {
        diario_ << QStringLiteral("Firma") << QStringLiteral("Aclaración");
        ventas_del_dia_ -= total;
        iva_del_dia_ -= iva;
    } else {
        ventas_del_dia_ += total;
        iva_del_dia_ += iva;
    }
    ++documentos_del_dia_;
    documento_ = Documento::Ninguno;
    original_.clear();
    return ok({ocho(numero)});
}

QList<QByteArray> EmulatedFiscalMemory::cierre_diario(const QList<QByteArray> &campos)
{
    if (abierto())
        return error(kEstadoInvalido);
    const bool z = campos.value(0) == "Z";
    const int numero = z ? ++numero_z_ : ++numero_x_;
    diario_ << (z ? QStringLiteral("CIERRE Z Nro. %1") : QStringLiteral("INFORME X Nro. %1"))
                   .arg(numero, 4, 10, QLatin1Char('0'));
    diario_ << QStringLiteral("DOCUMENTOS FISCALES %1").arg(documentos_del_dia_);
    imprimir(QStringLiteral("VENTAS"), ventas_del_dia_);
    imprimir(QStringLiteral("IVA"), iva_del_dia_);
    if (z) {
        documentos_del_dia_ = 0;
        ventas_del_dia_ = iva_del_dia_ = 0;
    }
    return ok({QByteArray::number(numero).rightJustified(4, '0'), "0", "0", "0", "0", "0", ocho(ultimo_bc_),
               ocho(ultimo_a_)});
}

QList<QByteArray> EmulatedFiscalMemory::comprobante_original(const QList<QByteArray> &campos)
{
    if (abierto())
        return error(kEstadoInvalido);
    if ((campos.value(0) != "1" && campos.value(0) != "2") || campos.value(1).size() > 20)
        return error(kCampoInvalido);
    if (campos.value(0) == "1")
        original_ = campos.value(1);
    return ok();
}

QList<QByteArray> EmulatedFiscalMemory::abrir_credito(const QList<QByteArray> &campos)
{
    const QByteArray tipo = campos.value(0);
    if (tipo != "R" && tipo != "S")
        return error(kCampoInvalido);
    // A credit note needs the original document and the buyer with address.
    if (abierto() || original_.isEmpty() || !cliente_ || !cliente_->domicilio)
        return error(kEstadoInvalido);
    const bool comprador_a = cliente_->responsabilidad == 'I' || cliente_->responsabilidad == 'N';
    if ((tipo == "R") != (responsabilidad_ == 'I' && comprador_a))
        return error(kEstadoInvalido);
    documento_ = tipo == "R" ? Documento::CreditoA : Documento::CreditoBC;
    const QChar letra = tipo == "R" ? u'A' : responsabilidad_ == 'I' ? u'B' : u'C';
    const int numero = (tipo == "R" ? ultimo_credito_a_ : ultimo_credito_bc_) + 1;
    const QString original = QString::fromLatin1(original_);
    imprimir_encabezado(
        QStringLiteral("NOTA DE CREDITO \"%1\" Nro. %2").arg(letra).arg(numero, 8, 10, QLatin1Char('0')));
    diario_ << QStringLiteral("Comp. original: ") + original;
    return ok({ocho(numero)});
}

} // namespace vendrix
