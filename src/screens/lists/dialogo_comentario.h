#pragma once

#include <QString>

#include <optional>

class QWidget;

namespace vendrix {

// The shop's comment on an article: a modal box with the present text,
// "Guardar" and "Cancelar". The new text, or nothing when cancelled.
std::optional<QString> pedir_comentario(QWidget *parent, const QString &articulo, const QString &actual);

} // namespace vendrix
