// Export of the grid to a comma-separated file on the user's desktop.
#include "widgets/lynx_grid.h"

#include "core/operator.h"
#include "widgets/csv_text.h"
#include "widgets/grid_view.h"
#include "widgets/lynx_grid_model.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QStandardPaths>
#include <QTableView>
#include <QUrl>

namespace vendrix::widgets {

namespace {

const QString kTitle = QStringLiteral("LynxGrid.Export");
const QString kCrLf = QStringLiteral("\r\n");
// The numbers the export's error message gives for a file that can't be
// opened and one that can't be written.
constexpr int kFileAccessError = 75;
constexpr int kDeviceError = 57;

} // namespace

QString LynxGrid::desktopFolder() const
{
    return desktop_.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::DesktopLocation) : desktop_;
}

bool LynxGrid::ExportGrid(const QString &name)
{
    const GridStore &store = model_->store();
    if (store.shown_count() == 0) {
        if (operator_)
            operator_->inform(kTitle, QStringLiteral("No grid rows to export."));
        return false;
    }
    const QString file_name =
        name.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive) ? name : name + ".csv";
    const QString path = QDir(desktopFolder()).filePath(file_name);

    // Shown columns in their order on screen.
    const QHeaderView *header = view_->horizontalHeader();
    const bool header_in_step = header->count() == Cols();
    QList<int> columns;
    for (int place = 0; place < Cols(); ++place) {
        const int col = header_in_step ? header->logicalIndex(place) : place;
        if (ColVisible(col) && ColWidth(col) > 0)
            columns << col;
    }

    QStringList fields;
    for (int col : columns)
        fields << ColHeading(col);
    // A byte order mark, so that spreadsheets read the accents as UTF-8.
    QByteArray bytes("\xEF\xBB\xBF");
    bytes += (csv_line(fields) + kCrLf).toUtf8();
    for (int shown = 0; shown < store.shown_count(); ++shown) {
        const int pos = store.position_of_shown(shown);
        fields.clear();
        for (int col : columns)
            fields << store.cell(pos, col).toString();
        bytes += (csv_line(fields) + kCrLf).toUtf8();
    }

    QFile file(path);
    int error = 0;
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        error = kFileAccessError;
    else if (file.write(bytes) != bytes.size() || !file.flush())
        error = kDeviceError;
    if (error != 0) {
        if (operator_)
            operator_->error(kTitle, "Error# " + QString::number(error) + kCrLf + file.errorString());
        return false;
    }
    file.close();
    const QString question =
        "File " + file_name + " was saved to your desktop." + kCrLf + "Do you want to open it?";
    if (operator_ && operator_->ask(kTitle, question)) {
        if (opener_)
            opener_(path);
        else
            QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    }
    return true;
}

} // namespace vendrix::widgets
