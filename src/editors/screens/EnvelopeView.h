#pragma once

#include <QGroupBox>

#include <array>

class QLabel;

namespace quillon {

class AppModel;
class ClickLabel;

// picFrame: the drawing of the envelope, with the corners the user drags.
// Mouse events go to the core in twips of the drawing.
class EnvelopePicture : public QWidget {
    Q_OBJECT
public:
    EnvelopePicture(AppModel& model, QWidget* parent);

    // The drawing's size in twips.
    static constexpr int kWidth = 4300;
    static constexpr int kHeight = 4400;

signals:
    void edited();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    AppModel& model_;
};

// fraEnvelope: the envelope graph of the patch screen, standing in the place
// of one frame's rows: the drawing, the time and level of the point being
// dragged, the key-off legend and the buttons that copy the envelope.
class EnvelopeView : public QGroupBox {
    Q_OBJECT
public:
    EnvelopeView(AppModel& model, QWidget* parent);
    // Shows model.envelope.
    void mirror();

private:
    AppModel& model_;
    EnvelopePicture* picture_ = nullptr;
    std::array<QLabel*, 4> values_{};  // lblTimeName, lblTimeVal, lblLevelName, lblLevelVal
    std::array<ClickLabel*, 6> copy_{};  // lblEG 1 to 5
};

}  // namespace quillon
