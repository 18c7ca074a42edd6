#pragma once

#include "sales/recording/sale_document.h"

#include <QByteArray>

#include <optional>

namespace vendrix {

// A sale document as JSON, every field of its header and lines, so that a
// sale can be stored later exactly as it would have been stored at once.
QByteArray documento_a_json(const DocumentoVenta &doc);
// None when the text isn't a document written by `documento_a_json`.
std::optional<DocumentoVenta> documento_desde_json(const QByteArray &json);

} // namespace vendrix
