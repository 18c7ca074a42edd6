#include "core/validators.h"

#include "core/numeric.h"
#include "core/operator.h"
#include "core/text_helpers.h"

#include <algorithm>
#include <initializer_list>

namespace vendrix {

namespace {

const QString kFormatoCuit = QStringLiteral("\r\n\r\nNN-NNNNNNNN-N");

int digito(QChar c)
{
    return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) ? c.unicode() - '0' : 0;
}

bool es_digito(int key)
{
    return key >= '0' && key <= '9';
}

bool en(int key, std::initializer_list<int> codes)
{
    return std::find(codes.begin(), codes.end(), key) != codes.end();
}

} // namespace

bool validar_CUIT(Operator &op, const QString &text)
{
    const QString titulo = QString::fromUtf16(kTituloValidacion);
    QString sin_guiones = text;
    sin_guiones.remove(QLatin1Char('-'));
    if (sin_guiones.size() != 11) {
        op.inform(titulo, QStringLiteral("El CUIT ingresado es Incorrecto. Ingrese el cuit con el formato:") +
                              kFormatoCuit);
        return false;
    }
    // The typed text, read where the dashes are expected.
    const QString leidos = text.left(2) + text.mid(3, 8);
    static constexpr int kPesos[10] = {5, 4, 3, 2, 7, 6, 5, 4, 3, 2};
    int suma = 0;
    for (int i = 0; i < 10; ++i)
        suma += (i < leidos.size() ? digito(leidos[i]) : 0) * kPesos[i];
    int n = suma % 11;
    if (n >= 2)
        n = 11 - n;
    if (QString::number(n) == text.right(1))
        return true;
    op.inform(titulo,
              QStringLiteral("El CUIT ingresado es Incorrecto. Ingrese el cuit con el siguiente formato:") +
                  kFormatoCuit);
    return false;
}

bool validar_DNI(Operator &op, const QString &text)
{
    if (es_numerico(text) && (text.size() == 7 || text.size() == 8))
        return true;
    op.inform(QString::fromUtf16(kTituloValidacion),
              QStringLiteral("El DNI ingresado es Incorrecto. Controle que sea un valor numeríco."));
    return false;
}

bool filtro_tecla_formula(QStringView /*box_text*/, int &key, QStringView kind)
{
    const int sep = kSeparadorDecimal.unicode();
    bool admitida = false;
    if (kind == u"ganancia")
        admitida = es_digito(key) || en(key, {sep, tecla::kMasTeclado, tecla::kMas, tecla::kBorrar});
    else if (kind == u"descuento")
        admitida = es_digito(key) || en(key, {sep, tecla::kMenosTeclado, tecla::kMenos, tecla::kMasTeclado,
                                              tecla::kMas, tecla::kBorrar});
    else if (kind == u"enteros")
        admitida = es_digito(key) || key == tecla::kBorrar;
    else if (kind == u"reales")
        admitida = es_digito(key) || en(key, {sep, tecla::kBorrar});
    if (admitida && key != tecla::kEnter)
        return false;
    key = 0;
    return true;
}

bool filtro_tecla_numero(QStringView box_text, int &key, QStringView kind)
{
    if (es_digito(key) || en(key, {tecla::kBorrar, tecla::kTab, tecla::kLimpiar}) ||
        (key >= tecla::kIzquierda && key <= tecla::kAbajo))
        return false;
    if (key == kSeparadorDecimal.unicode() && kind == u"real" && tiene_un_separador(box_text))
        return false;
    key = 0;
    return true;
}

} // namespace vendrix
