#pragma once

namespace vendrix {

struct ServiciosAfip;

// FEDummy of the invoice service, always on AFIP's homologation host
// (the environment setting doesn't change this test): true unless the
// answer holds "ERROR" or none came.
bool AFIP_test_dummy(ServiciosAfip &s);

// Checks the certificate, the network, the dummy and the ticket, and shows
// what it found in one box; true when the ticket could be had.
bool AFIP_reporte_conexion(ServiciosAfip &s);

} // namespace vendrix
