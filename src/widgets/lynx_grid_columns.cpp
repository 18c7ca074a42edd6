// Columns of the grid: their properties, their remembered layout, and the
// totals line that runs under them.
#include "widgets/lynx_grid.h"

#include "widgets/grid_view.h"
#include "widgets/lynx_grid_model.h"
#include "widgets/totals_bar.h"

#include <QHeaderView>
#include <QLocale>
#include <QSettings>
#include <QTableView>

#include <algorithm>

namespace vendrix::widgets {

namespace {

constexpr double kTwipsPerInch = 1440.0;

const QString kCount = QStringLiteral("Count");

QString place_key(int col)
{
    return QStringLiteral("P") + QString::number(col);
}

QString width_key(int col)
{
    return QStringLiteral("W") + QString::number(col);
}

} // namespace

int LynxGrid::twips_to_pixels(int twips) const
{
    return qRound(twips * logicalDpiX() / kTwipsPerInch);
}

int LynxGrid::pixels_to_twips(int pixels) const
{
    return qRound(pixels * kTwipsPerInch / logicalDpiX());
}

int LynxGrid::AddColumn(const ColumnSpec &spec)
{
    model_->append_column(spec);
    const int col = Cols() - 1;
    apply_column_layout(col);
    QHeaderView *header = view_->horizontalHeader();
    if (spec.position >= 1 && spec.position < Cols() && header->count() == Cols())
        header->moveSection(header->visualIndex(col), spec.position - 1);
    return col;
}

int LynxGrid::AddColumn(const QString &heading, int width)
{
    ColumnSpec spec;
    spec.heading = heading;
    spec.width = width;
    return AddColumn(spec);
}

// Sizes and hides the header section of a column from its record.
void LynxGrid::apply_column_layout(int col)
{
    QHeaderView *header = view_->horizontalHeader();
    if (col >= header->count())
        return;
    const ColumnSpec &spec = model_->store().column(col).spec;
    syncing_ = true;
    if (spec.width > 0)
        header->resizeSection(col, twips_to_pixels(spec.width));
    header->setSectionHidden(col, !spec.visible || spec.width <= 0);
    syncing_ = false;
}

void LynxGrid::apply_all_column_layouts()
{
    for (int col = 0; col < Cols(); ++col)
        apply_column_layout(col);
}

// The operator dragged a column's border: remember the width in twips.
void LynxGrid::section_resized(int col, int new_size)
{
    if (syncing_ || new_size <= 0 || !has_col(col))
        return;
    model_->store().column(col).spec.width = pixels_to_twips(new_size);
}

template <typename T> T LynxGrid::column_field(int col, T ColumnSpec::*field) const
{
    return has_col(col) ? model_->store().column(col).spec.*field : T();
}

template <typename T> bool LynxGrid::set_column_field(int col, T ColumnSpec::*field, const T &value)
{
    if (!has_col(col))
        return false;
    model_->store().column(col).spec.*field = value;
    return true;
}

QString LynxGrid::ColHeading(int col) const
{
    return column_field(col, &ColumnSpec::heading);
}
void LynxGrid::setColHeading(int col, const QString &heading)
{
    if (set_column_field(col, &ColumnSpec::heading, heading))
        model_->column_changed(col);
}

int LynxGrid::ColWidth(int col) const
{
    return column_field(col, &ColumnSpec::width);
}
void LynxGrid::setColWidth(int col, int twips)
{
    if (set_column_field(col, &ColumnSpec::width, std::max(twips, 0)))
        apply_column_layout(col);
}

Qt::Alignment LynxGrid::ColAlignment(int col) const
{
    return column_field(col, &ColumnSpec::alignment);
}
void LynxGrid::setColAlignment(int col, Qt::Alignment alignment)
{
    if (set_column_field(col, &ColumnSpec::alignment, alignment))
        model_->column_changed(col);
}

ColumnType LynxGrid::ColType(int col) const
{
    return column_field(col, &ColumnSpec::type);
}
void LynxGrid::setColType(int col, ColumnType type)
{
    set_column_field(col, &ColumnSpec::type, type);
}

QString LynxGrid::ColFormat(int col) const
{
    return column_field(col, &ColumnSpec::format);
}
void LynxGrid::setColFormat(int col, const QString &format)
{
    if (set_column_field(col, &ColumnSpec::format, format))
        model_->column_changed(col);
}

QString LynxGrid::ColInputFilter(int col) const
{
    return column_field(col, &ColumnSpec::input_filter);
}
void LynxGrid::setColInputFilter(int col, const QString &filter)
{
    set_column_field(col, &ColumnSpec::input_filter, filter);
}

bool LynxGrid::ColVisible(int col) const
{
    return column_field(col, &ColumnSpec::visible);
}
void LynxGrid::setColVisible(int col, bool visible)
{
    if (set_column_field(col, &ColumnSpec::visible, visible))
        apply_column_layout(col);
}

bool LynxGrid::ColLocked(int col) const
{
    return column_field(col, &ColumnSpec::locked);
}
void LynxGrid::setColLocked(int col, bool locked)
{
    set_column_field(col, &ColumnSpec::locked, locked);
}

bool LynxGrid::ColSummed(int col) const
{
    return column_field(col, &ColumnSpec::summed);
}
void LynxGrid::setColSummed(int col, bool summed)
{
    if (set_column_field(col, &ColumnSpec::summed, summed))
        totals_bar_->update();
}

QString LynxGrid::ColTag(int col) const
{
    return has_col(col) ? model_->store().column(col).tag : QString();
}

void LynxGrid::setColTag(int col, const QString &tag)
{
    if (has_col(col))
        model_->store().column(col).tag = tag;
}

// ---- Remembered layout ----------------------------------------------------

void LynxGrid::ColOrderSave(QSettings &store, const QString &section) const
{
    const QHeaderView *header = view_->horizontalHeader();
    store.beginGroup(section);
    store.setValue(kCount, Cols());
    for (int col = 0; col < Cols(); ++col)
        store.setValue(place_key(col), header->visualIndex(col));
    store.endGroup();
}

void LynxGrid::ColOrderLoad(QSettings &store, const QString &section)
{
    QHeaderView *header = view_->horizontalHeader();
    store.beginGroup(section);
    std::vector<int> places;
    if (store.value(kCount).toInt() == Cols() && header->count() == Cols()) {
        for (int col = 0; col < Cols(); ++col)
            places.push_back(store.value(place_key(col), -1).toInt());
    }
    store.endGroup();
    // Only a full permutation of the places is applied.
    std::vector<int> sorted = places;
    std::sort(sorted.begin(), sorted.end());
    for (int i = 0; i < int(sorted.size()); ++i) {
        if (sorted[size_t(i)] != i)
            return;
    }
    for (int place = 0; place < int(places.size()); ++place) {
        const int col = int(std::find(places.begin(), places.end(), place) - places.begin());
        header->moveSection(header->visualIndex(col), place);
    }
}

void LynxGrid::ColWidthsSave(QSettings &store, const QString &section) const
{
    store.beginGroup(section);
    store.setValue(kCount, Cols());
    for (int col = 0; col < Cols(); ++col)
        store.setValue(width_key(col), ColWidth(col));
    store.endGroup();
}

void LynxGrid::ColWidthsLoad(QSettings &store, const QString &section)
{
    store.beginGroup(section);
    if (store.value(kCount).toInt() == Cols()) {
        for (int col = 0; col < Cols(); ++col) {
            bool ok = false;
            const int twips = store.value(width_key(col)).toInt(&ok);
            if (ok)
                setColWidth(col, twips);
        }
    }
    store.endGroup();
}

// ---- Totals line ----------------------------------------------------------

void LynxGrid::setTotalsLineShow(bool on)
{
    totals_line_ = on;
    totals_bar_->setVisible(on);
}

double LynxGrid::TotalsCol(int col) const
{
    return model_->store().total(col);
}

QString LynxGrid::TotalsLineCaption(int index) const
{
    return index >= 0 && index < captions_.size() ? captions_.at(index) : QString();
}

void LynxGrid::setTotalsLineCaption(int index, const QString &caption)
{
    if (index < 0)
        return;
    while (captions_.size() <= index)
        captions_.append(QString());
    captions_[index] = caption;
    totals_bar_->update();
}

QString LynxGrid::totals_text(int col) const
{
    QString text = TotalsLineCaption(col);
    if (!ColSummed(col))
        return text;
    if (!text.isEmpty() && !text.endsWith(u' '))
        text += u' ';
    return text + QLocale(QLocale::Spanish, QLocale::Argentina).toString(TotalsCol(col), 'f', 2);
}

} // namespace vendrix::widgets
