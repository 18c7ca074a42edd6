#pragma once

#include <QString>

namespace vendrix {

class Context;

// The pieces of a FECAESolicitar request, built by filling the marks of the
// template `wsaa_cae.xml`.

// An amount as the request carries it: rounded to cents (half to even),
// with a point, no trailing zeros ("122.5", "100").
QString importe_pedido(double valor);

// The buyer's lines: `DocTipo` with `codigo` and `DocNro` with `numero`
// without dashes, each indented by 15 blanks, joined by CR LF.
QString bloque_documento(int codigo, const QString &numero);
// The anonymous buyer: CUIT 20111111112.
QString bloque_comprador_anonimo();

// The template's marks that don't depend on the amounts.
struct DatosPlantilla {
    QString token;
    QString sign;
    QString cuit; // with or without dashes
    int tipo = 0;
    QString documento; // the buyer's block
    QString punto_de_venta;
    QString fecha; // yyyymmdd
    int condicion_iva_receptor = 0;
};
QString llenar_plantilla(Context &ctx, QString plantilla, const DatosPlantilla &datos);

// What a document adds up to, gross and net, and the net at 21 and 10.5 %.
struct TotalesFactura {
    double bruto = 0;
    double neto = 0;
    double neto_21 = 0;
    double neto_105 = 0;

    // One line: quantity and price (with IVA) at `tasa` percent. A rate other
    // than 21 and 10.5 enters the net but neither base.
    void agregar(double cantidad, double precio, double tasa);
};

// The amounts of the request, as text, and the IVA blocks.
struct ImportesPedido {
    QString neto;
    QString iva;
    QString total;
    QString iva_21;  // the <AlicIva> block of Id 5, or ""
    QString iva_105; // the one of Id 4, or ""
    bool sin_iva = false;
};

// An invoice's amounts from its lines. A Monotributo issuer sends the gross
// as net and total and no IVA; otherwise each base is rounded to cents, its
// IVA is the rounded base times the rate, ImpIVA their sum and ImpTotal the
// rounded net plus that IVA, so that AFIP's sums close to the cent.
ImportesPedido importes_factura(Context &ctx, const TotalesFactura &totales, bool monotributo);

// A credit note's amounts from its gross at 21 % and at 10.5 %: each base is
// the gross over 1.21 or 1.105, its IVA the gross minus that base.
ImportesPedido importes_nota_de_credito(Context &ctx, double bruto_21, double bruto_105, bool monotributo);

// The request with the amounts' marks filled; without IVA the `Iva`
// element goes whole.
QString poner_importes(QString xml, const ImportesPedido &importes);

} // namespace vendrix
