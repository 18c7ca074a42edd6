#include "screens/main_window/frm_log.h"

#include "core/context.h"
#include "widgets/lynx_grid.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vendrix {

namespace {

// The level boxes in the order of their indexes: INF, ERR, ACT, SQL, PRN, XML.
constexpr const char *kNiveles[] = {"Información", "Errores", "Acciones", "SQL", "Impresora", "XML"};

enum CsvColumn { kFecha = 0, kTipo = 1, kTexto = 2 };

} // namespace

FrmLog::FrmLog(Context &ctx, QWidget *parent) : QWidget(parent, Qt::Window), ctx_(ctx)
{
    setObjectName(QStringLiteral("FrmLog"));
    setWindowTitle(QStringLiteral("Log de Vendrix"));
    setAttribute(Qt::WA_DeleteOnClose);

    frame_log_ = new QGroupBox(this);
    frame_log_->setObjectName(QStringLiteral("Frame_log"));
    grid_ = new widgets::LynxGrid(frame_log_);
    grid_->setObjectName(QStringLiteral("LynxGrid_log"));
    grid_->setOperator(&ctx_.op());

    auto *filters = new QHBoxLayout;
    for (int i = 0; i < static_cast<int>(check_filtro_.size()); ++i) {
        QCheckBox *box = new QCheckBox(QString::fromUtf8(kNiveles[i]), frame_log_);
        box->setObjectName(QStringLiteral("Check_filtro_%1").arg(i));
        box->setChecked(true);
        connect(box, &QCheckBox::toggled, this, &FrmLog::refrescar_log);
        check_filtro_[i] = box;
        filters->addWidget(box);
    }
    filters->addStretch();

    auto *frame_layout = new QVBoxLayout(frame_log_);
    frame_layout->addLayout(filters);
    frame_layout->addWidget(grid_, 1);

    log_detail_ = new QPlainTextEdit(this);
    log_detail_->setObjectName(QStringLiteral("log_detail"));
    log_detail_->setReadOnly(true);
    log_detail_->setMaximumHeight(140);

    command_refresh_ = new QPushButton(QStringLiteral("Actualizar"), this);
    command_refresh_->setObjectName(QStringLiteral("Command_refresh"));
    command_borrar_ = new QPushButton(QStringLiteral("Borrar el log"), this);
    command_borrar_->setObjectName(QStringLiteral("Command_borrar"));
    connect(command_refresh_, &QPushButton::clicked, this, &FrmLog::cargar);
    connect(command_borrar_, &QPushButton::clicked, this, &FrmLog::borrar);
    connect(grid_, &widgets::LynxGrid::RowColChanged, this, &FrmLog::mostrar_detalle);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(command_refresh_);
    buttons->addWidget(command_borrar_);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(frame_log_, 1);
    layout->addWidget(log_detail_);
    layout->addLayout(buttons);
    resize(900, 600);
    cargar();
}

void FrmLog::cargar()
{
    grid_->ClearAll();
    grid_->AddColumn(QStringLiteral("Fecha"), 2600);
    grid_->AddColumn(QStringLiteral("Tipo"), 1100);
    grid_->AddColumn(QStringLiteral("Log"), 9000);
    refrescar_log();
}

FiltrosLog FrmLog::filtros() const
{
    FiltrosLog filtros{};
    for (size_t i = 0; i < filtros.size(); ++i)
        filtros[i] = check_filtro_[i]->isChecked();
    return filtros;
}

void FrmLog::refrescar_log()
{
    const QString path = ctx_.log().ruta_log();
    frame_log_->setTitle(titulo_marco_log(path));
    grid_->setRedraw(false);
    grid_->Clear();
    for (const FilaLog &fila : leer_filas_log(path, filtros())) {
        // The message goes in by itself: a tab inside it must not start
        // another cell.
        const int row = grid_->AddItem(fila.fecha + QLatin1Char('\t') + fila.tipo);
        grid_->setCellText(row, kTexto, fila.texto);
        grid_->setRowForeColor(row, QColor(color_fila_log(fila.tipo)));
    }
    grid_->setRedraw(true);
    log_detail_->clear();
}

void FrmLog::mostrar_detalle()
{
    const int row = grid_->Row();
    if (row < 0) {
        log_detail_->clear();
        return;
    }
    log_detail_->setPlainText(detalle_log(
        {grid_->CellText(row, kFecha), grid_->CellText(row, kTipo), grid_->CellText(row, kTexto)}));
}

void FrmLog::borrar()
{
    if (!borrar_log(ctx_.log(), ctx_.estado()))
        ctx_.op().error(QStringLiteral("Log de Vendrix"), QStringLiteral("No se pudo borrar el archivo ") +
                                                              ctx_.log().ruta_log() + QLatin1Char('.'));
    cargar();
}

} // namespace vendrix
