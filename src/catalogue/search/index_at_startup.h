#pragma once

namespace vendrix {

class Context;

// Run once at start, after the price file is in place: a price file without
// the search index, or with an index of an older format, gets it. The file
// is opened writable for that alone and closed again (both connections are
// closed; they open again on their next use). The work and its outcome go
// to the log; the search works without the index too, only slower. True
// when the index is there.
bool preparar_indice_busqueda(Context &ctx);

} // namespace vendrix
