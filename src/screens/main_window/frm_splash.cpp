#include "screens/main_window/frm_splash.h"

#include "screens/main_window/screen_images.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QVBoxLayout>

#include <cmath>

namespace vendrix {

namespace {

// The bar moves 100/11 of its range a step, rounded.
const int kPaso = static_cast<int>(std::lround(100.0 / 11.0));

QLabel *etiqueta(QWidget *parent, const char *name, int point_size_delta = 0)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    if (point_size_delta != 0) {
        QFont font = label->font();
        font.setPointSize(font.pointSize() + point_size_delta);
        label->setFont(font);
    }
    return label;
}

} // namespace

FrmSplash::FrmSplash(QWidget *parent) : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(QStringLiteral("Vendrix"));
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QStringLiteral("#frmSplash { background: white; border: 1px solid #0d47a1; }"));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 16);
    auto *logo_row = new QHBoxLayout;
    for (int i = 0; i < static_cast<int>(logos_.size()); ++i) {
        logos_[i] = new QLabel(this);
        logos_[i]->setObjectName(QStringLiteral("Picture1_%1").arg(i));
        logos_[i]->setPixmap(imagen_logo(i));
        logos_[i]->setVisible(i == 0);
        logo_row->addWidget(logos_[i]);
    }
    logo_row->addStretch();
    layout->addLayout(logo_row);

    lbl_version_ = etiqueta(this, "lblVersion");
    layout->addWidget(lbl_version_);
    layout->addSpacing(12);

    text_pbm2_ = etiqueta(this, "text_pbm2", -1);
    text_pbm1_ = etiqueta(this, "text_pbm1", -1);
    text_pb_ = etiqueta(this, "text_pb", 1);
    for (QLabel *previous : {text_pbm2_, text_pbm1_})
        previous->setStyleSheet(QStringLiteral("color: #757575;"));
    layout->addWidget(text_pbm2_);
    layout->addWidget(text_pbm1_);
    layout->addWidget(text_pb_);

    splash_pb_ = new QProgressBar(this);
    splash_pb_->setObjectName(QStringLiteral("splash_pb"));
    splash_pb_->setRange(0, 100);
    splash_pb_->setValue(0);
    splash_pb_->setTextVisible(false);
    layout->addWidget(splash_pb_);
    setFixedSize(440, 260);
}

void FrmSplash::mostrar(int logo, const QString &version_label)
{
    for (int i = 0; i < static_cast<int>(logos_.size()); ++i)
        logos_[i]->setVisible(i == logo);
    lbl_version_->setText(version_label);
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
    show();
    QApplication::processEvents();
}

void FrmSplash::avanzar()
{
    splash_pb_->setValue(std::min(splash_pb_->maximum(), splash_pb_->value() + kPaso));
    QApplication::processEvents();
}

void FrmSplash::update_bar(const QString &step)
{
    text_pbm2_->setText(text_pbm1_->text());
    text_pbm1_->setText(text_pb_->text());
    text_pb_->setText(step + QStringLiteral("..."));
    avanzar();
}

} // namespace vendrix
