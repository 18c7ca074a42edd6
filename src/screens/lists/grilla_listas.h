#pragma once

#include "catalogue/search/grid_rows.h"

#include <QColor>
#include <QIcon>

namespace vendrix::widgets {
class LynxGrid;
}

namespace vendrix::screens {

// The colour a marked row of a grid takes; invalid for none.
QColor color_marca(RowColour color);
// The star of a favourite article, drawn here so no image file travels.
QIcon imagen_favorito();

// A LynxGrid as the target of the fillers: each row goes in with its cells
// joined by tabs, its colour, the favourite star in the first visible column
// and the marker row in grey italics.
class GrillaLynx final : public GridSink {
public:
    // `columna_imagen` is the column that shows the favourite star.
    GrillaLynx(widgets::LynxGrid &grid, int columna_imagen) : grid_(grid), columna_imagen_(columna_imagen) {}

    void limpiar() override;
    void redibujar(bool on) override;
    void agregar(const ListGridRow &fila) override;

private:
    widgets::LynxGrid &grid_;
    int columna_imagen_;
};

} // namespace vendrix::screens
