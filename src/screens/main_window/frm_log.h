#pragma once

#include "core/log_reader.h"

#include <QWidget>

#include <array>

class QCheckBox;
class QGroupBox;
class QPlainTextEdit;
class QPushButton;

namespace vendrix {

class Context;

namespace widgets {
class LynxGrid;
}

// The log viewer: the lines of `vendrix.log` in a grid, one box per level to
// filter them, the whole message of the selected line below (XML laid out
// one tag a line), and a button that empties the log.
class FrmLog final : public QWidget {
    Q_OBJECT

public:
    explicit FrmLog(Context &ctx, QWidget *parent = nullptr);

    // Reads the file again into the grid with the levels ticked.
    void refrescar_log();

    widgets::LynxGrid *grilla() const { return grid_; }

private:
    // Sets up the grid's columns and reads the file.
    void cargar();
    void mostrar_detalle();
    void borrar();
    FiltrosLog filtros() const;

    Context &ctx_;
    widgets::LynxGrid *grid_;
    QGroupBox *frame_log_;
    QPlainTextEdit *log_detail_;
    std::array<QCheckBox *, 6> check_filtro_{};
    QPushButton *command_refresh_;
    QPushButton *command_borrar_;
};

} // namespace vendrix
