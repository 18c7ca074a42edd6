#pragma once

#include "core/startup.h"

#include <QWidget>

#include <array>

class QLabel;
class QProgressBar;

namespace vendrix {

// The splash screen: the only window while the start-up checks the folder.
// A bar of eleven steps and the captions of the current step and the two
// before it.
class FrmSplash final : public QWidget, public ProgresoArranque {
    Q_OBJECT

public:
    explicit FrmSplash(QWidget *parent = nullptr);

    void mostrar(int logo, const QString &version_label) override;
    void avanzar() override;
    void update_bar(const QString &step) override;

private:
    QProgressBar *splash_pb_;
    QLabel *text_pb_;
    QLabel *text_pbm1_;
    QLabel *text_pbm2_;
    QLabel *lbl_version_;
    std::array<QLabel *, 6> logos_{};
};

} // namespace vendrix
