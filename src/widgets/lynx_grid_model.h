#pragma once

#include "widgets/grid_store.h"

#include <QAbstractTableModel>
#include <QPalette>

namespace vendrix::widgets {

// Shows a GridStore to a QTableView: one model row per shown grid row, one
// model column per grid column (the header orders them on screen). The
// grid changes the store and then tells the model what changed; while held
// (Redraw off) the model tells the view nothing and resets it once when
// released, so a mass load costs a single reset.
class LynxGridModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit LynxGridModel(QObject *parent = nullptr) : QAbstractTableModel(parent) {}

    GridStore &store() { return store_; }
    const GridStore &store() const { return store_; }

    void set_formatter(CellFormatter formatter) { formatter_ = std::move(formatter); }
    void set_selection_palette(const QPalette &palette) { palette_ = palette; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    // The grid position of a model index, and the model row of a position
    // (-1 when hidden).
    int position(const QModelIndex &index) const { return store_.position_of_shown(index.row()); }
    int model_row(int pos) const { return store_.shown_of_position(pos); }

    void hold(bool held);
    bool held() const { return held_; }

    // Changes of shape go through the model, which tells the view.
    int append_row(const QString &tab_joined);
    void remove_row(int pos);
    void append_column(const ColumnSpec &spec);

    // Notifications, after the store changed.
    void cells_changed(int pos);
    void all_cells_changed();
    void column_changed(int col);
    // After a change that reorders, hides or removes rows or columns.
    void reset_all();

    void set_editable(bool editable) { editable_ = editable; }

private:
    bool fits(const QModelIndex &index) const;

    GridStore store_;
    CellFormatter formatter_;
    QPalette palette_;
    bool held_ = false;
    bool stale_ = false; // something changed while held
    int held_rows_ = 0;
    int held_cols_ = 0;
    bool editable_ = false;
};

} // namespace vendrix::widgets
