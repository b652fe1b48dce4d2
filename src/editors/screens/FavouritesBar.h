#pragma once

#include <QPoint>
#include <QWidget>

#include <array>

class QLabel;

namespace quillon {

class AppModel;

// The eight favourite slots lblFavSubSect(0..7) of the patch screen: a frame's
// caption lblSubsect is dragged onto a slot to keep its subsection there; a
// click opens it again, a shift-click empties the slot.
class FavouritesBar : public QWidget {
    Q_OBJECT
public:
    static constexpr int kSlots = 8;

    FavouritesBar(AppModel& model, QWidget* parent = nullptr);

    // The captions as the model holds them.
    void mirror();

    // A frame caption that can be dragged onto the slots.
    void watchDragSource(QLabel* caption);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool handleSlotEvent(int slot, QEvent* event);
    bool handleSourceEvent(QLabel* source, QEvent* event);

    AppModel& model_;
    std::array<QLabel*, kSlots> slots_{};
    QPoint pressedAt_;
};

// The kind of data a dragged frame caption carries.
inline constexpr const char* kSubsectionCaptionMime = "application/x-quillon-subsection-caption";

}  // namespace quillon
